// Database files for the engine's tests, made with the store's own API, and
// the run-time errors that statements raise.
#pragma once

#define SQLITE_HAS_CODEC 1
#include <sqlcipher/sqlite3.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"

// Runs `sql` in an encrypted file with this key, which it creates if need be.
inline void RunSql(const std::string& path, const std::string& sql, const std::string& key = "secret") {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_key(db, key.data(), static_cast<int>(key.size())), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << (message ? message : "");
    sqlite3_free(message);
    sqlite3_close(db);
}

using Error = std::pair<std::int32_t, std::string>;

// Each statement must raise its run-time error; an empty description matches any.
inline void ExpectErrors(const std::vector<std::pair<std::function<void()>, Error>>& cases) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        Error raised;
        try {
            cases[i].first();
        } catch (const platform::RuntimeError& error) {
            raised = {error.Number(), error.Description()};
        }
        const auto& [number, description] = cases[i].second;
        EXPECT_EQ(raised, Error(number, description.empty() ? raised.second : description)) << "case " << i;
    }
}

// Database files for the engine's tests, made with the store's own API, and
// the run-time errors that statements raise.
#pragma once

#define SQLITE_HAS_CODEC 1
#include <sqlcipher/sqlite3.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"

inline constexpr char kTestConnect[] = ";pwd=secret";

// Creates an encrypted file with the key "secret" and runs `sql` in it.
inline void MakeDatabase(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_key(db, "secret", 6), SQLITE_OK);
    char* message = nullptr;
    const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message);
    EXPECT_EQ(code, SQLITE_OK) << (message ? message : "");
    sqlite3_free(message);
    sqlite3_close(db);
}

// Runs the statement and returns the run-time error it raised: number and
// description, 0 and "" if none.
template <class Statement>
std::pair<std::int32_t, std::string> ErrorOf(Statement&& statement) {
    try {
        statement();
    } catch (const platform::RuntimeError& error) {
        return {error.Number(), error.Description()};
    }
    return {0, ""};
}

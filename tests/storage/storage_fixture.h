// A program directory of its own for each test: the application path points
// to a scratch directory, the globals start as at program start, and message
// boxes, beeps and the end of the program are recorded.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "platform/runtime_temp_dir.h"
#include "storage/data_procedure.h"
#include "storage/mod_global_db.h"
#include "storage/top_ten.h"
#include "support/boxes.h"

class StorageTest : public ::testing::Test {
protected:
    void SetUp() override {
        modGlobal::ResetGlobals();
        platform::SetAppPath(app_.Path());
    }
    void TearDown() override {
        platform::SetAppPath(std::nullopt);
        platform::SetRegularInstallDirs(std::nullopt);
        modGlobal::ResetGlobals();
    }

    // Copies a file the build delivers beside the program into `directory`.
    static void Deliver(const std::string& name, const std::string& directory) {
        std::filesystem::copy_file(std::string(DOVRIN_DELIVERED_DIR) + "/" + name, directory + "/" + name,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    std::vector<Box> Boxes() const { return BoxesOf(responder_); }

    TempDir app_;
    platform::ScriptedResponder responder_;
};

// The delivered database in the program's directory, in use, and read or
// written behind the back of the procedures under test.
class DeliveredDbTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        Deliver("Lantern.mdb", app_.Path());
        modGlobal::gsDbPath = app_.Path();
    }

    static std::unique_ptr<dao::Database> Open() {
        return dao::DBEngine::OpenDatabase(storage::DbFileName(), false, false, storage::kDbConnect);
    }

    // The rows of a query in the engine's order, each as the texts of
    // `fields` joined by '|', a Null as '-'.
    static std::vector<std::string> Rows(const std::string& select, std::initializer_list<const char*> fields) {
        auto rs = Open()->OpenRecordset(select, dao::dbOpenSnapshot);
        std::vector<std::string> rows;
        for (; !rs->Eof(); rs->MoveNext()) {
            std::string row;
            const char* separator = "";
            for (const char* field : fields) {
                const dao::Variant value = rs->Fields(field).Value();
                row += separator + (value.IsNull() ? std::string("-") : value.ToString());
                separator = "|";
            }
            rows.push_back(row);
        }
        return rows;
    }

    // The users by id, each as "userid|name|player1|player2|player3|skilllevel|numgames|winnings".
    static std::vector<std::string> Users() {
        return Rows("SELECT * FROM user ORDER BY userid",
                    {"userid", "name", "player1", "player2", "player3", "skilllevel", "numgames", "winnings"});
    }

    static void InsertTopTen(const std::vector<storage::TopTenEntry>& entries) {
        auto rs = Open()->OpenRecordset("SELECT * FROM topten", dao::dbOpenDynaset);
        for (const storage::TopTenEntry& entry : entries) {
            rs->AddNew();
            rs->Fields("name") = entry.name;
            rs->Fields("score") = entry.score;
            rs->Fields("skilllevel") = entry.skilllevel;
            rs->Fields("date") = dao::Variant::Date(entry.date);
            rs->Update();
        }
    }
};

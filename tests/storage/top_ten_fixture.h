// A delivered database in the program's directory, and the table topten
// written and read behind the back of the procedures under test.
#pragma once

#include <string>
#include <vector>

#include "storage/data_procedure.h"
#include "storage/top_ten.h"
#include "storage_fixture.h"

class TopTenTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        Deliver("Lantern.mdb", app_.Path());
        modGlobal::gsDbPath = app_.Path();
    }

    static std::unique_ptr<dao::Database> Open() {
        return dao::DBEngine::OpenDatabase(storage::DbFileName(), false, false, storage::kDbConnect);
    }

    static void Insert(const std::vector<storage::TopTenEntry>& entries) {
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

    // The table's rows as "name score", in the order the engine returns them.
    static std::vector<std::string> TableRows() {
        auto rs = Open()->OpenRecordset("SELECT * FROM topten", dao::dbOpenSnapshot);
        std::vector<std::string> rows;
        for (; !rs->Eof(); rs->MoveNext())
            rows.push_back(rs->Fields("name").Value().ToString() + " " + rs->Fields("score").Value().ToString());
        return rows;
    }
};

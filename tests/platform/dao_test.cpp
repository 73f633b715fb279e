#include "platform/runtime/dao.h"
#include "platform/runtime/dao_dialect.h"

#include <gtest/gtest.h>

#include "dao_fixture.h"

using namespace dao;

namespace {

class DaoTest : public ::testing::Test {
protected:
    void SetUp() override {
        RunSql(name_,
               "CREATE TABLE person (id INTEGER, name TEXT COLLATE NOCASE, born DATETIME, small INTEGER"
               "  CONSTRAINT type_small CHECK (typeof(small) IN ('integer', 'null'))"
               "  CONSTRAINT range_small CHECK (small BETWEEN -32768 AND 32767));"
               "CREATE TABLE other (x INTEGER); CREATE TABLE empty (x INTEGER);"
               "INSERT INTO person VALUES (1, 'Ann', 36526.5, 10), (2, 'Bob', 45000.25, 20);"
               "INSERT INTO other VALUES (7);");
    }

    std::unique_ptr<Database> Open(bool readOnly = false, const std::string& file = {},
                                   const std::string& connect = ";pwd=secret") {
        return DBEngine::OpenDatabase(file.empty() ? name_ : file, false, readOnly, connect);
    }

    TempDir dir_;
    std::string name_ = dir_.File("test.mdb");
};

TEST(TranslateStatement, TakesTheEnginesWordsAndLeavesLiteralsAlone) {
    for (const auto& [statement, translated] : std::vector<std::pair<const char*, const char*>>{
             {"  delete *from user where userid = 3", "  delete from user where userid = 3"},
             {"SELECT 5--3, '--', 1/*2 FROM t WHERE a = 'DELETE * FROM x'",
              "SELECT 5- -3, '--', 1/ *2 FROM t WHERE a = 'DELETE * FROM x'"},
             {"INSERT INTO e VALUES ('Now','it''s Now', Now, now ( ), [Now], \"Now\", Nowhere, t.Now)",
              "INSERT INTO e VALUES ('Now','it''s Now', (45000.5), (45000.5), [Now], \"Now\", Nowhere, t.Now)"},
             // An unclosed literal runs to the end: nothing behind it is translated.
             {"SELECT * FROM user WHERE name='O'Brien' AND Now", "SELECT * FROM user WHERE name='O'Brien' AND Now"}})
        EXPECT_EQ(TranslateStatement(statement, 45000.5), translated);
}

// (A wrong password and a file of another format, as the program meets them:
// DatabaseFileTest.GetNextUserID...)
TEST_F(DaoTest, OpenFailuresCarryTheEnginesNumbersAndDescriptions) {
    const std::string missing = dir_.File("missing.mdb"), gone = dir_.File("gone"), other = dir_.File("other.mdb");
    // A file of several pages, cut short or damaged inside its last page.
    RunSql(other, "CREATE TABLE big (x BLOB); INSERT INTO big VALUES (zeroblob(8000));");
    const std::string whole = ReadBytes(other);
    std::string damaged = whole;
    damaged[whole.size() - 700] ^= 0x55;
    const auto openOther = [&](const std::string& bytes) {
        return [&, bytes] {
            WriteBytes(other, bytes);
            Open(false, other);
        };
    };
    ExpectErrors({
        {[&] { Open(false, missing); }, {3024, "Could not find file '" + missing + "'."}},
        {[&] { Open(false, gone + "/a.mdb"); },
         {3044, "'" + gone + "' isn't a valid path. Make sure that the path name is spelled correctly and that you "
                             "are connected to the server on which the file resides."}},
        {openOther(""), {3343, ""}},
        {openOther(whole.substr(0, whole.size() - 1024)), {3343, ""}},
        {openOther(damaged), {3343, ""}},
    });
}

// The engine's own words: "DELETE *", "--" as two minus signs, Now, and a
// separator with nothing behind it.
TEST_F(DaoTest, RowsChangeThroughADynasetOutlivingItsDatabaseAndThroughStatementsInTheEnginesWords) {
    auto rs = Open()->OpenRecordset("SELECT * FROM person WHERE id >= 2");
    rs->Edit();
    rs->Fields("NAME") = "Bobby";
    rs->Update();
    EXPECT_EQ(rs->Fields("name").Value().ToString(), "Bobby");
    rs->AddNew();
    rs->Fields("id") = 3;
    rs->Fields("born") = Variant::Date(45001.75);
    rs->Update();
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof() && !rs->Bof());

    auto db = Open();
    EXPECT_EQ(db->OpenRecordset("SELECT 5--3 AS n FROM other")->Fields("n").Value().ToInt16(), 8);
    db->Execute("DELETE * FROM person where id = 1");
    const double before = platform::Now();
    db->Execute("INSERT INTO person (id, born) VALUES (9, Now)");
    db->Execute("DELETE FROM other ; ");
    EXPECT_TRUE(db->OpenRecordset("SELECT * FROM other")->Eof());
    auto rows = db->OpenRecordset("SELECT * FROM person ORDER BY id", dbOpenSnapshot);
    EXPECT_EQ(rows->Fields("name").Value().ToString(), "Bobby");
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("born").Value().ToString(), "2023-03-16 18:00:00");  // read back as a date
    EXPECT_TRUE(rows->Fields("name").Value().IsNull());
    rows->MoveNext();
    EXPECT_NEAR(rows->Fields("born").Value().ToDouble(), before, 2.0 / 86400);
}

// (A missing table and a missing operator, as the user forms meet them:
// FUserNameTest.AFailedOpen... and FGameOverTest.TheRecordIsAdded...)
TEST_F(DaoTest, WhatTheEngineRefusesFailsWithItsNumberAndDescription) {
    auto db = Open();
    auto none = db->OpenRecordset("SELECT * FROM empty");
    auto snapshot = db->OpenRecordset("SELECT * FROM person", dbOpenSnapshot);
    auto counted = db->OpenRecordset("SELECT count(*) AS n FROM person");
    auto rs = db->OpenRecordset("SELECT * FROM person WHERE id = 1");
    auto readOnly = Open(true)->OpenRecordset("SELECT * FROM person");
    const auto set = [](Recordset& r, const char* field, const Variant& value) {
        r.Fields(field) = value;
        r.Update();
    };
    const auto execute = [&](const char* statement) { return [&, statement] { db->Execute(statement); }; };
    const auto select = [&](const char* statement) { return [&, statement] { db->OpenRecordset(statement); }; };
    ExpectErrors({
        {[&] { none->Fields("x").Value(); }, {3021, "No current record."}},
        {[&] { none->MoveNext(); }, {3021, ""}},
        {[&] { none->Edit(); }, {3021, ""}},
        {[&] { snapshot->AddNew(); }, {3027, "Cannot update. Database or object is read-only."}},
        {[&] { snapshot->Edit(); }, {3027, ""}},
        {[&] { counted->AddNew(); }, {3027, ""}},
        {[&] { readOnly->AddNew(); set(*readOnly, "id", 5); }, {3027, ""}},
        {[&] { set(*rs, "name", "x"); }, {3020, "Update or CancelUpdate without AddNew or Edit."}},
        {[&] { rs->Update(); }, {3020, ""}},
        {[&] { rs->Edit(); set(*rs, "small", 40000); }, {3349, "Numeric field overflow."}},
        {[&] { rs->Edit(); set(*rs, "small", "many"); }, {3421, "Data type conversion error."}},
        {[&] { rs->Fields("nosuch"); }, {3265, "Item not found in this collection."}},
        {[&] { rs->Close(); rs->Eof(); }, {3420, "Object invalid or no longer set."}},
        {[&] { Variant().ToString(); }, {94, "Invalid use of Null"}},
        {[&] { Variant("12abc").ToInt32(); }, {13, "Type mismatch"}},
        // One statement per call, on one table; and what doesn't compile.
        {execute("DELETE FROM other; DELETE FROM person"), {3142, "Characters found after end of SQL statement."}},
        {execute("DELETE FROM person -- all of them"), {3131, "Syntax error in FROM clause."}},
        {select("SELECT * FROM person WHERE name='' OR (SELECT x FROM other)"),
         {3033, "You don't have the necessary permissions to use the 'other' object."}},
        {select("SELECT * FROM sqlite_master"), {3033, ""}},
        {select("SELECT nosuch FROM person"), {3061, "Too few parameters. Expected 1."}},
        {execute("DELETE FROM person WHERE id = ? OR name = :name"), {3061, "Too few parameters. Expected 2."}},
        {select("SELECT * FRM person"), {3141, ""}},
        {execute("INSERT INTO person VALUES ("), {3134, "Syntax error in INSERT INTO statement."}},
        {execute("INSERT INTO person (id) VALUES (1, 2)"), {3346, ""}},
        {select("SELECT randomblob(9) FROM person"), {3085, "Undefined function 'randomblob' in expression."}},
        {execute("PRAGMA key='x'"),
         {3129, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."}},
        {execute("SELECT * FROM person"), {3065, "Cannot execute a select query."}},
        {select("DELETE FROM person"), {3219, "Invalid operation."}},
    });
    EXPECT_FALSE(db->OpenRecordset("SELECT * FROM other")->Eof());  // not even the first of two statements ran
    EXPECT_EQ(Variant(std::string(" 12 ")).ToInt16(), 12);
}

}  // namespace

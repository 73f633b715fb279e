#include "platform/runtime/dao.h"

#include <gtest/gtest.h>

#include "dao_fixture.h"

using namespace dao;
using Error = std::pair<std::int32_t, std::string>;

namespace {

const char* const kSchema =
    "CREATE TABLE person (id INTEGER, name TEXT COLLATE NOCASE, born DATETIME,"
    "  small INTEGER CONSTRAINT type_small CHECK (typeof(small) IN ('integer', 'null'))"
    "  CONSTRAINT range_small CHECK (small BETWEEN -32768 AND 32767));"
    "CREATE TABLE other (x INTEGER);"
    "CREATE TABLE empty (x INTEGER);"
    "INSERT INTO person VALUES (1, 'Ann', 36526.5, 10), (2, 'Bob', 45000.25, 20);"
    "INSERT INTO other VALUES (7);";

class DaoTest : public ::testing::Test {
protected:
    void SetUp() override { MakeDatabase(name_, kSchema); }

    std::unique_ptr<Database> Open(bool readOnly = false) {
        return DBEngine::OpenDatabase(name_, false, readOnly, kTestConnect);
    }

    Error OpenError(const std::string& file, const char* connect = kTestConnect) {
        return ErrorOf([&] { DBEngine::OpenDatabase(file, false, false, connect); });
    }

    // The names of table person, in the order of their ids.
    std::vector<std::string> Names() {
        auto rs = Open()->OpenRecordset("SELECT name FROM person ORDER BY id", dbOpenSnapshot);
        std::vector<std::string> names;
        for (; !rs->Eof(); rs->MoveNext()) names.push_back(rs->Fields("name").Value().ToString());
        return names;
    }

    TempDir dir_;
    std::string name_ = dir_.File("test.mdb");
};

TEST(TranslateStatement, TakesTheEnginesWordsAndLeavesLiteralsAlone) {
    EXPECT_EQ(TranslateStatement("DELETE * FROM topten", 1.5), "DELETE  FROM topten");
    EXPECT_EQ(TranslateStatement("  delete *from user where userid = 3", 1.5), "  delete from user where userid = 3");
    EXPECT_EQ(TranslateStatement("DELETE FROM topten", 1.5), "DELETE FROM topten");
    EXPECT_EQ(TranslateStatement("SELECT 5--3, '--', 1/*2 FROM t", 1.5), "SELECT 5- -3, '--', 1/ *2 FROM t");
    EXPECT_EQ(TranslateStatement("SELECT * FROM t WHERE a = 'DELETE * FROM x'", 1.5),
              "SELECT * FROM t WHERE a = 'DELETE * FROM x'");
    EXPECT_EQ(TranslateStatement("INSERT INTO e (a, b, c) VALUES ('Now','it''s Now', Now)", 45000.5),
              "INSERT INTO e (a, b, c) VALUES ('Now','it''s Now', (45000.5))");
    EXPECT_EQ(TranslateStatement("SELECT now ( ) , [Now], \"Now\", Nowhere, t.Now FROM t", 2),
              "SELECT (2) , [Now], \"Now\", Nowhere, t.Now FROM t");
    // An unclosed literal runs to the end: nothing behind it is translated.
    EXPECT_EQ(TranslateStatement("SELECT * FROM user WHERE name='O'Brien' AND Now", 2),
              "SELECT * FROM user WHERE name='O'Brien' AND Now");
}

TEST_F(DaoTest, OpenFailuresCarryTheEnginesNumbersAndDescriptions) {
    const std::string missing = dir_.File("missing.mdb");
    EXPECT_EQ(OpenError(missing), Error(3024, "Could not find file '" + missing + "'."));
    const std::string noDirectory = dir_.File("gone");
    EXPECT_EQ(OpenError(noDirectory + "/a.mdb"),
              Error(3044, "'" + noDirectory +
                              "' isn't a valid path. Make sure that the path name is spelled correctly and that "
                              "you are connected to the server on which the file resides."));
    EXPECT_EQ(OpenError(name_, ";pwd=wrong"), Error(3031, "Not a valid password."));
    EXPECT_EQ(OpenError(name_, ""), Error(3031, "Not a valid password."));

    const std::string text = dir_.File("text.mdb");
    WriteBytes(text, "This is a letter, not a database.\r\n");
    EXPECT_EQ(OpenError(text), Error(3343, "Unrecognized database format '" + text + "'."));
    WriteBytes(text, "");
    EXPECT_EQ(OpenError(text).first, 3343);

    // A file of several pages, cut short or damaged inside its last page.
    auto db = Open();
    for (int i = 0; i < 200; ++i) db->Execute("INSERT INTO other (x) VALUES (" + std::to_string(i * 1000003) + ")");
    db.reset();
    const std::string whole = ReadBytes(name_);
    ASSERT_GT(whole.size(), 4096u);
    const std::string cut = dir_.File("cut.mdb");
    for (std::size_t length : {whole.size() - 1024, whole.size() - 500, std::size_t{1500}}) {
        WriteBytes(cut, whole.substr(0, length));
        EXPECT_EQ(OpenError(cut), Error(3343, "Unrecognized database format '" + cut + "'.")) << "cut at " << length;
    }
    std::string damaged = whole;
    damaged[whole.size() - 700] ^= 0x55;
    WriteBytes(cut, damaged);
    EXPECT_EQ(OpenError(cut).first, 3343);
}

TEST_F(DaoTest, ARecordsetStartsOnItsFirstRowEndsBehindTheLastAndGivesFieldsWithTheirKinds) {
    auto db = Open();
    auto none = db->OpenRecordset("SELECT * FROM empty", dbOpenSnapshot);
    EXPECT_TRUE(none->Bof());
    EXPECT_TRUE(none->Eof());
    EXPECT_EQ(ErrorOf([&] { none->Fields("x").Value(); }), Error(3021, "No current record."));
    EXPECT_EQ(ErrorOf([&] { none->MoveNext(); }).first, 3021);

    auto rs = db->OpenRecordset("SELECT * FROM person ORDER BY id", dbOpenDynaset);
    EXPECT_FALSE(rs->Bof());
    EXPECT_FALSE(rs->Eof());
    const Variant id = rs->Fields("ID").Value();
    const Variant born = rs->Fields("born").Value();
    EXPECT_EQ(id.GetKind(), Variant::Kind::Integer);
    EXPECT_EQ(id.ToInt32(), 1);
    EXPECT_EQ(rs->Fields("name").Value().GetKind(), Variant::Kind::Text);
    EXPECT_EQ(born.GetKind(), Variant::Kind::Date);
    EXPECT_EQ(born.ToDouble(), 36526.5);
    EXPECT_EQ(born.ToString(), "2000-01-01 12:00:00");
    rs->MoveNext();
    EXPECT_EQ(rs->Fields("name").Value().ToString(), "Bob");
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    EXPECT_FALSE(rs->Bof());
    EXPECT_EQ(ErrorOf([&] { rs->Fields("nosuch"); }), Error(3265, "Item not found in this collection."));
}

TEST_F(DaoTest, ADynasetAddsAndEditsRowsAndOutlivesItsDatabaseReference) {
    {
        auto db = Open();
        auto rs = db->OpenRecordset("SELECT * FROM person where id = 2");
        db.reset();
        rs->Edit();
        rs->Fields("name") = "Bobby";
        rs->Fields("small") = std::int16_t{-32768};
        rs->Update();
        EXPECT_EQ(rs->Fields("name").Value().ToString(), "Bobby");

        rs->AddNew();
        rs->Fields("id") = 3;
        rs->Fields("name") = std::string("Cy");
        rs->Fields("born") = Variant::Date(45001.75);
        rs->Update();
        rs->AddNew();
        rs->Fields("id") = 4;
        rs->Fields("name") = "";
        rs->Update();
        rs->Close();
        EXPECT_EQ(ErrorOf([&] { rs->Eof(); }), Error(3420, "Object invalid or no longer set."));
    }
    EXPECT_EQ(Names(), (std::vector<std::string>{"Ann", "Bobby", "Cy", ""}));
    auto rs = Open()->OpenRecordset("SELECT * FROM person WHERE id >= 2 ORDER BY id", dbOpenSnapshot);
    EXPECT_EQ(rs->Fields("small").Value().ToInt16(), -32768);
    rs->MoveNext();
    EXPECT_EQ(rs->Fields("born").Value().ToDouble(), 45001.75);
    EXPECT_TRUE(rs->Fields("small").Value().IsNull());
    EXPECT_EQ(ErrorOf([&] { rs->Fields("small").Value().ToInt16(); }).first, platform::kErrInvalidUseOfNull);
    rs->MoveNext();
    EXPECT_FALSE(rs->Fields("name").Value().IsNull());
}

TEST_F(DaoTest, ChangesNeedAddNewOrEditAnUpdatableRecordsetAndValuesThatFit) {
    auto db = Open();
    auto snapshot = db->OpenRecordset("SELECT * FROM person", dbOpenSnapshot);
    const Error readOnly{3027, "Cannot update. Database or object is read-only."};
    EXPECT_EQ(ErrorOf([&] { snapshot->AddNew(); }), readOnly);
    EXPECT_EQ(ErrorOf([&] { snapshot->Edit(); }), readOnly);
    EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("SELECT count(*) AS n FROM person")->AddNew(); }), readOnly);

    auto rs = db->OpenRecordset("SELECT * FROM person WHERE id = 1");
    const Error withoutEdit{3020, "Update or CancelUpdate without AddNew or Edit."};
    EXPECT_EQ(ErrorOf([&] { rs->Fields("name") = "x"; }), withoutEdit);
    EXPECT_EQ(ErrorOf([&] { rs->Update(); }), withoutEdit);
    EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("SELECT * FROM empty")->Edit(); }).first, 3021);

    rs->Edit();
    rs->Fields("small") = 40000;
    EXPECT_EQ(ErrorOf([&] { rs->Update(); }), Error(3349, "Numeric field overflow."));
    rs->Edit();
    rs->Fields("small") = "many";
    EXPECT_EQ(ErrorOf([&] { rs->Update(); }), Error(3421, "Data type conversion error."));

    auto readOnlyDb = Open(true);
    auto refused = readOnlyDb->OpenRecordset("SELECT * FROM person");
    refused->AddNew();
    refused->Fields("id") = 5;
    EXPECT_EQ(ErrorOf([&] { refused->Update(); }).first, 3027);
    EXPECT_EQ(ErrorOf([&] { readOnlyDb->Execute("DELETE FROM person"); }).first, 3027);

    EXPECT_EQ(Names(), (std::vector<std::string>{"Ann", "Bob"}));
    EXPECT_EQ(db->OpenRecordset("SELECT small FROM person WHERE id = 1")->Fields("small").Value().ToInt16(), 10);
}

TEST_F(DaoTest, OneStatementOnOneTablePerCallAndWhatTheEngineCantCompileFailWithItsWords) {
    struct Case {
        bool select;  // through OpenRecordset, else Execute
        const char* statement;
        Error error;  // an empty description isn't compared
    };
    const std::vector<Case> cases = {
        {false, "DELETE FROM other; DELETE FROM person", {3142, "Characters found after end of SQL statement."}},
        {true, "SELECT * FROM person; DROP TABLE person", {3142, ""}},
        {false, "DELETE FROM person WHERE name='x'; DELETE FROM other; --'", {3142, ""}},
        {false, "DELETE FROM person -- all of them", {3131, "Syntax error in FROM clause."}},
        {false, "DELETE FROM person /* all of them */", {3131, ""}},
        // What a name can do to its own statement stays in its own table.
        {true, "SELECT * FROM person WHERE name='' OR (SELECT x FROM other)",
         {3033, "You don't have the necessary permissions to use the 'other' object."}},
        {true, "SELECT * FROM sqlite_master", {3033, ""}},
        {true, "SELECT * FROM nosuch",
         {3078, "The database engine cannot find the input table or query 'nosuch'. Make sure it exists and that "
                "its name is spelled correctly."}},
        {false, "DELETE FROM nosuch", {3078, ""}},
        {true, "SELECT nosuch FROM person", {3061, "Too few parameters. Expected 1."}},
        {false, "DELETE FROM person WHERE id = ? OR name = :name", {3061, "Too few parameters. Expected 2."}},
        {true, "SELECT * FROM person WHERE id = = 1 ORDER BY id",
         {3075, "Syntax error (missing operator) in query expression 'id = = 1'."}},
        {true, "SELECT * FRM person", {3141, ""}},
        {false, "INSERT INTO person VALUES (", {3134, "Syntax error in INSERT INTO statement."}},
        {false, "INSERT INTO person (id) VALUES (1, 2)", {3346, ""}},
        {false, "INSERT INTO person (small) VALUES (-32769)", {3349, ""}},
        {true, "SELECT randomblob(9) FROM person", {3085, "Undefined function 'randomblob' in expression."}},
        {false, "PRAGMA key='x'", {3129, ""}},
        {false, "DROP TABLE person", {3129, ""}},
        {false, "ATTACH 'x' AS y", {3129, ""}},
        {false, "", {3129, ""}},
        {false, "WITH a AS (SELECT 1) SELECT * FROM a", {3129, ""}},
        {false, "SELECT * FROM person", {3065, "Cannot execute a select query."}},
        {true, "DELETE FROM person", {3219, "Invalid operation."}},
    };
    auto db = Open();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.statement);
        const Error raised = ErrorOf([&] { c.select ? (void)db->OpenRecordset(c.statement) : db->Execute(c.statement); });
        EXPECT_EQ(raised, Error(c.error.first, c.error.second.empty() ? raised.second : c.error.second));
    }
    EXPECT_EQ(Names(), (std::vector<std::string>{"Ann", "Bob"}));
    EXPECT_FALSE(db->OpenRecordset("SELECT * FROM other")->Eof());

    // The engine's own words, and a separator with nothing behind it.
    EXPECT_EQ(db->OpenRecordset("SELECT 5--3 AS n FROM other", dbOpenSnapshot)->Fields("n").Value().ToInt16(), 8);
    db->Execute("DELETE * FROM person where id = 1");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Bob"}));
    const double before = platform::Now();
    db->Execute("INSERT INTO person (id, born) VALUES (9, Now)");
    EXPECT_NEAR(db->OpenRecordset("SELECT born FROM person WHERE id = 9")->Fields("born").Value().ToDouble(), before,
                2.0 / 86400);
    db->Execute("DELETE FROM other ; ");
    EXPECT_TRUE(db->OpenRecordset("SELECT * FROM other")->Eof());
}

TEST(Variant, ConvertsAsTheProgramDoes) {
    EXPECT_EQ(Variant(std::string(" 12 ")).ToInt16(), 12);
    EXPECT_EQ(Variant(2.5).ToInt32(), 2);
    EXPECT_EQ(Variant(std::int64_t{40000}).ToInt32(), 40000);
    EXPECT_EQ(ErrorOf([] { Variant(std::int64_t{40000}).ToInt16(); }).first, platform::kErrOverflow);
    EXPECT_EQ(ErrorOf([] { Variant("12abc").ToInt32(); }).first, platform::kErrTypeMismatch);
    EXPECT_EQ(ErrorOf([] { Variant().ToString(); }).first, platform::kErrInvalidUseOfNull);
    EXPECT_EQ(Variant(-7).ToString(), "-7");
    EXPECT_EQ(Variant(0.25).ToString(), "0.25");
}

}  // namespace

#include <cstdio>

#include "game_schema.h"
#include "storage/data_procedure.h"
#include "storage/database_check.h"
#include "storage/mod_global_db.h"
#include "storage_fixture.h"

using namespace modGlobal;
using dao::dbOpenDynaset;
using dao::dbOpenSnapshot;
using platform::ProgramEnded;
using platform::UCase;

namespace {

class DatabaseTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        Deliver("Lantern.mdb", app_.Path());
        gsDbPath = app_.Path();
    }

    static std::unique_ptr<dao::Database> Open() {
        return dao::DBEngine::OpenDatabase(storage::DbFileName(), false, false, storage::kDbConnect);
    }

    // One column of a query, as texts, in the order the engine returns.
    static std::vector<std::string> Column(const std::string& statement, const std::string& field) {
        auto rs = Open()->OpenRecordset(statement, dbOpenSnapshot);
        std::vector<std::string> values;
        for (; !rs->Eof(); rs->MoveNext()) values.push_back(rs->Fields(field).Value().ToString());
        return values;
    }

    std::string DefaultFile() const { return app_.File("Lantern.mdb"); }

    std::string CaptureCommand(const std::string& command) {
        std::string output;
        FILE* pipe = ::popen(command.c_str(), "r");
        char buffer[256];
        while (pipe && std::fgets(buffer, sizeof buffer, pipe)) output += buffer;
        exitStatus_ = pipe ? ::pclose(pipe) : -1;
        return output;
    }
    int exitStatus_ = 0;
};

TEST_F(DatabaseTest, TheDeliveredFileHoldsTheSystemRowAndFourEmptyTables) {
    EXPECT_EQ(Column("SELECT nextuserid FROM system", "nextuserid"), (std::vector<std::string>{"1"}));
    auto db = Open();
    for (const char* table : {"user", "topten", "player", "errorlog"}) {
        auto rs = db->OpenRecordset(std::string("SELECT * FROM ") + table, dbOpenSnapshot);
        EXPECT_TRUE(rs->Bof() && rs->Eof()) << table;
    }
}

TEST_F(DatabaseTest, TheDeliveredFileOpensOnlyWithThePassword) {
    CaptureCommand("sqlite3 '" + DefaultFile() + "' 'SELECT count(*) FROM sqlite_master' 2>&1");
    EXPECT_NE(exitStatus_, 0);
    const std::string output = CaptureCommand("printf \"PRAGMA key='qmvtrla';\\nSELECT nextuserid FROM system;\\n\" | sqlcipher '" +
                                              DefaultFile() + "' 2>&1");
    EXPECT_EQ(exitStatus_, 0);
    EXPECT_EQ(output, "1\n");
}

TEST_F(DatabaseTest, GetNextUserIDConsumesEachIdAndGivesZeroWithoutARow) {
    EXPECT_EQ(GetNextUserID(), 1);
    EXPECT_EQ(GetNextUserID(), 2);
    EXPECT_EQ(Column("SELECT nextuserid FROM system", "nextuserid"), (std::vector<std::string>{"3"}));
    Open()->Execute("DELETE FROM system");
    EXPECT_EQ(GetNextUserID(), 0);
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_FALSE(gbDbFailed);
}

TEST_F(DatabaseTest, TheUserStatementsFindAddEditAndDeleteRows) {
    auto db = Open();
    auto rs = db->OpenRecordset("SELECT * FROM user where userid = 1", dbOpenDynaset);
    ASSERT_TRUE(rs->Bof() && rs->Eof());
    rs->AddNew();
    rs->Fields("userid") = 1;
    for (auto [field, value] : {std::pair{"name", "Ann"}, {"player1", "Lu"}, {"player2", "Mo"}, {"player3", "Ned"},
                                {"skilllevel", "Easy"}})
        rs->Fields(field) = value;
    rs->Fields("numgames") = std::int16_t{0};
    rs->Fields("winnings") = 0;
    rs->Update();

    // A lookup by name ignores case, as the engine's text comparisons do.
    rs = db->OpenRecordset("SELECT * FROM user WHERE name='ANN'", dbOpenDynaset);
    ASSERT_FALSE(rs->Eof());
    rs->Edit();
    rs->Fields("numgames") = std::int16_t{32767};
    rs->Fields("winnings") = -35;
    rs->Update();

    // A new row by name alone: the id isn't set and reads 0.
    rs = db->OpenRecordset("SELECT * FROM user WHERE name='Bob'", dbOpenDynaset);
    ASSERT_TRUE(rs->Bof() && rs->Eof());
    rs->AddNew();
    rs->Fields("name") = "Bob";
    rs->Update();

    EXPECT_EQ(Column("SELECT * FROM user", "name"), (std::vector<std::string>{"Ann", "Bob"}));
    EXPECT_EQ(Column("SELECT * FROM user", "userid"), (std::vector<std::string>{"1", "0"}));
    auto ann = db->OpenRecordset("SELECT * FROM user WHERE userid = 1", dbOpenSnapshot);
    EXPECT_EQ(ann->Fields("numgames").Value().ToInt16(), 32767);
    EXPECT_EQ(ann->Fields("winnings").Value().ToInt32(), -35);
    EXPECT_EQ(ann->Fields("player3").Value().ToString(), "Ned");

    // numgames is 16 bits wide.
    rs = db->OpenRecordset("SELECT * FROM user where userid = 1", dbOpenDynaset);
    rs->Edit();
    rs->Fields("numgames") = 32768;
    EXPECT_THROW(rs->Update(), platform::RuntimeError);
    EXPECT_EQ(Column("SELECT * FROM user WHERE userid = 1", "numgames"), (std::vector<std::string>{"32767"}));

    db->Execute("DELETE * FROM user where userid = 1");
    EXPECT_EQ(Column("SELECT * FROM user", "name"), (std::vector<std::string>{"Bob"}));
}

TEST_F(DatabaseTest, AnApostropheInTheNameBreaksSaveUserDataAndChangesNothing) {
    Open()->Execute("INSERT INTO user (userid, name, numgames) VALUES (4, 'O', 3)");
    storage::DataErrorHandler on("SaveUserData");
    auto db = on.OpenDatabase();
    ASSERT_FALSE(on.OpenFailed());
    const std::string name = platform::Trim(" O'Brien ");
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user WHERE name='" + name + "'", dbOpenDynaset);
    EXPECT_EQ(rs, nullptr);
    EXPECT_TRUE(on.SelectFailed());
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, "Syntax error (missing operator) in query expression 'name='O'Brien''.");
    EXPECT_EQ(boxes[0].title, "SaveUserData");
    EXPECT_EQ(boxes[0].style, platform::kExclamation);
    EXPECT_EQ(Column("SELECT * FROM user", "name"), (std::vector<std::string>{"O"}));
    EXPECT_EQ(Column("SELECT * FROM user", "numgames"), (std::vector<std::string>{"3"}));
}

TEST_F(DatabaseTest, TheTopTenIsRewrittenWholeAndSortsByScoreThenByItsWholeDate) {
    struct Entry {
        const char* name;
        std::int16_t score;
        const char* skill;
        double date;
    };
    const double now = platform::Now();
    const std::vector<Entry> entries = {
        {"Late", 300, "Easy", platform::DateValue(2024, 1, 1, 9)},
        {"Old", 300, "Easy", platform::DateValue(2023, 12, 31, 23)},
        {"Top", 900, "Hard", platform::DateValue(2024, 6, 1)},
        {"Early", 300, "Medium", platform::DateValue(2024, 1, 1, 0, 0, 1)},
        {"", 0, "", now},
    };
    auto db = Open();
    db->Execute("INSERT INTO topten (name, score) VALUES ('stale', 5)");
    db->Execute("DELETE FROM topten");
    auto rs = db->OpenRecordset("SELECT * FROM topten", dbOpenDynaset);
    for (const Entry& entry : entries) {
        rs->AddNew();
        rs->Fields("name") = entry.name;
        rs->Fields("score") = entry.score;
        rs->Fields("skilllevel") = entry.skill;
        rs->Fields("date") = dao::Variant::Date(entry.date);
        rs->Update();
    }
    EXPECT_EQ(Column("SELECT * FROM topten ORDER BY score DESC", "score"),
              (std::vector<std::string>{"900", "300", "300", "300", "0"}));
    EXPECT_EQ(Column("SELECT * FROM topten ORDER BY score DESC, date", "name"),
              (std::vector<std::string>{"Top", "Old", "Early", "Late", ""}));

    auto blank = db->OpenRecordset("SELECT * FROM topten ORDER BY score DESC", dbOpenSnapshot);
    for (int i = 0; i < 4; ++i) blank->MoveNext();
    EXPECT_EQ(blank->Fields("name").Value().GetKind(), dao::Variant::Kind::Text);
    EXPECT_EQ(blank->Fields("skilllevel").Value().ToString(), "");
    EXPECT_EQ(blank->Fields("date").Value().GetKind(), dao::Variant::Kind::Date);
    EXPECT_EQ(blank->Fields("date").Value().ToDouble(), now);

    db->Execute("DELETE * FROM topten");
    EXPECT_TRUE(Column("SELECT * FROM topten", "name").empty());
}

TEST_F(DatabaseTest, TheErrorLogTakesTheMomentByNowAndLosesAMessageWithAnApostrophe) {
    auto db = Open();
    const double before = platform::Now();
    const auto log = [&](const std::string& action, const std::string& message) {
        db->Execute("INSERT INTO errorlog (action, message, errordate) VALUES ('" + action + "','" + message +
                    "', Now)");
    };
    log("Play", "The specified device is not open or is not recognized by MCI.");
    EXPECT_THROW(log("Pause", "Can't pause"), platform::RuntimeError);
    auto rs = db->OpenRecordset("SELECT * FROM errorlog", dbOpenSnapshot);
    EXPECT_EQ(rs->Fields("action").Value().ToString(), "Play");
    EXPECT_NEAR(rs->Fields("errordate").Value().ToDouble(), before, 2.0 / 86400);
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
}

TEST_F(DatabaseTest, GetStandingsRanksTheFourPlayersByTheirMoney) {
    gsOpponent1 = "Lu";
    gsOpponent2 = "Mo";
    gsOpponent3 = "Ned";
    gsUserName = "Ann";
    GetStandings({250, -20, 180, 300});
    GetStandings({250, -20, 180, 300});
    EXPECT_EQ(gaStanding[0].name, "Ann");
    EXPECT_EQ(gaStanding[0].funds, 300);
    EXPECT_EQ(gaStanding[1].name, "Lu");
    EXPECT_EQ(gaStanding[2].name, "Ned");
    EXPECT_EQ(gaStanding[3].name, "Mo");
    EXPECT_EQ(gaStanding[3].funds, -20);
    EXPECT_EQ(Column("SELECT * from player", "name").size(), 4u);  // emptied before each use
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_FALSE(gbDbFailed);
}

class FailedOpenTest : public DatabaseTest {
protected:
    // The database in use lives in its own directory, beside the program's default one.
    void UseOtherDirectory() {
        gsDbPath = other_.Path();
        Deliver("Lantern.mdb", other_.Path());
    }
    std::string CurrentFile() const { return other_.File("Lantern.mdb"); }

    TempDir other_;
};

TEST_F(FailedOpenTest, AVanishedDatabaseSwitchesSilentlyToTheDefaultOne) {
    UseOtherDirectory();
    EXPECT_EQ(GetNextUserID(), 1);
    std::filesystem::remove(CurrentFile());
    EXPECT_EQ(GetNextUserID(), 0);
    EXPECT_TRUE(gbDbFailed);
    EXPECT_TRUE(gbDbSwitched);
    EXPECT_TRUE(responder_.Events().empty());

    std::vector<bool> changeUserCalls;
    SetChangeUserHook([&](bool first) { changeUserCalls.push_back(first); });
    RecoverDatabase();
    EXPECT_EQ(changeUserCalls, (std::vector<bool>{true}));
    EXPECT_FALSE(gbDbFailed);
    EXPECT_FALSE(gbDbSwitched);
    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_EQ(GetNextUserID(), 1);  // the default database has its own ids
}

TEST_F(FailedOpenTest, AFileWithAnotherPasswordIsToldAndEndsTheProgramInTheRecovery) {
    std::filesystem::remove(DefaultFile());
    makedb::CreateGameDatabase(DefaultFile(), "another");
    GetStandings({1, 2, 3, 4});
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, "3031: Not a valid password.");
    EXPECT_EQ(boxes[0].title, "GetStandings");
    EXPECT_TRUE(gbDbFailed);
    EXPECT_FALSE(gbDbSwitched);
    EXPECT_THROW(RecoverDatabase(), ProgramEnded);
    EXPECT_TRUE(responder_.Ended());
}

TEST_F(FailedOpenTest, ATextFileOrACutFileIsNoDatabase) {
    const std::string whole = ReadBytes(DefaultFile());
    for (const std::string& contents : {std::string("[Options]\r\nuser_id=0\r\n"), whole.substr(0, whole.size() / 2)}) {
        WriteBytes(DefaultFile(), contents);
        gbDbFailed = false;
        EXPECT_EQ(GetNextUserID(), 0);
        EXPECT_TRUE(gbDbFailed);
    }
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 2u);
    for (const auto& box : boxes) {
        EXPECT_EQ(box.text, "3343: Unrecognized database format '" + DefaultFile() + "'.");
        EXPECT_EQ(box.title, "GetNextUserID");
    }
}

TEST_F(FailedOpenTest, IsValidPathTellsTheCauseWhenTheFileIsThere) {
    gbDbSwitched = true;
    IsValidPath(3031, "Not a valid password.", "GetPlayerData");
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(responder_.Boxes()[0].text, "3031: Not a valid password.");
    EXPECT_EQ(responder_.Boxes()[0].title, "GetPlayerData");
    EXPECT_EQ(responder_.Boxes()[0].style, platform::kExclamation);
    EXPECT_FALSE(gbDbSwitched);
}

TEST_F(FailedOpenTest, IsValidPathClosesWhenTheFileInTheProgramsDirectoryIsGone) {
    std::filesystem::remove(DefaultFile());
    gbDbSwitched = true;
    IsValidPath(3024, "Could not find file.", "TopTenLoad");
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(responder_.Boxes()[0].text,
              "Cannot locate the current database...\r\n" + UCase(DefaultFile()) + "!\r\n\r\nClosing Dovrin");
    EXPECT_EQ(responder_.Boxes()[0].title, "Fatal Error");
    EXPECT_FALSE(gbDbSwitched);
    EXPECT_FALSE(responder_.Ended());  // the recovery decides
}

TEST_F(FailedOpenTest, IsValidPathClosesWhenBothFilesAreGone) {
    gsDbPath = other_.Path();
    std::filesystem::remove(DefaultFile());
    IsValidPath(3024, "Could not find file.", "GetPlayerData");
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].text, "Cannot locate the current database...\r\n" + UCase(CurrentFile()) +
                                 "!\r\n\r\nor the default database...\r\n" + UCase(DefaultFile()));
    EXPECT_EQ(boxes[0].title, "GetPlayerData");
    EXPECT_EQ(boxes[1].text,
              "Dovrin cannot operate unless it has\r\naccess to the database file Lantern.mdb!\r\n\r\nClosing Dovrin.");
    EXPECT_EQ(boxes[1].title, "Fatal Error");
    EXPECT_FALSE(gbDbSwitched);
}

TEST_F(FailedOpenTest, AnErrorInsideIsValidPathIsToldUnderItsName) {
    gsDbPath = other_.Path() + "/" + std::string(5000, 'x');
    gbDbSwitched = true;
    IsValidPath(3024, "Could not find file.", "GetPlayerData");
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(responder_.Boxes()[0].text, "52: Bad file name or number");
    EXPECT_EQ(responder_.Boxes()[0].title, "IsValidPath");
    EXPECT_FALSE(gbDbSwitched);
}

TEST_F(FailedOpenTest, TheRecoveryEndsTheProgramUnlessASwitchWasFound) {
    bool called = false;
    SetChangeUserHook([&](bool) { called = true; });
    gbDbFailed = true;
    EXPECT_THROW(RecoverDatabase(), ProgramEnded);
    EXPECT_FALSE(called);
    EXPECT_TRUE(responder_.Boxes().empty());
}

class StartUpCheckTest : public FailedOpenTest {};

TEST_F(StartUpCheckTest, APresentFileGoesOnWithoutAWord) {
    UseOtherDirectory();
    storage::CheckDatabaseFile();
    EXPECT_EQ(gsDbPath, other_.Path());
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(StartUpCheckTest, AVanishedDirectorySwitchesToTheProgramsDatabaseWithAMessage) {
    gsDbPath = other_.File("gone");
    storage::CheckDatabaseFile();
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(responder_.Boxes()[0].text, "Unable to locate database file...\r\n" + UCase(other_.File("gone")) +
                                              "/LANTERN.MDB!\r\n\r\nSwitching to database file...\r\n" +
                                              UCase(DefaultFile()) + ".");
    EXPECT_EQ(responder_.Boxes()[0].title, "Database Path");
    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_FALSE(responder_.Ended());
}

TEST_F(StartUpCheckTest, AMissingDefaultFileEndsTheProgram) {
    std::filesystem::remove(DefaultFile());
    EXPECT_THROW(storage::CheckDatabaseFile(), ProgramEnded);
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(responder_.Boxes()[0].text,
              "Unable to locate database file...\r\n" + UCase(DefaultFile()) + "!\r\n\r\nClosing Dovrin.");
    EXPECT_EQ(responder_.Boxes()[0].title, "Fatal Error");
}

TEST_F(StartUpCheckTest, NeitherFileEndsTheProgramAfterTwoMessages) {
    gsDbPath = other_.Path();
    std::filesystem::remove(DefaultFile());
    EXPECT_THROW(storage::CheckDatabaseFile(), ProgramEnded);
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].text, "Unable to locate database file...\r\n" + UCase(CurrentFile()) +
                                 "!\r\n\r\nor application database file...\r\n" + UCase(DefaultFile()) + ".");
    EXPECT_EQ(boxes[0].title, "Database Path");
    EXPECT_EQ(boxes[1].text, "Closing Dovrin.");
    EXPECT_EQ(boxes[1].title, "Fatal Error");
    EXPECT_EQ(gsDbPath, other_.Path());
}

}  // namespace

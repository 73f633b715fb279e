#include "game_schema.h"
#include "storage/database_check.h"
#include "storage_fixture.h"
#include "support/recording_main_form.h"

using namespace modGlobal;
using platform::kExclamation;
using platform::ProgramEnded;
using platform::UCase;

namespace {

class DatabaseFileTest : public DeliveredDbTest {
protected:
    std::string DefaultFile() const { return app_.File("Lantern.mdb"); }

    // A second program directory for the database in use.
    TempDir other_;
};

// Names compare without case; numgames is 16 bits wide. (That its tables
// come empty, the user forms' and the top ten's tests count on.)
TEST_F(DatabaseFileTest, TheDeliveredFileHoldsTablesWhoseRulesTheProgramCountsOn) {
    auto db = Open();
    db->Execute("INSERT INTO user (userid, name, numgames) VALUES (1, 'Ann', 32767)");
    EXPECT_EQ(Rows("SELECT * FROM user WHERE name='ANN'", {"userid", "numgames"}), std::vector<std::string>{"1|32767"});
    EXPECT_THROW(db->Execute("UPDATE user SET numgames = 32768"), platform::RuntimeError);
}

// A vanished database switches silently to the default one, which the
// recovery takes; a file that is there but won't open is told, and the
// recovery ends the program.
TEST_F(DatabaseFileTest, GetNextUserIDConsumesEachIdAndAFailedOpenIsRecoveredFromOnlyWhenTheDefaultFileIsThere) {
    EXPECT_EQ(GetNextUserID(), 1);
    EXPECT_EQ(GetNextUserID(), 2);
    Open()->Execute("DELETE FROM system");
    EXPECT_EQ(GetNextUserID(), 0);  // no row
    EXPECT_FALSE(gbDbFailed);

    gsDbPath = other_.Path();
    EXPECT_EQ(GetNextUserID(), 0);
    EXPECT_TRUE(gbDbFailed && gbDbSwitched);
    RecordingMainForm mainForm;
    RecoverDatabase();
    EXPECT_EQ(mainForm.changeUserCalls, std::vector<bool>{true});
    EXPECT_FALSE(gbDbFailed || gbDbSwitched);
    EXPECT_EQ(gsDbPath, app_.Path());

    std::filesystem::remove(DefaultFile());  // the two boxes below are all of the test's
    makedb::CreateGameDatabase(DefaultFile(), "another");
    GetStandings({1, 2, 3, 4});
    WriteBytes(DefaultFile(), "[Options]\r\nuser_id=0\r\n");
    EXPECT_EQ(GetNextUserID(), 0);
    EXPECT_EQ(Boxes(), (std::vector<Box>{
                           {"GetStandings", kExclamation, "3031: Not a valid password."},
                           {"GetNextUserID", kExclamation, "3343: Unrecognized database format '" + DefaultFile() + "'."},
                       }));
    EXPECT_TRUE(gbDbFailed && !gbDbSwitched);
    EXPECT_THROW(RecoverDatabase(), ProgramEnded);
    EXPECT_EQ(mainForm.changeUserCalls.size(), 1u);
    EXPECT_TRUE(responder_.Ended());
}

// It leaves the end of the program to the recovery: each call returns, where
// an end would throw. (The file there, whose failure's cause is told, and the
// default file gone: FUserNameTest.AFailedOpen...)
TEST_F(DatabaseFileTest, IsValidPathTellsWhatItFindsAndLeavesNoSwitchBehindAMessage) {
    const auto weigh = [&](const std::string& path) {
        gsDbPath = path;
        gbDbSwitched = true;
        IsValidPath(3024, "Could not find file.", "GetPlayerData");
        EXPECT_FALSE(gbDbSwitched) << path;
    };
    std::filesystem::remove(DefaultFile());
    weigh(other_.Path());
    weigh(other_.Path() + "/" + std::string(5000, 'x'));  // an error inside
    EXPECT_EQ(Boxes(), (std::vector<Box>{
                           {"GetPlayerData", kExclamation,
                            "Cannot locate the current database...\r\n" + UCase(other_.File("Lantern.mdb")) +
                                "!\r\n\r\nor the default database...\r\n" + UCase(DefaultFile())},
                           {"Fatal Error", kExclamation,
                            "Dovrin cannot operate unless it has\r\naccess to the database file Lantern.mdb!"
                            "\r\n\r\nClosing Dovrin."},
                           {"IsValidPath", kExclamation, "52: Bad file name or number"},
                       }));
}

TEST_F(DatabaseFileTest, TheStartUpCheckSwitchesToTheProgramsFileOrEndsTheProgram) {
    gsDbPath = other_.Path();
    Deliver("Lantern.mdb", other_.Path());
    storage::CheckDatabaseFile();  // silent: the boxes below are all of them
    EXPECT_EQ(gsDbPath, other_.Path());

    const std::string gone = other_.File("gone");
    gsDbPath = gone;
    storage::CheckDatabaseFile();
    EXPECT_EQ(gsDbPath, app_.Path());

    std::filesystem::remove(DefaultFile());
    gsDbPath = gone;
    EXPECT_THROW(storage::CheckDatabaseFile(), ProgramEnded);
    EXPECT_EQ(gsDbPath, gone);
    gsDbPath = app_.Path();
    EXPECT_THROW(storage::CheckDatabaseFile(), ProgramEnded);

    const std::string unable = "Unable to locate database file...\r\n";
    EXPECT_EQ(Boxes(), (std::vector<Box>{
                           {"Database Path", kExclamation,
                            unable + UCase(gone) + "/LANTERN.MDB!\r\n\r\nSwitching to database file...\r\n" +
                                UCase(DefaultFile()) + "."},
                           {"Database Path", kExclamation,
                            unable + UCase(gone) + "/LANTERN.MDB!\r\n\r\nor application database file...\r\n" +
                                UCase(DefaultFile()) + "."},
                           {"Fatal Error", kExclamation, "Closing Dovrin."},
                           {"Fatal Error", kExclamation, unable + UCase(DefaultFile()) + "!\r\n\r\nClosing Dovrin."},
                       }));
}

}  // namespace

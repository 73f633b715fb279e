// A writer killed at random moments leaves a file that opens (the open runs
// the engine's integrity check) and holds only rows that were written whole.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "platform/runtime_temp_dir.h"
#include "storage/data_procedure.h"

namespace {

// Writes without end: top ten rows whose fields all tell the row's number,
// an edited user row whose fields all tell the round, and now and then a
// whole-table delete. After the first round it writes a byte to `started`.
[[noreturn]] void WriteUntilKilled(const std::string& file, std::int32_t firstRound, int started) {
    auto db = dao::DBEngine::OpenDatabase(file, false, false, storage::kDbConnect);
    auto user = db->OpenRecordset("SELECT * FROM user");
    for (std::int32_t round = firstRound;; ++round) {
        auto rs = db->OpenRecordset("SELECT * FROM topten");
        rs->AddNew();
        rs->Fields("name") = "row" + std::to_string(round);
        rs->Fields("score") = static_cast<std::int16_t>(round % 30000);
        rs->Fields("skilllevel") = "s" + std::to_string(round);
        rs->Fields("date") = dao::Variant::Date(round);
        rs->Update();
        user->Edit();
        user->Fields("name") = "u" + std::to_string(round);
        user->Fields("numgames") = static_cast<std::int16_t>(round % 30000);
        user->Fields("winnings") = round;
        user->Update();
        if (round % 20 == 0) db->Execute("DELETE * FROM topten");
        if (round == firstRound && ::write(started, "w", 1) != 1) ::_exit(4);
    }
}

// Checks every row and returns the round the user row last reached.
std::int32_t CheckRowsAreWhole(const std::string& file) {
    auto db = dao::DBEngine::OpenDatabase(file, false, false, storage::kDbConnect);
    auto topten = db->OpenRecordset("SELECT * FROM topten", dao::dbOpenSnapshot);
    for (; !topten->Eof(); topten->MoveNext()) {
        const std::string name = topten->Fields("name").Value().ToString();
        EXPECT_EQ(name.substr(0, 3), "row");
        const std::int32_t round = std::stoi(name.substr(3));
        EXPECT_EQ(topten->Fields("score").Value().ToInt16(), round % 30000);
        EXPECT_EQ(topten->Fields("skilllevel").Value().ToString(), "s" + std::to_string(round));
        EXPECT_EQ(topten->Fields("date").Value().ToDouble(), round);
    }
    auto user = db->OpenRecordset("SELECT * FROM user", dao::dbOpenSnapshot);
    EXPECT_FALSE(user->Eof());
    const std::int32_t round = user->Fields("winnings").Value().ToInt32();
    EXPECT_EQ(user->Fields("numgames").Value().ToInt16(), round % 30000);
    EXPECT_EQ(user->Fields("name").Value().ToString(), round == 0 ? "start" : "u" + std::to_string(round));
    user->MoveNext();
    EXPECT_TRUE(user->Eof());
    return round;
}

TEST(DatabaseCrash, AWriterKilledAtRandomMomentsLeavesOnlyWholeRows) {
    TempDir dir;
    const std::string file = dir.File("Lantern.mdb");
    std::filesystem::copy_file(std::string(DOVRIN_DELIVERED_DIR) + "/Lantern.mdb", file);
    dao::DBEngine::OpenDatabase(file, false, false, storage::kDbConnect)
        ->Execute("INSERT INTO user (userid, name, numgames, winnings) VALUES (1, 'start', 0, 0)");

    std::mt19937 random(std::random_device{}());
    std::uniform_int_distribution<useconds_t> delay(0, 100000);
#ifdef __SANITIZE_ADDRESS__
    constexpr int kKills = 5;  // each open's key derivation takes ten times as long there
#else
    constexpr int kKills = 15;
#endif
    std::int32_t lastRound = 0;
    for (int kills = 1; kills <= kKills && !HasFailure(); ++kills) {
        int started[2];
        ASSERT_EQ(::pipe(started), 0);
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            try {
                WriteUntilKilled(file, lastRound + 1, started[1]);
            } catch (...) {
                ::_exit(3);
            }
        }
        // Once the writer is writing, it dies at a random moment.
        ::close(started[1]);
        char byte;
        const ssize_t signalled = ::read(started[0], &byte, 1);
        ::close(started[0]);
        ASSERT_EQ(signalled, 1) << "the writer died before its first round";
        ::usleep(delay(random));
        ::kill(writer, SIGKILL);
        int status = 0;
        ::waitpid(writer, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the writer stopped by itself, status " << status;

        SCOPED_TRACE("after kill " + std::to_string(kills));
        const std::int32_t round = CheckRowsAreWhole(file);
        EXPECT_GT(round, lastRound);
        lastRound = round;
    }
}

}  // namespace

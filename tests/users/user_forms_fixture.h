// The user forms against a copy of the delivered database in a program
// directory of their own, with a main form that records what the dialogs
// tell it, and the sound keys asked for.
#pragma once

#define SQLITE_HAS_CODEC 1
#include <sqlcipher/sqlite3.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/main_form_link.h"
#include "sound/mod_sound_lib.h"
#include "storage/data_procedure.h"
#include "storage/storage_fixture.h"
#include "users/f_help.h"
#include "users/help_image.h"

class RecordingMainForm : public MainFormLink {
public:
    std::string UserTag() const override { return tag; }
    void SetUserTag(const std::string& value) override { tag = value; }
    void SetPlayerName(int seat, const std::string& name) override { playerNames.at(seat) = name; }
    std::string MoneyCaption(int) const override { return {}; }
    void SetWinningsCaption(const std::string& caption) override { winningsCaption = caption; }
    void SetTopMenusEnabled(bool) override {}

    std::string tag;
    std::array<std::string, 4> playerNames;
    std::string winningsCaption;
};

struct UserRow {
    std::int32_t userid;
    std::string name, player1, player2, player3, skilllevel;
    std::int16_t numgames;
    std::int32_t winnings;

    bool operator==(const UserRow& other) const {
        return userid == other.userid && name == other.name && player1 == other.player1 &&
               player2 == other.player2 && player3 == other.player3 && skilllevel == other.skilllevel &&
               numgames == other.numgames && winnings == other.winnings;
    }
};

inline std::ostream& operator<<(std::ostream& out, const UserRow& row) {
    return out << row.userid << " '" << row.name << "' '" << row.player1 << "' '" << row.player2 << "' '"
               << row.player3 << "' '" << row.skilllevel << "' " << row.numgames << " " << row.winnings;
}

class UserFormTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        Deliver("Lantern.mdb", app_.Path());
        modGlobal::gsDbPath = app_.Path();
        modGlobal::goMainForm = &mainForm_;
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
    }
    void TearDown() override {
        modSoundLib::SetKeyObserver(nullptr);
        StorageTest::TearDown();
    }

    static std::unique_ptr<dao::Database> Open() {
        return dao::DBEngine::OpenDatabase(storage::DbFileName(), false, false, storage::kDbConnect);
    }

    static void AddUser(const UserRow& row) {
        Open()->Execute("INSERT INTO user (userid, name, player1, player2, player3, skilllevel, numgames, winnings) "
                        "VALUES (" + std::to_string(row.userid) + ", '" + row.name + "', '" + row.player1 + "', '" +
                        row.player2 + "', '" + row.player3 + "', '" + row.skilllevel + "', " +
                        std::to_string(row.numgames) + ", " + std::to_string(row.winnings) + ")");
    }

    static std::vector<UserRow> Users() {
        auto rs = Open()->OpenRecordset("SELECT * FROM user ORDER BY userid", dao::dbOpenSnapshot);
        std::vector<UserRow> rows;
        for (; !rs->Eof(); rs->MoveNext()) {
            auto text = [&rs](const char* field) { return rs->Fields(field).Value().ToString(); };
            rows.push_back({rs->Fields("userid").Value().ToInt32(), text("name"), text("player1"), text("player2"),
                            text("player3"), text("skilllevel"), rs->Fields("numgames").Value().ToInt16(),
                            rs->Fields("winnings").Value().ToInt32()});
        }
        return rows;
    }

    static std::int32_t NextUserId() {
        return Open()->OpenRecordset("SELECT nextuserid FROM system", dao::dbOpenSnapshot)
            ->Fields("nextuserid").Value().ToInt32();
    }

    // The table user vanishes from the file: its selects fail, the file opens.
    static void DropUserTable() {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open_v2(storage::DbFileName().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
        ASSERT_EQ(sqlite3_key(db, "qmvtrla", 7), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, "DROP TABLE user", nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }

    void RemoveDatabaseFile() { std::filesystem::remove(storage::DbFileName()); }

    // Shows the form as the active window and lets its activation run.
    static void ShowActive(QWidget& form) {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        QCoreApplication::processEvents();
    }

    // Clicks the help image and closes the help form it opens with its
    // visible OK; the help form's caption, empty when none opened.
    static QString OpenAndCloseHelp(HelpImage* image) {
        QString caption;
        QTimer::singleShot(0, [&caption] {
            auto* help = qobject_cast<FHelp*>(QApplication::activeModalWidget());
            if (!help) return;
            caption = help->windowTitle();
            (help->cmdOK->isVisible() ? help->cmdOK : help->cmdOK2)->click();
        });
        QTest::mouseClick(image, Qt::LeftButton);
        return caption;
    }

    RecordingMainForm mainForm_;
    std::vector<std::string> sounds_;
};

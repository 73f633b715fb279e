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
#include <string>
#include <vector>

#include "table/main_form_link.h"
#include "sound/mod_sound_lib.h"
#include "storage/storage_fixture.h"
#include "users/f_help.h"
#include "users/help_image.h"

using platform::kExclamation;
using Strings = std::vector<std::string>;

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

// A user is written and read as "userid|name|player1|player2|player3|skilllevel|numgames|winnings".
class UserFormTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
        modGlobal::goMainForm = &mainForm_;
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
    }
    void TearDown() override {
        modSoundLib::SetKeyObserver(nullptr);
        DeliveredDbTest::TearDown();
    }

    static void AddUser(const std::string& user) {
        std::string values;
        std::size_t start = 0;
        for (int field = 0; field < 8; ++field) {
            const std::size_t bar = user.find('|', start);
            const std::string value = user.substr(start, bar - start);
            const bool text = field >= 1 && field <= 5;
            values += (field ? ", " : "") + (text ? "'" + value + "'" : value);
            start = bar + 1;
        }
        Open()->Execute("INSERT INTO user (userid, name, player1, player2, player3, skilllevel, numgames, winnings) "
                        "VALUES (" + values + ")");
    }

    static Strings Users() {
        return Rows("SELECT * FROM user ORDER BY userid",
                    {"userid", "name", "player1", "player2", "player3", "skilllevel", "numgames", "winnings"});
    }

    static std::string CurrentUser() {
        using namespace modGlobal;
        return std::to_string(glUserId) + "|" + gsUserName + "|" + gsOpponent1 + "|" + gsOpponent2 + "|" +
               gsOpponent3 + "|" + gsSkillLevel + "|" + std::to_string(giNumGames) + "|" + std::to_string(glWinnings);
    }

    static std::string NextUserId() { return Rows("SELECT nextuserid FROM system", {"nextuserid"}).at(0); }

    // The table user vanishes from the file: its selects fail, the file opens.
    static void DropUserTable() {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open_v2(storage::DbFileName().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
        ASSERT_EQ(sqlite3_key(db, "qmvtrla", 7), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, "DROP TABLE user", nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }

    static void RemoveDatabaseFile() { std::filesystem::remove(storage::DbFileName()); }

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
    Strings sounds_;
};

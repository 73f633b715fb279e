// The user forms against a copy of the delivered database in a program
// directory of their own, with a main form that records what the dialogs
// tell it, and the sound keys asked for.
#pragma once

#define SQLITE_HAS_CODEC 1
#include <sqlcipher/sqlite3.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <array>
#include <string>
#include <vector>

#include "sound/mod_sound_lib.h"
#include "storage/storage_fixture.h"
#include "support/recording_main_form.h"
#include "users/f_help.h"
#include "users/help_image.h"

using platform::kExclamation;
using Strings = std::vector<std::string>;

// A user is read as "userid|name|player1|player2|player3|skilllevel|numgames|winnings".
class UserFormTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
    }
    void TearDown() override {
        modSoundLib::SetKeyObserver(nullptr);
        DeliveredDbTest::TearDown();
    }

    // Rows as SQL values, "(3, 'Ann', 'Lu', 'Mo', 'Ned', 'Easy', 0, 0)", in the order of the fields.
    static void AddUsers(const std::string& rows) { Open()->Execute("INSERT INTO user VALUES " + rows); }

    static Strings Users() {
        return Rows("SELECT * FROM user ORDER BY userid",
                    {"userid", "name", "player1", "player2", "player3", "skilllevel", "numgames", "winnings"});
    }

    static std::string CurrentUser() {
        using namespace modGlobal;
        return std::to_string(glUserId) + "|" + gsUserName + "|" + gsOpponent1 + "|" + gsOpponent2 + "|" +
               gsOpponent3 + "|" + gsSkillLevel + "|" + std::to_string(giNumGames) + "|" + std::to_string(glWinnings);
    }

    // The table user vanishes from the file: its selects fail, the file opens.
    static void DropUserTable() {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open_v2(storage::DbFileName().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
        ASSERT_EQ(sqlite3_key(db, "qmvtrla", 7), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, "DROP TABLE user", nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }

    // Types over the whole text of a box, as a user would.
    static void Type(QWidget* box, const QString& text) {
        box->setFocus();
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
    }

    // Shows the form as the active window and lets its activation run.
    static void ShowActive(QWidget& form) {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        QCoreApplication::processEvents();
    }

    // Clicks the help image and closes the help form it opens with its
    // visible OK.
    static void OpenAndCloseHelp(HelpImage* image) {
        QTimer::singleShot(0, [] {
            if (auto* help = qobject_cast<FHelp*>(QApplication::activeModalWidget()))
                (help->cmdOK->isVisible() ? help->cmdOK : help->cmdOK2)->click();
        });
        QTest::mouseClick(image, Qt::LeftButton);
    }

    // The texts of a list's entries in their order.
    template <typename List>
    static QStringList Entries(const List& list) {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row) texts << list.model()->index(row, 0).data().toString();
        return texts;
    }

    RecordingMainForm mainForm_;
    Strings sounds_;
};

// The user forms against a copy of the delivered database in a program
// directory of their own, with a main form that records what the dialogs
// tell it, and the sound keys asked for.
#pragma once

#include <QAbstractItemModel>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <string>

#include "platform/dao_fixture.h"
#include "storage/storage_fixture.h"
#include "support/form_probe.h"
#include "support/recording_main_form.h"
#include "users/f_help.h"
#include "users/help_image.h"

using platform::kExclamation;

class UserFormTest : public DeliveredDbTest {
protected:
    // Rows as SQL values, "(3, 'Ann', 'Lu', 'Mo', 'Ned', 'Easy', 0, 0)", in the order of the fields.
    static void AddUsers(const std::string& rows) { Open()->Execute("INSERT INTO user VALUES " + rows); }

    static std::string CurrentUser() {
        using namespace modGlobal;
        return std::to_string(glUserId) + "|" + gsUserName + "|" + gsOpponent1 + "|" + gsOpponent2 + "|" +
               gsOpponent3 + "|" + gsSkillLevel + "|" + std::to_string(giNumGames) + "|" + std::to_string(glWinnings);
    }

    // The table user vanishes from the file: its selects fail, the file opens.
    static void DropUserTable() { RunSql(storage::DbFileName(), "DROP TABLE user", "qmvtrla"); }

    // The question both forms ask before a user is renamed.
    static Box RenameQuestion(const std::string& from, const std::string& to) {
        return {"User Name has changed...", platform::kQuestion | platform::kYesNo,
                "Do you wish to change the user\r\nname " + from + " -> " + to +
                    "?\r\n\r\nNote: To add a NEW user select\r\n<New User> from the user list."};
    }

    // Types over the whole text of a box, as a user would.
    static void Type(QWidget* box, const QString& text) {
        box->setFocus();
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
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
    SoundKeys sounds_;
};

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "users/f_user_edit.h"
#include "users/user_forms_fixture.h"

using namespace modGlobal;
using platform::kAnswerNo;
using platform::kAnswerOK;
using platform::kAnswerYes;

namespace {

const Box kSaved{"Saving User Information", kExclamation, "User record saved!"};

QStringList Entries(const QListWidget& list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) texts << list.item(row)->text();
    return texts;
}

QStringList Texts(const std::array<QLineEdit*, 4>& boxes) {
    QStringList texts;
    for (const QLineEdit* box : boxes) texts << box->text();
    return texts;
}

class FUserEditTest : public UserFormTest {
protected:
    static void Choose(FUserEdit& form, const QString& entry, int match = 0) {
        const auto items = form.lstUser->findItems(entry, Qt::MatchExactly);
        ASSERT_GT(items.size(), match);
        form.lstUser->setCurrentItem(items[match]);
    }
    // The boxes and Save take input.
    static bool EntriesEnabled(const FUserEdit& form) {
        for (const QLineEdit* box : form.txtUser)
            if (!box->isEnabled()) return false;
        return form.cmdUser[0]->isEnabled();
    }
    // Nothing but the list and Close takes input.
    static bool EntriesDisabled(const FUserEdit& form) {
        for (const QLineEdit* box : form.txtUser)
            if (box->isEnabled()) return false;
        return !form.cmdUser[0]->isEnabled() && !form.cmdUser[1]->isEnabled();
    }
};

TEST_F(FUserEditTest, AnEmptyTableShowsOnlyTheNewUserEntryWhichCantBeSavedOrDeleted) {
    FUserEdit form;
    ShowActive(form);
    EXPECT_EQ(form.windowTitle(), "Add, Edit or Delete a Player Name");
    EXPECT_EQ(form.cmdUser[0]->text(), "&Save");
    EXPECT_EQ(form.cmdUser[1]->text(), "&Delete");
    EXPECT_EQ(form.cmdUser[2]->text(), "&Close");
    EXPECT_EQ(Entries(*form.lstUser), QStringList{"<New User>"});
    EXPECT_TRUE(EntriesDisabled(form));
    EXPECT_TRUE(form.cmdUser[2]->isEnabled());

    Choose(form, "<New User>");
    EXPECT_TRUE(EntriesEnabled(form));
    EXPECT_FALSE(form.cmdUser[1]->isEnabled());
    EXPECT_EQ(Texts(form.txtUser), (QStringList{"<New User>", "Player 1", "Player 2", "Player 3"}));
    EXPECT_EQ(QApplication::focusWidget(), form.txtUser[0]);
    EXPECT_EQ(form.txtUser[0]->selectedText(), "<New User>");

    form.cmdUser[0]->click();
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Invalid User Name", kExclamation, "<New User> is not a valid user name!"}}));
    EXPECT_EQ(QApplication::focusWidget(), form.txtUser[0]);
    EXPECT_TRUE(Users().empty());

    EXPECT_EQ(OpenAndCloseHelp(form.imgHelp), "Add, Edit or Delete a Player Name");
    EXPECT_EQ(gsHelpFor, "FUserEdit");
    EXPECT_EQ(sounds_, (Strings{"BUTTONCLICK", "BUTTONCLICK"}));
    EXPECT_TRUE(form.isVisible());
    form.cmdUser[2]->click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FUserEditTest, ANewUserIsSavedWithTheNextIdAndJoinsTheSortedList) {
    AddUser("2|bob|B1|B2|B3|Hard|4|40");
    Open()->Execute("UPDATE system SET nextuserid = 7");
    FUserEdit form;
    ShowActive(form);
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "bob"}));
    Choose(form, "<New User>");
    form.txtUser[0]->setText(" Ann ");
    form.txtUser[1]->setText("Fox");
    form.cmdUser[0]->click();

    EXPECT_EQ(Boxes(), std::vector<Box>{kSaved});
    EXPECT_EQ(Users(), (Strings{"2|bob|B1|B2|B3|Hard|4|40", "7|Ann|Fox|Player 2|Player 3|Easy|0|0"}));
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "Ann", "bob"}));
    EXPECT_EQ(form.lstUser->item(1)->data(Qt::UserRole).toInt(), 7);
    EXPECT_EQ(Texts(form.txtUser), (QStringList{"", "", "", ""}));
    EXPECT_TRUE(EntriesDisabled(form));
    EXPECT_EQ(gsUserName, "");
}

TEST_F(FUserEditTest, AnUnchangedNameIsSavedWithoutAQuestionAndKeepsItsTotals) {
    AddUser("3|Ann|Lu|Mo|Ned|Hard|7|-20");
    FUserEdit form;
    ShowActive(form);
    Choose(form, "Ann");
    EXPECT_TRUE(form.cmdUser[1]->isEnabled());
    EXPECT_EQ(Texts(form.txtUser), (QStringList{"Ann", "Lu", "Mo", "Ned"}));
    EXPECT_EQ(QApplication::focusWidget(), form.txtUser[1]);
    form.txtUser[3]->setText("Nell");
    form.cmdUser[0]->click();
    EXPECT_EQ(Boxes(), std::vector<Box>{kSaved});
    EXPECT_EQ(Users(), Strings{"3|Ann|Lu|Mo|Nell|Hard|7|-20"});

    // The same entry, chosen again with a click, opens the record again.
    QTest::mouseClick(form.lstUser->viewport(), Qt::LeftButton, {},
                      form.lstUser->visualItemRect(form.lstUser->findItems("Ann", Qt::MatchExactly)[0]).center());
    EXPECT_TRUE(EntriesEnabled(form));
    EXPECT_EQ(Texts(form.txtUser), (QStringList{"Ann", "Lu", "Mo", "Nell"}));
}

TEST_F(FUserEditTest, ARenameAnsweredYesChangesEveryEntryOfTheNameButOnlyItsRowFoundByIdDespiteAQuote) {
    AddUser("2|Bob|B1|B2|B3|Easy|0|0");
    AddUser("3|Bob|C1|C2|C3|Easy|4|20");
    const Strings before = Users();
    {
        FUserEdit form;
        ShowActive(form);
        const auto rename = [&](int answer) {
            Choose(form, "Bob", 1);
            form.txtUser[0]->setText("O'Brien");
            form.cmdUser[2]->setFocus();
            responder_.Answer(answer);
            form.cmdUser[0]->click();
        };
        for (const int answer : {kAnswerNo, kAnswerOK}) {
            rename(answer);
            EXPECT_EQ(form.txtUser[0]->text(), "Bob");
            EXPECT_EQ(QApplication::focusWidget(), form.txtUser[0]);
            EXPECT_TRUE(EntriesEnabled(form));
        }
        EXPECT_EQ(Users(), before);
        EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "Bob", "Bob"}));
        const std::int32_t chosen = form.lstUser->currentItem()->data(Qt::UserRole).toInt();
        rename(kAnswerYes);
        const Box question{"User Name has changed...", platform::kQuestion | platform::kYesNo,
                           "Do you wish to change the user\r\nname Bob -> O'Brien?\r\n\r\n"
                           "Note: To add a NEW user select\r\n<New User> from the user list."};
        EXPECT_EQ(Boxes(), (std::vector<Box>{question, question, question, kSaved}));
        EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "O'Brien", "O'Brien"}));
        EXPECT_EQ(Users(), (chosen == 2 ? Strings{"2|O'Brien|B1|B2|B3|Easy|0|0", "3|Bob|C1|C2|C3|Easy|4|20"}
                                        : Strings{"2|Bob|B1|B2|B3|Easy|0|0", "3|O'Brien|C1|C2|C3|Easy|4|20"}));
    }
    FUserEdit reopened;
    EXPECT_EQ(Entries(*reopened.lstUser), (QStringList{"<New User>", "Bob", "O'Brien"}));
}

TEST_F(FUserEditTest, TheCurrentUserChangesOnTheTableBeforeTheWrite) {
    AddUser("5|Ann|Lu|Mo|Ned|Easy|3|15");
    glLastUserId = 5;
    gsUserName = "Ann";
    FUserEdit form;
    ShowActive(form);
    Choose(form, "Ann");
    EXPECT_FALSE(form.cmdUser[1]->isEnabled());
    form.txtUser[0]->setText("Anna");
    form.txtUser[2]->setText("Max");
    DropUserTable();
    responder_.Answer(kAnswerYes);
    form.cmdUser[0]->click();

    ASSERT_EQ(responder_.Boxes().size(), 2u);
    EXPECT_EQ(Boxes()[1].title, "Update Database");
    EXPECT_FALSE(gbDbFailed);
    EXPECT_EQ(CurrentUser(), "0|Anna|Lu|Max|Ned||0|0");
    EXPECT_EQ(mainForm_.playerNames, (std::array<std::string, 4>{"Lu", "Max", "Ned", "Anna"}));
    EXPECT_EQ(mainForm_.winningsCaption, "ANNA's Stats...");
    EXPECT_TRUE(EntriesDisabled(form));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FUserEditTest, ADeleteAsksAndRemovesTheRowAndTheEntryButNeitherTheCurrentUserNorTheNewUserEntry) {
    // A fresh start: glLastUserId is 0, so a user with the id 0 counts as current.
    AddUser("0|Zero|Z1|Z2|Z3|Easy|0|0");
    AddUser("4|Dan|D1|D2|D3|Easy|0|0");
    FUserEdit form;
    ShowActive(form);
    Choose(form, "Zero");
    EXPECT_TRUE(form.cmdUser[0]->isEnabled());
    EXPECT_FALSE(form.cmdUser[1]->isEnabled());
    Choose(form, "<New User>");
    EXPECT_FALSE(form.cmdUser[1]->isEnabled());

    Choose(form, "Dan");
    responder_.Answer(kAnswerNo);
    form.cmdUser[1]->click();
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Delete User", platform::kQuestion | platform::kYesNo,
                                          "Do you wish to delete\r\nDan as a user?"}}));
    EXPECT_EQ(Users().size(), 2u);
    EXPECT_TRUE(EntriesEnabled(form));

    responder_.Answer(kAnswerYes);
    form.cmdUser[1]->click();
    EXPECT_EQ(Users(), Strings{"0|Zero|Z1|Z2|Z3|Easy|0|0"});
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "Zero"}));
    EXPECT_EQ(form.lstUser->currentItem(), nullptr);
    EXPECT_EQ(Texts(form.txtUser), (QStringList{"", "", "", ""}));
    EXPECT_TRUE(EntriesDisabled(form));
    EXPECT_EQ(responder_.Boxes().size(), 2u);
}

TEST_F(FUserEditTest, ADeleteOnAVanishedFileTellsWhyAndStillDropsTheEntry) {
    AddUser("4|Dan|D1|D2|D3|Easy|0|0");
    FUserEdit form;
    ShowActive(form);
    Choose(form, "Dan");
    RemoveDatabaseFile();
    responder_.Answer(kAnswerYes);
    form.cmdUser[1]->click();
    ASSERT_EQ(responder_.Boxes().size(), 2u);
    EXPECT_EQ(Boxes()[1], (Box{"Delete User", kExclamation, "Could not find file '" + storage::DbFileName() + "'."}));
    EXPECT_FALSE(gbDbFailed);
    EXPECT_EQ(Entries(*form.lstUser), QStringList{"<New User>"});
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FUserEditTest, TheNamesAreCheckedBlankFirstThenLongAndTypingStopsAtTwelve) {
    AddUser("4|Dan|D1|D2|D3|Easy|0|0");
    FUserEdit form;
    ShowActive(form);
    Choose(form, "Dan");
    form.txtUser[1]->setText("Abcdefghijklm");
    form.txtUser[2]->setText("  ");
    form.cmdUser[0]->click();
    EXPECT_EQ(QApplication::focusWidget(), form.txtUser[2]);
    form.txtUser[2]->setText("D2");
    form.cmdUser[0]->click();
    EXPECT_EQ(Boxes(), (std::vector<Box>{
                           {"Invalid name", kExclamation, "2nd Opponent name cannot be blank!"},
                           {"Invalid name", kExclamation, "1st Opponent name cannot be\r\nmore than 12 characters!"},
                       }));
    EXPECT_EQ(QApplication::focusWidget(), form.txtUser[1]);
    EXPECT_EQ(form.txtUser[1]->selectedText(), "Abcdefghijklm");
    EXPECT_EQ(Users()[0], "4|Dan|D1|D2|D3|Easy|0|0");

    form.txtUser[0]->setFocus();
    QTest::keyClick(form.txtUser[0], Qt::Key_End);
    QTest::keyClicks(form.txtUser[0], "abcdefghijk");
    EXPECT_EQ(form.txtUser[0]->text(), "Danabcdefghi");
}

TEST_F(FUserEditTest, AVanishedDatabaseClosesTheFormForTheRecovery) {
    gsDbPath = app_.File("gone");
    FUserEdit form;
    form.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(gbDbFailed);
    EXPECT_TRUE(gbDbSwitched);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.lstUser->count(), 0);
}

TEST_F(FUserEditTest, AFailedIdClosesTheForm) {
    FUserEdit form;
    ShowActive(form);
    Choose(form, "<New User>");
    form.txtUser[0]->setText("Ann");
    RemoveDatabaseFile();
    form.cmdUser[0]->click();
    EXPECT_TRUE(gbDbFailed);
    EXPECT_FALSE(form.isVisible());
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].title, "Fatal Error");
}

}  // namespace

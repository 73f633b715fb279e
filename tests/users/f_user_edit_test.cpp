#include <QLineEdit>
#include <QListWidget>

#include "users/f_user_edit.h"
#include "users/user_forms_fixture.h"

using namespace modGlobal;
using namespace platform;

namespace {

const Box kSaved{"Saving User Information", kExclamation, "User record saved!"};

// Which of the four boxes, then Save and Delete, take input: "1111 10".
std::string Enabled(const FUserEdit& form) {
    std::string flags;
    for (const QLineEdit* box : form.txtUser) flags += box->isEnabled() ? '1' : '0';
    return flags + " " + (form.cmdUser[0]->isEnabled() ? '1' : '0') + (form.cmdUser[1]->isEnabled() ? '1' : '0');
}

void Click(FUserEdit& form, const QListWidgetItem* item) {
    QTest::mouseClick(form.lstUser->viewport(), Qt::LeftButton, {}, form.lstUser->visualItemRect(item).center());
}

void Choose(FUserEdit& form, const QString& entry) {
    Click(form, form.lstUser->findItems(entry, Qt::MatchExactly).value(0));
}

using FUserEditTest = UserFormTest;

TEST_F(FUserEditTest, SavesAndDeletesGoByIdAndARenameChangesEveryEntryOfTheName) {
    AddUsers("(2, 'Bob', 'B1', 'B2', 'B3', 'Easy', 0, 0), (3, 'Bob', 'C1', 'C2', 'C3', 'Hard', 4, 20), "
             "(6, 'eve', 'E1', 'E2', 'E3', 'Easy', 0, 0)");
    Open()->Execute("UPDATE system SET nextuserid = 7");
    FUserEdit form;
    ShowActive(form);
    EXPECT_EQ(Enabled(form), "0000 00");
    Choose(form, "<New User>");
    EXPECT_EQ(Enabled(form), "1111 10");
    EXPECT_EQ(Texts(form.txtUser), (Strings{"<New User>", "Player 1", "Player 2", "Player 3"}));
    form.cmdUser[0]->click();
    Type(form.txtUser[0], "Dan");
    form.cmdUser[0]->click();
    EXPECT_EQ(Users().back(), "7|Dan|Player 1|Player 2|Player 3|Easy|0|0");
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "Bob", "Bob", "Dan", "eve"}));
    EXPECT_EQ(form.lstUser->item(3)->data(Qt::UserRole).toInt(), 7);
    EXPECT_EQ(Texts(form.txtUser), (Strings{"", "", "", ""}));
    EXPECT_EQ(Enabled(form), "0000 00");
    EXPECT_EQ(gsUserName, "");

    // The second Bob, chosen with the keys: the selection moves.
    form.lstUser->setCurrentRow(2);
    EXPECT_EQ(QApplication::focusWidget(), form.txtUser[1]);
    form.txtUser[3]->setText("Nell");
    form.cmdUser[0]->click();
    // A click on the chosen entry chooses it again; a name with a quote saves.
    Click(form, form.lstUser->currentItem());
    for (const int answer : {kAnswerNo, kAnswerOK, kAnswerYes}) {
        form.txtUser[0]->setText("O'Brien");
        form.cmdUser[2]->setFocus();
        responder_.Answer(answer);
        form.cmdUser[0]->click();
        if (answer == kAnswerYes) break;
        EXPECT_EQ(form.txtUser[0]->text(), "Bob");
        EXPECT_EQ(QApplication::focusWidget(), form.txtUser[0]);
    }
    const Box question = RenameQuestion("Bob", "O'Brien");
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Invalid User Name", kExclamation, "<New User> is not a valid user name!"},
                                         kSaved, kSaved, question, question, question, kSaved}));
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "O'Brien", "O'Brien", "Dan", "eve"}));
    EXPECT_EQ(Users()[1], "3|O'Brien|C1|C2|Nell|Hard|4|20");
    EXPECT_EQ(Entries(*FUserEdit().lstUser), (QStringList{"<New User>", "Bob", "Dan", "eve", "O'Brien"}));

    Choose(form, "eve");
    EXPECT_EQ(Enabled(form), "1111 11");
    for (const int answer : {kAnswerNo, kAnswerYes}) {
        responder_.Answer(answer);
        form.cmdUser[1]->click();
    }
    EXPECT_EQ(Boxes().back(), (Box{"Delete User", kQuestion | kYesNo, "Do you wish to delete\r\neve as a user?"}));
    EXPECT_EQ(Users(), (Strings{"2|Bob|B1|B2|B3|Easy|0|0", "3|O'Brien|C1|C2|Nell|Hard|4|20",
                                "7|Dan|Player 1|Player 2|Player 3|Easy|0|0"}));
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "O'Brien", "O'Brien", "Dan"}));
    EXPECT_EQ(Enabled(form), "0000 00");
    // On a vanished file the delete is told, and the entry goes all the same.
    Choose(form, "Dan");
    std::filesystem::remove(storage::DbFileName());
    responder_.Answer(kAnswerYes);
    form.cmdUser[1]->click();
    EXPECT_EQ(Boxes().back(), (Box{"Delete User", kExclamation, "Could not find file '" + storage::DbFileName() + "'."}));
    EXPECT_FALSE(gbDbFailed);
    EXPECT_EQ(Entries(*form.lstUser), (QStringList{"<New User>", "O'Brien", "O'Brien"}));
}

TEST_F(FUserEditTest, AFailedWriteLeavesTheCurrentUserRenamedOnTheTableAndAFailedOpenClosesTheForm) {
    AddUsers("(5, 'Ann', 'Lu', 'Mo', 'Ned', 'Easy', 3, 15)");
    glLastUserId = 5;
    FUserEdit form;
    ShowActive(form);
    Choose(form, "Ann");
    EXPECT_EQ(Enabled(form), "1111 10");
    Type(form.txtUser[0], "Anna");
    form.txtUser[2]->setText("Max");
    DropUserTable();
    responder_.Answer(kAnswerYes);
    form.cmdUser[0]->click();
    EXPECT_EQ(Boxes().back().title, "Update Database");
    EXPECT_EQ(CurrentUser(), "0|Anna|Lu|Max|Ned||0|0");
    EXPECT_EQ(mainForm_.playerNames, (std::array<std::string, 4>{"Lu", "Max", "Ned", "Anna"}));
    EXPECT_EQ(mainForm_.winningsCaption, "ANNA's Stats...");

    // Closing the help form activates this one again, which keeps what was
    // typed, unless an open has failed meanwhile.
    Choose(form, "<New User>");
    Type(form.txtUser[0], "Bea");
    OpenAndCloseHelp(form.imgHelp);
    EXPECT_EQ(gsHelpFor, "FUserEdit");
    EXPECT_EQ(form.txtUser[0]->text(), "Bea");
    gbDbFailed = true;
    OpenAndCloseHelp(form.imgHelp);
    EXPECT_FALSE(form.isVisible());
    // With the file gone, the next form closes at its first activation.
    gbDbFailed = false;
    std::filesystem::remove(storage::DbFileName());
    FUserEdit next;
    next.show();
    QCoreApplication::processEvents();
    EXPECT_FALSE(next.isVisible());
}

}  // namespace

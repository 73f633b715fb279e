#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include "users/f_user_name.h"
#include "users/user_forms_fixture.h"

using namespace modGlobal;

namespace {

const std::string kBracketHelp = "\r\nEnter your own Player & Opponent Names.";

// The name, then the three opponents.
QStringList Texts(const FUserName& form) {
    return {form.cboUser->currentText(), form.txtPlayer[1]->text(), form.txtPlayer[2]->text(),
            form.txtPlayer[3]->text()};
}

using FUserNameTest = UserFormTest;

TEST_F(FUserNameTest, TheFirstFailingRuleIsToldTillANameTypedOverTheNewUserEntryMakesANewUser) {
    Open()->Execute("UPDATE system SET nextuserid = 7");
    FUserName form;
    ShowActive(form);
    EXPECT_EQ(Texts(form), (QStringList{"<New User>", "Player 1", "Player 2", "Player 3"}));
    EXPECT_EQ(QApplication::focusWidget(), form.cboUser);
    // Name and opponents as pasted, the message, and the field that gets the focus.
    const std::vector<std::tuple<QStringList, std::string, int>> cases = {
        {Texts(form), "<New User> is not a valid Player Name!" + kBracketHelp, 0},
        {{" <Bob", "x", "y", "z"}, "<Bob is not a valid Player Name!" + kBracketHelp, 0},
        {{"A>b<c", "Abcdefghijklm", " ", ""}, "2nd Opponent name cannot be blank!", 2},
        {{" Abcdefghijkl ", "x", "y", "Abcdefghijklm"}, "3rd Opponent name cannot be\r\nmore than 12 characters!", 3},
    };
    const std::array<QWidget*, 4> fields = {form.cboUser, form.txtPlayer[1], form.txtPlayer[2], form.txtPlayer[3]};
    for (const auto& [texts, message, focus] : cases) {
        form.cmdUserName[0]->setFocus();
        form.cboUser->setEditText(texts[0]);
        for (int box = 1; box <= 3; ++box) form.txtPlayer[box]->setText(texts[box]);
        form.cmdUserName[0]->click();
        const char* title = focus ? "Invalid name" : "Invalid Player Name";
        EXPECT_EQ(Boxes().back(), (Box{title, kExclamation, message}));
        EXPECT_EQ(QApplication::focusWidget(), fields[focus]) << message;
    }

    // At twelve characters every key but Backspace is dropped, Enter too.
    form.cboUser->setEditText("");
    Type(form.cboUser, "Abcdefghijklmn");
    Type(form.txtPlayer[1], "Opqrstuvwxyz!?");
    QTest::keyClick(form.txtPlayer[1], Qt::Key_Return);  // dropped, or the opponent would keep all twelve
    QTest::keyClick(form.txtPlayer[1], Qt::Key_Backspace);
    QTest::keyClick(form.txtPlayer[1], Qt::Key_Return);
    EXPECT_EQ(responder_.Boxes().size(), cases.size());
    EXPECT_EQ(mainForm_.tag, "O");
    // Leaving the name box wrote the defaults back over the opponents.
    const std::string user = "7|Abcdefghijkl|Opqrstuvwxy|Player 2|Player 3|Easy|0|0";
    EXPECT_EQ(CurrentUser(), user);
    EXPECT_EQ(glLastUserId, 7);
    EXPECT_EQ(mainForm_.playerNames, (std::array<std::string, 4>{"Opqrstuvwxy", "Player 2", "Player 3", "Abcdefghijkl"}));
    EXPECT_EQ(Users(), Strings{user});
}

TEST_F(FUserNameTest, TheLastUserIsChosenAtEachActivationAndATypedNameIsARenameThatOnlyNoTakesBack) {
    AddUsers("(3, 'zed ', ' Lu ', 'Mo', 'Ned', 'Hard', 7, -20), (5, 'Ann', 'A1', 'A2', 'A3', 'Easy', 1, 5), "
             "(8, 'bob', 'B1', 'B2', 'B3', 'Easy', 0, 0)");
    glLastUserId = 3;
    FUserName form;
    ShowActive(form);
    EXPECT_EQ(Entries(*form.cboUser), (QStringList{"<New User>", "Ann", "bob", "zed"}));
    EXPECT_EQ(Texts(form), (QStringList{"zed", "Lu", "Mo", "Ned"}));
    EXPECT_EQ(form.txtPlayer[1]->selectedText(), "Lu");
    // Another user's name, too, renames this one.
    Type(form.cboUser, "Ann");
    form.txtPlayer[2]->setFocus();
    responder_.Answer(platform::kAnswerNo);
    form.cmdUserName[0]->click();
    EXPECT_EQ(Boxes(), std::vector<Box>{RenameQuestion("zed", "Ann")});
    EXPECT_EQ(form.cboUser->currentText(), "zed");
    EXPECT_EQ(QApplication::focusWidget(), form.txtPlayer[1]);
    EXPECT_EQ(mainForm_.tag, "");

    // A choice shows the chosen user's opponents, and so does leaving the list.
    form.cboUser->setFocus();
    QTest::keyClick(form.cboUser, Qt::Key_Up);
    Type(form.txtPlayer[1], "Zorro");
    form.cboUser->setFocus();
    form.txtPlayer[2]->setFocus();
    EXPECT_EQ(Texts(form), (QStringList{"bob", "B1", "B2", "B3"}));
    // What was typed is lost when closing the help form activates the form again.
    Type(form.cboUser, "Bea");
    Type(form.txtPlayer[2], "Max");
    OpenAndCloseHelp(form.imgHelp);
    EXPECT_EQ(gsHelpFor, "FUserName");
    EXPECT_EQ(sounds_.keys, (Strings{"BUTTONCLICK", "BUTTONCLICK"}));
    EXPECT_EQ(Texts(form), (QStringList{"zed", "Lu", "Mo", "Ned"}));

    Type(form.cboUser, "Zed");
    responder_.Answer(platform::kAnswerOK);
    form.cmdUserName[0]->click();
    // The totals come from the form's copy; the skill level is always "Easy".
    EXPECT_EQ(CurrentUser(), "3|Zed|Lu|Mo|Ned|Easy|7|-20");
    EXPECT_EQ(Users()[0], "3|Zed|Lu|Mo|Ned|Easy|7|-20");
}

TEST_F(FUserNameTest, AFailedOpenFallsBackToTheDefaultDatabaseOrEndsTheProgramAndAFailedSelectIsTold) {
    AddUsers("(5, 'Ann', 'Lu', 'Mo', 'Ned', 'Easy', 3, 15)");
    glLastUserId = 5;
    gsDbPath = app_.File("gone");
    mainForm_.tag = "CHANGE";
    {
        FUserName form;
        EXPECT_EQ(form.cmdUserName[1]->text(), "&Cancel");
        EXPECT_EQ(gsDbPath, app_.Path());
        EXPECT_FALSE(gbDbFailed || gbDbSwitched);
        ShowActive(form);
        DropUserTable();
        form.cmdUserName[0]->click();
        EXPECT_EQ(mainForm_.tag, "O");
    }
    mainForm_.tag.clear();
    FUserName form;
    EXPECT_EQ(Entries(*form.cboUser), QStringList{"<New User>"});
    ShowActive(form);
    Type(form.cboUser, "Bea");
    const std::string file = storage::DbFileName();
    std::filesystem::remove(file);
    form.cmdUserName[0]->click();
    EXPECT_TRUE(gbDbFailed);
    EXPECT_EQ(mainForm_.tag, "X");
    // The user of the failed write stands in memory without a row.
    EXPECT_EQ(CurrentUser(), "5|Ann|Lu|Mo|Ned|Easy|3|15");

    WriteBytes(file, "no database");
    EXPECT_THROW(FUserName form, platform::ProgramEnded);
    // Switched to the default database, which fails as well.
    gbDbFailed = false;
    gsDbPath = app_.File("gone");
    EXPECT_THROW(FUserName form, platform::ProgramEnded);
    const std::string noTable = "The database engine cannot find the input table or query 'user'. "
                                "Make sure it exists and that its name is spelled correctly.";
    const Box unrecognized{"GetPlayerData", kExclamation, "3343: Unrecognized database format '" + file + "'."};
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"UpdateDatabase", kExclamation, noTable},
                                         {"GetPlayerData", kExclamation, noTable},
                                         {"Fatal Error", kExclamation,
                                          "Cannot locate the current database...\r\n" + platform::UCase(file) +
                                              "!\r\n\r\nClosing Dovrin"},
                                         unrecognized, unrecognized}));
}

// A name chosen from the open list leaves the keys with the form: Enter
// reaches OK and Escape Cancel, coming through the form's window as the
// keyboard's keys do.
TEST_F(FUserNameTest, AfterAChoiceFromTheListEnterAndEscapeReachTheFormsButtons) {
    AddUsers("(1, 'Ann', 'A1', 'A2', 'A3', 'Easy', 0, 0), (2, 'Bob', 'B1', 'B2', 'B3', 'Easy', 4, 9)");
    glLastUserId = 1;
    const auto pick = [](FUserName& form, int entry) {
        form.cboUser->showPopup();
        QAbstractItemView* list = form.cboUser->view();
        const QPoint place = list->visualRect(list->model()->index(entry, 0)).center();
        QTest::mouseMove(list->viewport(), place);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        EXPECT_FALSE(list->isVisible());
    };
    FUserName choosing;
    ShowActive(choosing);
    pick(choosing, 2);
    EXPECT_EQ(Texts(choosing), (QStringList{"Bob", "B1", "B2", "B3"}));
    QTest::keyClick(choosing.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(choosing.isVisible());
    EXPECT_EQ(mainForm_.tag, "O");
    EXPECT_EQ(CurrentUser(), "2|Bob|B1|B2|B3|Easy|4|9");

    mainForm_.tag.clear();
    FUserName leaving;
    ShowActive(leaving);
    pick(leaving, 1);
    QTest::keyClick(leaving.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(leaving.isVisible());
    EXPECT_EQ(mainForm_.tag, "X");
    EXPECT_EQ(sounds_.keys, Strings{"EXITPROG"});
    EXPECT_EQ(glUserId, 2);
}

}  // namespace


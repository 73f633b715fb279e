#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "users/f_user_name.h"
#include "users/user_forms_fixture.h"

using namespace modGlobal;
using platform::kAnswerNo;
using platform::kAnswerOK;
using platform::kAnswerYes;
using platform::ProgramEnded;

namespace {

const std::string kBracketHelp = "\r\nEnter your own Player & Opponent Names.";

QStringList Entries(const QComboBox& list) {
    QStringList texts;
    for (int index = 0; index < list.count(); ++index) texts << list.itemText(index);
    return texts;
}

QStringList Opponents(const FUserName& form) {
    return {form.txtPlayer[1]->text(), form.txtPlayer[2]->text(), form.txtPlayer[3]->text()};
}

class FUserNameTest : public UserFormTest {
protected:
    // Types over the whole text of a box, as a user would.
    static void TypeName(FUserName& form, const QString& name) {
        form.cboUser->setFocus();
        form.cboUser->lineEdit()->selectAll();
        QTest::keyClicks(form.cboUser, name);
    }
    static void TypeOpponent(FUserName& form, int index, const QString& name) {
        form.txtPlayer[index]->setFocus();
        form.txtPlayer[index]->selectAll();
        QTest::keyClicks(form.txtPlayer[index], name);
    }
};

TEST_F(FUserNameTest, AnEmptyTableOffersOnlyTheNewUserEntryWithTheDefaultsAndItsHelp) {
    FUserName form;
    ShowActive(form);
    EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin");
    EXPECT_EQ(form.cmdUserName[0]->text(), "&OK");
    EXPECT_EQ(form.cmdUserName[1]->text(), "E&xit");
    EXPECT_EQ(Entries(*form.cboUser), QStringList{"<New User>"});
    EXPECT_EQ(form.cboUser->itemData(0).toInt(), 9999);
    EXPECT_EQ(form.cboUser->currentText(), "<New User>");
    EXPECT_EQ(Opponents(form), (QStringList{"Player 1", "Player 2", "Player 3"}));
    EXPECT_EQ(Entries(*form.cboSkillLevel), QStringList{"Easy"});
    EXPECT_EQ(QApplication::focusWidget(), form.cboUser);

    form.cmdUserName[0]->click();
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Invalid Player Name", kExclamation,
                                          "<New User> is not a valid Player Name!" + kBracketHelp}}));
    EXPECT_EQ(QApplication::focusWidget(), form.cboUser);
    EXPECT_TRUE(Users().empty());
    EXPECT_EQ(NextUserId(), "1");

    EXPECT_EQ(OpenAndCloseHelp(form.imgHelp), "Choosing a Player Name");
    EXPECT_EQ(gsHelpFor, "FUserName");
    EXPECT_EQ(sounds_, (Strings{"BUTTONCLICK", "BUTTONCLICK"}));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FUserNameTest, ANameTypedOverTheNewUserEntryMakesANewCurrentUser) {
    Open()->Execute("UPDATE system SET nextuserid = 7");
    FUserName form;
    ShowActive(form);
    TypeName(form, " Ann ");
    TypeOpponent(form, 1, "Fox ");
    TypeOpponent(form, 2, "Owl");
    TypeOpponent(form, 3, "Cat");
    form.cmdUserName[0]->click();

    EXPECT_TRUE(responder_.Boxes().empty());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(mainForm_.tag, "O");
    EXPECT_EQ(CurrentUser(), "7|Ann|Fox|Owl|Cat|Easy|0|0");
    EXPECT_EQ(glLastUserId, 7);
    EXPECT_EQ(mainForm_.playerNames, (std::array<std::string, 4>{"Fox", "Owl", "Cat", "Ann"}));
    EXPECT_EQ(mainForm_.winningsCaption, "ANN's Stats...");
    EXPECT_EQ(Users(), Strings{"7|Ann|Fox|Owl|Cat|Easy|0|0"});
    EXPECT_EQ(NextUserId(), "8");
}

TEST_F(FUserNameTest, TheLastUserIsChosenFromTheSortedListAndOkWritesEasyBack) {
    AddUser("3|zed | Lu |Mo|Ned|Hard|7|-20");
    AddUser("5|Ann|A1|A2|A3|Easy|1|5");
    AddUser("8|bob|B1|B2|B3|Easy|0|0");
    glLastUserId = 3;
    FUserName form;
    ShowActive(form);
    EXPECT_EQ(Entries(*form.cboUser), (QStringList{"<New User>", "Ann", "bob", "zed"}));
    EXPECT_EQ(form.cboUser->currentText(), "zed");
    EXPECT_EQ(Opponents(form), (QStringList{"Lu", "Mo", "Ned"}));
    EXPECT_EQ(form.cboSkillLevel->currentText(), "Easy");
    EXPECT_EQ(QApplication::focusWidget(), form.txtPlayer[1]);
    EXPECT_EQ(form.txtPlayer[1]->selectedText(), "Lu");

    form.cmdUserName[0]->click();
    EXPECT_TRUE(responder_.Boxes().empty());
    EXPECT_EQ(CurrentUser(), "3|zed|Lu|Mo|Ned|Easy|7|-20");
    EXPECT_EQ(Users()[0], "3|zed|Lu|Mo|Ned|Easy|7|-20");
}

TEST_F(FUserNameTest, ChoosingAnotherEntryShowsItsOpponentsAndLeavingTheBoxShowsThemAgain) {
    AddUser("5|Ann|Lu|Mo|Ned|Easy|0|0");
    FUserName form;
    ShowActive(form);
    EXPECT_EQ(form.cboUser->currentText(), "<New User>");
    form.cboUser->setFocus();
    QTest::keyClick(form.cboUser, Qt::Key_Down);
    EXPECT_EQ(form.cboUser->currentText(), "Ann");
    EXPECT_EQ(form.txtPlayer[1]->text(), "Lu");
    EXPECT_EQ(QApplication::focusWidget(), form.txtPlayer[1]);

    TypeOpponent(form, 1, "Zorro");
    form.cboUser->setFocus();
    form.txtPlayer[2]->setFocus();
    EXPECT_EQ(form.txtPlayer[1]->text(), "Lu");
}

TEST_F(FUserNameTest, ATypedNameIsARenameEvenOfAnotherUserAndOnlyNoKeepsTheOldName) {
    AddUser("5|Ann|Lu|Mo|Ned|Easy|2|10");
    AddUser("6|Bob|B1|B2|B3|Easy|0|0");
    glLastUserId = 5;
    const auto question = [](const std::string& newName) {
        return Box{"User Name has changed...", platform::kQuestion | platform::kYesNo,
                   "Do you wish to change the user\r\nname Ann -> " + newName +
                       "?\r\n\r\nNote: To add a NEW user select\r\n<New User> from the user list."};
    };
    {
        FUserName form;
        ShowActive(form);
        TypeName(form, "Bob");
        form.txtPlayer[2]->setFocus();
        responder_.Answer(kAnswerNo);
        form.cmdUserName[0]->click();
        EXPECT_EQ(Boxes(), std::vector<Box>{question("Bob")});
        EXPECT_EQ(form.cboUser->currentText(), "Ann");
        EXPECT_EQ(QApplication::focusWidget(), form.txtPlayer[1]);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(glUserId, 0);
        EXPECT_EQ(mainForm_.tag, "");

        TypeName(form, "Anna");
        responder_.Answer(kAnswerYes);
        form.cmdUserName[0]->click();
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(Users(), (Strings{"5|Anna|Lu|Mo|Ned|Easy|2|10", "6|Bob|B1|B2|B3|Easy|0|0"}));
    EXPECT_EQ(CurrentUser(), "5|Anna|Lu|Mo|Ned|Easy|2|10");

    FUserName form;
    ShowActive(form);
    TypeName(form, "Anne");
    responder_.Answer(kAnswerOK);
    form.cmdUserName[0]->click();
    EXPECT_EQ(Users()[0], "5|Anne|Lu|Mo|Ned|Easy|2|10");
}

TEST_F(FUserNameTest, ValidationStopsAtTheFirstFailingRuleWithItsMessageAndFocus) {
    struct Case {
        const char* name;
        std::array<const char*, 3> opponents;
        const char* title;
        std::string message;
        int focus;  // 0 the name, 1 to 3 the opponents
    };
    const std::string tooLong = "\r\nmore than 12 characters!";
    const std::vector<Case> cases = {
        {"Bob>", {"x", "y", "z"}, "Invalid Player Name", "Bob> is not a valid Player Name!" + kBracketHelp, 0},
        {" <Bob", {"x", "y", "z"}, "Invalid Player Name", "<Bob is not a valid Player Name!" + kBracketHelp, 0},
        {"   ", {"", "", ""}, "Invalid name", "User name cannot be blank!", 0},
        {"A>b<c", {" ", "", ""}, "Invalid name", "1st Opponent name cannot be blank!", 1},
        {"Abcdefghijklm", {"x", "", "z"}, "Invalid name", "2nd Opponent name cannot be blank!", 2},
        {"Ann", {"x", "y", ""}, "Invalid name", "3rd Opponent name cannot be blank!", 3},
        {"Abcdefghijklm", {"x", "y", "z"}, "Invalid name", "User name cannot be more\r\nthan 12 characters!", 0},
        {" Abcdefghijkl ", {"Abcdefghijklm", "y", "z"}, "Invalid name", "1st Opponent name cannot be" + tooLong, 1},
        {"Ann", {"x", "Abcdefghijklm", "z"}, "Invalid name", "2nd Opponent name cannot be" + tooLong, 2},
        {"Ann", {"x", "y", "Abcdefghijklm"}, "Invalid name", "3rd Opponent name cannot be" + tooLong, 3},
    };
    FUserName form;
    ShowActive(form);
    const std::array<QWidget*, 4> fields = {form.cboUser, form.txtPlayer[1], form.txtPlayer[2], form.txtPlayer[3]};
    for (const Case& entries : cases) {
        SCOPED_TRACE(entries.message);
        // Set as pasted text: the key handlers don't see it.
        form.cmdUserName[0]->setFocus();
        form.cboUser->setEditText(entries.name);
        for (int i = 1; i <= 3; ++i) form.txtPlayer[i]->setText(entries.opponents[i - 1]);
        form.cmdUserName[0]->click();
        ASSERT_FALSE(responder_.Boxes().empty());
        EXPECT_EQ(Boxes().back(), (Box{entries.title, kExclamation, entries.message}));
        EXPECT_EQ(QApplication::focusWidget(), fields[entries.focus]);
    }
    EXPECT_EQ(responder_.Boxes().size(), cases.size());

    // The skill level is checked last, though the list holds only "Easy".
    form.cmdUserName[0]->setFocus();
    form.cboUser->setEditText("Ann");
    for (int i = 1; i <= 3; ++i) form.txtPlayer[i]->setText("Lu");
    form.cboSkillLevel->addItem("Expert");
    form.cboSkillLevel->setCurrentText("Expert");
    form.cmdUserName[0]->click();
    EXPECT_EQ(Boxes().back(), (Box{"Invalid SkillLevel", kExclamation, "Skilllevel is invalid!"}));
    EXPECT_EQ(QApplication::focusWidget(), form.cboSkillLevel);

    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(Users().empty());
    EXPECT_EQ(glUserId, 0);
}

TEST_F(FUserNameTest, AtTwelveCharactersEveryKeyButBackspaceIsDropped) {
    FUserName form;
    ShowActive(form);
    TypeName(form, "Abcdefghijklmn");
    EXPECT_EQ(form.cboUser->currentText(), "Abcdefghijkl");

    TypeOpponent(form, 1, "Opqrstuvwxyz!?");
    EXPECT_EQ(form.txtPlayer[1]->text(), "Opqrstuvwxyz");
    form.txtPlayer[1]->selectAll();
    QTest::keyClicks(form.txtPlayer[1], "Q");
    EXPECT_EQ(form.txtPlayer[1]->text(), "Opqrstuvwxyz");

    // Enter, too, is dropped: OK isn't pressed.
    QTest::keyClick(form.txtPlayer[1], Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());

    QTest::keyClick(form.txtPlayer[1], Qt::Key_End);
    QTest::keyClick(form.txtPlayer[1], Qt::Key_Backspace);
    EXPECT_EQ(form.txtPlayer[1]->text(), "Opqrstuvwxy");
    // Below 12 characters Enter presses OK, and a name of exactly 12 passes.
    QTest::keyClick(form.txtPlayer[1], Qt::Key_Return);
    EXPECT_TRUE(responder_.Boxes().empty());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(gsUserName, "Abcdefghijkl");
    EXPECT_EQ(gsOpponent1, "Opqrstuvwxy");
}

TEST_F(FUserNameTest, ExitAtTheFirstStartCancelFromTheMenuAndTheFrameAllLeave) {
    const auto leave = [this](const char* tag, auto how, std::size_t soundsAfter) {
        mainForm_.tag = tag;
        FUserName form;
        ShowActive(form);
        how(form);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(mainForm_.tag, "X");
        EXPECT_EQ(sounds_, Strings(soundsAfter, "EXITPROG"));
    };
    leave("", [](FUserName& form) { form.cmdUserName[1]->click(); }, 1);
    leave("CHANGE", [](FUserName& form) {
        EXPECT_EQ(form.cmdUserName[1]->text(), "&Cancel");
        QTest::keyClick(&form, Qt::Key_Escape);
    }, 2);
    leave("", [](FUserName& form) { form.close(); }, 2);
    EXPECT_EQ(glUserId, 0);
    EXPECT_EQ(gsUserName, "");
    EXPECT_EQ(mainForm_.playerNames, (std::array<std::string, 4>{}));
}

TEST_F(FUserNameTest, AVanishedDatabaseSwitchesToTheDefaultBeforeTheListIsFilled) {
    AddUser("4|Ann|Lu|Mo|Ned|Easy|0|0");
    gsDbPath = app_.File("gone");
    FUserName form;
    EXPECT_EQ(Entries(*form.cboUser), (QStringList{"<New User>", "Ann"}));
    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_FALSE(gbDbFailed);
    EXPECT_FALSE(gbDbSwitched);
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(FUserNameTest, ADatabaseThatCantBeOpenedEndsTheProgramAtOnce) {
    const std::string file = storage::DbFileName();
    WriteBytes(file, "no database");
    EXPECT_THROW(FUserName form, ProgramEnded);

    // Switched to the default database, which fails as well.
    gbDbFailed = false;
    gsDbPath = app_.File("gone");
    EXPECT_THROW(FUserName form, ProgramEnded);
    EXPECT_EQ(Boxes(), std::vector<Box>(2, {"GetPlayerData", kExclamation,
                                            "3343: Unrecognized database format '" + file + "'."}));
    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_TRUE(gbDbFailed);
}

TEST_F(FUserNameTest, AnUnreadableUserTableLeavesOnlyTheNewUserEntry) {
    AddUser("4|Ann|Lu|Mo|Ned|Easy|0|0");
    DropUserTable();
    FUserName form;
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"GetPlayerData", kExclamation,
                                          "The database engine cannot find the input table or query 'user'. "
                                          "Make sure it exists and that its name is spelled correctly."}}));
    EXPECT_EQ(Entries(*form.cboUser), QStringList{"<New User>"});
    EXPECT_FALSE(gbDbFailed);
}

TEST_F(FUserNameTest, AFailedIdUnloadsTheFormWithoutAUser) {
    FUserName form;
    ShowActive(form);
    TypeName(form, "Ann");
    const std::string file = storage::DbFileName();
    RemoveDatabaseFile();
    form.cmdUserName[0]->click();
    EXPECT_TRUE(gbDbFailed);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(mainForm_.tag, "X");
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Fatal Error", kExclamation,
                                          "Cannot locate the current database...\r\n" + platform::UCase(file) +
                                              "!\r\n\r\nClosing Dovrin"}}));
    EXPECT_EQ(CurrentUser(), "0||||||0|0");
}

TEST_F(FUserNameTest, AFailedWriteStillMakesTheCurrentUser) {
    AddUser("5|Ann|Lu|Mo|Ned|Easy|3|15");
    glLastUserId = 5;
    FUserName form;
    ShowActive(form);
    DropUserTable();
    form.cmdUserName[0]->click();
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].title, "UpdateDatabase");
    EXPECT_EQ(mainForm_.tag, "O");
    EXPECT_EQ(CurrentUser(), "5|Ann|Lu|Mo|Ned|Easy|3|15");
    EXPECT_FALSE(gbDbFailed);
}

}  // namespace

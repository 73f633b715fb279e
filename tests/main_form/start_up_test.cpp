// The main form's start: loading from a program directory of delivered
// files, the first user form, leaving it, and a new game from the menu.
#include <regex>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/display/card_library.h"
#include "shell/f_dovrin.h"
#include "storage/storage_fixture.h"
#include "link/main_form_link.h"
#include "users/f_user_name.h"

namespace {

class StartUpTest : public StorageTest {
protected:
    QTimer userFormWatcher;
    int userForms = 0;

    void SetUp() override {
        StorageTest::SetUp();
        for (const char* name : {"Lantern.mdb", "dovrin.ini"}) Deliver(name, app_.Path());
    }
    std::string Settings() const { return ReadBytes(app_.File("dovrin.ini")); }
    // Points the settings file's db_path at another directory.
    void SetDbPath(const std::string& path) {
        WriteBytes(app_.File("dovrin.ini"), std::regex_replace(Settings(), std::regex("db_path=[^\r]*"), "db_path=" + path));
    }
    // Presses a button of each user form that shows, with a new user's name
    // typed in when one is given, and counts the forms.
    void AnswerUserForms(int button, const char* newUser = nullptr) {
        QObject::connect(&userFormWatcher, &QTimer::timeout, [=] {
            auto* form = qobject_cast<FUserName*>(QApplication::activeModalWidget());
            if (!form) return;
            ++userForms;
            if (newUser) form->cboUser->setCurrentText(QString::fromUtf8(newUser));
            form->cmdUserName[button]->click();
        });
        userFormWatcher.start(10);
    }
};

}  // namespace

// A new user's game; New Game starts it again, but not while the fanfare
// has locked the menus, their keys included, until the unload lifts the lock.
TEST_F(StartUpTest, ANewUserStartsAGameAndNewGameStartsItAgainUnlessTheMenusAreLocked) {
    FDovrin form;
    form.Form_Load();
    AnswerUserForms(0, "Newcomer");
    modGlobal::glAnimSpeed = 0;
    form.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.game().mbUserTurn; }, 10000));  // the human's turn
    EXPECT_EQ(form.lblPlayer[3]->text().toStdString(), "Newcomer");
    Game& game = form.game();
    EXPECT_EQ(game.miMoney3, 195);

    // New Game in a running hand: a fresh game with the money of a new game;
    // the computers may have paid already, the human not.
    game.miHandNo = 2;
    game.miLevel = 3;
    form.mnuFile_Click(0);
    EXPECT_EQ(std::tuple(game.miHandNo, game.miLevel, game.miMoney3, game.maCardsLeft[3]),
              std::tuple(0, 0, 195, 13));
    EXPECT_EQ(game.miMoney0 + game.miMoney1 + game.miMoney2 + game.miMoney3 + game.miPot, 800);

    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    const auto newGameKey = [&] { QTest::keyClick(form.windowHandle(), Qt::Key_N, Qt::ControlModifier); };
    modGlobal::SetMenusEnabled(false);
    for (QMenu* menu : {form.mnuFileH, form.mnuUserH, form.mnuOptionH, form.mnuHelpH})
        EXPECT_FALSE(menu->menuAction()->isEnabled());
    game.miHandNo = 2;
    newGameKey();
    EXPECT_EQ(game.miHandNo, 2);
    form.Form_QueryUnload();
    for (QMenu* menu : {form.mnuFileH, form.mnuUserH, form.mnuOptionH, form.mnuHelpH})
        EXPECT_TRUE(menu->menuAction()->isEnabled());
    newGameKey();
    EXPECT_EQ(game.miHandNo, 0);
}

// The database in use goes away while the program starts: the user form's
// load finds it gone, the program's own file takes over, and the user form
// comes once more. Exit there ends the run and saves that file in the
// settings. (The load's own switch: DatabaseFileTest.TheStartUpCheck...)
TEST_F(StartUpTest, ADatabaseLostBeforeTheFirstUserFormFallsBackToTheProgramsFileAndExitThereSavesIt) {
    TempDir elsewhere;
    Deliver("Lantern.mdb", elsewhere.Path());
    SetDbPath(elsewhere.Path());
    auto* form = new FDovrin;
    form->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<FDovrin> alive(form);
    form->Form_Load();
    EXPECT_EQ(modGlobal::gsDbPath, elsewhere.Path());
    std::filesystem::remove(elsewhere.Path() + "/Lantern.mdb");
    AnswerUserForms(1);
    form->show();  // the first activation follows
    EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }, 5000));  // the main form is gone
    EXPECT_EQ(userForms, 1);  // the first one unloaded itself before it could be seen
    EXPECT_FALSE(modGlobal::gbDbFailed);
    EXPECT_TRUE(Boxes().empty());  // the switch is silent
    const std::string settings = Settings();
    EXPECT_NE(settings.find("user_id=0\r\n"), std::string::npos);
    EXPECT_NE(settings.find("db_path=" + app_.Path() + "\r\n"), std::string::npos);
}

TEST_F(StartUpTest, AMissingCardDeckEndsTheLoadWithAnEmptyMessage) {
    platform::SetCardDeckFile(QString::fromStdString(app_.Path() + "/no-deck.svgz"));
    FDovrin form;
    EXPECT_THROW(form.Form_Load(), platform::ProgramEnded);
    platform::SetCardDeckFile({});
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Error Loading Program", platform::kExclamation, ""}}));
    EXPECT_EQ(responder_.BeepCount(), 1);
}

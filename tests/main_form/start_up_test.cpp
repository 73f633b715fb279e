// The main form's start: loading from a program directory of delivered
// files, the first user form, leaving it, and a new game from the menu.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/display/card_library.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"
#include "table/main_form_link.h"
#include "storage/mod_global_db.h"
#include "shell/f_dovrin.h"
#include "users/f_user_name.h"

namespace {

class StartUpTest : public ::testing::Test {
protected:
    TempDir app;
    platform::ScriptedResponder responder;

    void SetUp() override {
        modGlobal::ResetGlobals();
        platform::SetAppPath(app.Path());
        for (const char* name : {"Lantern.mdb", "dovrin.ini"})
            std::filesystem::copy_file(std::string(DOVRIN_DELIVERED_DIR) + "/" + name,
                                       app.Path() + "/" + name);
    }
    void TearDown() override {
        platform::SetAppPath(std::nullopt);
        modGlobal::SetChangeUserHook(nullptr);
        modGlobal::ResetGlobals();
    }
    std::string Settings() const {
        std::ifstream in(app.Path() + "/dovrin.ini", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    // Points the settings file's db_path at another directory.
    void SetDbPath(const std::string& path) {
        std::string settings = Settings();
        const auto start = settings.find("db_path=");
        settings.replace(start, settings.find('\r', start) - start, "db_path=" + path);
        std::ofstream(app.Path() + "/dovrin.ini", std::ios::binary) << settings;
    }
    // Presses a button of the user form once it shows, with a new user's
    // name typed in when one is given.
    static void AnswerUserForm(int button, const char* newUser = nullptr) {
        auto* watcher = new QTimer;
        QObject::connect(watcher, &QTimer::timeout, [=] {
            auto* form = qobject_cast<FUserName*>(QApplication::activeModalWidget());
            if (!form) return;
            watcher->deleteLater();
            if (newUser) form->cboUser->setCurrentText(QString::fromUtf8(newUser));
            form->cmdUserName[button]->click();
        });
        watcher->start(10);
    }
    // Loads and shows the form, names a new user and waits for the human's turn.
    static void StartAsNewUser(FDovrin& form, const char* name) {
        ASSERT_TRUE(form.Form_Load());
        AnswerUserForm(0, name);
        modGlobal::glAnimSpeed = 0;
        form.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return form.game().mbUserTurn; }, 10000));
    }
};

}  // namespace

TEST_F(StartUpTest, ExitAtTheFirstUserFormEndsTheRunAndStillSavesTheSettings) {
    auto* form = new FDovrin;
    form->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<FDovrin> alive(form);
    ASSERT_TRUE(form->Form_Load());
    AnswerUserForm(1);
    form->show();  // the first activation follows
    EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }, 5000));  // the main form is gone
    const std::string settings = Settings();
    EXPECT_NE(settings.find("user_id=0\r\n"), std::string::npos);
    EXPECT_NE(settings.find("db_path=" + app.Path() + "\r\n"), std::string::npos);
    EXPECT_TRUE(responder.Boxes().empty());
}

// A new user's game; New Game starts it again, but not while the fanfare
// has locked the menus, their keys included, until the unload lifts the lock.
TEST_F(StartUpTest, ANewUserStartsAGameAndNewGameStartsItAgainUnlessTheMenusAreLocked) {
    FDovrin form;
    StartAsNewUser(form, "Newcomer");
    EXPECT_EQ(form.lblPlayer[3]->text().toStdString(), "Newcomer");
    EXPECT_EQ(form.game().miMoney3, 195);

    // New Game in a running hand: a fresh game with the money of a new game.
    form.game().miHandNo = 2;
    form.game().miLevel = 3;
    form.mnuFile_Click(0);
    EXPECT_EQ(form.game().miHandNo, 0);
    EXPECT_EQ(form.game().miLevel, 0);
    const Game& game = form.game();
    EXPECT_EQ(game.miMoney3, 195);  // the computers may have paid already, the human not
    EXPECT_EQ(game.miMoney0 + game.miMoney1 + game.miMoney2 + game.miMoney3 + game.miPot, 800);
    EXPECT_EQ(game.maCardsLeft[3], 13);

    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    const auto newGameKey = [&] { QTest::keyClick(form.windowHandle(), Qt::Key_N, Qt::ControlModifier); };
    modGlobal::SetMenusEnabled(false);
    for (QMenu* menu : {form.mnuFileH, form.mnuUserH, form.mnuOptionH, form.mnuHelpH})
        EXPECT_FALSE(menu->menuAction()->isEnabled());
    form.game().miHandNo = 2;
    newGameKey();
    EXPECT_EQ(form.game().miHandNo, 2);
    form.Form_QueryUnload();
    for (QMenu* menu : {form.mnuFileH, form.mnuUserH, form.mnuOptionH, form.mnuHelpH})
        EXPECT_TRUE(menu->menuAction()->isEnabled());
    newGameKey();
    EXPECT_EQ(form.game().miHandNo, 0);
}

TEST_F(StartUpTest, AVanishedDatabaseDirectorySwitchesToTheProgramsOwnFile) {
    SetDbPath(app.Path() + "/gone");
    FDovrin form;
    ASSERT_TRUE(form.Form_Load());
    ASSERT_EQ(responder.Boxes().size(), 1u);
    EXPECT_EQ(responder.Boxes()[0].title, "Database Path");
    EXPECT_EQ(modGlobal::gsDbPath, app.Path());
    AnswerUserForm(1);
    form.Form_Activate();
    EXPECT_NE(Settings().find("db_path=" + app.Path() + "\r\n"), std::string::npos);
}

// The database in use goes away while the program starts: the user form's
// load finds it gone, the program's own file takes over, and the user form
// comes once more.
TEST_F(StartUpTest, ADatabaseLostBeforeTheFirstUserFormFallsBackToTheProgramsFile) {
    TempDir elsewhere;
    std::filesystem::copy_file(app.Path() + "/Lantern.mdb", elsewhere.Path() + "/Lantern.mdb");
    SetDbPath(elsewhere.Path());
    FDovrin form;
    ASSERT_TRUE(form.Form_Load());
    EXPECT_EQ(modGlobal::gsDbPath, elsewhere.Path());
    std::filesystem::remove(elsewhere.Path() + "/Lantern.mdb");
    int userForms = 0;
    QTimer watcher;
    QObject::connect(&watcher, &QTimer::timeout, [&] {
        if (auto* userForm = qobject_cast<FUserName*>(QApplication::activeModalWidget())) {
            ++userForms;
            userForm->cmdUserName[1]->click();
        }
    });
    watcher.start(20);
    form.Form_Activate();
    EXPECT_EQ(userForms, 1);  // the first one unloaded itself before it could be seen
    EXPECT_EQ(modGlobal::gsDbPath, app.Path());
    EXPECT_FALSE(modGlobal::gbDbFailed);
    EXPECT_TRUE(responder.Boxes().empty());  // the switch is silent
    EXPECT_NE(Settings().find("db_path=" + app.Path() + "\r\n"), std::string::npos);
}

TEST_F(StartUpTest, ADamagedDatabaseEndsTheProgramAtTheFirstUserForm) {
    std::ofstream(app.Path() + "/Lantern.mdb", std::ios::binary | std::ios::trunc) << std::string(8192, 'x');
    const std::string before = Settings();
    FDovrin form;
    ASSERT_TRUE(form.Form_Load());
    EXPECT_THROW(form.Form_Activate(), platform::ProgramEnded);
    ASSERT_EQ(responder.Boxes().size(), 1u);
    EXPECT_NE(responder.Boxes()[0].text.find(": "), std::string::npos);  // number and description
    EXPECT_EQ(Settings(), before);  // an end at once saves nothing
}

TEST_F(StartUpTest, AMissingCardDeckEndsTheLoadWithAnEmptyMessage) {
    platform::SetCardDeckFile(QString::fromStdString(app.Path() + "/no-deck.svgz"));
    FDovrin form;
    EXPECT_THROW(form.Form_Load(), platform::ProgramEnded);
    platform::SetCardDeckFile({});
    ASSERT_EQ(responder.Boxes().size(), 1u);
    EXPECT_EQ(responder.Boxes()[0].text, "");
    EXPECT_EQ(responder.Boxes()[0].title, "Error Loading Program");
    EXPECT_EQ(responder.BeepCount(), 1);
}

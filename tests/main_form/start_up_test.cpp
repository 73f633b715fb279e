// The main form's start: loading from a program directory of delivered
// files, the first user form, leaving it, and a new game from the menu.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/msgbox.h"
#include "platform/runtime.h"
#include "runtime_temp_dir.h"
#include "storage/mod_global_db.h"
#include "table/f_dovrin.h"
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
            std::filesystem::copy_file(std::string(DOVRIN_PROGRAM_DIR) + "/" + name,
                                       app.Path() + "/" + name);
    }
    void TearDown() override {
        platform::SetAppPath(std::nullopt);
        modGlobal::SetChangeUserHook(nullptr);
        modGlobal::ResetGlobals();
    }
    std::string Settings() const {
        std::ifstream in(app.Path() + "/dovrin.ini", std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    // Presses a button of the user form once it shows.
    static void AnswerUserForm(int button) {
        QTimer::singleShot(50, [button] {
            auto* form = qobject_cast<FUserName*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            form->cmdUserName[button]->click();
        });
    }
};

}  // namespace

TEST_F(StartUpTest, ExitAtTheFirstUserFormEndsTheRunAndStillSavesTheSettings) {
    auto* form = new FDovrin;
    form->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<FDovrin> alive(form);
    ASSERT_TRUE(form->Form_Load());
    EXPECT_EQ(modGlobal::gsTitle, "Oakmere Software's LANTERN! DOVRIN v3.0");
    EXPECT_EQ(form->windowTitle().toStdString(),
              "Oakmere Software's LANTERN! DOVRIN v3.0 - Level 1 (1st Hand)");
    EXPECT_EQ(modGlobal::gsDbPath, app.Path());  // db_path=APPPATH
    AnswerUserForm(1);
    form->show();  // the first activation follows
    EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }, 5000));  // the main form is gone
    const std::string settings = Settings();
    EXPECT_NE(settings.find("user_id=0\r\n"), std::string::npos);
    EXPECT_NE(settings.find("db_path=" + app.Path() + "\r\n"), std::string::npos);
    EXPECT_TRUE(responder.Boxes().empty());
}

TEST_F(StartUpTest, ANewUserStartsAGameAndNewGameStartsItAgain) {
    FDovrin form;
    ASSERT_TRUE(form.Form_Load());
    QTimer::singleShot(50, [] {
        auto* userForm = qobject_cast<FUserName*>(QApplication::activeModalWidget());
        ASSERT_NE(userForm, nullptr);
        userForm->cboUser->setCurrentText(QStringLiteral("Newcomer"));
        userForm->cmdUserName[0]->click();
    });
    form.show();
    modGlobal::glAnimSpeed = 0;
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.game().mbUserTurn; }, 10000));
    EXPECT_EQ(modGlobal::gsUserName, "Newcomer");
    EXPECT_EQ(form.lblPlayer[3]->text().toStdString(), "Newcomer");
    EXPECT_TRUE(form.game().mbUserTurn);
    const int anted = form.game().miMoney3;
    EXPECT_EQ(anted, 195);

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
    EXPECT_EQ(form.windowTitle().toStdString(),
              "Oakmere Software's LANTERN! DOVRIN v3.0 - Level 1 (1st Hand)");
}

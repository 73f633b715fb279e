// Escape on the small forms: a form with a cancel button closes through it,
// the top ten list closes through its unload, and a form whose buttons alone
// answer stays open. The key goes to the control that has the focus, as a
// real key does, and reaches the form only when the control passes it on.
#include <QApplication>
#include <QPointer>
#include <QTest>

#include "shell/f_copy_icon.h"
#include "storage/storage_fixture.h"
#include "support/form_probe.h"
#include "support/recording_main_form.h"
#include "table/f_animate.h"
#include "table/f_game_over.h"
#include "table/f_top_ten.h"
#include "users/f_user_edit.h"
#include "users/f_user_name.h"
#include "users/f_user_stats.h"

using namespace modGlobal;

namespace {

// The main form with a celebration standing behind the list.
class CelebratingMainForm : public RecordingMainForm {
public:
    bool HighScoreVisible() const override { return highScore; }
    void HideHighScore() override { highScore = false; }
    void StopFanfareTune() override { ++tuneStops; }
    void SetTopMenusEnabled(bool enabled) override { menusEnabled = enabled; }

    bool highScore = true;
    int tuneStops = 0;
    bool menusEnabled = false;
};

class EscapeTest : public DeliveredDbTest {
protected:
    // Shows the form active, presses Escape where the focus is, and tells
    // whether the form is still open.
    static bool StaysOpenOnEscape(QDialog& form) {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        QCoreApplication::processEvents();  // the activation's own steps
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus && focus->window() == &form ? focus : &form, Qt::Key_Escape);
        return form.isVisible();
    }

    CelebratingMainForm mainForm_;
    SoundKeys sounds_;
};

TEST_F(EscapeTest, TheUserFormsCloseThroughTheirCancelButton) {
    Open()->Execute("INSERT INTO user VALUES (1, 'Ann', 'A1', 'A2', 'A3', 'Easy', 0, 0)");
    glLastUserId = 1;
    FUserName name;
    EXPECT_FALSE(StaysOpenOnEscape(name));
    // Cancel's own steps: the answer "X" and its sound.
    EXPECT_EQ(mainForm_.tag, "X");
    EXPECT_EQ(sounds_.keys, Strings{"EXITPROG"});

    FUserEdit edit;
    EXPECT_FALSE(StaysOpenOnEscape(edit));
    gsUserName = "Ann";
    FUserStats stats;
    EXPECT_FALSE(StaysOpenOnEscape(stats));
}

// The celebration behind the list ends as the list closes, however it closes.
TEST_F(EscapeTest, TheTopTenListClosesThroughItsUnload) {
    giTopTenRow = 99;
    FTopTen list;
    EXPECT_FALSE(StaysOpenOnEscape(list));
    EXPECT_FALSE(list.tmrTopTen.Fire());
    EXPECT_FALSE(mainForm_.highScore);
    EXPECT_EQ(mainForm_.tuneStops, 1);
    EXPECT_TRUE(mainForm_.menusEnabled);
}

// Escape must not stand for an answer: the end of a game would take it for
// "NO" and end the program; the speed and the desktop icon have no cancel.
TEST_F(EscapeTest, FormsThatOnlyTheirButtonsAnswerStayOpen) {
    mainForm_.money = {"180", "95", "250", "205"};
    FGameOver gameOver;
    EXPECT_TRUE(StaysOpenOnEscape(gameOver));
    EXPECT_EQ(mainForm_.tag, "");

    // It deletes itself when it closes.
    const QPointer<FAnimate> animate = new FAnimate;
    EXPECT_TRUE(StaysOpenOnEscape(*animate));
    delete animate.data();

    FCopyIcon copyIcon;
    EXPECT_TRUE(StaysOpenOnEscape(copyIcon));
}

}  // namespace

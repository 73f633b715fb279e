// The celebration of a high score: the balloons' lanes tick by tick, the
// stage they leave clean behind them, and the wait that the list ends.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMenu>
#include <QTimer>

#include "platform/display/card_library.h"
#include "platform/runtime/msgbox.h"
#include "shell/f_dovrin.h"
#include "sound/mod_global_music.h"
#include "table/f_top_ten.h"

namespace {

class HighScoreTest : public ::testing::Test {
protected:
    std::unique_ptr<FDovrin> form;
    platform::ScriptedResponder responder;  // the list finds no database here, and says so

    void SetUp() override {
        modGlobal::ResetGlobals();
        modGlobal::glRandomSeed = 12345;
        std::int32_t width = 0, height = 0;
        ASSERT_NE(platform::cdtInit(width, height), 0);
        form = std::make_unique<FDovrin>();
        modGlobal::goMidi = std::make_unique<CMidiFile>();  // music off, as after a failure
    }
    void Tick(int ticks) {
        for (int i = 0; i < ticks; ++i) ASSERT_TRUE(form->tmrSprites->Fire());
    }
    // The stage in lane 0's band of columns.
    QImage LaneZeroBand() const { return form->picHighScore->hDC()->copy(0, 0, 212, 456); }
};

TEST_F(HighScoreTest, LanesRiseInTurnAndAWipedLaneLeavesTheStageAsItWas) {
    form->tmrSprites->SetEnabled(true);
    const auto& lane = form->maSprites;

    Tick(1);  // the stage's picture is drawn; the lane starts below it
    const QImage stage = LaneZeroBand();
    EXPECT_NE(stage.pixel(100, 100), qRgb(0, 0, 0));
    EXPECT_TRUE(lane[0].Active);
    EXPECT_EQ(lane[0].Y, 500);
    EXPECT_GE(lane[0].X, 1);
    EXPECT_LE(lane[0].X, 134);
    Tick(6);
    EXPECT_FALSE(lane[1].Active);  // lane 0 at 470
    Tick(1);
    EXPECT_TRUE(lane[1].Active);   // lane 0 below 466
    EXPECT_EQ(lane[1].Y, 500);
    Tick(46);
    EXPECT_FALSE(lane[2].Active);  // lane 0 at 235
    Tick(1);
    EXPECT_TRUE(lane[2].Active);

    // Halfway up the figure stands on the stage; at -200 it is wiped, and the
    // next tick starts the lane again at the bottom with the next figure.
    Tick(30);
    EXPECT_NE(LaneZeroBand(), stage);
    Tick(141 - 85);
    EXPECT_EQ(lane[0].Y, -200);
    EXPECT_TRUE(lane[0].Fresh);
    EXPECT_EQ(LaneZeroBand(), stage);
    const std::int32_t firstX = lane[0].X;
    Tick(1);
    EXPECT_EQ(lane[0].Y, 500);
    EXPECT_EQ(lane[0].Kind, 1);
    EXPECT_FALSE(lane[0].Fresh);
    EXPECT_EQ(form->lblLeft->text().toInt(), lane[0].X + 78);
    EXPECT_NE(lane[0].X, firstX);
}

TEST_F(HighScoreTest, TheWaitEndsAtTheFifthTickAndTheListTakesTheStageDown) {
    // The timer's five ticks, as they would come during the wait.
    QTimer::singleShot(0, [this] {
        for (int i = 0; i < 5; ++i) form->tmrHighScore->Fire();
    });
    form->CelebrateHighScore();
    EXPECT_TRUE(form->picHighScore->isVisibleTo(form.get()));
    EXPECT_TRUE(form->tmrSprites->Enabled());
    EXPECT_FALSE(form->mnuFileH->isEnabled());
    EXPECT_FALSE(form->mbHighScoreDone);

    // The counter is never reset: a second celebration would wait for ever.
    form->tmrHighScore->Fire();
    EXPECT_EQ(form->miHighScoreTicks, 6);
    EXPECT_FALSE(form->mbHighScoreDone);

    modGlobal::giTopTenRow = 99;
    FTopTen topTen(form.get());
    QTimer::singleShot(0, &topTen, &QDialog::close);
    topTen.exec();
    EXPECT_FALSE(form->picHighScore->isVisibleTo(form.get()));
    EXPECT_FALSE(form->tmrSprites->Enabled());
    EXPECT_FALSE(form->tmrHighScore->Enabled());
    EXPECT_TRUE(form->mnuFileH->isEnabled());
}

}  // namespace

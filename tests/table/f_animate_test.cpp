#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/runtime.h"
#include "table/f_animate.h"

namespace {

class FAnimateTest : public ::testing::Test {
protected:
    void SetUp() override { modGlobal::ResetGlobals(); }

    static void ReleaseClosedForms() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

}  // namespace

TEST_F(FAnimateTest, DesignOfTheForm) {
    modGlobal::glAnimSpeed = 80000;
    FAnimate form;
    EXPECT_EQ(form.windowTitle(), "Animation Speed");
    EXPECT_EQ(form.lblAnim[0]->text(),
              "Use the scollbar below to adjust the speed your opponents cards are played.");
    EXPECT_EQ(form.lblAnim[1]->text(), "Slowest");
    EXPECT_EQ(form.lblAnim[2]->text(), "Fastest");
    EXPECT_EQ(form.lblAnim[3]->text(), "Normal");
    EXPECT_EQ(form.cmdAnim[0]->text(), "&Reset");
    EXPECT_EQ(form.cmdAnim[1]->text(), "&OK");
    EXPECT_EQ(form.size(), QSize(300, 152));
    EXPECT_EQ(form.scrAnim->singleStep(), 5);
}

TEST_F(FAnimateTest, BarShowsTheSpeedInThousandsTruncated) {
    modGlobal::glAnimSpeed = 62999;
    FAnimate form;
    EXPECT_EQ(form.scrAnim->value(), 62);
}

TEST_F(FAnimateTest, SlowestStandsAtTheLeft) {
    modGlobal::glAnimSpeed = 40000;
    FAnimate form;
    QKeyEvent left(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    QCoreApplication::sendEvent(form.scrAnim, &left);
    EXPECT_EQ(form.scrAnim->value(), 45);
    QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QCoreApplication::sendEvent(form.scrAnim, &right);
    QCoreApplication::sendEvent(form.scrAnim, &right);
    EXPECT_EQ(form.scrAnim->value(), 35);
}

TEST_F(FAnimateTest, ResetMovesOnlyTheBar) {
    modGlobal::glAnimSpeed = 80000;
    QPointer<FAnimate> form = new FAnimate;
    form->show();
    form->scrAnim->setValue(10);
    form->cmdAnim[0]->click();
    ReleaseClosedForms();
    ASSERT_FALSE(form.isNull());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->scrAnim->value(), 40);
    EXPECT_EQ(modGlobal::glAnimSpeed, 80000);
    delete form;
}

TEST_F(FAnimateTest, OkWritesTheSpeedAndReleasesTheForm) {
    modGlobal::glAnimSpeed = 80000;
    QPointer<FAnimate> form = new FAnimate;
    form->show();
    form->scrAnim->setValue(15);
    EXPECT_EQ(modGlobal::glAnimSpeed, 80000) << "moving the bar changes nothing yet";
    form->cmdAnim[1]->click();
    ReleaseClosedForms();
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(modGlobal::glAnimSpeed, 15000);
}

TEST_F(FAnimateTest, SpeedOutsideTheBarIsRefused) {
    for (std::int32_t speed : {81000, -1000}) {
        modGlobal::glAnimSpeed = speed;
        try {
            FAnimate form;
            ADD_FAILURE() << speed << " was accepted";
        } catch (const platform::RuntimeError& error) {
            EXPECT_EQ(error.Number(), 380);
            EXPECT_EQ(error.Description(), "Invalid property value");
        }
    }
    modGlobal::glAnimSpeed = 80999;  // truncates to 80, still on the bar
    FAnimate form;
    EXPECT_EQ(form.scrAnim->value(), 80);
}

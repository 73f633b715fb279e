#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/runtime/runtime.h"
#include "table/f_animate.h"

namespace {

class FAnimateTest : public ::testing::Test {
protected:
    void SetUp() override { modGlobal::ResetGlobals(); }

    static void PressKey(QScrollBar* bar, Qt::Key key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &press);
    }
};

TEST_F(FAnimateTest, TheBarShowsTheSpeedInThousandsTruncatedWithTheSlowestAtTheLeft) {
    modGlobal::glAnimSpeed = 42999;
    FAnimate form;
    EXPECT_EQ(form.windowTitle(), "Animation Speed");
    EXPECT_EQ(form.lblAnim[0]->text(), "Use the scollbar below to adjust the speed your opponents cards are played.");
    EXPECT_EQ(form.lblAnim[1]->text(), "Slowest");
    EXPECT_EQ(form.lblAnim[2]->text(), "Fastest");
    EXPECT_EQ(form.lblAnim[3]->text(), "Normal");
    EXPECT_EQ(form.cmdAnim[0]->text(), "&Reset");
    EXPECT_EQ(form.cmdAnim[1]->text(), "&OK");
    EXPECT_EQ(form.scrAnim->value(), 42);
    PressKey(form.scrAnim, Qt::Key_Left);
    EXPECT_EQ(form.scrAnim->value(), 47);
    PressKey(form.scrAnim, Qt::Key_Right);
    PressKey(form.scrAnim, Qt::Key_Right);
    EXPECT_EQ(form.scrAnim->value(), 37);
}

TEST_F(FAnimateTest, ResetMovesOnlyTheBarAndOkWritesTheSpeedAndReleasesTheForm) {
    modGlobal::glAnimSpeed = 80000;
    QPointer<FAnimate> form = new FAnimate;
    form->show();
    form->scrAnim->setValue(10);
    form->cmdAnim[0]->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(form.isNull());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->scrAnim->value(), 40);
    EXPECT_EQ(modGlobal::glAnimSpeed, 80000);

    form->scrAnim->setValue(15);
    form->cmdAnim[1]->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

}  // namespace

#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/runtime/runtime.h"
#include "table/f_animate.h"

namespace {

// The value of the bar is higher toward the left, "Slowest"; each move
// starts with the thumb in the middle.
TEST(FAnimate, ASpeedOffTheBarIsRefusedTheBarMovesTheWayTheUserPointsResetMovesOnlyItAndOkWritesTheSpeed) {
    for (std::int32_t speed : {81000, -1000}) {
        modGlobal::glAnimSpeed = speed;
        EXPECT_THROW(FAnimate{}, platform::RuntimeError) << speed;
    }
    modGlobal::glAnimSpeed = 42999;
    QPointer<FAnimate> form = new FAnimate;
    form->show();
    QScrollBar* bar = form->scrAnim;
    EXPECT_EQ(bar->value(), 42);
    const int y = bar->height() / 2, width = bar->width();
    for (const auto& [x, value] : {std::pair{2, 45}, {width / 4, 45}, {3 * width / 4, 35}, {width - 3, 35}}) {
        bar->setValue(40);
        QTest::mouseClick(bar, Qt::LeftButton, {}, {x, y});
        EXPECT_EQ(bar->value(), value) << "click at " << x << " of " << width;
    }
    for (const auto& [key, value] :
         {std::pair{Qt::Key_Left, 45}, {Qt::Key_Right, 35}, {Qt::Key_Home, 80}, {Qt::Key_End, 0}}) {
        bar->setValue(40);
        QTest::keyClick(bar, key);
        EXPECT_EQ(bar->value(), value) << QKeySequence(key).toString().toStdString();
    }

    bar->setValue(10);
    form->cmdAnim[0]->click();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bar->value(), 40);
    EXPECT_EQ(modGlobal::glAnimSpeed, 42999);

    bar->setValue(15);
    form->cmdAnim[1]->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
    EXPECT_EQ(modGlobal::glAnimSpeed, 15000);
}

}  // namespace

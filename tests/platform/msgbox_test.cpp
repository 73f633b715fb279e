#include "platform/runtime/msgbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QStyle>
#include <QTimer>

#include <tuple>

#include "platform/display/pictures.h"
#include "platform/display/zoom.h"

using namespace platform;

namespace {

using Seen = std::tuple<int, QMessageBox::Icon, QString, int>;

// Shows a box of the desktop and presses `button` in it; gives the answer and
// what the box showed: icon, text and number of buttons.
Seen Press(QMessageBox::StandardButton button, const char* text, int style) {
    Seen seen;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), "Title");
        seen = {0, box->icon(), box->text(), static_cast<int>(box->buttons().size())};
        box->button(button)->click();
    });
    std::get<0>(seen) = MsgBox(text, style, "Title");
    return seen;
}

TEST(MsgBox, ShowsTheStylesIconAndButtonsAndGivesTheAnswer) {
    EXPECT_EQ(Press(QMessageBox::No, "Delete\r\nthis user?", kQuestion + kYesNo),
              Seen(kAnswerNo, QMessageBox::Question, "Delete\nthis user?", 2));
    EXPECT_EQ(Press(QMessageBox::Yes, "Again?", kQuestion + kYesNo), Seen(kAnswerYes, QMessageBox::Question, "Again?", 2));
    EXPECT_EQ(Press(QMessageBox::Ok, "Overflow", kExclamation), Seen(kAnswerOK, QMessageBox::Warning, "Overflow", 1));
    EXPECT_EQ(Press(QMessageBox::Ok, "Copied.", kInformation), Seen(kAnswerOK, QMessageBox::Information, "Copied.", 1));
}

// Above 100 % a box shows the art's drawing of its icon at its own pixels (the
// desktop's is a bitmap of 32), and a change of zoom while it is open follows.
TEST(MsgBox, AboveOneHundredPercentTheIconIsTheArtsDrawingAndFollowsTheZoom) {
    const struct ZoomBack { ~ZoomBack() { ChangeZoom(100); } } zoomBack;
    ChangeZoom(200);
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        const int size = box->style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, box);
        EXPECT_EQ(box->iconPixmap().devicePixelRatio(), 2.0);
        EXPECT_EQ(box->iconPixmap().toImage(),
                  LoadArtPicture(QStringLiteral("box_question"), QSize(size, size)).toImage());
        ChangeZoom(100);
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(MsgBox("Sure?", kQuestion + kYesNo, "Title"), kAnswerYes);
}

}  // namespace

#include "platform/runtime/msgbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <tuple>

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

}  // namespace

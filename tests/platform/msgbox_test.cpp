#include "platform/runtime/msgbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

using namespace platform;

namespace {

TEST(ScriptedResponder, RecordsInOrderAnswersFromTheScriptAndTurnsTheEndIntoAnException) {
    ScriptedResponder responder;
    responder.Answer(kAnswerNo);
    Beep();
    EXPECT_EQ(MsgBox("Sure?", kQuestion + kYesNo, "Ask"), kAnswerNo);
    EXPECT_EQ(MsgBox("Done", kExclamation, "Tell"), kAnswerOK);

    const auto& events = responder.Events();
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0].kind, ScriptedResponder::Event::Beep);
    EXPECT_EQ(events[1].kind, ScriptedResponder::Event::Box);
    EXPECT_EQ(events[1].text, "Sure?");
    EXPECT_EQ(events[1].title, "Ask");
    EXPECT_EQ(events[1].style, 36);
    EXPECT_EQ(events[2].style, 48);
    EXPECT_EQ(responder.BeepCount(), 1);
    EXPECT_EQ(responder.Boxes().size(), 2u);
    EXPECT_FALSE(responder.Ended());
    EXPECT_THROW(MsgBox("Sure?", kQuestion + kYesNo, "Ask"), std::logic_error);  // no answer left
    EXPECT_THROW(EndProgramNow(), ProgramEnded);
    EXPECT_TRUE(responder.Ended());
}

// Answers the next modal message box by pressing `button`, noting what it showed.
struct BoxSeen {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title, text;
    int buttons = 0;
};

void PressWhenShown(QMessageBox::StandardButton button, BoxSeen& seen) {
    QTimer::singleShot(0, [button, &seen] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        seen = {box->icon(), box->windowTitle(), box->text(), static_cast<int>(box->buttons().size())};
        box->button(button)->click();
    });
}

TEST(MsgBox, ShowsTheStylesIconAndButtonsAndGivesTheAnswer) {
    BoxSeen seen;
    PressWhenShown(QMessageBox::No, seen);
    EXPECT_EQ(MsgBox("Delete\r\nthis user?", kQuestion + kYesNo, "Delete User"), kAnswerNo);
    EXPECT_EQ(seen.icon, QMessageBox::Question);
    EXPECT_EQ(seen.title, "Delete User");
    EXPECT_EQ(seen.text, "Delete\nthis user?");
    EXPECT_EQ(seen.buttons, 2);
    PressWhenShown(QMessageBox::Yes, seen);
    EXPECT_EQ(MsgBox("Again?", kQuestion + kYesNo, "Ask"), kAnswerYes);

    PressWhenShown(QMessageBox::Ok, seen);
    EXPECT_EQ(MsgBox("Overflow", kExclamation, "Ini File"), kAnswerOK);
    EXPECT_EQ(seen.icon, QMessageBox::Warning);
    EXPECT_EQ(seen.buttons, 1);
    PressWhenShown(QMessageBox::Ok, seen);
    MsgBox("Copied.", kInformation, "Done");
    EXPECT_EQ(seen.icon, QMessageBox::Information);
}

}  // namespace

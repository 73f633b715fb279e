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

using EscapeTest = DeliveredDbTest;

// Each form is shown active and gets Escape where its focus is. The unload
// alone stops the list's timer. Escape must not stand for an answer: the end
// of a game would take it for "NO" and end the program; the speed and the
// desktop icon have no cancel.
TEST_F(EscapeTest, FormsWithACancelOrAnUnloadCloseAndThoseThatOnlyTheirButtonsAnswerStayOpen) {
    RecordingMainForm mainForm;
    Open()->Execute("INSERT INTO user VALUES (1, 'Ann', 'A1', 'A2', 'A3', 'Easy', 0, 0)");
    glLastUserId = 1;
    gsUserName = "Ann";
    giTopTenRow = 99;
    mainForm.money = {"180", "95", "250", "205"};
    FUserName name;
    FUserEdit edit;
    FUserStats stats;
    FTopTen list;
    FGameOver gameOver;
    const QPointer<FAnimate> animate = new FAnimate;  // it deletes itself when it closes
    FCopyIcon copyIcon;
    for (QDialog* form :
         std::initializer_list<QDialog*>{&name, &edit, &stats, &list, &gameOver, animate.data(), &copyIcon}) {
        ShowActive(*form);
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus && focus->window() == form ? focus : form, Qt::Key_Escape);
        const bool answersOnlyByButtons = form == &gameOver || form == animate || form == &copyIcon;
        EXPECT_EQ(form->isVisible(), answersOnlyByButtons) << form->windowTitle().toStdString();
    }
    EXPECT_FALSE(list.tmrTopTen.Fire());
    EXPECT_EQ(mainForm.tag, "X");  // Cancel's answer, which the end of the game left alone
    delete animate.data();
}

}  // namespace

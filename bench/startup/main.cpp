// Times the two waits of a new user's start, in the program's own process:
// from main() until the user form is painted, and from its OK until the first
// paint of the table that shows the dealt hand. Run it on a real display
// (Xvfb) with a program directory of delivered files as its argument.
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTimer>

#include "bench_program.h"
#include "shell/f_dovrin.h"
#include "users/f_user_name.h"

namespace {

using Clock = std::chrono::steady_clock;

double MsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Watches the paints: the user form's first, then the table's first with a hand.
class PaintWatch : public QObject {
public:
    PaintWatch(FDovrin& form, Clock::time_point start) : form_(form), start_(start) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        if (!okPressed_) {
            auto* userForm = qobject_cast<FUserName*>(watched);
            if (userForm && !userFormSeen_) {
                userFormSeen_ = true;
                std::printf("start to user form painted: %.1f ms\n", MsSince(start_));
                QTimer::singleShot(0, userForm, [this, userForm] { PressOk(*userForm); });
            }
        } else if (watched == form_.centralWidget() && form_.game().maCardsLeft[3] == 13) {
            std::printf("OK to first painted hand: %.1f ms\n", MsSince(ok_));
            std::fflush(stdout);
            std::_Exit(0);  // the game would go on; nothing else is measured
        }
        return false;
    }

private:
    void PressOk(FUserName& userForm) {
        userForm.cboUser->setCurrentText(QStringLiteral("Bench"));
        okPressed_ = true;
        ok_ = Clock::now();
        userForm.cmdUserName[0]->click();
    }

    FDovrin& form_;
    Clock::time_point start_;
    Clock::time_point ok_;
    bool userFormSeen_ = false;
    bool okPressed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    const auto start = Clock::now();
    if (!UseProgramDirectory(argc, argv)) return 2;
    QApplication app(argc, argv);
    auto* form = new FDovrin;
    PaintWatch watch(*form, start);
    app.installEventFilter(&watch);
    form->Form_Load();
    form->show();
    return QApplication::exec();
}

// Times the two waits of a new user's start, in the program's own process:
// from main() until the user form is painted, and from its OK until the first
// paint of the table that shows the dealt hand. Run it on a real display
// (Xvfb) with a program directory of delivered files as its argument; then
// "--zoom 150" (or fit) starts at that zoom, and "--changes N" times N live
// changes of zoom once the hand shows, each from Ctrl+Plus or Ctrl+Minus
// until the table is painted at the new size.
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include "bench_program.h"
#include "platform/display/zoom.h"
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
    PaintWatch(FDovrin& form, Clock::time_point start, int changes)
        : form_(form), start_(start), changesLeft_(changes) {}

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
        } else if (watched == form_.centralWidget() && form_.game().maCardsLeft[3] == 13 && !handSeen_) {
            handSeen_ = true;
            std::printf("OK to first painted hand: %.1f ms\n", MsSince(ok_));
            WhenUsersTurn();
        } else if (watched == form_.centralWidget() && handSeen_ && platform::ZoomPercent() == awaited_) {
            std::printf("zoom key to the table painted at %d %%: %.1f ms\n", awaited_, MsSince(key_));
            awaited_ = 0;
            WhenUsersTurn();
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

    // The zoom is changed while the table waits for the user: during the
    // computers' flights a change waits for their end.
    void WhenUsersTurn() {
        QTimer::singleShot(10, this, [this] {
            if (form_.game().mbUserTurn)
                NextChange();
            else
                WhenUsersTurn();
        });
    }

    // Up a step, or down one where the screen has no room for more.
    void NextChange() {
        if (changesLeft_-- <= 0) {
            std::fflush(stdout);
            std::_Exit(0);  // the game would go on; nothing else is measured
        }
        const int before = platform::ZoomPercent();
        key_ = Clock::now();
        QKeyEvent plus(QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier);
        QApplication::sendEvent(&form_, &plus);
        if (platform::ZoomPercent() == before) {
            key_ = Clock::now();
            QKeyEvent minus(QEvent::KeyPress, Qt::Key_Minus, Qt::ControlModifier);
            QApplication::sendEvent(&form_, &minus);
        }
        awaited_ = platform::ZoomPercent();
    }

    FDovrin& form_;
    Clock::time_point start_;
    Clock::time_point ok_;
    Clock::time_point key_;
    bool userFormSeen_ = false;
    bool okPressed_ = false;
    bool handSeen_ = false;
    int changesLeft_;
    int awaited_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const auto start = Clock::now();
    if (!UseProgramDirectory(argc, argv)) return 2;
    QApplication app(argc, argv);
    QString error;
    platform::StartZoom(platform::ZoomArgument(QApplication::arguments(), error).value_or(platform::ZoomChoice{false, 100}),
                        FDovrin::DesignSize());
    const QStringList arguments = QApplication::arguments();
    const int changes = arguments.value(arguments.indexOf(QStringLiteral("--changes")) + 1).toInt();
    auto* form = new FDovrin;
    platform::InstallZoomKeys(*form);
    PaintWatch watch(*form, start, changes);
    app.installEventFilter(&watch);
    form->Form_Load();
    form->show();
    return QApplication::exec();
}

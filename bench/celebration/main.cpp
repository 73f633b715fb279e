// Times the fanfare of a high score on the real main form, in the program's
// own process: one tick of the balloons with all three lanes rising (the
// handler alone, and with the paint of the stage it asks for), then the
// processor use of a whole celebration with its tune. Run it on a real
// display (Xvfb) with a program directory of delivered files as its argument,
// and `--zoom 200` after it for another zoom than 100 %.
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTimer>

#include "bench_program.h"
#include "bench_timing.h"
#include "platform/display/picture_box.h"
#include "platform/display/pictures.h"
#include "platform/display/zoom.h"
#include "shell/f_dovrin.h"
#include "sound/mod_global_music.h"
#include "users/f_user_name.h"

namespace {

using Clock = std::chrono::steady_clock;

void Report(const char* what, int runs, const std::function<void()>& run) {
    const Spread spread = SpreadOf(TimeRuns(runs, run));
    std::printf("%-44s median %6.1f us   99th %6.1f us   max %6.1f us   (%d ticks)\n", what, spread.median, spread.p99,
                spread.worst, runs);
}

void Measure(FDovrin& form) {
    std::printf("zoom %d %%, pixel ratio %.2f, the stage's %.0f\n", platform::ZoomPercent(),
                platform::DisplayPixelRatio(), platform::BlitPixelRatio());
    form.picHighScore->show();
    form.picHighScore->raise();
    for (int tick = 0; tick < 60; ++tick) form.tmrSprites_Timer();  // until the third lane rises
    QApplication::processEvents();
    Report("one tick, three lanes (handler)", 3000, [&] { form.tmrSprites_Timer(); });
    Report("one tick, three lanes, stage painted", 1000, [&] {
        form.tmrSprites_Timer();
        form.picHighScore->repaint();
    });
    form.picHighScore->hide();

    const auto wallStart = Clock::now();
    const double processStart = ProcessSeconds();
    form.CelebrateHighScore();
    const double wall = std::chrono::duration<double>(Clock::now() - wallStart).count();
    std::printf("whole celebration: %.1f s, processor %.2f %% of one core (music %s)\n", wall,
                100 * (ProcessSeconds() - processStart) / wall,
                modGlobal::goMidi && modGlobal::goMidi->Enabled() ? "on" : "off");
    std::fflush(stdout);
    std::_Exit(0);
}

// Names a user on the user form, then measures once the dealt hand is painted.
class Driver : public QObject {
public:
    explicit Driver(FDovrin& form) : form_(form) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        if (auto* userForm = qobject_cast<FUserName*>(watched); userForm && !named_) {
            named_ = true;
            QTimer::singleShot(0, userForm, [userForm] {
                userForm->cboUser->setCurrentText(QStringLiteral("Bench"));
                userForm->cmdUserName[0]->click();
            });
        } else if (named_ && !measuring_ && watched == form_.centralWidget() && form_.game().maCardsLeft[3] == 13) {
            measuring_ = true;
            QTimer::singleShot(0, &form_, [this] { Measure(form_); });
        }
        return false;
    }

private:
    FDovrin& form_;
    bool named_ = false;
    bool measuring_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    if (!UseProgramDirectory(argc, argv)) return 2;
    QApplication app(argc, argv);
    QString error;
    const auto zoom = platform::ZoomArgument(QCoreApplication::arguments(), error);
    if (!error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 2;
    }
    platform::StartZoom(zoom.value_or(platform::ZoomChoice{false, 100}), FDovrin::DesignSize());
    auto* form = new FDovrin;
    Driver driver(*form);
    app.installEventFilter(&driver);
    form->Form_Load();
    form->show();
    return QApplication::exec();
}

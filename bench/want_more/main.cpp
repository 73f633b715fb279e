// Times the want-more scene on a shown form, in the program's own process.
// First the three scene timers are driven by hand in their real proportion
// (one platform tick of 15.625 ms: tmrUFO every tick, smTimer every second,
// tmrAnim every fifth) over two whole rounds of the script, timing each tick
// with the handlers alone and with the paint of the stage they ask for.
// Then the processor use while a new form plays by itself, tune and
// penguins' sound included. Run it on a real display (Xvfb) with a program
// directory of delivered files as its argument.
#include <cstdio>
#include <vector>

#include <QApplication>
#include <QTimer>

#include "bench_program.h"
#include "bench_timing.h"
#include "engine/mod_global.h"
#include "screens/f_want_more.h"
#include "sound/mod_global_music.h"

namespace {

// One platform tick of the scene: the timers that are due and enabled.
void Tick(FWantMore& form, long tick) {
    if (form.tmrUFO->Enabled()) form.tmrUFO_Timer();
    if (tick % 2 == 0 && form.smTimer->Enabled()) form.smTimer_Timer();
    if (tick % 5 == 0 && form.tmrAnim->Enabled()) form.tmrAnim_Timer();
}

void TimeTicks(const char* what, bool paint) {
    FWantMore form;
    form.show();
    QApplication::processEvents();
    for (platform::PlatformTimer* timer : {form.tmrUFO, form.smTimer, form.tmrAnim, form.tmrMidi}) timer->SetEnabled(false);
    form.smTimer->SetEnabled(true);
    form.tmrAnim->SetEnabled(true);
    std::vector<double> times;
    int rounds = 0;
    bool inScript = false;
    for (long tick = 0; rounds < 2 && tick < 200000; ++tick) {
        times.push_back(TimeRuns(1, [&] {
            Tick(form, tick);
            if (paint) form.picForm->repaint();
        })[0]);
        if (inScript && !form.tmrUFO->Enabled()) ++rounds;
        inScript = form.tmrUFO->Enabled();
    }
    const Spread spread = SpreadOf(times);
    std::printf("%-40s median %6.1f us   99.9th %6.1f us   max %6.1f us   (%zu ticks)\n", what, spread.median,
                spread.p999, spread.worst, times.size());
    form.close();
}

}  // namespace

int main(int argc, char** argv) {
    if (!UseProgramDirectory(argc, argv)) return 2;
    QApplication app(argc, argv);
    TimeTicks("one tick of the scene (handlers)", false);
    TimeTicks("one tick of the scene, stage painted", true);

    modGlobal::gbSoundOn = true;
    modGlobal::goMidi = std::make_unique<CMidiFile>();
    modGlobal::goMidi->SetEnabled(true);
    FWantMore form;
    constexpr int kSeconds = 20;
    QTimer::singleShot(kSeconds * 1000, &form, &QDialog::close);
    const double processStart = ProcessSeconds();
    form.exec();
    std::printf("the scene playing by itself for %d s: processor %.2f %% of one core (music %s)\n", kSeconds,
                100 * (ProcessSeconds() - processStart) / kSeconds, modGlobal::goMidi->Enabled() ? "on" : "off");
    return 0;
}

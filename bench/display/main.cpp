// Times the table's drawing: a full redraw of the table and one position of
// a card flight, on a shown 642 x 446 form. Run it on the offscreen platform
// (QT_QPA_PLATFORM=offscreen) or on a real display; `--zoom 200` draws at
// that zoom (default 100).
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include "bench_timing.h"
#include "engine/cards.h"
#include "platform/display/card_library.h"
#include "platform/display/counting_wait.h"
#include "platform/display/form_surface.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "platform/display/zoom.h"

namespace {


class TableForm : public QWidget {
public:
    TableForm() : surface(this, QSize(642, 446), QColor(212, 208, 200)) { setFixedSize(642, 446); }
    platform::FormSurface surface;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        QPainter painter(this);
        surface.Paint(painter, event->rect());
    }
};

void FullRedraw(platform::FormSurface& surface) {
    using platform::TwipsToPixels;
    surface.Cls();
    for (int card = 51; card >= 0; --card)
        platform::cdtDraw(surface, TwipsToPixels(GetCardX(card)), TwipsToPixels(GetCardY(card)), card, 0, 0);
    const int handLeft = 9750 / 2 - (12 * kHandSpacingTwips + kCardWidthTwips) / 2;
    for (int i = 0; i < 13; ++i)
        platform::cdtDraw(surface, TwipsToPixels(handLeft + i * kHandSpacingTwips),
                          TwipsToPixels(kHandTopTwips), i * 4, 0, 0);
}

// Median and mean of repeated runs, in microseconds.
void Report(const char* what, int runs, const std::function<void()>& run) {
    const std::vector<double> times = TimeRuns(runs, run);
    double sum = 0;
    for (double t : times) sum += t;
    std::printf("%-52s median %8.1f us   mean %8.1f us   (%d runs)\n", what, SpreadOf(times).median, sum / runs, runs);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QString error;
    const auto zoom = platform::ZoomArgument(QCoreApplication::arguments(), error);
    if (!error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 2;
    }
    platform::StartZoom(zoom.value_or(platform::ZoomChoice{false, 100}), QSize(642, 446));
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (!platform::cdtInit(width, height)) {
        std::fprintf(stderr, "the card deck can't be loaded\n");
        return 1;
    }
    TableForm form;
    form.surface.SetPicture(platform::ResPicturePath(100, platform::vbResBitmap));
    form.show();
    QApplication::processEvents();
    std::printf("platform %s, zoom %d %%, pixel ratio %.2f\n", qPrintable(QGuiApplication::platformName()),
                platform::ZoomPercent(), platform::DisplayPixelRatio());

    Report("full redraw (Cls, 52 + 13 cards)", 500, [&] { FullRedraw(form.surface); });
    Report("full redraw and the repaint that shows it", 500, [&] {
        FullRedraw(form.surface);
        form.repaint();
    });

    form.surface.SetAutoRedraw(false);
    int x = 0;
    const int paintsBefore = form.paints;
    Report("flight position (wait 0, draw, synchronous repaint)", 2000, [&] {
        platform::CountingWait(0);
        platform::cdtDraw(form.surface, x, 208, 2, 0, 0);
        x = (x + 5) % 432;
    });
    std::printf("repaints during the flight positions: %d\n", form.paints - paintsBefore);
    platform::cdtTerm();
    return 0;
}

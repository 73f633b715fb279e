// The zoom a user chooses: the steps, the one that fits the screen, and where
// the choice is kept. The program's places and sizes stay those of the design
// (its logical pixels); the zoom only says how large they reach the screen.
#pragma once

#include <array>
#include <optional>

#include <QSize>
#include <QString>
#include <QStringList>

namespace platform {

inline constexpr std::array<int, 7> kZoomSteps = {100, 125, 150, 175, 200, 250, 300};

// A window that fits the screen by default takes at most this share of the
// available width and height.
inline constexpr double kFitShare = 0.7;

// The largest step at which a window of client logical pixels, with a frame
// of frame screen pixels around it, lies within room screen pixels; the
// smallest step when none does.
int LargestZoomStepWithin(QSizeF room, QSize client, QSize frame);

// The step that fits: the window within kFitShare of the available area.
int FitZoomStep(QSizeF available, QSize client, QSize frame);

// The next step up or down from percent; percent itself at either end.
int NextZoomStep(int percent);
int PreviousZoomStep(int percent);

// "fit", or one of the steps in percent.
struct ZoomChoice {
    bool fit = true;
    int percent = 100;
    bool operator==(const ZoomChoice& other) const { return fit == other.fit && (fit || percent == other.percent); }
};

// "fit", or a step written as "150" or "150%"; nothing for anything else.
std::optional<ZoomChoice> ParseZoomChoice(const QString& text);
QString ZoomChoiceText(const ZoomChoice& choice);

// The user's own file, $XDG_CONFIG_HOME/lantern-dovrin/lantern-dovrin.conf.
QString ZoomConfigPath();
// What the file keeps; fit when there is nothing or nothing that reads.
ZoomChoice ReadZoomChoice();
void WriteZoomChoice(const ZoomChoice& choice);

// The zoom for this run from the command line: "--zoom 150", "--zoom=fit".
// Nothing when the option isn't given; error names a value that doesn't read
// (the run then fits).
std::optional<ZoomChoice> ZoomArgument(const QStringList& arguments, QString& error);

}  // namespace platform

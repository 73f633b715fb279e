// The zoom in force, and its changes while the program runs. Qt's own
// scale factor for each screen carries it: every form, message box, font
// and picture of the program reaches the screen that much larger, while the
// program keeps reading and writing the design's places and sizes. What the
// program draws itself at the device pixels (surfaces, pictures, cards)
// follows a change through a ZoomFollower.
#pragma once

#include <QSize>

#include "platform/display/zoom_choice.h"

class QWidget;

namespace platform {

// The zoom in force in percent: one of kZoomSteps.
int ZoomPercent();

// Settles the zoom before the program's first window exists: the choice's
// step, or for fit the step that fits a main window of client logical pixels
// (its frame estimated) on the primary screen.
void StartZoom(const ZoomChoice& choice, QSize client);

// Changes the zoom at once; every window keeps its centre and its logical
// size, and the followers draw again at the new device pixels.
void ChangeZoom(int percent);

// The changes the keys ask for: a step larger (as far as the main window
// still fits the screen), a step smaller, back to fit. Each is kept as the
// user's choice. While a ZoomHold stands, the change waits for its end.
enum class ZoomRequest { Larger, Smaller, Fit };
void RequestZoom(ZoomRequest request);

// Ctrl+Plus (and Ctrl+=), Ctrl+Minus and Ctrl+0, in every form, ask for the
// zoom; the main window is the one that fit and growth are measured by.
void InstallZoomKeys(QWidget& mainWindow);

// While one stands, a change of zoom waits: the table is drawing straight on
// the screen (a flight), or a celebration runs.
class ZoomHold {
public:
    ZoomHold();
    ~ZoomHold();
    ZoomHold(const ZoomHold&) = delete;
    ZoomHold& operator=(const ZoomHold&) = delete;
};

// Something drawn at the device pixels of the zoom, to be drawn again after a
// change. Surfaces follow first, then the forms that draw on them.
class ZoomFollower {
public:
    enum class Stage { Surface, Form };
    explicit ZoomFollower(Stage stage);
    virtual ~ZoomFollower();
    ZoomFollower(const ZoomFollower&) = delete;
    ZoomFollower& operator=(const ZoomFollower&) = delete;

    virtual void ZoomChanged() = 0;

private:
    Stage stage_;
};

}  // namespace platform

#include "platform/display/zoom.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <QApplication>
#include <QBackingStore>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <private/qhighdpiscaling_p.h>

#include "platform/display/pictures.h"

namespace platform {

namespace {

// A window manager's frame before the first window shows one: a title bar
// and thin borders, in screen pixels.
constexpr QSize kFrameEstimate{8, 32};

struct ZoomState {
    int percent = 100;
    int holds = 0;
    std::optional<int> pending;
    QPointer<QWidget> mainWindow;
    std::vector<ZoomFollower*> surfaces;
    std::vector<ZoomFollower*> forms;
};

ZoomState& State() {
    static ZoomState state;
    return state;
}

qreal Factor(int percent) { return percent / 100.0; }

// Qt's factor for each screen; a QT_SCALE_FACTOR of the user's own stays
// Qt's global factor and multiplies with it.
void SetScreenFactors(int percent) {
    for (QScreen* screen : QGuiApplication::screens()) QHighDpiScaling::setScreenFactor(screen, Factor(percent));
}

// The screen's area for windows and a window's frame, in the screen's
// pixels before the zoom.
QSizeF UnzoomedAvailable(const QScreen& screen) {
    return QSizeF(screen.availableGeometry().size()) * Factor(State().percent);
}

QSize UnzoomedFrame(const QWidget& window) {
    const QSize frame = window.frameGeometry().size() - window.size();
    if (frame.isEmpty()) return kFrameEstimate;
    return (QSizeF(frame) * Factor(State().percent)).toSize();
}

QScreen* ScreenOf(const QWidget& window) {
    return window.screen() ? window.screen() : QGuiApplication::primaryScreen();
}

// A point in the logical pixels of a zoom, as the screen's own pixels: the
// screen's top left stays where it is whatever the factor.
QPointF ToScreenPixels(QPointF logical, const QScreen& screen, int percent) {
    const QPointF origin = screen.geometry().topLeft();
    return origin + (logical - origin) * Factor(percent);
}

QPointF FromScreenPixels(QPointF native, const QScreen& screen, int percent) {
    const QPointF origin = screen.geometry().topLeft();
    return origin + (native - origin) / Factor(percent);
}

// The window at its logical size again, its frame's centre where it was.
void KeepCentre(QWidget& window, QPointF centre, const QScreen& screen, int percent) {
    QWindow* handle = window.windowHandle();
    const QMargins frame = handle->frameMargins();
    const QSizeF outer = QSizeF(window.size().grownBy(frame));
    const QPointF middle = FromScreenPixels(centre, screen, percent);
    const QPoint frameTopLeft = (middle - QPointF(outer.width(), outer.height()) / 2).toPoint();
    handle->setGeometry(QRect(frameTopLeft + QPoint(frame.left(), frame.top()), window.size()));
}

void Notify(const std::vector<ZoomFollower*>& followers) {
    // A follower may take others with it, so each is looked up again.
    const std::vector<ZoomFollower*> snapshot = followers;
    for (ZoomFollower* follower : snapshot)
        if (std::find(followers.begin(), followers.end(), follower) != followers.end()) follower->ZoomChanged();
}

void ApplyPending() {
    ZoomState& state = State();
    if (state.holds > 0 || !state.pending) return;
    const int percent = *state.pending;
    state.pending.reset();
    ChangeZoom(percent);
}

class ZoomKeys : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers mods = key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
        if (mods != Qt::ControlModifier) return false;
        switch (key->key()) {
            case Qt::Key_Plus:
            case Qt::Key_Equal: RequestZoom(ZoomRequest::Larger); return true;
            case Qt::Key_Minus: RequestZoom(ZoomRequest::Smaller); return true;
            case Qt::Key_0: RequestZoom(ZoomRequest::Fit); return true;
            default: return false;
        }
    }
};

}  // namespace

int ZoomPercent() { return State().percent; }

void StartZoom(const ZoomChoice& choice, QSize client) {
    QScreen* screen = QGuiApplication::primaryScreen();
    const int percent = choice.fit && screen
                            ? FitZoomStep(QSizeF(screen->availableGeometry().size()), client, kFrameEstimate)
                            : choice.percent;
    State().percent = percent;
    if (percent != 100) SetScreenFactors(percent);
}

void ChangeZoom(int percent) {
    ZoomState& state = State();
    if (percent == state.percent) return;
    struct Place {
        QPointer<QWidget> window;
        QPointF centre;  // of the frame, in the screen's pixels
        QScreen* screen;
    };
    std::vector<Place> places;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->windowHandle()) continue;
        QScreen* screen = ScreenOf(*window);
        places.push_back({window, ToScreenPixels(QRectF(window->frameGeometry()).center(), *screen, state.percent),
                          screen});
    }
    state.percent = percent;
    SetScreenFactors(percent);
    for (const Place& place : places) {
        if (!place.window) continue;
        QWindow* handle = place.window->windowHandle();
        // The window's widgets learn of the new pixel ratio, and its
        // backing store is made anew at the new size.
        QEvent screenChange(QEvent::ScreenChangeInternal);
        QCoreApplication::sendEvent(handle, &screenChange);
        if (QBackingStore* store = place.window->backingStore()) store->resize(QSize(0, 0));
        KeepCentre(*place.window, place.centre, *place.screen, percent);
    }
    RenderPicturesAgain();
    Notify(state.surfaces);
    Notify(state.forms);
    for (const Place& place : places)
        if (place.window) place.window->update();
}

void RequestZoom(ZoomRequest request) {
    ZoomState& state = State();
    const int from = state.pending.value_or(state.percent);
    int to = from;
    ZoomChoice choice;
    if (request == ZoomRequest::Fit) {
        if (state.mainWindow) {
            const QScreen* screen = ScreenOf(*state.mainWindow);
            to = FitZoomStep(UnzoomedAvailable(*screen), state.mainWindow->size(), UnzoomedFrame(*state.mainWindow));
        }
    } else if (request == ZoomRequest::Smaller) {
        to = PreviousZoomStep(from);
        choice = ZoomChoice{false, to};
    } else {
        to = NextZoomStep(from);
        // Only as large as the whole window still fits the screen.
        if (state.mainWindow) {
            const QScreen* screen = ScreenOf(*state.mainWindow);
            to = std::min(to, std::max(from, LargestZoomStepWithin(UnzoomedAvailable(*screen),
                                                                   state.mainWindow->size(),
                                                                   UnzoomedFrame(*state.mainWindow))));
        }
        choice = ZoomChoice{false, to};
    }
    WriteZoomChoice(choice);
    state.pending = to;
    ApplyPending();
}

void InstallZoomKeys(QWidget& mainWindow) {
    State().mainWindow = &mainWindow;
    qApp->installEventFilter(new ZoomKeys(qApp));
}

ZoomHold::ZoomHold() { ++State().holds; }

ZoomHold::~ZoomHold() {
    if (--State().holds == 0 && State().pending) QTimer::singleShot(0, qApp, &ApplyPending);
}

ZoomFollower::ZoomFollower(Stage stage) : stage_(stage) {
    (stage == Stage::Surface ? State().surfaces : State().forms).push_back(this);
}

ZoomFollower::~ZoomFollower() {
    auto& followers = stage_ == Stage::Surface ? State().surfaces : State().forms;
    followers.erase(std::remove(followers.begin(), followers.end(), this), followers.end());
}

}  // namespace platform

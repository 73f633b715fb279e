#include "platform/display/zoom.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
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

// A resize of the main window by the window manager counts once nothing
// more has come for this long: a drag of its border is a stream of them.
constexpr std::chrono::milliseconds kResizeRest{150};

// A window's size may be a pixel off its design's where the zoom's factor
// rounds its two edges apart.
constexpr int kSizeTolerance = 2;

struct ZoomState {
    int percent = 100;
    int holds = 0;
    std::optional<int> pending;
    QPointer<QWidget> mainWindow;
    QSize mainDesign;  // the main window's size in the design's pixels
    QTimer* resized = nullptr;  // the window manager's resizing has come to rest
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
void KeepCentre(QWidget& window, QSize size, QPointF centre, const QScreen& screen, int percent) {
    QWindow* handle = window.windowHandle();
    const QMargins frame = handle->frameMargins();
    const QSizeF outer = QSizeF(size.grownBy(frame));
    const QPointF middle = FromScreenPixels(centre, screen, percent);
    const QPoint frameTopLeft = (middle - QPointF(outer.width(), outer.height()) / 2).toPoint();
    handle->setGeometry(QRect(frameTopLeft + QPoint(frame.left(), frame.top()), size));
}

// The largest step at which the main window fits its screen whole.
int LargestStepOnScreen(const QWidget& window) {
    return LargestZoomStepWithin(UnzoomedAvailable(*ScreenOf(window)), State().mainDesign, UnzoomedFrame(window));
}

// The main window may be made as small as the smallest step and as large as
// the largest that fits the screen; the zoom follows (FollowWindowSize).
void LimitMainWindowSize() {
    ZoomState& state = State();
    if (!state.mainWindow) return;
    const int largest = std::max(state.percent, LargestStepOnScreen(*state.mainWindow));
    const QSizeF design(state.mainDesign);
    const qreal factor = Factor(state.percent);
    state.mainWindow->setMinimumSize((design * (Factor(kZoomSteps.front()) / factor)).toSize());
    state.mainWindow->setMaximumSize((design * (Factor(largest) / factor)).toSize());
}

void ApplyPending();

// After the window manager resized or maximised the main window: the step
// whose window is the largest within the new size, and the window at that
// step's size.
void FollowWindowSize() {
    ZoomState& state = State();
    QWidget* window = state.mainWindow;
    if (!window || !window->isVisible()) return;
    const QSize off = window->size() - state.mainDesign;
    if (std::abs(off.width()) <= kSizeTolerance && std::abs(off.height()) <= kSizeTolerance) return;
    const QSizeF room = QSizeF(window->size() + QSize(kSizeTolerance, kSizeTolerance)) * Factor(state.percent);
    const int step = std::min(LargestZoomStepWithin(room, state.mainDesign, QSize()), LargestStepOnScreen(*window));
    if (step == state.percent) {
        window->resize(state.mainDesign);
        return;
    }
    state.pending = step;
    ApplyPending();
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

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize && watched == State().mainWindow) State().resized->start();
        // The native window, made at the first show, doesn't take the base
        // size its widget was given before.
        if (event->type() == QEvent::Show && watched == State().mainWindow)
            State().mainWindow->windowHandle()->setBaseSize(State().mainDesign);
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
    // The new limits first, so that the window manager holds the new size
    // against them and not against the old ones.
    LimitMainWindowSize();
    for (const Place& place : places) {
        if (!place.window) continue;
        QWindow* handle = place.window->windowHandle();
        // The window's widgets learn of the new pixel ratio, and its
        // backing store is made anew at the new size.
        QEvent screenChange(QEvent::ScreenChangeInternal);
        QCoreApplication::sendEvent(handle, &screenChange);
        if (QBackingStore* store = place.window->backingStore()) store->resize(QSize(0, 0));
        const QSize size = place.window == state.mainWindow ? state.mainDesign : place.window->size();
        KeepCentre(*place.window, size, place.centre, *place.screen, percent);
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
        // With the start's estimate of the frame, not the frame at hand, so
        // that back to fit is the step the game started at (a compositor's
        // frame may hold a wide shadow).
        if (state.mainWindow)
            to = FitZoomStep(UnzoomedAvailable(*ScreenOf(*state.mainWindow)), state.mainDesign, kFrameEstimate);
    } else {
        to = request == ZoomRequest::Smaller ? PreviousZoomStep(from) : NextZoomStep(from);
        // Only as large as the whole window still fits the screen.
        if (request == ZoomRequest::Larger && state.mainWindow)
            to = std::min(to, std::max(from, LargestStepOnScreen(*state.mainWindow)));
        choice = ZoomChoice{false, to};
    }
    WriteZoomChoice(choice);
    state.pending = to;
    ApplyPending();
}

void InstallZoomKeys(QWidget& mainWindow) {
    ZoomState& state = State();
    state.mainWindow = &mainWindow;
    state.mainDesign = mainWindow.sizeHint();
    // Qt asks the window manager for sizes in steps of the zoom's factor,
    // counted from the base: from the design's size, which is thus always
    // one of them.
    mainWindow.setBaseSize(state.mainDesign);
    // Sized by hand, a window isn't held to two thirds of a screen that
    // the zoom has made small.
    mainWindow.resize(state.mainDesign);
    auto* keys = new ZoomKeys(qApp);
    state.resized = new QTimer(keys);
    state.resized->setSingleShot(true);
    state.resized->setInterval(kResizeRest);
    QObject::connect(state.resized, &QTimer::timeout, keys, &FollowWindowSize);
    qApp->installEventFilter(keys);
    // A screen plugged in later shows the game at the same zoom.
    QObject::connect(qApp, &QGuiApplication::screenAdded, keys, [](QScreen* screen) {
        QHighDpiScaling::setScreenFactor(screen, Factor(State().percent));
    });
    LimitMainWindowSize();
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

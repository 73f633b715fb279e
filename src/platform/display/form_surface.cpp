#include "platform/display/form_surface.h"

#include <cstring>
#include <utility>

#include <QPaintEvent>
#include <QPainter>

#include "platform/display/pictures.h"

namespace platform {

namespace {

// One image's pixels onto another of the same size, into its own memory.
void CopyPixels(QImage& to, const QImage& from) {
    if (to.size() != from.size() || to.format() != from.format()) {
        to = from.copy();
        return;
    }
    std::memcpy(to.bits(), from.constBits(), static_cast<std::size_t>(from.sizeInBytes()));
}

}  // namespace

FormSurface::FormSurface(QWidget* form, QSize clientSize, QColor backColor)
    : ZoomFollower(Stage::Surface),
      form_(form),
      clientRect_(QPoint(0, 0), clientSize),
      backColor_(backColor),
      groundDrawing_(std::async(std::launch::deferred, GroundImage, clientSize, DisplayPixelRatio(), backColor,
                                QString())) {}

void FormSurface::SetPicture(const QString& svgPath) {
    // The same picture again (the table's, each hand) keeps its ground.
    if (svgPath != picturePath_) {
        picturePath_ = svgPath;
        groundDrawing_ = std::async(std::launch::async, GroundImage, clientRect_.size(), DisplayPixelRatio(),
                                    backColor_, svgPath);
    }
    Cls();
}

void FormSurface::AwaitGround() {
    if (groundDrawing_.valid()) TakeGround(groundDrawing_.get());
}

void FormSurface::TakeGround(QImage ground) {
    ground_ = std::move(ground);
    // The retained image shares the ground's pixels until the first drawing.
    retained_ = ground_;
    DrawGround();
}

void FormSurface::Cls() {
    kept_.clear();
    // A ground still to be drawn is the cleared form already.
    if (!groundDrawing_.valid()) DrawGround();
    if (form_) form_->update();
}

void FormSurface::DrawGround() {
    if (retained_.constBits() != ground_.constBits()) CopyPixels(retained_, ground_);
    ScreenIsRetained();
    LetGoOverControls();
}

// The screen image and the layer over the controls take memory only while
// they hold a drawing of their own: at a large zoom each is megabytes.
void FormSurface::ScreenIsRetained() {
    screenIsRetained_ = true;
    screenSynced_ = false;
    screen_ = QImage();
}

void FormSurface::LetGoOverControls() {
    overControls_ = QImage();
    overDirty_ = QRect();
}

void FormSurface::SyncScreen() {
    if (!screenIsRetained_ || screenSynced_) return;
    CopyPixels(screen_, retained_);
    screenSynced_ = true;
}

const QImage& FormSurface::RetainedImage() {
    AwaitGround();
    return retained_;
}

const QImage& FormSurface::ScreenImage() {
    AwaitGround();
    SyncScreen();
    return screen_;
}

void FormSurface::Draw(const QRect& area, const std::function<void(QPainter&)>& paint) {
    AwaitGround();
    if (autoRedraw_) {
        QPainter retained(&retained_);
        paint(retained);
        kept_.push_back(paint);
        screenSynced_ = false;
    }
    if (!autoRedraw_ || !screenIsRetained_) {
        SyncScreen();
        screenIsRetained_ = false;
        QPainter screen(&screen_);
        paint(screen);
    }
    if (!autoRedraw_) {
        if (overControls_.isNull()) {
            overControls_ = FilledImage(clientRect_.size(), retained_.devicePixelRatio(), Qt::transparent,
                                        QImage::Format_ARGB32_Premultiplied);
        }
        QPainter over(&overControls_);
        paint(over);
        overDirty_ |= area;
    }
    if (!form_) return;
    if (autoRedraw_)
        form_->update(area);
    else
        RepaintNow(area);
}

void FormSurface::ZoomChanged() {
    AwaitGround();
    const qreal ratio = DisplayPixelRatio();
    if (ratio == retained_.devicePixelRatio()) return;
    TakeGround(GroundImage(clientRect_.size(), ratio, backColor_, picturePath_));
    if (!kept_.empty()) {
        QPainter painter(&retained_);
        for (const auto& paint : kept_) {
            painter.save();
            paint(painter);
            painter.restore();
        }
    }
    if (form_) form_->update();
}

void FormSurface::Refresh() {
    AwaitGround();
    RestoreScreen(clientRect_);
    if (form_) RepaintNow(clientRect_);
}

void FormSurface::Paint(QPainter& painter, const QRect& area) {
    AwaitGround();
    if (!ownRepaint_) RestoreScreen(area);
    painter.save();
    painter.setClipRect(area);
    painter.drawImage(0, 0, screenIsRetained_ ? retained_ : screen_);
    painter.restore();
}

void FormSurface::PaintOverControls(QPainter& painter, const QRect& area) {
    if (overControls_.isNull()) return;
    painter.save();
    painter.setClipRect(area);
    painter.drawImage(0, 0, overControls_);
    painter.restore();
}

void FormSurface::RestoreScreen(const QRect& area) {
    if (area.contains(clientRect_)) {
        // The whole screen is the retained image again.
        ScreenIsRetained();
    } else if (!screenIsRetained_) {
        QPainter painter(&screen_);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.setClipRect(area);
        painter.drawImage(0, 0, retained_);
    }
    const QRect stale = area & overDirty_;
    if (stale.isEmpty()) return;
    if (area.contains(overDirty_)) {
        LetGoOverControls();
        return;
    }
    QPainter over(&overControls_);
    over.setCompositionMode(QPainter::CompositionMode_Source);
    over.fillRect(stale, Qt::transparent);
}

void FormSurface::RepaintNow(const QRect& area) {
    ownRepaint_ = true;
    form_->repaint(area);
    ownRepaint_ = false;
}

SurfaceOverlay::SurfaceOverlay(QWidget* form, FormSurface& surface) : QWidget(form), surface_(surface) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setGeometry(form->rect());
}

void SurfaceOverlay::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    surface_.PaintOverControls(painter, event->rect());
}

}  // namespace platform

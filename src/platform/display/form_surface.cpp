#include "platform/display/form_surface.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/display/pictures.h"

namespace platform {

namespace {

QImage BlankImage(QSize size, qreal pixelRatio, QImage::Format format = QImage::Format_RGB32) {
    QImage image(size * pixelRatio, format);
    image.setDevicePixelRatio(pixelRatio);
    return image;
}

}  // namespace

FormSurface::FormSurface(QWidget* form, QSize clientSize, QColor backColor)
    : form_(form),
      clientRect_(QPoint(0, 0), clientSize),
      backColor_(backColor),
      retained_(BlankImage(clientSize, DisplayPixelRatio())),
      screen_(BlankImage(clientSize, DisplayPixelRatio())),
      overControls_(BlankImage(clientSize, DisplayPixelRatio(), QImage::Format_ARGB32_Premultiplied)) {
    Cls();
}

void FormSurface::SetPicture(const QPixmap& picture) {
    picture_ = picture;
    Cls();
}

void FormSurface::Cls() {
    retained_.fill(backColor_);
    if (!picture_.isNull()) {
        QPainter painter(&retained_);
        painter.drawPixmap(0, 0, picture_);
    }
    screen_ = retained_.copy();
    if (!overDirty_.isEmpty()) overControls_.fill(Qt::transparent);
    overDirty_ = QRect();
    if (form_) form_->update();
}

void FormSurface::Draw(const QRect& area, const std::function<void(QPainter&)>& paint) {
    if (autoRedraw_) {
        QPainter retained(&retained_);
        paint(retained);
    }
    {
        QPainter screen(&screen_);
        paint(screen);
    }
    if (!autoRedraw_) {
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

void FormSurface::Refresh() {
    RestoreScreen(clientRect_);
    if (form_) RepaintNow(clientRect_);
}

void FormSurface::Paint(QPainter& painter, const QRect& area) {
    if (!ownRepaint_) RestoreScreen(area);
    painter.save();
    painter.setClipRect(area);
    painter.drawImage(0, 0, screen_);
    painter.restore();
}

void FormSurface::PaintOverControls(QPainter& painter, const QRect& area) {
    painter.save();
    painter.setClipRect(area);
    painter.drawImage(0, 0, overControls_);
    painter.restore();
}

void FormSurface::RestoreScreen(const QRect& area) {
    QPainter painter(&screen_);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setClipRect(area);
    painter.drawImage(0, 0, retained_);
    const QRect stale = area & overDirty_;
    if (stale.isEmpty()) return;
    QPainter over(&overControls_);
    over.setCompositionMode(QPainter::CompositionMode_Source);
    over.fillRect(stale, Qt::transparent);
    if (area.contains(overDirty_)) overDirty_ = QRect();
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

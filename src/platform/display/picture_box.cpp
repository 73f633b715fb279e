#include "platform/display/picture_box.h"

#include <QPainter>

namespace platform {

PictureBox::PictureBox(QWidget* parent, QSize pixels)
    : QWidget(parent), image_(pixels, QImage::Format_RGB32) {
    image_.fill(Qt::black);
    resize(pixels);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::Refresh() {
    if (isVisible()) repaint();
}

void PictureBox::SetPicture(const QImage& picture) {
    image_.fill(Qt::black);
    QPainter painter(&image_);
    painter.drawImage(0, 0, picture);
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(rect(), image_);
}

void BitBlt(QImage* destination, int x, int y, int width, int height, const QImage* source, int sourceX,
            int sourceY, std::uint32_t rasterOperation) {
    // Clip the block to the source, then to the destination, moving the
    // other corner with it.
    QRect from(sourceX, sourceY, width, height);
    QRect to(x, y, width, height);
    const QRect inSource = from.intersected(source->rect());
    to = QRect(to.topLeft() + (inSource.topLeft() - from.topLeft()), inSource.size());
    const QRect inDestination = to.intersected(destination->rect());
    from = QRect(inSource.topLeft() + (inDestination.topLeft() - to.topLeft()), inDestination.size());
    if (inDestination.isEmpty()) return;

    QPainter painter(destination);
    switch (rasterOperation) {
        case SRCAND: painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination); break;
        case SRCPAINT: painter.setCompositionMode(QPainter::RasterOp_SourceOrDestination); break;
        default: painter.setCompositionMode(QPainter::CompositionMode_Source); break;
    }
    painter.drawImage(inDestination.topLeft(), *source, from);
}

}  // namespace platform

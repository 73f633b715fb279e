#include "platform/display/picture_box.h"

#include <cstring>

#include <QPaintEvent>
#include <QPainter>

namespace platform {

PictureBox::PictureBox(QWidget* parent, QSize pixels)
    : QWidget(parent), image_(pixels, QImage::Format_RGB32) {
    image_.fill(Qt::black);
    resize(pixels);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

// The repaint waits for the event loop, so that the refreshes of one timer
// tick reach the screen as one paint.
void PictureBox::Refresh() {
    if (isVisible()) update();
}

void PictureBox::SetPicture(const QImage& picture) {
    image_.fill(Qt::black);
    QPainter painter(&image_);
    painter.drawImage(0, 0, picture);
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.drawImage(event->rect(), image_, event->rect());
}

namespace {

// The blit of two images of 32-bit pixels, row by row.
void BlitPixels(QImage* destination, QPoint to, const QImage* source, QRect from, std::uint32_t rasterOperation) {
    const std::size_t rowBytes = static_cast<std::size_t>(from.width()) * sizeof(quint32);
    for (int row = 0; row < from.height(); ++row) {
        auto* out = reinterpret_cast<quint32*>(destination->scanLine(to.y() + row)) + to.x();
        const auto* in = reinterpret_cast<const quint32*>(source->constScanLine(from.y() + row)) + from.x();
        switch (rasterOperation) {
            case SRCAND:
                for (int i = 0; i < from.width(); ++i) out[i] &= in[i];
                break;
            case SRCPAINT:
                for (int i = 0; i < from.width(); ++i) out[i] |= in[i];
                break;
            default: std::memcpy(out, in, rowBytes); break;
        }
    }
}

bool IsPixelImage(const QImage* image) { return image->format() == QImage::Format_RGB32; }

}  // namespace

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

    if (IsPixelImage(destination) && IsPixelImage(source)) {
        if (destination == source) {
            const QImage block = source->copy(from);
            BlitPixels(destination, inDestination.topLeft(), &block, block.rect(), rasterOperation);
        } else {
            BlitPixels(destination, inDestination.topLeft(), source, from, rasterOperation);
        }
        return;
    }
    QPainter painter(destination);
    switch (rasterOperation) {
        case SRCAND: painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination); break;
        case SRCPAINT: painter.setCompositionMode(QPainter::RasterOp_SourceOrDestination); break;
        default: painter.setCompositionMode(QPainter::CompositionMode_Source); break;
    }
    painter.drawImage(inDestination.topLeft(), *source, from);
}

}  // namespace platform

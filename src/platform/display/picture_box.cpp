#include "platform/display/picture_box.h"

#include <cmath>
#include <cstring>

#include <QHash>
#include <QPaintEvent>
#include <QPainter>

#include "platform/display/pictures.h"

namespace platform {

namespace {

// The boxes by their images, so that a blit can tell the box what changed.
QHash<const QImage*, PictureBox*>& Boxes() {
    static QHash<const QImage*, PictureBox*> boxes;
    return boxes;
}

// The whole logical pixels an image holds.
QRect LogicalRect(const QImage& image) {
    const qreal ratio = image.devicePixelRatio();
    const auto whole = [ratio](int pixels) { return static_cast<int>(pixels / ratio + 1e-6); };
    return QRect(0, 0, whole(image.width()), whole(image.height()));
}

// A logical edge on the device pixels: edge × ratio, rounded half up. Every
// edge is mapped on its own, never a size, so the same logical rectangle
// always covers the same device pixels whatever blit names it, and two
// rectangles that share an edge share it on the device too: a mask and its
// figure stencilled at one place cover the same pixels, and a block copied
// out and back lands where it came from. The picture boxes' whole ratios
// (BlitPixelRatio) make every edge exact; the rounding only matters for an
// image of another ratio.
int DeviceEdge(int logical, qreal ratio) { return static_cast<int>(std::floor(logical * ratio + 0.5)); }

QRect DeviceRect(const QRect& logical, qreal ratio) {
    if (ratio == 1.0) return logical;
    const int left = DeviceEdge(logical.x(), ratio);
    const int top = DeviceEdge(logical.y(), ratio);
    return QRect(left, top, DeviceEdge(logical.x() + logical.width(), ratio) - left,
                 DeviceEdge(logical.y() + logical.height(), ratio) - top);
}

// The blit of two images of 32-bit pixels, row by row, in device pixels.
void BlitPixels(QImage* destination, QPoint to, const QImage* source, QRect from, std::uint32_t rasterOperation) {
    const std::size_t rowBytes = static_cast<std::size_t>(from.width()) * sizeof(quint32);
    uchar* const outRows = destination->bits() + static_cast<qsizetype>(to.y()) * destination->bytesPerLine();
    const uchar* const inRows = source->constBits() + static_cast<qsizetype>(from.y()) * source->bytesPerLine();
    for (int row = 0; row < from.height(); ++row) {
        auto* out = reinterpret_cast<quint32*>(outRows + row * destination->bytesPerLine()) + to.x();
        const auto* in = reinterpret_cast<const quint32*>(inRows + row * source->bytesPerLine()) + from.x();
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

// An image's pixels seen at a ratio of 1, sharing its memory.
QImage DeviceView(QImage& image) {
    return QImage(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format());
}

QImage DeviceView(const QImage& image) {
    return QImage(image.constBits(), image.width(), image.height(), image.bytesPerLine(), image.format());
}

// Any other pair of images, or two of different ratios (the block is then
// scaled to the destination's device pixels).
void PaintBlock(QImage* destination, QRect to, const QImage& source, QRect from, std::uint32_t rasterOperation) {
    QImage view = DeviceView(*destination);
    QPainter painter(&view);
    switch (rasterOperation) {
        case SRCAND: painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination); break;
        case SRCPAINT: painter.setCompositionMode(QPainter::RasterOp_SourceOrDestination); break;
        default: painter.setCompositionMode(QPainter::CompositionMode_Source); break;
    }
    painter.drawImage(QRectF(to), DeviceView(source), QRectF(from));
}

bool IsPixelImage(const QImage* image) { return image->format() == QImage::Format_RGB32; }

}  // namespace

PictureBox::PictureBox(QWidget* parent, QSize size) : QWidget(parent), ZoomFollower(Stage::Surface), size_(size) {
    Boxes().insert(&image_, this);
    resize(size);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

PictureBox::~PictureBox() { Boxes().remove(&image_); }

QImage* PictureBox::hDC() {
    if (image_.isNull()) image_ = FilledImage(size_, BlitPixelRatio(), Qt::black);
    return &image_;
}

int PictureBox::Width() const { return size_.width(); }

int PictureBox::Height() const { return size_.height(); }

// The repaint waits for the event loop, so that the refreshes of one timer
// tick reach the screen as one paint. At a fractional zoom a screen pixel on
// the edge of a changed block shows logical pixels on both sides of the
// edge, and the repaint takes one logical pixel more all round: without it a
// moving figure leaves a trail of its edges.
void PictureBox::Refresh() {
    if (isVisible()) {
        const QRect changed = changed_.isEmpty() ? rect() : changed_;
        const qreal ratio = devicePixelRatioF();
        update(ratio == std::floor(ratio) ? changed : changed.adjusted(-1, -1, 1, 1));
    }
    changed_ = QRect();
}

void PictureBox::SetPicture(const QImage& picture) {
    hDC()->fill(Qt::black);
    QPainter painter(&image_);
    painter.drawImage(0, 0, picture);
    changed_ = LogicalRect(image_);
}

// The old picture, scaled, keeps the box looking as it did until its form
// draws its own pictures again.
void PictureBox::ZoomChanged() {
    const qreal ratio = BlitPixelRatio();
    if (image_.isNull() || ratio == image_.devicePixelRatio()) return;
    QImage image = FilledImage(LogicalRect(image_).size(), ratio, Qt::black);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(LogicalRect(image_)), image_);
    }
    image_ = image;
    changed_ = LogicalRect(image_);
    update();
}

// At a fractional zoom the image holds more pixels than the screen shows,
// and is smoothly scaled down to it.
void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (image_.isNull()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    if (image_.devicePixelRatio() != devicePixelRatioF()) painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QPointF(0, 0), image_);
}

void BitBlt(QImage* destination, int x, int y, int width, int height, const QImage* source, int sourceX,
            int sourceY, std::uint32_t rasterOperation) {
    // Clip the block to the source, then to the destination, moving the
    // other corner with it: all in logical pixels.
    QRect from(sourceX, sourceY, width, height);
    QRect to(x, y, width, height);
    const QRect inSource = from.intersected(LogicalRect(*source));
    to = QRect(to.topLeft() + (inSource.topLeft() - from.topLeft()), inSource.size());
    const QRect inDestination = to.intersected(LogicalRect(*destination));
    from = QRect(inSource.topLeft() + (inDestination.topLeft() - to.topLeft()), inDestination.size());
    if (inDestination.isEmpty()) return;
    if (PictureBox* box = Boxes().value(destination)) box->changed_ |= inDestination;

    const qreal toRatio = destination->devicePixelRatio();
    const qreal fromRatio = source->devicePixelRatio();
    QRect toPixels = DeviceRect(inDestination, toRatio);
    QRect fromPixels = DeviceRect(from, fromRatio);
    if (toRatio != fromRatio) {
        PaintBlock(destination, toPixels, *source, fromPixels, rasterOperation);
        return;
    }
    // One ratio with a fraction may round one block a pixel larger than the
    // other: the pixels both hold are copied.
    const QSize common = toPixels.size().boundedTo(fromPixels.size());
    toPixels.setSize(common);
    fromPixels.setSize(common);
    const QImage block = destination == source ? source->copy(fromPixels) : QImage();
    const QImage& in = block.isNull() ? *source : block;
    const QRect inRect = block.isNull() ? fromPixels : block.rect();
    if (IsPixelImage(destination) && IsPixelImage(&in))
        BlitPixels(destination, toPixels.topLeft(), &in, inRect, rasterOperation);
    else
        PaintBlock(destination, toPixels, in, inRect, rasterOperation);
}

}  // namespace platform

#include "platform/display/pictures.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>

namespace platform {

namespace {

// An SVG drawing at size logical pixels, ratio device pixels to each;
// transparent where it draws nothing, null when it can't be read.
QImage RenderSvgImage(const QString& path, QSize size, qreal ratio) {
    QSvgRenderer renderer(path);
    if (!renderer.isValid()) return QImage();
    if (size.isEmpty()) size = renderer.defaultSize();
    QImage image = FilledImage(size, ratio, Qt::transparent, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    painter.end();
    return image;
}

constexpr qsizetype kLargestKeptPicture = 512 * 1024;

struct PictureSource {
    QString path;
    QSize size;
};

// The pictures drawn at the pixel ratio now in force, and where every
// picture handed out came from, so that it can be drawn again.
struct PictureCache {
    qreal ratio = 0;
    QHash<QString, QPixmap> drawn;
    QHash<qint64, PictureSource> sources;
};

PictureCache& Cache() {
    static PictureCache cache;
    return cache;
}

QPixmap RenderSvg(const QString& path, QSize size) {
    PictureCache& cache = Cache();
    const qreal ratio = DisplayPixelRatio();
    if (ratio != cache.ratio) {
        cache.drawn.clear();
        cache.ratio = ratio;
    }
    const QString key = QStringLiteral("%1@%2x%3").arg(path).arg(size.width()).arg(size.height());
    if (const auto found = cache.drawn.constFind(key); found != cache.drawn.constEnd()) return *found;
    const QImage image = RenderSvgImage(path, size, ratio);
    const QPixmap picture = image.isNull() ? QPixmap() : QPixmap::fromImage(image);
    // A picture of a whole form (the table's, megabytes at a large zoom) is
    // kept by the form that shows it, not twice.
    if (image.sizeInBytes() <= kLargestKeptPicture) cache.drawn.insert(key, picture);
    if (!picture.isNull()) cache.sources.insert(picture.cacheKey(), PictureSource{path, size});
    return picture;
}

}  // namespace

QPixmap LoadResPicture(int id, ResPictureType type, QSize size) {
    const QString kind = type == vbResBitmap ? QStringLiteral("bitmap") : QStringLiteral("icon");
    return RenderSvg(QStringLiteral(":/res/%1/%2.svg").arg(kind).arg(id), size);
}

QPixmap LoadArtPicture(const QString& name, QSize size) {
    return RenderSvg(QStringLiteral(":/art/%1.svg").arg(name), size);
}

QIcon ArtIcon(const QString& name) { return QIcon(QStringLiteral(":/art/%1.svg").arg(name)); }

QPixmap RenderedAgain(const QPixmap& picture) {
    const auto source = Cache().sources.constFind(picture.cacheKey());
    if (source == Cache().sources.constEnd()) return picture;
    return RenderSvg(source->path, source->size);
}

void RenderPicturesAgain() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (QLabel* label : window->findChildren<QLabel*>()) {
            const QPixmap picture = label->pixmap();
            if (!picture.isNull()) label->setPixmap(RenderedAgain(picture));
        }
    }
}

QImage LoadArtImage(const QString& name, QSize size) {
    const qreal ratio = BlitPixelRatio();
    QImage image = FilledImage(size, ratio, Qt::black);
    QPainter painter(&image);
    painter.drawImage(0, 0, RenderSvgImage(QStringLiteral(":/art/%1.svg").arg(name), size, ratio));
    return image;
}

SpriteImages LoadSpriteImages(const QString& name, QSize size) {
    const qreal ratio = BlitPixelRatio();
    const QImage drawn = RenderSvgImage(QStringLiteral(":/art/%1.svg").arg(name), size, ratio)
                             .convertToFormat(QImage::Format_ARGB32);
    SpriteImages sprite{FilledImage(size, ratio, Qt::black), FilledImage(size, ratio, Qt::white)};
    const int width = std::min(drawn.width(), sprite.figure.width());
    for (int y = 0; y < std::min(drawn.height(), sprite.figure.height()); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(drawn.constScanLine(y));
        auto* figure = reinterpret_cast<QRgb*>(sprite.figure.scanLine(y));
        auto* mask = reinterpret_cast<QRgb*>(sprite.mask.scanLine(y));
        for (int x = 0; x < width; ++x) {
            if (qAlpha(in[x]) < 128) continue;
            figure[x] = qRgb(qRed(in[x]), qGreen(in[x]), qBlue(in[x]));
            mask[x] = qRgb(0, 0, 0);
        }
    }
    return sprite;
}

QImage FilledImage(QSize size, qreal ratio, const QColor& fill, QImage::Format format) {
    QImage image(size * ratio, format);
    image.setDevicePixelRatio(ratio);
    image.fill(fill);
    return image;
}

// Asked of the screens each time: the application's own answer is worked
// out once and would miss a change of zoom.
qreal DisplayPixelRatio() {
    qreal ratio = 1.0;
    for (const QScreen* screen : QGuiApplication::screens()) ratio = std::max(ratio, screen->devicePixelRatio());
    return ratio;
}

qreal BlitPixelRatio() { return std::ceil(DisplayPixelRatio() - 1e-6); }

}  // namespace platform

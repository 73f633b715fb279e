#include "platform/display/pictures.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

constexpr qint64 kLargestKeptPicture = 512 * 1024;  // bytes; larger is a whole form's picture

struct PictureSource {
    QString path;
    QSize size;
};

// The pictures drawn at the pixel ratio now in force, and where every
// picture handed out at it (and at the ratio before, for a change of zoom
// to draw them again) came from.
struct PictureCache {
    qreal ratio = 0;
    QHash<QString, QPixmap> drawn;
    QHash<qint64, PictureSource> sources;
    QHash<qint64, PictureSource> sourcesBefore;
};

PictureCache& Cache() {
    static PictureCache cache;
    return cache;
}

// A picture of a whole form (a background, megabytes at a large zoom) is
// kept only while a form shows it: then a second request costs nothing and
// no memory of its own.
void LetGoOfUnshownPictures(PictureCache& cache) {
    for (auto picture = cache.drawn.begin(); picture != cache.drawn.end();) {
        const qint64 bytes = qint64(picture->width()) * picture->height() * picture->depth() / 8;
        if (bytes > kLargestKeptPicture && picture->isDetached()) {
            cache.sources.remove(picture->cacheKey());
            picture = cache.drawn.erase(picture);
        } else {
            ++picture;
        }
    }
}

QPixmap RenderSvg(const QString& path, QSize size) {
    PictureCache& cache = Cache();
    const qreal ratio = DisplayPixelRatio();
    if (ratio != cache.ratio) {
        cache.drawn.clear();
        cache.sourcesBefore = std::exchange(cache.sources, {});
        cache.ratio = ratio;
    }
    LetGoOfUnshownPictures(cache);
    const QString key = QStringLiteral("%1@%2x%3").arg(path).arg(size.width()).arg(size.height());
    if (const auto found = cache.drawn.constFind(key); found != cache.drawn.constEnd()) return *found;
    QImage image = RenderSvgImage(path, size, ratio);
    if (image.isNull()) return QPixmap();
    // Handed over, not copied: at a large zoom a copy is megabytes of fresh memory.
    const QPixmap picture = QPixmap::fromImage(std::move(image));
    cache.drawn.insert(key, picture);
    cache.sources.insert(picture.cacheKey(), PictureSource{path, size});
    return picture;
}

}  // namespace

QString ResPicturePath(int id, ResPictureType type) {
    const QString kind = type == vbResBitmap ? QStringLiteral("bitmap") : QStringLiteral("icon");
    return QStringLiteral(":/res/%1/%2.svg").arg(kind).arg(id);
}

QPixmap LoadResPicture(int id, ResPictureType type, QSize size) { return RenderSvg(ResPicturePath(id, type), size); }

QPixmap LoadArtPicture(const QString& name, QSize size) {
    return RenderSvg(QStringLiteral(":/art/%1.svg").arg(name), size);
}

QIcon ArtIcon(const QString& name) { return QIcon(QStringLiteral(":/art/%1.svg").arg(name)); }

QPixmap RenderedAgain(const QPixmap& picture) {
    const PictureCache& cache = Cache();
    for (const auto* sources : {&cache.sources, &cache.sourcesBefore}) {
        if (const auto found = sources->constFind(picture.cacheKey()); found != sources->constEnd()) {
            const PictureSource source = *found;  // the drawing below changes the registry
            return RenderSvg(source.path, source.size);
        }
    }
    return picture;
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

QImage GroundImage(QSize size, qreal ratio, const QColor& fill, const QString& picturePath) {
    QImage image = FilledImage(size, ratio, fill);
    if (picturePath.isEmpty()) return image;
    QSvgRenderer renderer(picturePath);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), renderer.defaultSize()));
    return image;
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

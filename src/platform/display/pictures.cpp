#include "platform/display/pictures.h"

#include <algorithm>

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
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    painter.end();
    return image;
}

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
    cache.drawn.insert(key, picture);
    if (!picture.isNull()) cache.sources.insert(picture.cacheKey(), PictureSource{path, size});
    return picture;
}

}  // namespace

QPixmap LoadResPicture(int id, ResPictureType type) {
    const QString kind = type == vbResBitmap ? QStringLiteral("bitmap") : QStringLiteral("icon");
    return RenderSvg(QStringLiteral(":/res/%1/%2.svg").arg(kind).arg(id), QSize());
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

SpriteImages LoadSpriteImages(const QString& name, QSize size) {
    const QImage drawn =
        RenderSvgImage(QStringLiteral(":/art/%1.svg").arg(name), size, 1.0).convertToFormat(QImage::Format_ARGB32);
    SpriteImages sprite{QImage(size, QImage::Format_RGB32), QImage(size, QImage::Format_RGB32)};
    sprite.figure.fill(Qt::black);
    sprite.mask.fill(Qt::white);
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QRgb pixel = drawn.pixel(x, y);
            if (qAlpha(pixel) < 128) continue;
            sprite.figure.setPixel(x, y, qRgb(qRed(pixel), qGreen(pixel), qBlue(pixel)));
            sprite.mask.setPixel(x, y, qRgb(0, 0, 0));
        }
    }
    return sprite;
}

// Asked of the screens each time: the application's own answer is worked
// out once and would miss a change of zoom.
qreal DisplayPixelRatio() {
    qreal ratio = 1.0;
    for (const QScreen* screen : QGuiApplication::screens()) ratio = std::max(ratio, screen->devicePixelRatio());
    return ratio;
}

}  // namespace platform

#include "platform/display/pictures.h"

#include <QGuiApplication>
#include <QPainter>
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

QPixmap RenderSvg(const QString& path, QSize size) {
    const QImage image = RenderSvgImage(path, size, DisplayPixelRatio());
    return image.isNull() ? QPixmap() : QPixmap::fromImage(image);
}

}  // namespace

QPixmap LoadResPicture(int id, ResPictureType type) {
    const QString kind = type == vbResBitmap ? QStringLiteral("bitmap") : QStringLiteral("icon");
    return RenderSvg(QStringLiteral(":/res/%1/%2.svg").arg(kind).arg(id), QSize());
}

QPixmap LoadArtPicture(const QString& name, QSize size) {
    return RenderSvg(QStringLiteral(":/art/%1.svg").arg(name), size);
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

qreal DisplayPixelRatio() { return qGuiApp->devicePixelRatio(); }

}  // namespace platform

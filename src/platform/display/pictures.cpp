#include "platform/display/pictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

namespace platform {

namespace {

QPixmap RenderSvg(const QString& path, QSize size) {
    QSvgRenderer renderer(path);
    if (!renderer.isValid()) return QPixmap();
    if (size.isEmpty()) size = renderer.defaultSize();
    const qreal ratio = DisplayPixelRatio();
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    painter.end();
    return QPixmap::fromImage(image);
}

}  // namespace

QPixmap LoadResPicture(int id, ResPictureType type) {
    const QString kind = type == vbResBitmap ? QStringLiteral("bitmap") : QStringLiteral("icon");
    return RenderSvg(QStringLiteral(":/res/%1/%2.svg").arg(kind).arg(id), QSize());
}

QPixmap LoadArtPicture(const QString& name, QSize size) {
    return RenderSvg(QStringLiteral(":/art/%1.svg").arg(name), size);
}

qreal DisplayPixelRatio() { return qGuiApp->devicePixelRatio(); }

}  // namespace platform

// dovrin-render-icon: renders an SVG picture into a square PNG of a given
// size, for the desktop's icon theme. The picture is scaled to fit the square
// and centred, on a transparent ground.
//
//   dovrin-render-icon <picture.svg> <size> <out.png>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A build has no desktop session, and the renderer's fonts need none: the
// complaint about a missing runtime folder is dropped, all else is said.
void SayMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtWarningMsg && message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))) return;
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s <picture.svg> <size> <out.png>\n", argv[0]);
        return 2;
    }
    char* end = nullptr;
    const long asked = std::strtol(argv[2], &end, 10);
    if (*end != '\0' || asked < 1 || asked > 4096) {
        std::fprintf(stderr, "%s: the size must be a whole number of pixels from 1 to 4096\n", argv[0]);
        return 2;
    }
    // No window is opened; the renderer only needs an application for its fonts.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(SayMessage);
    QGuiApplication app(argc, argv);

    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "%s: can't read the picture %s\n", argv[0], argv[1]);
        return 1;
    }
    const int size = int(asked);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform | QPainter::TextAntialiasing);
        QSizeF picture = renderer.viewBoxF().size();
        if (picture.isEmpty()) picture = renderer.defaultSize();
        const QSizeF fitted = picture.scaled(QSizeF(size, size), Qt::KeepAspectRatio);
        renderer.render(&painter,
                        QRectF(QPointF((size - fitted.width()) / 2, (size - fitted.height()) / 2), fitted));
    }
    if (!image.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "%s: can't write %s\n", argv[0], argv[3]);
        return 1;
    }
    return 0;
}

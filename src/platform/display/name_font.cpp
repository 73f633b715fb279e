#include "platform/display/name_font.h"

#include <QFontMetricsF>

namespace platform {

namespace {

constexpr double kSmallestPointSize = 4.0;

}  // namespace

QFont NameFont(double pointSize, bool bold) {
    QFont font(QStringLiteral("DejaVu Sans Condensed"));
    font.setPointSizeF(pointSize);
    font.setBold(bold);
    return font;
}

QFont NameFontToFit(const QString& text, int widthPixels, double pointSize, bool bold) {
    QFont font = NameFont(pointSize, bold);
    while (font.pointSizeF() > kSmallestPointSize &&
           QFontMetricsF(font).horizontalAdvance(text) > widthPixels)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    return font;
}

QString WidestName(const QFont& font) {
    const QFontMetricsF metrics(font);
    QChar widest = QLatin1Char(' ');
    for (char c = '!'; c <= '~'; ++c)
        if (metrics.horizontalAdvance(QLatin1Char(c)) > metrics.horizontalAdvance(widest)) widest = QLatin1Char(c);
    return QString(12, widest);
}

}  // namespace platform

// Pictures in tests: small grey ones written as text, a pixel at a point of
// the client area, and where two pictures differ.
#pragma once

#include <iterator>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <QImage>
#include <QRect>

// A picture as text: one hex digit per pixel, a grey level (0 black, f
// white), rows separated by blanks, so that AND and OR can be read off.
inline QImage GreyImage(const std::string& text) {
    std::istringstream in(text);
    const std::vector<std::string> rows{std::istream_iterator<std::string>(in), {}};
    QImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int level = std::stoi(rows[y].substr(x, 1), nullptr, 16) * 17;
            image.setPixel(x, y, qRgb(level, level, level));
        }
    return image;
}

inline std::string GreyText(const QImage& image) {
    std::string text;
    for (int y = 0; y < image.height(); ++y, text += ' ')
        for (int x = 0; x < image.width(); ++x) text += "0123456789abcdef"[qGray(image.pixel(x, y)) / 17];
    return text.substr(0, text.size() - 1);
}

// The pixel at a point of the client area, on a screen of any density.
inline QRgb PixelAt(const QImage& image, QPoint p) { return image.pixel(p * image.devicePixelRatio()); }

inline void PrintTo(const QRect& r, std::ostream* out) {
    *out << r.width() << " x " << r.height() << " at " << r.x() << ", " << r.y();
}

// The box of the pixels where two pictures of one size differ; empty when
// none does.
inline QRect Differing(const QImage& a, const QImage& b) {
    QRect where;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) where |= QRect(x, y, 1, 1);
    return where;
}

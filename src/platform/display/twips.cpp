#include "platform/display/twips.h"

#include <cmath>

#include <QWidget>

namespace platform {

int TwipsToPixels(double twips) {
    // The platform converts in single precision and rounds halves to even.
    return static_cast<int>(std::nearbyint(static_cast<float>(twips) / kTwipsPerPixel));
}

int PixelsToTwips(int pixels) { return pixels * kTwipsPerPixel; }

QRect TwipsRect(int left, int top, int width, int height) {
    return QRect(TwipsToPixels(left), TwipsToPixels(top), TwipsToPixels(width),
                 TwipsToPixels(height));
}

void UseDesignFont(QWidget& form) {
    QFont font = form.font();
    font.setPointSize(8);
    form.setFont(font);
}

}  // namespace platform

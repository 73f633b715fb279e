// Twips and pixels. The forms are laid out in twips; the screen counts pixels.
#pragma once

#include <QRect>

class QWidget;

namespace platform {

constexpr int kTwipsPerPixel = 15;

// A position or length in twips as whole pixels, rounded to the nearest.
// Every value is converted by itself, so a row of evenly spaced twips
// positions need not fall at evenly spaced pixels.
int TwipsToPixels(double twips);

int PixelsToTwips(int pixels);

// A control's place, given in twips, as a pixel rectangle.
QRect TwipsRect(int left, int top, int width, int height);

// Gives a form the 8-point text its twips layout was drawn for, whatever the
// desktop's own size is.
void UseDesignFont(QWidget& form);

}  // namespace platform

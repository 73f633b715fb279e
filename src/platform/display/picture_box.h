// A picture box with a pixel scale and a retained image: what is drawn on it
// goes to its image, and the screen shows that image after Refresh. Hidden
// ones are the program's work surfaces and the figures it stencils with.
// BitBlt copies between the images with the platform's raster operations.
//
// Places and sizes are logical pixels; the image holds BlitPixelRatio device
// pixels to each, and follows a change of zoom: it is made anew at the new
// ratio with the old picture scaled onto it, for the form that owns it to
// draw its pictures again.
#pragma once

#include <cstdint>

#include <QImage>
#include <QRect>
#include <QWidget>

#include "platform/display/zoom.h"

namespace platform {

// The published raster operations of a blit.
inline constexpr std::uint32_t SRCCOPY = 0x00CC0020;
inline constexpr std::uint32_t SRCAND = 0x008800C6;
inline constexpr std::uint32_t SRCPAINT = 0x00EE0086;

class PictureBox : public QWidget, public ZoomFollower {
public:
    // A box of this size in logical pixels, its image black.
    PictureBox(QWidget* parent, QSize size);
    ~PictureBox() override;

    // The device context of the box: its retained image, black until the
    // box is first drawn on (a box most runs never use costs no memory).
    QImage* hDC();
    // The size in logical pixels.
    int Width() const;
    int Height() const;
    // Shows with the next paint of the window what the blits and pictures
    // changed on the image since the last Refresh; the whole image when
    // nothing did (it was written through hDC()).
    void Refresh();
    // The box's picture, drawn at its top left at its own logical size; the
    // rest turns black.
    void SetPicture(const QImage& picture);

    void ZoomChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    friend void BitBlt(QImage*, int, int, int, int, const QImage*, int, int, std::uint32_t);

    QSize size_;  // logical pixels
    QImage image_;
    QRect changed_;  // logical pixels the blits changed since the last Refresh
};

// Copies a width × height block from the source at (sourceX, sourceY) onto
// the destination at (x, y), combined by the raster operation. All of these
// are logical pixels, taken to each image's device pixels by its own pixel
// ratio. What falls outside either image is left out, as a blit clips; the
// result says nothing and is ignored, as the program ignores it.
void BitBlt(QImage* destination, int x, int y, int width, int height, const QImage* source, int sourceX,
            int sourceY, std::uint32_t rasterOperation);

}  // namespace platform

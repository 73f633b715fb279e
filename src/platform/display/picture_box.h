// A picture box with a pixel scale and a retained image: what is drawn on it
// goes to its image, and the screen shows that image after Refresh. Hidden
// ones are the program's work surfaces and the figures it stencils with.
// BitBlt copies between the images with the platform's raster operations.
#pragma once

#include <cstdint>

#include <QImage>
#include <QWidget>

namespace platform {

// The published raster operations of a blit.
inline constexpr std::uint32_t SRCCOPY = 0x00CC0020;
inline constexpr std::uint32_t SRCAND = 0x008800C6;
inline constexpr std::uint32_t SRCPAINT = 0x00EE0086;

class PictureBox : public QWidget {
public:
    // A box of this size in pixels, its image black.
    PictureBox(QWidget* parent, QSize pixels);

    // The device context of the box: its retained image.
    QImage* hDC() { return &image_; }
    int Width() const { return image_.width(); }
    int Height() const { return image_.height(); }
    // Shows the retained image with the next paint of the window.
    void Refresh();
    // The box's picture, drawn at its top left; the rest turns black.
    void SetPicture(const QImage& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
};

// Copies a width × height block from the source at (sourceX, sourceY) onto
// the destination at (x, y), combined by the raster operation. What falls
// outside either image is left out, as a blit clips; the result says nothing
// and is ignored, as the program ignores it.
void BitBlt(QImage* destination, int x, int y, int width, int height, const QImage* source, int sourceX,
            int sourceY, std::uint32_t rasterOperation);

}  // namespace platform

// The program's pictures: numbered resources and the art of the forms, all
// drawn as SVG and rendered at the screen's pixel ratio so they stay sharp.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace platform {

enum ResPictureType { vbResBitmap = 0, vbResIcon = 1 };

// Bitmap 100 is the table; icons 100 to 103 are the suits Clubs, Diamonds,
// Hearts, Spades. A number the program doesn't hold gives an empty picture.
// Drawn at size in logical pixels, or at the drawing's own size.
QPixmap LoadResPicture(int id, ResPictureType type, QSize size = QSize());

// Where a numbered resource's drawing is, for a surface that draws it itself.
QString ResPicturePath(int id, ResPictureType type);

// A form's own picture by name (":/art/<name>.svg"), at size in logical
// pixels, or at the drawing's own size when size is empty.
QPixmap LoadArtPicture(const QString& name, QSize size = QSize());

// A button's picture by name, drawn afresh at whatever size and pixel ratio
// the button shows it.
QIcon ArtIcon(const QString& name);

// The same picture drawn again at the pixel ratio now in force; a picture
// that didn't come from the program's art comes back as it is.
QPixmap RenderedAgain(const QPixmap& picture);

// Every picture that a label of the program's windows shows, drawn again at
// the pixel ratio now in force.
void RenderPicturesAgain();

// A form's picture for a picture box: size logical pixels at the box's pixel
// ratio (BlitPixelRatio), opaque, black where the drawing leaves it bare.
QImage LoadArtImage(const QString& name, QSize size);

// A figure to stencil onto a stage with two blits: the figure on pure black,
// and its silhouette in pure black on pure white. Drawn from a form's picture
// at size logical pixels, at the picture boxes' pixel ratio; a device pixel
// belongs to the figure when the drawing covers it at least half.
struct SpriteImages {
    QImage figure;
    QImage mask;
};
SpriteImages LoadSpriteImages(const QString& name, QSize size);

// An image of size logical pixels at ratio device pixels to each, all of
// it the colour fill.
QImage FilledImage(QSize size, qreal ratio, const QColor& fill, QImage::Format format = QImage::Format_RGB32);

// A form's ground: an image of size logical pixels at ratio, the colour
// fill with the SVG drawing at picturePath (if any) at its own size at the
// top left. It touches nothing of the event loop's, so it may be made on a
// thread of its own.
QImage GroundImage(QSize size, qreal ratio, const QColor& fill, const QString& picturePath);

// The highest pixel ratio of the screens: what pictures and cards are
// rendered at.
qreal DisplayPixelRatio();

// The pixel ratio of the picture boxes, whose blits must land on whole
// device pixels: the display's, rounded up to a whole number. At 150 % a
// logical pixel would be one and a half device pixels, and a figure moved
// 3 logical pixels through a work surface would come back half a pixel off
// its saved ground; at 2 every logical place is a whole device pixel, and
// the box is scaled down once when it is shown.
qreal BlitPixelRatio();

}  // namespace platform

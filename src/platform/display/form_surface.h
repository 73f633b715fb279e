// The drawing surface of a form: a retained image and the image on screen.
//
// With AutoRedraw on, drawing goes to the retained image and to the screen
// image, and the form repaints when the event loop next runs. With AutoRedraw
// off, drawing goes to the screen image only and the form repaints at once, so
// a flying card shows at every position; what is drawn that way is not kept.
// Any repaint that the surface did not ask for itself (an expose, a window
// moved over the form, a label on top changing) first copies the retained
// image back over the screen image in the repainted area.
//
// The owning widget paints the surface from its paintEvent through Paint().
#pragma once

#include <functional>

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>

class QPainter;
class QWidget;

namespace platform {

class FormSurface {
public:
    // form may be null: the surface then only keeps its two images.
    FormSurface(QWidget* form, QSize clientSize, QColor backColor);

    bool AutoRedraw() const { return autoRedraw_; }
    void SetAutoRedraw(bool on) { autoRedraw_ = on; }

    // The form's picture, drawn at the top left over the back colour. Setting
    // it clears the form to the new picture.
    const QPixmap& Picture() const { return picture_; }
    void SetPicture(const QPixmap& picture);

    // Erases both images to the back colour and the picture.
    void Cls();

    // Draws with paint (logical pixel coordinates) where AutoRedraw sends it;
    // area is what the drawing may touch.
    void Draw(const QRect& area, const std::function<void(QPainter&)>& paint);

    // Puts the retained image on the screen at once.
    void Refresh();

    // For the form's paintEvent.
    void Paint(QPainter& painter, const QRect& area);

    const QImage& RetainedImage() const { return retained_; }
    const QImage& ScreenImage() const { return screen_; }

private:
    void RestoreScreen(const QRect& area);
    void RepaintNow(const QRect& area);

    QWidget* form_;
    QRect clientRect_;
    QColor backColor_;
    QPixmap picture_;
    QImage retained_;
    QImage screen_;
    bool autoRedraw_ = true;
    bool ownRepaint_ = false;
};

}  // namespace platform

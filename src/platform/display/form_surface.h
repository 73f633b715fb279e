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
// The form's windowless controls (labels, shapes, pictures) stand over the
// retained image, but what is drawn with AutoRedraw off lies over them, as
// drawing on the form's screen did: only the buttons stay above a flying
// card. A SurfaceOverlay placed over those controls shows that layer.
//
// The owning widget paints the surface from its paintEvent through Paint().
//
// The images hold the display's device pixels. The surface keeps its picture
// and every drawing made with AutoRedraw on since the last Cls, and after a
// change of zoom draws them again on images made at the new ratio; what was
// drawn with AutoRedraw off is gone, as an expose wipes it.
#pragma once

#include <functional>
#include <future>
#include <vector>

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>
#include <QWidget>

#include "platform/display/zoom.h"

class QPainter;

namespace platform {

class FormSurface : public ZoomFollower {
public:
    // form may be null: the surface then only keeps its two images.
    FormSurface(QWidget* form, QSize clientSize, QColor backColor);

    bool AutoRedraw() const { return autoRedraw_; }
    void SetAutoRedraw(bool on) { autoRedraw_ = on; }

    // The form's picture, the SVG drawing at svgPath drawn at the top left
    // over the back colour. Setting it clears the form to the new picture.
    void SetPicture(const QString& svgPath);

    // Erases both images to the back colour and the picture.
    void Cls();

    // Draws with paint (logical pixel coordinates) where AutoRedraw sends it;
    // area is what the drawing may touch. With AutoRedraw on, paint is kept
    // until the next Cls and called again after a change of zoom, so it
    // holds copies of what it draws, not references.
    void Draw(const QRect& area, const std::function<void(QPainter&)>& paint);

    // Puts the retained image on the screen at once.
    void Refresh();

    // For the form's paintEvent.
    void Paint(QPainter& painter, const QRect& area);
    // For the overlay's paintEvent: what AutoRedraw off drew since the area
    // was last restored.
    void PaintOverControls(QPainter& painter, const QRect& area);

    const QImage& RetainedImage();
    const QImage& ScreenImage();

    // The images made anew at the display's new pixel ratio, the picture and
    // the kept drawings drawn again on them.
    void ZoomChanged() override;

private:
    // The ground drawn, where it was still to be drawn. Every public entry
    // that touches the images comes here first.
    void AwaitGround();
    // A new ground (the back colour and the picture), and the form cleared to it.
    void TakeGround(QImage ground);
    // The back colour and the picture on the retained image, and the screen
    // image and the layer over the controls as bare as after an expose.
    void DrawGround();
    void RestoreScreen(const QRect& area);
    void RepaintNow(const QRect& area);
    // The screen image's pixels, where they were left to the retained one.
    void SyncScreen();
    void ScreenIsRetained();
    void LetGoOverControls();

    QWidget* form_;
    QRect clientRect_;
    QColor backColor_;
    QString picturePath_;
    QImage ground_;  // the back colour and the picture
    // The ground still to be drawn: at first when it is first needed, and a
    // new picture's on a thread of its own. At a large zoom a ground is
    // megabytes of fresh memory and a picture's rasterising, which at the
    // start run while the user form opens the database.
    std::future<QImage> groundDrawing_;
    QImage retained_;
    // Until something is drawn with AutoRedraw off, the screen image is the
    // retained one, and its own pixels are only brought up to date when
    // they are asked for: a full redraw then costs one image, not two.
    QImage screen_;
    bool screenIsRetained_ = true;
    bool screenSynced_ = false;
    QImage overControls_;  // transparent but for what AutoRedraw off drew
    QRect overDirty_;      // where overControls_ may hold a drawing
    std::vector<std::function<void(QPainter&)>> kept_;  // drawn with AutoRedraw on since the last Cls
    bool autoRedraw_ = true;
    bool ownRepaint_ = false;
};

// The layer over the form's windowless controls; it covers the client area
// and lets the mouse through.
class SurfaceOverlay : public QWidget {
public:
    SurfaceOverlay(QWidget* form, FormSurface& surface);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    FormSurface& surface_;
};

}  // namespace platform

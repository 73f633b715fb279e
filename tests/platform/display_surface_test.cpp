#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include <gtest/gtest.h>

#include "platform/form_surface.h"

namespace {

const QColor kBack(0, 128, 0);
const QColor kPictureColour(0, 0, 200);
const QColor kInk(220, 0, 0);

// A form that shows its surface and counts its repaints.
class SurfaceForm : public QWidget {
public:
    SurfaceForm() : surface(this, QSize(64, 48), kBack) {
        resize(64, 48);
        show();
        QApplication::processEvents();
    }
    platform::FormSurface surface;
    int repaints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++repaints;
        QPainter painter(this);
        surface.Paint(painter, event->rect());
    }
};

QColor At(const QImage& image, int x, int y) {
    return image.pixelColor(QPointF(x, y).toPoint() * image.devicePixelRatio());
}

void DrawInk(platform::FormSurface& surface, QRect area) {
    surface.Draw(area, [area](QPainter& painter) { painter.fillRect(area, kInk); });
}

QPixmap SmallPicture() {
    QPixmap picture(20, 10);
    picture.fill(kPictureColour);
    return picture;
}

}  // namespace

TEST(FormSurface, StartsWithTheBackColourInBothImages) {
    SurfaceForm form;
    EXPECT_EQ(At(form.surface.RetainedImage(), 63, 47), kBack);
    EXPECT_EQ(At(form.surface.ScreenImage(), 0, 0), kBack);
}

TEST(FormSurface, AutoRedrawOnKeepsTheDrawingAndShowsIt) {
    SurfaceForm form;
    DrawInk(form.surface, QRect(10, 10, 5, 5));
    EXPECT_EQ(At(form.surface.RetainedImage(), 12, 12), kInk);
    EXPECT_EQ(At(form.surface.ScreenImage(), 12, 12), kInk);
    form.repaint();  // an expose keeps what was retained
    EXPECT_EQ(At(form.surface.ScreenImage(), 12, 12), kInk);
    EXPECT_EQ(At(form.grab().toImage(), 12, 12), kInk);
}

TEST(FormSurface, AutoRedrawOffDrawsOnTheScreenOnlyAndRepaintsAtOnce) {
    SurfaceForm form;
    form.surface.SetAutoRedraw(false);
    const int repaintsBefore = form.repaints;
    DrawInk(form.surface, QRect(30, 20, 8, 8));
    EXPECT_EQ(form.repaints, repaintsBefore + 1);
    EXPECT_EQ(At(form.surface.ScreenImage(), 33, 23), kInk);
    EXPECT_EQ(At(form.surface.RetainedImage(), 33, 23), kBack);
}

TEST(FormSurface, ExposeWipesWhatWasDrawnWithAutoRedrawOff) {
    SurfaceForm form;
    DrawInk(form.surface, QRect(0, 0, 4, 4));  // retained
    form.surface.SetAutoRedraw(false);
    DrawInk(form.surface, QRect(40, 30, 6, 6));  // a trail
    DrawInk(form.surface, QRect(50, 30, 6, 6));  // and another, outside the expose
    form.repaint(QRect(38, 28, 10, 10));
    EXPECT_EQ(At(form.surface.ScreenImage(), 42, 32), kBack);
    EXPECT_EQ(At(form.surface.ScreenImage(), 53, 33), kInk);
    EXPECT_EQ(At(form.surface.ScreenImage(), 1, 1), kInk);
}

TEST(FormSurface, RefreshPutsTheRetainedImageOnScreen) {
    SurfaceForm form;
    form.surface.SetAutoRedraw(false);
    DrawInk(form.surface, QRect(40, 30, 6, 6));
    form.surface.Refresh();
    EXPECT_EQ(At(form.surface.ScreenImage(), 42, 32), kBack);
}

TEST(FormSurface, ClsRestoresThePictureOverTheBackColour) {
    SurfaceForm form;
    form.surface.SetPicture(SmallPicture());
    EXPECT_EQ(At(form.surface.RetainedImage(), 5, 5), kPictureColour);
    DrawInk(form.surface, QRect(0, 0, 64, 48));
    form.surface.Cls();
    for (const QImage* image : {&form.surface.RetainedImage(), &form.surface.ScreenImage()}) {
        EXPECT_EQ(At(*image, 5, 5), kPictureColour);
        EXPECT_EQ(At(*image, 19, 9), kPictureColour);
        EXPECT_EQ(At(*image, 20, 5), kBack);
        EXPECT_EQ(At(*image, 5, 10), kBack);
    }
}

TEST(FormSurface, EmptyPictureClearsToTheBackColour) {
    SurfaceForm form;
    form.surface.SetPicture(SmallPicture());
    form.surface.SetPicture(QPixmap());
    EXPECT_EQ(At(form.surface.RetainedImage(), 5, 5), kBack);
}

TEST(FormSurface, WorksWithoutAForm) {
    platform::FormSurface surface(nullptr, QSize(16, 16), kBack);
    surface.SetAutoRedraw(false);
    DrawInk(surface, QRect(2, 2, 3, 3));
    EXPECT_EQ(At(surface.ScreenImage(), 3, 3), kInk);
    EXPECT_EQ(At(surface.RetainedImage(), 3, 3), kBack);
}

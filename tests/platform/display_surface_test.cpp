#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include <gtest/gtest.h>

#include "platform/display/form_surface.h"

namespace {

const QColor kBack(0, 128, 0);
const QColor kInk(220, 0, 0);

QColor At(const QImage& image, int x, int y) { return image.pixelColor(QPoint(x, y) * image.devicePixelRatio()); }

// A form that shows its surface and counts its repaints.
class SurfaceForm : public QWidget {
public:
    SurfaceForm() : surface(this, QSize(64, 48), kBack) {
        resize(64, 48);
        show();
        QApplication::processEvents();
    }
    QColor Retained(int x, int y) const { return At(surface.RetainedImage(), x, y); }
    QColor OnScreen(int x, int y) const { return At(surface.ScreenImage(), x, y); }
    void DrawInk(QRect area) {
        surface.Draw(area, [area](QPainter& painter) { painter.fillRect(area, kInk); });
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

TEST(FormSurface, AutoRedrawOffDrawsOnTheScreenOnlyAtOnceAndAnExposeRefreshOrClsWipesItBackToTheRetainedImage) {
    SurfaceForm form;
    form.DrawInk(QRect(0, 0, 4, 4));  // retained
    EXPECT_EQ(form.Retained(1, 1), kInk);
    form.surface.SetAutoRedraw(false);
    const int repaintsBefore = form.repaints;
    form.DrawInk(QRect(40, 30, 6, 6));  // a trail
    EXPECT_EQ(form.repaints, repaintsBefore + 1);
    EXPECT_EQ(form.OnScreen(42, 32), kInk);
    EXPECT_EQ(form.Retained(42, 32), kBack);
    form.DrawInk(QRect(50, 30, 6, 6));  // and another, outside the expose
    form.repaint(QRect(38, 28, 10, 10));
    EXPECT_EQ(form.OnScreen(42, 32), kBack);
    EXPECT_EQ(form.OnScreen(53, 33), kInk);
    form.surface.Refresh();
    EXPECT_EQ(form.OnScreen(53, 33), kBack);
    EXPECT_EQ(At(form.grab().toImage(), 1, 1), kInk);

    // Cls paints the picture over the back colour, on both images.
    form.surface.SetAutoRedraw(true);
    const QColor pictureColour(0, 0, 200);
    QPixmap picture(20, 10);
    picture.fill(pictureColour);
    form.surface.SetPicture(picture);
    form.DrawInk(QRect(0, 0, 64, 48));
    form.surface.Cls();
    for (const QImage* image : {&form.surface.RetainedImage(), &form.surface.ScreenImage()}) {
        EXPECT_EQ(At(*image, 19, 9), pictureColour);
        EXPECT_EQ(At(*image, 20, 5), kBack);
        EXPECT_EQ(At(*image, 5, 10), kBack);
    }
    form.surface.SetPicture(QPixmap());
    EXPECT_EQ(form.Retained(5, 5), kBack);
}

}  // namespace

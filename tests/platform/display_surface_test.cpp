#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include <gtest/gtest.h>

#include "platform/display/form_surface.h"

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
    QColor Retained(int x, int y) const { return At(surface.RetainedImage(), x, y); }
    QColor OnScreen(int x, int y) const { return At(surface.ScreenImage(), x, y); }
    static QColor At(const QImage& image, int x, int y) {
        return image.pixelColor(QPointF(x, y).toPoint() * image.devicePixelRatio());
    }
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

TEST(FormSurface, AutoRedrawOnKeepsTheDrawingOverTheBackColourAndShowsIt) {
    SurfaceForm form;
    EXPECT_EQ(form.Retained(63, 47), kBack);
    EXPECT_EQ(form.OnScreen(0, 0), kBack);
    form.DrawInk(QRect(10, 10, 5, 5));
    EXPECT_EQ(form.Retained(12, 12), kInk);
    EXPECT_EQ(form.OnScreen(12, 12), kInk);
    form.repaint();  // an expose keeps what was retained
    EXPECT_EQ(form.OnScreen(12, 12), kInk);
    EXPECT_EQ(SurfaceForm::At(form.grab().toImage(), 12, 12), kInk);
}

TEST(FormSurface, AutoRedrawOffDrawsOnTheScreenOnlyAtOnceAndAnExposeOrRefreshWipesIt) {
    SurfaceForm form;
    form.DrawInk(QRect(0, 0, 4, 4));  // retained
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
    EXPECT_EQ(form.OnScreen(1, 1), kInk);
    form.surface.Refresh();
    EXPECT_EQ(form.OnScreen(53, 33), kBack);
    EXPECT_EQ(form.OnScreen(1, 1), kInk);
}

TEST(FormSurface, ClsRestoresThePictureOverTheBackColourAndAnEmptyPictureClearsIt) {
    SurfaceForm form;
    QPixmap picture(20, 10);
    picture.fill(kPictureColour);
    form.surface.SetPicture(picture);
    EXPECT_EQ(form.Retained(5, 5), kPictureColour);
    form.DrawInk(QRect(0, 0, 64, 48));
    form.surface.Cls();
    for (const QImage* image : {&form.surface.RetainedImage(), &form.surface.ScreenImage()}) {
        EXPECT_EQ(SurfaceForm::At(*image, 5, 5), kPictureColour);
        EXPECT_EQ(SurfaceForm::At(*image, 19, 9), kPictureColour);
        EXPECT_EQ(SurfaceForm::At(*image, 20, 5), kBack);
        EXPECT_EQ(SurfaceForm::At(*image, 5, 10), kBack);
    }
    form.surface.SetPicture(QPixmap());
    EXPECT_EQ(form.Retained(5, 5), kBack);
}

TEST(FormSurface, WorksWithoutAForm) {
    platform::FormSurface surface(nullptr, QSize(16, 16), kBack);
    surface.SetAutoRedraw(false);
    surface.Draw(QRect(2, 2, 3, 3), [](QPainter& painter) { painter.fillRect(QRect(2, 2, 3, 3), kInk); });
    EXPECT_EQ(SurfaceForm::At(surface.ScreenImage(), 3, 3), kInk);
    EXPECT_EQ(SurfaceForm::At(surface.RetainedImage(), 3, 3), kBack);
}

}  // namespace

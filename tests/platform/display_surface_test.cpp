#include <QApplication>
#include <QFile>
#include <QPaintEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include "platform/display/card_library.h"
#include "platform/display/form_surface.h"
#include "platform/display/picture_box.h"
#include "pictures.h"

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
    QColor Retained(int x, int y) { return At(surface.RetainedImage(), x, y); }
    QColor OnScreen(int x, int y) { return At(surface.ScreenImage(), x, y); }
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
    form.DrawInk(QRect(0, 0, 4, 4));  // retained: the window shows it below
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
    QTemporaryDir folder;
    QFile picture(folder.filePath(QStringLiteral("picture.svg")));
    ASSERT_TRUE(picture.open(QIODevice::WriteOnly));
    picture.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10">)"
                  R"(<rect width="20" height="10" fill="blue"/></svg>)");
    picture.close();
    form.surface.SetPicture(picture.fileName());
    form.DrawInk(QRect(0, 0, 64, 48));
    form.surface.Cls();
    for (const QImage* image : {&form.surface.RetainedImage(), &form.surface.ScreenImage()}) {
        EXPECT_EQ(At(*image, 19, 9), QColor(Qt::blue));
        EXPECT_EQ(At(*image, 20, 5), kBack);
        EXPECT_EQ(At(*image, 5, 10), kBack);
    }
    form.surface.SetPicture(QString());
    EXPECT_EQ(form.Retained(5, 5), kBack);
}

// Where a face lands and what it covers: ZoomSurfaceTest's table surface.
TEST(CardLibrary, NamesEachFaceOfTheStandardDeckAndDrawsNothingForNoCardOrOnceTheDeckIsMissing) {
    EXPECT_EQ(platform::CardElementId(41), "jack_diamond");
    QSvgRenderer deck(QStringLiteral("/usr/share/carddecks/svg-standard/standard.svgz"));
    for (int card = 0; card < 52; ++card) EXPECT_TRUE(deck.elementExists(platform::CardElementId(card))) << card;

    platform::FormSurface surface(nullptr, QSize(200, 150), kBack);
    std::int32_t width = 0, height = 0;
    ASSERT_NE(platform::cdtInit(width, height), 0);
    for (const auto& [card, mode] : {std::pair{52, 0}, {-1, 0}, {0, 1}})
        EXPECT_EQ(platform::cdtDraw(surface, 0, 0, card, mode, 0), 0) << card << " " << mode;
    EXPECT_NE(platform::cdtDraw(surface, 20, 30, 51, 0, 0), 0);

    // The faces already loaded go with a deck that can't be.
    platform::SetCardDeckFile(QStringLiteral("/nonexistent/deck.svgz"));
    EXPECT_EQ(platform::cdtInit(width, height), 0);
    EXPECT_EQ(platform::cdtDraw(surface, 10, 10, 0, 0, 0), 0);
    platform::SetCardDeckFile(QString());
}

TEST(PictureBox, BlitsCombineByTheirRasterOperationAndClipToBothImages) {
    const QImage figure = GreyImage("37 c1");
    QImage stage = GreyImage("8888 8888 8888");
    platform::BitBlt(&stage, 1, 1, 2, 2, &figure, 0, 0, platform::SRCAND);
    EXPECT_EQ(GreyText(stage), "8888 8008 8808");
    platform::BitBlt(&stage, 1, 1, 2, 2, &figure, 0, 0, platform::SRCPAINT);
    EXPECT_EQ(GreyText(stage), "8888 8378 8c18");
    // Sticking out over the top left and the right of the stage.
    platform::BitBlt(&stage, -1, -1, 2, 2, &figure, 0, 0, platform::SRCCOPY);
    platform::BitBlt(&stage, 3, 2, 4, 4, &figure, 0, 0, platform::SRCCOPY);
    EXPECT_EQ(GreyText(stage), "1888 8378 8c13");
    // Onto itself, overlapping: the block is read before it is written.
    platform::BitBlt(&stage, 1, 1, 3, 2, &stage, 0, 0, platform::SRCCOPY);
    EXPECT_EQ(GreyText(stage), "1888 8188 8837");
}

}  // namespace

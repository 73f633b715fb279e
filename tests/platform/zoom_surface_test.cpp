// What the program draws itself at a zoom: blits between images of more
// device pixels than logical ones, and the table's surface with its cards
// drawn again after a live change.
#include <gtest/gtest.h>

#include <cmath>

#include <QCoreApplication>
#include <QScreen>

#include "platform/display/card_library.h"
#include "platform/display/form_surface.h"
#include "platform/display/picture_box.h"
#include "platform/display/pictures.h"
#include "platform/display/zoom.h"
#include "pictures.h"

using platform::BitBlt;

namespace {

QImage AtRatio(const QImage& picture, qreal ratio) {
    QImage image = picture.scaled(picture.size() * ratio);
    image.setDevicePixelRatio(ratio);
    return image;
}

// At 2 each blit covers the blocks of the pixels it covers at 1; at 1.5 each
// logical edge rounds on its own, so a block copied out, stencilled and
// copied back touches the pixels it came from and no others.
TEST(ZoomSurface, BlitsMapEachLogicalEdgeToTheDevicePixels) {
    const QImage figure = GreyImage("37 c1");
    QImage stage = GreyImage("8888 8888 8888"), stage2 = AtRatio(stage, 2);
    const QImage figure2 = AtRatio(figure, 2);
    using platform::SRCCOPY;
    for (const auto& [x, y, width, ontoItself, operation] :
         {std::tuple{1, 1, 2, false, platform::SRCAND}, {1, 1, 2, false, platform::SRCPAINT},
          {-1, -1, 2, false, SRCCOPY}, {3, 2, 4, false, SRCCOPY}, {1, 1, 3, true, SRCCOPY}}) {
        BitBlt(&stage, x, y, width, 2, ontoItself ? &stage : &figure, 0, 0, operation);
        BitBlt(&stage2, x, y, width, 2, ontoItself ? &stage2 : &figure2, 0, 0, operation);
        EXPECT_EQ(GreyText(stage2), GreyText(AtRatio(stage, 2))) << x << ", " << y << " " << operation;
    }

    const QImage white = AtRatio(GreyImage("fffff fffff fffff fffff fffff"), 1.5);
    const QImage black = AtRatio(GreyImage("00000 00000 00000 00000 00000"), 1.5);
    QImage ground(15, 15, QImage::Format_RGB32);  // 10 x 10 logical
    ground.fill(qRgb(0x88, 0x88, 0x88));
    ground.setDevicePixelRatio(1.5);
    const auto edge = [](int logical) { return static_cast<int>(std::floor(logical * 1.5 + 0.5)); };
    for (const QPoint at : {QPoint(1, 1), QPoint(2, 3), QPoint(3, 2)}) {
        QImage stage15 = ground, work = AtRatio(GreyImage("0000000 0000000 0000000 0000000 0000000"), 1.5);
        BitBlt(&work, 0, 0, 5, 5, &stage15, at.x(), at.y(), SRCCOPY);
        BitBlt(&work, 0, 0, 5, 5, &black, 0, 0, platform::SRCAND);
        BitBlt(&work, 0, 0, 5, 5, &white, 0, 0, platform::SRCPAINT);
        BitBlt(&stage15, at.x(), at.y(), 5, 5, &work, 0, 0, SRCCOPY);
        QImage expected = ground.copy();
        for (int row = edge(at.y()); row < edge(at.y() + 5); ++row)
            for (int column = edge(at.x()); column < edge(at.x() + 5); ++column)
                expected.setPixel(column, row, qRgb(255, 255, 255));
        EXPECT_EQ(GreyText(stage15), GreyText(expected)) << at.x() << ", " << at.y();
    }
}

// A live change draws the picture and the cards again at the new ratio, each
// card's edges at the ratio times their places, drops what was drawn with
// AutoRedraw off, and the way back gives the very pixels of before.
TEST(ZoomSurface, TheTableSurfaceDrawsItsCardsAgainAtEachZoomAndComesBackExactly) {
    const QColor back(0, 128, 0);
    std::int32_t width = 0, height = 0;
    ASSERT_NE(platform::cdtInit(width, height), 0);
    platform::FormSurface bare(nullptr, QSize(200, 150), back), table(nullptr, QSize(200, 150), back);
    table.SetPicture(platform::ResPicturePath(100, platform::vbResBitmap));
    for (platform::FormSurface* surface : {&bare, &table}) platform::cdtDraw(*surface, 21, 33, 51, 0, 0);
    platform::cdtDraw(table, 90, 40, 6, 0, 0);
    table.SetAutoRedraw(false);
    platform::cdtDraw(table, 120, 10, 7, 0, 0);  // a flight's trail
    table.SetAutoRedraw(true);
    const auto drawn = [&] {
        QImage ground(bare.RetainedImage().size(), QImage::Format_RGB32);
        ground.fill(back);
        return Differing(bare.RetainedImage(), ground);
    };
    ASSERT_EQ(drawn(), QRect(21, 33, width, height));
    const QImage tableAtOne = table.RetainedImage();
    const struct ZoomBack { ~ZoomBack() { platform::ChangeZoom(100); } } zoomBack;
    for (const int ratio : {2, 3, 1}) {
        platform::ChangeZoom(ratio * 100);
        ASSERT_EQ(platform::DisplayPixelRatio(), ratio) << "the offscreen platform takes the zoom too";
        EXPECT_EQ(drawn(), QRect(QPoint(21, 33) * ratio, QSize(width, height) * ratio)) << ratio;
        EXPECT_EQ(table.ScreenImage(), table.RetainedImage()) << "the trail is gone at " << ratio;
    }
    EXPECT_EQ(Differing(table.RetainedImage(), tableAtOne), QRect());
}

// A whole form's picture is drawn once while a form shows it, let go once
// none shows it, and drawn again for every form that shows it at a change
// of zoom.
TEST(ZoomSurface, AFormsPictureIsSharedWhileShownLetGoWhenNotAndFollowsTheZoom) {
    using platform::LoadResPicture, platform::vbResBitmap;
    const struct ZoomBack { ~ZoomBack() { platform::ChangeZoom(100); } } zoomBack;
    QPixmap table = LoadResPicture(100, vbResBitmap);
    EXPECT_EQ(LoadResPicture(100, vbResBitmap).cacheKey(), table.cacheKey());
    const QImage drawn = table.toImage();
    const qint64 shown = table.cacheKey();
    table = QPixmap();
    table = LoadResPicture(100, vbResBitmap);
    EXPECT_NE(table.cacheKey(), shown) << "let go once no form showed it";
    EXPECT_EQ(table.toImage(), drawn);

    QPixmap background = LoadResPicture(101, vbResBitmap), sameBackground = background;
    platform::ChangeZoom(200);
    for (QPixmap* picture : {&table, &background, &sameBackground}) {
        const QSize logical = picture->deviceIndependentSize().toSize();
        *picture = platform::RenderedAgain(*picture);
        EXPECT_EQ(picture->devicePixelRatio(), 2.0);
        EXPECT_EQ(picture->size(), logical * 2);
    }
}

// At 150 % a figure moved across a shown box leaves nothing of its edges on
// the screen: each repaint covers the screen pixels its block touches.
TEST(ZoomSurface, AFigureMovedAcrossABoxAtAFractionalZoomLeavesNoTrailOnTheScreen) {
    const struct ZoomBack { ~ZoomBack() { platform::ChangeZoom(100); } } zoomBack;
    platform::ChangeZoom(150);
    QWidget window;
    window.resize(40, 20);
    platform::PictureBox box(&window, QSize(40, 20));
    window.show();
    const auto screen = [&] {
        QCoreApplication::processEvents();
        // What the screen holds, without the repaint that QWidget::grab does.
        return window.screen()->grabWindow(window.winId()).toImage();
    };
    box.Refresh();
    const QImage bare = screen();
    const QImage white = AtRatio(GreyImage("fff fff fff"), 2);
    const QImage black = AtRatio(GreyImage("000 000 000"), 2);
    // Each step gives the old place its ground back and draws the new, and
    // the repaint covers both, as the scene's figures move.
    for (int x = 1; x < 34; x += 3) {
        if (x > 1) platform::BitBlt(box.hDC(), x - 3, 5, 3, 3, &black, 0, 0, platform::SRCCOPY);
        platform::BitBlt(box.hDC(), x, 5, 3, 3, &white, 0, 0, platform::SRCCOPY);
        box.Refresh();
        screen();
    }
    platform::BitBlt(box.hDC(), 34, 5, 3, 3, &black, 0, 0, platform::SRCCOPY);
    box.Refresh();
    EXPECT_EQ(Differing(screen(), bare), QRect());
}

}  // namespace

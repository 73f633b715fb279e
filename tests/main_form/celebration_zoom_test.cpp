// The celebration of a high score across live changes of zoom: the balloons
// go on from where they stand, drawn exactly at the new pixel ratio.
#include <gtest/gtest.h>

#include <QTest>

#include "engine/mod_global.h"
#include "platform/display/card_library.h"
#include "platform/display/pictures.h"
#include "platform/display/zoom.h"
#include "shell/f_dovrin.h"
#include "support/pictures.h"

namespace {

// The bare stage at the ratio in force with every balloon on its way
// stencilled at its place: the figure's pixels where its mask is black.
QImage Expected(const FDovrin& form) {
    static const std::array<QSize, 3> kSizes = {{{70, 209}, {72, 183}, {78, 208}}};
    QImage stage = platform::LoadArtImage(QStringLiteral("high_score"), QSize(635, 456));
    const int ratio = static_cast<int>(stage.devicePixelRatio());
    for (const SpriteRecord& sprite : form.maSprites) {
        if (!sprite.Active || sprite.Fresh) continue;
        const platform::SpriteImages balloon =
            platform::LoadSpriteImages(QStringLiteral("balloon_%1").arg(sprite.Kind), kSizes[sprite.Kind]);
        for (int y = 0; y < balloon.figure.height(); ++y)
            for (int x = 0; x < balloon.figure.width(); ++x) {
                const QPoint at = QPoint(sprite.X, sprite.Y) * ratio + QPoint(x, y);
                if (stage.rect().contains(at) && balloon.mask.pixel(x, y) == qRgb(0, 0, 0))
                    stage.setPixel(at, balloon.figure.pixel(x, y));
            }
    }
    return stage;
}

TEST(CelebrationZoomTest, AfterEachChangeTheBalloonsGoOnFromWhereTheyStandExactlyAtTheNewRatio) {
    modGlobal::ResetGlobals();
    modGlobal::glRandomSeed = 12345;
    std::int32_t width = 0, height = 0;
    ASSERT_NE(platform::cdtInit(width, height), 0);
    FDovrin form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    const struct ZoomBack { ~ZoomBack() { platform::ChangeZoom(100); } } zoomBack;
    const auto tick = [&](int ticks) {
        for (int i = 0; i < ticks; ++i) form.tmrSprites_Timer();
    };
    tick(60);  // all three lanes rising
    // 150 % draws the boxes at 2 device pixels to a logical one, 250 % at 3.
    for (const auto& [percent, ratio] : {std::pair{100, 1}, {150, 2}, {250, 3}, {200, 2}, {100, 1}}) {
        platform::ChangeZoom(percent);
        EXPECT_EQ(form.picHighScore->hDC()->size(), QSize(635, 456) * ratio) << percent;
        EXPECT_EQ(Differing(*form.picHighScore->hDC(), Expected(form)), QRect()) << "just after " << percent;
        tick(37);  // the lanes keep the new stage's ground: nothing is left behind
        EXPECT_EQ(Differing(*form.picHighScore->hDC(), Expected(form)), QRect()) << "37 ticks into " << percent;
    }
}

}  // namespace

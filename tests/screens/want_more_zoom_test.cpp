// The want-more scene across a live change of zoom: it starts again from its
// start picture at the new pixel ratio, and its figures give back every
// pixel of ground they cover there, at a fractional zoom too.
#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/display/pictures.h"
#include "platform/display/zoom.h"
#include "screens/f_want_more.h"
#include "support/pictures.h"

namespace {

TEST(WantMoreZoomTest, AfterAChangeTheSceneStartsAgainFromItsStartPictureAndEachRoundEndsOnIt) {
    modGlobal::gbSoundOn = false;
    const struct ZoomBack { ~ZoomBack() { platform::ChangeZoom(100); } } zoomBack;
    for (const int percent : {200, 150}) {
        platform::ChangeZoom(100);
        FWantMore form;
        auto& s = form.scene;
        const auto act = [&](int number) {  // an act of the small figure, or the UFO's script
            s.act = static_cast<std::int16_t>(number);
            s.actGo = true;
            for (int tick = 0; s.actGo && !form.tmrUFO->Enabled() && tick < 2000; ++tick) form.smTimer_Timer();
        };
        act(3);  // in the middle of it: the UFO on its way in, the large figure looking
        for (int tick = 0; tick < 100; ++tick) form.tmrUFO_Timer();
        for (int tick = 0; tick < 56; ++tick) form.tmrAnim_Timer();
        ASSERT_TRUE(s.largeSaved && s.ufoIn.X > 0);

        platform::ChangeZoom(percent);
        const QImage start = platform::LoadArtImage(QStringLiteral("scene/stage"), QSize(393, 273));
        EXPECT_EQ(start.devicePixelRatio(), 2.0) << percent << ": whole device pixels to a logical one";
        EXPECT_EQ(Differing(*form.picForm->hDC(), start), QRect()) << percent;
        EXPECT_EQ(*form.picDest->hDC(), platform::LoadArtImage(QStringLiteral("scene/panel_left"), QSize(50, 60)));
        EXPECT_EQ(std::tuple(s.state, s.Ticks, s.act, s.largeSaved), std::tuple(1, 0, 0, false));
        EXPECT_TRUE(!form.tmrUFO->Enabled() && form.smTimer->Enabled() && form.tmrAnim->Enabled());

        // Rounds of both acts, the script and a cycle of the clock, compared
        // where the stage shows: the captives start from below it.
        const QRect shown(QPoint(0, 0), form.picForm->size() * start.devicePixelRatio());
        for (int round = 1; round <= 2; ++round) {
            for (const int number : {1, 2, 3}) act(number);
            for (int tick = 0; form.tmrUFO->Enabled() && tick < 20000; ++tick) form.tmrUFO_Timer();
            for (int tick = 0; tick < 160; ++tick) form.tmrAnim_Timer();
            EXPECT_EQ(Differing(form.picForm->hDC()->copy(shown), start.copy(shown)), QRect()) << percent;
        }
    }
}

}  // namespace

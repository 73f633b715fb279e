// The want-more scene: its movers on small hand-worked surfaces, the small
// figure's acts, the script of the UFO, the captives and the aeroplane, the
// stage after whole rounds of it, and its close. (The clock's cues: each
// round of the round test waits on them.)
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QPushButton>
#include <QTest>

#include "engine/mod_global.h"
#include "platform/audio/multimedia.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"
#include "screens/f_want_more.h"
#include "screens/mod_animation.h"
#include "sound/mod_global_music.h"
#include "support/pictures.h"
#include "support/test_sounds.h"

using platform::PictureBox;

namespace {

// A box holding a picture written as text.
std::unique_ptr<PictureBox> Box(const std::string& text) {
    const QImage picture = GreyImage(text);
    auto box = std::make_unique<PictureBox>(nullptr, picture.size());
    *box->hDC() = picture;
    return box;
}

// A 3 × 2 figure of e, its top left corner clear (a strip of three: a, b, d),
// at 1, 1 on a 7 × 4 stage of ground 2 × row + column, which the (larger)
// background holds. A step of 2, 1 gives stage / background.
struct Mover {
    std::unique_ptr<PictureBox> stage = Box("0123456 23ee678 4eee89a 6789abc");
    std::unique_ptr<PictureBox> figure = Box("0ee eee"), mask = Box("f00 000"), strip = Box("0aa0bb0dd aaabbbddd");
    std::unique_ptr<PictureBox> work = Box("00000 00000 00000"), background = Box("345f 567f ffff");

    template <typename Move>
    std::string Step(Move move, const SpriteRecord& record, bool fromStrip = false) {
        move(fromStrip ? *strip : *figure, *mask, *work, *background, *stage, record, 2, 1);
        return GreyText(*stage->hDC()) + " / " + GreyText(*background->hDC());
    }
};

// (A turn's and an erasing step's ground: the round test below.)
TEST(Movers, StepTheFigureAndGiveBackTheGroundItLeaves) {
    using namespace modAnimation;
    Mover m;
    EXPECT_EQ(m.Step(MoveSpriteRightDown, {1, 1}), "0123456 2345678 4567eea 678eeec / 789f 9abf ffff");
    // And back up-left from 3, 2: the figure stands at 1, 1 again.
    EXPECT_EQ(m.Step(MoveSpriteLeftUp, {3, 2}), "0123456 23ee678 4eee89a 6789abc / 345f 567f ffff");
    // A strip is read at FrameWidth × FrameIndex, but only with a frame count.
    EXPECT_EQ(Mover().Step(MoveSpriteRightDown, {1, 1, 0, false, false, false, 3, 2, 3}, true),
              "0123456 2345678 4567dda 678dddc / 789f 9abf ffff");
    EXPECT_EQ(Mover().Step(MoveSpriteRightDown, {1, 1, 0, false, false, false, 0, 2, 3}, true),
              "0123456 2345678 4567aaa 678aaac / 789f 9abf ffff");
}

TEST(Movers, TheRayShowsFromTheTopAndGoesFromTheBottom) {
    auto stage = Box("01234 23456 45678 6789a 89abc");
    auto ray = Box("e0 ee 0e"), mask = Box("0f 00 f0"), work = Box("00 00 00"), background = Box("00 00 00");
    bool first = true;
    modAnimation::GrowRay(*ray, *mask, *work, *background, *stage, 1, 1, first, 1);
    EXPECT_FALSE(first);
    EXPECT_EQ(GreyText(*stage->hDC()), "01234 2e456 45678 6789a 89abc");
    modAnimation::GrowRay(*ray, *mask, *work, *background, *stage, 1, 1, first, 3);
    EXPECT_EQ(GreyText(*stage->hDC()), "01234 2e456 4ee78 67e9a 89abc");
    EXPECT_EQ(GreyText(*background->hDC()), "34 56 78");  // composed once, on the ground
    first = true;
    modAnimation::ShrinkRay(*work, *background, *stage, 1, 1, first, 2, 1);
    EXPECT_EQ(GreyText(*stage->hDC()), "01234 2e456 4ee78 6789a 89abc");
    modAnimation::ShrinkRay(*work, *background, *stage, 1, 1, first, 0, 3);
    EXPECT_EQ(GreyText(*stage->hDC()), "01234 23456 45678 6789a 89abc");
}

TEST(Movers, ACaptiveRisesOnTheRayAndIsCutUnderTheUfo) {
    auto captive = Box("11 22 33 44 55 66 77 88 99 aa"), mask = Box("00 00 00 00 00 00 00 00 00 00");
    auto ground = Box("cc cc cc cc cc cc cc cc cc cc cc cc cc"), work = Box("00 00 00 00 00 00 00 00 00 00 00 00 00");
    auto stage = std::make_unique<PictureBox>(nullptr, QSize(2, 96));
    SpriteRecord record{0, 60, 0, true, true};
    modAnimation::RaiseCaptive(*captive, *mask, *work, *ground, *stage, record, 3);
    EXPECT_FALSE(record.Fresh);
    // Y 60 cuts 9 rows: the work's rows 9 to 12 land at 66 to 69.
    EXPECT_EQ(GreyText(stage->hDC()->copy(0, 64, 2, 8)), "00 00 aa cc cc cc 00 00");
    ground->hDC()->fill(Qt::white);  // not composed again
    record.Y = 80;
    modAnimation::RaiseCaptive(*captive, *mask, *work, *ground, *stage, record, 3);
    EXPECT_EQ(GreyText(stage->hDC()->copy(0, 76, 2, 15)), "00 11 22 33 44 55 66 77 88 99 aa cc cc cc 00");
}

struct WantMoreTest : ::testing::Test {
    void SetUp() override {  // no sound, and no tune unless a test makes one
        modGlobal::gbSoundOn = false;
        ASSERT_EQ(modGlobal::goMidi, nullptr);
    }
    void TearDown() override {
        platform::mciSendStringA("Close MIDIfile", nullptr, 0, nullptr);
        modGlobal::goMidi.reset();
        platform::SetAppPath(std::nullopt);
    }
};

TEST_F(WantMoreTest, TheSmallFigureWaitsThenZigzagsAcrossAndBack) {
    FWantMore form;
    auto& s = form.scene;
    for (const auto& [act, startX, endX, up, down] : {std::tuple{1, -40, 401, 1, 0}, std::tuple{2, 400, -41, 3, 2}}) {
        s.act = static_cast<std::int16_t>(act);
        s.actGo = true;
        for (int tick = 0; tick < 50; ++tick) form.smTimer_Timer();
        EXPECT_EQ(std::tuple(s.small.X, s.small.Y, s.direction), std::tuple(startX, 48, up));
        int ticks = 0;
        while (s.actGo && ++ticks < 1000) {
            const int x = s.small.X, y = s.small.Y;
            form.smTimer_Timer();
            ASSERT_TRUE(std::abs(s.small.X - x) == 3 && std::abs(s.small.Y - y) == 3);
            ASSERT_TRUE(s.small.Y >= 0 && s.small.Y <= 48);
            const bool top = s.small.Y == 0, bottom = s.small.Y == 48;
            ASSERT_EQ(s.small.Fresh, top || bottom) << "at " << s.small.X << ", " << s.small.Y;
            if (top || bottom) { EXPECT_EQ(s.direction, top ? down : up); }
        }
        EXPECT_EQ(std::tuple(s.small.X, s.actSetUp, s.actTicks), std::tuple(endX, false, 0)) << "act " << act;
    }
}

// The third act starts the script; tmrUFO ticks while it runs and eachTick agrees.
template <typename EachTick>
int RunScript(FWantMore& form, int limit, EachTick eachTick) {
    form.scene.act = 3;
    form.scene.actGo = true;
    form.smTimer_Timer();
    int ticks = 0;
    while (++ticks <= limit && form.tmrUFO->Fire() && eachTick(ticks)) {}
    return ticks;
}

TEST_F(WantMoreTest, TheUfoScriptPlaysItsPhasesInOrderAndHandsBack) {
    FWantMore form;
    auto& s = form.scene;
    enum { Hover, Ray, Captives, LastPass, Shrink, Gone, Away, Plane, Phases };
    std::vector<int> seen(Phases, 0);  // the tick at which each phase began
    auto began = [&](int phase, bool now, int tick) {
        if (now && seen[phase] == 0) seen[phase] = tick;
        return now && seen[phase] == tick;
    };
    const int ticks = RunScript(form, 20000, [&](int tick) {
        if (tick == 1) { EXPECT_FALSE(form.smTimer->Enabled()); }
        if (tick <= 37) { EXPECT_EQ(s.ufoIn.X, tick == 37 ? -37 : -40); }  // 36 ticks before it moves
        if (s.ufoStep != 0) { EXPECT_EQ(seen[Hover], 0); }  // once hovering, it stays
        if (began(Hover, s.ufoStep == 0, tick)) { EXPECT_TRUE(s.ufoIn.X == 158 && s.rayRows == 0); }
        if (began(Ray, s.rayRows > 0, tick)) { EXPECT_EQ(s.hoverTicks, 10); }
        if (began(Captives, s.captives[0].Y < 251, tick)) { EXPECT_EQ(s.rayRows, 400); }
        began(LastPass, s.lastPass, tick);
        began(Shrink, s.shrinkRows > 0, tick);
        if (began(Gone, s.ufoGone, tick)) { EXPECT_EQ(s.shrinkRows, 205); }
        began(Away, s.ufoOut.Y < -39, tick);
        began(Plane, s.plane.X < 400, tick);
        return true;
    });
    ASSERT_LT(ticks, 20000) << "the script never handed back";
    for (int phase = 1; phase < Phases; ++phase) EXPECT_LT(seen[phase - 1], seen[phase]) << "phase " << phase;
    EXPECT_EQ(seen[Plane] - seen[Away], 151);  // 150 ticks of pause between
    EXPECT_EQ(std::tuple(s.Ticks, s.act, s.actGo, form.smTimer->Enabled(), form.tmrUFO->Enabled()),
              std::tuple(0, 0, false, true, false));  // handed back to the small figure
    for (const SpriteRecord& captive : s.captives) EXPECT_EQ(captive.Y, 251);
}

// The desktop's clock drives the form: each of its ticks fires every timer
// whose period has come round, as the running program's timers would.
struct Clock {
    FWantMore& form;
    std::int64_t tick = 0;

    void Tick() {
        ++tick;
        for (platform::PlatformTimer* timer : {form.tmrAnim, form.smTimer, form.tmrUFO, form.tmrMidi})
            if (tick % (platform::PlatformTimer::TickedPeriod(timer->Interval()) / platform::kPlatformTick) == 0)
                timer->Fire();
    }
    // Until the script has handed back to the small figure and the large
    // one has gone again: no figure stands on the stage then.
    void RunARound() {
        const std::int64_t limit = tick + 60 * 64;
        while (!form.tmrUFO->Enabled() && tick < limit) Tick();
        while (form.tmrUFO->Enabled() && tick < limit) Tick();
        while (form.scene.largeSaved && tick < limit) Tick();
        ASSERT_LT(tick, limit) << "no round within a minute";
    }
};

// Every figure gives back the ground it covered: the small figure at its
// turns, the UFO coming in at the stage's left edge and leaving from where
// it hovered, the ray, the captives and the aeroplane. The part of the stage
// that shows is compared: the captives start from below it.
TEST_F(WantMoreTest, AfterEachRoundOfTheScriptTheStageIsItsStartPictureAgain) {
    FWantMore form;
    const QRect shown(QPoint(0, 0), form.picForm->size());
    const QImage start = form.picForm->hDC()->copy(shown);
    Clock clock{form};
    for (int round = 1; round <= 3; ++round) {
        clock.RunARound();
        EXPECT_EQ(Differing(form.picForm->hDC()->copy(shown), start), QRect()) << "after round " << round;
    }
}

// However the form is closed, even with the ray out, the scene and its tune
// stop, and the next opening starts afresh.
TEST_F(WantMoreTest, EveryWayOfClosingStopsTheSceneAndItsTuneAndTheNextOpeningStartsAfresh) {
    TempDir dir;
    const std::vector<std::uint8_t> tune = test_sounds::OneNoteMidi(500000, 60 * 480);  // half a minute
    WriteBytes(dir.File("sweetone.mid"), std::string(tune.begin(), tune.end()));
    platform::SetAppPath(dir.Path());
    modGlobal::goMidi = std::make_unique<CMidiFile>();
    modGlobal::goMidi->SetEnabled(true);
    const std::vector<std::pair<const char*, std::function<void(FWantMore&)>>> ways = {
        {"Escape", [](FWantMore& form) { QTest::keyClick(form.cmdWantMore, Qt::Key_Escape); }},
        {"Close", [](FWantMore& form) { form.cmdWantMore->click(); }},  // as the frame's close box closes it
    };
    for (const auto& [way, closeBy] : ways) {
        FWantMore form;
        RunScript(form, 2000, [&](int) { return form.scene.rayRows == 0; });
        ASSERT_GT(form.scene.rayRows, 0);
        form.show();
        ASSERT_TRUE(modGlobal::goMidi->Active() && form.tmrMidi->Enabled() && form.tmrUFO->Enabled()) << way;
        closeBy(form);
        EXPECT_FALSE(form.isVisible()) << way;
        for (platform::PlatformTimer* timer : {form.tmrUFO, form.smTimer, form.tmrAnim, form.tmrMidi})
            EXPECT_FALSE(timer->Enabled()) << way;
        EXPECT_FALSE(modGlobal::goMidi->Active()) << way;
        EXPECT_TRUE(modGlobal::goMidi->Enabled()) << way;  // stopped, not failed
    }
    FWantMore again;
    EXPECT_EQ(std::tuple(again.scene.state, again.scene.Ticks, again.scene.act, again.scene.rayRows),
              std::tuple(1, 0, 0, 0));
    EXPECT_TRUE(!again.tmrUFO->Enabled() && again.smTimer->Enabled() && again.tmrAnim->Enabled());
}

}  // namespace

// The want-more scene: its movers on small hand-worked surfaces, its clock, the
// small figure's acts, the script of the UFO, the captives and the aeroplane,
// the stage after whole rounds of it, and its close.
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

TEST(Movers, StepTheFigureAndGiveBackTheGroundItLeaves) {
    using namespace modAnimation;
    Mover m;
    EXPECT_EQ(m.Step(MoveSpriteRightDown, {1, 1}), "0123456 2345678 4567eea 678eeec / 789f 9abf ffff");
    // And back up-left from 3, 2: the figure stands at 1, 1 again.
    EXPECT_EQ(m.Step(MoveSpriteLeftUp, {3, 2}), "0123456 23ee678 4eee89a 6789abc / 345f 567f ffff");
    // Erasing draws no figure but still gives the ground back.
    EXPECT_EQ(Mover().Step(MoveSpriteRightDown, {1, 1, 0, false, false, true}),
              "0123456 2345678 456789a 6789abc / 789f 9abf ffff");
    // A turn gives the whole saved ground back where the old figure stood:
    // down to 3, 2, then up, erasing, leaves the bare ground.
    Mover turn;
    turn.Step(MoveSpriteRightDown, {1, 1});
    EXPECT_EQ(turn.Step(MoveSpriteRightUp, {3, 2, 0, false, true, true}).substr(0, 31),
              "0123456 2345678 456789a 6789abc");
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

TEST_F(WantMoreTest, TheClockRunsItsSixStatesAndCuesTheActs) {
    FWantMore form;
    auto& s = form.scene;
    const QImage designPanel = *form.picDest->hDC();
    std::vector<std::pair<int, int>> changes;
    std::vector<int> acts;
    QImage beforeLook, duringLook;
    for (int tick = 1; tick <= 4 * 160; ++tick) {
        const int state = s.state;
        form.tmrAnim_Timer();
        if (s.state != state && tick <= 160) changes.emplace_back(tick, s.state);
        if (tick == 8) { EXPECT_EQ(*form.picDest->hDC(), designPanel); }  // the first pass leaves it be
        if (tick == 9) { EXPECT_EQ(*form.picDest->hDC(), form.picHidden->hDC()->copy(0, 0, 50, 60)); }
        if (tick == 48) beforeLook = *form.picForm->hDC();
        if (tick == 56) duringLook = *form.picForm->hDC();
        if (tick == 80 || tick == 240) { EXPECT_EQ(s.otherView, tick == 80); }
        if (tick % 160 == 81) {  // the first tick of the fifth state
            EXPECT_TRUE(s.actGo && !s.cue);
            acts.push_back(s.act);
            s.actGo = false;  // as if the act were over
        }
    }
    EXPECT_NE(duringLook, beforeLook);  // the large figure did look in
    EXPECT_EQ(changes, (std::vector<std::pair<int, int>>{{32, 2}, {48, 3}, {64, 4}, {80, 5}, {112, 6}, {160, 1}}));
    EXPECT_EQ(acts, (std::vector<int>{1, 2, 3, 1}));
}

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
    int captive0 = 251;
    std::vector<int> joinedAt, planeFrames;
    const int ticks = RunScript(form, 20000, [&](int tick) {
        if (tick == 1) { EXPECT_FALSE(form.smTimer->Enabled()); }
        if (tick <= 37) { EXPECT_EQ(s.ufoIn.X, tick == 37 ? -37 : -40); }  // 36 ticks before it moves
        if (s.ufoStep != 0) { EXPECT_EQ(seen[Hover], 0); }  // once hovering, it stays
        if (began(Hover, s.ufoStep == 0, tick)) { EXPECT_TRUE(s.ufoIn.X == 158 && s.rayRows == 0); }
        if (began(Ray, s.rayRows > 0, tick)) { EXPECT_EQ(s.hoverTicks, 10); }
        if (began(Captives, s.captives[0].Y < 251, tick)) { EXPECT_EQ(s.rayRows, 400); }
        for (int i = 1; i < 4; ++i)
            if (s.captives[i].Active && static_cast<int>(joinedAt.size()) < i) joinedAt.push_back(captive0);
        captive0 = s.captives[0].Y;
        began(LastPass, s.lastPass, tick);
        began(Shrink, s.shrinkRows > 0, tick);
        if (began(Gone, s.ufoGone, tick)) { EXPECT_EQ(s.shrinkRows, 205); }
        began(Away, s.ufoOut.Y < -39, tick);
        began(Plane, s.plane.X < 400, tick);
        if (s.plane.X < 400 && form.tmrUFO->Enabled()) planeFrames.push_back(s.plane.FrameIndex);
        return true;
    });
    ASSERT_LT(ticks, 20000) << "the script never handed back";
    for (int phase = 1; phase < Phases; ++phase) EXPECT_LT(seen[phase - 1], seen[phase]) << "phase " << phase;
    EXPECT_EQ(joinedAt, (std::vector<int>{197, 143, 89}));  // captive 0's Y as 1, 2 and 3 join
    EXPECT_EQ(std::tuple(s.ufoOut.X, s.ufoOut.Y), std::tuple(158 - 28 * 3, 43 - 28 * 3));
    EXPECT_EQ(seen[Plane] - seen[Away], 151);  // 150 ticks of pause between
    EXPECT_EQ(s.plane.X, -251);
    // The propeller's frame moves every third tick, the first after two: 0 up
    // to 7, down to 0 and up again.
    ASSERT_GT(planeFrames.size(), 100u);
    for (std::size_t i = 0; i < planeFrames.size(); ++i) {
        const int turn = static_cast<int>((i + 1) / 3 % 14);
        EXPECT_EQ(planeFrames[i], turn <= 7 ? turn : 14 - turn) << "tick " << i << " of the plane";
    }
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

// The want-more scene: its movers on small hand-worked surfaces, the clock of
// the panels and the large figure, the small figure's acts and the script of
// the UFO, the ray, the captives and the aeroplane.
#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "engine/mod_global.h"
#include "screens/f_want_more.h"
#include "screens/mod_animation.h"
#include "sound/mod_global_music.h"

using platform::PictureBox;

namespace {

// A picture as text: one hex digit per pixel, a grey level (0 black, f
// white), rows separated by blanks, so that AND and OR can be read off.
QImage Grey(const std::string& text) {
    std::istringstream in(text);
    const std::vector<std::string> rows{std::istream_iterator<std::string>(in), {}};
    QImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int level = std::stoi(rows[y].substr(x, 1), nullptr, 16) * 17;
            image.setPixel(x, y, qRgb(level, level, level));
        }
    return image;
}

std::string Text(const QImage& image) {
    std::string text;
    for (int y = 0; y < image.height(); ++y) {
        if (y > 0) text += ' ';
        for (int x = 0; x < image.width(); ++x) text += "0123456789abcdef"[qGray(image.pixel(x, y)) / 17];
    }
    return text;
}

std::string Rows(const std::string& row, int count) {
    std::string text = row;
    while (--count > 0) text += ' ' + row;
    return text;
}

std::unique_ptr<PictureBox> Box(const std::string& text) {
    const QImage picture = Grey(text);
    auto box = std::make_unique<PictureBox>(nullptr, picture.size());
    box->SetPicture(picture);
    return box;
}

// A 3 × 2 figure (e where it stands, its top left corner clear) over a 7 × 4
// stage whose ground is 2 × row + column. It stands at 1, 1, and the saved
// background holds the ground there. A step of 2, 1 gives stage / background.
struct Mover {
    std::unique_ptr<PictureBox> stage = Box("0123456 23ee678 4eee89a 6789abc");
    std::unique_ptr<PictureBox> figure = Box("0ee eee"), mask = Box("f00 000");
    std::unique_ptr<PictureBox> strip = Box("0aa0bb0dd aaabbbddd");  // three frames of 3
    std::unique_ptr<PictureBox> work = Box(Rows("00000", 3)), background = Box("345 567");

    template <typename Move>
    std::string Step(Move move, const SpriteRecord& record, PictureBox* sprite = nullptr) {
        move(sprite ? *sprite : *figure, *mask, *work, *background, *stage, record, 2, 1);
        return Text(*stage->hDC()) + " / " + Text(*background->hDC());
    }
};

TEST(Movers, StepTheFigureAndGiveBackTheGroundItLeaves) {
    using namespace modAnimation;
    Mover m;
    EXPECT_EQ(m.Step(MoveSpriteRightDown, {1, 1}), "0123456 2345678 4567eea 678eeec / 789 9ab");
    // And back up-left from 3, 2: the figure stands at 1, 1 again.
    EXPECT_EQ(m.Step(MoveSpriteLeftUp, {3, 2}), "0123456 23ee678 4eee89a 6789abc / 345 567");
    // Erasing draws no figure but still gives the ground back.
    EXPECT_EQ(Mover().Step(MoveSpriteRightDown, {1, 1, 0, false, false, true}),
              "0123456 2345678 456789a 6789abc / 789 9ab");
    // After a turn only H - dy rows of the saved ground go back, from its row dy.
    EXPECT_EQ(Mover().Step(MoveSpriteRightDown, {1, 1, 0, false, true}), "0123456 2567678 4eeeeea 678eeec / e89 9ab");
    // A strip is read at FrameWidth × FrameIndex, but only with a frame count.
    Mover strip, single;
    EXPECT_EQ(strip.Step(MoveSpriteRightDown, {1, 1, 0, false, false, false, 3, 2, 3}, strip.strip.get()),
              "0123456 2345678 4567dda 678dddc / 789 9ab");
    EXPECT_EQ(single.Step(MoveSpriteRightDown, {1, 1, 0, false, false, false, 0, 2, 3}, single.strip.get()),
              "0123456 2345678 4567aaa 678aaac / 789 9ab");
}

TEST(Movers, TheRayShowsFromTheTopAndGoesFromTheBottom) {
    auto stage = Box("01234 23456 45678 6789a 89abc");
    auto ray = Box("e0 ee 0e"), mask = Box("0f 00 f0"), work = Box("00 00 00"), background = Box("00 00 00");
    bool first = true;
    modAnimation::GrowRay(*ray, *mask, *work, *background, *stage, 1, 1, first, 1);
    EXPECT_FALSE(first);
    EXPECT_EQ(Text(*stage->hDC()), "01234 2e456 45678 6789a 89abc");
    modAnimation::GrowRay(*ray, *mask, *work, *background, *stage, 1, 1, first, 3);
    EXPECT_EQ(Text(*stage->hDC()), "01234 2e456 4ee78 67e9a 89abc");
    EXPECT_EQ(Text(*background->hDC()), "34 56 78");  // composed once, on the ground

    first = true;
    modAnimation::ShrinkRay(*work, *background, *stage, 1, 1, first, 2, 1);
    EXPECT_EQ(Text(*stage->hDC()), "01234 2e456 4ee78 6789a 89abc");
    modAnimation::ShrinkRay(*work, *background, *stage, 1, 1, first, 0, 3);
    EXPECT_EQ(Text(*stage->hDC()), "01234 23456 45678 6789a 89abc");
}

TEST(Movers, ACaptiveRisesOnTheRayAndIsCutUnderTheUfo) {
    auto captive = Box("11 22 33 44 55 66 77 88 99 aa"), mask = Box(Rows("00", 10));
    auto ground = Box(Rows("cc", 13)), work = Box(Rows("00", 13));
    auto stage = std::make_unique<PictureBox>(nullptr, QSize(2, 96));
    SpriteRecord record{0, 60, 0, true, true};
    modAnimation::RaiseCaptive(*captive, *mask, *work, *ground, *stage, record, 3);
    EXPECT_FALSE(record.Fresh);
    // Y 60 cuts 9 rows: the work's rows 9 to 12 land at 66 to 69.
    EXPECT_EQ(Text(stage->hDC()->copy(0, 64, 2, 8)), "00 00 aa cc cc cc 00 00");
    ground->hDC()->fill(Qt::white);  // not composed again
    record.Y = 80;
    modAnimation::RaiseCaptive(*captive, *mask, *work, *ground, *stage, record, 3);
    EXPECT_EQ(Text(stage->hDC()->copy(0, 76, 2, 15)), "00 11 22 33 44 55 66 77 88 99 aa cc cc cc 00");
}

class WantMoreTest : public ::testing::Test {
protected:
    void SetUp() override {
        modGlobal::gbSoundOn = false;
        ASSERT_EQ(modGlobal::goMidi, nullptr);
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
        if (tick == 8) EXPECT_EQ(*form.picDest->hDC(), designPanel);  // the first pass leaves the panels be
        if (tick == 9) EXPECT_EQ(*form.picDest->hDC(), form.picHidden->hDC()->copy(0, 0, 50, 60));
        if (tick == 1) EXPECT_TRUE(s.cue);
        if (tick == 48) beforeLook = *form.picForm->hDC();
        if (tick == 56) duringLook = *form.picForm->hDC();
        if (tick == 64 || tick == 80) EXPECT_EQ(*form.picForm->hDC(), beforeLook) << "after tick " << tick;
        if (tick == 80 || tick == 240) EXPECT_EQ(s.otherView, tick == 80);
        if (s.state != state && tick <= 160) changes.emplace_back(tick, s.state);
        if (tick % 160 == 81) {
            EXPECT_TRUE(s.actGo);
            EXPECT_FALSE(s.cue);
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
        EXPECT_EQ(s.small.X, startX);
        EXPECT_EQ(s.small.Y, 48);
        EXPECT_EQ(s.direction, up);
        int topTurns = 0, bottomTurns = 0, ticks = 0;
        while (s.actGo && ++ticks < 1000) {
            const int x = s.small.X, y = s.small.Y;
            form.smTimer_Timer();
            ASSERT_EQ(std::abs(s.small.X - x), 3);
            ASSERT_EQ(std::abs(s.small.Y - y), 3);
            const bool top = s.small.Y == 0, bottom = s.small.Y == 48;
            ASSERT_EQ(s.small.Fresh, top || bottom) << "at " << s.small.X << ", " << s.small.Y;
            if (top || bottom) {
                EXPECT_EQ(s.direction, top ? down : up);
                ++(top ? topTurns : bottomTurns);
            }
            ASSERT_TRUE(s.small.Y >= 0 && s.small.Y <= 48);
        }
        EXPECT_EQ(s.small.X, endX) << "act " << act;
        EXPECT_GT(topTurns, 3);
        EXPECT_GT(bottomTurns, 3);
        EXPECT_FALSE(s.actSetUp);
        EXPECT_EQ(s.actTicks, 0);
    }
}

// Runs the script from the small figure's third act, calling back after each
// tick of tmrUFO until the script stops its timer or the tick limit is hit.
template <typename EachTick>
int RunScript(FWantMore& form, int limit, EachTick eachTick) {
    form.scene.act = 3;
    form.scene.actGo = true;
    form.smTimer_Timer();
    EXPECT_TRUE(form.tmrUFO->Enabled());
    int ticks = 0;
    while (++ticks <= limit && form.tmrUFO->Fire())
        if (!eachTick(ticks)) break;
    return ticks;
}

TEST_F(WantMoreTest, TheUfoScriptPlaysItsPhasesInOrderAndHandsBack) {
    FWantMore form;
    auto& s = form.scene;
    // The tick at which each phase was first seen.
    enum { Hover, Ray, RayFull, Captives, LastPass, Shrink, Gone, Away, Plane, Phases };
    std::vector<int> seen(Phases, 0);
    auto mark = [&](int phase, bool now, int tick) {
        if (now && seen[phase] == 0) seen[phase] = tick;
        return now && seen[phase] == tick;
    };
    int captive0 = 251;
    std::vector<int> joinedAt, planeFrames;
    const int ticks = RunScript(form, 20000, [&](int tick) {
        if (tick == 1) EXPECT_FALSE(form.smTimer->Enabled());
        if (tick <= 37) EXPECT_EQ(s.ufoIn.X, tick == 37 ? -37 : -40);  // 36 ticks before it moves
        EXPECT_LE(s.ufoIn.X, 158);
        if (s.ufoStep != 0) EXPECT_EQ(seen[Hover], 0);  // once hovering, it stays
        if (mark(Hover, s.ufoStep == 0, tick)) EXPECT_TRUE(s.ufoIn.X == 158 && s.rayRows == 0);
        if (mark(Ray, s.rayRows > 0, tick)) EXPECT_EQ(s.hoverTicks, 10);
        mark(RayFull, s.rayRows == 400, tick);
        if (mark(Captives, s.captives[0].Y < 251, tick)) EXPECT_EQ(s.rayRows, 400);
        for (int i = 1; i < 4; ++i)
            if (s.captives[i].Active && static_cast<int>(joinedAt.size()) < i) joinedAt.push_back(captive0);
        captive0 = s.captives[0].Y;
        mark(LastPass, s.lastPass, tick);
        mark(Shrink, s.shrinkRows > 0, tick);
        if (mark(Gone, s.ufoGone, tick)) EXPECT_EQ(s.shrinkRows, 205);
        mark(Away, s.ufoOut.Y < -39, tick);
        if (mark(Plane, s.plane.X < 400, tick)) EXPECT_EQ(s.pauseTicks, 150);
        if (s.plane.X < 400 && form.tmrUFO->Enabled()) planeFrames.push_back(s.plane.FrameIndex);
        return true;
    });
    ASSERT_LT(ticks, 20000) << "the script never handed back";
    for (int phase = 1; phase < Phases; ++phase) EXPECT_LT(seen[phase - 1], seen[phase]) << "phase " << phase;
    EXPECT_EQ(s.ufoOut.X, 158 - 28 * 3);  // 28 steps up-left from 158, 43
    EXPECT_EQ(s.ufoOut.Y, 43 - 28 * 3);
    EXPECT_EQ(joinedAt, (std::vector<int>{197, 143, 89}));
    EXPECT_EQ(s.plane.X, -251);
    ASSERT_EQ(planeFrames.size(), 217u);  // 400 down to -251 by 3
    // Runs of one frame: 0 up to 7 and down to 0 and up again, each but the
    // first and the last three ticks long.
    std::vector<std::pair<int, int>> runs;
    for (const int frame : planeFrames)
        if (runs.empty() || runs.back().first != frame) runs.emplace_back(frame, 1);
        else ++runs.back().second;
    ASSERT_GT(runs.size(), 30u);
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const int turn = static_cast<int>(i % 14);
        EXPECT_EQ(runs[i].first, turn <= 7 ? turn : 14 - turn) << "run " << i;
        if (i > 0 && i + 1 < runs.size()) EXPECT_EQ(runs[i].second, 3) << "run " << i;
    }
    EXPECT_EQ(s.Ticks, 0);
    EXPECT_EQ(s.act, 0);
    EXPECT_FALSE(s.actGo);
    EXPECT_TRUE(form.smTimer->Enabled());
    EXPECT_FALSE(form.tmrUFO->Enabled());
    for (const SpriteRecord& captive : s.captives) EXPECT_EQ(captive.Y, 251);
}

TEST_F(WantMoreTest, ClosingWithTheRayOutStopsEverythingAndTheNextOpeningStartsAfresh) {
    {
        FWantMore form;
        RunScript(form, 2000, [&](int) { return form.scene.rayRows == 0; });
        ASSERT_GT(form.scene.rayRows, 0);
        form.close();
        for (platform::PlatformTimer* timer : {form.tmrUFO, form.smTimer, form.tmrAnim, form.tmrMidi})
            EXPECT_FALSE(timer->Enabled());
    }
    FWantMore again;
    EXPECT_EQ(again.scene.state, 1);
    EXPECT_EQ(again.scene.Ticks, 0);
    EXPECT_EQ(again.scene.act, 0);
    EXPECT_EQ(again.scene.rayRows, 0);
    EXPECT_FALSE(again.tmrUFO->Enabled());
    EXPECT_TRUE(again.smTimer->Enabled() && again.tmrAnim->Enabled());
}

}  // namespace

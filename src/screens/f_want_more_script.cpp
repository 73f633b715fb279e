// FWantMore: the script of the figures. smTimer takes the small penguin
// across the sky and back, one act a cue; its third act hands over to
// tmrUFO, which plays the UFO, its ray, the captives, the way out, a pause
// and the aeroplane, and hands back.
#include "screens/f_want_more.h"

#include "screens/mod_animation.h"

using namespace modAnimation;

namespace {

constexpr std::int32_t kStep = 3;
constexpr std::int32_t kSkyTop = 0;     // the small figure's zigzag turns at these rows
constexpr std::int32_t kSkyBottom = 48;
constexpr std::int32_t kPauseBeforeMoving = 50;  // ticks of an act before the figure moves
constexpr std::int32_t kHoverAt = 158;
constexpr std::int32_t kRayX = 108;
constexpr std::int32_t kRayY = 66;
constexpr std::int32_t kRayFull = 200;
constexpr std::int32_t kRayPauseOver = 400;
constexpr std::int32_t kCaptiveX = 172;
constexpr std::int32_t kGround = 251;  // below the stage's shown part

void StepFrame(SpriteRecord& record) {
    if (++record.FrameIndex == 7) record.FrameIndex = 0;
}

SpriteRecord StartingCaptive() {
    SpriteRecord captive;
    captive.X = kCaptiveX;
    captive.Y = kGround;
    captive.Active = true;
    captive.Fresh = true;
    return captive;
}

}  // namespace

void FWantMore::smTimer_Timer() {
    Scene& s = scene;
    if (!s.actGo) return;
    if (!s.actSetUp) {
        SpriteRecord& figure = s.small;
        if (s.act == 3) {
            tmrUFO->SetEnabled(true);  // again each tick, until the script's first tick stops this timer
            return;
        }
        figure.X = s.act == 1 ? -40 : 400;
        figure.Y = kSkyBottom;
        s.direction = s.act == 1 ? 1 : 3;
        figure.Fresh = true;
        figure.Active = true;
        s.actSetUp = true;
    }
    if (++s.actTicks > kPauseBeforeMoving) MoveSmallFigure();
}

// One step of the zigzag: right or left, and down to row 48 or up to row 0,
// where it turns and is marked Fresh; the mover gives back the whole saved
// ground after a turn all the same.
void FWantMore::MoveSmallFigure() {
    Scene& s = scene;
    SpriteRecord& figure = s.small;
    const int way = s.direction < 2 ? 0 : 1;
    PictureBox& sprite = *picSmSprite[way];
    PictureBox& mask = *picSmMask[way];
    PictureBox& work = *picSmWorkArea;
    PictureBox& background = *picSmBackGround;
    bool turned = false;
    switch (s.direction) {
        case 0:
            MoveSpriteRightDown(sprite, mask, work, background, *picForm, figure, kStep, kStep);
            figure.X += kStep;
            figure.Y += kStep;
            if ((turned = figure.Y == kSkyBottom)) s.direction = 1;
            break;
        case 1:
            MoveSpriteRightUp(sprite, mask, work, background, *picForm, figure, kStep, kStep);
            figure.X += kStep;
            figure.Y -= kStep;
            if ((turned = figure.Y == kSkyTop)) s.direction = 0;
            break;
        case 2:
            MoveSpriteLeftDown(sprite, mask, work, background, *picForm, figure, kStep, kStep);
            figure.X -= kStep;
            figure.Y += kStep;
            if ((turned = figure.Y == kSkyBottom)) s.direction = 3;
            break;
        default:
            MoveSpriteLeftUp(sprite, mask, work, background, *picForm, figure, kStep, kStep);
            figure.X -= kStep;
            figure.Y -= kStep;
            if ((turned = figure.Y == kSkyTop)) s.direction = 2;
            break;
    }
    figure.Fresh = turned;
    if ((s.act == 1 && figure.X >= 400) || (s.act == 2 && figure.X < -39)) {
        s.actGo = false;
        s.actSetUp = false;
        s.actTicks = 0;
    }
}

void FWantMore::tmrUFO_Timer() {
    Scene& s = scene;
    if (s.Ticks == 0) {
        s.ufoIn = SpriteRecord{-40, 40, 0, false, false, false, 7, 0, 48};
        s.ufoOut = SpriteRecord{kHoverAt, 43, 0, false, false, false, 7, 0, 48};
        s.plane = SpriteRecord{400, 56, 0, false, false, false, 0, 0, 64};
        s.ufoStep = kStep;
        s.captiveStep = kStep;
        s.captives = {StartingCaptive(), SpriteRecord{}, SpriteRecord{}, SpriteRecord{}};
        s.planePace = 2;
        s.ufoGone = s.lastPass = s.planeFramesDown = false;
        s.hoverTicks = s.rayRows = s.captivePasses = s.shrinkRows = s.pauseTicks = 0;
        s.planeDelay = 0;
        s.rayFirst = s.shrinkFirst = true;  // the ray's first calls compose it
        smTimer->SetEnabled(false);
        LayGroundUnder(s.ufoIn);
    }
    if (s.Ticks > 35) {
        RunScript();
        if (!tmrUFO->Enabled()) return;  // the script is over and starts at 0 next time
    }
    if (s.ufoIn.X < 400) ++s.Ticks;
}

void FWantMore::RunScript() {
    Scene& s = scene;
    if (!s.ufoGone) {
        if (s.ufoStep != 0)
            MoveSpriteRightUp(*picUFO, *picUFOMask, *picSmWorkArea, *picSmBackGround, *picForm, s.ufoIn, kStep, 0);
        else
            DrawSpriteInPlace(*picUFO, *picUFOMask, *picSmWorkArea, *picSmBackGround, *picForm, s.ufoIn);
        StepFrame(s.ufoIn);
    }
    if (s.ufoIn.X < kHoverAt) {
        s.ufoIn.X += s.ufoStep;
        return;
    }
    s.ufoStep = 0;
    if (s.hoverTicks < 10) {
        ++s.hoverTicks;
        return;
    }
    if (s.rayRows < kRayPauseOver) {
        s.rayRows += 5;
        if (s.rayRows < kRayFull) GrowRay(*picRay, *picRay_Msk, *picRay_WA, *picRay_BG, *picForm, kRayX, kRayY, s.rayFirst, s.rayRows);
        return;
    }
    if (RaiseCaptives()) return;

    s.shrinkRows += 5;
    if (s.shrinkRows <= kRayFull) {
        ShrinkRay(*picRay_WA, *picRay_BG, *picForm, kRayX, kRayY, s.shrinkFirst, kRayFull - s.shrinkRows, s.shrinkRows);
        return;
    }
    if (!s.ufoGone) {
        s.ufoGone = true;
        LayGroundUnder(s.ufoOut);
    }
    if (s.ufoOut.Y >= -39) {
        MoveUfoLeftUp(*picUFO, *picUFOMask, *picSmWorkArea, *picSmBackGround, *picForm, s.ufoOut, kStep, kStep);
        s.ufoOut.X -= kStep;
        s.ufoOut.Y -= kStep;
        StepFrame(s.ufoOut);
        return;
    }
    if (s.pauseTicks < 150) {
        ++s.pauseTicks;
        return;
    }
    if (s.plane.X >= -249) {
        MoveAeroplane(*picPlaneSpr, *picPlaneMsk, *picAirSignSpr, *picAirSignMsk, *picAirSignWA, *picAirSignBG, *picForm,
                      s.plane, kStep);
        s.plane.X -= kStep;
        MovePlaneFrame();
        return;
    }
    for (SpriteRecord& captive : s.captives) captive.Y = kGround;
    s.Ticks = 0;
    s.act = 0;
    s.actGo = false;
    smTimer->SetEnabled(true);
    tmrUFO->SetEnabled(false);
}

// The saved ground that a UFO's first step gives back where it starts: the
// stage's own ground there. The surface still holds what the small figure
// left, with 7 columns beyond its width that land on the stage when the UFO
// comes in at X -40, or the ground of the hovering UFO, 3 pixels off from
// where the leaving one starts.
void FWantMore::LayGroundUnder(const SpriteRecord& ufo) {
    platform::BitBlt(picSmBackGround->hDC(), 0, 0, picUFOMask->Width(), picUFOMask->Height(), &stageGround, ufo.X, ufo.Y,
                     platform::SRCCOPY);
}

// The propeller's frame every third tick, up from 0 to 7 and down again.
void FWantMore::MovePlaneFrame() {
    Scene& s = scene;
    if (s.planeDelay != s.planePace) {
        ++s.planeDelay;
        return;
    }
    s.planeDelay = 0;
    std::int32_t& frame = s.plane.FrameIndex;
    if (!s.planeFramesDown) {
        if (frame == 7) {
            frame = 6;
            s.planeFramesDown = true;
        } else {
            ++frame;
        }
    } else if (frame == 0) {
        frame = 1;
        s.planeFramesDown = false;
    } else {
        --frame;
    }
}

// The captives rise up the ray: the first alone, the others joining it on
// its first way up; each starts again from the ground until the first has
// made its second way up. True when one was drawn this tick.
bool FWantMore::RaiseCaptives() {
    Scene& s = scene;
    SpriteRecord& first = s.captives[0];
    if (s.captivePasses == 0) {
        if (first.Y == 197)
            s.captives[1] = StartingCaptive();
        else if (first.Y == 143)
            s.captives[2] = StartingCaptive();
        else if (first.Y == 89)
            s.captives[3] = StartingCaptive();
    }
    if (first.Y >= 39) {
        first.Y -= s.captiveStep;
    } else if (++s.captivePasses == 1) {
        first.Y = kGround;
    } else {
        s.lastPass = true;
        first.Y = 0;
    }
    for (int i = 1; i < 4; ++i) {
        SpriteRecord& captive = s.captives[i];
        if (!captive.Active) continue;
        if (captive.Y >= 36)
            captive.Y -= s.captiveStep;
        else
            captive.Y = s.lastPass ? 0 : kGround;
    }

    bool drawn = false;
    auto raise = [&](SpriteRecord& captive) {
        RaiseCaptive(*picCaptive, *picCaptiveMsk, *picCaptiveWA, *picCaptiveBG, *picForm, captive, s.captiveStep);
        drawn = true;
    };
    if (!(s.lastPass && first.Y < 36)) raise(first);
    for (int i = 1; i < 4; ++i) {
        SpriteRecord& captive = s.captives[i];
        if (captive.Active && (!s.lastPass || captive.Y >= 36)) raise(captive);
    }
    return drawn;
}

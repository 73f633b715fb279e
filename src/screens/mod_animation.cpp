#include "screens/mod_animation.h"

namespace modAnimation {

using platform::BitBlt;
using platform::SRCAND;
using platform::SRCCOPY;
using platform::SRCPAINT;

namespace {

// Where a direction puts things, relative to the record's X and Y: the
// region copied from the stage, and in the work picture the new figure and
// the old one, whose background goes back.
struct Offsets {
    std::int32_t regionX, regionY;
    std::int32_t newX, newY;
    std::int32_t oldX, oldY;
};

std::int32_t FrameSource(const SpriteRecord& record) {
    return record.FrameCount >= 1 ? record.FrameWidth * record.FrameIndex : 0;
}

// The work and background pictures are hidden: they need no Refresh.
void Step(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background, PictureBox& stage,
          const SpriteRecord& record, std::int32_t dx, std::int32_t dy, const Offsets& at) {
    const std::int32_t w = mask.Width();
    const std::int32_t h = mask.Height();
    const std::int32_t x = record.X + at.regionX;
    const std::int32_t y = record.Y + at.regionY;
    BitBlt(work.hDC(), 0, 0, w + dx, h + dy, stage.hDC(), x, y, SRCCOPY);
    // A turn needs no shifted restore: the last step saved this ground under
    // the figure's own place, whatever its direction, so all of its rows
    // still fit where the old figure stands.
    BitBlt(work.hDC(), at.oldX, at.oldY, w, h, background.hDC(), 0, 0, SRCCOPY);
    BitBlt(background.hDC(), 0, 0, w, h, work.hDC(), at.newX, at.newY, SRCCOPY);
    if (!record.Erase) Stencil(work, at.newX, at.newY, w, h, mask, 0, sprite, FrameSource(record));
    BitBlt(stage.hDC(), x, y, w + dx, h + dy, work.hDC(), 0, 0, SRCCOPY);
    stage.Refresh();
}

}  // namespace

void Stencil(PictureBox& work, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
             PictureBox& mask, std::int32_t maskX, PictureBox& figure, std::int32_t figureX) {
    BitBlt(work.hDC(), x, y, width, height, mask.hDC(), maskX, 0, SRCAND);
    BitBlt(work.hDC(), x, y, width, height, figure.hDC(), figureX, 0, SRCPAINT);
}

void MoveSpriteRightDown(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                         PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy) {
    Step(sprite, mask, work, background, stage, record, dx, dy, {0, 0, dx, dy, 0, 0});
}

void MoveSpriteRightUp(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                       PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy) {
    Step(sprite, mask, work, background, stage, record, dx, dy, {0, -dy, dx, 0, 0, dy});
}

void MoveSpriteLeftDown(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                        PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy) {
    Step(sprite, mask, work, background, stage, record, dx, dy, {-dx, 0, 0, dy, dx, 0});
}

void MoveSpriteLeftUp(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                      PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy) {
    Step(sprite, mask, work, background, stage, record, dx, dy, {-dx, -dy, 0, 0, dx, dy});
}

// Every mover reads its mask at 0; this one exists for the UFO, whose strip
// of frames has a mask of one frame.
void MoveUfoLeftUp(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                   PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy) {
    MoveSpriteLeftUp(sprite, mask, work, background, stage, record, dx, dy);
}

void DrawSpriteInPlace(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox&, PictureBox& stage,
                       const SpriteRecord& record) {
    constexpr std::int32_t kUfoStep = 3;
    const std::int32_t w = mask.Width() + kUfoStep;
    const std::int32_t h = mask.Height();
    BitBlt(work.hDC(), 0, 0, w, h, stage.hDC(), record.X, record.Y, SRCCOPY);
    Stencil(work, kUfoStep, 0, mask.Width(), h, mask, 0, sprite, FrameSource(record));
    BitBlt(stage.hDC(), record.X, record.Y, w, h, work.hDC(), 0, 0, SRCCOPY);
    stage.Refresh();
}

void GrowRay(PictureBox& ray, PictureBox& rayMask, PictureBox& work, PictureBox& background, PictureBox& stage,
             std::int32_t x, std::int32_t y, bool& first, std::int32_t rows) {
    const std::int32_t w = ray.Width();
    const std::int32_t h = ray.Height();
    if (first) {
        first = false;
        BitBlt(background.hDC(), 0, 0, w, h, stage.hDC(), x, y, SRCCOPY);
        BitBlt(work.hDC(), 0, 0, w, h, background.hDC(), 0, 0, SRCCOPY);
        Stencil(work, 0, 0, w, h, rayMask, 0, ray, 0);
    }
    BitBlt(stage.hDC(), x, y, w, rows, work.hDC(), 0, 0, SRCCOPY);
    stage.Refresh();
}

void ShrinkRay(PictureBox& work, PictureBox& background, PictureBox& stage, std::int32_t x, std::int32_t y,
               bool& first, std::int32_t topRow, std::int32_t rows) {
    if (first) {
        first = false;
        BitBlt(work.hDC(), 0, 0, work.Width(), work.Height(), background.hDC(), 0, 0, SRCCOPY);
    }
    BitBlt(stage.hDC(), x, y + topRow, work.Width(), rows, work.hDC(), 0, topRow, SRCCOPY);
    stage.Refresh();
}

void RaiseCaptive(PictureBox& captive, PictureBox& mask, PictureBox& work, PictureBox& ground, PictureBox& stage,
                  SpriteRecord& record, std::int32_t dy) {
    constexpr std::int32_t kUfoBottom = 69;
    const std::int32_t w = mask.Width();
    const std::int32_t h = mask.Height();
    if (record.Fresh) {
        BitBlt(work.hDC(), 0, 0, w, h + dy, ground.hDC(), 0, 0, SRCCOPY);
        Stencil(work, 0, 0, w, h, mask, 0, captive, 0);
    }
    const std::int32_t cut = record.Y < kUfoBottom + 1 ? kUfoBottom - record.Y : 0;
    BitBlt(stage.hDC(), record.X, record.Y - dy + cut, w, h + dy - cut, work.hDC(), 0, cut, SRCCOPY);
    stage.Refresh();
    record.Fresh = false;
}

void MoveAeroplane(PictureBox& plane, PictureBox& planeMask, PictureBox& sign, PictureBox& signMask, PictureBox& work,
                   PictureBox& background, PictureBox& stage, const SpriteRecord& record, std::int32_t dx) {
    const std::int32_t planeWidth = record.FrameWidth;
    const std::int32_t w = planeWidth + sign.Width();
    const std::int32_t h = planeMask.Height();
    const std::int32_t x = record.X - dx;
    // The plane keeps no frame count: its frame is read from the strip as it stands.
    const std::int32_t frame = record.FrameWidth * record.FrameIndex;
    BitBlt(work.hDC(), 0, 0, w + dx, h, stage.hDC(), x, record.Y, SRCCOPY);
    BitBlt(work.hDC(), dx, 0, w, h, background.hDC(), 0, 0, SRCCOPY);
    BitBlt(background.hDC(), 0, 0, w, h, work.hDC(), 0, 0, SRCCOPY);
    Stencil(work, 0, 0, planeWidth, h, planeMask, frame, plane, frame);
    Stencil(work, planeWidth, 0, sign.Width(), h, signMask, 0, sign, 0);
    BitBlt(stage.hDC(), x, record.Y, w + dx, h, work.hDC(), 0, 0, SRCCOPY);
    stage.Refresh();
}

}  // namespace modAnimation

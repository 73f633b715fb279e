// The movers of the want-more scene. A mover takes a figure one step across
// the stage through its work picture: the stage region that the old and the
// new place cover is copied out, the old place gets its saved background
// back, the ground under the new place is saved, the figure is stencilled in
// with its mask, and the region goes back to the stage in one blit. The
// callers move the record's X and Y themselves.
#pragma once

#include <cstdint>

#include "platform/display/picture_box.h"
#include "platform/display/sprite_record.h"

namespace modAnimation {

using platform::PictureBox;

// The figure stencilled into a work picture at x, y: its mask (read at
// maskX) ANDed, then the figure (read at figureX) ORed over it.
void Stencil(PictureBox& work, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
             PictureBox& mask, std::int32_t maskX, PictureBox& figure, std::int32_t figureX);

// A step of dx to the right or left and dy down or up. W and H are the
// mask's size; a figure with frames is read from its strip at
// FrameWidth × FrameIndex.
void MoveSpriteRightDown(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                         PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy);
void MoveSpriteRightUp(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                       PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy);
void MoveSpriteLeftDown(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                        PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy);
void MoveSpriteLeftUp(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                      PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy);
// The UFO's way out: its frames from the strip, its one mask for all.
void MoveUfoLeftUp(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                   PictureBox& stage, const SpriteRecord& record, std::int32_t dx, std::int32_t dy);

// The hovering UFO: its next frame stencilled where its last step to the
// right left it, 3 pixels right of X. No background goes back, since all
// its frames share one outline.
void DrawSpriteInPlace(PictureBox& sprite, PictureBox& mask, PictureBox& work, PictureBox& background,
                       PictureBox& stage, const SpriteRecord& record);

// The ray revealed downward: at the first call (first true, then cleared)
// the ground under it is saved and the whole ray composed on it; each call
// shows its top rows.
void GrowRay(PictureBox& ray, PictureBox& rayMask, PictureBox& work, PictureBox& background, PictureBox& stage,
             std::int32_t x, std::int32_t y, bool& first, std::int32_t rows);
// The ground given back from the ray's bottom upward: rows from topRow on.
void ShrinkRay(PictureBox& work, PictureBox& background, PictureBox& stage, std::int32_t x, std::int32_t y,
               bool& first, std::int32_t topRow, std::int32_t rows);

// A captive drawn up by dy on the ray's colour, the dy rows below it wiping
// its last place; above row 70 it is cut row by row under the UFO.
void RaiseCaptive(PictureBox& captive, PictureBox& mask, PictureBox& work, PictureBox& ground, PictureBox& stage,
                  SpriteRecord& record, std::int32_t dy);

// The aeroplane and its sign side by side, a step of dx to the left.
void MoveAeroplane(PictureBox& plane, PictureBox& planeMask, PictureBox& sign, PictureBox& signMask, PictureBox& work,
                   PictureBox& background, PictureBox& stage, const SpriteRecord& record, std::int32_t dx);

}  // namespace modAnimation

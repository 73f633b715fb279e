// The record of one moving figure on a stage: where it stands, which image
// it shows, and the flags of its lane. The high score's balloons use the
// first fields; the frames are for figures drawn from a strip.
#pragma once

#include <cstdint>

struct SpriteRecord {
    std::int32_t X = 0;  // left edge on the stage, pixels
    std::int32_t Y = 0;  // top edge on the stage, pixels
    std::int16_t Kind = 0;
    bool Active = false;  // the lane has started
    bool Fresh = false;   // restart at the bottom; no old background to put back
    bool Erase = false;   // this tick wipes the lane instead of drawing it
    std::int16_t FrameCount = 0;
    std::int16_t FrameIndex = 0;
    std::int16_t FrameWidth = 0;
};

// The record of one moving figure on a stage: where it stands, which image
// it shows, and the flags of its path. The high score's balloons use the
// first fields; the frames are for figures drawn from a strip, whose frame i
// stands at FrameWidth × i.
#pragma once

#include <cstdint>

struct SpriteRecord {
    std::int32_t X = 0;  // left edge on the stage, pixels
    std::int32_t Y = 0;  // top edge on the stage, pixels
    std::int16_t Kind = 0;
    bool Active = false;  // the figure is on its way
    bool Fresh = false;   // just started, with no saved background that fits, or turned
    bool Erase = false;   // this step wipes the figure instead of drawing it
    std::int16_t FrameCount = 0;
    std::int32_t FrameIndex = 0;
    std::int32_t FrameWidth = 0;
};

#include <gtest/gtest.h>

#include "platform/display/twips.h"

TEST(Twips, EachValueRoundsToTheNearestPixelByItself) {
    for (const auto& [twips, pixels] : {std::pair{7, 0}, {8, 1}, {22, 1}, {23, 2}, {-8, -1}, {260, 17}, {520, 35}})
        EXPECT_EQ(platform::TwipsToPixels(twips), pixels) << twips;
    // The top, 71.7 px, and the height, 16 px, round each by itself.
    EXPECT_EQ(platform::TwipsRect(1320, 1075, 1095, 240), QRect(88, 72, 73, 16));
}

#include <gtest/gtest.h>

#include "platform/display/twips.h"

using platform::PixelsToTwips;
using platform::TwipsRect;
using platform::TwipsToPixels;

TEST(Twips, EachValueRoundsToTheNearestPixelByItself) {
    EXPECT_EQ(TwipsToPixels(7), 0);
    EXPECT_EQ(TwipsToPixels(8), 1);
    EXPECT_EQ(TwipsToPixels(22), 1);
    EXPECT_EQ(TwipsToPixels(23), 2);
    EXPECT_EQ(TwipsToPixels(-8), -1);
    EXPECT_EQ(PixelsToTwips(642), 9630);
    // Rows 260 twips apart don't fall 17 pixels apart.
    EXPECT_EQ(TwipsToPixels(260), 17);
    EXPECT_EQ(TwipsToPixels(520), 35);
    // Top 1075 twips is 71.7 px and rounds up by itself, as does the height.
    EXPECT_EQ(TwipsRect(1320, 1075, 1095, 240), QRect(88, 72, 73, 16));
    EXPECT_EQ(TwipsRect(680, 4800, 495, 450), QRect(45, 320, 33, 30));
    EXPECT_EQ(TwipsRect(7920, 3250, 1575, 840), QRect(528, 217, 105, 56));
}

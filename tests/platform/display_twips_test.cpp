#include <array>

#include <gtest/gtest.h>

#include "engine/cards.h"
#include "platform/twips.h"

using platform::PixelsToTwips;
using platform::TwipsRect;
using platform::TwipsToPixels;

TEST(Twips, RowsOfAColumnAreConvertedOneByOne) {
    // King (rank 12) at the top down to the Ace at the bottom.
    const std::array<int, 13> expected = {0, 17, 35, 52, 69, 87, 104, 121, 139, 156, 173, 191, 208};
    for (int rank = 12; rank >= 0; --rank)
        EXPECT_EQ(TwipsToPixels(GetCardY(rank * 4 + 2)), expected[12 - rank]) << "rank " << rank;
}

TEST(Twips, SuitColumnsAndHandRow) {
    EXPECT_EQ(TwipsToPixels(GetCardX(0)), 144);   // Clubs
    EXPECT_EQ(TwipsToPixels(GetCardX(1)), 240);   // Diamonds
    EXPECT_EQ(TwipsToPixels(GetCardX(3)), 336);   // Spades
    EXPECT_EQ(TwipsToPixels(GetCardX(2)), 432);   // Hearts
    EXPECT_EQ(TwipsToPixels(kHandTopTwips), 340);
    EXPECT_EQ(TwipsToPixels(kHandSpacingTwips), 24);
    EXPECT_EQ(TwipsToPixels(9630), 642);
}

TEST(Twips, RoundsToTheNearestPixel) {
    EXPECT_EQ(TwipsToPixels(7), 0);
    EXPECT_EQ(TwipsToPixels(8), 1);
    EXPECT_EQ(TwipsToPixels(22), 1);
    EXPECT_EQ(TwipsToPixels(23), 2);
    EXPECT_EQ(TwipsToPixels(-8), -1);
    EXPECT_EQ(PixelsToTwips(642), 9630);
}

TEST(Twips, RectangleConvertsEachValueByItself) {
    // Top 1075 twips is 71.7 px and rounds up by itself.
    EXPECT_EQ(TwipsRect(1320, 1075, 1095, 240), QRect(88, 72, 73, 16));
    EXPECT_EQ(TwipsRect(680, 4800, 495, 450), QRect(45, 320, 33, 30));
    EXPECT_EQ(TwipsRect(7920, 3250, 1575, 840), QRect(528, 217, 105, 56));
}

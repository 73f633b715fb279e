// Cards: one integer 0..51, rank index × 4 + suit index. Ace is rank 0 and
// King rank 12; the suits are Clubs 0, Diamonds 1, Hearts 2, Spades 3.
#pragma once

#include <cstdint>
#include <string>

using Card = std::int16_t;

constexpr Card kSevenOfHearts = 26;
constexpr Card kFirstSeven = 24;  // the Sevens are 24..27
constexpr Card kLastSeven = 27;
constexpr int kSuitStep = 4;      // one rank along a suit

inline int SuitOf(int card) { return card % 4; }
inline int RankOf(int card) { return card / 4; }

// Card dimensions and table geometry, in twips.
constexpr int kCardWidthTwips = 1070;
constexpr int kCardHeightTwips = 1430;
constexpr int kHandSpacingTwips = 360;
constexpr int kHandTopTwips = 5100;

// A set of cards as bits 0..51.
using CardMask = std::uint64_t;
constexpr CardMask kClubsMask = 0x1111111111111ULL;  // bits 0, 4, .. 48: one suit
inline CardMask SuitMask(int suit) { return kClubsMask << suit; }
template <class Cards>
CardMask MaskOf(const Cards& cards) {
    CardMask mask = 0;
    for (int c : cards)
        if (c >= 0 && c <= 51) mask |= CardMask{1} << c;
    return mask;
}
inline bool InMask(CardMask mask, int card) {
    return card >= 0 && card <= 51 && ((mask >> card) & 1U);
}

std::string GetCardName(int card);  // "Seven of Hearts"
std::int16_t GetCardX(int card);    // column of the card's suit; 0 outside 0..51
std::int16_t GetCardY(int card);    // row of the card's rank; 0 outside 0..51
std::string GetRankText(int card);  // "A", "2" .. "10", "J", "Q", "K"; "" outside 0..51

#include "engine/cards.h"

namespace {

const char* const kRankNames[13] = {"Ace", "Two", "Three", "Four", "Five", "Six", "Seven",
                                    "Eight", "Nine", "Ten", "Jack", "Queen", "King"};
const char* const kRankTexts[13] = {"A", "2", "3", "4", "5", "6", "7",
                                    "8", "9", "10", "J", "Q", "K"};
const char* const kSuitNames[4] = {"Clubs", "Diamonds", "Hearts", "Spades"};

// The columns run Clubs, Diamonds, Spades, Hearts from left to right, so the
// Hearts column lies right of the Spades column although its index is lower.
const std::int16_t kSuitX[4] = {2160, 3600, 6480, 5040};

bool IsCard(int card) { return card >= 0 && card <= 51; }

}  // namespace

std::string GetCardName(int card) {
    if (!IsCard(card)) return " of ";
    return std::string(kRankNames[RankOf(card)]) + " of " + kSuitNames[SuitOf(card)];
}

std::int16_t GetCardX(int card) { return IsCard(card) ? kSuitX[SuitOf(card)] : 0; }

// King at the top (0), each lower rank 260 further down, the Ace at 3120.
std::int16_t GetCardY(int card) {
    return IsCard(card) ? static_cast<std::int16_t>((12 - RankOf(card)) * 260) : 0;
}

std::string GetRankText(int card) { return IsCard(card) ? kRankTexts[RankOf(card)] : ""; }

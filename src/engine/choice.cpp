// The routines that choose a computer seat's card among its candidates in
// maLowCards and maHighCards. Each erases both lists before it returns.
#include <array>
#include <cstdlib>

#include "engine/game_state.h"

using namespace modGlobal;

namespace {

// How far each candidate opens the way to the farthest card of its suit that
// the hand holds on that side, in card numbers (one rank counts 4). A Seven
// gives two entries: its reach downward and its reach upward.
struct Reach {
    // At most four ends and four Sevens in each of the two lists.
    static constexpr std::size_t kMostCandidates = 16;
    std::array<std::int16_t, kMostCandidates> gaps{};
    std::array<std::int32_t, kMostCandidates> cards{};
    std::size_t count = 0;
    std::int16_t maxGap = 0;

    void Add(int gap, int card) {
        if (count == kMostCandidates) return;
        gaps[count] = static_cast<std::int16_t>(gap);
        cards[count] = card;
        ++count;
        if (gap > maxGap) maxGap = static_cast<std::int16_t>(gap);
    }

    // The pick is a single slot: among equal maxima the last one wins.
    Card LastMaximum() const {
        Card pick = 0;
        for (std::size_t i = 0; i < count; ++i)
            if (gaps[i] == maxGap) pick = static_cast<Card>(cards[i]);
        return pick;
    }
};

Reach MeasureReach(const std::vector<Card>& hand, const std::vector<Card>& lowCards,
                   std::int16_t lowCount, const std::vector<Card>& highCards,
                   std::int16_t highCount) {
    const CardMask held = MaskOf(hand);
    Reach reach;
    if (lowCount > 0) {
        for (Card c : lowCards) {
            // The lowest held card of c's suit at or below c; c itself counts
            // as held, so the search ends on it at the latest.
            const CardMask atOrBelow = (CardMask{2} << c) - 1;
            const CardMask suit = (held | CardMask{1} << c) & SuitMask(SuitOf(c)) & atOrBelow;
            reach.Add(c - __builtin_ctzll(suit), c);
        }
    }
    if (highCount > 0) {
        for (Card c : highCards) {
            const CardMask atOrAbove = ~((CardMask{1} << c) - 1);
            const CardMask suit = (held | CardMask{1} << c) & SuitMask(SuitOf(c)) & atOrAbove;
            reach.Add(63 - __builtin_clzll(suit) - c, c);
        }
    }
    return reach;
}

}  // namespace

void Game::GetBestEasyCard(std::vector<Card>& /*hand*/, std::int16_t lowCount,
                           std::int16_t highCount, Card& card) {
    // One list of the low candidates followed by the high ones, drawn from
    // by chance: a Seven, standing in both, is twice as likely.
    const std::size_t lows = lowCount >= 1 ? maLowCards.size() : 0;
    const std::size_t highs = highCount > 0 ? maHighCards.size() : 0;
    if (lows + highs > 0) {
        const auto upper = static_cast<std::int32_t>(lows + highs) - 1;
        const auto pick = static_cast<std::size_t>(RandomInRange(0, upper));
        card = pick < lows ? maLowCards[pick] : maHighCards[pick - lows];
    }
    maLowCards.clear();
    maHighCards.clear();
}

void Game::GetBestMediumCard(std::vector<Card>& hand, std::int16_t lowCount,
                             std::int16_t highCount, Card& card) {
    const Reach reach = MeasureReach(hand, maLowCards, lowCount, maHighCards, highCount);
    card = reach.LastMaximum();
    maLowCards.clear();
    maHighCards.clear();
}

void Game::GetBestHardCard(std::vector<Card>& hand, std::int16_t lowCount,
                           std::int16_t highCount, Card& card) {
    Reach reach = MeasureReach(hand, maLowCards, lowCount, maHighCards, highCount);
    if (reach.count == 1) {
        card = static_cast<Card>(reach.cards[0]);
    } else {
        if (reach.maxGap == 0) {
            // No candidate leads on to another card of its suit: the card
            // farthest from its Seven goes first, Aces and Kings scoring 6.
            for (std::size_t i = 0; i < reach.count; ++i) {
                const auto score = static_cast<std::int16_t>(std::abs(RankOf(reach.cards[i]) - 6));
                reach.gaps[i] = score;
                if (score > reach.maxGap) reach.maxGap = score;
            }
        }
        card = reach.LastMaximum();
    }
    maLowCards.clear();
    maHighCards.clear();
}

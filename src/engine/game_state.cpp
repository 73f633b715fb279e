// Cards and hands: dealing, sorting, the table's cards, the human's hand row.
#include "engine/game_state.h"

#include <algorithm>

Game::Game(Table& table) : table_(table) {
    for (int i = 0; i < 52; ++i) maDeck[i] = static_cast<Card>(i);
}

std::vector<Card>& Game::Hand(int seat) {
    switch (seat) {
        case kSeatLeft: return maHand0;
        case kSeatTop: return maHand1;
        case kSeatRight: return maHand2;
        default: return maHand3;
    }
}

std::int16_t& Game::Money(int seat) {
    switch (seat) {
        case kSeatLeft: return miMoney0;
        case kSeatTop: return miMoney1;
        case kSeatRight: return miMoney2;
        default: return miMoney3;
    }
}

void Game::InitializeCardArrays() {
    for (int seat = 0; seat < 4; ++seat) Hand(seat).assign(13, 0);
}

void Game::DealCards() {
    for (int i = 0; i < 52; ++i) Hand(i % 4)[i / 4] = maDeck[i];
}

// Groups the hand by the table's column order: Clubs, Diamonds, Spades, Hearts.
void Game::SortIntoSuits(std::vector<Card>& hand) {
    static const int kColumnSuits[4] = {0, 1, 3, 2};
    std::vector<Card> grouped;
    grouped.reserve(hand.size());
    for (int suit : kColumnSuits)
        for (Card c : hand)
            if (SuitOf(c) == suit) grouped.push_back(c);
    hand = grouped;
}

// Descending, Kings first, so that a lower card of a column is painted over
// the higher one behind it.
void Game::SortCardsPlayed() {
    if (static_cast<std::size_t>(__builtin_popcountll(tableMask_)) == maCardsPlayed.size()) {
        // The table's cards are distinct, so their set gives the order at once.
        std::size_t i = 0;
        for (CardMask bits = tableMask_; bits != 0;) {
            const int highest = 63 - __builtin_clzll(bits);
            maCardsPlayed[i++] = static_cast<Card>(highest);
            bits &= ~(CardMask{1} << highest);
        }
        return;
    }
    modGlobal::SortCards(maCardsPlayed);
    std::reverse(maCardsPlayed.begin(), maCardsPlayed.end());
}

void Game::AddToCardsPlayed(Card card) {
    maCardsPlayed.resize(static_cast<std::size_t>(miCardsPlayed) + 1);
    maCardsPlayed[miCardsPlayed] = card;
    ++miCardsPlayed;
    tableMask_ |= MaskOf(std::array<Card, 1>{card});
}

void Game::RemoveCard(std::vector<Card>& hand, std::size_t index) {
    // A hand is never made empty: its last card stays in the array after it
    // has been played. The count on the table is what ends the hand.
    if (hand.size() <= 1 || index >= hand.size()) return;
    hand.erase(hand.begin() + static_cast<std::ptrdiff_t>(index));
}

void Game::DrawUserHand() {
    miCardSpacing = kHandSpacingTwips;
    const int n = static_cast<int>(maHand3.size());
    // Centred on the window's outer width, border included, so the row sits
    // a little right of the middle of the table.
    miCardLeft = static_cast<std::int16_t>(table_.FormWidth() / 2 -
                                           ((n - 1) * kHandSpacingTwips + kCardWidthTwips) / 2);
    miCardTop = kHandTopTwips;
    table_.DrawUserHand(maHand3, miCardLeft, miCardTop, miCardSpacing);
}

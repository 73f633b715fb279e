// Cards and hands: dealing, sorting, the table's cards, the human's hand row.
#include "engine/game_state.h"

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

void Game::SortCardsPlayed() { maCardsPlayed.SortDescending(); }

void Game::AddToCardsPlayed(Card card) { maCardsPlayed.Add(card); }

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

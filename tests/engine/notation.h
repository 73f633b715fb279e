// Cards in text for the tests: rank A 2 3 4 5 6 7 8 9 T J Q K, suit C D H S,
// so "7H" is the Seven of Hearts (26) and "KS" the King of Spades (51).
#pragma once

#include <array>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/cards.h"

inline Card ParseCard(const std::string& text) {
    static const std::string kRanks = "A23456789TJQK";
    static const std::string kSuits = "CDHS";
    const auto rank = kRanks.find(text.at(0));
    const auto suit = kSuits.find(text.at(1));
    if (text.size() != 2 || rank == std::string::npos || suit == std::string::npos)
        throw std::invalid_argument("not a card: " + text);
    return static_cast<Card>(rank * 4 + suit);
}

inline std::vector<Card> ParseCards(const std::string& text) {
    std::vector<Card> cards;
    std::istringstream in(text);
    std::string word;
    while (in >> word) cards.push_back(ParseCard(word));
    return cards;
}

inline std::string CardText(int card) {
    if (card < 0 || card > 51) return "??";
    return std::string(1, "A23456789TJQK"[card / 4]) + "CDHS"[card % 4];
}

inline std::string CardsText(const std::vector<Card>& cards) {
    std::string text;
    for (Card c : cards) text += (text.empty() ? "" : " ") + CardText(c);
    return text;
}

// The deck that deals these four hands of thirteen, seat 0 to 3.
inline std::array<Card, 52> DeckDealing(const std::array<std::string, 4>& hands) {
    std::array<Card, 52> deck{};
    for (int seat = 0; seat < 4; ++seat) {
        const std::vector<Card> cards = ParseCards(hands[seat]);
        if (cards.size() != 13) throw std::invalid_argument("a hand needs 13 cards");
        for (int i = 0; i < 13; ++i) deck[i * 4 + seat] = cards[i];
    }
    return deck;
}

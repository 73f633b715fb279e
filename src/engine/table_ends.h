// The ends of the suits' runs on the table, and the hand cards that extend
// them. Shared by the human's legal-card test and the computers' turns.
#pragma once

#include <array>
#include <vector>

#include "engine/cards.h"

struct SuitEnds {
    std::array<Card, 4> cards{};
    int count = 0;
    void Add(Card card) { cards[count++] = card; }
    const Card* begin() const { return cards.data(); }
    const Card* end() const { return cards.data() + count; }
};

struct TableEnds {
    SuitEnds low;   // lowest card of each suit on the table, by ascending suit
    SuitEnds high;  // highest card of each suit on the table, by descending suit
};

TableEnds FindTableEnds(CardMask onTable);

// For each end in order, the held card equal to end + step is appended.
void AppendExtensions(CardMask held, const SuitEnds& ends, int step, std::vector<Card>& out);


// The cards on the table: a list in the order they were laid (or sorted, for
// painting), and the same cards as a set for the scans of the suits' ends.
// Both change only through this type, so they can't disagree.
#pragma once

#include <cassert>
#include <vector>

#include "engine/cards.h"

class CardsPlayed {
public:
    // A card on the table is a card 0..51 that isn't there yet.
    void Add(Card card) {
        assert(card >= 0 && card <= 51 && !InMask(mask_, card));
        cards_.push_back(card);
        mask_ |= CardMask{1} << card;
    }
    void Clear() {
        cards_.clear();
        mask_ = 0;
    }
    // Kings first, Aces last: a lower card of a column is painted over the
    // higher one behind it. The cards are distinct, so the set gives the order.
    void SortDescending() {
        auto out = cards_.begin();
        for (CardMask bits = mask_; bits != 0;) {
            const int highest = 63 - __builtin_clzll(bits);
            *out++ = static_cast<Card>(highest);
            bits &= ~(CardMask{1} << highest);
        }
    }

    const std::vector<Card>& Cards() const { return cards_; }
    CardMask Mask() const { return mask_; }
    std::size_t size() const { return cards_.size(); }
    std::vector<Card>::const_iterator begin() const { return cards_.begin(); }
    std::vector<Card>::const_iterator end() const { return cards_.end(); }

private:
    std::vector<Card> cards_;
    CardMask mask_ = 0;
};

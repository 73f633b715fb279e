#include "engine/table_ends.h"

TableEnds FindTableEnds(CardMask onTable) {
    TableEnds ends;
    for (int i = 0; i < 4; ++i) {
        // The lowest card on the table of suit i, then the highest of suit 3 - i.
        const CardMask low = onTable & SuitMask(i);
        if (low) ends.low.Add(static_cast<Card>(__builtin_ctzll(low)));
        const CardMask high = onTable & SuitMask(3 - i);
        if (high) ends.high.Add(static_cast<Card>(63 - __builtin_clzll(high)));
    }
    return ends;
}

void AppendExtensions(CardMask held, const SuitEnds& ends, int step, std::vector<Card>& out) {
    for (Card end : ends)
        if (InMask(held, end + step)) out.push_back(static_cast<Card>(end + step));
}

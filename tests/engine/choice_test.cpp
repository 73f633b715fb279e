// The program's generator and the three routines that choose a computer's card.
#include "game_fixture.h"

using modGlobal::glRandomSeed;
using modGlobal::RandomInRange;

TEST(RandomInRange, StepsWorkedOutByHand) {
    const struct {
        std::int32_t seed, a, b, result, seedAfter;
    } cases[] = {
        {1, 0, 2147483647, 48271, 48271},
        // 70000 / 44488 = 1.57: the quotient rounds up to 2, where the
        // textbook generator truncates to 1 and would give 1231486353.
        {70000, 0, 2147483647, 1231482954, 1231482954},
        // A tie rounds to even: 1.5 gives 2, and 2.5 gives 2 as well.
        {66732, 0, 2147483647, 1073733326, 1073733326},
        {111220, 0, 2147483647, 1073733326, 1073733326},
        {2147483646, 0, 2147483647, 2147435376, 2147435376},  // below 1: wraps by the modulus
        {70000, 1, 6, 1231482954 % 6 + 1, 1231482954},
        {70000, 6, 1, 1231482954 % 6 + 1, 1231482954},
        {70000, 0, 0, 0, 1231482954},  // the seed moves all the same
    };
    for (const auto& c : cases) {
        glRandomSeed = c.seed;
        EXPECT_EQ(RandomInRange(c.a, c.b), c.result) << c.seed << " " << c.a << " " << c.b;
        EXPECT_EQ(glRandomSeed, c.seedAfter);
    }
    glRandomSeed = 0;
    RandomInRange(0, 10);
    EXPECT_NE(glRandomSeed, 0);  // seeded from the clock on first use
}

// Candidates in the order a turn collects them: low ends, then high ends, a
// Seven in both lists. Easy draws by the generator; Medium takes the longest
// reach toward a far card of the suit in hand, the last of equals; Hard does
// the same, and when nothing reaches, the card farthest from its Seven.
TEST(Choice, EachRoutinePicksItsCard) {
    const struct {
        ChoiceRoutine routine;
        std::int32_t seed;  // for the easy routine
        std::string low, high, hand, chosen;
    } cases[] = {
        {kEasy, 70000, "4C 7D", "7D", "4C 7D 9S", "4C"},   // 1231482954: index 0 of 3
        {kEasy, 70000, "4C 7D", "9H 7D", "4C 7D 9H", "9H"},  // and index 2 of 4
        {kEasy, 12345, "7S", "7S", "7S 2H", "7S"},
        // 5C reaches down to AC and 9D up to KD, 16 each: the high one, listed last.
        {kMedium, 0, "5C", "9D", "AC 5C 9D KD", "9D"},
        {kHard, 0, "5C", "9D", "AC 5C 9D KD", "9D"},
        {kMedium, 0, "5C", "9D", "AC 5C 9D JD", "5C"},
        // The reach runs to the farthest held card, over gaps in the suit;
        // the Seven of Clubs reaches the Ace and the King (24).
        {kMedium, 0, "6H 7C", "8H 7C", "2H 6H 8H QH 7C AC KC", "7C"},
        {kMedium, 0, "6H 7C", "8H 7C", "2H 6H 8H QH 7C 8C", "8H"},
        {kMedium, 0, "6C 5D", "9S 8H", "6C 5D 9S 8H", "8H"},
        {kMedium, 0, "6C 5D", "", "6C 5D", "5D"},
        {kHard, 0, "6C", "KS", "6C KS", "KS"},
        {kHard, 0, "AD 6C", "8H 9S", "AD 6C 8H 9S", "AD"},
        {kHard, 0, "AD", "KS", "AD KS", "KS"},
        {kHard, 0, "2C", "", "2C", "2C"},
        {ChoiceRoutine{7}, 0, "5C", "9D", "5C 9D", "AC"},  // no routine: card 0 stands
    };
    NullTable table;
    Game game(table);
    for (const auto& c : cases) {
        SCOPED_TRACE("routine " + std::to_string(c.routine) + ": " + c.low + " / " + c.high +
                     " in " + c.hand);
        glRandomSeed = c.seed;
        game.maLowCards = ParseCards(c.low);
        game.maHighCards = ParseCards(c.high);
        std::vector<Card> hand = ParseCards(c.hand);
        EXPECT_EQ(CardsText({game.ChooseCard(hand, c.routine)}), c.chosen);
        EXPECT_TRUE(c.routine == 7 || (game.maLowCards.empty() && game.maHighCards.empty()));
    }
}

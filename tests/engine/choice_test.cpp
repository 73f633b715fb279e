// The program's generator and the three routines that choose a computer's card.
#include <gtest/gtest.h>

#include "engine/game_state.h"
#include "notation.h"
#include "recording_table.h"

using modGlobal::glRandomSeed;
using modGlobal::RandomInRange;

TEST(RandomInRange, StepsWorkedOutByHand) {
    glRandomSeed = 1;
    EXPECT_EQ(RandomInRange(0, 2147483647), 48271);
    EXPECT_EQ(RandomInRange(0, 2147483647), 182605794);  // 48271 = 1 × 44488 + 3783

    // 70000 / 44488 = 1.57: the quotient rounds up to 2, where the textbook
    // generator truncates to 1 and would give 1231486353.
    glRandomSeed = 70000;
    EXPECT_EQ(RandomInRange(0, 2147483647), 1231482954);
    // A tie rounds to even: 66732 / 44488 = 1.5 gives 2, 111220 / 44488 = 2.5 gives 2.
    glRandomSeed = 66732;
    EXPECT_EQ(RandomInRange(0, 2147483647), 1073733326);
    glRandomSeed = 111220;
    EXPECT_EQ(RandomInRange(0, 2147483647), 1073733326);
    // A result below 1 wraps by the modulus.
    glRandomSeed = 2147483646;
    EXPECT_EQ(RandomInRange(0, 2147483647), 2147435376);
}

TEST(RandomInRange, RangesInEitherOrder) {
    glRandomSeed = 70000;
    EXPECT_EQ(RandomInRange(1, 6), 1231482954 % 6 + 1);
    glRandomSeed = 70000;
    EXPECT_EQ(RandomInRange(6, 1), 1231482954 % 6 + 1);
    glRandomSeed = 70000;
    EXPECT_EQ(RandomInRange(0, 0), 0);
    EXPECT_EQ(glRandomSeed, 1231482954);  // the seed moved all the same
    for (int i = 0; i < 200; ++i) {
        const auto v = RandomInRange(5, 2);
        ASSERT_GE(v, 2);
        ASSERT_LE(v, 5);
    }
    glRandomSeed = 0;
    RandomInRange(0, 10);
    EXPECT_NE(glRandomSeed, 0);  // seeded from the clock on first use
}

class Choice : public ::testing::Test {
protected:
    RecordingTable table;
    Game game{table};

    void Candidates(const std::string& low, const std::string& high) {
        game.maLowCards = ParseCards(low);
        game.maHighCards = ParseCards(high);
    }
    Card Run(ChoiceRoutine routine, const std::string& hand) {
        std::vector<Card> cards = ParseCards(hand);
        const Card card = game.ChooseCard(cards, routine);
        EXPECT_TRUE(game.maLowCards.empty());
        EXPECT_TRUE(game.maHighCards.empty());
        return card;
    }
};

TEST_F(Choice, EasyDrawsFromLowThenHighWithSevensTwice) {
    glRandomSeed = 70000;  // the next value is 1231482954: index 0 of 3, index 2 of 4
    Candidates("4C 7D", "7D");
    EXPECT_EQ(CardText(Run(kEasy, "4C 7D 9S")), "4C");
    glRandomSeed = 70000;
    Candidates("4C 7D", "9H 7D");
    EXPECT_EQ(CardText(Run(kEasy, "4C 7D 9H")), "9H");
    // A Seven as the only legal card comes from a list of two equal entries.
    glRandomSeed = 12345;
    Candidates("7S", "7S");
    EXPECT_EQ(CardText(Run(kEasy, "7S 2H")), "7S");
}

TEST_F(Choice, MediumAndHardPreferTheLastOfEqualReaches) {
    // Low candidate 5C reaches down to the hand's AC (gap 16); the high
    // candidate 9D reaches up to KD (gap 16): the high one, listed last, wins.
    for (ChoiceRoutine routine : {kMedium, kHard}) {
        Candidates("5C", "9D");
        EXPECT_EQ(CardText(Run(routine, "AC 5C 9D KD")), "9D");
    }
    // A longer reach wins wherever it stands.
    Candidates("5C", "9D");
    EXPECT_EQ(CardText(Run(kMedium, "AC 5C 9D JD")), "5C");
}

TEST_F(Choice, GapsCountTheFarthestHeldCardOfTheSuit) {
    // 6H can reach 2H (gap 16) though 5H and 4H are missing; 8H reaches QH
    // (gap 16); the Seven of Clubs reaches the Ace (24) and the King (24).
    Candidates("6H 7C", "8H 7C");
    EXPECT_EQ(CardText(Run(kMedium, "2H 6H 8H QH 7C AC KC")), "7C");
    // Without the Ace and King of Clubs the Seven reaches only 8C (gap 4).
    Candidates("6H 7C", "8H 7C");
    EXPECT_EQ(CardText(Run(kMedium, "2H 6H 8H QH 7C 8C")), "8H");
}

TEST_F(Choice, MediumWithNoReachTakesTheVeryLastCandidate) {
    Candidates("6C 5D", "9S 8H");
    EXPECT_EQ(CardText(Run(kMedium, "6C 5D 9S 8H")), "8H");
    Candidates("6C 5D", "");
    EXPECT_EQ(CardText(Run(kMedium, "6C 5D")), "5D");
}

TEST_F(Choice, HardWithNoReachScoresTheDistanceFromTheSeven) {
    Candidates("6C", "KS");
    EXPECT_EQ(CardText(Run(kHard, "6C KS")), "KS");
    Candidates("AD 6C", "8H 9S");
    EXPECT_EQ(CardText(Run(kHard, "AD 6C 8H 9S")), "AD");
    // Equal scores: the last wins (Ace and King both score 6).
    Candidates("AD", "KS");
    EXPECT_EQ(CardText(Run(kHard, "AD KS")), "KS");
    // A single candidate is returned as it is.
    Candidates("2C", "");
    EXPECT_EQ(CardText(Run(kHard, "2C")), "2C");
}

TEST_F(Choice, AnUnknownSelectorChoosesCardZero) {
    Candidates("5C", "9D");
    std::vector<Card> hand = ParseCards("5C 9D");
    EXPECT_EQ(game.ChooseCard(hand, 7), 0);
}

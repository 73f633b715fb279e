#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "engine/game_state.h"
#include "notation.h"
#include "recording_table.h"

TEST(Cards, NamesAndTablePlaces) {
    EXPECT_EQ(GetCardName(26), "Seven of Hearts");
    EXPECT_EQ(GetCardName(0), "Ace of Clubs");
    EXPECT_EQ(GetCardName(51), "King of Spades");
    EXPECT_EQ(GetCardY(ParseCard("KD")), 0);
    EXPECT_EQ(GetCardY(ParseCard("AS")), 3120);
    EXPECT_EQ(GetCardY(ParseCard("7C")), 1560);
    // Columns left to right: Clubs, Diamonds, Spades, Hearts.
    EXPECT_EQ(GetCardX(ParseCard("2C")), 2160);
    EXPECT_EQ(GetCardX(ParseCard("2D")), 3600);
    EXPECT_EQ(GetCardX(ParseCard("2S")), 5040);
    EXPECT_EQ(GetCardX(ParseCard("2H")), 6480);
    EXPECT_EQ(GetCardX(52), 0);
    EXPECT_EQ(GetCardY(-1), 0);
    EXPECT_EQ(GetRankText(ParseCard("TC")), "10");
    EXPECT_EQ(GetRankText(ParseCard("QH")), "Q");
    EXPECT_EQ(GetRankText(52), "");
}

TEST(Cards, RemoveCardKeepsTheLastCardAndTheOrder) {
    std::vector<Card> one = ParseCards("5D");
    Game::RemoveCard(one, 0);
    EXPECT_EQ(CardsText(one), "5D");  // never made empty

    std::vector<Card> last = ParseCards("AC 5D 9H KS");
    Game::RemoveCard(last, 3);
    EXPECT_EQ(CardsText(last), "AC 5D 9H");
    std::vector<Card> middle = ParseCards("AC 5D 9H KS");
    Game::RemoveCard(middle, 1);
    EXPECT_EQ(CardsText(middle), "AC 9H KS");
}

TEST(Cards, SortingTheHumansHandAndTheTable) {
    std::vector<Card> hand = ParseCards("KH 2S 7C AD 9H 3C QS 7H 5D TS JC 4H 8D");
    modGlobal::SortCards(hand);
    // Ascending rank, and within a rank Clubs, Diamonds, Hearts, Spades.
    EXPECT_EQ(CardsText(hand), "AD 2S 3C 4H 5D 7C 7H 8D 9H TS JC QS KH");
    Game::SortIntoSuits(hand);
    // Grouped in the table's column order, each group from the Ace up.
    EXPECT_EQ(CardsText(hand), "3C 7C JC AD 5D 8D 2S TS QS 4H 7H 9H KH");

    RecordingTable table;
    Game game(table);
    for (Card c : ParseCards("7H 8H 7C 6H KH")) game.AddToCardsPlayed(c);
    EXPECT_EQ(game.miCardsPlayed, 5);
    game.SortCardsPlayed();
    EXPECT_EQ(CardsText(game.maCardsPlayed), "KH 8H 7H 7C 6H");
}

TEST(Cards, DealGivesEachSeatEveryFourthCard) {
    RecordingTable table;
    Game game(table);
    std::iota(game.maDeck.begin(), game.maDeck.end(), Card{0});
    game.InitializeCardArrays();
    game.DealCards();
    EXPECT_EQ(game.maHand0.front(), 0);
    EXPECT_EQ(game.maHand1.front(), 1);
    EXPECT_EQ(game.maHand3.front(), 3);
    EXPECT_EQ(game.maHand0[1], 4);
    EXPECT_EQ(game.maHand2.back(), 50);
    for (int seat = 0; seat < 4; ++seat) EXPECT_EQ(game.Hand(seat).size(), 13u);
}

TEST(Cards, ShufflesPermuteThePreviousOrderAndStayAPermutation) {
    std::array<Card, 52> deck{};
    std::iota(deck.begin(), deck.end(), Card{0});
    int unchanged = 0;
    for (int i = 0; i < 500; ++i) {
        const auto before = deck;
        modGlobal::ShuffleDeck(deck);
        if (deck == before) ++unchanged;
        auto sorted = deck;
        std::sort(sorted.begin(), sorted.end());
        for (int c = 0; c < 52; ++c) ASSERT_EQ(sorted[c], c) << "after shuffle " << i;
    }
    EXPECT_LT(unchanged, 2);
}

TEST(Cards, HandRowIsCentredOnTheOuterWidth) {
    RecordingTable table;
    table.formWidth = 9750;
    Game game(table);
    game.maHand3 = ParseCards("AC 2C 3C 4C 5C 6C 7C 8C 9C TC JC QC KC");
    game.DrawUserHand();
    EXPECT_EQ(game.miCardLeft, 9750 / 2 - (12 * 360 + 1070) / 2);
    EXPECT_EQ(game.miCardTop, 5100);
    EXPECT_EQ(game.miCardSpacing, 360);
    game.maHand3 = ParseCards("KC");
    game.DrawUserHand();
    EXPECT_EQ(game.miCardLeft, 4875 - 535);
    EXPECT_EQ(table.log.back(), "hand 4340 5100 360 KC");
}

// Cards, hands and the deck: taking a card out of a hand, sorting, shuffling.
#include <numeric>

#include "game_fixture.h"

// Taking a card out keeps the order of the others, and never the last card.
TEST(Cards, TakingOutAndSortingTheHumansHand) {
    const struct {
        std::string hand;
        std::size_t index;
        std::string left;
    } cases[] = {{"5D", 0, "5D"}, {"AC 5D 9H KS", 3, "AC 5D 9H"}, {"AC 5D 9H KS", 1, "AC 9H KS"}};
    for (const auto& c : cases) {
        std::vector<Card> hand = ParseCards(c.hand);
        Game::RemoveCard(hand, c.index);
        EXPECT_EQ(CardsText(hand), c.left) << c.hand << " without " << c.index;
    }
    std::vector<Card> hand = ParseCards("KH 2S 7C AD 9H 3C QS 7H 5D TS JC 4H 8D");
    modGlobal::SortCards(hand);
    // Ascending rank, and within a rank Clubs, Diamonds, Hearts, Spades.
    EXPECT_EQ(CardsText(hand), "AD 2S 3C 4H 5D 7C 7H 8D 9H TS JC QS KH");
    Game::SortIntoSuits(hand);
    // Grouped in the table's column order, each group from the Ace up.
    EXPECT_EQ(CardsText(hand), "3C 7C JC AD 5D 8D 2S TS QS 4H 7H 9H KH");
}

// Only a whole deck, each card once, reads as a deck order. The shuffle
// draws positions of the old order, throwing away a position drawn before;
// a stacked deck lays its order on the first shuffle of a fresh deck and
// keeps it through later shuffles.
TEST(Cards, ShuffleTakesTheDrawnPositionsAndAStackedDeckDealsItsOrderEveryHand) {
    std::array<Card, 52> order{};
    std::iota(order.rbegin(), order.rend(), Card{0});  // 51 down to 0
    std::string text;
    for (Card c : order) text += (text.empty() ? "" : ",") + std::to_string(c);
    const auto parsed = modGlobal::ParseDeckOrder(text);
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(*parsed, order);
    for (const std::string& bad : {text + ",0", text.substr(0, text.rfind(',')), text.substr(0, text.rfind(',')) + ",51",
                                   text.substr(0, text.rfind(',')) + ",52", text.substr(0, text.rfind(',')) + ",x"})
        EXPECT_FALSE(modGlobal::ParseDeckOrder(bad).has_value()) << bad;

    ScriptedDeckRandom scripted;
    scripted.first = {5, 5, 0, 5, 51};  // then 0, 1, 2 ...
    std::array<Card, 52> deck{};
    std::iota(deck.begin(), deck.end(), Card{100});
    modGlobal::SetDeckSource(&scripted);
    modGlobal::ShuffleDeck(deck);
    std::vector<Card> expected = {105, 100, 151, 101, 102, 103, 104};
    for (Card c = 106; c <= 150; ++c) expected.push_back(c);
    EXPECT_EQ(std::vector<Card>(deck.begin(), deck.end()), expected);

    modGlobal::StackedDeckRandom stacked(order);
    modGlobal::SetDeckSource(&stacked);
    std::iota(deck.begin(), deck.end(), Card{0});
    for (int hand = 0; hand < 3; ++hand) {
        modGlobal::ShuffleDeck(deck);
        EXPECT_EQ(deck, order) << "hand " << hand;
    }
    modGlobal::SetDeckSource(nullptr);
}

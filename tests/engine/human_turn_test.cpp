// The human's turn: the hit test of the hand row, the legal cards, and the
// notices for every refusal.
#include "game_fixture.h"

using Lines = std::vector<std::string>;

TEST_F(GameTest, HitTestOfTheHandRowAtItsExactEdges) {
    Deal(kDealHumanOpens);
    ASSERT_EQ(game.maHand3.size(), 13u);
    const float left = game.miCardLeft;  // 4875 - (12 × 360 + 1070) div 2 = 2180
    ASSERT_EQ(game.miCardLeft, 2180);
    const float y = 5800;
    EXPECT_EQ(game.HandIndexAt(left, y), 0);
    EXPECT_EQ(game.HandIndexAt(left - 1, y), -1);
    EXPECT_EQ(game.HandIndexAt(left + 359.5f, y), 0);
    EXPECT_EQ(game.HandIndexAt(left + 360, y), 1);  // an edge belongs to the card on its right
    EXPECT_EQ(game.HandIndexAt(left + 12 * 360, y), 12);
    EXPECT_EQ(game.HandIndexAt(left + 12 * 360 + 1070, y), 12);  // right edge, inclusive
    EXPECT_EQ(game.HandIndexAt(left + 12 * 360 + 1071, y), -1);
    EXPECT_EQ(game.HandIndexAt(left + 100, 5100), 0);  // top edge
    EXPECT_EQ(game.HandIndexAt(left + 100, 6530), 0);  // bottom edge
    EXPECT_EQ(game.HandIndexAt(left + 100, 6531), -1);
    EXPECT_EQ(game.HandIndexAt(left + 100, 5099), -1);

    game.maHand3 = ParseCards("9C");
    game.DrawUserHand();
    EXPECT_EQ(game.HandIndexAt(game.miCardLeft + 1070.0f, y), 0);
    EXPECT_EQ(game.HandIndexAt(game.miCardLeft + 1070.5f, y), -1);
}

TEST_F(GameTest, BeforeTheOpeningOnlyTheSevenOfHeartsIsTaken) {
    Deal(kDealHumanOpens);
    table.log.clear();
    PlayUser("8H");
    EXPECT_EQ(table.log, (Lines{"effect WRONGCRD 0", "notice WRONGCRD"}));
    EXPECT_FALSE(game.mbHandOpened);
    EXPECT_EQ(game.maHand3.size(), 13u);

    table.log.clear();
    game.cmdUser_Click();
    EXPECT_EQ(table.log, (Lines{"effect MUSTPLAY 0", "notice MUSTPLAY"}));
    EXPECT_EQ(game.miMoney3, 195);

    // A click beside the cards is ignored without a word.
    table.log.clear();
    game.Form_MouseDown(100, 100);
    game.Form_Click();
    EXPECT_TRUE(table.log.empty());
}

TEST_F(GameTest, TheButtonNamesWhatCanBePlayed) {
    Deal(kDealHumanOpens);
    PlayUser("7H");
    ASSERT_EQ(CardsText(game.maUserPlayable), "6H 8H");
    table.log.clear();
    game.cmdUser_Click();
    EXPECT_EQ(table.log, (Lines{"effect MUSTPLAY 3", "notice CANPLAY2"}));

    // With one legal card the notice names it.
    game.maUserPlayable = ParseCards("7C");
    table.log.clear();
    game.cmdUser_Click();
    EXPECT_EQ(table.log, (Lines{"effect MUSTPLAY 3", "notice CANPLAY1 Seven of Clubs"}));

    // A card that doesn't fit is refused and nothing changes.
    table.log.clear();
    PlayUser("KH");
    EXPECT_EQ(table.log, (Lines{"effect WRONGCRD 3", "notice WRONGCRD"}));
    EXPECT_EQ(game.maHand3.size(), 12u);
    EXPECT_TRUE(game.mbUserTurn);
}

TEST_F(GameTest, WithNoLegalCardAClickSaysSoAndTheButtonPays) {
    Deal(kDealHumanStuck);
    ASSERT_FALSE(game.mbUserCanPlay);
    table.log.clear();
    PlayUser("KH");
    EXPECT_EQ(table.log, (Lines{"effect WRONGCRD 2", "notice NOCARD"}));

    table.log.clear();
    game.cmdUser_Click();
    EXPECT_EQ(table.log.at(0), "effect PAYPOT 2");
    EXPECT_EQ(table.LinesOf({"sad 3", "money 3", "pot"}).at(0), "money 3 190");
    EXPECT_EQ(table.LinesOf({"sad 3"}), (Lines{"sad 3 cleared"}));
    EXPECT_EQ(game.miMoney3, 190);
    EXPECT_TRUE(game.mbUserTurn);  // the computers have moved and it is the human's turn again
}

TEST_F(GameTest, NothingHappensWhileTheComputersMove) {
    Deal(kDealHumanOpens);
    game.mbUserTurn = false;
    table.log.clear();
    PlayUser("7H");
    game.cmdUser_Click();
    EXPECT_TRUE(table.log.empty());
    EXPECT_FALSE(game.mbHandOpened);
}

TEST_F(GameTest, LegalCardsComeByLowEndsThenHighEndsThenSevens) {
    Deal(kDealHumanOpens);
    game.maCardsPlayed.clear();
    game.miCardsPlayed = 0;
    for (Card c : ParseCards("7C 7D 8D 7H 6H 5H")) game.AddToCardsPlayed(c);
    game.maHand3 = ParseCards("KC 6C 4H 9D 6D 8C 8H 7S AS");
    EXPECT_TRUE(game.CanUserPlay());
    // Low ends by ascending suit: 7C, 7D, 5H; high ends by descending suit:
    // 7H, 8D, 7C; then the Sevens. Kings and Aces need no special case.
    EXPECT_EQ(CardsText(game.maUserPlayable), "6C 6D 4H 8H 9D 8C 7S");
    game.maHand3 = ParseCards("KC AS");
    EXPECT_FALSE(game.CanUserPlay());
    EXPECT_TRUE(game.maUserPlayable.empty());
}

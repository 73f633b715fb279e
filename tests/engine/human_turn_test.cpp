// The human's turn: the hit test of the hand row, the legal cards, and the
// notices for every refusal.
#include "game_fixture.h"

TEST_F(GameTest, HitTestOfTheHandRowAtItsExactEdges) {
    Deal(kDealHumanOpens);
    // 13 cards centred on the outer width: 9750 div 2 - (12 × 360 + 1070) div 2.
    ASSERT_EQ(game.miCardLeft, 2180);
    EXPECT_EQ(table.LinesOf("hand").back(), "hand 2180 5100 360 " + CardsText(game.maHand3));
    const float left = 2180, last = left + 12 * 360, top = 5100, bottom = top + 1430, y = 5800;
    const struct {
        float x, y;
        int index;
    } cases[] = {
        {left, y, 0}, {left - 1, y, -1}, {left + 359.5f, y, 0},
        {left + 360, y, 1},  // an edge belongs to the card on its right
        {left + 4 * 360 - 0.5f, y, 3}, {last, y, 12}, {last + 1070, y, 12}, {last + 1070.5f, y, -1},
        {left, top, 0}, {left, bottom, 0}, {left, top - 1, -1}, {left, bottom + 1, -1},
    };
    for (const auto& c : cases) EXPECT_EQ(game.HandIndexAt(c.x, c.y), c.index) << c.x << " " << c.y;
}

// A refused move gets its sound and notice, costs nothing and leaves the
// human on turn with the same hand. While the computers move ("wait"),
// nothing answers at all.
TEST_F(GameTest, EveryRefusalGetsItsNotice) {
    const struct {
        const std::array<std::string, 4>& deal;
        std::string before, move;
        Lines log;
    } cases[] = {
        {kDealHumanOpens, "", "8H", {"effect WRONGCRD 0", "notice WRONGCRD"}},
        {kDealHumanOpens, "", "beside", {}},  // ignored without a word
        {kDealHumanOpens, "", "button", {"effect MUSTPLAY 0", "notice MUSTPLAY"}},
        {kDealHumanOpens, "7H", "button", {"effect MUSTPLAY 3", "notice CANPLAY2"}},
        {kDealHumanOpens, "7H", "KH", {"effect WRONGCRD 3", "notice WRONGCRD"}},
        {kDealHumanOpens, "wait", "7H", {}},
        {kDealHumanOpens, "wait", "button", {}},
        {kDealHumanStuck, "", "KH", {"effect WRONGCRD 2", "notice NOCARD"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before + " " + c.move);
        Deal(c.deal);
        if (c.before == "wait") game.mbUserTurn = false;
        else if (!c.before.empty()) Move(c.before);
        const auto handAndMoney = std::tuple(game.maHand3, game.miMoney3);
        table.log.clear();
        Move(c.move);
        EXPECT_EQ(table.log, c.log);
        EXPECT_EQ(std::tuple(game.maHand3, game.miMoney3), handAndMoney);
        EXPECT_EQ(game.mbUserTurn, c.before != "wait");
    }
    // With one legal card the notice names it.
    game.maUserPlayable = ParseCards("7C");
    game.mbUserCanPlay = true;
    table.log.clear();
    Move("button");
    EXPECT_EQ(table.log, (Lines{"effect MUSTPLAY 2", "notice CANPLAY1 Seven of Clubs"}));
}

TEST_F(GameTest, LegalCardsComeByLowEndsThenHighEndsThenSevens) {
    for (Card c : ParseCards("7C 7D 8D 7H 6H 5H")) game.AddToCardsPlayed(c);
    game.maHand3 = ParseCards("KC 6C 4H 9D 6D 8C 8H 7S AS");
    EXPECT_TRUE(game.CanUserPlay());
    // Low ends by ascending suit: 7C, 7D, 5H; high ends by descending suit:
    // 7H, 8D, 7C; then the Sevens. Kings and Aces need no special case.
    EXPECT_EQ(CardsText(game.maUserPlayable), "6C 6D 4H 8H 9D 8C 7S");
    game.maHand3 = ParseCards("KC AS 3D");
    EXPECT_FALSE(game.CanUserPlay());
    EXPECT_TRUE(game.maUserPlayable.empty());
}

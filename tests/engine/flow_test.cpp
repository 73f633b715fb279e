// The flow of hands and games against the recording table: who moves in
// which order, what is paid when, when a hand and a game end, which form
// opens when.
#include "game_fixture.h"

// A deal and a move of the human, in the order of the table's calls. A sound
// shows the count of cards on the table when it plays.
TEST_F(GameTest, TurnsInSeatOrder) {
    const Lines ante = {"cls", "money 0 200", "money 1 200", "money 2 200", "money 3 200",
                        "pot 0", "marker 3 off", "money 0 195", "money 1 195", "money 2 195",
                        "money 3 195", "pot 20", "autoredraw off", "pause"};
    const struct {
        const std::array<std::string, 4>& deal;
        std::string move;
        Lines log;
    } cases[] = {
        // Before the opening the computers pause in turn, without a move and
        // without paying. After it, seat 0 can't lay a card and pays at once,
        // with no pause and no sound; the top and right seats sound before
        // their card is on the table. Flights go to the screen only, and then
        // the table is redrawn whole.
        {kDealHumanOpens, "7H",
         {"pause", "pause", "autoredraw on", "marker 3 on", "effect PLAYCARD 0", "panel 3 7H",
          "cls", "table 7H", "marker 3 off", "autoredraw off", "money 0 190", "pot 25", "sad 0",
          "fly top 7D", "panel 1 7D", "effect OTH_PLAYERS 1", "pause", "fly right 7S",
          "panel 2 7S", "effect OTH_PLAYERS 2", "pause", "autoredraw on", "cls",
          "table 7S 7H 7D", "marker 3 on"}},
        // The opening card goes down before its sound, whichever seat has it,
        // and so does every card of the left seat. The human, stuck, pays
        // from the button without a pause, and the round goes on.
        {kDealHumanStuck, "button",
         {"fly top 7H", "panel 1 7H", "effect OTH_PLAYERS 1", "pause", "fly right 7S",
          "panel 2 7S", "effect OTH_PLAYERS 1", "pause", "autoredraw on", "cls", "table 7S 7H",
          "marker 3 on", "effect PAYPOT 2", "money 3 190", "pot 25", "sad cleared 3",
          "marker 3 off", "autoredraw off", "fly left 7C", "panel 0 7C", "effect OTH_PLAYERS 3",
          "pause", "fly top 7D", "panel 1 7D", "effect OTH_PLAYERS 3", "pause", "fly right 8S",
          "panel 2 8S", "effect OTH_PLAYERS 4", "pause", "autoredraw on", "cls",
          "table 8S 7S 7H 7D 7C", "marker 3 on"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.move);
        table.log.clear();
        Deal(c.deal);
        Move(c.move);
        EXPECT_EQ(table.LinesOf("fly|panel|sad|pause|effect|money|pot|auto|cls|table|marker 3"),
                  ante + c.log);
        EXPECT_TRUE(game.mbUserTurn);
        EXPECT_EQ(game.mbUserCanPlay, c.move != "button");
    }
    EXPECT_EQ(game.maCardsLeft, (std::array<std::int16_t, 4>{12, 11, 11, 13}));
}

// The end of a hand by who went out, in which hand, and whether someone
// went broke. Losers pay 5 for each card they hold and the winner takes the
// pot; a winning computer's money is shown with the others', the human's
// after the take. Then the standings, the end of the game, or both; a
// computer's win shows the standings first, with the hand already moved on.
// The human lays the Seven of Hearts, or on the deal where it can't lay a
// card pays from the button, which keeps the game's end flagged into the
// dispatch; only the answers "YES" and "CHANGE" clear it there.
TEST_F(GameTest, TheEndOfAHand) {
    const std::string next = "caption Title - Level 1 (2nd Hand)";
    const struct {
        int winner;
        std::int16_t handNo;
        bool broke;
        std::string move, shown;
        Lines log, scores;  // the winner's name and take, then the standings of the hand
        std::int16_t handNoAfter;
    } cases[] = {
        {kSeatTop, 0, false, "7H", "money|pot|pause|F|caption|unload",
         {"money 0 190", "pot 25", "pause", "money 0 125", "money 1 195", "money 2 130",
          "money 3 135", "pot 215", "money 1 410", "pot 0", "FHandOver", next, "money 0 120",
          "money 1 405", "money 2 125", "money 3 130", "pot 20", "pause", "pause", "pause"},
         {"Top 215", "125", "410", "130", "135"}, 1},
        {kSeatUser, 0, false, "7H", "money|pot|pause|F|caption|unload",
         {"money 0 130", "money 1 130", "money 2 130", "pot 215", "money 3 410", "pot 0",
          "FHandOver", next, "money 0 125", "money 1 125", "money 2 125", "money 3 405",
          "pot 20", "pause", "pause", "pause"},
         {"Me 215", "130", "130", "130", "410"}, 1},
        {kSeatTop, 0, true, "7H", "money 2|pause|F|caption|unload",
         {"pause", "money 2 0", "FHandOver", next, "FGameOver", "unload"},
         {"Top 215", "125", "410", "0", "135"}, 1},
        {kSeatUser, 0, true, "7H", "money 2|F|caption|unload",
         {"money 2 0", "FGameOver", "unload"}, {"Me 215", "130", "130", "0", "410"}, 0},
        {kSeatLeft, 3, false, "button", "money 3|pot|fly|F|caption|unload",
         {"money 3 190", "pot 25", "fly left 7C", "money 3 125", "pot 210", "pot 0", "FGameOver",
          "unload"},
         {"Left 210", "405", "135", "135", "125"}, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.winner << " in hand " << c.handNo << " " << c.broke);
        Deal(c.move == "button" ? kDealHumanStuck : kDealHumanOpens);
        game.miHandNo = c.handNo;
        game.maCardsLeft[c.winner] = 1;  // the winner's next card is its last
        if (c.broke) game.miMoney2 = 65;  // its 13 cards cost all of it: $0 is broke
        table.log.clear();
        Move(c.move);
        EXPECT_EQ(table.LinesOf(c.shown), c.log);
        EXPECT_EQ(game.miHandNo, c.handNoAfter);
        EXPECT_EQ(game.mbGameOver, c.move == "button");
        using namespace modGlobal;
        EXPECT_EQ((Lines{gsWinnerName + " " + gsPotWon, gaScoresOne.at(c.handNo),
                         gaScoresTwo.at(c.handNo), gaScoresThree.at(c.handNo),
                         gaScoresUser.at(c.handNo)}),
                  c.scores);
    }
}

// The answers of the end-of-game form, the top ten steps after a win, and a
// failed database step, which stops the dispatch where it failed. The user
// form's answer is cleared and not looked at.
TEST_F(GameTest, TheEndOfGameDispatch) {
    const std::string newGame = "caption Title - Level 1 (1st Hand)";
    const Lines won = {"FGameOver", "TopTenLoad", "CheckHighScore"};
    const Lines topTen = won + Lines{"TopTenSave", "FTopTen"};
    const Lines levelUp = {"pointer busy", "picture", "pointer default", newGame};
    const struct {
        std::string answer;
        bool userWins, highScore;
        std::string failAt;
        Lines steps;
        std::int16_t levelAfter;
    } cases[] = {
        {"YES", true, true, "", topTen + levelUp, 5},
        {"YES", true, false, "", won + levelUp, 5},
        {"YES", false, true, "", {"FGameOver", newGame}, 4},
        {"CHANGE", false, true, "", {"FGameOver", "Ini_Save", "FUserName", "picture", newGame}, 0},
        {"NO", true, true, "", topTen + Lines{"unload"}, 4},
        {"", false, true, "", {"FGameOver"}, 4},
        {"YES", true, true, "FGameOver", {"FGameOver", "RecoverDatabase"}, 4},
        {"YES", true, true, "TopTenLoad", {"FGameOver", "TopTenLoad", "RecoverDatabase"}, 4},
        {"YES", true, true, "TopTenSave", won + Lines{"TopTenSave", "RecoverDatabase"}, 4},
        {"YES", true, true, "FTopTen", topTen + Lines{"RecoverDatabase"}, 4},
        {"CHANGE", false, true, "FUserName",
         {"FGameOver", "Ini_Save", "FUserName", "RecoverDatabase"}, 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.answer + " " + c.failAt);
        modGlobal::gbDbFailed = false;
        Deal(kDealHumanOpens);
        game.miHandNo = 3;
        game.miLevel = 4;
        game.maCardsLeft[kSeatUser] = 1;
        table.answerOfGameOver = c.answer;
        table.userWins = c.userWins;
        table.highScore = c.highScore;
        table.failDatabaseAt = c.failAt;
        table.log.clear();
        Move("7H");
        EXPECT_EQ(table.LinesOf("F|Top|Check|Recover|pointer|picture|Ini|caption|unload"), c.steps);
        EXPECT_EQ(game.miLevel, c.levelAfter);
        // A new game: its first hand, no scores, and the ante taken.
        const bool started = c.steps.back() == newGame;
        EXPECT_EQ(std::tuple(game.miHandNo, modGlobal::gaScoresUser.empty(), game.miMoney0),
                  started ? std::tuple(0, true, 195) : std::tuple(3, false, 130));
        EXPECT_EQ(table.tag, c.answer == "CHANGE" ? "" : c.answer);
    }
}

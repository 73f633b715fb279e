// The flow of hands and games against the recording table: who moves in
// which order, what is paid when, when a hand and a game end, which form
// opens when.
#include "game_fixture.h"

using Lines = std::vector<std::string>;

TEST_F(GameTest, HumanHoldsTheSevenOfHearts) {
    Deal(kDealHumanOpens);
    // The three computers pause in turn, without a move and without paying.
    EXPECT_EQ(Moves(), (Lines{"pause", "pause", "pause"}));
    EXPECT_TRUE(game.maCardsPlayed.empty());
    EXPECT_FALSE(game.mbHandOpened);
    EXPECT_TRUE(game.mbUserCanPlay);
    EXPECT_TRUE(game.mbUserTurn);
    EXPECT_EQ(game.miMoney0, 195);
    EXPECT_EQ(game.miMoney3, 195);
    EXPECT_EQ(game.miPot, 20);
    EXPECT_EQ(game.miStartMoney, 200);
    EXPECT_EQ(table.log.back(), "marker 3 on");
    // The human's hand is sorted into the table's column order.
    EXPECT_EQ(CardsText(game.maHand3), "AH 2H 3H 4H 5H 6H 7H 8H 9H TH JH QH KH");
}

TEST_F(GameTest, ACycleOfComputerTurnsInSeatOrder) {
    Deal(kDealHumanOpens);
    table.log.clear();
    PlayUser("7H");
    // Seat 0 has nothing to lay and pays at once, with no pause and no sound;
    // seats 1 and 2 fly their Sevens in and pause.
    EXPECT_EQ(Moves(), (Lines{"panel 3 7H", "sad 0", "fly top 7D", "panel 1 7D", "pause",
                              "fly right 7S", "panel 2 7S", "pause"}));
    // The top and right seats sound before their card is on the table.
    EXPECT_EQ(table.Lines("effect"),
              (Lines{"effect PLAYCARD 0", "effect OTH_PLAYERS 1", "effect OTH_PLAYERS 2"}));
    EXPECT_EQ(game.miMoney0, 190);
    EXPECT_EQ(game.miPot, 25);
    EXPECT_EQ(game.maCardsLeft, (std::array<std::int16_t, 4>{13, 12, 12, 12}));
    // Flights go to the screen only; afterwards the table is redrawn whole.
    const Lines redraw = table.LinesOf({"autoredraw", "cls", "table"});
    EXPECT_EQ(redraw, (Lines{"cls", "table 7H", "autoredraw off", "autoredraw on", "cls",
                             "table 7S 7H 7D"}));
    EXPECT_EQ(CardsText(game.maUserPlayable), "6H 8H");
    EXPECT_TRUE(game.mbUserTurn);
}

TEST_F(GameTest, TheOpeningUsesTheLeftSeatsOrderForEverySeat) {
    Deal(kDealTopOpens);
    EXPECT_EQ(Moves(), (Lines{"pause", "fly top 7H", "panel 1 7H", "pause", "fly right 7S",
                              "panel 2 7S", "pause"}));
    EXPECT_EQ(table.Lines("effect"), (Lines{"effect OTH_PLAYERS 1", "effect OTH_PLAYERS 1"}));
    EXPECT_EQ(CardsText(game.maUserPlayable), "6H 8H 7C");
    table.log.clear();
    PlayUser("7C");
    // The left seat lays 8C (reaching up to its King) and puts it down
    // before its sound.
    EXPECT_EQ(table.Lines("fly left"), (Lines{"fly left 8C"}));
    EXPECT_EQ(table.Lines("effect").at(1), "effect OTH_PLAYERS 4");
}

TEST_F(GameTest, AComputerGoingOutEndsTheCycleAndTheHand) {
    Deal(kDealHumanOpens);
    game.maCardsLeft[1] = 1;  // the top seat's next card is its last
    table.onHandOver = [this] {
        EXPECT_EQ(game.miHandNo, 1);
        EXPECT_EQ(MoneyAndPot(), 800);
    };
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(Moves(), (Lines{"panel 3 7H", "sad 0", "fly top 7D", "panel 1 7D", "pause",
                              "FHandOver", "pause", "pause", "pause"}));
    // Losers pay 5 for each card: 13, 13 and 12 cards; the top seat takes the pot.
    EXPECT_EQ(modGlobal::gsWinnerName, "Top");
    EXPECT_EQ(modGlobal::gsPotWon, "215");
    EXPECT_EQ(modGlobal::gaScoresOne, (Lines{"125"}));
    EXPECT_EQ(modGlobal::gaScoresTwo, (Lines{"410"}));
    EXPECT_EQ(modGlobal::gaScoresThree, (Lines{"130"}));
    EXPECT_EQ(modGlobal::gaScoresUser, (Lines{"135"}));
    EXPECT_EQ(table.Lines("caption"), (Lines{"caption Title - Level 1 (2nd Hand)"}));
    // The next hand is dealt and anted at once.
    EXPECT_EQ(game.miMoney0, 120);
    EXPECT_EQ(game.miMoney1, 405);
    EXPECT_EQ(game.miPot, 20);
    EXPECT_EQ(game.maCardsLeft, (std::array<std::int16_t, 4>{13, 13, 13, 13}));
    EXPECT_FALSE(game.mbGameOver);
}

TEST_F(GameTest, AComputersWinThatBankruptsShowsTheHandBeforeTheGame) {
    Deal(kDealHumanOpens);
    game.maCardsLeft[1] = 1;
    game.miMoney0 = 70;  // pays 5 and then 65 for its cards: nothing left
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"FHandOver", "FGameOver", "caption", "unload"}),
              (Lines{"FHandOver", "caption Title - Level 1 (2nd Hand)", "FGameOver", "unload"}));
    EXPECT_EQ(game.miMoney0, 0);
    EXPECT_EQ(game.miHandNo, 1);
    EXPECT_FALSE(game.mbGameOver);  // a click clears it before the dispatch
}

TEST_F(GameTest, TheHumansWinGoesStraightOnWithoutAComputerMove) {
    Deal(kDealHumanOpens);
    game.maCardsLeft[3] = 1;
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"fly", "FHandOver", "FGameOver"}), (Lines{"FHandOver"}));
    EXPECT_EQ(modGlobal::gsWinnerName, "Me");
    EXPECT_EQ(modGlobal::gaScoresUser, (Lines{"410"}));
    EXPECT_EQ(modGlobal::gaScoresOne, (Lines{"130"}));
    EXPECT_EQ(game.miHandNo, 1);
}

TEST_F(GameTest, TheHumansWinThatBankruptsEndsTheGameAtOnce) {
    Deal(kDealHumanOpens);
    game.maCardsLeft[3] = 1;
    game.miMoney2 = 60;
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"FHandOver", "FGameOver", "caption"}), (Lines{"FGameOver"}));
    EXPECT_EQ(game.miHandNo, 0);  // stays, unlike a computer's win
    EXPECT_EQ(game.miMoney2, -5);
}

TEST_F(GameTest, AfterTheFourthHandOnlyTheEndOfTheGameShows) {
    Deal(kDealHumanOpens);
    game.miHandNo = 3;
    game.maCardsLeft[1] = 1;
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"FHandOver", "FGameOver"}), (Lines{"FGameOver"}));
    EXPECT_EQ(modGlobal::gaScoresOne.size(), 4u);

    Deal(kDealHumanOpens);
    game.miHandNo = 3;
    game.maCardsLeft[3] = 1;
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"FHandOver", "FGameOver"}), (Lines{"FGameOver"}));
}

TEST_F(GameTest, PayingThePotFromTheButtonKeepsTheGameOverFlagIntoTheDispatch) {
    Deal(kDealHumanStuck);
    EXPECT_FALSE(game.mbUserCanPlay);
    game.miHandNo = 3;
    game.maCardsLeft[0] = 1;
    table.log.clear();
    game.cmdUser_Click();
    EXPECT_EQ(table.LinesOf({"effect PAYPOT", "sad", "fly", "FGameOver", "unload"}),
              (Lines{"effect PAYPOT 2", "sad 3 cleared", "fly left 7C", "FGameOver", "unload"}));
    EXPECT_EQ(game.miMoney3, 190 - 5 * 13);
    EXPECT_TRUE(game.mbGameOver);  // only "YES" and "CHANGE" clear it
}

TEST_F(GameTest, ANewGameAfterAWinTakesTheTopTenStepsInOrder) {
    Deal(kDealHumanOpens);
    game.miHandNo = 3;
    game.maCardsLeft[3] = 1;
    table.userWins = true;
    table.answerOfGameOver = "YES";
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"FGameOver", "TopTen", "CheckHighScore", "FTopTen", "pointer",
                             "picture", "caption"}),
              (Lines{"FGameOver", "TopTenLoad", "CheckHighScore", "TopTenSave", "FTopTen",
                     "pointer busy", "picture", "pointer default",
                     "caption Title - Level 1 (1st Hand)"}));
    EXPECT_EQ(game.miLevel, 1);
    EXPECT_EQ(game.miHandNo, 0);
    EXPECT_TRUE(modGlobal::gaScoresUser.empty());
    EXPECT_EQ(game.miMoney0, 195);  // a fresh game, anted
    EXPECT_TRUE(game.mbUserTurn);
}

TEST_F(GameTest, ADatabaseFailureStopsTheDispatchAtTheStepThatFailed) {
    for (const std::string step : {"FGameOver", "TopTenLoad", "TopTenSave", "FTopTen"}) {
        modGlobal::gbDbFailed = false;
        Deal(kDealHumanOpens);
        game.miHandNo = 3;
        game.maCardsLeft[3] = 1;
        table.userWins = true;
        table.answerOfGameOver = "YES";
        table.failDatabaseAt = step;
        table.log.clear();
        PlayUser("7H");
        const Lines after = table.LinesOf({"RecoverDatabase", "caption", "FGameOver", "Top"});
        ASSERT_FALSE(after.empty());
        EXPECT_EQ(after.back(), "RecoverDatabase") << step;
        EXPECT_EQ(table.Lines("caption").size(), 0u) << step;
    }
}

TEST_F(GameTest, ChangingTheUserStartsANewGameAtLevelZero) {
    Deal(kDealHumanOpens);
    game.miLevel = 4;
    game.miHandNo = 3;
    game.maCardsLeft[3] = 1;
    table.answerOfGameOver = "CHANGE";
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"Ini_Save", "FUserName", "picture", "caption"}),
              (Lines{"Ini_Save", "FUserName", "picture", "caption Title - Level 1 (1st Hand)"}));
    EXPECT_EQ(table.tag, "");  // the user form's answer is cleared and not looked at
    EXPECT_EQ(game.miLevel, 0);
    EXPECT_EQ(game.miMoney3, 195);
}

TEST_F(GameTest, AnUnknownAnswerLeavesTheTableAsItIs) {
    Deal(kDealHumanOpens);
    game.miHandNo = 3;
    game.maCardsLeft[3] = 1;
    table.answerOfGameOver = "";
    table.log.clear();
    PlayUser("7H");
    EXPECT_EQ(table.LinesOf({"FGameOver", "unload", "caption", "cls"}),
              (Lines{"cls", "FGameOver"}));
}

TEST_F(GameTest, EachPauseRunsTwentyTicksOfTheTimer) {
    Deal(kDealHumanOpens);
    EXPECT_EQ(table.Lines("pause").size(), 3u);
    EXPECT_EQ(table.doEventsCalls, 3 * 20);
    EXPECT_FALSE(game.mbWaitDone);
    game.tmrCount_Timer();  // no wait running: nothing changes
    EXPECT_EQ(game.miWaitTicks, 0);
    EXPECT_FALSE(game.mbWaitDone);
}

// Whole games with the human's seat played automatically: the money and the
// pot always add up to $800, and every game ends after four hands or after a
// hand that leaves someone below $1.
TEST_F(GameTest, MoneyIsConservedThroughWholeGames) {
    struct HandCounter : GameEvents {
        int hands = 0;
        void HandDealt() override { ++hands; }
    } counter;
    game.SetEvents(&counter);
    game.SetSeatRoutines(std::nullopt);  // the program's own selector: the easy routine
    modGlobal::SetDeckSource(nullptr);
    int pauses = 0;
    int games = 0;
    table.onPause = [&] {
        ++pauses;
        ASSERT_EQ(MoneyAndPot(), 800);
    };
    table.onHandOver = [&] {
        ASSERT_EQ(MoneyAndPot(), 800);
        ASSERT_EQ(game.miPot, 0);
    };
    table.onGameOver = [&] {
        ++games;
        ASSERT_EQ(MoneyAndPot(), 800);
        const bool broke =
            game.miMoney0 < 1 || game.miMoney1 < 1 || game.miMoney2 < 1 || game.miMoney3 < 1;
        ASSERT_TRUE(counter.hands == 4 || (broke && counter.hands < 4)) << counter.hands;
        counter.hands = 0;
    };
    table.answerOfGameOver = "YES";
    for (std::int32_t seed : {1, 77, 4242, 99991}) {
        modGlobal::glRandomSeed = seed;
        counter.hands = 0;
        game.StartGame(true);
        for (const int target = games + 10; games < target;) {
            ASSERT_TRUE(game.mbUserTurn);
            ASSERT_EQ(MoneyAndPot(), 800);
            if (!game.mbUserCanPlay)
                game.cmdUser_Click();
            else if (!game.mbHandOpened)
                PlayUser("7H");
            else
                PlayUser(CardText(game.maUserPlayable.front()));
        }
    }
    EXPECT_EQ(games, 40);
    EXPECT_GT(pauses, 1000);
}

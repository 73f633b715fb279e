// The flow of hands and games: the deal, the cycle of computer turns, the
// reckoning at the end of a hand, and what follows the end of a game.
#include <string>

#include "engine/game_state.h"

using namespace modGlobal;

void Game::StartGame(bool bNewGame) {
    mbUserTurn = false;
    mbHandOver = false;
    mbHandOpened = false;
    table_.Cls();
    maCardsPlayed.Clear();
    InitializeDisplay(bNewGame);
    InitializeCardArrays();
    PlayersAnte();
    ShuffleDeck(maDeck);
    DealCards();
    if (events_) events_->HandDealt();
    SortCards(maHand3);
    SortIntoSuits(maHand3);
    DrawUserHand();
    // The three computers move before the human in every hand.
    PlayCards();
    if (mbHandOpened) {
        SortCardsPlayed();
        table_.Cls();
        table_.DrawCardsPlayed(maCardsPlayed.Cards());
        DrawUserHand();
        mbUserCanPlay = CanUserPlay();
    } else {
        // None of the computers held the Seven of Hearts: the human opens.
        mbUserCanPlay = true;
    }
    mbUserTurn = true;
    table_.SetTurnMarker(kSeatUser, true);
}

void Game::InitializeDisplay(bool bNewGame) {
    if (bNewGame) {
        for (int seat = 0; seat < 4; ++seat) {
            Money(seat) = kStartingMoney;
            ShowMoney(seat);
        }
        miPot = 0;
        ShowPot();
    }
    // The pot is not cleared between the hands of a game: the last winner
    // has emptied it.
    for (int seat = 0; seat < 4; ++seat) {
        table_.SetTurnMarker(seat, false);
        maCardsLeft[seat] = 13;
        table_.SetCardsLeft(seat, 13);
        table_.ClearSeatPanel(seat);
    }
}

void Game::PlayersAnte() {
    miStartMoney = miMoney3;
    // No test of money: a player with less than the ante goes negative.
    for (int seat = 0; seat < 4; ++seat) {
        Money(seat) = static_cast<std::int16_t>(Money(seat) - kAnte);
        miPot = static_cast<std::int16_t>(miPot + kAnte);
    }
    for (int seat = 0; seat < 4; ++seat) ShowMoney(seat);
    ShowPot();
}

void Game::PlayCards() {
    table_.SetAutoRedraw(false);  // the flights draw straight on the screen
    int winner = kSeatLeft;
    PlayerTurnLeft();
    if (mbHandOver) {
        gsWinnerName = gsOpponent1;
    } else {
        PlayerTurnTop();
        if (mbHandOver) {
            winner = kSeatTop;
            gsWinnerName = gsOpponent2;
        } else {
            PlayerTurnRight();
            if (mbHandOver) {
                winner = kSeatRight;
                gsWinnerName = gsOpponent3;
            }
        }
    }
    table_.SetAutoRedraw(true);
    if (!mbHandOver) return;

    table_.Cls();
    SortCardsPlayed();
    table_.DrawCardsPlayed(maCardsPlayed.Cards());
    DrawUserHand();  // the human's cards stay on show while the hand is reckoned
    ReckonHand(winner);

    if (miMoney0 < 1 || miMoney1 < 1 || miMoney2 < 1 || miMoney3 < 1) mbGameOver = true;
    if (miHandNo == 3) {
        mbGameOver = true;
        return;
    }
    // Deliberately also when a player has just gone broke: a computer's win
    // shows the standings of the hand first, with the hand number already
    // moved on, and only then the end of the game. The human's win goes
    // straight to the end of the game.
    ++miHandNo;
    table_.ShowHandOver();
    WriteHandCaption();
}

// Each loser pays for every card still held, and the winner takes the pot.
void Game::ReckonHand(int winner) {
    for (int seat = 0; seat < 4; ++seat) {
        if (seat == winner) continue;
        const auto penalty = static_cast<std::int16_t>(kPenaltyPerCard * maCardsLeft[seat]);
        Money(seat) = static_cast<std::int16_t>(Money(seat) - penalty);
        miPot = static_cast<std::int16_t>(miPot + penalty);
    }
    // The computers' money is shown now, a winning computer's too; the
    // human's only after the pot is taken when the human has won.
    for (int seat = kSeatLeft; seat <= kSeatRight; ++seat) ShowMoney(seat);
    if (winner != kSeatUser) ShowMoney(kSeatUser);
    ShowPot();
    gsPotWon = std::to_string(miPot);
    const int potTaken = miPot;
    Money(winner) = static_cast<std::int16_t>(Money(winner) + miPot);
    miPot = 0;
    ShowMoney(winner);
    ShowPot();
    if (events_) events_->HandWon(winner, potTaken);
    AppendScores();
}

// The human has just laid their last card.
void Game::UserWonHand() {
    gsWinnerName = gsUserName;
    ReckonHand(kSeatUser);

    const bool gameEnded =
        miMoney0 < 1 || miMoney1 < 1 || miMoney2 < 1 || miMoney3 < 1 || miHandNo == 3;
    if (gameEnded) {
        EndOfGameDispatch();  // no standings of the hand, and the hand number stays
        return;
    }
    ++miHandNo;
    table_.ShowHandOver();
    WriteHandCaption();
    StartGame(false);
}

void Game::AppendScores() {
    const auto size = static_cast<std::size_t>(miHandNo) + 1;
    gaScoresOne.resize(size);
    gaScoresTwo.resize(size);
    gaScoresThree.resize(size);
    gaScoresUser.resize(size);
    gaScoresOne[miHandNo] = std::to_string(miMoney0);
    gaScoresTwo[miHandNo] = std::to_string(miMoney1);
    gaScoresThree[miHandNo] = std::to_string(miMoney2);
    gaScoresUser[miHandNo] = std::to_string(miMoney3);
}

// What follows a cycle of computer turns started by the human's move.
void Game::AfterTurnCycle(bool gameOver) {
    if (!mbHandOver)
        HandBackToUser();
    else if (gameOver)
        EndOfGameDispatch();
    else
        StartGame(false);
}

void Game::HandBackToUser() {
    RedrawTable();
    mbUserCanPlay = CanUserPlay();
    mbUserTurn = true;
    table_.SetTurnMarker(kSeatUser, true);
}

// The full redraw that wipes the flights' trails and keeps the flown cards.
void Game::RedrawTable() {
    SortCardsPlayed();
    table_.Cls();
    table_.DrawCardsPlayed(maCardsPlayed.Cards());
    DrawUserHand();
}

void Game::EndOfGameDispatch() {
    table_.SetUserTag("");
    table_.ShowGameOver();
    if (gbDbFailed) {
        table_.RecoverDatabase();
        return;
    }
    if (gbUserWon) {
        table_.TopTenLoad();
        if (gbDbFailed) {
            table_.RecoverDatabase();
            return;
        }
        if (table_.CheckHighScore()) {
            table_.TopTenSave();
            if (gbDbFailed) {
                table_.RecoverDatabase();
                return;
            }
            table_.ShowTopTen();
            if (gbDbFailed) {
                table_.RecoverDatabase();
                return;
            }
        }
    }
    const std::string tag = table_.UserTag();
    if (tag == "YES") {
        mbGameOver = false;
        gaScoresOne.clear();
        gaScoresTwo.clear();
        gaScoresThree.clear();
        gaScoresUser.clear();
        miHandNo = 0;
        if (gbUserWon) {
            table_.SetBusyPointer(true);
            ++miLevel;  // counted, but nothing in play or in the captions depends on it
            table_.ReloadPicture();
            table_.SetBusyPointer(false);
        }
        table_.SetCaption(gsTitle + " - Level 1 (1st Hand)");
        StartGame(true);
    } else if (tag == "NO") {
        table_.Unload();
    } else if (tag == "CHANGE") {
        table_.IniSave();
        table_.ShowUserName();
        table_.SetUserTag("");
        if (gbDbFailed) {
            table_.RecoverDatabase();
            return;
        }
        // Unlike a change of user from the menu, this path doesn't look at
        // whether the user form was cancelled.
        NewGameForNewUser();
    }
    // Any other answer: the form was closed some other way and the table
    // stays as it is.
}

void Game::NewGameForNewUser() {
    mbGameOver = false;
    miLevel = 0;
    gaScoresOne.clear();
    gaScoresTwo.clear();
    gaScoresThree.clear();
    gaScoresUser.clear();
    miHandNo = 0;
    table_.ReloadPicture();
    table_.SetCaption(gsTitle + " - Level 1 (1st Hand)");
    StartGame(true);
}

std::string Game::HandText(int handNo) {
    switch (handNo) {
        case 0: return " (1st Hand)";
        case 1: return " (2nd Hand)";
        case 2: return " (3rd Hand)";
        case 3: return " (4th Hand)";
        default: return "";
    }
}

// Every hand reads " - Level 1", whatever level has been reached: the number
// in the caption is fixed text.
void Game::WriteHandCaption() { table_.SetCaption(gsTitle + " - Level 1" + HandText(miHandNo)); }

void Game::tmrCount_Timer() {
    if (miWaitTicks != 0) {
        --miWaitTicks;
        if (miWaitTicks == 0) mbWaitDone = true;
    }
}

void Game::ShowPlayedCard(int seat, Card card) {
    if (seat < 0 || seat > 3) return;
    table_.ShowSeatCard(seat, card);
    const std::int16_t count = maCardsLeft[seat];
    maCardsLeft[seat] = static_cast<std::int16_t>(count - 1);
    table_.SetCardsLeft(seat, maCardsLeft[seat]);
    if (count == 1) mbHandOver = true;  // the only way a hand ends
    if (events_) events_->CardLaid(seat, card);
}

void Game::ShowMoney(int seat) { table_.SetMoney(seat, Money(seat)); }

void Game::ShowPot() { table_.SetPot(miPot); }

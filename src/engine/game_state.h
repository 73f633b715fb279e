// The game of the main table: its cards, seats and money, the flow of hands
// and games, the human's and the computers' moves. Free of any window code:
// everything it shows goes through the Table interface.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/cards.h"
#include "engine/cards_played.h"
#include "engine/mod_global.h"
#include "engine/table.h"

// Seats: 0 computer left, 1 computer top, 2 computer right, 3 the human.
constexpr int kSeatLeft = 0;
constexpr int kSeatTop = 1;
constexpr int kSeatRight = 2;
constexpr int kSeatUser = 3;

// Fill colours of a seat's turn marker, 0xBBGGRR.
constexpr std::int32_t kMarkerOnTurn = 65535;       // yellow
constexpr std::int32_t kMarkerIdle = 16744703;      // pink

constexpr std::int16_t kStartingMoney = 200;
constexpr std::int16_t kAnte = 5;
constexpr std::int16_t kPotPayment = 5;
constexpr std::int16_t kPenaltyPerCard = 5;
constexpr int kWaitTicks = 20;  // ticks of the pause after a computer's move

// The choice routines, as numbered by the selector.
enum ChoiceRoutine : std::int16_t { kEasy = 0, kMedium = 1, kHard = 2 };

class Game {
public:
    explicit Game(Table& table);

    void SetEvents(GameEvents* events) { events_ = events; }
    // The simulator gives each seat its own routine; the program leaves this
    // unset, and then the selector is modGlobal::giSkillLevel for every seat.
    void SetSeatRoutines(std::optional<std::array<std::int16_t, 4>> routines) {
        seatRoutines_ = routines;
    }

    // --- cards and hands ---
    void InitializeCardArrays();
    void DealCards();
    static void SortIntoSuits(std::vector<Card>& hand);
    void SortCardsPlayed();
    void AddToCardsPlayed(Card card);
    static void RemoveCard(std::vector<Card>& hand, std::size_t index);
    void DrawUserHand();
    std::vector<Card>& Hand(int seat);
    std::int16_t& Money(int seat);

    // --- the flow ---
    void StartGame(bool bNewGame);
    void InitializeDisplay(bool bNewGame);
    void PlayersAnte();
    void PlayCards();
    void tmrCount_Timer();
    void ShowPlayedCard(int seat, Card card);
    void EndOfGameDispatch();
    // A new game at level 0 with fresh scores, after the user was chosen anew.
    void NewGameForNewUser();
    static std::string HandText(int handNo);  // " (1st Hand)" ...
    void WriteHandCaption();

    // --- the computers' turns ---
    void PlayerTurnLeft();
    void PlayerTurnTop();
    void PlayerTurnRight();
    // Fills maLowCards and maHighCards with the cards the hand may lay, each
    // Seven once in each list. Returns false when there is none.
    bool CollectCandidates(const std::vector<Card>& hand);
    // Runs the routine on the collected candidates; erases both lists.
    Card ChooseCard(std::vector<Card>& hand, std::int16_t routine);
    void GetBestEasyCard(std::vector<Card>& hand, std::int16_t lowCount, std::int16_t highCount,
                         Card& card);
    void GetBestMediumCard(std::vector<Card>& hand, std::int16_t lowCount,
                           std::int16_t highCount, Card& card);
    void GetBestHardCard(std::vector<Card>& hand, std::int16_t lowCount, std::int16_t highCount,
                         Card& card);

    // --- the human's turn ---
    bool CanUserPlay();
    void Form_MouseDown(float x, float y);
    void Form_Click();
    void cmdUser_Click();
    // Index of the hand card under (x, y) in twips, or -1 outside the row.
    int HandIndexAt(float x, float y) const;
    // The human lays the card at this index of the hand (after the hit test).
    void PlayUserCard(std::size_t index);

    // --- the form's variables ---
    std::array<Card, 52> maDeck{};
    std::vector<Card> maHand0, maHand1, maHand2, maHand3;
    CardsPlayed maCardsPlayed;  // its size is the count of cards on the table
    std::vector<Card> maUserPlayable;
    std::vector<Card> maLowCards;
    std::vector<Card> maHighCards;
    // The cards each player holds; the table shows them as the seat's count.
    // Not the length of the hand, which keeps its last card.
    std::array<std::int16_t, 4> maCardsLeft{};
    bool mbHandOpened = false;
    bool mbHandOver = false;
    bool mbGameOver = false;
    bool mbUserCanPlay = false;
    bool mbUserTurn = false;
    std::int16_t miCardLeft = 0;
    std::int16_t miCardTop = 0;
    std::int16_t miCardSpacing = 0;
    float miMouseX = 0;
    float miMouseY = 0;
    std::int16_t miWaitTicks = 0;
    bool mbWaitDone = false;
    std::int16_t miHandNo = 0;
    std::int16_t miLevel = 0;
    std::int16_t miMoney0 = 0, miMoney1 = 0, miMoney2 = 0, miMoney3 = 0;
    std::int16_t miStartMoney = 0;  // written at each ante and read by nothing
    std::int16_t miPot = 0;

private:
    void PlayerTurn(int seat);
    void PayThePot(int seat);
    void PauseAfterMove();
    void AfterTurnCycle(bool gameOver);
    void HandBackToUser();
    void UserWonHand();
    void ReckonHand(int winner);
    void AppendScores();
    void ShowMoney(int seat);
    void ShowPot();
    void RedrawTable();
    std::int16_t RoutineOfSeat(int seat) const;

    Table& table_;
    GameEvents* events_ = nullptr;
    std::optional<std::array<std::int16_t, 4>> seatRoutines_;
};

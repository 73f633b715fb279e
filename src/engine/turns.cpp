// The computers' turns: what a seat may lay, laying it or paying the pot,
// and the pause after the move.
#include <algorithm>

#include "engine/game_state.h"
#include "engine/table_ends.h"

using namespace modGlobal;

void Game::PlayerTurnLeft() { PlayerTurn(kSeatLeft); }
void Game::PlayerTurnTop() { PlayerTurn(kSeatTop); }
void Game::PlayerTurnRight() { PlayerTurn(kSeatRight); }

std::int16_t Game::RoutineOfSeat(int seat) const {
    return seatRoutines_ ? (*seatRoutines_)[seat] : giSkillLevel;
}

bool Game::CollectCandidates(const std::vector<Card>& hand) {
    maLowCards.clear();
    maHighCards.clear();
    const TableEnds ends = FindTableEnds(maCardsPlayed.Mask());
    const CardMask held = MaskOf(hand);
    AppendExtensions(held, ends.low, -kSuitStep, maLowCards);
    AppendExtensions(held, ends.high, kSuitStep, maHighCards);
    // Each Seven stands in both lists, so the routines weigh it twice: that
    // is intended.
    for (Card seven = kFirstSeven; seven <= kLastSeven; ++seven) {
        if (InMask(held, seven)) {
            maLowCards.push_back(seven);
            maHighCards.push_back(seven);
        }
    }
    return !maLowCards.empty() || !maHighCards.empty();
}

Card Game::ChooseCard(std::vector<Card>& hand, std::int16_t routine) {
    Card card = 0;  // stands as the choice when the selector names no routine
    const auto lowCount = static_cast<std::int16_t>(maLowCards.size());
    const auto highCount = static_cast<std::int16_t>(maHighCards.size());
    switch (routine) {
        case kEasy: GetBestEasyCard(hand, lowCount, highCount, card); break;
        case kMedium: GetBestMediumCard(hand, lowCount, highCount, card); break;
        case kHard: GetBestHardCard(hand, lowCount, highCount, card); break;
        default: break;
    }
    return card;
}

// The three seats share this routine. They differ in the flight, and in one
// order: the left seat puts its card on the table before the sound, the top
// and right seats after it. The opening card goes in the left seat's order
// for all three.
void Game::PlayerTurn(int seat) {
    std::vector<Card>& hand = Hand(seat);
    table_.SetTurnMarker(seat, true);
    maHighCards.clear();
    maLowCards.clear();

    auto fly = [this, seat](Card card) {
        if (seat == kSeatLeft)
            table_.PlayFromLeft(card);
        else if (seat == kSeatTop)
            table_.PlayFromTop(card);
        else
            table_.PlayFromRight(card);
    };

    if (mbHandOpened) {
        if (!CollectCandidates(hand)) {
            PayThePot(seat);
            return;
        }
        const Card card = ChooseCard(hand, RoutineOfSeat(seat));
        fly(card);
        ShowPlayedCard(seat, card);
        if (seat == kSeatLeft) {
            AddToCardsPlayed(card);
            table_.PlayEffect("OTH_PLAYERS");
        } else {
            table_.PlayEffect("OTH_PLAYERS");
            AddToCardsPlayed(card);
        }
        const auto it = std::find(hand.begin(), hand.end(), card);
        if (it != hand.end()) RemoveCard(hand, static_cast<std::size_t>(it - hand.begin()));
    } else {
        const auto it = std::find(hand.begin(), hand.end(), kSevenOfHearts);
        if (it == hand.end()) {
            // Before the opening a seat without the Seven of Hearts neither
            // plays nor pays.
            if (events_) events_->SeatSkipped(seat);
        } else {
            const auto k = static_cast<std::size_t>(it - hand.begin());
            fly(kSevenOfHearts);
            ShowPlayedCard(seat, hand[k]);
            AddToCardsPlayed(hand[k]);
            table_.PlayEffect("OTH_PLAYERS");
            RemoveCard(hand, k);
            mbHandOpened = true;
        }
    }
    PauseAfterMove();
    table_.SetTurnMarker(seat, false);
}

void Game::PauseAfterMove() {
    miWaitTicks = kWaitTicks;
    while (!mbWaitDone) table_.DoEvents();
    mbWaitDone = false;
}

// A seat that can't lay a card pays at once: no pause and no sound, and
// nothing on screen says why.
void Game::PayThePot(int seat) {
    Money(seat) = static_cast<std::int16_t>(Money(seat) - kPotPayment);
    miPot = static_cast<std::int16_t>(miPot + kPotPayment);
    ShowMoney(seat);
    ShowPot();
    table_.ShowSeatSad(seat, false);
    table_.SetTurnMarker(seat, false);
    if (events_) events_->PotPaid(seat);
}

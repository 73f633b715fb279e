// The human's turn: the legal cards, a click on the hand row, and the button
// that pays the pot. A wrong move costs nothing: it gets a notice.
#include <algorithm>

#include "engine/game_state.h"
#include "engine/table_ends.h"

using namespace modGlobal;

bool Game::CanUserPlay() {
    maUserPlayable.clear();
    const TableEnds ends = FindTableEnds(maCardsPlayed.Mask());
    const CardMask held = MaskOf(maHand3);
    AppendExtensions(held, ends.low, -kSuitStep, maUserPlayable);
    AppendExtensions(held, ends.high, kSuitStep, maUserPlayable);
    for (Card seven = kFirstSeven; seven <= kLastSeven; ++seven)
        if (InMask(held, seven)) maUserPlayable.push_back(seven);
    return !maUserPlayable.empty();
}

void Game::Form_MouseDown(float x, float y) {
    miMouseX = x;
    miMouseY = y;
}

// Each card but the last owns a strip of one spacing from its left edge; an
// X exactly on an edge belongs to the card to the right, and everything right
// of the last card's left edge, up to its right edge, to the last card.
int Game::HandIndexAt(float x, float y) const {
    const int n = static_cast<int>(maHand3.size());
    const float left = miCardLeft;
    const float right = static_cast<float>(miCardLeft + (n - 1) * miCardSpacing + kCardWidthTwips);
    const float top = miCardTop;
    const float bottom = static_cast<float>(miCardTop + kCardHeightTwips);
    if (n == 0 || x < left || x > right || y < top || y > bottom) return -1;
    if (n == 1) return 0;
    if (x > static_cast<float>(miCardLeft + (n - 1) * miCardSpacing)) return n - 1;
    int index = 0;
    for (int k = 1; k < n; ++k) {
        if (x < static_cast<float>(miCardLeft + k * miCardSpacing)) break;
        ++index;
    }
    return index;
}

void Game::Form_Click() {
    if (!mbUserTurn) return;
    const int index = HandIndexAt(miMouseX, miMouseY);
    if (index < 0) return;  // beside the cards: ignored without a word
    if (!mbUserCanPlay) {
        gsNoticeKey = "NOCARD";
        table_.PlayEffect("WRONGCRD");
        table_.ShowMessage();
        return;
    }
    PlayUserCard(static_cast<std::size_t>(index));
}

void Game::PlayUserCard(std::size_t index) {
    const Card card = maHand3[index];
    bool legal;
    if (mbHandOpened) {
        legal = std::find(maUserPlayable.begin(), maUserPlayable.end(), card) !=
                maUserPlayable.end();
    } else {
        legal = card == kSevenOfHearts;
        if (legal) mbHandOpened = true;
    }
    if (!legal) {
        gsNoticeKey = "WRONGCRD";
        table_.PlayEffect("WRONGCRD");
        table_.ShowMessage();
        return;
    }
    // The human's card doesn't fly: it is drawn at once in its column.
    table_.PlayEffect("PLAYCARD");
    ShowPlayedCard(kSeatUser, card);
    AddToCardsPlayed(card);
    RemoveCard(maHand3, index);
    SortCardsPlayed();
    table_.Cls();
    table_.DrawCardsPlayed(maCardsPlayed.Cards());
    if (mbHandOver) {
        UserWonHand();
        return;
    }
    mbUserTurn = false;
    DrawUserHand();
    table_.SetTurnMarker(kSeatUser, false);
    PlayCards();
    const bool gameOver = mbGameOver;
    mbGameOver = false;  // the dispatch from a click starts with the flag cleared
    AfterTurnCycle(gameOver);
}

void Game::cmdUser_Click() {
    if (!mbUserTurn) return;
    if (mbUserCanPlay) {
        // The button refuses to pay and says what can be played.
        if (!mbHandOpened) {
            gsNoticeKey = "MUSTPLAY";
        } else if (maUserPlayable.size() == 1) {
            gsNoticeKey = "CANPLAY1";
            gsNoticeCard = GetCardName(maUserPlayable[0]);
        } else {
            gsNoticeKey = "CANPLAY2";
        }
        table_.PlayEffect("MUSTPLAY");
        table_.ShowMessage();
        return;
    }
    table_.PlayEffect("PAYPOT");
    mbUserTurn = false;
    miMoney3 = static_cast<std::int16_t>(miMoney3 - kPotPayment);
    miPot = static_cast<std::int16_t>(miPot + kPotPayment);
    ShowMoney(kSeatUser);
    ShowPot();
    table_.ShowSeatSad(kSeatUser, true);  // unlike a computer, the human's last card text goes too
    table_.SetTurnMarker(kSeatUser, false);
    if (events_) events_->PotPaid(kSeatUser);
    PlayCards();
    // Here the flag stays set into the dispatch, until its answer clears it.
    AfterTurnCycle(mbGameOver);
}

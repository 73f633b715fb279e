// What the game asks of the table it is played on. The main window
// implements it; the simulator and the tests build on the null table below.
#pragma once

#include <string>
#include <vector>

#include "engine/cards.h"

class Table {
public:
    virtual ~Table() = default;

    // --- the surface ---
    // With AutoRedraw off, drawing goes straight to the screen and is not kept.
    virtual void SetAutoRedraw(bool on) = 0;
    virtual void Cls() = 0;
    virtual void DrawCardsPlayed(const std::vector<Card>& cardsPlayed) = 0;
    virtual void DrawUserHand(const std::vector<Card>& hand, int leftTwips, int topTwips,
                              int spacingTwips) = 0;
    virtual int FormWidth() const = 0;  // outer width of the main window, in twips
    virtual void PlayFromLeft(Card card) = 0;
    virtual void PlayFromTop(Card card) = 0;
    virtual void PlayFromRight(Card card) = 0;

    // --- the seat panels and captions ---
    virtual void SetTurnMarker(int seat, bool onTurn) = 0;
    virtual void ShowSeatCard(int seat, Card card) = 0;  // rank text and suit icon, no sad face
    virtual void ShowSeatSad(int seat, bool clearCardText) = 0;
    virtual void ClearSeatPanel(int seat) = 0;  // no rank, no suit, no sad face
    virtual void SetCardsLeft(int seat, int count) = 0;
    virtual void SetMoney(int seat, int money) = 0;
    virtual void SetPot(int pot) = 0;
    virtual void SetCaption(const std::string& caption) = 0;

    // --- sound, notices and the pause ---
    virtual void PlayEffect(const std::string& key) = 0;
    virtual void ShowMessage() = 0;  // the notice named by modGlobal::gsNoticeKey, modal
    virtual void DoEvents() = 0;     // lets the window system and the timers run once

    // --- the end of a hand and of a game, and what follows ---
    virtual void ShowHandOver() = 0;
    virtual void ShowGameOver() = 0;
    virtual std::string UserTag() const = 0;  // the answer box between the forms
    virtual void SetUserTag(const std::string& tag) = 0;
    virtual void RecoverDatabase() = 0;
    virtual void TopTenLoad() = 0;
    virtual bool CheckHighScore() = 0;
    virtual void TopTenSave() = 0;
    virtual void ShowTopTen() = 0;
    virtual void SetBusyPointer(bool busy) = 0;
    virtual void ReloadPicture() = 0;  // the table's background, fresh
    virtual void IniSave() = 0;
    virtual void ShowUserName() = 0;
    virtual void Unload() = 0;  // closes the table's window, which ends the run
};

// A table with nothing on it: every call does nothing, and what it answers
// leaves the game as it is.
class NullTable : public Table {
public:
    void SetAutoRedraw(bool) override {}
    void Cls() override {}
    void DrawCardsPlayed(const std::vector<Card>&) override {}
    void DrawUserHand(const std::vector<Card>&, int, int, int) override {}
    int FormWidth() const override { return 0; }  // no window: the hand row is off the table
    void PlayFromLeft(Card) override {}
    void PlayFromTop(Card) override {}
    void PlayFromRight(Card) override {}
    void SetTurnMarker(int, bool) override {}
    void ShowSeatCard(int, Card) override {}
    void ShowSeatSad(int, bool) override {}
    void ClearSeatPanel(int) override {}
    void SetCardsLeft(int, int) override {}
    void SetMoney(int, int) override {}
    void SetPot(int) override {}
    void SetCaption(const std::string&) override {}
    void PlayEffect(const std::string&) override {}
    void ShowMessage() override {}
    void DoEvents() override {}  // no timers: a table that plays a game runs its tick here
    void ShowHandOver() override {}
    void ShowGameOver() override {}
    std::string UserTag() const override { return {}; }  // no answer: the table stays as it is
    void SetUserTag(const std::string&) override {}
    void RecoverDatabase() override {}
    void TopTenLoad() override {}
    bool CheckHighScore() override { return false; }  // no place in the top ten
    void TopTenSave() override {}
    void ShowTopTen() override {}
    void SetBusyPointer(bool) override {}
    void ReloadPicture() override {}
    void IniSave() override {}
    void ShowUserName() override {}
    void Unload() override {}
};

// What happened in a game, for those who watch it without a screen.
class GameEvents {
public:
    virtual ~GameEvents() = default;
    virtual void HandDealt() {}
    virtual void CardLaid(int /*seat*/, Card /*card*/) {}
    virtual void SeatSkipped(int /*seat*/) {}
    virtual void PotPaid(int /*seat*/) {}
    virtual void HandWon(int /*seat*/, int /*potTaken*/) {}
};

// A table that records what the game asks of it, one line per call, and
// answers the forms of a hand's and a game's end as a test tells it to.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/game_state.h"
#include "notation.h"

// Leaves the deck as it is: every draw takes the next position in order.
class IdentityDeckRandom : public modGlobal::DeckRandom {
public:
    void Randomize() override { next_ = 0; }
    double Rnd() override { return (next_++ % 52 + 0.5) / 52.0; }

private:
    int next_ = 0;
};

class RecordingTable : public Table {
public:
    std::vector<std::string> log;
    Game* game = nullptr;
    std::string tag;
    std::string answerOfGameOver = "NO";  // what FGameOver writes into the tag
    bool userWins = false;                 // what FGameOver's timer finds
    int formWidth = 9750;
    std::function<void()> onPause;         // runs once at each pause of a computer
    std::function<void()> onHandOver;      // runs when the standings of a hand show
    std::function<void()> onGameOver;      // runs when the end of the game shows
    int doEventsCalls = 0;
    std::string failDatabaseAt;            // the step whose database access fails

    std::vector<std::string> Lines(const std::string& prefix) const {
        std::vector<std::string> out;
        for (const auto& line : log)
            if (line.compare(0, prefix.size(), prefix) == 0) out.push_back(line);
        return out;
    }
    std::vector<std::string> LinesOf(std::initializer_list<std::string> prefixes) const {
        std::vector<std::string> out;
        for (const auto& line : log)
            for (const auto& p : prefixes)
                if (line.compare(0, p.size(), p) == 0) {
                    out.push_back(line);
                    break;
                }
        return out;
    }

    void SetAutoRedraw(bool on) override { log.push_back(on ? "autoredraw on" : "autoredraw off"); }
    void Cls() override { log.push_back("cls"); }
    void DrawCardsPlayed(const std::vector<Card>& cards) override {
        log.push_back("table " + CardsText(cards));
    }
    void DrawUserHand(const std::vector<Card>& hand, int left, int top, int spacing) override {
        log.push_back("hand " + std::to_string(left) + " " + std::to_string(top) + " " +
                      std::to_string(spacing) + " " + CardsText(hand));
    }
    int FormWidth() const override { return formWidth; }
    void PlayFromLeft(Card c) override { log.push_back("fly left " + CardText(c)); }
    void PlayFromTop(Card c) override { log.push_back("fly top " + CardText(c)); }
    void PlayFromRight(Card c) override { log.push_back("fly right " + CardText(c)); }
    void SetTurnMarker(int seat, bool on) override {
        log.push_back("marker " + std::to_string(seat) + (on ? " on" : " off"));
    }
    void ShowSeatCard(int seat, Card c) override {
        log.push_back("panel " + std::to_string(seat) + " " + CardText(c));
    }
    void ShowSeatSad(int seat, bool clear) override {
        log.push_back("sad " + std::to_string(seat) + (clear ? " cleared" : ""));
    }
    void ClearSeatPanel(int seat) override { log.push_back("clear panel " + std::to_string(seat)); }
    void SetCardsLeft(int seat, int n) override {
        log.push_back("left " + std::to_string(seat) + " " + std::to_string(n));
    }
    void SetMoney(int seat, int m) override {
        log.push_back("money " + std::to_string(seat) + " " + std::to_string(m));
    }
    void SetPot(int pot) override { log.push_back("pot $" + std::to_string(pot)); }
    void SetCaption(const std::string& c) override { log.push_back("caption " + c); }
    // The count of cards on the table tells whether a card went down before its sound.
    void PlayEffect(const std::string& key) override {
        log.push_back("effect " + key + " " + std::to_string(game->miCardsPlayed));
    }
    void ShowMessage() override {
        log.push_back("notice " + modGlobal::gsNoticeKey +
                      (modGlobal::gsNoticeKey == "CANPLAY1" ? " " + modGlobal::gsNoticeCard : ""));
    }
    void DoEvents() override {
        ++doEventsCalls;
        if (game->miWaitTicks == kWaitTicks) {
            log.push_back("pause");
            if (onPause) onPause();
        }
        game->tmrCount_Timer();
    }
    void ShowHandOver() override {
        log.push_back("FHandOver");
        if (onHandOver) onHandOver();
    }
    void ShowGameOver() override {
        log.push_back("FGameOver");
        if (onGameOver) onGameOver();
        modGlobal::gbUserWon = userWins;
        tag = answerOfGameOver;
        Fail("FGameOver");
    }
    std::string UserTag() const override { return tag; }
    void SetUserTag(const std::string& t) override { tag = t; }
    void RecoverDatabase() override { log.push_back("RecoverDatabase"); }
    void TopTenLoad() override {
        log.push_back("TopTenLoad");
        Fail("TopTenLoad");
    }
    bool CheckHighScore() override {
        log.push_back("CheckHighScore");
        return true;
    }
    void TopTenSave() override {
        log.push_back("TopTenSave");
        Fail("TopTenSave");
    }
    void ShowTopTen() override {
        log.push_back("FTopTen");
        Fail("FTopTen");
    }
    void SetBusyPointer(bool busy) override { log.push_back(busy ? "pointer busy" : "pointer default"); }
    void ReloadPicture() override { log.push_back("picture"); }
    void IniSave() override { log.push_back("Ini_Save"); }
    void ShowUserName() override {
        log.push_back("FUserName");
        tag = "O";
        Fail("FUserName");
    }
    void UnloadMainForm() override { log.push_back("unload"); }

private:
    void Fail(const std::string& step) {
        if (failDatabaseAt == step) modGlobal::gbDbFailed = true;
    }
};

// A game on a recording table with a deal chosen by the test. The table keeps
// one line for each call the tests look at and answers the forms of a hand's
// and a game's end as the test tells it to. The computers use the Medium
// routine, which has no chance in it, so that every move of a test is known
// in advance.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "engine/game_state.h"

using Lines = std::vector<std::string>;

inline Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

// Cards in text: rank A 2 3 4 5 6 7 8 9 T J Q K, suit C D H S, so "7H" is
// the Seven of Hearts (26) and "KS" the King of Spades (51).
const std::string kRanks = "A23456789TJQK", kSuits = "CDHS";

inline std::vector<Card> ParseCards(const std::string& text) {
    std::vector<Card> cards;
    std::istringstream in(text);
    for (std::string word; in >> word;) {
        const auto rank = kRanks.find(word[0]), suit = kSuits.find(word.back());
        if (word.size() != 2 || rank == std::string::npos || suit == std::string::npos)
            throw std::invalid_argument("not a card: " + word);
        cards.push_back(static_cast<Card>(rank * 4 + suit));
    }
    return cards;
}

// A card out of the deck's range throws rather than print as some other card.
inline std::string CardsText(const std::vector<Card>& cards) {
    std::string text;
    for (Card c : cards)
        text += (text.empty() ? "" : " ") + std::string{kRanks.at(c / 4), kSuits.at(c % 4)};
    return text;
}

// Draws these positions of the deck first, then 0, 1, 2 ... in turn, so that
// with none it leaves the deck as it is.
struct ScriptedDeckRandom : modGlobal::DeckRandom {
    std::vector<int> first;
    std::size_t next = 0;
    void Randomize() override { next = 0; }
    double Rnd() override {
        const std::size_t n = next++;
        return ((n < first.size() ? first[n] : (n - first.size()) % 52) + 0.5) / 52;
    }
};

class RecordingTable : public NullTable {
public:
    Lines log;
    Game* game = nullptr;
    std::string tag, answerOfGameOver = "NO";  // the answer FGameOver writes into the tag
    bool userWins = false, highScore = true;   // what FGameOver and CheckHighScore find
    std::string failDatabaseAt;                // the call whose database access fails

    // The lines that begin with one of the alternatives of the pattern.
    Lines LinesOf(const std::string& pattern) const {
        Lines out;
        const std::regex start("^(" + pattern + ")");
        std::copy_if(log.begin(), log.end(), std::back_inserter(out),
                     [&](const std::string& line) { return std::regex_search(line, start); });
        return out;
    }

    void SetAutoRedraw(bool on) override { Log("autoredraw", on ? "on" : "off"); }
    void Cls() override { Log("cls"); }
    void DrawCardsPlayed(const std::vector<Card>& c) override { Log("table", CardsText(c)); }
    void DrawUserHand(const std::vector<Card>& hand, int left, int top, int step) override {
        Log("hand", left, top, step, CardsText(hand));
    }
    int FormWidth() const override { return 9750; }
    void PlayFromLeft(Card c) override { Log("fly left", CardsText({c})); }
    void PlayFromTop(Card c) override { Log("fly top", CardsText({c})); }
    void PlayFromRight(Card c) override { Log("fly right", CardsText({c})); }
    void SetTurnMarker(int seat, bool on) override { Log("marker", seat, on ? "on" : "off"); }
    void ShowSeatCard(int seat, Card c) override { Log("panel", seat, CardsText({c})); }
    void ShowSeatSad(int seat, bool clear) override { Log(clear ? "sad cleared" : "sad", seat); }
    void SetMoney(int seat, int m) override { Log("money", seat, m); }
    void SetPot(int pot) override { Log("pot", pot); }
    void SetCaption(const std::string& c) override { Log("caption", c); }
    // The count of cards on the table tells whether a card went down before its sound.
    void PlayEffect(const std::string& key) override {
        Log("effect", key, game->maCardsPlayed.size());
    }
    void ShowMessage() override {
        using modGlobal::gsNoticeKey;
        Log("notice", gsNoticeKey == "CANPLAY1" ? gsNoticeKey + " " + modGlobal::gsNoticeCard
                                                : gsNoticeKey);
    }
    // A pause is one line once it has run out, with its length in ticks when
    // that isn't the computers' twenty.
    void DoEvents() override {
        ++ticks_;
        game->tmrCount_Timer();
        if (!game->mbWaitDone) return;
        Log(ticks_ == kWaitTicks ? "pause" : "pause of " + std::to_string(ticks_));
        ticks_ = 0;
    }
    void ShowHandOver() override { Log("FHandOver"); }
    void ShowGameOver() override {
        Log("FGameOver");
        modGlobal::gbUserWon = userWins;
        tag = answerOfGameOver;
    }
    std::string UserTag() const override { return tag; }
    void SetUserTag(const std::string& t) override { tag = t; }
    void RecoverDatabase() override { Log("RecoverDatabase"); }
    void TopTenLoad() override { Log("TopTenLoad"); }
    bool CheckHighScore() override {
        Log("CheckHighScore");
        return highScore;
    }
    void TopTenSave() override { Log("TopTenSave"); }
    void ShowTopTen() override { Log("FTopTen"); }
    void SetBusyPointer(bool busy) override { Log("pointer", busy ? "busy" : "default"); }
    void ReloadPicture() override { Log("picture"); }
    void IniSave() override { Log("Ini_Save"); }
    void ShowUserName() override {
        Log("FUserName");
        tag = "O";
    }
    void Unload() override { Log("unload"); }

private:
    int ticks_ = 0;

    template <class... Parts>
    void Log(const Parts&... parts) {
        std::ostringstream line;
        ((line << ' ' << parts), ...);
        log.push_back(line.str().substr(1));
        if (log.back() == failDatabaseAt) modGlobal::gbDbFailed = true;
    }
};

// The human holds the Seven of Hearts; seat 0 holds no Seven and no Heart,
// so it can't lay a card on the first round; seat 1 has two Sevens.
const std::array<std::string, 4> kDealHumanOpens = {
    "2C 3C 4C 5C 6C 8C 9C TC JC QC KC AD 2D", "7C AC 3D 4D 5D 6D 8D 9D TD JD QD KD 7D",
    "7S 8S 9S TS JS QS KS 6S 5S 4S 3S 2S AS", "7H 8H 9H TH JH QH KH 6H 5H 4H 3H 2H AH"};
// Seat 1 holds the Seven of Hearts; the human can't lay a card on the
// first round of this deal.
const std::array<std::string, 4> kDealHumanStuck = {
    "7C 3C 4C 5C 6C 8C 9C TC JC QC KC AD 2D", "7H AC 3D 4D 5D 6D 8D 9D TD JD QD KD 7D",
    "7S 8S 9S TS JS QS KS 6S 5S 4S 3S 6H 8H", "2C 2S AS 9H TH JH QH KH 5H 4H 3H 2H AH"};

class GameTest : public ::testing::Test {
protected:
    ScriptedDeckRandom deckRandom;
    RecordingTable table;
    Game game{table};

    void SetUp() override {
        modGlobal::ResetGlobals();
        modGlobal::gsTitle = "Title";
        modGlobal::gsOpponent1 = "Left";
        modGlobal::gsOpponent2 = "Top";
        modGlobal::gsUserName = "Me";
        modGlobal::SetDeckSource(&deckRandom);
        table.game = &game;
        game.SetSeatRoutines(std::array<std::int16_t, 4>{kMedium, kMedium, kMedium, kMedium});
    }
    void TearDown() override { modGlobal::SetDeckSource(nullptr); }

    // A new game on this deal, seat 0 to 3 (the deck goes round the seats
    // unshuffled), then the human's moves: a card in text is clicked in the
    // middle of its strip of the row, "beside" clicks beside the row,
    // "button" pays the pot.
    void Deal(const std::array<std::string, 4>& hands) {
        for (int seat = 0; seat < 4; ++seat) {
            const std::vector<Card> cards = ParseCards(hands[seat]);
            for (int i = 0; i < 13; ++i) game.maDeck[i * 4 + seat] = cards.at(i);
        }
        game.StartGame(true);
    }
    void Move(const std::string& move) {
        if (move == "button") return game.cmdUser_Click();
        if (move == "beside") return game.Form_MouseDown(100, 100), game.Form_Click();
        const auto it = std::find(game.maHand3.begin(), game.maHand3.end(), ParseCards(move).at(0));
        ASSERT_NE(it, game.maHand3.end()) << move << " is not in the human's hand";
        game.Form_MouseDown(game.miCardLeft + (it - game.maHand3.begin()) * 360.0f + 100, 5800);
        game.Form_Click();
    }
};

// A game on a recording table with a deal chosen by the test. The computers
// use the Medium routine, which has no chance in it, so that every move of a
// test is known in advance.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/game_state.h"
#include "notation.h"
#include "recording_table.h"

// The human holds the Seven of Hearts; seat 0 holds no Seven and no Heart,
// so it can't lay a card on the first round; seat 1 has two Sevens.
const std::array<std::string, 4> kDealHumanOpens = {
    "2C 3C 4C 5C 6C 8C 9C TC JC QC KC AD 2D",
    "7C AC 3D 4D 5D 6D 8D 9D TD JD QD KD 7D",
    "7S 8S 9S TS JS QS KS 6S 5S 4S 3S 2S AS",
    "7H 8H 9H TH JH QH KH 6H 5H 4H 3H 2H AH",
};

// Seat 1 holds the Seven of Hearts.
const std::array<std::string, 4> kDealTopOpens = {
    "2C 3C 4C 5C 6C 8C 9C TC JC QC KC AD 2D",
    "7H AC 3D 4D 5D 6D 8D 9D TD JD QD KD 7D",
    "7S 8S 9S TS JS QS KS 6S 5S 4S 3S 2S AS",
    "7C 8H 9H TH JH QH KH 6H 5H 4H 3H 2H AH",
};

// The human can't lay a card on the first round of this deal.
const std::array<std::string, 4> kDealHumanStuck = {
    "7C 3C 4C 5C 6C 8C 9C TC JC QC KC AD 2D",
    "7H AC 3D 4D 5D 6D 8D 9D TD JD QD KD 7D",
    "7S 8S 9S TS JS QS KS 6S 5S 4S 3S 6H 8H",
    "2C 2S AS 9H TH JH QH KH 5H 4H 3H 2H AH",
};

class GameTest : public ::testing::Test {
protected:
    IdentityDeckRandom deckRandom;
    RecordingTable table;
    Game game{table};

    void SetUp() override {
        modGlobal::ResetGlobals();
        modGlobal::gsTitle = "Title";
        modGlobal::gsOpponent1 = "Left";
        modGlobal::gsOpponent2 = "Top";
        modGlobal::gsOpponent3 = "Right";
        modGlobal::gsUserName = "Me";
        modGlobal::SetDeckSource(&deckRandom);
        table.game = &game;
        game.SetSeatRoutines(std::array<std::int16_t, 4>{kMedium, kMedium, kMedium, kMedium});
    }
    void TearDown() override { modGlobal::SetDeckSource(nullptr); }

    void Deal(const std::array<std::string, 4>& hands) {
        game.maDeck = DeckDealing(hands);
        game.StartGame(true);
    }
    void PlayUser(const std::string& card) {
        const auto it = std::find(game.maHand3.begin(), game.maHand3.end(), ParseCard(card));
        ASSERT_NE(it, game.maHand3.end()) << card << " is not in the human's hand";
        ClickAt(static_cast<int>(it - game.maHand3.begin()));
    }
    // A click in the middle of the strip that belongs to the card at index.
    void ClickAt(int index) {
        game.Form_MouseDown(static_cast<float>(game.miCardLeft + index * game.miCardSpacing + 100),
                            static_cast<float>(game.miCardTop + 700));
        game.Form_Click();
    }
    int MoneyAndPot() const {
        return game.miMoney0 + game.miMoney1 + game.miMoney2 + game.miMoney3 + game.miPot;
    }
    std::vector<std::string> Moves() const {
        return table.LinesOf({"fly", "panel", "sad", "pause", "FHandOver", "FGameOver"});
    }
};

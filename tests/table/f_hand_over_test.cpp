#include <chrono>
#include <string>
#include <vector>

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/display/do_events.h"
#include "sound/mod_sound_lib.h"
#include "table/f_hand_over.h"

namespace {

using Strings = std::vector<std::string>;

const QColor kBlue(0, 0, 255);

QColor TextColour(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

class FHandOverTest : public ::testing::Test {
protected:
    void SetUp() override {
        modGlobal::ResetGlobals();
        modGlobal::gsOpponent1 = "Fox";
        modGlobal::gsOpponent2 = "Owl";
        modGlobal::gsOpponent3 = "Cat";
        modGlobal::gsUserName = "Ann";
        modGlobal::gsWinnerName = "Owl";
        modGlobal::gsPotWon = "35";
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { keys.push_back(key); });
    }
    void TearDown() override { modSoundLib::SetKeyObserver(nullptr); }

    // One row per hand: the money of the four players after it.
    static void SetStandings(const std::vector<Strings>& hands) {
        for (const Strings& hand : hands) {
            modGlobal::gaScoresOne.push_back(hand[0]);
            modGlobal::gaScoresTwo.push_back(hand[1]);
            modGlobal::gaScoresThree.push_back(hand[2]);
            modGlobal::gaScoresUser.push_back(hand[3]);
        }
    }

    Strings keys;
};

TEST_F(FHandOverTest, OneRowPerHandOlderRowsCrossedOutAndTheLeaderInBlue) {
    SetStandings({{"195", "225", "190", "190"}, {"180", "260", "175", "185"}, {"170", "245", "-5", "290"}});
    FHandOver form;
    EXPECT_EQ(form.windowTitle(), "Hand Over - Current Standings");
    EXPECT_EQ(form.lblWinner->text(), "Owl");
    EXPECT_EQ(form.lblTotPot->text(), "35");
    EXPECT_EQ(form.cmdOK->text(), "&OK");
    const std::array<std::vector<QLabel*>*, 4> columns = {&form.lblScoreOne, &form.lblScoreTwo,
                                                          &form.lblScoreThree, &form.lblScoreUser};
    const std::array<const char*, 4> names = {"Fox", "Owl", "Cat", "Ann"};
    const std::array<Strings, 4> shown = {Strings{"195", "180", "170"}, Strings{"225", "260", "245"},
                                          Strings{"190", "175", "-5"}, Strings{"190", "185", "290"}};
    for (int column = 0; column < 4; ++column) {
        SCOPED_TRACE(names[column]);
        EXPECT_EQ(form.lblPlayer[column]->text(), names[column]);
        const bool leader = column == 3;
        EXPECT_EQ(TextColour(form.lblPlayer[column]) == kBlue, leader);
        const std::vector<QLabel*>& rows = *columns[column];
        ASSERT_EQ(rows.size(), 3u);
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(rows[row]->text().toStdString(), shown[column][row]);
            EXPECT_GT(rows[row]->y(), row ? rows[row - 1]->y() : form.lblPlayer[column]->y());
            EXPECT_EQ(rows[row]->font().strikeOut(), row < 2);
            EXPECT_EQ(TextColour(rows[row]) == kBlue, leader);
        }
    }
}

TEST_F(FHandOverTest, TheLeaderOfTheLastHandIsTheLaterOfEqualsAndTheFirstWhenAllAreBelowZero) {
    const std::vector<std::pair<Strings, int>> cases = {
        {{"100", "150", "120", "90"}, 1},  {{"150", "150", "150", "150"}, 3}, {{"100", "150", "150", "120"}, 2},
        {{"300", "150", "150", "120"}, 0}, {{"-20", "-5", "-10", "-1"}, 0},   {{"-20", "0", "-10", "-1"}, 1},
    };
    for (const auto& [lastHand, leader] : cases) {
        modGlobal::gaScoresOne.clear();
        modGlobal::gaScoresTwo.clear();
        modGlobal::gaScoresThree.clear();
        modGlobal::gaScoresUser.clear();
        SetStandings({{"500", "500", "500", "500"}, lastHand});
        FHandOver form;
        EXPECT_EQ(form.GetHighScore(), leader) << lastHand[0] << " " << lastHand[1] << " " << lastHand[2];
    }
}

TEST_F(FHandOverTest, TheTimerPlaysTheResultOnceAndOkCloses) {
    SetStandings({{"195", "225", "190", "190"}});
    for (const auto& [winner, sound] : {std::pair{"Owl", "OTHWON"}, std::pair{"Ann", "USERWON"}}) {
        keys.clear();
        modGlobal::gsWinnerName = winner;
        FHandOver form;
        form.show();
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1200);
        while (std::chrono::steady_clock::now() < end) platform::DoEvents();
        EXPECT_EQ(keys, Strings{sound});
        form.cmdOK->click();
        EXPECT_FALSE(form.isVisible());
    }
}

}  // namespace

#include <chrono>
#include <string>
#include <vector>

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/do_events.h"
#include "sound/mod_sound_lib.h"
#include "table/f_hand_over.h"

namespace {

const QColor kBlue(0, 0, 255);

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
    static void SetStandings(const std::vector<std::vector<std::string>>& hands) {
        for (const auto& hand : hands) {
            modGlobal::gaScoresOne.push_back(hand[0]);
            modGlobal::gaScoresTwo.push_back(hand[1]);
            modGlobal::gaScoresThree.push_back(hand[2]);
            modGlobal::gaScoresUser.push_back(hand[3]);
        }
    }

    static std::int16_t LeaderOf(const std::vector<std::string>& lastHand) {
        SetStandings({lastHand});
        FHandOver form;
        return form.GetHighScore();
    }

    std::vector<std::string> keys;
};

QColor TextColour(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

}  // namespace

TEST_F(FHandOverTest, TopLineAndHeads) {
    SetStandings({{"195", "225", "190", "190"}});
    FHandOver form;
    EXPECT_EQ(form.windowTitle(), "Hand Over - Current Standings");
    EXPECT_EQ(form.lblWinner->text(), "Owl");
    EXPECT_EQ(form.lblTotPot->text(), "35");
    EXPECT_EQ(form.lblPlayer[0]->text(), "Fox");
    EXPECT_EQ(form.lblPlayer[1]->text(), "Owl");
    EXPECT_EQ(form.lblPlayer[2]->text(), "Cat");
    EXPECT_EQ(form.lblPlayer[3]->text(), "Ann");
    EXPECT_EQ(form.cmdOK->text(), "&OK");
}

TEST_F(FHandOverTest, OneRowPerHandOlderRowsCrossedOut) {
    SetStandings({{"195", "225", "190", "190"}, {"180", "260", "175", "185"}, {"170", "245", "-5", "290"}});
    FHandOver form;
    const std::vector<std::vector<QLabel*>*> columns = {&form.lblScoreOne, &form.lblScoreTwo,
                                                        &form.lblScoreThree, &form.lblScoreUser};
    for (const auto* column : columns) {
        ASSERT_EQ(column->size(), 3u);
        EXPECT_EQ((*column)[0]->y(), 57);  // 855 twips
        EXPECT_EQ((*column)[1]->y(), 72);  // 1075
        EXPECT_EQ((*column)[2]->y(), 86);  // 1295
        EXPECT_TRUE((*column)[0]->font().strikeOut());
        EXPECT_TRUE((*column)[1]->font().strikeOut());
        EXPECT_FALSE((*column)[2]->font().strikeOut());
    }
    EXPECT_EQ(form.lblScoreOne[0]->text(), "195");
    EXPECT_EQ(form.lblScoreTwo[1]->text(), "260");
    EXPECT_EQ(form.lblScoreThree[2]->text(), "-5");
    EXPECT_EQ(form.lblScoreUser[2]->text(), "290");
}

TEST_F(FHandOverTest, LeaderIsBlueHeadAndColumn) {
    SetStandings({{"195", "225", "190", "190"}, {"180", "260", "175", "185"}});
    FHandOver form;
    EXPECT_EQ(TextColour(form.lblPlayer[1]), kBlue);
    for (QLabel* row : form.lblScoreTwo) EXPECT_EQ(TextColour(row), kBlue);
    for (int other : {0, 2, 3}) EXPECT_NE(TextColour(form.lblPlayer[other]), kBlue);
    for (QLabel* row : form.lblScoreUser) EXPECT_NE(TextColour(row), kBlue);
}

TEST_F(FHandOverTest, HighScoreTiesGoToTheLaterPlayer) {
    EXPECT_EQ(LeaderOf({"100", "150", "120", "90"}), 1);
    EXPECT_EQ(LeaderOf({"150", "150", "150", "150"}), 3);
    EXPECT_EQ(LeaderOf({"100", "150", "150", "120"}), 2);
    EXPECT_EQ(LeaderOf({"300", "150", "150", "120"}), 0);
}

TEST_F(FHandOverTest, HighScoreWhenEveryoneIsBelowZeroIsTheFirst) {
    EXPECT_EQ(LeaderOf({"-20", "-5", "-10", "-1"}), 0);
    EXPECT_EQ(LeaderOf({"-20", "0", "-10", "-1"}), 1);
}

TEST_F(FHandOverTest, HighScoreReadsOnlyTheLastHand) {
    SetStandings({{"500", "100", "100", "100"}, {"100", "100", "120", "100"}});
    FHandOver form;
    EXPECT_EQ(form.GetHighScore(), 2);
}

TEST_F(FHandOverTest, TimerPlaysTheResultOnce) {
    SetStandings({{"195", "225", "190", "190"}});
    for (const auto& [winner, sound] : {std::pair{"Owl", "OTHWON"}, std::pair{"Ann", "USERWON"}}) {
        keys.clear();
        modGlobal::gsWinnerName = winner;
        FHandOver form;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1200);
        while (std::chrono::steady_clock::now() < end) platform::DoEvents();
        EXPECT_EQ(keys, std::vector<std::string>{sound});
    }
}

TEST_F(FHandOverTest, OkClosesTheForm) {
    SetStandings({{"195", "225", "190", "190"}});
    FHandOver form;
    form.show();
    form.cmdOK->click();
    EXPECT_FALSE(form.isVisible());
}

#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "support/form_probe.h"
#include "table/f_hand_over.h"

using namespace modGlobal;

namespace {

class FHandOverTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetGlobals();
        gsOpponent1 = "Fox";
        gsOpponent2 = "Owl";
        gsOpponent3 = "Cat";
        gsUserName = "Ann";
    }

    // One row per hand: the money of the four players after it.
    static void SetStandings(const std::vector<Strings>& hands) {
        const std::array<Strings*, 4> columns = {&gaScoresOne, &gaScoresTwo, &gaScoresThree, &gaScoresUser};
        for (int column = 0; column < 4; ++column) {
            columns[column]->clear();
            for (const Strings& hand : hands) columns[column]->push_back(hand[column]);
        }
    }

    SoundKeys sounds_;
};

// The timer plays the result once, however often it ticks.
TEST_F(FHandOverTest, OneRowPerHandOlderRowsCrossedOutTheLeaderInBlueTheResultPlayedOnceAndOkCloses) {
    const std::vector<Strings> hands = {
        {"195", "225", "190", "190"}, {"180", "260", "175", "185"}, {"170", "245", "-5", "290"}};
    SetStandings(hands);
    FHandOver form;
    EXPECT_EQ(Texts(form.lblPlayer), (Strings{"Fox", "Owl", "Cat", "Ann"}));
    const std::array<std::vector<QLabel*>*, 4> columns = {&form.lblScoreOne, &form.lblScoreTwo,
                                                          &form.lblScoreThree, &form.lblScoreUser};
    const QColor blue(0, 0, 255);
    for (int column = 0; column < 4; ++column) {
        SCOPED_TRACE(column);
        const bool leader = column == 3;
        EXPECT_EQ(TextColour(form.lblPlayer[column]) == blue, leader);
        const std::vector<QLabel*>& rows = *columns[column];
        ASSERT_EQ(rows.size(), hands.size());
        for (std::size_t row = 0; row < rows.size(); ++row) {
            EXPECT_EQ(rows[row]->text().toStdString(), hands[row][column]);
            EXPECT_GT(rows[row]->y(), row ? rows[row - 1]->y() : form.lblPlayer[column]->y());
            EXPECT_EQ(rows[row]->font().strikeOut(), row < 2);
            EXPECT_EQ(TextColour(rows[row]) == blue, leader);
        }
    }

    for (const auto& [winner, sound] : {std::pair{"Owl", "OTHWON"}, std::pair{"Ann", "USERWON"}}) {
        sounds_.keys.clear();
        gsWinnerName = winner;
        FHandOver shown;
        shown.show();
        for (int tick = 0; tick < 2; ++tick) EXPECT_TRUE(shown.tmrScore.Fire());
        EXPECT_EQ(sounds_.keys, Strings{sound});
        shown.cmdOK->click();
        EXPECT_FALSE(shown.isVisible());
    }

    // The leader of the last hand is the later of equals, and the first when
    // all are below zero.
    const std::vector<std::pair<Strings, int>> cases = {
        {{"100", "150", "120", "90"}, 1}, {{"150", "150", "150", "150"}, 3}, {{"100", "150", "150", "120"}, 2},
        {{"-20", "-5", "-10", "-1"}, 0},  {{"-20", "0", "-10", "-1"}, 1}};
    for (const auto& [lastHand, leader] : cases) {
        SetStandings({{"500", "500", "500", "500"}, lastHand});
        FHandOver form;
        EXPECT_EQ(form.GetHighScore(), leader) << lastHand[0] << " " << lastHand[1] << " " << lastHand[2];
    }
}

}  // namespace

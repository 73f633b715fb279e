#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "users/f_user_stats.h"

using namespace modGlobal;

namespace {

using Totals = std::array<QString, 3>;

class FUserStatsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetGlobals();
        gsUserName = " Ann ";
    }
    void TearDown() override { ResetGlobals(); }

    static Totals Stats(const FUserStats& form) {
        return {form.lblStats[0]->text(), form.lblStats[1]->text(), form.lblStats[2]->text()};
    }

    platform::ScriptedResponder responder_;
};

TEST_F(FUserStatsTest, TheAverageIsCutTowardsZero) {
    struct Case {
        std::int32_t winnings;
        std::int16_t games;
        Totals shown;
    };
    for (const Case& c : {Case{0, 0, {"$0", "0", "$0"}}, Case{-40, 0, {"$-40", "0", "$0"}},
                          Case{5, 10, {"$5", "10", "$0"}}, Case{-15, 2, {"$-15", "2", "$-7"}},
                          Case{7, 2, {"$7", "2", "$3"}}, Case{1234, 5, {"$1234", "5", "$246"}}}) {
        glWinnings = c.winnings;
        giNumGames = c.games;
        FUserStats form;
        EXPECT_EQ(Stats(form), c.shown) << c.winnings << " over " << c.games;
    }
}

TEST_F(FUserStatsTest, ResetAsksAndZeroesTheTotalsInMemory) {
    glWinnings = -15;
    giNumGames = 2;
    FUserStats form;
    EXPECT_EQ(form.windowTitle(), "Ann's Statistics...");
    EXPECT_EQ(form.lblUserStats[5]->text(), "&& Total Games Played to ZERO and start over.");
    for (const QLabel* label : form.lblUserStats) EXPECT_LE(label->sizeHint().width(), label->width());
    form.show();
    responder_.Answer(platform::kAnswerNo);
    form.cmdUserStats[0]->click();
    ASSERT_EQ(responder_.Boxes().size(), 1u);
    EXPECT_EQ(responder_.Boxes()[0].text, "Are you sure that you wish to reset your totals?");
    EXPECT_EQ(responder_.Boxes()[0].title, "The Game of Dovrin");
    EXPECT_EQ(responder_.Boxes()[0].style, platform::kQuestion | platform::kYesNo);
    EXPECT_EQ(glWinnings, -15);
    EXPECT_EQ(Stats(form), (Totals{"$-15", "2", "$-7"}));

    responder_.Answer(platform::kAnswerYes);
    form.cmdUserStats[0]->click();
    EXPECT_EQ(glWinnings, 0);
    EXPECT_EQ(giNumGames, 0);
    EXPECT_EQ(Stats(form), (Totals{"$0", "0", "$0"}));
    EXPECT_TRUE(form.isVisible());

    form.cmdUserStats[1]->click();
    EXPECT_FALSE(form.isVisible());
}

}  // namespace

#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "support/boxes.h"
#include "support/form_probe.h"
#include "users/f_user_stats.h"

using namespace modGlobal;

namespace {

TEST(FUserStatsTest, TheAverageIsCutTowardsZeroAndAResetAsksAndZeroesTheTotalsInMemory) {
    platform::ScriptedResponder responder;
    for (const auto& [winnings, games, shown] : std::vector<std::tuple<int, std::int16_t, Strings>>{
             {0, 0, {"$0", "0", "$0"}}, {-40, 0, {"$-40", "0", "$0"}}, {7, 2, {"$7", "2", "$3"}},
             {5, 10, {"$5", "10", "$0"}}, {-15, 2, {"$-15", "2", "$-7"}}}) {
        glWinnings = winnings;
        giNumGames = games;
        EXPECT_EQ(Texts(FUserStats().lblStats), shown);
    }
    gsUserName = " Ann ";
    FUserStats form;
    EXPECT_EQ(form.windowTitle(), "Ann's Statistics...");
    form.show();
    responder.Answer(platform::kAnswerNo);
    form.cmdUserStats[0]->click();
    EXPECT_EQ(Texts(form.lblStats), (Strings{"$-15", "2", "$-7"}));
    responder.Answer(platform::kAnswerYes);
    form.cmdUserStats[0]->click();
    EXPECT_EQ(BoxesOf(responder), std::vector<Box>(2, {"The Game of Dovrin", platform::kQuestion | platform::kYesNo,
                                                       "Are you sure that you wish to reset your totals?"}));
    EXPECT_EQ(Texts(form.lblStats), (Strings{"$0", "0", "$0"}));
    EXPECT_EQ(glWinnings + giNumGames, 0);
    form.cmdUserStats[1]->click();
    EXPECT_FALSE(form.isVisible());
}

}  // namespace

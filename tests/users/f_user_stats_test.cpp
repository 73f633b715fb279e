#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "users/f_user_stats.h"

using namespace modGlobal;

namespace {

QStringList Stats(const FUserStats& form) {
    return {form.lblStats[0]->text(), form.lblStats[1]->text(), form.lblStats[2]->text()};
}

TEST(FUserStatsTest, TheAverageIsCutTowardsZeroAndAResetAsksAndZeroesTheTotalsInMemory) {
    platform::ScriptedResponder responder;
    for (const auto& [winnings, games, shown] : std::vector<std::tuple<int, std::int16_t, QStringList>>{
             {0, 0, {"$0", "0", "$0"}}, {-40, 0, {"$-40", "0", "$0"}}, {7, 2, {"$7", "2", "$3"}},
             {5, 10, {"$5", "10", "$0"}}, {-15, 2, {"$-15", "2", "$-7"}}}) {
        glWinnings = winnings;
        giNumGames = games;
        EXPECT_EQ(Stats(FUserStats()), shown);
    }
    gsUserName = " Ann ";
    FUserStats form;
    EXPECT_EQ(form.windowTitle(), "Ann's Statistics...");
    form.show();
    responder.Answer(platform::kAnswerNo);
    form.cmdUserStats[0]->click();
    EXPECT_EQ(Stats(form), (QStringList{"$-15", "2", "$-7"}));
    responder.Answer(platform::kAnswerYes);
    form.cmdUserStats[0]->click();
    const auto question = responder.Boxes().at(1);
    EXPECT_EQ(question.title + ": " + question.text, "The Game of Dovrin: Are you sure that you wish to reset your totals?");
    EXPECT_EQ(question.style, platform::kQuestion | platform::kYesNo);
    EXPECT_EQ(Stats(form), (QStringList{"$0", "0", "$0"}));
    EXPECT_EQ(glWinnings + giNumGames, 0);
    form.cmdUserStats[1]->click();
    EXPECT_FALSE(form.isVisible());
}

}  // namespace

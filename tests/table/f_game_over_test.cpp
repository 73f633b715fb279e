#include <tuple>

#include <QPushButton>

#include <gtest/gtest.h>

#include "platform/display/name_font.h"
#include "storage/storage_fixture.h"
#include "support/closes_by_itself.h"
#include "support/form_probe.h"
#include "support/recording_main_form.h"
#include "table/f_game_over.h"
#include "table/f_hand_over.h"
#include "table/f_top_ten.h"

using namespace modGlobal;

namespace {

class FGameOverTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
        gsOpponent1 = "Lu";
        gsOpponent2 = "Mo";
        gsOpponent3 = "Ned";
        gsUserName = "Ann";
        gsSkillLevel = "Medium";
    }

    RecordingMainForm mainForm_;
    SoundKeys sounds_;
};

// A quote in the user's name breaks only the save of the record.
TEST_F(FGameOverTest, TheRecordIsAddedByNameThenEditedInPlaceUnlessTheNameHasAQuoteAndThePlayersRankedThroughTheTable) {
    Open()->Execute("INSERT INTO user (userid, name, numgames, winnings) VALUES (8, 'Bo', 9, 900)");
    mainForm_.money = {"180", "-20", "250", "150"};
    FGameOver first;
    EXPECT_EQ(Texts(first.lblPlayer), (Strings{"Ned", "Lu", "Ann", "Mo"}));
    EXPECT_EQ(Texts(first.lblAmt), (Strings{"250", "180", "150", "-20"}));
    EXPECT_EQ(Users(), (Strings{"0|Ann|Lu|Mo|Ned|Medium|1|-50", "8|Bo|-|-|-|-|9|900"}));

    gsUserName = "  Ann ";
    gsOpponent1 = "Zed";
    mainForm_.money = {"180", "95", "250", "275"};
    FGameOver second;
    EXPECT_EQ(Users(), (Strings{"0|Ann|Zed|Mo|Ned|Medium|2|25", "8|Bo|-|-|-|-|9|900"}));
    EXPECT_EQ(Rows("SELECT * FROM player", {"name"}).size(), 4u);  // emptied before each use

    gsUserName = "O'Brien";
    FGameOver quoted;  // the one box of the three games
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"SaveUserData", platform::kExclamation,
                                          "Syntax error (missing operator) in query expression 'name='O'Brien''."}}));
    EXPECT_EQ(Users(), (Strings{"0|Ann|Zed|Mo|Ned|Medium|2|25", "8|Bo|-|-|-|-|9|900"}));
    EXPECT_FALSE(gbDbFailed);
    EXPECT_EQ(Texts(quoted.lblPlayer), (Strings{"O'Brien", "Ned", "Zed", "Mo"}));
}

// Each answer after the timer has told, twice, whether the user stands first:
// an opponent who bears the user's name counts as the user. The frame closes
// the last form before the first tick, which leaves the last game's win.
TEST_F(FGameOverTest, TheTimerTellsOnceWhoWonAndEachAnswerGoesThroughTheTagTheFrameMeaningNo) {
    const std::vector<std::tuple<const char*, const char*, bool>> games = {
        {"275", "Ned", true}, {"205", "Ned", false}, {"205", "Ann", true}, {"275", "Ned", false}};
    const Strings answers = {"YES", "NO", "CHANGE", "NO"};
    for (std::size_t index = 0; index < games.size(); ++index) {
        const auto& [userMoney, opponent3, userWon] = games[index];
        const bool ticks = index < 3;  // a button, after the ticks
        SCOPED_TRACE(answers[index]);
        mainForm_.tag.clear();  // as the main form leaves it before the dialog
        mainForm_.money = {"180", "95", "250", userMoney};
        gsOpponent3 = opponent3;
        gbUserWon = ticks ? !userWon : userWon;
        sounds_.keys.clear();
        FGameOver form;
        form.show();
        for (int tick = 0; tick < 2 && ticks; ++tick) EXPECT_TRUE(form.tmrScore.Fire());
        if (ticks)
            form.cmdYesNo[index]->click();
        else
            form.close();
        EXPECT_FALSE(form.isVisible());
        EXPECT_FALSE(form.tmrScore.Fire());
        EXPECT_EQ(mainForm_.tag, answers[index]);
        EXPECT_EQ(gbUserWon, userWon);
        EXPECT_EQ(sounds_.keys, ticks ? Strings{userWon ? "USERWON" : "OTHWON"} : Strings{});
    }
}

TEST_F(FGameOverTest, AFailedOpenLeavesTheRowsEmptyAndTheFormUnloadsWhenItActivates) {
    gsDbPath = app_.File("gone");
    FGameOver form;
    EXPECT_TRUE(gbDbFailed);
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_EQ(Texts(form.lblPlayer), (Strings{"", "", "", ""}));

    EXPECT_TRUE(ClosesByItself(form));
    EXPECT_EQ(mainForm_.tag, "NO");
}

// The longest name the user form takes, in its widest character, is shown
// whole by the column heads and the winner of a hand's end and by the rows
// of a game's end. CTest runs this once more on a screen of twice the density.
TEST_F(FGameOverTest, TheWidestNameFitsWhereverTheEndOfAHandOrAGameShowsIt) {
    const std::string widest = platform::WidestName(platform::NameFont(9, true)).toStdString();
    gsOpponent1 = gsOpponent2 = gsOpponent3 = gsUserName = gsWinnerName = widest;
    gaScoresOne = gaScoresTwo = gaScoresThree = gaScoresUser = {"200"};
    InsertTopTen({{widest, 500, "Easy", 40000}});
    giTopTenRow = 99;
    FHandOver hand;
    FGameOver game;
    FTopTen topTen;
    std::vector<QLabel*> names = {hand.lblWinner, topTen.lblPlayer[0]};
    names.insert(names.end(), hand.lblPlayer.begin(), hand.lblPlayer.end());
    names.insert(names.end(), game.lblPlayer.begin(), game.lblPlayer.end());
    for (const QLabel* label : names) {
        EXPECT_EQ(label->text().toStdString(), widest);
        EXPECT_LE(label->sizeHint().width(), label->width()) << "at " << label->font().pointSizeF() << " points";
    }
}

}  // namespace

#include <QPushButton>

#include "storage/storage_fixture.h"
#include "support/closes_by_itself.h"
#include "support/form_probe.h"
#include "table/f_top_ten.h"

using namespace modGlobal;
using platform::DateValue;
using storage::TopTenEntry;
using storage::TopTenList;

namespace {

const QColor kMarked(0, 0, 255);

class TopTenTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
        gsUserName = "Ann";
        gsSkillLevel = "Hard";
        giTopTenRow = 99;
    }

    // Places `score` in a list freshly loaded from the table.
    bool Place(std::int16_t score) {
        list_ = TopTenList();
        list_.SetHighScoreFanfare([this] { ++fanfares_; });
        list_.TopTenLoad();
        gaStanding[0].funds = score;
        return list_.CheckHighScore();
    }

    TopTenList list_;
    int fanfares_ = 0;
    SoundKeys sounds_;
};

TEST_F(TopTenTest, AnEmptyTableGivesBlankRowsAPositiveScoreEntersAndFiveHundredSoundsTheFanfare) {
    for (const std::int16_t score : {0, -5}) EXPECT_FALSE(Place(score));
    EXPECT_EQ(giTopTenRow, 99);

    const double before = platform::Now();
    ASSERT_TRUE(Place(1));
    EXPECT_EQ(giTopTenRow, 0);
    const TopTenEntry& entry = list_.maTopTen[0];
    EXPECT_EQ(entry.name + "|" + std::to_string(entry.score) + "|" + entry.skilllevel, "Ann|1|Hard");
    EXPECT_NEAR(entry.date, before, 2.0 / 86400);
    for (const std::int16_t score : {499, 500}) EXPECT_TRUE(Place(score));
    EXPECT_EQ(fanfares_, 1);  // the 500 alone sounds it
    list_.TopTenSave();
    EXPECT_EQ(Rows("SELECT * FROM topten", {"name"}), (Strings{"Ann", "", "", "", "", "", "", "", "", ""}));
}

// The end of a game: the new score placed, the list saved and shown with the
// new row marked; the end of the game has sounded already.
TEST_F(TopTenTest, ANewScoreRanksBelowAnEqualOnePushesTheTenthOffAndIsShownMarkedButForItsScore) {
    std::vector<TopTenEntry> entries;
    for (std::int16_t score = 1000; score >= 100; score -= 100)
        entries.push_back({std::to_string(score), score, "Easy", DateValue(2024, 3, 1)});
    InsertTopTen(entries);
    for (const std::int16_t score : {100, 50}) EXPECT_FALSE(Place(score));
    EXPECT_EQ(giTopTenRow, 99);
    ASSERT_TRUE(Place(900));
    EXPECT_EQ(giTopTenRow, 2);
    list_.TopTenSave();

    FTopTen form;
    EXPECT_EQ(Texts(form.lblPlayer), (Strings{"1000", "900", "Ann", "800", "700", "600", "500", "400", "300", "200"}));
    EXPECT_EQ(form.lblScore[2]->text() + form.lblSkilllevel[2]->text(), "900H");
    for (int row = 0; row < 10; ++row) {
        for (const QLabel* label : {form.lblPlayer[row], form.lblSkilllevel[row], form.lblDate[row]})
            EXPECT_EQ(TextColour(label) == kMarked, row == 2) << row;
        EXPECT_NE(TextColour(form.lblScore[row]), kMarked) << row;
    }
    for (int tick = 0; tick < 3; ++tick) EXPECT_TRUE(form.tmrTopTen.Fire());
    EXPECT_TRUE(sounds_.keys.empty());
}

// From the menu, after a failed load that unloads the list as it activates.
// Clear asks, then empties the table before the screen; a failed open on the
// way closes the list.
TEST_F(TopTenTest, FromTheMenuTheListShowsTheBestFirstAnEqualScoreByItsWholeDateSoundsTheWinOnceAndClears) {
    gsDbPath = app_.File("gone");
    FTopTen failed;
    EXPECT_TRUE(gbDbFailed);
    EXPECT_EQ(Texts(failed.lblPlayer), Strings(10, ""));
    EXPECT_TRUE(ClosesByItself(failed));

    gsDbPath = app_.Path();
    gbDbFailed = false;
    InsertTopTen({{"Late", 300, "Easy", DateValue(2024, 1, 1, 9)},
                  {"Ghost", 0, "Hard", DateValue(2024, 5, 5)},
                  {"Old", 300, "Hard", DateValue(2023, 12, 31, 23)},
                  {"Cy", 720, "Medium", DateValue(2024, 2, 29)},
                  {"Early", 300, "Easy", DateValue(2024, 1, 1, 0, 0, 1)}});
    FTopTen form;
    EXPECT_EQ(Texts(form.lblPlayer), (Strings{"Cy", "Old", "Early", "Late", "", "", "", "", "", ""}));
    EXPECT_EQ(Texts(form.lblDate), (Strings{"Feb 29", "Dec 31", "Jan 01", "Jan 01", "", "", "", "", "", ""}));
    for (const QLabel* label : form.lblPlayer) EXPECT_NE(TextColour(label), kMarked);
    for (int tick = 0; tick < 3; ++tick) EXPECT_TRUE(form.tmrTopTen.Fire());
    EXPECT_EQ(sounds_.keys, Strings{"USERWON"});

    form.show();
    responder_.Answer(platform::kAnswerNo);
    form.cmdTopTen[1]->click();
    EXPECT_EQ(Rows("SELECT * FROM topten", {"name"}).size(), 5u);
    gsDbPath = app_.File("gone");
    responder_.Answer(platform::kAnswerYes);
    form.cmdTopTen[1]->click();
    EXPECT_TRUE(gbDbFailed);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.lblPlayer[0]->text(), "Cy");

    gsDbPath = app_.Path();
    gbDbFailed = false;
    form.show();
    responder_.Answer(platform::kAnswerYes);
    form.cmdTopTen[1]->click();
    EXPECT_TRUE(Rows("SELECT * FROM topten", {"name"}).empty());
    for (const auto* column : {&form.lblPlayer, &form.lblScore, &form.lblSkilllevel, &form.lblDate})
        EXPECT_EQ(Texts(*column), Strings(10, ""));
    EXPECT_EQ(Boxes(), std::vector<Box>(3, {"Top Ten List", platform::kQuestion + platform::kYesNo,
                                            "Are you sure that you want\r\nto clear the top ten list?"}));
    form.cmdTopTen[0]->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.tmrTopTen.Fire());
}

}  // namespace

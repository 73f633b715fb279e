#include <string>
#include <vector>

#include "top_ten_fixture.h"

using namespace modGlobal;
using platform::DateValue;
using storage::TopTenEntry;
using storage::TopTenList;

namespace {

constexpr double kOneSecond = 1.0 / 86400;

class TopTenListTest : public TopTenTest {
protected:
    void SetUp() override {
        TopTenTest::SetUp();
        gsUserName = "Ann";
        gsSkillLevel = "Hard";
    }

    // Places `score` in a list freshly loaded from the table.
    bool Place(std::int16_t score) {
        list_ = TopTenList();
        list_.TopTenLoad();
        gaStanding[0].funds = score;
        return list_.CheckHighScore();
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < 10; ++row) names.push_back(list_.maTopTen[row].name);
        return names;
    }

    // Ten rows scoring 1000, 900, ... 100, named by their score.
    static void InsertFullList() {
        std::vector<TopTenEntry> entries;
        for (std::int16_t score = 1000; score >= 100; score -= 100)
            entries.push_back({std::to_string(score), score, "Easy", DateValue(2024, 3, 1)});
        Insert(entries);
    }

    TopTenList list_;
};

}  // namespace

TEST_F(TopTenListTest, AnEmptyTableGivesTenBlankRowsAndOnlyAPositiveScoreEnters) {
    const double before = platform::Now();
    for (const std::int16_t score : {0, -5}) {
        giTopTenRow = 99;
        EXPECT_FALSE(Place(score));
        EXPECT_EQ(giTopTenRow, 99);
    }
    for (std::size_t row = 0; row < 10; ++row) {
        EXPECT_EQ(list_.maTopTen[row].name, "");
        EXPECT_EQ(list_.maTopTen[row].score, 0);
        EXPECT_NEAR(list_.maTopTen[row].date, before, 2 * kOneSecond);
    }

    ASSERT_TRUE(Place(1));
    EXPECT_EQ(giTopTenRow, 0);
    const TopTenEntry& entry = list_.maTopTen[0];
    EXPECT_EQ(entry.name, "Ann");
    EXPECT_EQ(entry.score, 1);
    EXPECT_EQ(entry.skilllevel, "Hard");
    EXPECT_NEAR(entry.date, before, 2 * kOneSecond);
    EXPECT_EQ(list_.maTopTen[1].score, 0);
}

TEST_F(TopTenListTest, AnEqualScoreRanksBelowAndTheTenthRowFallsOff) {
    InsertFullList();
    ASSERT_TRUE(Place(900));
    EXPECT_EQ(giTopTenRow, 2);
    EXPECT_EQ(Names(), (std::vector<std::string>{"1000", "900", "Ann", "800", "700", "600", "500", "400", "300",
                                                 "200"}));
    ASSERT_TRUE(Place(150));
    EXPECT_EQ(giTopTenRow, 9);
    EXPECT_EQ(list_.maTopTen[9].name, "Ann");

    giTopTenRow = 4;
    for (const std::int16_t score : {100, 50}) {
        EXPECT_FALSE(Place(score));
        EXPECT_EQ(Names().back(), "100");
    }
    EXPECT_EQ(giTopTenRow, 4);
}

TEST_F(TopTenListTest, TheFanfareRunsForAnEnteringScoreOfFiveHundredOrMore) {
    int fanfares = 0;
    const auto placeWithFanfare = [&](std::int16_t score) {
        list_.SetHighScoreFanfare([&] { ++fanfares; });
        gaStanding[0].funds = score;
        return list_.CheckHighScore();
    };
    list_.TopTenLoad();
    EXPECT_TRUE(placeWithFanfare(499));
    EXPECT_EQ(fanfares, 0);
    EXPECT_TRUE(placeWithFanfare(500));
    EXPECT_EQ(fanfares, 1);

    for (TopTenEntry& entry : list_.maTopTen) entry.score = 700;
    EXPECT_FALSE(placeWithFanfare(650));
    EXPECT_EQ(fanfares, 1);
}

TEST_F(TopTenListTest, TheSaveRewritesTenRowsThatLoadBackInScoreOrder) {
    Insert({{"stale", 20, "Easy", DateValue(2020, 1, 1)}});
    list_.TopTenLoad();
    list_.maTopTen[0] = {"Bo", 310, "Medium", DateValue(2023, 12, 31, 23, 59, 59)};
    list_.maTopTen[1] = {"Cy", 720, "Hard", DateValue(2024, 2, 29, 8, 30)};
    list_.maTopTen[2] = {"Di", -3, "Easy", DateValue(2024, 1, 1)};
    list_.TopTenSave();
    EXPECT_EQ(TableRows().size(), 10u);

    TopTenList loaded;
    loaded.TopTenLoad();
    EXPECT_EQ(loaded.maTopTen[0].name, "Cy");
    EXPECT_EQ(loaded.maTopTen[0].skilllevel, "Hard");
    EXPECT_EQ(loaded.maTopTen[0].date, DateValue(2024, 2, 29, 8, 30));
    EXPECT_EQ(loaded.maTopTen[1].name, "Bo");
    EXPECT_EQ(loaded.maTopTen[1].date, DateValue(2023, 12, 31, 23, 59, 59));
    for (std::size_t row = 2; row < 9; ++row) EXPECT_EQ(loaded.maTopTen[row].score, 0) << row;
    EXPECT_EQ(loaded.maTopTen[9].name, "Di");
    EXPECT_EQ(loaded.maTopTen[9].score, -3);
    EXPECT_TRUE(responder_.Events().empty());
}

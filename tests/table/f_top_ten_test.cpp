#include <chrono>
#include <string>
#include <vector>

#include <QLabel>
#include <QPushButton>

#include "platform/display/do_events.h"
#include "sound/mod_sound_lib.h"
#include "table/f_top_ten.h"
#include "storage/storage_fixture.h"
#include "support/closes_by_itself.h"

using namespace modGlobal;
using platform::DateValue;
using storage::TopTenEntry;
using storage::TopTenList;

namespace {

using Strings = std::vector<std::string>;

constexpr double kOneSecond = 1.0 / 86400;

class TopTenListTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
        gsUserName = "Ann";
        gsSkillLevel = "Hard";
    }

    // Places `score` in a list freshly loaded from the table.
    bool Place(std::int16_t score) {
        list_ = TopTenList();
        list_.SetHighScoreFanfare([this] { ++fanfares_; });
        list_.TopTenLoad();
        gaStanding[0].funds = score;
        return list_.CheckHighScore();
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < 10; ++row) names.push_back(list_.maTopTen[row].name);
        return names;
    }

    TopTenList list_;
    int fanfares_ = 0;
};

TEST_F(TopTenListTest, AnEmptyTableGivesBlankRowsAPositiveScoreEntersAndFiveHundredSoundsTheFanfare) {
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

    EXPECT_TRUE(Place(499));
    EXPECT_EQ(fanfares_, 0);
    EXPECT_TRUE(Place(500));
    EXPECT_EQ(fanfares_, 1);
    for (TopTenEntry& row : list_.maTopTen) row.score = 700;
    gaStanding[0].funds = 650;
    EXPECT_FALSE(list_.CheckHighScore());
    EXPECT_EQ(fanfares_, 1);
}

TEST_F(TopTenListTest, AnEqualScoreRanksBelowAndTheTenthRowFallsOff) {
    std::vector<TopTenEntry> entries;
    for (std::int16_t score = 1000; score >= 100; score -= 100)
        entries.push_back({std::to_string(score), score, "Easy", DateValue(2024, 3, 1)});
    InsertTopTen(entries);
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

TEST_F(TopTenListTest, TheSaveRewritesTenRowsThatLoadBackInScoreOrder) {
    InsertTopTen({{"stale", 20, "Easy", DateValue(2020, 1, 1)}});
    list_.TopTenLoad();
    list_.maTopTen[0] = {"Bo", 310, "Medium", DateValue(2023, 12, 31, 23, 59, 59)};
    list_.maTopTen[1] = {"Cy", 720, "Hard", DateValue(2024, 2, 29, 8, 30)};
    list_.maTopTen[2] = {"Di", -3, "Easy", DateValue(2024, 1, 1)};
    list_.TopTenSave();
    EXPECT_EQ(Rows("SELECT * FROM topten", {"name"}).size(), 10u);

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


const QColor kDarkBlue(0, 0, 128);
const QColor kPurple(128, 0, 128);
const QColor kBlue(0, 0, 255);
const Strings kNoText(10, "");

QColor TextColour(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

Strings Column(const std::array<QLabel*, 10>& labels) {
    Strings texts;
    for (const QLabel* label : labels) texts.push_back(label->text().toStdString());
    return texts;
}

class FTopTenTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
        giTopTenRow = 99;
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
        InsertTopTen({{"Bo", 310, "Medium", DateValue(2024, 1, 1)},
                      {"Cy", 720, "Hard", DateValue(2024, 2, 29)},
                      {"Di", 45, "Easy", DateValue(2023, 7, 4)}});
    }
    void TearDown() override {
        modSoundLib::SetKeyObserver(nullptr);
        DeliveredDbTest::TearDown();
    }

    std::vector<std::string> sounds_;
};

TEST_F(FTopTenTest, ShowsTheBestFirstAndOnATieTheOlderEntryByItsWholeDate) {
    InsertTopTen({{"Late", 300, "Easy", DateValue(2024, 1, 1, 9)},
                  {"Ghost", 0, "Hard", DateValue(2024, 5, 5)},
                  {"Old", 300, "Hard", DateValue(2023, 12, 31, 23)},
                  {"Top", 900, "Medium", DateValue(2024, 6, 5)},
                  {"Early", 300, "Easy", DateValue(2024, 1, 1, 0, 0, 1)}});
    FTopTen form;
    EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin - Top Ten List");
    const auto shown = [](Strings texts) {
        texts.resize(10);
        return texts;
    };
    EXPECT_EQ(Column(form.lblPlayer), shown({"Top", "Cy", "Bo", "Old", "Early", "Late", "Di"}));
    EXPECT_EQ(Column(form.lblScore), shown({"900", "720", "310", "300", "300", "300", "45"}));
    EXPECT_EQ(Column(form.lblSkilllevel), shown({"M", "H", "M", "H", "E", "E", "E"}));
    EXPECT_EQ(Column(form.lblDate), shown({"Jun 05", "Feb 29", "Jan 01", "Dec 31", "Jan 01", "Jan 01", "Jul 04"}));
    EXPECT_EQ(Column(form.lblNo), (Strings{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    EXPECT_EQ(form.cmdTopTen[0]->text(), "&OK");
    EXPECT_EQ(form.cmdTopTen[1]->text(), "&Clear");
}

TEST_F(FTopTenTest, MarksTheNewRowButNotItsScoreAndFromTheMenuSoundsTheWin) {
    for (const std::int16_t newRow : {1, 99}) {
        giTopTenRow = newRow;
        sounds_.clear();
        FTopTen form;
        for (int row = 0; row < 10; ++row) {
            const bool marked = row == newRow;
            EXPECT_EQ(TextColour(form.lblPlayer[row]), marked ? kBlue : kPurple);
            EXPECT_EQ(TextColour(form.lblSkilllevel[row]), marked ? kBlue : kPurple);
            EXPECT_EQ(TextColour(form.lblDate[row]), marked ? kBlue : kDarkBlue);
            EXPECT_EQ(TextColour(form.lblScore[row]), kDarkBlue);
        }
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1100);
        while (std::chrono::steady_clock::now() < end) platform::DoEvents();
        EXPECT_EQ(sounds_, newRow == 99 ? Strings{"USERWON"} : Strings{});
    }
}

TEST_F(FTopTenTest, ClearAsksThenEmptiesTheTableBeforeTheScreenAndAFailedOpenClosesTheList) {
    FTopTen form;
    form.show();
    responder_.Answer(platform::kAnswerNo);
    form.cmdTopTen[1]->click();
    EXPECT_EQ(Rows("SELECT * FROM topten", {"name"}).size(), 3u);
    EXPECT_EQ(form.lblPlayer[0]->text(), "Cy");

    TempDir vanished;
    gsDbPath = vanished.File("gone");
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
        EXPECT_EQ(Column(*column), kNoText);
    EXPECT_EQ(form.lblNo[9]->text(), "10");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Boxes(), std::vector<Box>(3, {"Top Ten List", platform::kQuestion + platform::kYesNo,
                                            "Are you sure that you want\r\nto clear the top ten list?"}));
    form.cmdTopTen[0]->click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FTopTenTest, AFailedLoadShowsNothingAndTheListUnloadsWhenItActivates) {
    TempDir vanished;
    gsDbPath = vanished.File("gone");
    giTopTenRow = 0;
    FTopTen form;
    EXPECT_TRUE(gbDbFailed);
    EXPECT_EQ(Column(form.lblPlayer), kNoText);
    EXPECT_TRUE(ClosesByItself(form));
}

}  // namespace

#include <chrono>
#include <string>
#include <vector>

#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "platform/do_events.h"
#include "sound/mod_sound_lib.h"
#include "storage/f_top_ten.h"
#include "top_ten_fixture.h"

using namespace modGlobal;
using platform::DateValue;

namespace {

const QColor kDarkBlue(0, 0, 128);
const QColor kPurple(128, 0, 128);
const QColor kBlue(0, 0, 255);

QColor TextColour(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

std::vector<std::string> Column(const std::array<QLabel*, 10>& labels) {
    std::vector<std::string> texts;
    for (const QLabel* label : labels) texts.push_back(label->text().toStdString());
    return texts;
}

class FTopTenTest : public TopTenTest {
protected:
    void SetUp() override {
        TopTenTest::SetUp();
        giTopTenRow = 99;
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
    }
    void TearDown() override {
        modSoundLib::SetKeyObserver(nullptr);
        TopTenTest::TearDown();
    }

    static void InsertThreeScores() {
        Insert({{"Bo", 310, "Medium", DateValue(2024, 1, 1)},
                {"Cy", 720, "Hard", DateValue(2024, 2, 29)},
                {"Di", 45, "Easy", DateValue(2023, 7, 4)}});
    }

    std::vector<std::string> sounds_;
};

const std::vector<std::string> kNoText(10, "");

}  // namespace

TEST_F(FTopTenTest, ShowsTheBestFirstAndOnATieTheOlderEntryByItsWholeDate) {
    Insert({{"Late", 300, "Easy", DateValue(2024, 1, 1, 9)},
            {"Ghost", 0, "Hard", DateValue(2024, 5, 5)},
            {"Old", 300, "Hard", DateValue(2023, 12, 31, 23)},
            {"Top", 900, "Medium", DateValue(2024, 6, 5)},
            {"Early", 300, "Easy", DateValue(2024, 1, 1, 0, 0, 1)}});
    FTopTen form;
    EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin - Top Ten List");
    const std::vector<std::string> blank(6, "");
    const auto expect = [&](std::vector<std::string> shown) {
        shown.insert(shown.end(), blank.begin(), blank.end());
        return shown;
    };
    EXPECT_EQ(Column(form.lblPlayer), expect({"Top", "Old", "Early", "Late"}));
    EXPECT_EQ(Column(form.lblScore), expect({"900", "300", "300", "300"}));
    EXPECT_EQ(Column(form.lblSkilllevel), expect({"M", "H", "E", "E"}));
    EXPECT_EQ(Column(form.lblDate), expect({"Jun 05", "Dec 31", "Jan 01", "Jan 01"}));
    EXPECT_EQ(Column(form.lblNo), (std::vector<std::string>{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    EXPECT_EQ(form.cmdTopTen[0]->text(), "&OK");
    EXPECT_EQ(form.cmdTopTen[1]->text(), "&Clear");
}

TEST_F(FTopTenTest, MarksTheNewRowButNotItsScoreAndFromTheMenuSoundsTheWin) {
    InsertThreeScores();
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
        EXPECT_EQ(sounds_, newRow == 99 ? std::vector<std::string>{"USERWON"} : std::vector<std::string>{});
    }
}

TEST_F(FTopTenTest, ClearAsksFirstAndOnYesEmptiesTableAndScreen) {
    InsertThreeScores();
    FTopTen form;
    form.show();
    responder_.Answer(platform::kAnswerNo);
    form.cmdTopTen[1]->click();
    EXPECT_EQ(TableRows().size(), 3u);
    EXPECT_EQ(form.lblPlayer[0]->text(), "Cy");

    responder_.Answer(platform::kAnswerYes);
    form.cmdTopTen[1]->click();
    EXPECT_TRUE(TableRows().empty());
    EXPECT_EQ(Column(form.lblPlayer), kNoText);
    EXPECT_EQ(Column(form.lblScore), kNoText);
    EXPECT_EQ(Column(form.lblSkilllevel), kNoText);
    EXPECT_EQ(Column(form.lblDate), kNoText);
    EXPECT_EQ(form.lblNo[9]->text(), "10");
    EXPECT_TRUE(form.isVisible());

    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 2u);
    for (const auto& box : boxes) {
        EXPECT_EQ(box.text, "Are you sure that you want\r\nto clear the top ten list?");
        EXPECT_EQ(box.title, "Top Ten List");
        EXPECT_EQ(box.style, platform::kQuestion + platform::kYesNo);
    }
    form.cmdTopTen[0]->click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FTopTenTest, AClearThatCannotOpenTheDatabaseClosesTheList) {
    InsertThreeScores();
    FTopTen form;
    form.show();
    TempDir vanished;
    gsDbPath = vanished.Path() + "/gone";
    responder_.Answer(platform::kAnswerYes);
    form.cmdTopTen[1]->click();
    EXPECT_TRUE(gbDbFailed);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.lblPlayer[0]->text(), "Cy");
}

TEST_F(FTopTenTest, AFailedLoadShowsNothingAndTheListUnloadsWhenItActivates) {
    TempDir vanished;
    gsDbPath = vanished.Path() + "/gone";
    giTopTenRow = 0;
    FTopTen form;
    EXPECT_TRUE(gbDbFailed);
    EXPECT_EQ(Column(form.lblPlayer), kNoText);
    bool closedByItself = true;
    QTimer::singleShot(3000, &form, [&] {
        closedByItself = false;
        form.close();
    });
    form.exec();
    EXPECT_TRUE(closedByItself);
}

#include <chrono>
#include <string>
#include <vector>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/do_events.h"
#include "shell/main_form_link.h"
#include "sound/mod_sound_lib.h"
#include "storage/data_procedure.h"
#include "storage/storage_fixture.h"
#include "table/f_game_over.h"

using namespace modGlobal;

namespace {

// The main form as the dialog sees it: the four money captions and the Tag.
class FakeMainForm : public MainFormLink {
public:
    std::string UserTag() const override { return tag; }
    void SetUserTag(const std::string& value) override { tag = value; }
    void SetPlayerName(int, const std::string&) override {}
    std::string MoneyCaption(int seat) const override { return money[seat]; }
    void SetWinningsCaption(const std::string&) override {}
    void SetTopMenusEnabled(bool) override {}

    std::string tag;
    std::array<std::string, 4> money = {"180", "95", "250", "275"};
};

class FGameOverTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        Deliver("Lantern.mdb", app_.Path());
        gsDbPath = app_.Path();
        gsOpponent1 = "Lu";
        gsOpponent2 = "Mo";
        gsOpponent3 = "Ned";
        gsUserName = "Ann";
        gsSkillLevel = "Medium";
        goMainForm = &mainForm_;
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
    }
    void TearDown() override {
        modSoundLib::SetKeyObserver(nullptr);
        StorageTest::TearDown();
    }

    static std::unique_ptr<dao::Database> Open() {
        return dao::DBEngine::OpenDatabase(storage::DbFileName(), false, false, storage::kDbConnect);
    }

    // The rows of the table user as "userid|name|player1|player2|player3|skilllevel|numgames|winnings",
    // a Null as "-".
    static std::vector<std::string> UserRows() {
        auto rs = Open()->OpenRecordset("SELECT * FROM user", dao::dbOpenSnapshot);
        std::vector<std::string> rows;
        for (; !rs->Eof(); rs->MoveNext()) {
            std::string row;
            for (const char* field :
                 {"userid", "name", "player1", "player2", "player3", "skilllevel", "numgames", "winnings"}) {
                const dao::Variant value = rs->Fields(field).Value();
                row += (row.empty() ? "" : "|") + (value.IsNull() ? std::string("-") : value.ToString());
            }
            rows.push_back(row);
        }
        return rows;
    }

    static std::vector<std::string> Shown(const std::array<QLabel*, 4>& labels) {
        std::vector<std::string> texts;
        for (const QLabel* label : labels) texts.push_back(label->text().toStdString());
        return texts;
    }

    static void WaitFor(std::chrono::milliseconds span) {
        const auto end = std::chrono::steady_clock::now() + span;
        while (std::chrono::steady_clock::now() < end) platform::DoEvents();
    }

    FakeMainForm mainForm_;
    std::vector<std::string> sounds_;
};

}  // namespace

TEST_F(FGameOverTest, RanksThePlayersThroughTheTableAndShowsTheRows) {
    mainForm_.money = {"180", "-20", "250", "95"};
    FGameOver form;
    EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin - Game Over");
    EXPECT_EQ(Shown(form.lblPlayer), (std::vector<std::string>{"Ned", "Lu", "Ann", "Mo"}));
    EXPECT_EQ(Shown(form.lblAmt), (std::vector<std::string>{"250", "180", "95", "-20"}));
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(FGameOverTest, TheUsersRecordIsAddedByNameThenEditedInPlace) {
    Open()->Execute("INSERT INTO user (userid, name, numgames, winnings) VALUES (8, 'Bo', 9, 900)");
    mainForm_.money = {"180", "95", "250", "150"};
    { FGameOver form; }
    EXPECT_EQ(giNumGames, 1);
    EXPECT_EQ(glWinnings, -50);
    EXPECT_EQ(UserRows(), (std::vector<std::string>{"8|Bo|-|-|-|-|9|900", "0|Ann|Lu|Mo|Ned|Medium|1|-50"}));

    gsUserName = "  Ann ";
    gsOpponent1 = "Zed";
    mainForm_.money = {"180", "95", "250", "275"};
    { FGameOver form; }
    EXPECT_EQ(UserRows(), (std::vector<std::string>{"8|Bo|-|-|-|-|9|900", "0|Ann|Zed|Mo|Ned|Medium|2|25"}));
}

TEST_F(FGameOverTest, AQuoteInTheNameBreaksOnlyTheSaveOfTheRecord) {
    Open()->Execute("INSERT INTO user (userid, name, numgames) VALUES (4, 'O', 3)");
    gsUserName = "O'Brien";
    FGameOver form;
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].title, "SaveUserData");
    EXPECT_EQ(boxes[0].style, platform::kExclamation);
    EXPECT_EQ(boxes[0].text, "Syntax error (missing operator) in query expression 'name='O'Brien''.");
    EXPECT_EQ(UserRows(), (std::vector<std::string>{"4|O|-|-|-|-|3|0"}));
    EXPECT_FALSE(gbDbFailed);
    EXPECT_EQ(Shown(form.lblPlayer), (std::vector<std::string>{"O'Brien", "Ned", "Lu", "Mo"}));
}

TEST_F(FGameOverTest, EachButtonAnswersThroughTheTagAndTheFrameMeansNo) {
    const std::vector<std::pair<const char*, const char*>> answers = {
        {"&Yes", "YES"}, {"&No", "NO"}, {"&New User...", "CHANGE"}, {"", "NO"}};
    for (std::size_t index = 0; index < answers.size(); ++index) {
        mainForm_.tag.clear();
        FGameOver form;
        form.show();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&form, &escape);
        ASSERT_TRUE(form.isVisible());
        if (index < form.cmdYesNo.size()) {
            EXPECT_EQ(form.cmdYesNo[index]->text(), answers[index].first);
            form.cmdYesNo[index]->click();
        } else {
            form.close();
        }
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(mainForm_.tag, answers[index].second);
    }
}

TEST_F(FGameOverTest, TheTimerTellsWhetherTheUserStandsFirstOnce) {
    struct Case {
        std::array<std::string, 4> money;
        std::string opponent3;
        bool userWon;
        const char* sound;
    };
    const std::vector<Case> cases = {
        {{"180", "95", "250", "275"}, "Ned", true, "USERWON"},
        {{"180", "95", "250", "205"}, "Ned", false, "OTHWON"},
        // An opponent who bears the user's name counts as the user.
        {{"180", "95", "250", "205"}, "Ann", true, "USERWON"},
    };
    for (const Case& c : cases) {
        mainForm_.money = c.money;
        gsOpponent3 = c.opponent3;
        gbUserWon = !c.userWon;
        sounds_.clear();
        FGameOver form;
        WaitFor(std::chrono::milliseconds(1100));
        EXPECT_EQ(gbUserWon, c.userWon);
        EXPECT_EQ(sounds_, std::vector<std::string>{c.sound});
    }
}

TEST_F(FGameOverTest, AnAnswerBeforeTheFirstTickLeavesTheLastGamesWin) {
    for (const bool lastGameWon : {true, false}) {
        gbUserWon = lastGameWon;
        sounds_.clear();
        FGameOver form;
        form.show();
        form.cmdYesNo[0]->click();
        WaitFor(std::chrono::milliseconds(700));
        EXPECT_TRUE(sounds_.empty());
        EXPECT_EQ(gbUserWon, lastGameWon);
    }
}

TEST_F(FGameOverTest, AFailedOpenLeavesTheRowsEmptyAndTheFormUnloadsWhenItActivates) {
    TempDir vanished;
    gsDbPath = vanished.Path() + "/gone";
    FGameOver form;
    EXPECT_TRUE(gbDbFailed);
    EXPECT_TRUE(gbDbSwitched);  // the default database is there: the switch is silent
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_EQ(Shown(form.lblPlayer), (std::vector<std::string>{"", "", "", ""}));

    bool closedByItself = true;
    QTimer::singleShot(3000, &form, [&] {
        closedByItself = false;
        form.close();
    });
    form.exec();
    EXPECT_TRUE(closedByItself);
    EXPECT_EQ(mainForm_.tag, "NO");
}

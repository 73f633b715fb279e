#include <chrono>
#include <string>
#include <vector>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "platform/display/do_events.h"
#include "table/main_form_link.h"
#include "sound/mod_sound_lib.h"
#include "storage/storage_fixture.h"
#include "support/closes_by_itself.h"
#include "table/f_game_over.h"

using namespace modGlobal;

namespace {

using Strings = std::vector<std::string>;

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

class FGameOverTest : public DeliveredDbTest {
protected:
    void SetUp() override {
        DeliveredDbTest::SetUp();
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
        DeliveredDbTest::TearDown();
    }

    static Strings UserRows() {
        return Rows("SELECT * FROM user",
                    {"userid", "name", "player1", "player2", "player3", "skilllevel", "numgames", "winnings"});
    }

    static Strings Shown(const std::array<QLabel*, 4>& labels) {
        Strings texts;
        for (const QLabel* label : labels) texts.push_back(label->text().toStdString());
        return texts;
    }

    static void WaitFor(std::chrono::milliseconds span) {
        const auto end = std::chrono::steady_clock::now() + span;
        while (std::chrono::steady_clock::now() < end) platform::DoEvents();
    }

    FakeMainForm mainForm_;
    Strings sounds_;
};

TEST_F(FGameOverTest, TheUsersRecordIsAddedByNameThenEditedInPlaceAndThePlayersRankedThroughTheTable) {
    Open()->Execute("INSERT INTO user (userid, name, numgames, winnings) VALUES (8, 'Bo', 9, 900)");
    mainForm_.money = {"180", "-20", "250", "150"};
    {
        FGameOver form;
        EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin - Game Over");
        EXPECT_EQ(Shown(form.lblPlayer), (Strings{"Ned", "Lu", "Ann", "Mo"}));
        EXPECT_EQ(Shown(form.lblAmt), (Strings{"250", "180", "150", "-20"}));
    }
    EXPECT_EQ(giNumGames, 1);
    EXPECT_EQ(glWinnings, -50);
    EXPECT_EQ(UserRows(), (Strings{"8|Bo|-|-|-|-|9|900", "0|Ann|Lu|Mo|Ned|Medium|1|-50"}));

    gsUserName = "  Ann ";
    gsOpponent1 = "Zed";
    mainForm_.money = {"180", "95", "250", "275"};
    { FGameOver form; }
    EXPECT_EQ(UserRows(), (Strings{"8|Bo|-|-|-|-|9|900", "0|Ann|Zed|Mo|Ned|Medium|2|25"}));
    EXPECT_EQ(Rows("SELECT * FROM player", {"name"}).size(), 4u);  // emptied before each use
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(FGameOverTest, AQuoteInTheNameBreaksOnlyTheSaveOfTheRecord) {
    Open()->Execute("INSERT INTO user (userid, name, numgames) VALUES (4, 'O', 3)");
    gsUserName = "O'Brien";
    FGameOver form;
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"SaveUserData", platform::kExclamation,
                                          "Syntax error (missing operator) in query expression 'name='O'Brien''."}}));
    EXPECT_EQ(UserRows(), Strings{"4|O|-|-|-|-|3|0"});
    EXPECT_FALSE(gbDbFailed);
    EXPECT_EQ(Shown(form.lblPlayer), (Strings{"O'Brien", "Ned", "Lu", "Mo"}));
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

TEST_F(FGameOverTest, TheTimerTellsOnceWhetherTheUserStandsFirstUnlessAnAnswerCameFirst) {
    struct Case {
        std::array<std::string, 4> money;
        std::string opponent3;
        bool answerAtOnce;
        bool userWon;
        Strings sounds;
    };
    const std::vector<Case> cases = {
        {{"180", "95", "250", "275"}, "Ned", false, true, {"USERWON"}},
        {{"180", "95", "250", "205"}, "Ned", false, false, {"OTHWON"}},
        // An opponent who bears the user's name counts as the user.
        {{"180", "95", "250", "205"}, "Ann", false, true, {"USERWON"}},
        // An answer before the first tick leaves the last game's win.
        {{"180", "95", "250", "275"}, "Ned", true, false, {}},
        {{"180", "95", "250", "205"}, "Ned", true, true, {}},
    };
    for (const Case& c : cases) {
        mainForm_.money = c.money;
        gsOpponent3 = c.opponent3;
        gbUserWon = c.answerAtOnce ? c.userWon : !c.userWon;
        sounds_.clear();
        FGameOver form;
        form.show();
        if (c.answerAtOnce) form.cmdYesNo[0]->click();
        WaitFor(std::chrono::milliseconds(1100));
        EXPECT_EQ(gbUserWon, c.userWon) << c.money[3] << " " << c.opponent3;
        EXPECT_EQ(sounds_, c.sounds) << c.money[3] << " " << c.opponent3;
    }
}

TEST_F(FGameOverTest, AFailedOpenLeavesTheRowsEmptyAndTheFormUnloadsWhenItActivates) {
    TempDir vanished;
    gsDbPath = vanished.File("gone");
    FGameOver form;
    EXPECT_TRUE(gbDbFailed);
    EXPECT_TRUE(gbDbSwitched);  // the default database is there: the switch is silent
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_EQ(Shown(form.lblPlayer), (Strings{"", "", "", ""}));

    EXPECT_TRUE(ClosesByItself(form));
    EXPECT_EQ(mainForm_.tag, "NO");
}

}  // namespace

// The main form as a table: its seat panels, the flights, the felt under the
// cards, the hover boxes, the keys, the net under its events, and the
// celebration of a high score.
#include <gtest/gtest.h>

#include <numeric>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTest>
#include <QTimer>

#include "platform/display/card_library.h"
#include "platform/display/name_font.h"
#include "shell/f_dovrin.h"
#include "sound/mod_global_music.h"
#include "support/boxes.h"
#include "support/form_probe.h"
#include "support/pictures.h"
#include "table/f_top_ten.h"

namespace {

// Counts the paints of a widget: each position of a flight repaints at once.
class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

// Where a name's letters lie on the table: the box of the pixels its label
// draws, without the label's background.
QRect NameInk(QLabel& label) {
    QImage drawn(label.size(), QImage::Format_RGB32);
    drawn.fill(Qt::white);
    const QImage blank = drawn.copy();
    label.render(&drawn, QPoint(), QRegion(), QWidget::DrawChildren);
    return Differing(drawn, blank).translated(label.pos());
}

class MainFormTest : public ::testing::Test {
protected:
    std::unique_ptr<FDovrin> form;
    SoundKeys sounds;

    void SetUp() override {
        modGlobal::ResetGlobals();
        std::int32_t width = 0, height = 0;
        ASSERT_NE(platform::cdtInit(width, height), 0);
        form = std::make_unique<FDovrin>();
        modGlobal::goMidi = std::make_unique<CMidiFile>();  // as the form's load creates it
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    QWidget* Canvas() { return form->centralWidget(); }
    void Tick(int ticks) {
        for (int i = 0; i < ticks; ++i) ASSERT_TRUE(form->tmrSprites->Fire());
    }
};

}  // namespace

// The Ace of Hearts flies in from the left along the row of the pot: every
// fifth pixel and once more on its place, drawn on the screen only.
TEST_F(MainFormTest, AFlightDrawsEveryFifthPixelOnTheScreenOnly) {
    PaintCounter counter;
    Canvas()->installEventFilter(&counter);
    modGlobal::glAnimSpeed = 0;
    const QPoint inCard(432 + 35, 208 + 48);
    const QRgb before = PixelAt(form->surface().RetainedImage(), inCard);
    form->SetAutoRedraw(false);
    form->PlayFromLeft(2);
    EXPECT_EQ(counter.paints, 87 + 1);  // X 0, 5 .. 430 and the final draw at 432
    EXPECT_NE(PixelAt(form->surface().ScreenImage(), inCard), before);
    EXPECT_EQ(PixelAt(form->surface().RetainedImage(), inCard), before);
}

// A long name shrinks to fit its plate, and stays as well placed on it as a
// short one: within the plate's outline, and its letters' middle at the height
// of a short name's. ("Ann" and the capitals have no descenders; the widest
// name is twelve W's in the name face, but need not be in another.)
TEST_F(MainFormTest, AnyNameTheUserFormAcceptsFitsItsPlateAndSitsInItsMiddle) {
    for (int seat = 0; seat < 4; ++seat) {
        QLabel* plate = form->lblPlayer[seat];
        const QRect insideOutline = form->shpPlayer[seat]->geometry().adjusted(3, 3, -3, -3);
        form->SetPlayerName(seat, "Ann");
        EXPECT_EQ(plate->font().pointSizeF(), 12);  // a short name keeps the plate's size
        const QRect shortName = NameInk(*plate);
        ASSERT_TRUE(insideOutline.contains(shortName)) << seat;
        for (const QString& name : {platform::WidestName(plate->font()), QStringLiteral("WWWWWWWWWWWW"),
                                    QStringLiteral("ANNABELLE MAY")}) {
            SCOPED_TRACE(name.toStdString());
            form->SetPlayerName(seat, name.toStdString());
            EXPECT_LT(plate->font().pointSizeF(), 12);
            EXPECT_LE(QFontMetrics(plate->font()).horizontalAdvance(name), plate->contentsRect().width());
            const QRect ink = NameInk(*plate);
            EXPECT_TRUE(insideOutline.contains(ink)) << seat;
            EXPECT_NEAR(ink.center().y(), shortName.center().y(), 1) << seat;
        }
        form->SetPlayerName(seat, "Ann");
        EXPECT_EQ(NameInk(*plate), shortName);  // the shrinking leaves nothing behind
    }
}

// Every place a card can come to lie is felt: every card of the table at its
// place and a full hand along the bottom cover no pixel of the frame of the
// table's picture, its wood and the moulding round the felt. (Under a window
// manager the hand lies half the window's border further right.)
TEST_F(MainFormTest, EveryPlaceOfACardLiesOnTheFelt) {
    QSvgRenderer art(QStringLiteral(":/res/bitmap/100.svg"));
    const QString frameId = QStringLiteral("frame");
    ASSERT_TRUE(art.elementExists(frameId));
    QImage frame(art.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::transparent);
    {
        QPainter painter(&frame);
        art.render(&painter, frameId, art.boundsOnElement(frameId));  // in the picture's own places
    }
    ASSERT_EQ(qAlpha(frame.pixel(0, frame.height() - 1)), 255);  // the frame was drawn

    form->SetAutoRedraw(true);
    form->ReloadPicture();
    const QImage bare = form->surface().RetainedImage().copy();
    std::vector<Card> everyCard(52);
    std::iota(everyCard.begin(), everyCard.end(), Card{0});
    form->DrawCardsPlayed(everyCard);
    Game& game = form->game();
    game.maHand3.assign(everyCard.begin(), everyCard.begin() + 13);
    game.DrawUserHand();
    const QImage dealt = form->surface().RetainedImage();

    int covered = 0;
    QRect onFrame;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            if (PixelAt(dealt, {x, y}) == PixelAt(bare, {x, y})) continue;
            ++covered;
            if (qAlpha(frame.pixel(x, y)) != 0) onFrame |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_GT(covered, 4 * 71 * 96 + 13 * 24 * 96);  // the columns' lowest cards and the hand, at the least
    EXPECT_EQ(onFrame, QRect()) << "cards on the frame";
}

// A run-time error that no handler takes stops the program with the
// platform's box: an average beyond 16 bits in the statistics, opened from
// an event as the menu entry opens it.
TEST_F(MainFormTest, ARunTimeErrorThatEscapesItsHandlerStopsTheProgramWithItsBox) {
    struct StatisticsEntry : QObject {
        FDovrin* form;
        explicit StatisticsEntry(FDovrin* f) : form(f) {}
        bool event(QEvent*) override {
            form->mnuWinnings_Click();
            return true;
        }
    } entry(form.get());
    platform::ScriptedResponder responder;
    modGlobal::gsUserName = "Rich";
    modGlobal::glWinnings = 40000;
    modGlobal::giNumGames = 1;
    QEvent click(QEvent::User);
    EXPECT_THROW(QCoreApplication::sendEvent(&entry, &click), platform::ProgramEnded);
    EXPECT_EQ(BoxesOf(responder), (std::vector<Box>{{QApplication::applicationName().toStdString(),
                                                     platform::kCritical, "Run-time error '6':\r\n\r\nOverflow"}}));
}

// A sound plays on crossing into a box, not while resting in it; while the
// computers move nothing sounds and the last position stays, so the first
// move afterwards can cross from a stale place.
TEST_F(MainFormTest, HoverSoundsOnCrossingIntoABox) {
    struct Move {
        float x, y;
        bool userTurn;
        const char* sound;
    };
    const Move moves[] = {
        {3000, 4200, true, nullptr},        {1000, 4200, true, "OVERPOT"},  // the pot comes first on its edge
        {1000, 3000, true, nullptr},        {1000, 4300, true, "OVERPLAYER1"},
        {1000, 4500, true, nullptr},        {3000, 2505, true, nullptr},
        {1000, 2505, true, "OVERPOT"},      {1000, 3000, true, nullptr},
        {1000, 2000, true, "OVERPLAYER2"},
        {8000, 1000, true, "OVERPLAYER3"},
        {8000, 5000, true, nullptr},  // the human's corner has none
        {1000, 3000, false, nullptr},       {1000, 3000, true, "OVERPOT"},
    };
    for (const Move& move : moves) {
        sounds.keys.clear();
        form->game().mbUserTurn = move.userTurn;
        form->Form_MouseMove(move.x, move.y);
        EXPECT_EQ(sounds.keys, move.sound ? Strings{move.sound} : Strings{})
            << "at " << move.x << "," << move.y;
    }
}

TEST_F(MainFormTest, CtrlKeysFlipTheOptionsAndEscapeAsksBeforeLeaving) {
    // The option, then its menu's two entries: "on" hidden, "off" shown.
    const auto option = [&](bool on, int entry) {
        return std::tuple(on, form->mnuOption[entry]->isVisible(), form->mnuOption[entry + 1]->isVisible());
    };
    QTest::keyClick(form->cmdUser, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(option(modGlobal::gbAnimalsOn, 0), std::tuple(true, false, true));
    QTest::keyClick(form->cmdUser, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(modGlobal::gbAnimalsOn);
    QTest::keyClick(form->cmdUser, Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(modGlobal::gbSoundOn);
    QTest::keyClick(form->cmdUser, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(option(modGlobal::gbSoundOn, 5), std::tuple(false, true, false));
    // Music is off until the settings say otherwise: Ctrl+M turns it on.
    ASSERT_FALSE(form->MusicEnabled());
    QTest::keyClick(form.get(), Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(option(form->MusicEnabled(), 3), std::tuple(true, false, true));
    EXPECT_FALSE(modGlobal::goMidi->Active());  // the option starts no tune
    // Switching on sounds after the option is set, switching off before.
    EXPECT_EQ(sounds.keys, (Strings{"ANIMALSON", "SOUNDON", "SOUNDON", "MUSICON"}));

    // Escape alone asks before leaving; No keeps the table.
    platform::ScriptedResponder responder;
    responder.Answer(platform::kAnswerNo);
    QTest::keyClick(form->cmdUser, Qt::Key_Escape);
    EXPECT_EQ(BoxesOf(responder), (std::vector<Box>{{"The Game of Dovrin", platform::kYesNo | platform::kQuestion,
                                                     "Are you sure you wish to exit Dovrin?"}}));
    EXPECT_TRUE(form->isVisible());
}

// The rule book covers the table until it is closed, by its button, by the
// form's close, or by two of the information entries, which open their forms.
TEST_F(MainFormTest, TheRuleBookCoversTheTableUntilItIsClosedAndTheInformationEntriesOpenTheirForms) {
    ASSERT_FALSE(form->picHelp->isVisible());
    form->mnuHelp[0]->trigger();
    ASSERT_TRUE(form->picHelp->isVisible());
    EXPECT_TRUE(form->lblHelp[23]->text().contains(QStringLiteral("each hand, you  pay the pot an addtional $5")));
    // The table sees no pointer through it: the panel lies over the pot's box.
    QWidget* overPot = Canvas()->childAt(QPoint(60, 265));
    ASSERT_NE(overPot, nullptr);
    EXPECT_TRUE(overPot == form->picHelp || form->picHelp->isAncestorOf(overPot));
    form->cmdHelp->click();
    EXPECT_FALSE(form->picHelp->isVisible());

    struct Entry {
        QAction* action;
        const char* title;
        bool hidesRuleBook;
    };
    for (const Entry& entry : {Entry{form->mnuSendScore, "Submitting a Top Score...", false},
                               Entry{form->mnuHelp[1], "Contacting Oakmere Software", true},
                               Entry{form->mnuAbout, "About Lantern! Dovrin...", true},
                               Entry{form->mnuDistribute, "Distributing Lantern! Dovrin", false}}) {
        form->mnuHelp[0]->trigger();
        QString title;  // of the modal form the entry opens, closed as soon as it shows
        QTimer::singleShot(0, [&] {
            if (QWidget* modal = QApplication::activeModalWidget()) {
                title = modal->windowTitle();
                modal->close();
            }
        });
        entry.action->trigger();
        EXPECT_EQ(title.toStdString(), entry.title);
        EXPECT_EQ(form->picHelp->isVisible(), !entry.hidesRuleBook) << entry.title;
    }
    form->close();  // the close takes it down too
    EXPECT_FALSE(form->picHelp->isVisibleTo(form.get()));
}

// The celebration of a high score: the balloons' lanes tick by tick. (The
// stage they leave clean behind them: CelebrationZoomTest.)
TEST_F(MainFormTest, HighScoreLanesRiseInTurnAndAWipedLaneStartsAgainWithTheNextFigure) {
    modGlobal::glRandomSeed = 12345;
    form->tmrSprites->SetEnabled(true);
    const auto& lane = form->maSprites;

    Tick(1);  // the lane starts below the stage
    EXPECT_EQ(std::pair(lane[0].Active, lane[0].Y), std::pair(true, 500));
    EXPECT_TRUE(lane[0].X >= 1 && lane[0].X <= 134) << lane[0].X;
    // Lane 1 starts once lane 0 is below 466, lane 2 once it is below 235.
    for (const auto& [next, ticks] : {std::pair{1, 6}, {2, 46}}) {
        Tick(ticks);
        EXPECT_FALSE(lane[next].Active);
        Tick(1);
        EXPECT_EQ(std::pair(lane[next].Active, lane[next].Y), std::pair(true, 500)) << "lane " << next;
    }

    // At -200 the figure is wiped, and the next tick starts the lane again
    // at the bottom with the next figure.
    Tick(141 - 55);  // lane 0 stands at -200 after its 141st tick
    EXPECT_EQ(std::pair(lane[0].Y, lane[0].Fresh), std::pair(-200, true));
    const std::int32_t firstX = lane[0].X;
    Tick(1);
    EXPECT_EQ(std::tuple(lane[0].Y, lane[0].Kind, lane[0].Fresh), std::tuple(500, 1, false));
    EXPECT_EQ(form->lblLeft->text().toInt(), lane[0].X + 78);
    EXPECT_NE(lane[0].X, firstX);
}

// The wait for the list ends at the fifth tick, and the list takes the stage down.
TEST_F(MainFormTest, TheHighScoreWaitEndsAtTheFifthTickAndTheListTakesTheStageDown) {
    platform::ScriptedResponder responder;  // the list finds no database here, and says so
    // The timer's five ticks, as they would come during the wait.
    QTimer::singleShot(0, [this] {
        for (int i = 0; i < 5; ++i) form->tmrHighScore->Fire();
    });
    // The stage shown, the balloons' timer, the wait's timer, the menus.
    const auto celebration = [this] {
        return std::tuple(form->picHighScore->isVisibleTo(form.get()), form->tmrSprites->Enabled(),
                          form->tmrHighScore->Enabled(), form->mnuFileH->isEnabled());
    };
    form->CelebrateHighScore();
    EXPECT_EQ(celebration(), std::tuple(true, true, true, false));

    // The counter is never reset: a second celebration would wait for ever.
    form->tmrHighScore->Fire();
    EXPECT_EQ(std::tuple(form->miHighScoreTicks, form->mbHighScoreDone), std::tuple(6, false));

    modGlobal::giTopTenRow = 99;
    FTopTen topTen(form.get());
    QTimer::singleShot(0, &topTen, &QDialog::close);
    topTen.exec();
    EXPECT_EQ(celebration(), std::tuple(false, false, false, true));
}

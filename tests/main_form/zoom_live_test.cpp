// A change of zoom in the middle of a hand: the game goes on as it was, and
// the table still answers the mouse in the design's twips.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "platform/display/card_library.h"
#include "platform/display/zoom.h"
#include "shell/f_dovrin.h"
#include "sound/mod_global_music.h"

namespace {

class ZoomLiveTest : public ::testing::Test {
protected:
    std::unique_ptr<FDovrin> form;

    void SetUp() override {
        modGlobal::ResetGlobals();
        std::int32_t width = 0, height = 0;
        ASSERT_NE(platform::cdtInit(width, height), 0);
        form = std::make_unique<FDovrin>();
        modGlobal::goMidi = std::make_unique<CMidiFile>();
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    void TearDown() override { platform::ChangeZoom(100); }

    // What a player sees of the game, and what the game knows.
    struct Seen {
        std::vector<Card> hand;
        std::size_t cardsPlayed;
        std::int16_t pot;
        bool userTurn;
        QStringList captions;
        std::int32_t turnMarker;
        QSize client;
        bool operator==(const Seen& o) const {
            return hand == o.hand && cardsPlayed == o.cardsPlayed && pot == o.pot && userTurn == o.userTurn &&
                   captions == o.captions && turnMarker == o.turnMarker && client == o.client;
        }
    };
    Seen Now() {
        QStringList captions;
        for (int seat = 0; seat < 4; ++seat)
            captions << form->lblAmt[seat]->text() << form->lblCardsLeft[seat]->text();
        captions << form->lblPot->text() << form->windowTitle();
        Game& game = form->game();
        return {game.maHand3, game.maCardsPlayed.size(), game.miPot, game.mbUserTurn,
                captions, form->shpPlayer[3]->FillColor(), form->centralWidget()->size()};
    }
};

TEST_F(ZoomLiveTest, AChangeInTheMiddleOfAHandKeepsTheHandThePotAndTheTurn) {
    Game& game = form->game();
    game.InitializeCardArrays();
    game.DealCards();
    game.AddToCardsPlayed(game.maHand0.front());
    game.miPot = 20;
    game.mbUserTurn = true;
    form->SetPot(20);
    form->SetTurnMarker(3, true);
    game.DrawUserHand();
    const Seen before = Now();

    for (int percent : {200, 125, 300, 100}) {
        SCOPED_TRACE(percent);
        platform::ChangeZoom(percent);
        EXPECT_EQ(form->devicePixelRatioF(), percent / 100.0);
        EXPECT_TRUE(Now() == before);
        // The mouse reaches the game in the design's twips at every zoom.
        QTest::mousePress(form->centralWidget(), Qt::LeftButton, {}, QPoint(100, 300));
        EXPECT_FLOAT_EQ(game.miMouseX, 1500);
        EXPECT_FLOAT_EQ(game.miMouseY, 4500);
    }
}

}  // namespace

// FDovrin as the table the game is played on: painting the cards, the seat
// panels, the card flights, and the forms that close a hand.
#include <cmath>

#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

#include "platform/display/card_library.h"
#include "platform/display/counting_wait.h"
#include "platform/display/do_events.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "sound/mod_sound_lib.h"
#include "shell/f_dovrin.h"
#include "table/f_hand_over.h"
#include "table/f_message.h"

using platform::TwipsToPixels;

namespace {

constexpr int kFlightStep = 5;  // pixels between two positions of a flying card

}  // namespace

void FDovrin::SetAutoRedraw(bool on) {
    surface_.SetAutoRedraw(on);
    if (on)
        drawingOnScreen_.reset();
    else if (!drawingOnScreen_)
        drawingOnScreen_.emplace();
}

void FDovrin::Cls() { surface_.Cls(); }

void FDovrin::DrawCard(int xPixels, int yPixels, Card card) {
    platform::cdtDraw(surface_, xPixels, yPixels, card, 0, 0);
}

// In descending order, so that in a column each card lies over the one above
// it and only the lowest shows whole.
void FDovrin::DrawCardsPlayed(const std::vector<Card>& cardsPlayed) {
    for (Card card : cardsPlayed) DrawCard(TwipsToPixels(GetCardX(card)), TwipsToPixels(GetCardY(card)), card);
}

void FDovrin::DrawUserHand(const std::vector<Card>& hand, int leftTwips, int topTwips,
                           int spacingTwips) {
    const int x0 = TwipsToPixels(leftTwips);
    const int y = TwipsToPixels(topTwips);
    const int step = TwipsToPixels(spacingTwips);
    for (std::size_t i = 0; i < hand.size(); ++i)
        DrawCard(x0 + static_cast<int>(i) * step, y, hand[i]);
}

// The outer width, border included: the hand row is centred on it.
int FDovrin::FormWidth() const { return platform::PixelsToTwips(frameGeometry().width()); }

// The flights draw straight on the screen and leave a trail: nothing is
// saved or restored behind the flying card. The full redraw after the
// computers' turns wipes the trails.
void FDovrin::Fly(Card card, int startX, int startY, int stepX, int stepY) {
    const int targetX = TwipsToPixels(GetCardX(card));
    const int targetY = TwipsToPixels(GetCardY(card));
    auto notPast = [&](int x, int y) {
        if (stepX > 0) return x <= targetX;
        if (stepX < 0) return x >= targetX;
        return y <= targetY;
    };
    for (int x = startX, y = startY; notPast(x, y); x += stepX, y += stepY) {
        platform::CountingWait(modGlobal::glAnimSpeed);
        DrawCard(x, y, card);
    }
    platform::CountingWait(modGlobal::glAnimSpeed);
    DrawCard(targetX, targetY, card);
}

void FDovrin::PlayFromLeft(Card card) {
    Fly(card, 0, TwipsToPixels(GetCardY(card)), kFlightStep, 0);
}

void FDovrin::PlayFromTop(Card card) {
    Fly(card, TwipsToPixels(GetCardX(card)), 0, 0, kFlightStep);
}

// From the right edge of the screen, not of the window: on a wide screen the
// card comes into view some time after its flight began.
void FDovrin::PlayFromRight(Card card) {
    const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const int screenWidth = screen ? screen->geometry().width() : 640;
    Fly(card, screenWidth, TwipsToPixels(GetCardY(card)), -kFlightStep, 0);
}

void FDovrin::SetTurnMarker(int seat, bool onTurn) {
    shpPlayer.at(seat)->SetFillColor(onTurn ? kMarkerOnTurn : kMarkerIdle);
    shpPlayer[seat]->repaint();
}

void FDovrin::ShowSeatCard(int seat, Card card) {
    imgSad.at(seat)->hide();
    lblCardNo[seat]->show();
    lblCardNo[seat]->setText(QString::fromStdString(GetRankText(card)));
    imgSuit[seat]->setPixmap(
        platform::LoadResPicture(100 + SuitOf(card), platform::vbResIcon));
}

void FDovrin::ShowSeatSad(int seat, bool clearCardText) {
    if (clearCardText) lblCardNo.at(seat)->clear();
    imgSuit.at(seat)->setPixmap(QPixmap());
    imgSad[seat]->show();
    lblCardNo[seat]->hide();
}

void FDovrin::ClearSeatPanel(int seat) {
    imgSad.at(seat)->hide();
    lblCardNo[seat]->show();
    lblCardNo[seat]->clear();
    imgSuit[seat]->setPixmap(QPixmap());
}

void FDovrin::SetCardsLeft(int seat, int count) {
    lblCardsLeft.at(seat)->setText(QString::number(count));
}

void FDovrin::SetMoney(int seat, int money) { lblAmt.at(seat)->setText(QString::number(money)); }

void FDovrin::SetPot(int pot) { lblPot->setText(QStringLiteral("$%1").arg(pot)); }

void FDovrin::PlayEffect(const std::string& key) { modSoundLib::PlayEffect(key); }

void FDovrin::ShowMessage() {
    FMessage message(this);
    message.exec();
}

void FDovrin::DoEvents() { platform::DoEvents(); }

void FDovrin::ShowHandOver() {
    FHandOver handOver(this);
    handOver.exec();
}

void FDovrin::SetBusyPointer(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void FDovrin::ReloadPicture() {
    surface_.SetPicture(platform::ResPicturePath(kTablePicture, platform::vbResBitmap));
}

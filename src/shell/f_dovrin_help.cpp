// FDovrin: the rule book, a panel over the whole table. Nothing stops while
// it is up: timers, flights and menus go on behind it, and the table sees
// no pointer while the panel covers it.
#include <algorithm>

#include <QLabel>
#include <QPushButton>

#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "screens/f_contact.h"
#include "shell/f_dovrin.h"

using platform::TwipsRect;

namespace {

struct HelpLabel {
    int index;
    int left, top, width, height;
    double points;
    bool heading;  // bold
    const char* text;
};

// The rule book as it has always read, double blanks and spelling as they are.
constexpr HelpLabel kHelpLabels[] = {
    {24, 360, 240, 2175, 375, 13.5, true, "How to Play:"},
    {13, 360, 720, 6975, 375, 9.75, false, "Dovrin is a fun, challenging and yet easy to learn game!!!"},
    {21, 360, 1155, 1215, 735, 13.5, true, "The Rules:"},
    {20, 2040, 1200, 7215, 1215, 9.75, false,
     "The player with the \"Seven of Hearts\" starts the hand.  When it is your turn you can play any card "
     "which is adjacent (above or below) a card that is already played (or) you can play a \"Seven\" to open up "
     "another suit.  If you cannot play then you have to \"Pay the Pot\".  The first player to play all of their "
     "cards wins the pot.  There are four hands within a game."},
    {22, 240, 2640, 615, 735, 13.5, true, "The Pot:"},
    {23, 2040, 2880, 7215, 1215, 9.75, false,
     "Each player starts with $200 and then \"Pays the Pot\" $5 at the beginning of each hand. (automatic)  If you "
     "cannot play a card when it is your turn then you have to \"Pay the Pot\" $5.  At the end of each hand, you  "
     "pay the pot an addtional $5 for each card you have left. (automatic)"},
    {19, 360, 4395, 1335, 735, 13.5, true, "The Strategy:"},
    {18, 1920, 4440, 7335, 495, 9.75, false,
     "The basic strategy of Dovrin is to block your opponents from playing, while getting your own cards out.   "
     "Here are some guidelines to follow..."},
    {17, 1920, 5040, 375, 375, 9.75, false, "1."},
    {16, 2280, 5040, 6975, 735, 9.75, false,
     "The BEST card to play is one that leads to one of your other cards of the SAME suit.  You need your "
     "opponents to play the cards in between BEFORE you can play your 2nd card, so the sooner you get the 1st card "
     "out the better."},
    {15, 1920, 5880, 375, 375, 9.75, false, "2."},
    {14, 2280, 5880, 6975, 615, 9.75, false,
     "If you do not have any cards to play that lead to other cards then the NEXT best card to play is the one "
     "that is the farthest from seven.  ( king - high /  ace - low )"},
};

// The rule book's paper and ink.
const char* const kPanelStyle = "QWidget#picHelp { background: #f6ecd2; border: 2px solid #8a6a3a; }";
const char* const kInk = "color: #3b2a16; background: transparent;";

}  // namespace

void FDovrin::CreateHelpPanel() {
    picHelp = new QWidget(centralWidget());
    picHelp->setObjectName(QStringLiteral("picHelp"));
    picHelp->setAttribute(Qt::WA_StyledBackground);
    picHelp->setStyleSheet(QString::fromUtf8(kPanelStyle));
    picHelp->setGeometry(TwipsRect(0, 0, 9615, 6735));
    for (const HelpLabel& design : kHelpLabels) {
        auto* label = new QLabel(QString::fromUtf8(design.text), picHelp);
        label->setGeometry(TwipsRect(design.left, design.top, design.width, design.height));
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setTextFormat(Qt::PlainText);
        // The body in a condensed face, so that the paragraphs fit their
        // boxes as the design's narrow type did.
        QFont font(design.heading ? QStringLiteral("DejaVu Serif") : QStringLiteral("DejaVu Sans Condensed"));
        font.setPointSizeF(design.points);
        font.setBold(design.heading);
        font.setUnderline(design.index == 24);
        label->setFont(font);
        label->setStyleSheet(QString::fromUtf8(kInk));
        // A paragraph may run a line longer than its box in this face: the
        // box grows down into the free paper below it.
        label->resize(label->width(), std::max(label->height(), label->heightForWidth(label->width())));
        lblHelp[design.index] = label;
    }
    // Decoration: the game's lantern where the strategy's column leaves room,
    // and the four suits beside the title.
    auto* lantern = new QLabel(picHelp);
    lantern->setGeometry(TwipsRect(300, 5160, 1440, 1440));
    lantern->setPixmap(platform::LoadArtPicture(QStringLiteral("dovrin"), lantern->size()));
    imgHelp.push_back(lantern);
    for (int suit = 0; suit < 4; ++suit) {
        auto* icon = new QLabel(picHelp);
        icon->setGeometry(TwipsRect(2760 + suit * 480, 300, 360, 360));
        icon->setPixmap(platform::LoadResPicture(100 + suit, platform::vbResIcon, icon->size()));
        imgHelp.push_back(icon);
    }
    cmdHelp = new QPushButton(QStringLiteral("&Close"), picHelp);
    cmdHelp->setGeometry(TwipsRect(7920, 360, 1335, 495));
    connect(cmdHelp, &QPushButton::clicked, this, &FDovrin::cmdHelp_Click);
    picHelp->hide();
}

void FDovrin::cmdHelp_Click() { picHelp->hide(); }

// The network entry stays hidden, and its click would do nothing.
void FDovrin::mnuHelp_Click(int index) {
    if (index == 0) {
        picHelp->show();
        picHelp->raise();
    } else if (index == 1) {
        picHelp->hide();
        FContact contact(this);
        contact.exec();
    }
}

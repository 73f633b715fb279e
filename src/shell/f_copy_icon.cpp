#include "shell/f_copy_icon.h"

#include <algorithm>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/display/art_dialog.h"
#include "platform/display/center_form.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "shell/housekeeping.h"

using platform::TwipsRect;

FCopyIcon::FCopyIcon(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Add Lantern! Dovrin's Icon to Desktop"));
    platform::UseDesignFont(*this);
    setFixedSize(TwipsRect(0, 0, 4260, 2580).size());
    imgThinker = new QLabel(this);
    imgThinker->setGeometry(TwipsRect(120, 240, 960, 960));
    imgThinker->setPixmap(platform::LoadArtPicture(QStringLiteral("thinker"), QSize(64, 64)));
    const std::array<const char*, 4> lines = {"We were wondering?", "We couldn't find an icon for",
                                              "Lantern! Dovrin on your desktop.", "Would you like to add one now?"};
    const std::array<int, 4> tops = {150, 570, 810, 1170};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lblCopyIcon[i] = new QLabel(QString::fromUtf8(lines[i]), this);
        lblCopyIcon[i]->setGeometry(TwipsRect(1140, tops[i], 3000, 255));
    }
    QFont bold = lblCopyIcon[0]->font();
    bold.setBold(true);
    lblCopyIcon[0]->setFont(bold);
    chkDontAsk = new QCheckBox(QStringLiteral("Don't ask in the future"), this);
    chkDontAsk->setGeometry(TwipsRect(600, 1680, 2055, 255));
    // As wide as its caption needs in this face, which runs wider than the old one.
    chkDontAsk->resize(std::max(chkDontAsk->width(), chkDontAsk->sizeHint().width()), chkDontAsk->height());
    const std::array<const char*, 2> captions = {"&Yes", "&No"};
    const std::array<int, 2> lefts = {360, 1560};
    for (int index = 0; index < 2; ++index) {
        cmdYesNo[index] = new QPushButton(QString::fromUtf8(captions[index]), this);
        cmdYesNo[index]->setGeometry(TwipsRect(lefts[index], 2040, 1215, 375));
        connect(cmdYesNo[index], &QPushButton::clicked, this, [this, index] { cmdYesNo_Click(index); });
    }
    cmdYesNo[0]->setDefault(true);
    // A question without a cancel button: Escape answers nothing.
    platform::SetCancelButton(*this, nullptr);
    modGlobal::CenterForm(*this);
}

// The tick counts for either answer; the close box does neither.
void FCopyIcon::cmdYesNo_Click(int index) {
    if (chkDontAsk->isChecked()) modGlobal::gbCopyLink = false;
    if (index == 0) modGlobal::CopyLinkToDeskTop();
    close();
}

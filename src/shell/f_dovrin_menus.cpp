// FDovrin: the menu bar, and the three options that each show as a pair of
// entries of which only the one offering the change is visible.
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "screens/f_about.h"
#include "screens/f_contact.h"
#include "screens/f_distribute.h"
#include "screens/f_send_score.h"
#include "screens/f_want_more.h"
#include "sound/mod_sound_lib.h"
#include "table/f_animate.h"
#include "shell/f_dovrin.h"
#include "users/f_user_edit.h"
#include "users/f_user_stats.h"

using namespace modGlobal;

namespace {

QAction* AddEntry(QMenu* menu, const char* caption, const QKeySequence& key = {}) {
    QAction* action = menu->addAction(QString::fromUtf8(caption));
    if (!key.isEmpty()) action->setShortcut(key);
    return action;
}

}  // namespace

void FDovrin::CreateMenus() {
    mnuFileH = menuBar()->addMenu(QStringLiteral("&File"));
    mnuFile[0] = AddEntry(mnuFileH, "&New Game", QKeySequence(Qt::CTRL | Qt::Key_N));
    mnuFile[1] = AddEntry(mnuFileH, "&Exit Dovrin", QKeySequence(Qt::CTRL | Qt::Key_X));
    mnuFileH->addSeparator();
    mnuSendScore = AddEntry(mnuFileH, "&Send Score...", QKeySequence(Qt::CTRL | Qt::Key_R));
    connect(mnuSendScore, &QAction::triggered, this, &FDovrin::mnuSendScore_Click);
    mnuTopTen = AddEntry(mnuFileH, "&Top Ten List...", QKeySequence(Qt::CTRL | Qt::Key_T));
    connect(mnuTopTen, &QAction::triggered, this, &FDovrin::mnuTopTen_Click);
    for (int index = 0; index < 2; ++index)
        connect(mnuFile[index], &QAction::triggered, this, [this, index] { mnuFile_Click(index); });

    mnuUserH = menuBar()->addMenu(QStringLiteral("&Players"));
    mnuUser[0] = AddEntry(mnuUserH, "&Edit Player Names...", QKeySequence(Qt::CTRL | Qt::Key_U));
    mnuUser[1] = AddEntry(mnuUserH, "&Change Player...", QKeySequence(Qt::CTRL | Qt::Key_C));
    mnuUserH->addSeparator();
    mnuWinnings = AddEntry(mnuUserH, "&Your Statistics...", QKeySequence(Qt::Key_F9));
    for (int index = 0; index < 2; ++index)
        connect(mnuUser[index], &QAction::triggered, this, [this, index] { mnuUser_Click(index); });
    connect(mnuWinnings, &QAction::triggered, this, &FDovrin::mnuWinnings_Click);

    // The Ctrl keys in these captions are plain text: the form's key
    // handler does the work.
    mnuOptionH = menuBar()->addMenu(QStringLiteral("&Options"));
    mnuOption[0] = AddEntry(mnuOptionH, "Turn &Animals On           Ctrl+A");
    mnuOption[1] = AddEntry(mnuOptionH, "Turn A&nimals Off           Ctrl+A");
    mnuOption[2] = mnuOptionH->addSeparator();
    mnuOption[3] = AddEntry(mnuOptionH, "Turn &Music On              Ctrl+M");
    mnuOption[4] = AddEntry(mnuOptionH, "Turn M&usic Off              Ctrl+M");
    mnuOption[5] = AddEntry(mnuOptionH, "Turn &Sound On             Ctrl+S");
    mnuOption[6] = AddEntry(mnuOptionH, "Turn S&ound Off             Ctrl+S");
    for (int index : {0, 1, 3, 4, 5, 6})
        connect(mnuOption[index], &QAction::triggered, this,
                [this, index] { mnuOption_Click(index); });
    mnuOptionH->addSeparator();
    // F7 and F8 stand in the captions only: no key is behind them.
    mnuAnim = AddEntry(mnuOptionH, "Anima&tion Speed...         F7");
    connect(mnuAnim, &QAction::triggered, this, &FDovrin::mnuAnim_Click);
    mnuDBPath = AddEntry(mnuOptionH, "&Database Path...            F8");

    mnuHelpH = menuBar()->addMenu(QStringLiteral("&Help"));
    mnuHelp[0] = AddEntry(mnuHelpH, "How to &Play...", QKeySequence(Qt::Key_F1));
    mnuHelp[1] = AddEntry(mnuHelpH, "How to &Contact Us...", QKeySequence(Qt::Key_F3));
    mnuHelp[2] = AddEntry(mnuHelpH, "Playing on a Network...", QKeySequence(Qt::Key_F4));
    for (int index = 0; index < 3; ++index)
        connect(mnuHelp[index], &QAction::triggered, this, [this, index] { mnuHelp_Click(index); });
    mnuHelpH->addSeparator();
    mnuAbout = AddEntry(mnuHelpH, "&About Dovrin...", QKeySequence(Qt::CTRL | Qt::Key_B));
    connect(mnuAbout, &QAction::triggered, this, &FDovrin::mnuAbout_Click);
    mnuDistribute = AddEntry(mnuHelpH, "&Distributing Dovrin...", QKeySequence(Qt::CTRL | Qt::Key_D));
    connect(mnuDistribute, &QAction::triggered, this, &FDovrin::mnuDistribute_Click);
}

void FDovrin::ShowOptionPair(OptionPair pair, bool on) {
    const auto first = static_cast<std::size_t>(pair);
    mnuOption.at(first)->setVisible(!on);
    mnuOption.at(first + 1)->setVisible(on);
}

void FDovrin::mnuFile_Click(int index) {
    if (index == 0) {
        // No question: the running game is dropped without a record.
        game_.miHandNo = 0;
        game_.miLevel = 0;
        SetCaption(gsTitle + " - Level " + std::to_string(game_.miLevel + 1) + " (1st Hand)");
        StartGame(true);
    } else if (index == 1) {
        Unload();
    }
}

// Switching on sets the option before its announcement, switching off after
// it, so both announcements are heard.
void FDovrin::mnuOption_Click(int index) {
    switch (index) {
        case 0:
            gbAnimalsOn = true;
            modSoundLib::PlayAnimalEffect("ANIMALSON");
            ShowOptionPair(OptionPair::Animals, true);
            break;
        case 1:
            modSoundLib::PlayAnimalEffect("ANIMALSON");
            gbAnimalsOn = false;
            ShowOptionPair(OptionPair::Animals, false);
            break;
        case 3:
            SetMusicEnabled(true);
            modSoundLib::PlayEffect("MUSICON");
            ShowOptionPair(OptionPair::Music, true);
            break;
        case 4:
            modSoundLib::PlayEffect("MUSICON");
            SetMusicEnabled(false);
            ShowOptionPair(OptionPair::Music, false);
            break;
        case 5:
            gbSoundOn = true;
            modSoundLib::PlayEffect("SOUNDON");
            ShowOptionPair(OptionPair::Sound, true);
            break;
        case 6:
            modSoundLib::PlayEffect("SOUNDON");
            gbSoundOn = false;
            ShowOptionPair(OptionPair::Sound, false);
            break;
        default: break;
    }
}

// The one form shown without modality; a second click brings it forward.
void FDovrin::mnuAnim_Click() {
    if (animate_) {
        animate_->raise();
        animate_->activateWindow();
        return;
    }
    try {
        animate_ = new FAnimate(this);
        animate_->show();
    } catch (const platform::RuntimeError& error) {
        // A speed from the settings file beyond the bar's range.
        platform::MsgBox(error.Description(), platform::kExclamation, "Animation Speed");
    }
}

void FDovrin::mnuTopTen_Click() {
    giTopTenRow = 99;  // no row is new
    ShowTopTen();
    if (gbDbFailed) RecoverDatabase();
}

void FDovrin::mnuUser_Click(int index) {
    if (index == 0) {
        FUserEdit userEdit(this);
        userEdit.exec();
        if (gbDbFailed) RecoverDatabase();
    } else {
        ChangeUser(false);
    }
}

void FDovrin::mnuWinnings_Click() {
    FUserStats userStats(this);
    userStats.exec();
}

void FDovrin::mnuSendScore_Click() {
    FSendScore sendScore(this);
    sendScore.exec();
}

void FDovrin::mnuAbout_Click() {
    picHelp->hide();
    FAbout about(this);
    about.exec();
}

void FDovrin::mnuDistribute_Click() {
    FDistribute distribute(this);
    distribute.exec();
}

void FDovrin::cmdWantMore_Click() {
    FWantMore wantMore(this);
    wantMore.exec();
}

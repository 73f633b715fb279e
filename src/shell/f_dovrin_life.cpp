// FDovrin: loading, the first activation, shut-down, and the parts of the
// end of a game that reach beyond the table.
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QMenu>
#include <QTimer>

#include "platform/card_library.h"
#include "platform/msgbox.h"
#include "platform/pictures.h"
#include "platform/runtime.h"
#include "shell/mod_global_forms.h"
#include "storage/database_check.h"
#include "storage/mod_global_db.h"
#include "table/f_dovrin.h"

using namespace modGlobal;

namespace {

const char* const kTitle = "Oakmere Software's LANTERN! DOVRIN v3.0";

}  // namespace

// Any failure, a missing card deck included, ends the program at once with
// the closing message; no unload step runs then.
bool FDovrin::Form_Load() {
    std::string failure;
    try {
        CenterForm(*this);
        QDir::setCurrent(QString::fromStdString(platform::AppPath()));
        mnuDBPath->setVisible(false);
        mnuHelp[2]->setVisible(false);
        mnuHelp[1]->setVisible(true);
        gsTitle = kTitle;
        SetCaption(gsTitle + " - Level 1 (1st Hand)");
        if (platform::cdtInit(mlCardWidth, mlCardHeight) == 0) throw std::runtime_error("");
        ShuffleDeck(game_.maDeck);
        storage::LoadSettings(*this);
        storage::CheckDatabaseFile();
        SeedRandom();
        ReloadPicture();
        SetWindowState(gbMaximize ? 2 : 0);
        SetChangeUserHook([this](bool) { StartGame(true); });
        return true;
    } catch (const std::exception& error) {
        failure = error.what();
    }
    platform::Beep();
    platform::MsgBox(failure, platform::kExclamation, "Error Loading Program");
    platform::EndProgramNow();
}

void FDovrin::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The first activation runs once the window is on screen.
    if (!mbActivated) QTimer::singleShot(0, this, &FDovrin::Form_Activate);
}

// Until the user forms take their place, the first activation starts a game
// straight away with the default names.
void FDovrin::Form_Activate() {
    if (mbActivated) return;
    userTag_.clear();
    mbActivated = true;
    if (gsUserName.empty()) gsUserName = "Player";
    if (gsOpponent1.empty()) gsOpponent1 = "Player 1";
    if (gsOpponent2.empty()) gsOpponent2 = "Player 2";
    if (gsOpponent3.empty()) gsOpponent3 = "Player 3";
    if (gsSkillLevel.empty()) gsSkillLevel = "Easy";
    SetPlayerName(0, gsOpponent1);
    SetPlayerName(1, gsOpponent2);
    SetPlayerName(2, gsOpponent3);
    SetPlayerName(3, gsUserName);
    StartGame(true);
}

void FDovrin::StartGame(bool newGame) { game_.StartGame(newGame); }

void FDovrin::closeEvent(QCloseEvent* event) {
    Form_QueryUnload();
    QMainWindow::closeEvent(event);
}

// Every way of closing the form comes here; nothing is asked.
void FDovrin::Form_QueryUnload() {
    if (unloading_) return;
    unloading_ = true;
    for (QMenu* menu : {mnuFileH, mnuUserH, mnuOptionH, mnuHelpH}) menu->setEnabled(true);
    platform::cdtTerm();
    storage::Ini_Save(*this);
}

void FDovrin::UnloadMainForm() { close(); }

void FDovrin::IniSave() { storage::Ini_Save(*this); }

void FDovrin::RecoverDatabase() { modGlobal::RecoverDatabase(); }

// Until the end-of-game form exists, a finished game is followed by the next.
void FDovrin::ShowGameOver() {
    gbUserWon = false;
    userTag_ = "YES";
}

void FDovrin::TopTenLoad() {}

bool FDovrin::CheckHighScore() { return false; }

void FDovrin::TopTenSave() {}

void FDovrin::ShowTopTen() {}

void FDovrin::ShowUserName() {}

void FDovrin::SetWinningsCaption(const std::string& caption) {
    mnuWinnings->setText(QString::fromStdString(caption));
}

bool FDovrin::MusicEnabled() const { return musicEnabled_; }

void FDovrin::SetMusicEnabled(bool enabled) { musicEnabled_ = enabled; }

int FDovrin::WindowState() const { return isMaximized() ? 2 : 0; }

void FDovrin::SetWindowState(int state) {
    if (state == 2)
        showMaximized();
    else if (isMaximized())
        showNormal();
}

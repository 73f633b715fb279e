// FDovrin: loading, the first activation, shut-down, and the parts of the
// end of a game that reach beyond the table.
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include "platform/display/card_library.h"
#include "platform/runtime/msgbox.h"
#include "platform/display/pictures.h"
#include "platform/runtime/runtime.h"
#include "platform/display/center_form.h"
#include "link/main_form_link.h"
#include "storage/database_check.h"
#include "table/f_top_ten.h"
#include "storage/mod_global_db.h"
#include "storage/settings_file.h"
#include "shell/f_dovrin.h"
#include "sound/mod_global_music.h"
#include "table/f_game_over.h"
#include "users/f_user_name.h"

using namespace modGlobal;

namespace {

const char* const kTitle = "Oakmere Software's LANTERN! DOVRIN v3.0";

}  // namespace

// Any failure, a missing card deck included, ends the program at once with
// the closing message; no unload step runs then.
void FDovrin::Form_Load() {
    std::string failure;
    try {
        CenterForm(*this);
        QDir::setCurrent(QString::fromStdString(platform::AppPath()));
        mnuDBPath->setVisible(false);
        mnuHelp[2]->setVisible(false);
        mnuHelp[1]->setVisible(true);
        gsTitle = kTitle;
        SetCaption(gsTitle + " - Level 1 (1st Hand)");
        goMidi = std::make_unique<CMidiFile>();
        goMidi->SetLoopMusic(true);
        if (platform::cdtInit(mlCardWidth, mlCardHeight) == 0) throw std::runtime_error("");
        ShuffleDeck(game_.maDeck);
        storage::LoadSettings(*this);
        storage::CheckDatabaseFile();
        SeedRandom();
        ReloadPicture();
        SetWindowState(gbMaximize ? 2 : 0);
        loaded_ = true;
        return;
    } catch (const std::exception& error) {
        failure = error.what();
    }
    platform::Beep();
    platform::MsgBox(failure, platform::kExclamation, "Error Loading Program");
    platform::EndProgramNow();
}

void FDovrin::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The first activation of a loaded form runs once the window is on screen.
    if (loaded_ && !mbActivated) QTimer::singleShot(0, this, &FDovrin::Form_Activate);
}

void FDovrin::Form_Activate() {
    // The user form runs its own event loop: an activation that comes while
    // it is open is not a first one.
    if (mbActivated || activating_) return;
    activating_ = true;
    userTag_.clear();
    ShowUserName("E&xit");
    if (gbDbFailed) {
        // The database went away under the user form: the default one may
        // take over, and the user chooses again there.
        FallBackToDefaultDatabase(
            [this] {
                userTag_.clear();
                ShowUserName("E&xit");
            },
            RepeatFailure::EndsProgram);
    }
    const std::string tag = userTag_;
    mbActivated = true;
    if (tag == "X")
        Unload();
    else
        StartGame(true);
}

void FDovrin::ChangeUser(bool pbFirst) {
    storage::Ini_Save(*this);
    userTag_.clear();
    ShowUserName(pbFirst ? "&Exit" : "&Cancel");
    if (gbDbFailed) {
        RecoverDatabase();
        return;
    }
    if (userTag_ != "X")
        game_.NewGameForNewUser();
    else if (pbFirst)
        Unload();
}

void FDovrin::ShowUserName(const std::string& exitCaption) {
    FUserName userName(this);
    if (!exitCaption.empty())
        userName.cmdUserName[1]->setText(QString::fromStdString(exitCaption));
    userName.exec();
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
    picHelp->hide();
    HideHighScore();
    SetMenusEnabled(true);
    StopTune(*this);
    platform::cdtTerm();
    storage::Ini_Save(*this);
}

void FDovrin::Unload() { close(); }

void FDovrin::IniSave() { storage::Ini_Save(*this); }

void FDovrin::RecoverDatabase() { modGlobal::RecoverDatabase(); }

void FDovrin::ShowGameOver() {
    FGameOver gameOver(this);
    gameOver.exec();
}

void FDovrin::TopTenLoad() { topTen_.TopTenLoad(); }

bool FDovrin::CheckHighScore() { return topTen_.CheckHighScore(); }

void FDovrin::TopTenSave() { topTen_.TopTenSave(); }

void FDovrin::ShowTopTen() {
    FTopTen topTen(this);
    topTen.exec();
}

// After a game, the user form sees "CHANGE" in the tag and names its second
// button itself.
void FDovrin::ShowUserName() { ShowUserName(""); }

void FDovrin::SetTopMenusEnabled(bool enabled) {
    for (QMenu* menu : {mnuFileH, mnuUserH, mnuOptionH, mnuHelpH}) menu->setEnabled(enabled);
}

void FDovrin::SetWinningsCaption(const std::string& caption) {
    mnuWinnings->setText(QString::fromStdString(caption));
}

void FDovrin::tmrMidi_Timer() { WatchTune(*this, "Circus.mid"); }

// The music option is the music object's Enabled.
bool FDovrin::MusicEnabled() const { return goMidi && goMidi->Enabled(); }

void FDovrin::SetMusicEnabled(bool enabled) {
    if (goMidi) goMidi->SetEnabled(enabled);
}

int FDovrin::WindowState() const { return isMaximized() ? 2 : 0; }

void FDovrin::SetWindowState(int state) {
    if (state == 2)
        showMaximized();
    else if (isMaximized())
        showNormal();
}

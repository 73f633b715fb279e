// FGameOver: the end of a game. Saves the user's record, ranks the four
// players through the table player and asks for another game. The answer
// goes into cmdUser's Tag on the main form: "YES", "NO" or "CHANGE". Shown
// modally over the main form (modGlobal::goMainForm); each game builds a
// fresh form.
#pragma once

#include <array>

#include "platform/display/art_dialog.h"
#include "platform/display/platform_timer.h"

class QLabel;
class QPushButton;

class FGameOver : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FGameOver(QWidget* parent = nullptr);

    // Writes the current user's record, found by name: a name not found
    // makes a new row without a user id.
    static void SaveUserData();

    std::array<QLabel*, 4> lblPlayer;
    std::array<QLabel*, 4> lblAmt;
    std::array<QPushButton*, 3> cmdYesNo;  // "&Yes", "&No", "&New User..."
    platform::PlatformTimer tmrScore;

protected:
    bool event(QEvent* event) override;
    // Every way the form closes ends here: its unload.
    void done(int result) override;

private:
    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void cmdYesNo_Click(int index);
    void tmrScore_Timer();

    bool mbSoundPlayed = false;
};

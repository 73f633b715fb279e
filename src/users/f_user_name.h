// FUserName: who plays, and under what opponents' names. Lists the users of
// the database, adds or renames one, and publishes the choice as the current
// user. Its answer goes to the main form's cmdUser.Tag: "O" for OK, "X" for
// leaving. Shown modally; each opening builds a fresh form.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/display/art_dialog.h"
#include "users/user_entry.h"

class HelpImage;
class QComboBox;
class QLineEdit;
class QPushButton;

class FUserName : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FUserName(QWidget* parent = nullptr);

    QComboBox* cboUser;
    std::array<QLineEdit*, 4> txtPlayer;  // 1 to 3, one per opponent; there is no txtPlayer(0)
    QComboBox* cboSkillLevel;
    std::array<QPushButton*, 2> cmdUserName;
    HelpImage* imgHelp;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void done(int result) override;

private:
    // A row of the table user.
    struct UserRecord {
        std::int32_t userid = 0;
        std::string name;
        std::string player1;
        std::string player2;
        std::string player3;
        std::string skilllevel;
        std::int16_t numgames = 0;
        std::int32_t winnings = 0;
    };

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void GetPlayerData();
    void ShowUser();
    bool ValidateUser();
    void UpdateDatabase();
    void cboUser_Click();
    void cboUser_LostFocus();
    void txtPlayer_GotFocus(QLineEdit& box);
    void cmdUserName_Click(int index);

    std::vector<UserRecord> muUsers;
    bool mbNoUsers = false;
    std::int32_t mlSelId = 0;
    std::string msSelName;
    std::string msOpp1, msOpp2, msOpp3, msSkill;
    std::int16_t miGames = 0;
    std::int32_t mlWins = 0;
    std::int32_t mlEdId = 0;
    std::string msEdName, msEdOpp1, msEdOpp2, msEdOpp3, msEdSkill;
    std::int16_t miEdGames = 0;
    std::int32_t mlEdWins = 0;

    users::ControlFocus focus_;
};

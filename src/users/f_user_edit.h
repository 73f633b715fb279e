// FUserEdit: adds, renames, changes and deletes users, record by record in
// the table user, while a game may stand behind it. Shown modally; each
// opening builds a fresh form.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/display/art_dialog.h"
#include "platform/runtime/dao.h"
#include "users/user_entry.h"

class HelpImage;
class QLineEdit;
class QListWidget;
class QPushButton;

class FUserEdit : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FUserEdit(QWidget* parent = nullptr);

    std::array<QLineEdit*, 4> txtUser;  // the user's name, then the three opponents
    QListWidget* lstUser;
    std::array<QPushButton*, 3> cmdUser;
    HelpImage* imgHelp;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    void LoadUserList();
    void LoadUserForm();
    void ClearUserForm();
    void EnableUserForm(bool pbEnabled);
    bool ValidateUserForm();
    dao::Variant SaveUserRecord();
    void DeleteUser();
    void lstUser_Click();
    void txtUser_GotFocus(QLineEdit& box);
    void cmdUser_Click(int index);
    void SaveChosenUser();
    void DeleteChosenUser();

    std::int32_t mlUserId = 0;
    std::string msOldName;
    std::int32_t mlSaveId = 0;
    std::string msSaveName, msSaveOpp1, msSaveOpp2, msSaveOpp3;

    bool mbMouseDown = false;
    users::ControlFocus focus_;
};

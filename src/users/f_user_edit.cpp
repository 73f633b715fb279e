#include "users/f_user_edit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"
#include "storage/data_procedure.h"
#include "storage/mod_global_db.h"
#include "users/help_image.h"
#include "users/user_entry.h"

using namespace modGlobal;
using platform::kCrLf;
using platform::MsgBox;
using platform::Trim;
using platform::TwipsRect;
using users::kNewUserId;

namespace {

constexpr int kFormWidth = 5895;
constexpr int kFormHeight = 2655;
constexpr int kEntryLeft = 3840;
constexpr int kEntryWidth = 1935;
constexpr int kEntryHeight = 375;
constexpr std::array<int, 4> kUserTops = {600, 975, 1320, 1680};

}  // namespace

FUserEdit::FUserEdit(QWidget* parent)
    : platform::ArtDialog(parent, QStringLiteral("user_edit"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Add, Edit or Delete a Player Name"));

    for (int i = 0; i < 4; ++i) {
        txtUser[i] = new QLineEdit(this);
        txtUser[i]->setGeometry(TwipsRect(kEntryLeft, kUserTops[i], kEntryWidth, kEntryHeight));
        users::UseNameFont(*txtUser[i]);
        txtUser[i]->installEventFilter(this);
    }

    lstUser = new QListWidget(this);
    lstUser->setGeometry(TwipsRect(120, 280, 1935, 2220));
    lstUser->viewport()->installEventFilter(this);
    // A click on an entry is a choice even when the entry is chosen already;
    // the keys choose by moving the selection.
    connect(lstUser, &QListWidget::itemClicked, this, [this] { lstUser_Click(); });
    connect(lstUser, &QListWidget::itemSelectionChanged, this, [this] {
        if (!mbMouseDown && !lstUser->selectedItems().isEmpty()) lstUser_Click();
    });

    cmdUser[0] = new QPushButton(QStringLiteral("&Save"), this);
    cmdUser[0]->setGeometry(TwipsRect(3840, 120, 975, 375));
    cmdUser[0]->setDefault(true);
    cmdUser[1] = new QPushButton(QStringLiteral("&Delete"), this);
    cmdUser[1]->setGeometry(TwipsRect(4800, 120, 975, 375));
    cmdUser[2] = new QPushButton(QStringLiteral("&Close"), this);
    cmdUser[2]->setGeometry(TwipsRect(3840, 2140, 1935, 375));
    for (int index = 0; index < 3; ++index)
        connect(cmdUser[index], &QPushButton::clicked, this, [this, index] { cmdUser_Click(index); });
    platform::SetCancelButton(*this, cmdUser[2]);

    imgHelp = new HelpImage(this);
    imgHelp->setGeometry(TwipsRect(3300, 2115, 420, 420));
    connect(imgHelp, &HelpImage::clicked, this, [this] {
        users::ShowHelpFor("FUserEdit", this);
        // The help form covered this one: its closing activates this one again.
        Form_Activate();
    });

    Form_Load();
}

void FUserEdit::Form_Load() {
    CenterForm(*this);
    LoadUserList();
    EnableUserForm(false);
}

// The first activation comes with the showing; a window restored from the
// task bar shows again without one.
void FUserEdit::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Queued: a form that closes while it is being shown would leave its
    // modal loop waiting.
    if (!event->spontaneous()) QMetaObject::invokeMethod(this, &FUserEdit::Form_Activate, Qt::QueuedConnection);
}

void FUserEdit::Form_Activate() {
    if (gbDbFailed) close();
}

void FUserEdit::LoadUserList() {
    storage::DataErrorHandler on("Load User List");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user", dao::dbOpenSnapshot);
    if (on.SelectFailed()) return;
    while (!rs->Eof()) {
        std::string name;
        std::int32_t id = 0;
        on([&] { name = rs->Fields("name").Value().ToString(); });
        on([&] { id = rs->Fields("userid").Value().ToInt32(); });
        users::AddSorted(*lstUser, Trim(name), id);
        on([&] { rs->MoveNext(); });
    }
    users::AddSorted(*lstUser, users::kNewUserEntry, kNewUserId);
}

void FUserEdit::LoadUserForm() {
    storage::DataErrorHandler on("Load User Form");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user WHERE userid = " + std::to_string(mlUserId),
                               dao::dbOpenSnapshot);
    if (on.SelectFailed()) return;
    if (rs->Bof() && rs->Eof()) {
        txtUser[0]->setText(QString::fromUtf8(users::kNewUserEntry));
        txtUser[1]->setText(QStringLiteral("Player 1"));
        txtUser[2]->setText(QStringLiteral("Player 2"));
        txtUser[3]->setText(QStringLiteral("Player 3"));
        return;
    }
    static const std::array<const char*, 4> kFields = {"name", "player1", "player2", "player3"};
    for (int i = 0; i < 4; ++i)
        on([&] { txtUser[i]->setText(QString::fromStdString(rs->Fields(kFields[i]).Value().ToString())); });
}

void FUserEdit::ClearUserForm() {
    for (QLineEdit* box : txtUser) box->clear();
}

void FUserEdit::EnableUserForm(bool pbEnabled) {
    for (QLineEdit* box : txtUser) box->setEnabled(pbEnabled);
    cmdUser[0]->setEnabled(pbEnabled);
    cmdUser[1]->setEnabled(pbEnabled);
}

void FUserEdit::lstUser_Click() {
    const QListWidgetItem* chosen = lstUser->currentItem();
    if (!chosen) return;
    msOldName = chosen->text().toStdString();
    mlUserId = users::ItemData(*chosen);
    EnableUserForm(true);
    cmdUser[1]->setEnabled(mlUserId != kNewUserId && mlUserId != glLastUserId);
    LoadUserForm();
    if (gbDbFailed) {
        close();
        return;
    }
    (mlUserId == kNewUserId ? txtUser[0] : txtUser[1])->setFocus();
}

bool FUserEdit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstUser->viewport()) {
        if (event->type() == QEvent::MouseButtonPress) mbMouseDown = true;
        if (event->type() == QEvent::MouseButtonRelease) mbMouseDown = false;
        return QDialog::eventFilter(watched, event);
    }
    if (event->type() == QEvent::KeyPress)
        return users::DropsKey(static_cast<QLineEdit*>(watched)->text(), static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        const auto change = focus_.OnFocusEvent(watched, static_cast<QFocusEvent&>(*event));
        if (change.got) txtUser_GotFocus(*static_cast<QLineEdit*>(change.got));
    }
    return QDialog::eventFilter(watched, event);
}

void FUserEdit::txtUser_GotFocus(QLineEdit& box) {
    if (!box.text().isEmpty()) box.selectAll();
}

void FUserEdit::cmdUser_Click(int index) {
    switch (index) {
        case 0: SaveChosenUser(); break;
        case 1: DeleteChosenUser(); break;
        default: close(); break;
    }
}

void FUserEdit::SaveChosenUser() {
    if (!ValidateUserForm()) return;
    if (mlUserId == kNewUserId) {
        mlSaveId = GetNextUserID();
        if (gbDbFailed) {
            close();
            return;
        }
    } else if (msSaveName != msOldName) {
        const int answer = MsgBox(users::RenameQuestion(msOldName, msSaveName),
                                  platform::kQuestion | platform::kYesNo, users::kRenameTitle);
        if (answer != platform::kAnswerYes) {
            txtUser[0]->setText(QString::fromStdString(msOldName));
            txtUser[0]->setFocus();
            return;
        }
        // Every entry of the old name changes, though only one row does.
        for (int row = 0; row < lstUser->count(); ++row)
            if (lstUser->item(row)->text().toStdString() == msOldName)
                lstUser->item(row)->setText(QString::fromStdString(msSaveName));
    }
    if (glLastUserId == mlSaveId) {
        gsUserName = msSaveName;
        gsOpponent1 = msSaveOpp1;
        gsOpponent2 = msSaveOpp2;
        gsOpponent3 = msSaveOpp3;
        users::ShowCurrentUserOnTable();
    }
    const dao::Variant result = SaveUserRecord();
    if (result.GetKind() == dao::Variant::Kind::Integer) {
        MsgBox("User record saved!", platform::kExclamation, "Saving User Information");
        if (mlUserId == kNewUserId) {
            const QSignalBlocker quiet(lstUser);
            users::AddSorted(*lstUser, msSaveName, mlSaveId);
        }
    } else if (gbDbFailed) {
        close();
        return;
    }
    ClearUserForm();
    EnableUserForm(false);
}

void FUserEdit::DeleteChosenUser() {
    if (mlUserId == glLastUserId) {
        MsgBox(std::string("You cannot delete yourself") + kCrLf + "since you are the current user!",
               platform::kExclamation, "Delete User");
        return;
    }
    if (MsgBox(std::string("Do you wish to delete") + kCrLf + msOldName + " as a user?",
               platform::kQuestion | platform::kYesNo, "Delete User") != platform::kAnswerYes)
        return;
    DeleteUser();
    if (gbDbFailed) {
        close();
        return;
    }
    {
        const QSignalBlocker quiet(lstUser);
        for (int row = 0; row < lstUser->count(); ++row) {
            if (users::ItemData(*lstUser->item(row)) != mlUserId) continue;
            delete lstUser->takeItem(row);
            lstUser->setCurrentItem(nullptr);
            break;
        }
    }
    ClearUserForm();
    EnableUserForm(false);
}

bool FUserEdit::ValidateUserForm() {
    mlSaveId = mlUserId;
    msSaveName = Trim(txtUser[0]->text().toStdString());
    msSaveOpp1 = Trim(txtUser[1]->text().toStdString());
    msSaveOpp2 = Trim(txtUser[2]->text().toStdString());
    msSaveOpp3 = Trim(txtUser[3]->text().toStdString());
    if (users::HasListBracket(msSaveName)) {
        MsgBox(msSaveName + " is not a valid user name!", platform::kExclamation, "Invalid User Name");
        txtUser[0]->setFocus();
        return false;
    }
    return users::NamesAreValid({msSaveName, msSaveOpp1, msSaveOpp2, msSaveOpp3},
                                {txtUser[0], txtUser[1], txtUser[2], txtUser[3]});
}

dao::Variant FUserEdit::SaveUserRecord() {
    const dao::Variant failed("ERROR");
    storage::DataErrorHandler on("Update Database");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return failed;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user where userid = " + std::to_string(mlSaveId),
                               dao::dbOpenDynaset);
    if (on.SelectFailed()) return failed;
    if (rs->Bof() && rs->Eof()) {
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("userid") = mlSaveId; });
        on([&] { rs->Fields("skilllevel") = "Easy"; });
        on([&] { rs->Fields("numgames") = std::int16_t{0}; });
        on([&] { rs->Fields("winnings") = std::int32_t{0}; });
    } else {
        on([&] { rs->Edit(); });
    }
    on([&] { rs->Fields("name") = msSaveName; });
    on([&] { rs->Fields("player1") = msSaveOpp1; });
    on([&] { rs->Fields("player2") = msSaveOpp2; });
    on([&] { rs->Fields("player3") = msSaveOpp3; });
    on([&] { rs->Update(); });
    return dao::Variant(std::int16_t{0});
}

void FUserEdit::DeleteUser() {
    storage::DataErrorHandler on("Delete User");
    auto db = on.OpenDatabase();
    // Deliberately weighed like a failed select: a failed open here shows its
    // message and leaves gbDbFailed alone, so the entry still leaves the list.
    if (on.SelectFailed()) return;
    on([&] { db->Execute("DELETE * FROM user where userid = " + std::to_string(mlUserId)); });
}

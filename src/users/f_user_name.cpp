#include "users/f_user_name.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "link/main_form_link.h"
#include "platform/display/center_form.h"
#include "sound/mod_sound_lib.h"
#include "storage/data_procedure.h"
#include "storage/user_record.h"
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

constexpr int kFormWidth = 4125;
constexpr int kFormHeight = 2700;
constexpr int kEntryLeft = 2160;
constexpr int kEntryWidth = 1575;
constexpr int kEntryHeight = 315;
constexpr std::array<int, 4> kPlayerTops = {0, 500, 850, 1200};

}  // namespace

FUserName::FUserName(QWidget* parent)
    : platform::ArtDialog(parent, QStringLiteral("user_name"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Lantern! Dovrin"));

    cboUser = new QComboBox(this);
    cboUser->setGeometry(TwipsRect(kEntryLeft, 150, kEntryWidth, kEntryHeight));
    cboUser->setEditable(true);
    cboUser->setInsertPolicy(QComboBox::NoInsert);
    cboUser->setCompleter(nullptr);
    users::UseNameFont(*cboUser->lineEdit());
    // A typed name is a new name or a rename: the list must not pick the
    // entry it happens to match when the typing ends.
    disconnect(cboUser->lineEdit(), &QLineEdit::editingFinished, cboUser, nullptr);
    cboUser->installEventFilter(this);
    connect(cboUser, &QComboBox::activated, this, [this] { cboUser_Click(); });

    txtPlayer[0] = nullptr;
    for (int i = 1; i <= 3; ++i) {
        txtPlayer[i] = new QLineEdit(this);
        txtPlayer[i]->setGeometry(TwipsRect(kEntryLeft, kPlayerTops[i], kEntryWidth, kEntryHeight));
        users::UseNameFont(*txtPlayer[i]);
        txtPlayer[i]->installEventFilter(this);
    }

    cboSkillLevel = new QComboBox(this);
    cboSkillLevel->setGeometry(TwipsRect(kEntryLeft, 1680, kEntryWidth, kEntryHeight));
    cboSkillLevel->addItem(QStringLiteral("Easy"));

    cmdUserName[0] = new QPushButton(QStringLiteral("&OK"), this);
    cmdUserName[0]->setGeometry(TwipsRect(855, 2130, 1215, 375));
    cmdUserName[0]->setDefault(true);
    cmdUserName[1] = new QPushButton(QStringLiteral("E&xit"), this);
    cmdUserName[1]->setGeometry(TwipsRect(2055, 2130, 1215, 375));
    for (int index = 0; index < 2; ++index)
        connect(cmdUserName[index], &QPushButton::clicked, this, [this, index] { cmdUserName_Click(index); });
    platform::SetCancelButton(*this, cmdUserName[1]);

    imgHelp = new HelpImage(this);
    imgHelp->setGeometry(TwipsRect(3480, 2115, 420, 420));
    connect(imgHelp, &HelpImage::clicked, this, [this] {
        users::ShowHelpFor("FUserName", this);
        // The help form covered this one: its closing activates this one again.
        Form_Activate();
    });

    Form_Load();
}

void FUserName::Form_Load() {
    CenterForm(*this);
    GetPlayerData();
    if (goMainForm && Trim(goMainForm->UserTag()) == "CHANGE") cmdUserName[1]->setText(QStringLiteral("&Cancel"));
    if (gbDbFailed) FallBackToDefaultDatabase([this] { GetPlayerData(); }, RepeatFailure::EndsProgram);
    if (!mbNoUsers)
        for (const UserRecord& user : muUsers) users::AddSorted(*cboUser, Trim(user.name), user.userid);
    users::AddSorted(*cboUser, users::kNewUserEntry, kNewUserId);
}

// The first activation comes with the showing; a window restored from the
// task bar shows again without one.
void FUserName::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) QMetaObject::invokeMethod(this, &FUserName::Form_Activate, Qt::QueuedConnection);
}

void FUserName::Form_Activate() {
    int lastUser = -1;
    int newUser = -1;
    for (int index = 0; index < cboUser->count(); ++index) {
        const std::int32_t id = users::ItemData(*cboUser, index);
        if (id == glLastUserId) lastUser = index;
        if (id == kNewUserId) newUser = index;
    }
    cboUser->setCurrentIndex(lastUser >= 0 ? lastUser : newUser);
    cboUser_Click();
}

void FUserName::done(int result) {
    Form_Unload();
    QDialog::done(result);
}

void FUserName::Form_Unload() {
    if (goMainForm && goMainForm->UserTag().empty()) goMainForm->SetUserTag("X");
}

void FUserName::GetPlayerData() {
    storage::DataErrorHandler on("GetPlayerData");
    muUsers.clear();
    mbNoUsers = true;
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user", dao::dbOpenSnapshot);
    if (on.SelectFailed()) return;
    if (rs->Bof() && rs->Eof()) return;
    mbNoUsers = false;
    while (!rs->Eof()) {
        UserRecord& user = muUsers.emplace_back();
        on([&] { user.userid = rs->Fields("userid").Value().ToInt32(); });
        on([&] { user.name = rs->Fields("name").Value().ToString(); });
        on([&] { user.player1 = rs->Fields("player1").Value().ToString(); });
        on([&] { user.player2 = rs->Fields("player2").Value().ToString(); });
        on([&] { user.player3 = rs->Fields("player3").Value().ToString(); });
        on([&] { user.skilllevel = rs->Fields("skilllevel").Value().ToString(); });
        on([&] { user.numgames = rs->Fields("numgames").Value().ToInt16(); });
        on([&] { user.winnings = rs->Fields("winnings").Value().ToInt32(); });
        on([&] { rs->MoveNext(); });
    }
}

void FUserName::ShowUser() {
    const UserRecord* match = nullptr;
    if (!mbNoUsers)
        for (const UserRecord& user : muUsers)
            if (user.userid == mlSelId) match = &user;
    if (match) {
        msOpp1 = Trim(match->player1);
        msOpp2 = Trim(match->player2);
        msOpp3 = Trim(match->player3);
        msSkill = Trim(match->skilllevel);
        miGames = match->numgames;
        mlWins = match->winnings;
    } else {
        msOpp1 = "Player 1";
        msOpp2 = "Player 2";
        msOpp3 = "Player 3";
        msSkill = "Easy";
        miGames = 0;
        mlWins = 0;
    }
    txtPlayer[1]->setText(QString::fromStdString(msOpp1));
    txtPlayer[2]->setText(QString::fromStdString(msOpp2));
    txtPlayer[3]->setText(QString::fromStdString(msOpp3));
    // Deliberately the literal and not msSkill: every user plays, and is
    // stored, at "Easy".
    cboSkillLevel->setCurrentText(QStringLiteral("Easy"));
}

void FUserName::cboUser_Click() {
    msSelName = cboUser->itemText(cboUser->currentIndex()).toStdString();
    mlSelId = users::ItemData(*cboUser, cboUser->currentIndex());
    ShowUser();
    if (mlSelId != kNewUserId) txtPlayer[1]->setFocus();
}

void FUserName::cboUser_LostFocus() { ShowUser(); }

bool FUserName::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const QString text =
            watched == cboUser ? cboUser->currentText() : static_cast<QLineEdit*>(watched)->text();
        return users::DropsKey(text, static_cast<QKeyEvent&>(*event));
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        const auto change = focus_.OnFocusEvent(watched, static_cast<QFocusEvent&>(*event));
        if (change.lost == cboUser) cboUser_LostFocus();
        if (change.got && change.got != cboUser) txtPlayer_GotFocus(*static_cast<QLineEdit*>(change.got));
    }
    return QDialog::eventFilter(watched, event);
}

void FUserName::txtPlayer_GotFocus(QLineEdit& box) {
    if (!box.text().isEmpty()) box.selectAll();
}

void FUserName::cmdUserName_Click(int index) {
    if (index == 1) {
        if (goMainForm) goMainForm->SetUserTag("X");
        modSoundLib::PlayEffect("EXITPROG");
        close();
        return;
    }
    if (!ValidateUser()) return;
    if (mlEdId != kNewUserId && msEdName != msSelName) {
        const int answer = MsgBox(users::RenameQuestion(msSelName, msEdName), platform::kQuestion | platform::kYesNo,
                                  users::kRenameTitle);
        if (answer == platform::kAnswerNo) {
            cboUser->setEditText(QString::fromStdString(msSelName));
            txtPlayer[1]->setFocus();
            return;
        }
    }
    if (mlEdId == kNewUserId) {
        mlEdId = GetNextUserID();
        if (gbDbFailed) {
            close();
            return;
        }
    }
    glLastUserId = mlEdId;
    glUserId = mlEdId;
    gsUserName = msEdName;
    gsOpponent1 = msEdOpp1;
    gsOpponent2 = msEdOpp2;
    gsOpponent3 = msEdOpp3;
    gsSkillLevel = msEdSkill;
    giNumGames = miEdGames;
    glWinnings = mlEdWins;
    users::ShowCurrentUserOnTable();
    UpdateDatabase();
    if (goMainForm) goMainForm->SetUserTag("O");
    close();
}

bool FUserName::ValidateUser() {
    mlEdId = mlSelId;
    msEdName = Trim(cboUser->currentText().toStdString());
    msEdOpp1 = Trim(txtPlayer[1]->text().toStdString());
    msEdOpp2 = Trim(txtPlayer[2]->text().toStdString());
    msEdOpp3 = Trim(txtPlayer[3]->text().toStdString());
    msEdSkill = Trim(cboSkillLevel->currentText().toStdString());
    miEdGames = miGames;
    mlEdWins = mlWins;
    if (users::HasListBracket(msEdName)) {
        MsgBox(msEdName + " is not a valid Player Name!" + kCrLf + "Enter your own Player & Opponent Names.",
               platform::kExclamation, "Invalid Player Name");
        cboUser->setFocus();
        return false;
    }
    if (!users::NamesAreValid({msEdName, msEdOpp1, msEdOpp2, msEdOpp3},
                              {cboUser, txtPlayer[1], txtPlayer[2], txtPlayer[3]}))
        return false;
    if (msEdSkill != "Medium" && msEdSkill != "Easy" && msEdSkill != "Hard") {
        MsgBox("Skilllevel is invalid!", platform::kExclamation, "Invalid SkillLevel");
        cboSkillLevel->setFocus();
        return false;
    }
    return true;
}

void FUserName::UpdateDatabase() {
    storage::DataErrorHandler on("UpdateDatabase");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user where userid = " + std::to_string(glUserId),
                               dao::dbOpenDynaset);
    if (on.SelectFailed()) return;
    if (rs->Bof() && rs->Eof()) {
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("userid") = glUserId; });
    } else {
        on([&] { rs->Edit(); });
    }
    on([&] { rs->Fields("name") = gsUserName; });
    storage::WriteCurrentUserTotals(on, *rs);
}

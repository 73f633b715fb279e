#include "table/f_game_over.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include "engine/game_state.h"
#include "engine/mod_global.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"
#include "sound/mod_sound_lib.h"
#include "storage/data_procedure.h"
#include "storage/user_record.h"
#include "storage/mod_global_db.h"
#include "table/labels.h"
#include "link/main_form_link.h"

using namespace modGlobal;
using platform::TwipsRect;
using platform::TwipsToPixels;

namespace {

constexpr int kFormWidth = 4065;
constexpr int kFormHeight = 2580;
constexpr std::array<int, 4> kRowTops = {150, 495, 855, 1200};
constexpr int kRowPointSize = 9;
const std::array<const char*, 3> kAnswers = {"YES", "NO", "CHANGE"};

}  // namespace

FGameOver::FGameOver(QWidget* parent)
    : platform::ArtDialog(parent, QStringLiteral("game_over"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Lantern! Dovrin - Game Over"));

    QFont rowFont = font();
    rowFont.setPointSize(kRowPointSize);
    rowFont.setBold(true);
    for (int row = 0; row < 4; ++row) {
        lblPlayer[row] = new QLabel(this);
        lblPlayer[row]->setGeometry(TwipsRect(1245, kRowTops[row], 1575, 360));
        lblAmt[row] = new QLabel(this);
        lblAmt[row]->setGeometry(TwipsRect(2805, kRowTops[row], 1095, 360));
        lblAmt[row]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        for (QLabel* label : {lblPlayer[row], lblAmt[row]}) {
            label->setFont(rowFont);
            label->setIndent(TwipsToPixels(90));
        }
    }

    const std::array<const char*, 3> captions = {"&Yes", "&No", "&New User..."};
    const std::array<int, 3> lefts = {405, 1485, 2565};
    for (int index = 0; index < 3; ++index) {
        cmdYesNo[index] = new QPushButton(QString::fromUtf8(captions[index]), this);
        cmdYesNo[index]->setGeometry(TwipsRect(lefts[index], 1980, 1095, 375));
        connect(cmdYesNo[index], &QPushButton::clicked, this, [this, index] { cmdYesNo_Click(index); });
    }
    // Only the buttons and the frame answer: Escape would mean "NO", the end of the program.
    platform::SetCancelButton(*this, nullptr);

    tmrScore.SetInterval(500);
    connect(&tmrScore, &platform::PlatformTimer::Timer, this, &FGameOver::tmrScore_Timer);
    Form_Load();
}

void FGameOver::Form_Load() {
    CenterForm(*this);
    std::array<std::int16_t, 4> funds{};
    for (int seat = 0; seat < 4; ++seat) funds[seat] = platform::CInt(platform::Val(goMainForm->MoneyCaption(seat)));
    giNumGames = platform::CInt(giNumGames + 1.0);
    glWinnings = platform::CLng(glWinnings + (funds[3] - static_cast<double>(kStartingMoney)));

    SaveUserData();
    if (gbDbFailed) return;
    GetStandings(funds);
    if (gbDbFailed) return;
    for (int row = 0; row < 4; ++row) {
        table::ShowName(*lblPlayer[row], gaStanding[row].name, kRowPointSize, true);
        lblAmt[row]->setText(QString::number(gaStanding[row].funds));
    }
}

void FGameOver::SaveUserData() {
    storage::DataErrorHandler on("SaveUserData");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    // Deliberately unescaped: an apostrophe in the name breaks the select and
    // the game's result isn't stored.
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user WHERE name='" + platform::Trim(gsUserName) + "'",
                               dao::dbOpenDynaset);
    if (on.SelectFailed()) return;
    if (rs->Bof() && rs->Eof()) {
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("name") = gsUserName; });
    } else {
        on([&] { rs->Edit(); });
    }
    storage::WriteCurrentUserTotals(on, *rs);
}

bool FGameOver::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) Form_Activate();
    return QDialog::event(event);
}

void FGameOver::Form_Activate() {
    if (gbDbFailed) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void FGameOver::tmrScore_Timer() {
    if (mbSoundPlayed) return;
    gbUserWon = gsUserName == gaStanding[0].name;
    modSoundLib::PlayEffect(gbUserWon ? "USERWON" : "OTHWON");
    mbSoundPlayed = true;
}

void FGameOver::cmdYesNo_Click(int index) {
    goMainForm->SetUserTag(kAnswers[index]);
    close();
}

void FGameOver::Form_Unload() {
    tmrScore.SetEnabled(false);
    if (goMainForm->UserTag().empty()) goMainForm->SetUserTag("NO");
}

void FGameOver::done(int result) {
    Form_Unload();
    QDialog::done(result);
}

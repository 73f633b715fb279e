#include "users/f_user_stats.h"

#include <QLabel>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"

using namespace modGlobal;
using platform::TwipsRect;

namespace {

constexpr int kFormWidth = 4815;
constexpr int kFormHeight = 2745;
constexpr int kLabelHeight = 240;

struct LabelDesign {
    int left, top, width;
    const char* caption;
    bool bold;
};

constexpr std::array<LabelDesign, 6> kUserStatsLabels = {{
    {240, 120, 2775, "Your statistics as of today are...", false},
    {240, 600, 2775, "Total Winnings...", true},
    {240, 840, 3255, "Total Games Played...", true},
    {240, 1080, 3255, "Average Winnings...", true},
    {240, 1560, 4335, "At any time you can reset your Total Winnings and  ", false},
    {240, 1800, 4335, "&& Total Games Played to ZERO and start over.", false},
}};
constexpr std::array<int, 3> kStatsTops = {600, 840, 1080};

}  // namespace

FUserStats::FUserStats(QWidget* parent)
    : platform::ArtDialog(parent, QStringLiteral("user_stats"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("User's Statitics..."));

    cmdUserStats[0] = new QPushButton(QStringLiteral("&Reset"), this);
    cmdUserStats[0]->setGeometry(TwipsRect(960, 2205, 1335, 375));
    cmdUserStats[1] = new QPushButton(QStringLiteral("&Close"), this);
    cmdUserStats[1]->setGeometry(TwipsRect(2280, 2205, 1335, 375));
    cmdUserStats[1]->setDefault(true);
    for (int index = 0; index < 2; ++index)
        connect(cmdUserStats[index], &QPushButton::clicked, this, [this, index] { cmdUserStats_Click(index); });
    platform::SetCancelButton(*this, cmdUserStats[1]);

    for (std::size_t i = 0; i < lblUserStats.size(); ++i) {
        const LabelDesign& design = kUserStatsLabels[i];
        lblUserStats[i] = new QLabel(QString::fromUtf8(design.caption), this);
        lblUserStats[i]->setGeometry(TwipsRect(design.left, design.top, design.width, kLabelHeight));
        QFont font = lblUserStats[i]->font();
        font.setBold(design.bold);
        lblUserStats[i]->setFont(font);
        // The design's captions double an ampersand that stands for itself;
        // with a buddy the label reads them that way.
        lblUserStats[i]->setBuddy(cmdUserStats[0]);
    }
    for (std::size_t i = 0; i < lblStats.size(); ++i) {
        lblStats[i] = new QLabel(this);
        lblStats[i]->setGeometry(TwipsRect(2880, kStatsTops[i], 1455, kLabelHeight));
    }
    Form_Load();
}

void FUserStats::Form_Load() {
    CenterForm(*this);
    setWindowTitle(QString::fromStdString(platform::Trim(gsUserName) + "'s Statistics..."));
    ShowTotals();
}

void FUserStats::ShowTotals() {
    lblStats[0]->setText(QString::fromStdString("$" + std::to_string(glWinnings)));
    lblStats[1]->setText(QString::number(giNumGames));
    if (giNumGames < 1) {
        lblStats[2]->setText(QStringLiteral("$0"));
        return;
    }
    // A whole-number division, cut towards zero; beyond 16 bits it overflows.
    const std::int16_t average = platform::CInt(static_cast<double>(glWinnings / giNumGames));
    lblStats[2]->setText(QString::fromStdString("$" + std::to_string(average)));
}

void FUserStats::cmdUserStats_Click(int index) {
    if (index == 1) {
        close();
        return;
    }
    if (platform::MsgBox("Are you sure that you wish to reset your totals?", platform::kQuestion | platform::kYesNo,
                         "The Game of Dovrin") != platform::kAnswerYes)
        return;
    glWinnings = 0;
    giNumGames = 0;
    ShowTotals();
}

#include "table/f_hand_over.h"

#include <QLabel>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"
#include "sound/mod_sound_lib.h"
#include "table/labels.h"

using platform::TwipsRect;
using table::SetTextColour;
using table::ShowName;

namespace {

constexpr int kFormWidth = 4935;
constexpr int kFormHeight = 2280;
constexpr std::array<int, 4> kColumnLefts = {120, 1320, 2520, 3720};
constexpr int kColumnWidth = 1095;
constexpr int kFirstRowTop = 855;
constexpr int kRowStep = 220;
const QColor kLeaderColour(0, 0, 255);

const std::vector<std::string>& ScoreArray(int column) {
    static const std::array<const std::vector<std::string>*, 4> arrays = {
        &modGlobal::gaScoresOne, &modGlobal::gaScoresTwo, &modGlobal::gaScoresThree,
        &modGlobal::gaScoresUser};
    return *arrays[column];
}

}  // namespace

FHandOver::FHandOver(QWidget* parent)
    : platform::ArtDialog(parent, QStringLiteral("hand_over"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Hand Over - Current Standings"));

    lblWinner = new QLabel(this);
    lblWinner->setGeometry(TwipsRect(1185, 175, 1470, 330));
    lblWinner->setAlignment(Qt::AlignCenter);
    lblTotPot = new QLabel(this);
    lblTotPot->setGeometry(TwipsRect(3945, 175, 705, 330));
    QFont bold = font();
    bold.setBold(true);
    lblTotPot->setFont(bold);
    lblTotPot->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    for (int column = 0; column < 4; ++column) {
        lblPlayer[column] = new QLabel(this);
        lblPlayer[column]->setGeometry(TwipsRect(kColumnLefts[column], 600, kColumnWidth, 195));
        lblPlayer[column]->setAlignment(Qt::AlignCenter);
        ScoreColumns()[column]->push_back(NewScoreLabel(column, kFirstRowTop));
    }

    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setGeometry(TwipsRect(1800, 1780, 1215, 375));
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::close);

    tmrScore.SetInterval(500);
    connect(&tmrScore, &platform::PlatformTimer::Timer, this, &FHandOver::tmrScore_Timer);
    Form_Load();
}

std::array<std::vector<QLabel*>*, 4> FHandOver::ScoreColumns() {
    return {&lblScoreOne, &lblScoreTwo, &lblScoreThree, &lblScoreUser};
}

QLabel* FHandOver::NewScoreLabel(int column, int top) {
    auto* label = new QLabel(this);
    label->setGeometry(TwipsRect(kColumnLefts[column], top, kColumnWidth, 240));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

void FHandOver::Form_Load() {
    modGlobal::CenterForm(*this);
    const double pointSize = font().pointSizeF();
    ShowName(*lblWinner, modGlobal::gsWinnerName, pointSize, true);
    lblTotPot->setText(QString::fromStdString(modGlobal::gsPotWon));
    const int leader = GetHighScore();

    const std::array<const std::string*, 4> names = {&modGlobal::gsOpponent1, &modGlobal::gsOpponent2,
                                                     &modGlobal::gsOpponent3, &modGlobal::gsUserName};
    for (int column = 0; column < 4; ++column) ShowName(*lblPlayer[column], *names[column], pointSize, false);

    const int lastRow = static_cast<int>(modGlobal::gaScoresOne.size()) - 1;
    for (int column = 0; column < 4; ++column) {
        std::vector<QLabel*>& rows = *ScoreColumns()[column];
        const std::vector<std::string>& scores = ScoreArray(column);
        for (int row = 0; row <= lastRow; ++row) {
            if (row > 0) rows.push_back(NewScoreLabel(column, kFirstRowTop + row * kRowStep));
            rows[row]->setText(QString::fromStdString(scores[row]));
            QFont crossed = rows[row]->font();
            crossed.setStrikeOut(row != lastRow);
            rows[row]->setFont(crossed);
            if (column == leader) SetTextColour(*rows[row], kLeaderColour);
        }
    }
    SetTextColour(*lblPlayer[leader], kLeaderColour);
}

std::int16_t FHandOver::GetHighScore() const {
    std::int16_t best = 0;
    std::int16_t bestIndex = 0;
    if (modGlobal::gaScoresOne.empty()) return bestIndex;
    const std::size_t last = modGlobal::gaScoresOne.size() - 1;
    for (int k = 0; k < 4; ++k) {
        const std::int16_t value = platform::CInt(platform::Val(ScoreArray(k)[last]));
        if (value >= best) {
            best = value;
            bestIndex = static_cast<std::int16_t>(k);
        }
    }
    return bestIndex;
}

void FHandOver::tmrScore_Timer() {
    if (mbSoundPlayed) return;
    modSoundLib::PlayEffect(modGlobal::gsUserName == modGlobal::gsWinnerName ? "USERWON" : "OTHWON");
    mbSoundPlayed = true;
}

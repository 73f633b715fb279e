#include "table/f_top_ten.h"

#include "link/main_form_link.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"
#include "sound/mod_sound_lib.h"
#include "storage/data_procedure.h"
#include "table/labels.h"

using platform::TwipsRect;
using platform::TwipsToPixels;
using table::SetTextColour;

namespace {

constexpr int kFormWidth = 4980;
constexpr int kFormHeight = 4395;
constexpr int kFirstRowTop = 120;
constexpr int kRowStep = 360;
constexpr int kRowHeight = 285;
constexpr int kButtonTop = 3855;
constexpr std::int16_t kOpenedFromMenu = 99;
constexpr double kDesignPointSize = 8;  // the form's text, which a name keeps when it fits

const QColor kDarkBlue(0, 0, 128);
const QColor kPurple(128, 0, 128);
const QColor kNewRowBlue(0, 0, 255);

}  // namespace

FTopTen::FTopTen(QWidget* parent)
    : platform::ArtDialog(parent, QStringLiteral("top_ten"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Lantern! Dovrin - Top Ten List"));

    const auto newLabel = [this](int left, int width, int row, const QColor& colour, Qt::Alignment alignment) {
        auto* label = new QLabel(this);
        label->setGeometry(TwipsRect(left, kFirstRowTop + row * kRowStep, width, kRowHeight));
        QPalette palette = label->palette();
        palette.setColor(QPalette::Window, Qt::white);
        label->setPalette(palette);
        label->setAutoFillBackground(true);
        SetTextColour(*label, colour);
        label->setAlignment(alignment | Qt::AlignVCenter);
        label->setIndent(TwipsToPixels(60));
        return label;
    };
    for (int row = 0; row < 10; ++row) {
        lblNo[row] = newLabel(120, 615, row, kDarkBlue, Qt::AlignHCenter);
        lblNo[row]->setText(QString::number(row + 1));
        lblPlayer[row] = newLabel(720, 1800, row, kPurple, Qt::AlignLeft);
        lblScore[row] = newLabel(2520, 855, row, kDarkBlue, Qt::AlignRight);
        lblSkilllevel[row] = newLabel(3360, 435, row, kPurple, Qt::AlignHCenter);
        lblDate[row] = newLabel(3795, 1065, row, kDarkBlue, Qt::AlignHCenter);
    }

    const std::array<const char*, 2> captions = {"&OK", "&Clear"};
    for (int index = 0; index < 2; ++index) {
        cmdTopTen[index] = new QPushButton(QString::fromUtf8(captions[index]), this);
        cmdTopTen[index]->setGeometry(TwipsRect(1245 + index * 1365, kButtonTop, 1215, 375));
        connect(cmdTopTen[index], &QPushButton::clicked, this, [this, index] { cmdTopTen_Click(index); });
    }
    cmdTopTen[0]->setDefault(true);

    tmrTopTen.SetInterval(500);
    connect(&tmrTopTen, &platform::PlatformTimer::Timer, this, &FTopTen::tmrTopTen_Timer);
    Form_Load();
}

void FTopTen::Form_Load() {
    modGlobal::CenterForm(*this);
    TopTenLoad();
    if (!modGlobal::gbDbFailed) ShowTopTenRows();
    const int row = modGlobal::giTopTenRow;
    if (row >= 0 && row < 10) {
        // The score of the new row keeps its colour: only name, level and date are marked.
        for (QLabel* label : {lblPlayer[row], lblSkilllevel[row], lblDate[row]}) SetTextColour(*label, kNewRowBlue);
    }
}

bool FTopTen::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) Form_Activate();
    return QDialog::event(event);
}

void FTopTen::Form_Activate() {
    if (modGlobal::gbDbFailed) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

// The unload: a celebration that has stood behind the list ends here.
void FTopTen::done(int result) {
    tmrTopTen.SetEnabled(false);
    using modGlobal::goMainForm;
    if (goMainForm && goMainForm->HighScoreVisible()) goMainForm->HideHighScore();
    if (goMainForm) goMainForm->StopFanfareTune();
    modGlobal::SetMenusEnabled(true);
    QDialog::done(result);
}

void FTopTen::TopTenLoad() { storage::LoadTopTenRows(maTopTen, "SELECT * FROM topten ORDER BY score DESC, date"); }

void FTopTen::ShowTopTenRows() {
    for (int row = 0; row < 10; ++row) {
        const storage::TopTenEntry& entry = maTopTen[row];
        if (entry.score == 0) {
            BlankRow(row);
        } else {
            table::ShowName(*lblPlayer[row], entry.name, kDesignPointSize, false);
            lblScore[row]->setText(QString::number(entry.score));
            lblSkilllevel[row]->setText(QString::fromStdString(entry.skilllevel.substr(0, 1)));
            lblDate[row]->setText(QString::fromStdString(platform::FormatDate(entry.date, "mmm dd")));
        }
    }
}

void FTopTen::ClearTopTenRows() {
    for (int row = 0; row < 10; ++row) BlankRow(row);
}

void FTopTen::BlankRow(int row) {
    for (QLabel* label : {lblPlayer[row], lblScore[row], lblSkilllevel[row], lblDate[row]}) label->clear();
}

void FTopTen::ClearTopTen() {
    storage::DataErrorHandler on("Clear Top Ten");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    on([&] { db->Execute("DELETE * FROM topten"); });
}

void FTopTen::cmdTopTen_Click(int index) {
    if (index == 0) {
        close();
        return;
    }
    const int answer = platform::MsgBox(
        std::string("Are you sure that you want") + platform::kCrLf + "to clear the top ten list?",
        platform::kQuestion + platform::kYesNo, "Top Ten List");
    if (answer != platform::kAnswerYes) return;
    ClearTopTen();
    if (modGlobal::gbDbFailed) {
        close();
        return;
    }
    ClearTopTenRows();
}

void FTopTen::tmrTopTen_Timer() {
    ++miTimerTicks;
    if (miTimerTicks == 1 && modGlobal::giTopTenRow == kOpenedFromMenu) modSoundLib::PlayEffect("USERWON");
}

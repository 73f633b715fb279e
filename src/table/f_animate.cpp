#include "table/f_animate.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "engine/mod_global.h"
#include "platform/display/art_dialog.h"
#include "platform/runtime/runtime.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"

using platform::TwipsRect;
using platform::TwipsToPixels;

namespace {

constexpr int kSlowest = 80;
constexpr int kFastest = 0;
constexpr int kResetValue = 40;
constexpr std::int32_t kErrInvalidPropertyValue = 380;

}  // namespace

FAnimate::FAnimate(QWidget* parent) : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Animation Speed"));
    platform::UseDesignFont(*this);
    setFixedSize(TwipsToPixels(4500), TwipsToPixels(2280));

    struct LabelDesign {
        const char* caption;
        QRect place;
    };
    const std::array<LabelDesign, 4> labels = {{
        {"Use the scollbar below to adjust the speed your opponents cards are played.",
         TwipsRect(120, 120, 4335, 495)},
        {"Slowest", TwipsRect(120, 840, 855, 255)},
        {"Fastest", TwipsRect(3600, 840, 735, 255)},
        {"Normal", TwipsRect(1920, 840, 855, 255)},
    }};
    for (std::size_t i = 0; i < labels.size(); ++i) {
        lblAnim[i] = new QLabel(QString::fromUtf8(labels[i].caption), this);
        lblAnim[i]->setGeometry(labels[i].place);
    }
    lblAnim[0]->setWordWrap(true);
    lblAnim[2]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblAnim[3]->setAlignment(Qt::AlignCenter);

    // The slowest value stands at the left end and the value falls toward
    // the right. Laid out right to left, the bar moves its thumb the way the
    // user points with its arrows, troughs, thumb, arrow keys and wheel; Home
    // and End are turned round to go to the left and the right end.
    scrAnim = new QScrollBar(Qt::Horizontal, this);
    scrAnim->setGeometry(TwipsRect(120, 1200, 4215, 375));
    scrAnim->setLayoutDirection(Qt::RightToLeft);
    scrAnim->setInvertedControls(false);
    scrAnim->setRange(kFastest, kSlowest);
    connect(scrAnim, &QAbstractSlider::actionTriggered, this, [this](int action) {
        if (action == QAbstractSlider::SliderToMinimum) scrAnim->setSliderPosition(kSlowest);
        if (action == QAbstractSlider::SliderToMaximum) scrAnim->setSliderPosition(kFastest);
    });
    scrAnim->setSingleStep(5);
    scrAnim->setPageStep(5);
    scrAnim->setValue(kResetValue);

    const std::array<const char*, 2> captions = {"&Reset", "&OK"};
    for (int i = 0; i < 2; ++i) {
        cmdAnim[i] = new QPushButton(QString::fromUtf8(captions[i]), this);
        cmdAnim[i]->setGeometry(TwipsRect(720 + i * 1440, 1800, 1335, 375));
        connect(cmdAnim[i], &QPushButton::clicked, this, [this, i] { cmdAnim_Click(i); });
    }
    platform::SetCancelButton(*this, nullptr);  // there is no cancel
    Form_Load();
}

void FAnimate::Form_Load() {
    modGlobal::CenterForm(*this);
    const std::int32_t value = modGlobal::glAnimSpeed / 1000;
    if (value < kFastest || value > kSlowest)
        throw platform::RuntimeError(kErrInvalidPropertyValue, "Invalid property value");
    scrAnim->setValue(value);
}

void FAnimate::cmdAnim_Click(int index) {
    if (index == 0) {
        scrAnim->setValue(kResetValue);
        return;
    }
    modGlobal::glAnimSpeed = scrAnim->value() * 1000;
    close();
}

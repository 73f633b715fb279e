#include "screens/info_form.h"

#include <QLabel>
#include <QPushButton>

#include "platform/display/art_dialog.h"
#include "platform/display/center_form.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"

namespace screens {

namespace {

constexpr int kBackgroundBitmap = 101;

}  // namespace

QLabel* PlaceLabel(QWidget& form, const LabelDesign& design) {
    auto* label = new QLabel(design.text, &form);
    label->setGeometry(platform::TwipsRect(design.place.x(), design.place.y(), design.place.width(),
                                           design.place.height()));
    label->setAlignment(design.alignment);
    QFont font = label->font();
    if (design.pointSize > 0) font.setPointSizeF(design.pointSize);
    font.setBold(design.bold);
    label->setFont(font);
    return label;
}

QPushButton* PlaceClosingButton(platform::ArtDialog& form, const QString& caption, QRect placeTwips) {
    auto* button = new QPushButton(caption, &form);
    button->setGeometry(platform::TwipsRect(placeTwips.x(), placeTwips.y(), placeTwips.width(), placeTwips.height()));
    button->setDefault(true);
    QObject::connect(button, &QPushButton::clicked, &form, &QDialog::close);
    return button;
}

void LoadWithBackground(platform::ArtDialog& form) {
    modGlobal::CenterForm(form);
    form.SetFormPicture(platform::LoadResPicture(kBackgroundBitmap, platform::vbResBitmap));
}

void ShowAsLink(QLabel& label) {
    QFont font = label.font();
    font.setUnderline(true);
    label.setFont(font);
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, QColor(0, 0, 0xC0));
    label.setPalette(palette);
}

}  // namespace screens

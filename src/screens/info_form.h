// What the information forms share: labels and buttons placed from a design
// table in twips, and the load that centres a form and gives it the
// background picture, bitmap 101.
#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QPushButton;
class QWidget;

namespace platform {
class ArtDialog;
}

namespace screens {

struct LabelDesign {
    QString text;
    QRect place;  // twips
    Qt::Alignment alignment = Qt::AlignHCenter | Qt::AlignVCenter;
    double pointSize = 0;  // 0: the form's design font
    bool bold = false;
};

QLabel* PlaceLabel(QWidget& form, const LabelDesign& design);

// A push button that unloads the form; the default button of its form.
QPushButton* PlaceClosingButton(platform::ArtDialog& form, const QString& caption, QRect placeTwips);

// The load of a form with the shared background: centred, then its picture.
void LoadWithBackground(platform::ArtDialog& form);

// A label that reads as an address to click: blue and underlined.
void ShowAsLink(QLabel& label);

}  // namespace screens

#include "screens/f_contact.h"

#include "screens/info_form.h"
#include "screens/maker.h"

using screens::LabelDesign;

namespace {

constexpr int kFormWidth = 5100;
constexpr int kFormHeight = 3720;

LabelDesign Line(const QString& text, int top, bool bold = false) {
    return {text, QRect(150, top, 4800, 240), Qt::AlignCenter, 0, bold};
}

}  // namespace

FContact::FContact(QWidget* parent) : platform::ArtDialog(parent, kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Contacting Oakmere Software"));
    const auto& address = screens::kMakerPostalAddress;
    // "your" stands at the end of the first line and the start of the second,
    // as the form has always had it.
    const std::array<LabelDesign, 8> labels = {{
        Line(QStringLiteral("You can always contact us.  We welcome your "), 210),
        Line(QStringLiteral("your comments and suggestions."), 450),
        Line(QString::fromUtf8(screens::kMakerName), 900, true),
        Line(QString::fromUtf8(address[0]), 1170),
        Line(QString::fromUtf8(address[1]), 1410),
        Line(QString::fromUtf8(address[2]), 1650),
        Line(QString::fromUtf8(screens::kMakerWebAddress), 2070),
        Line(QString::fromUtf8(screens::kCommentsMailAddress), 2340, true),
    }};
    for (std::size_t index = 0; index < labels.size(); ++index)
        lblContact[index] = screens::PlaceLabel(*this, labels[index]);
    cmdContact = screens::PlaceClosingButton(*this, QStringLiteral("&OK"), QRect(1868, 2910, 1365, 405));
    Form_Load();
}

void FContact::Form_Load() { screens::LoadWithBackground(*this); }

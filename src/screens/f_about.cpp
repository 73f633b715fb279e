#include "screens/f_about.h"

#include "platform/display/center_form.h"
#include "screens/info_form.h"
#include "screens/maker.h"

using screens::LabelDesign;

namespace {

constexpr int kFormWidth = 5625;
constexpr int kFormHeight = 4050;
constexpr int kCopyrightYear = 2026;

LabelDesign Centred(const QString& text, int top, int height, double pointSize = 0, bool bold = false) {
    return {text, QRect(600, top, 4425, height), Qt::AlignCenter, pointSize, bold};
}

}  // namespace

FAbout::FAbout(QWidget* parent) : platform::ArtDialog(parent, QStringLiteral("about"), kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("About Lantern! Dovrin..."));
    const QString maker = QString::fromUtf8(screens::kMakerName);
    const std::array<LabelDesign, 7> labels = {{
        Centred(QStringLiteral("LANTERN! DOVRIN"), 330, 480, 18, true),
        Centred(QStringLiteral("Version 3.0"), 810, 240),
        Centred(QStringLiteral("was written by"), 1200, 240),
        Centred(QString::fromUtf8(screens::kAuthorName), 1440, 300, 10, true),
        Centred(QStringLiteral("for"), 1770, 240),
        Centred(maker, 2010, 300, 10, true),
        Centred(QStringLiteral("Copyright \u00A9 %1 %2").arg(kCopyrightYear).arg(maker), 2550, 240),
    }};
    for (std::size_t index = 0; index < labels.size(); ++index)
        lblAbout[index] = screens::PlaceLabel(*this, labels[index]);
    cmdAbout = screens::PlaceClosingButton(*this, QStringLiteral("&OK"), QRect(2130, 3345, 1365, 405));
    Form_Load();
}

void FAbout::Form_Load() { modGlobal::CenterForm(*this); }

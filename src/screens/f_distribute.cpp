#include "screens/f_distribute.h"

#include <QLabel>

#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "screens/info_form.h"
#include "screens/maker.h"

namespace {

constexpr int kFormWidth = 5430;
constexpr int kFormHeight = 4350;
const QSize kNoticeSize(330, 200);

}  // namespace

FDistribute::FDistribute(QWidget* parent) : platform::ArtDialog(parent, kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Distributing Lantern! Dovrin"));
    Image1 = new QLabel(this);
    Image1->setGeometry(QRect(QPoint(16, 12), kNoticeSize));
    Image1->setPixmap(platform::LoadArtPicture(QStringLiteral("distribute_notice"), kNoticeSize));
    lblDistribute4 = screens::PlaceLabel(
        *this, {QString::fromUtf8(screens::kMakerWebAddress), QRect(150, 3300, 5130, 240)});
    cmdDistribute = screens::PlaceClosingButton(*this, QStringLiteral("&Close"), QRect(2033, 3720, 1365, 405));
    Form_Load();
}

void FDistribute::Form_Load() { screens::LoadWithBackground(*this); }

#include "platform/display/art_dialog.h"

#include <QPainter>

#include "platform/display/pictures.h"
#include "platform/display/twips.h"

namespace platform {

ArtDialog::ArtDialog(QWidget* parent, const QString& pictureName, int widthTwips, int heightTwips)
    : ArtDialog(parent, widthTwips, heightTwips) {
    picture_ = LoadArtPicture(pictureName, size());
}

ArtDialog::ArtDialog(QWidget* parent, int widthTwips, int heightTwips) : QDialog(parent) {
    UseDesignFont(*this);
    setFixedSize(TwipsToPixels(widthTwips), TwipsToPixels(heightTwips));
}

void ArtDialog::SetFormPicture(const QPixmap& picture) {
    picture_ = picture;
    update();
}

void ArtDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
}

}  // namespace platform

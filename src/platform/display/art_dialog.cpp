#include "platform/display/art_dialog.h"

#include <QPainter>

#include "platform/display/pictures.h"
#include "platform/display/twips.h"

namespace platform {

ArtDialog::ArtDialog(QWidget* parent, const QString& pictureName, int widthTwips, int heightTwips)
    : QDialog(parent) {
    const QSize size(TwipsToPixels(widthTwips), TwipsToPixels(heightTwips));
    picture_ = LoadArtPicture(pictureName, size);
    UseDesignFont(*this);
    setFixedSize(size);
}

void ArtDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
}

}  // namespace platform

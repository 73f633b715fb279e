#include "platform/display/center_form.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "platform/display/twips.h"

namespace modGlobal {

void CenterForm(QWidget& form) {
    using platform::PixelsToTwips;
    using platform::TwipsToPixels;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QSize outer = form.frameGeometry().size();
    const int leftTwips = (PixelsToTwips(screen.width()) - PixelsToTwips(outer.width())) / 2;
    const int topTwips = (PixelsToTwips(screen.height()) - PixelsToTwips(outer.height())) / 2;
    form.move(screen.x() + TwipsToPixels(leftTwips), screen.y() + TwipsToPixels(topTwips));
}

}  // namespace modGlobal

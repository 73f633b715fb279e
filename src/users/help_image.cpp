#include "users/help_image.h"

#include <QMouseEvent>

#include "engine/mod_global.h"
#include "platform/display/pictures.h"
#include "sound/mod_sound_lib.h"
#include "users/f_help.h"

namespace {

constexpr int kImageSize = 28;

}  // namespace

HelpImage::HelpImage(QWidget* parent) : QLabel(parent) {
    setPixmap(platform::LoadArtPicture(QStringLiteral("help"), QSize(kImageSize, kImageSize)));
    setCursor(Qt::PointingHandCursor);
}

void HelpImage::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
}

namespace users {

void ShowHelpFor(const char* formName, QWidget* parent) {
    modSoundLib::PlayEffect("BUTTONCLICK");
    modGlobal::gsHelpFor = formName;
    FHelp help(parent);
    help.exec();
}

}  // namespace users

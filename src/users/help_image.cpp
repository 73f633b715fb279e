#include "users/help_image.h"

#include "engine/mod_global.h"
#include "platform/display/pictures.h"
#include "sound/mod_sound_lib.h"
#include "users/f_help.h"

namespace {

constexpr int kImageSize = 28;

}  // namespace

HelpImage::HelpImage(QWidget* parent) : platform::ClickLabel(parent) {
    setPixmap(platform::LoadArtPicture(QStringLiteral("help"), QSize(kImageSize, kImageSize)));
    setCursor(Qt::PointingHandCursor);
}

namespace users {

void ShowHelpFor(const char* formName, QWidget* parent) {
    modSoundLib::PlayEffect("BUTTONCLICK");
    modGlobal::gsHelpFor = formName;
    FHelp help(parent);
    help.exec();
}

}  // namespace users

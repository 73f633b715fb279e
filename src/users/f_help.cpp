#include "users/f_help.h"

#include <QPainter>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"
#include "sound/mod_sound_lib.h"

using platform::TwipsRect;
using platform::TwipsToPixels;

namespace {

// The form as designed is the narrow variant without its picture; each
// variant takes its picture's height.
constexpr int kDesignWidth = 4065;
constexpr int kDesignHeight = 2970;
const QColor kPaper(0xf6, 0xec, 0xd2);

struct HelpVariant {
    const char* helpFor;
    // The design's table calls these twips the form's height; read as its
    // width they are the pictures' own (271 and 401 pixels), the one
    // reading under which the pictures fit.
    int width;
    const char* caption;
    bool okVisible;
    int picture;
};

constexpr HelpVariant kVariants[] = {
    {"FUserName", 4065, "Choosing a Player Name", true, 102},
    {"FUserEdit", 6015, "Add, Edit or Delete a Player Name", false, 103},
};

}  // namespace

FHelp::FHelp(QWidget* parent) : QDialog(parent), platform::ZoomFollower(Stage::Form) {
    setWindowTitle(QStringLiteral("Choosing a Player Name"));
    platform::UseDesignFont(*this);
    setFixedSize(TwipsToPixels(kDesignWidth), TwipsToPixels(kDesignHeight));
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setGeometry(TwipsRect(3040, 2140, 650, 360));
    cmdOK2 = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK2->setGeometry(TwipsRect(4400, 2140, 1200, 375));
    connect(cmdOK, &QPushButton::clicked, this, &FHelp::cmdOK_Click);
    connect(cmdOK2, &QPushButton::clicked, this, &FHelp::cmdOK_Click);
    Form_Load();
}

void FHelp::Form_Load() {
    for (const HelpVariant& variant : kVariants) {
        if (modGlobal::gsHelpFor != variant.helpFor) continue;
        picture_ = platform::LoadResPicture(variant.picture, platform::vbResBitmap);
        setFixedSize(TwipsToPixels(variant.width), picture_.deviceIndependentSize().toSize().height());
        setWindowTitle(QString::fromUtf8(variant.caption));
        cmdOK->setVisible(variant.okVisible);
    }
    modGlobal::CenterForm(*this);
}

void FHelp::cmdOK_Click() {
    modSoundLib::PlayEffect("BUTTONCLICK");
    close();
}

void FHelp::ZoomChanged() {
    picture_ = platform::RenderedAgain(picture_);
    update();
}

void FHelp::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), kPaper);
    painter.drawPixmap(0, 0, picture_);
}

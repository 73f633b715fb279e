#include "table/f_message.h"

#include <QLabel>
#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "platform/display/center_form.h"

using platform::TwipsRect;
using platform::TwipsToPixels;

namespace {

constexpr int kFormHeight = 1560;
constexpr int kLabelLeft = 780;

}  // namespace

FMessage::FMessage(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Lantern! Dovrin"));
    platform::UseDesignFont(*this);
    imgMessage = new QLabel(this);
    imgMessage->setGeometry(TwipsRect(180, 240, 480, 480));
    imgMessage->setPixmap(platform::LoadArtPicture(QStringLiteral("notice"), QSize(32, 32)));
    for (QLabel*& label : lblMessage) label = new QLabel(this);
    lblMessage[0]->setText(QStringLiteral("You cannot play this card! "));
    cmdMessage = new QPushButton(QStringLiteral("&OK"), this);
    cmdMessage->setDefault(true);
    connect(cmdMessage, &QPushButton::clicked, this, &FMessage::cmdMessage_Click);
    Form_Load();
}

void FMessage::Form_Load() {
    const std::string& key = modGlobal::gsNoticeKey;
    const bool wide = key == "NOCARD" || key == "WRONGCRD";
    const int formWidth = wide ? 3180 : 2820;
    setFixedSize(TwipsToPixels(formWidth), TwipsToPixels(kFormHeight));
    cmdMessage->setGeometry(TwipsRect(wide ? 960 : 720, 960, 1215, 375));
    for (int row = 0; row < 2; ++row)
        lblMessage[row]->setGeometry(
            TwipsRect(kLabelLeft, 240 + row * 240, formWidth - kLabelLeft - 60, 240));
    modGlobal::CenterForm(*this);

    auto setLines = [this](const char* first, const std::string& second) {
        lblMessage[0]->setText(QString::fromUtf8(first));
        lblMessage[1]->setText(QString::fromStdString(second));
    };
    if (key == "NOCARD")
        setLines("You do not have any cards", "to play, so pay the pot!");
    else if (key == "WRONGCRD")
        lblMessage[0]->setText(QStringLiteral("You cannot play this card!"));
    else if (key == "MUSTPLAY")
        setLines("You MUST play the", "Seven of Hearts!");
    else if (key == "CANPLAY1")
        setLines("You can play the", modGlobal::gsNoticeCard + "!");
    else if (key == "CANPLAY2")
        setLines("You have several", "cards you can play!");
}

void FMessage::cmdMessage_Click() { close(); }

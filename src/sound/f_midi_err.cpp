#include "sound/f_midi_err.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "platform/display/center_form.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"

using platform::TwipsRect;

FMidiErr::FMidiErr(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Midi Music Error"));
    platform::UseDesignFont(*this);
    setFixedSize(TwipsRect(0, 0, 5325, 2310).size());
    imgMidiErr = new QLabel(this);
    imgMidiErr->setGeometry(TwipsRect(240, 300, 1200, 1200));
    imgMidiErr->setPixmap(platform::LoadArtPicture(QStringLiteral("midi_err"), QSize(80, 80)));
    fraMidiErr = new QGroupBox(this);
    fraMidiErr->setGeometry(TwipsRect(1620, 120, 3465, 1440));
    lblMidiErr = new QLabel(fraMidiErr);
    lblMidiErr->setGeometry(TwipsRect(150, 210, 3165, 1110));
    lblMidiErr->setWordWrap(true);
    lblMidiErr->setText(QStringLiteral(
        "Dovrin will \"Turn Music Off\".  If situation changes you can \"Turn Music On\" by "
        "selecting this item in the Options Menu."));
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setGeometry(TwipsRect(2745, 1740, 1215, 375));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::close);
    Form_Load();
}

void FMidiErr::Form_Load() { modGlobal::CenterForm(*this); }

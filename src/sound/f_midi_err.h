// FMidiErr: tells the player that the music has been turned off because it
// couldn't be played. Shown modally by MusicFailed; its one button closes it.
#pragma once

#include <QDialog>

class QGroupBox;
class QLabel;
class QPushButton;

class FMidiErr : public QDialog {
    Q_OBJECT
public:
    explicit FMidiErr(QWidget* parent = nullptr);

    QGroupBox* fraMidiErr;
    QLabel* lblMidiErr;
    QLabel* imgMidiErr;
    QPushButton* cmdOK;

private:
    void Form_Load();
};

// FAbout: who wrote the game and for whom, over a picture of its own.
#pragma once

#include <array>

#include "platform/display/art_dialog.h"

class QLabel;
class QPushButton;

class FAbout : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FAbout(QWidget* parent = nullptr);

    std::array<QLabel*, 7> lblAbout{};
    QPushButton* cmdAbout = nullptr;

private:
    void Form_Load();
};

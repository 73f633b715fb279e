// FContact: where the maker can be reached.
#pragma once

#include <array>

#include "platform/display/art_dialog.h"

class QLabel;
class QPushButton;

class FContact : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FContact(QWidget* parent = nullptr);

    std::array<QLabel*, 8> lblContact{};
    QPushButton* cmdContact = nullptr;

private:
    void Form_Load();
};

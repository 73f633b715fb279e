// FDistribute: the notice on passing the game on, as a picture.
#pragma once

#include "platform/display/art_dialog.h"

class QLabel;
class QPushButton;

class FDistribute : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FDistribute(QWidget* parent = nullptr);

    QLabel* Image1 = nullptr;
    QLabel* lblDistribute4 = nullptr;  // the fourth of a control array whose others were removed
    QPushButton* cmdDistribute = nullptr;

private:
    void Form_Load();
};

// FCopyIcon: asks at start-up whether to put the game's launcher on the
// desktop, where none is; its tick stops the question for good.
#pragma once

#include <array>

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;

class FCopyIcon : public QDialog {
    Q_OBJECT
public:
    explicit FCopyIcon(QWidget* parent = nullptr);

    QLabel* imgThinker = nullptr;
    std::array<QLabel*, 4> lblCopyIcon{};
    QCheckBox* chkDontAsk = nullptr;
    std::array<QPushButton*, 2> cmdYesNo{};

    void cmdYesNo_Click(int index);
};

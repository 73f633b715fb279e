// FUserStats: the current user's totals, with a reset to zero. Works on the
// globals only. Shown modally; each opening builds a fresh form.
#pragma once

#include <array>

#include "platform/display/art_dialog.h"

class QLabel;
class QPushButton;

class FUserStats : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FUserStats(QWidget* parent = nullptr);

    std::array<QLabel*, 6> lblUserStats;
    std::array<QLabel*, 3> lblStats;
    std::array<QPushButton*, 2> cmdUserStats;

private:
    void Form_Load();
    void ShowTotals();
    void cmdUserStats_Click(int index);
};

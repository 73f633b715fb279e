// FAnimate: the speed of the computers' card flights. The one form that
// opens without modality; it deletes itself when closed.
#pragma once

#include <array>

#include <QDialog>

class QLabel;
class QPushButton;
class QScrollBar;

class FAnimate : public QDialog {
    Q_OBJECT
public:
    // Throws platform::RuntimeError 380 when modGlobal::glAnimSpeed lies
    // outside the scroll bar's range, as the bar refuses such a value.
    explicit FAnimate(QWidget* parent = nullptr);

    std::array<QLabel*, 4> lblAnim;
    QScrollBar* scrAnim;
    std::array<QPushButton*, 2> cmdAnim;

private:
    void Form_Load();
    void cmdAnim_Click(int index);
};

// FMessage: the notice that answers a wrong move of the human, chosen by
// modGlobal::gsNoticeKey. Shown modally; each notice builds a fresh form.
#pragma once

#include <array>

#include <QDialog>

class QLabel;
class QPushButton;

class FMessage : public QDialog {
    Q_OBJECT
public:
    explicit FMessage(QWidget* parent = nullptr);

    QPushButton* cmdMessage;
    std::array<QLabel*, 2> lblMessage;
    QLabel* imgMessage;

private:
    void Form_Load();
    void cmdMessage_Click();
};

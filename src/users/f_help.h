// FHelp: explains one of the two user forms, chosen by modGlobal::gsHelpFor;
// the explanation is the form's picture. Shown modally; each opening builds a
// fresh form.
#pragma once

#include <QDialog>
#include <QPixmap>

#include "platform/display/zoom.h"

class QPushButton;

class FHelp : public QDialog, public platform::ZoomFollower {
    Q_OBJECT
public:
    explicit FHelp(QWidget* parent = nullptr);

    QPushButton* cmdOK;
    QPushButton* cmdOK2;

    // The picture drawn again at the new pixel ratio.
    void ZoomChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Form_Load();
    void cmdOK_Click();  // cmdOK2 answers its click the same way

    QPixmap picture_;
};

// imgHelp of the user forms: a picture that opens FHelp on a click.
#pragma once

#include <QLabel>

class HelpImage : public QLabel {
    Q_OBJECT
public:
    explicit HelpImage(QWidget* parent);

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

namespace users {

// imgHelp_Click of the form named formName: the click sound, then FHelp
// for that form, modally.
void ShowHelpFor(const char* formName, QWidget* parent);

}  // namespace users

// The program's small forms: a fixed size given in twips, the design font,
// and a picture as the background: one of the program's pictures drawn to
// the form's size, or a form picture set at load, which stands at its own
// size from the top left as the old forms showed theirs.
#pragma once

#include <QDialog>
#include <QPixmap>

#include "platform/display/zoom.h"

class QAbstractButton;

namespace platform {

// Escape, once the form's controls have let it pass, presses the form's
// cancel button; a form given none (nullptr) stays open on it, where a
// dialog would otherwise reject itself without a word from its buttons.
void SetCancelButton(QDialog& form, QAbstractButton* cancel);

class ArtDialog : public QDialog, public ZoomFollower {
public:
    ArtDialog(QWidget* parent, const QString& pictureName, int widthTwips, int heightTwips);
    ArtDialog(QWidget* parent, int widthTwips, int heightTwips);

    void SetFormPicture(const QPixmap& picture);

    // The picture drawn again at the new pixel ratio.
    void ZoomChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
};

}  // namespace platform

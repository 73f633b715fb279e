#include "platform/display/art_dialog.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include "platform/display/pictures.h"
#include "platform/display/twips.h"

namespace platform {

namespace {

// Watches the form itself, so a key reaches it only when the focused control
// has passed it on: an open list's Escape closes the list alone.
class CancelKey : public QObject {
public:
    CancelKey(QDialog& form, QAbstractButton* cancel) : QObject(&form), cancel_(cancel) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel))
            return false;
        if (cancel_) cancel_->click();
        return true;
    }

private:
    QPointer<QAbstractButton> cancel_;
};

}  // namespace

void SetCancelButton(QDialog& form, QAbstractButton* cancel) { form.installEventFilter(new CancelKey(form, cancel)); }

ArtDialog::ArtDialog(QWidget* parent, const QString& pictureName, int widthTwips, int heightTwips)
    : ArtDialog(parent, widthTwips, heightTwips) {
    picture_ = LoadArtPicture(pictureName, size());
}

ArtDialog::ArtDialog(QWidget* parent, int widthTwips, int heightTwips)
    : QDialog(parent), ZoomFollower(Stage::Form) {
    UseDesignFont(*this);
    setFixedSize(TwipsToPixels(widthTwips), TwipsToPixels(heightTwips));
}

void ArtDialog::SetFormPicture(const QPixmap& picture) {
    picture_ = picture;
    update();
}

void ArtDialog::ZoomChanged() {
    picture_ = RenderedAgain(picture_);
    update();
}

void ArtDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
}

}  // namespace platform

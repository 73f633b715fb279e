// The program's small forms: a fixed size given in twips, the design font,
// and one of the program's pictures as the background.
#pragma once

#include <QDialog>
#include <QPixmap>

namespace platform {

class ArtDialog : public QDialog {
public:
    ArtDialog(QWidget* parent, const QString& pictureName, int widthTwips, int heightTwips);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
};

}  // namespace platform

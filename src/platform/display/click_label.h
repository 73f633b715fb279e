// A label that answers a click of the left button, like the old platform's
// labels and images with a Click handler.
#pragma once

#include <QLabel>

namespace platform {

class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace platform

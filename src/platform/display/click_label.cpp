#include "platform/display/click_label.h"

#include <QMouseEvent>

namespace platform {

// A press that ends outside the label is no click.
void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
}

}  // namespace platform

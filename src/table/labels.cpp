#include "table/labels.h"

#include <algorithm>

#include <QLabel>

#include "platform/display/name_font.h"

namespace table {

void SetTextColour(QLabel& label, const QColor& colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, colour);
    label.setPalette(palette);
}

void ShowName(QLabel& label, const std::string& name, double pointSize, bool bold) {
    label.setText(QString::fromStdString(name));
    const int room = label.contentsRect().width() - std::max(label.indent(), 0);
    label.setFont(platform::NameFontToFit(label.text(), room, pointSize, bold));
}

}  // namespace table

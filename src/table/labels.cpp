#include "table/labels.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QLabel>

#include "platform/display/name_font.h"

namespace table {

void SetTextColour(QLabel& label, const QColor& colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, colour);
    label.setPalette(palette);
}

namespace {

// The height of a line's letters' middle below the top of its line.
double LettersMiddle(const QFont& font) {
    const QFontMetricsF metrics(font);
    return metrics.ascent() - metrics.capHeight() / 2;
}

}  // namespace

void ShowName(QLabel& label, const std::string& name, double pointSize, bool bold) {
    label.setText(QString::fromStdString(name));
    const int room = label.contentsRect().width() - std::max(label.indent(), 0);
    const QFont fitted = platform::NameFontToFit(label.text(), room, pointSize, bold);
    label.setFont(fitted);
    // A name hung from the label's top would rise as it shrinks (on a name
    // plate, into the plate's rim): the room above it keeps its letters'
    // middle where a name at the full size has it.
    if ((label.alignment() & Qt::AlignVertical_Mask) == Qt::AlignTop) {
        QMargins margins = label.contentsMargins();
        margins.setTop(qRound(LettersMiddle(platform::NameFont(pointSize, bold)) - LettersMiddle(fitted)));
        label.setContentsMargins(margins);
    }
}

}  // namespace table

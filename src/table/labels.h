// What the table's forms do to their labels: the colour of the text, and a
// player's name fitted to the label's width.
#pragma once

#include <string>

class QColor;
class QLabel;

namespace table {

void SetTextColour(QLabel& label, const QColor& colour);

// Shows a player's name in the name face, at the largest size up to
// pointSize at which the whole name fits the label's width. In a label whose
// text hangs from its top, a smaller name keeps the height of the full size's
// middle: such a label's top margin is the name's.
void ShowName(QLabel& label, const std::string& name, double pointSize, bool bold);

}  // namespace table

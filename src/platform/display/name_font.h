// The face in which the program shows a player's name: on the table's name
// plates, in the standings of a hand's and a game's end, in the user form's
// entry box. The design's fonts were narrower than a desktop's sans, so a
// name gets a condensed face, and wherever it is shown at a fixed width it
// takes the largest size up to the design's at which the whole name fits.
#pragma once

#include <QFont>
#include <QString>

namespace platform {

QFont NameFont(double pointSize, bool bold = false);

// The name font at the largest size, in steps of half a point from
// pointSize down, at which text is no wider than widthPixels.
QFont NameFontToFit(const QString& text, int widthPixels, double pointSize, bool bold = false);

// The widest name the user form accepts in this font: twelve of its widest
// printable character.
QString WidestName(const QFont& font);

}  // namespace platform

// The card library: the 52 faces of an SVG deck, each rendered into a cache
// at its first drawing, at the pixel ratio of the surface it is drawn on
// (again after a change of zoom), and drawn at 71 x 96 logical pixels.
#pragma once

#include <cstdint>

#include <QString>

namespace platform {

class FormSurface;

// Loads the deck. Gives the card size in pixels;
// answers 0 when the deck can't be loaded, non-zero otherwise.
int cdtInit(std::int32_t& width, std::int32_t& height);

// Draws the face of card (0..51) with its top left at pixel x, y. Mode 0
// (a face) is the only mode; colour is not used by faces. Answers non-zero
// when something was drawn.
int cdtDraw(FormSurface& hdc, int x, int y, int card, int mode, std::int32_t colour);

// Lets go of the deck and its faces.
void cdtTerm();

// The deck's element of a card: "1_club" for the Ace of Clubs (card 0) ...
// "king_spade" for the King of Spades (card 51).
QString CardElementId(int card);

// The deck file read by cdtInit; by default, and after an empty path, the
// standard deck of the system.
void SetCardDeckFile(const QString& path);

}  // namespace platform

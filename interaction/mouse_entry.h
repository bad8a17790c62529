#pragma once
// Moves made with the mouse: press on a piece, carry it, release it over the
// target square; the right button opens the set-up popup that edits the board.
#include "interaction/session.h"

namespace qv {

enum class MouseButton { Left, Right, Middle };

// x and y are in twips, relative to the square pressed (while a button is
// held) or to the square under the pointer.
void SquarePress(Session& s, int index, MouseButton button);
void SquareMove(Session& s, int index, int x, int y);
void SquareRelease(Session& s, int index, MouseButton button, int x, int y);
// The pointer moved over the window outside the board.
void WindowMouseMove(Session& s);

// Boxes around every piece that has a legal move.
void MarkMovablePieces(Session& s);

// Drops a piece being carried and forgets the carry.
void ResetCarry(Session& s);

}  // namespace qv

#pragma once
// The board view: which picture each of the 64 cells shows, the notation
// labels around them, the piece totals and the player labels. Every repaint is
// a function of the game and the view settings.
#include "interaction/session.h"

namespace qv {

// SquareView index (0 top left .. 63 bottom right) and Board cell.
int CellOfSquare(int index, int boardTurned);
int SquareOfCell(int cell, int boardTurned);

// The picture of a cell holding value (0 empty, +-1 men, +-2 kings).
ImageRole CellImage(int value, int cell, int piecesOnBlack);
// The pointer picture while a piece of that value is carried.
ImageRole CarryIcon(int value);

// The side of a square in twips for the picture set in force, and the pitch of
// the notation labels.
int SquareTwips(int skinKind, int skinBoardSize, int twipsPerPixel);
int LabelPitchTwips(int skinKind, int skinBoardSize, int twipsPerPixel);

// Repaints the 64 cells, the totals and the labels, then RefreshPlayers.
// mode 1 also shows the square numbers.
void RefreshBoard(Session& s, int mode);

// The player labels, the side to move drawn in red, and the status panel.
void RefreshPlayers(Session& s);

// Shows in one cell the picture of what stands on its Board cell, or an
// empty square (a lifted piece).
void ShowCellPicture(Session& s, int index);
void ShowCellEmpty(Session& s, int index);

}  // namespace qv

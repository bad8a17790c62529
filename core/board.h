#pragma once
// The board: 120 cells in a 10 x 12 frame, the square names of both
// notations, the 64-character setup text and the movement-direction tables.
#include <string>
#include <string_view>

#include "core/table.h"

namespace qv {

// Cell index = row * 10 + column. Rows 2..9 and columns 1..8 are the squares
// (21 is a1, 98 is h8); everything else is frame holding OffBoard, two rows
// deep at both ends so that a jump landing 22 cells away stays in the array.
using BoardCells = Table<int, 120>;

inline constexpr int OffBoard = 100;
inline constexpr int WhiteMan = 1, WhiteKing = 2, BlackMan = -1, BlackKing = -2;
// A piece already jumped in the capture being traced holds its value minus 10
// while a generator runs; a value below MarkedBelow is such a mark.
inline constexpr int MarkedBelow = -2;
inline constexpr int MarkedRemovedBelow = -5;
inline constexpr int DropSource = 999;  // FromSquare of a piece entering from off the board

// Direction table: rows 0..3 the quiet steps of piece kinds 0..3, rows 4..7 their
// capture steps; each list ends at the first EndOfList.
inline constexpr int EndOfList = -99;
using DirectionRow = Table<int, 9>;
using DirectionTable = Table<DirectionRow, 8>;

// Piece kinds as DirTable and the promotion tables index them.
inline constexpr int KindWhiteMan = 0, KindBlackMan = 1, KindWhiteKing = 2, KindBlackKing = 3;
// 1 -> 0, -1 -> 1, 2 -> 2, -2 -> 3.
constexpr int PieceKind(int value) { return value > 0 ? (value - 1) * 2 : (-value - 1) * 2 + 1; }

constexpr bool IsFrameCell(long cell) {
  if (cell < 20 || cell > 99) return true;
  int column = static_cast<int>(cell % 10);
  return column == 0 || column == 9;
}

void FillFrame(BoardCells& board);          // frame 100, squares 0
void BuildStandardPosition(BoardCells& board);  // twelve men a side on the dark squares

// Cell to text: "a1".."h8" (notationKind 0) or "1".."32" (otherwise); 999 gives
// the empty text, a frame cell "--". padding for numbers below 10: 1 none,
// 0 a blank in front, anything else a "0" in front.
std::string SquareNotation(long cell, int padding, int notationKind);

// Text to cell, 0 when the text is no square. Algebraic text must be upper case.
int SquareNumber(std::string_view text, int notationKind, int piecesOnBlack);

// Fills the quiet and capture lists of piece kind `kind` from a movement text
// such as "NW;NE NW;NE;SE;SW". Returns the 1-based position of the first
// unknown word in the text (0 when every word was known), which the variants
// dialog reports; the table itself stops at that word either way.
int ParseDirections(std::string_view text, int kind, DirectionTable& table);
int DirectionOffset(std::string_view token);  // 0 for an unknown token

// The 64-character text of a position: "0" empty, "1"/"2" white/black man,
// "3"/"4" white/black king.
std::string BoardSetupText(const BoardCells& board);

void ShiftBoardColour(BoardCells& board, int toDarkLayout);
void AlignBoardColour(BoardCells& board, int piecesOnBlack);

// True when the cell is of the playing colour. darkStep receives 0 for such a
// cell, else the sideways step (+1 or -1) to its dark neighbour in the row.
bool SquareIsDark(long cell, int piecesOnBlack, int* darkStep = nullptr);

}  // namespace qv

#pragma once
// The pieces on the board's 64 squares in one pass: the position's key (each
// kind of piece as a mask, as the repetition test reads it) and every square
// that holds anything at all. A square whose value is no piece code (a piece
// marked by a capture being traced, a hole in the board) is in Occupied but
// in none of the key's masks.
#include "core/position_key.h"

namespace qv {

struct BoardPieces {
  PositionKeyWords Key;
  Mask Occupied = 0;

  Mask Pieces() const { return Key.White() | Key.Black(); }
  // Squares that hold something other than a man or a king.
  Mask Odd() const { return Occupied & ~Pieces(); }
};

inline BoardPieces PiecesOf(const BoardCells& board) {
  BoardPieces pieces;
  pieces.Key = PositionKeyOf(board, &pieces.Occupied);
  return pieces;
}

}  // namespace qv

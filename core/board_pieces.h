#pragma once
// The pieces on the board's 64 squares in one pass: the position's key (each
// kind of piece as a mask, as the repetition test reads it) and every square
// that holds anything at all. A square whose value is no piece code (a piece
// marked by a capture being traced, a hole in the board) is in Occupied but
// in none of the key's masks.
#ifdef __SSE2__
#include <emmintrin.h>
#endif

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
  PositionKeyWords& key = pieces.Key;
  const int* cells = board.Cells;
#ifdef __SSE2__
  // Two rows at a time, their sixteen cells narrowed to bytes with saturation:
  // only the values 1, 2, -1 and -2 compare equal to a piece code, and no
  // value but 0 becomes 0.
  const __m128i whiteMan = _mm_set1_epi8(WhiteMan), whiteKing = _mm_set1_epi8(WhiteKing);
  const __m128i blackMan = _mm_set1_epi8(BlackMan), blackKing = _mm_set1_epi8(BlackKing);
  const __m128i empty = _mm_setzero_si128();
  for (int row = 0; row < 8; row += 2) {
    const __m128i bytes = TwoRowsAsBytes(cells, row);
    key.WhiteMen |= RowBits(_mm_cmpeq_epi8(bytes, whiteMan), row);
    key.WhiteKings |= RowBits(_mm_cmpeq_epi8(bytes, whiteKing), row);
    key.BlackMen |= RowBits(_mm_cmpeq_epi8(bytes, blackMan), row);
    key.BlackKings |= RowBits(_mm_cmpeq_epi8(bytes, blackKing), row);
    pieces.Occupied |= ~RowBits(_mm_cmpeq_epi8(bytes, empty), row) & (Mask{0xffff} << (row * 8));
  }
#else
  for (int bit = 0; bit < 64; ++bit) {
    const int v = cells[CellOfBit(bit)];
    const Mask m = BitOf(bit);
    if (v == WhiteMan) key.WhiteMen |= m;
    if (v == WhiteKing) key.WhiteKings |= m;
    if (v == BlackMan) key.BlackMen |= m;
    if (v == BlackKing) key.BlackKings |= m;
    if (v != 0) pieces.Occupied |= m;
  }
#endif
  return pieces;
}

}  // namespace qv

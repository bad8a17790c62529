#pragma once
// The key of a position in four machine words: the squares of White's men,
// White's kings, Black's men and Black's kings, one bit a square as the masks
// of board_masks.h number them. Two keys are equal exactly when their texts
// are equal (three digits a piece, cell and code, a1 to h8; PositionKey in
// makemove.h), so the repetition tests compare words instead of texts.
#include <string>

#include "core/board_masks.h"

namespace qv {

struct PositionKeyWords {
  Mask WhiteMen = 0, WhiteKings = 0, BlackMen = 0, BlackKings = 0;

  friend bool operator==(const PositionKeyWords&, const PositionKeyWords&) = default;

  Mask White() const { return WhiteMen | WhiteKings; }
  Mask Black() const { return BlackMen | BlackKings; }
  Mask Kings() const { return WhiteKings | BlackKings; }
  // The key as its text: three digits a piece, cell then code 1 white man,
  // 2 white king, 3 black man, 4 black king.
  std::string Text() const;
};

// The key of the pieces on the board's squares. A piece marked by a capture
// being traced (below MarkedBelow) is not in it, as in the text. With
// `occupied`, also every square that holds anything at all.
inline PositionKeyWords PositionKeyOf(const BoardCells& board, Mask* occupied = nullptr) {
  PositionKeyWords key;
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
    if (occupied) *occupied |= ~RowBits(_mm_cmpeq_epi8(bytes, empty), row) & (Mask{0xffff} << (row * 8));
  }
#else
  for (int bit = 0; bit < 64; ++bit) {
    const int v = cells[CellOfBit(bit)];
    const Mask m = BitOf(bit);
    if (v == WhiteMan) key.WhiteMen |= m;
    if (v == WhiteKing) key.WhiteKings |= m;
    if (v == BlackMan) key.BlackMen |= m;
    if (v == BlackKing) key.BlackKings |= m;
    if (occupied && v != 0) *occupied |= m;
  }
#endif
  return key;
}

}  // namespace qv

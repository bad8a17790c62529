#pragma once
// The position as 64-bit masks, one bit a square: bit row * 8 + column is
// cell (row + 2) * 10 + column + 1, so rising bits are rising cells. The fast
// generators build these from Board at the start of a call.
#include <bit>
#include <cstdint>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "core/board.h"

namespace qv {

using Mask = std::uint64_t;

constexpr int CellOfBit(int bit) { return bit + (bit >> 3) * 2 + 21; }
constexpr Mask BitOf(int bit) { return Mask{1} << bit; }

// The four diagonal steps, in the order 0: +9 (row up, column down), 1: +11,
// 2: -9, 3: -11 as cells; as bits +7, +9, -7, -9.
inline constexpr int DiagonalCellStep[4] = {9, 11, -9, -11};
inline constexpr int DiagonalBitStep[4] = {7, 9, -7, -9};

inline constexpr Mask ColumnA = 0x0101010101010101ULL;
inline constexpr Mask ColumnH = ColumnA << 7;
inline constexpr Mask ColumnB = ColumnA << 1;
inline constexpr Mask ColumnG = ColumnA << 6;
// Squares from which one step (or two steps) in a direction stays in its row range
// sideways; the row range itself is kept by the shifts.
inline constexpr Mask OneStepFrom[4] = {~ColumnA, ~ColumnH, ~ColumnH, ~ColumnA};
inline constexpr Mask TwoStepsFrom[4] = {~(ColumnA | ColumnB), ~(ColumnG | ColumnH), ~(ColumnG | ColumnH),
                                         ~(ColumnA | ColumnB)};

// x moved by `bits` (negative: downwards); bits shifted past either end drop.
constexpr Mask ShiftBy(Mask x, int bits) { return bits >= 0 ? x << bits : x >> -bits; }

// The squares from which one step in direction dir lands on a square of x.
constexpr Mask Toward(Mask x, int dir) { return ShiftBy(x, -DiagonalBitStep[dir]) & OneStepFrom[dir]; }

#ifdef __SSE2__
// Rows row and row + 1 of the board (row 0 the first rank), their sixteen
// squares narrowed to a byte each with saturation: every value keeps its
// sign, and 0, the piece codes -2 to 2 and OffBoard keep their value.
inline __m128i TwoRowsAsBytes(const int* cells, int row) {
  const int* first = cells + (row + 2) * 10 + 1;
  const int* second = first + 10;
  const __m128i a = _mm_packs_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(first)),
                                    _mm_loadu_si128(reinterpret_cast<const __m128i*>(first + 4)));
  const __m128i b = _mm_packs_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(second)),
                                    _mm_loadu_si128(reinterpret_cast<const __m128i*>(second + 4)));
  return _mm_packs_epi16(a, b);
}

// The bytes of v whose top bit is set, as the squares of rows row and row + 1.
inline Mask RowBits(__m128i v, int row) {
  return static_cast<Mask>(static_cast<unsigned>(_mm_movemask_epi8(v))) << (row * 8);
}
#endif

// The squares of the side to move and of its opponent, by kind, and the empty squares.
struct SideMasks {
  Mask ownMen = 0, ownKings = 0, oppMen = 0, oppKings = 0, empty = 0;

  Mask Own() const { return ownMen | ownKings; }
  Mask Opp() const { return oppMen | oppKings; }
};

// Board holds only -2..2 on its squares between generator calls. A square
// that holds no piece counts as empty, the unused colour's squares among
// them; no diagonal step reaches those.
inline SideMasks BuildSideMasks(const BoardCells& board, int side) {
  Mask white = 0, black = 0, kings = 0;
  const int* cells = board.Cells;
#ifdef __SSE2__
  // Two rows at a time, their sixteen cells narrowed to bytes: the sign bits
  // are Black's pieces, a compare gives White's, two more the kings.
  const __m128i zero = _mm_setzero_si128(), king = _mm_set1_epi8(2), blackKing = _mm_set1_epi8(-2);
  for (int row = 0; row < 8; row += 2) {
    const __m128i bytes = TwoRowsAsBytes(cells, row);
    black |= RowBits(bytes, row);
    white |= RowBits(_mm_cmpgt_epi8(bytes, zero), row);
    kings |= RowBits(_mm_or_si128(_mm_cmpeq_epi8(bytes, king), _mm_cmpeq_epi8(bytes, blackKing)), row);
  }
#else
  for (int bit = 0; bit < 64; ++bit) {
    const int v = cells[CellOfBit(bit)];
    const Mask m = BitOf(bit);
    if (v > 0) white |= m;
    if (v < 0) black |= m;
    if (v == WhiteKing || v == BlackKing) kings |= m;
  }
#endif
  SideMasks m;
  m.empty = ~(white | black);
  const Mask own = side == 1 ? white : black, opp = side == 1 ? black : white;
  m.ownMen = own & ~kings;
  m.ownKings = own & kings;
  m.oppMen = opp & ~kings;
  m.oppKings = opp & kings;
  return m;
}

// Cells as bits, for the promotion squares of a fast rule set.
template <class Cells>
constexpr Mask MaskOfCells(const Cells& cells) {
  Mask m = 0;
  for (int cell : cells) {
    const int row = cell / 10 - 2, column = cell % 10 - 1;
    if (row >= 0 && row < 8 && column >= 0 && column < 8) m |= BitOf(row * 8 + column);
  }
  return m;
}

}  // namespace qv

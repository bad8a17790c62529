#pragma once
// Each side's strongest piece, as the evaluation's census finds it scanning
// the rows upwards and each row from h to a: White's first king, else its
// first man (the lowest row, the highest column); Black's last king, else its
// last man (the highest row, the lowest column). The support of the other
// side's pieces is weighed by their distance from it.
#include <bit>

#include "core/position_key.h"

namespace qv {

// The bit of a side's strongest piece, NoStrongPiece when it has none.
inline constexpr int NoStrongPiece = 64;

constexpr int WhiteStrongBit(const PositionKeyWords& k) {
  const Mask set = k.WhiteKings != 0 ? k.WhiteKings : k.WhiteMen;
  if (set == 0) return NoStrongPiece;
  const int row = std::countr_zero(set) >> 3;
  return 63 - std::countl_zero(set & (Mask{0xFF} << (row * 8)));
}

constexpr int BlackStrongBit(const PositionKeyWords& k) {
  const Mask set = k.BlackKings != 0 ? k.BlackKings : k.BlackMen;
  if (set == 0) return NoStrongPiece;
  const int row = (63 - std::countl_zero(set)) >> 3;
  return std::countr_zero(set & (Mask{0xFF} << (row * 8)));
}

// The cell of a strongest piece's bit; cell 0 for none, as the census leaves it.
constexpr int CellOfStrong(int bit) { return bit == NoStrongPiece ? 0 : CellOfBit(bit); }

}  // namespace qv

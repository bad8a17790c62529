#include "core/position_key.h"

namespace qv {

std::string PositionKeyWords::Text() const {
  std::string text;
  text.reserve(3 * 32);
  for (Mask pieces = White() | Black(); pieces != 0; pieces &= pieces - 1) {
    const int bit = std::countr_zero(pieces);
    const Mask m = BitOf(bit);
    const int cell = CellOfBit(bit);
    const int code = (WhiteMen & m) ? 1 : (WhiteKings & m) ? 2 : (BlackMen & m) ? 3 : 4;
    text += static_cast<char>('0' + cell / 10);
    text += static_cast<char>('0' + cell % 10);
    text += static_cast<char>('0' + code);
  }
  return text;
}

}  // namespace qv

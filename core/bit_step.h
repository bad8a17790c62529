#pragma once
// A step of the board's cells as a move of the square masks' bits.
#include "core/board_masks.h"

namespace qv {

// A step of at most two rows and two columns leads from a square to the
// square Shift bits away or into the frame, never round the edge onto a
// square of another row; Columns is its sideways part. Usable is false for
// any other step.
struct BitStep {
  int Shift = 0;
  int Columns = 0;
  bool Usable = false;
};

constexpr BitStep BitStepOf(int cells) {
  if (cells < -22 || cells > 22) return {};
  const int columns = ((cells % 10) + 15) % 10 - 5, rows = (cells - columns) / 10;
  if (columns < -2 || columns > 2 || rows < -2 || rows > 2) return {};
  return {rows * 8 + columns, columns, true};
}

static_assert(BitStepOf(9).Shift == 7 && BitStepOf(-11).Shift == -9 && BitStepOf(20).Shift == 16);
static_assert(BitStepOf(-2).Columns == -2 && !BitStepOf(15).Usable && !BitStepOf(3).Usable);

}  // namespace qv

#pragma once
// The quiet moves of a fast rule set from the masks of the position: each own
// piece in rising cell order, its steps in the order of its direction row
// (men forward only; a king the side's forward pair first), a sliding king
// nearest square first.
#include "core/board_masks.h"
#include "core/movepush.h"

namespace qv {

// The side's forward pair of diagonal steps starts at this index (see
// DiagonalCellStep); the backward pair at the other.
constexpr int ForwardPair(int side) { return side == 1 ? 0 : 2; }

template <bool KingsSlide>
void PushQuietMoves(Game& g, const OrderKeys& order, const SideMasks& m, int side, Mask promo) {
  Mask canStep[4];
  for (int d = 0; d < 4; ++d) canStep[d] = OneStepFrom[d] & ShiftBy(m.empty, -DiagonalBitStep[d]);
  const int forward = ForwardPair(side), backward = 2 - forward;
  Mask movers = (m.ownMen & (canStep[forward] | canStep[forward + 1])) |
                (m.ownKings & (canStep[0] | canStep[1] | canStep[2] | canStep[3]));
  const int* board = g.Board.Cells;
  for (; movers != 0; movers &= movers - 1) {
    const int bit = std::countr_zero(movers);
    const int from = CellOfBit(bit);
    if ((m.ownMen >> bit) & 1) {
      for (int d = forward; d < forward + 2; ++d) {
        if (((canStep[d] >> bit) & 1) == 0) continue;
        PushQuiet(g, order, from, from + DiagonalCellStep[d]);
        if ((promo >> (bit + DiagonalBitStep[d])) & 1) g.MoveStack.Cells[g.MoveTop - 1].PromoteFlag = 2;
      }
      continue;
    }
    const int kingOrder[4] = {forward, forward + 1, backward, backward + 1};
    for (int d : kingOrder) {
      if (((canStep[d] >> bit) & 1) == 0) continue;
      const int step = DiagonalCellStep[d];
      if constexpr (KingsSlide) {
        // A slide ends at the first cell that is not empty, the frame at the latest.
        for (int to = from + step; board[to] == 0; to += step) PushQuiet(g, order, from, to);
      } else {
        PushQuiet(g, order, from, from + step);
      }
    }
  }
}

}  // namespace qv

#pragma once
// The quiet moves of a fast rule set from the masks of the position: each own
// piece in rising cell order, its steps in the order of its direction row
// (men forward only; a king the side's forward pair first), a sliding king
// nearest square first.
#include <cstring>

#include "core/board_masks.h"
#include "core/movepush.h"

namespace qv {

// The side's forward pair of diagonal steps starts at this index (see
// DiagonalCellStep); the backward pair at the other.
constexpr int ForwardPair(int side) { return side == 1 ? 0 : 2; }

// Writes quiet moves from MoveTop on as PushQuiet does, with the top kept in
// a register until Finish.
class QuietWriter {
 public:
  QuietWriter(Game& game, const OrderKeys& keys) : g(game), order(keys), top(game.MoveTop) {
    if (static_cast<unsigned>(top) >= static_cast<unsigned>(MoveStackSize)) RaiseRangeError(top, MoveStackSize);
  }
  // keyed: whether `from` starts one of the ordering keys at all.
  void Push(int from, int to, bool keyed) {
    MoveRecord& m = g.MoveStack.Cells[top];
    m.FromSquare = from;
    m.ToSquare = to;
    m.PromoteFlag = 0;
    std::memset(m.CaptureText.Cells, 0, CaptureTextSize);
    m.OrderScore = keyed ? order.Bonus(from, to) : 0;
    if (top < MoveStackSize - 1) ++top;
    else g.StopRequest = 1;  // the next push overwrites the last entry
  }
  // As PushCrowning: the flag goes to the entry below the top.
  void PushCrowning(int from, int to, bool keyed) {
    Push(from, to, keyed);
    g.MoveStack.Cells[top - 1].PromoteFlag = 2;
  }
  void Finish() { g.MoveTop = top; }

 private:
  Game& g;
  const OrderKeys& order;
  int top;
};

template <bool KingsSlide>
void PushQuietMoves(Game& g, const OrderKeys& order, const SideMasks& m, int side, Mask promo) {
  Mask canStep[4];
  for (int d = 0; d < 4; ++d) canStep[d] = OneStepFrom[d] & ShiftBy(m.empty, -DiagonalBitStep[d]);
  const int forward = ForwardPair(side), backward = 2 - forward;
  Mask movers = (m.ownMen & (canStep[forward] | canStep[forward + 1])) |
                (m.ownKings & (canStep[0] | canStep[1] | canStep[2] | canStep[3]));
  const int* board = g.Board.Cells;
  QuietWriter out(g, order);
  for (; movers != 0; movers &= movers - 1) {
    const int bit = std::countr_zero(movers);
    const int from = CellOfBit(bit);
    const bool keyed = order.MainLine.From == from || order.Killer1.From == from || order.Killer2.From == from;
    if ((m.ownMen >> bit) & 1) {
      for (int d = forward; d < forward + 2; ++d) {
        if (((canStep[d] >> bit) & 1) == 0) continue;
        if ((promo >> (bit + DiagonalBitStep[d])) & 1) out.PushCrowning(from, from + DiagonalCellStep[d], keyed);
        else out.Push(from, from + DiagonalCellStep[d], keyed);
      }
      continue;
    }
    const int kingOrder[4] = {forward, forward + 1, backward, backward + 1};
    for (int d : kingOrder) {
      if (((canStep[d] >> bit) & 1) == 0) continue;
      const int step = DiagonalCellStep[d];
      if constexpr (KingsSlide) {
        // A slide ends at the first cell that is not empty, the frame at the latest.
        for (int to = from + step; board[to] == 0; to += step) out.Push(from, to, keyed);
      } else {
        out.Push(from, from + step, keyed);
      }
    }
  }
  out.Finish();
}

}  // namespace qv

#pragma once
// What the fast evaluations derive from the rules and the promotion table:
// each piece's terms that depend on its square alone, and the lines behind
// the crowning squares that the back-rank term reads. Built on first use and
// again whenever the crowning squares, the movement or the promotion table
// change.
#include "core/board_masks.h"

namespace qv {

// A table of values by square, summed over a set of squares by counting:
// each square's value is Base plus the Weight of every Plane it lies in.
struct SquareSum {
  static constexpr int MaxPlanes = 16;
  int Base = 0;
  int Planes = 0;
  int Weight[MaxPlanes]{};
  Mask Plane[MaxPlanes]{};
};

struct FastEvalTables {
  int Built = 0;
  int Kind = -1;
  int PromoKey[2][4]{};
  int StepKey[4][9]{};
  int PieceSquare[5][120]{};     // by piece value + 2
  SquareSum PieceSquareSum[5];   // the same, for sums over masks
  // 1 when men step diagonally forward and kings diagonally all ways and
  // every line behind a crowning square is one of Crowns: the terms are
  // then counted on masks. 0: the board is walked square by square.
  int MasksUsable = 0;
  // The crowning squares of list c with a line behind them that takes the
  // other colour's man step a, then its step b.
  Mask Crowns[2][2][2]{};
};

}  // namespace qv

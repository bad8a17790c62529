#include "engine/promotion_tables.h"

namespace qv {

namespace {
bool OnBoard(int cell) { return cell >= 0 && cell < 120 && !IsFrameCell(cell); }
}  // namespace

// The cone behind each promotion square: the squares from which a man of that
// side could still walk diagonally to it.
void ScanPromoCones(Game& g) {
  for (auto& row : g.PromoReach) row.Fill(0);
  for (int c = 0; c < 2; ++c) {
    const int sign = c == 0 ? -1 : 1;  // White's cones open downwards, Black's upwards
    for (int p : g.RuleSet.PromoSquares[c]) {
      if (!OnBoard(p)) continue;
      int left = p, right = p;
      bool leftStraight = false, rightStraight = false;
      for (int k = 0;; ++k) {
        if (k > 0) {
          left += leftStraight ? 10 * sign : (c == 0 ? -11 : 9);
          right += rightStraight ? 10 * sign : (c == 0 ? -9 : 11);
        }
        const bool done = c == 0 ? (left < 21 && right < 21) : (left > 98 && right > 98);
        if (done) break;
        if (!leftStraight && IsFrameCell(left)) {
          left += 1;
          leftStraight = true;
        }
        if (!rightStraight && IsFrameCell(right)) {
          right -= 1;
          rightStraight = true;
        }
        for (int s = left; s <= right; ++s)
          if (OnBoard(s)) g.PromoReach[s][c] = 1;
      }
    }
  }
  g.Flags.HasUnreachableSquares = 0;
  for (int row = 9; row >= 2; --row)
    for (int column = 1; column <= 8; ++column) {
      const int s = row * 10 + column;
      if ((row + column) % 2 == 1 && (g.PromoReach[s][0] == 0 || g.PromoReach[s][1] == 0))
        g.Flags.HasUnreachableSquares = 1;
    }
}

// +30, +20, +10 for White on its crowning squares and the squares one and two
// steps before them; -30, -20, -10 for Black.
void BuildPromoTable(Game& g) {
  g.FastEval.Built = 0;
  for (auto& row : g.PromoApproach) row.Fill(0);
  for (int c = 0; c < 2; ++c) {
    const auto& list = g.RuleSet.PromoSquares[c];
    const DirectionRow& steps = g.DirTable[c == 0 ? KindBlackMan : KindWhiteMan];
    for (int s : list)
      if (OnBoard(s)) g.PromoApproach[s][c] = 30 - 60 * c;
    for (int pass = 2; pass <= 3; ++pass)
      for (int s : list) {
        if (!OnBoard(s)) continue;
        for (int i = 0; steps[i] != EndOfList; ++i) {
          const int d = steps[i];
          if (!OnBoard(s + d)) break;
          if (pass == 2) {
            if (g.PromoApproach[s + d][c] == 0) g.PromoApproach[s + d][c] = 20 - 40 * c;
            continue;
          }
          if (g.PromoApproach[s + d][c] == 0) g.PromoApproach[s + d][c] = 20 - 40 * c;
          for (int j = 0; steps[j] != EndOfList; ++j) {
            const int e = steps[j], t = s + d + e;
            if (d + e == 0 || t < 0 || t >= 120) continue;
            if (g.PromoApproach[t][c] == 0) g.PromoApproach[t][c] = 10 - 20 * c;
          }
        }
      }
  }
}

// The fast evaluations read the promotion tables above directly; nothing more
// is derived for them.
void BuildPromoDistance(Game&) {}

}  // namespace qv

// The terms of every square read in the order of the rows. It serves any
// board (pieces marked by a capture being traced count by their sign) and any
// rules; under KingWin the pursuit term rounds the running sum, so its value
// depends on this order of the squares.
#include <cmath>
#include <cstdlib>

#include "core/text.h"
#include "engine/evaluate.h"
#include "engine/evaluate_general.h"

namespace qv::general {

namespace {

int Sign(int v) { return v > 0 ? 1 : -1; }

// The pursuit of KingWin, added to the running score p: pieces heading for
// their crowning squares, and where the two lists differ, for the other
// side's strongest piece (this term rounds the whole running score).
void AddKingWinTerms(const Game& g, const Census& n, int s, int v, int& firstRowWhite, int& firstRowBlack,
                     double& p) {
  const RuleRecord& r = g.RuleSet;
  const int sg = Sign(v), c = v > 0 ? 0 : 1, row = Row(s);
  for (int i = 0; i < PromoSlots; ++i) {
    const int k = r.PromoSquares[c][i];
    if (k != -1) {
      p += sg * 2 * (15 - Distance(s, k));
    } else if (g.Flags.PromoListsEqual == 0 && i <= g.Flags.PromoListLast) {
      const int target = v > 0 ? n.blackStrong : n.whiteStrong;
      int& firstRow = v > 0 ? firstRowWhite : firstRowBlack;
      if (firstRow == 0) firstRow = row - 1;
      p = ToInt32(p + sg * (2.0 - (n.whiteCount + n.blackCount) * 0.01) * (15 - Distance(s, target)));
      if (v < 0) p += 10 * std::abs(firstRowBlack + 1 - row);
      else p -= 10 * std::abs(firstRowWhite + 1 - row);
    }
  }
}

}  // namespace

double ScanTerms(const Game& g, const Census& n, int ww, int wb) {
  const RuleRecord& r = g.RuleSet;
  int firstRowWhite = 0, firstRowBlack = 0;
  double p = 0;
  for (int row = 2; row <= 9; ++row)
    for (int column = 1; column <= 8; ++column) {
      const int s = row * 10 + column, v = g.Board[s];
      if (v == 0) {
        const int w = g.PromoApproach[s][0], bl = g.PromoApproach[s][1];
        p += ww == 2 ? w : w / 2;
        p += wb == 2 ? bl : bl / 2;
        continue;
      }
      if (v == OffBoard || v < MarkedBelow) continue;
      const int sg = Sign(v), c = v > 0 ? 0 : 1;
      const bool king = std::abs(v) == 2;
      const int strong = v > 0 ? n.blackStrong : n.whiteStrong;

      p += (v > 0 ? ww : wb) * g.PromoApproach[s][c];
      if (g.Flags.TropismActive == 1)
        p += sg * SupportCount(g, s, sg) * ((15 - Distance(strong, s)) / (2 * std::abs(v) - 1));
      if (InCentre(s, r.PiecesOnBlack)) p += sg * 20;
      p += king ? KingTerms(r, s, sg) : GuardTerms(r, s, v);
      if (g.Flags.HasUnreachableSquares == 1 && !king && g.PromoReach[s][c] == 0) p -= sg * 75;
      p += WinAtPromoTerm(r, s, v);
      if (r.KingWin == 1) AddKingWinTerms(g, n, s, v, firstRowWhite, firstRowBlack, p);
      if (s == g.FocusSquare && v == g.FocusPiece) p -= sg * 50;
    }
  return p;
}

}  // namespace qv::general

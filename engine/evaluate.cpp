// The general evaluation: every rule of the rule set read as data. The four
// fast rule sets have their own, equal in value (evaluate_fast.cpp).
#include "engine/evaluate.h"

#include <cmath>
#include <cstdlib>

#include "core/searchgen.h"
#include "core/text.h"
#include "engine/score.h"

namespace qv {

namespace {

int Row(int s) { return s / 10; }
int Column(int s) { return s % 10; }
int Distance(int a, int b) { return std::abs(Row(a) - Row(b)) + std::abs(Column(a) - Column(b)); }
int Sign(int v) { return v > 0 ? 1 : -1; }

// The four centre squares, by the colour the pieces play on.
bool InCentre(int s, int piecesOnBlack) {
  switch (piecesOnBlack) {
    case 0: return s == 53 || s == 55 || s == 64 || s == 66;
    case 2:
      return (s >= 51 && s <= 53) || (s >= 56 && s <= 58) || (s >= 61 && s <= 63) || (s >= 66 && s <= 68);
    default: return s == 54 || s == 56 || s == 63 || s == 65;
  }
}

// The back-rank term of list c: open squares in front of c's crowning squares
// favour side c, and three men of one colour in a line from a crowning square
// count for their side.
int BackRank(const Game& g, int c) {
  int p = 0;
  const auto& list = g.RuleSet.PromoSquares[c];
  const DirectionRow& steps = g.DirTable[c == 0 ? KindBlackMan : KindWhiteMan];
  for (int i = 0; i < PromoSlots; ++i) {
    const int s = list[i];
    if (s == -1) break;
    const int p0 = g.Board[s];
    for (int a = 0; steps[a] != EndOfList; ++a) {
      const int d1 = steps[a];
      if (std::abs(d1) == 1) break;
      if (g.Board[s + d1] == OffBoard) break;
      const int p1 = g.Board[s + d1];
      for (int b = 0; steps[b] != EndOfList; ++b) {
        const int d2 = steps[b];
        if (d1 + d2 == 0) continue;
        const int t = s + d1 + d2;
        if (t < 0 || t >= 120) continue;
        const int p2 = g.Board[t];
        if (p0 == 0) {
          if (p1 == 0 && p2 == 0) p += 30 - 60 * c;
          if (p1 == 0 || p2 == 0) p += 20 - 40 * c;
        }
        if (d1 == d2) {
          if (p0 == 1 && p1 == 1 && p2 == 1) p += 30;
          if (p0 == -1 && p1 == -1 && p2 == -1) p -= 30;
        }
      }
    }
  }
  return p;
}

// Pieces counted rows 2 to 9 and in a row columns 8 down to 1, each side's
// strongest piece, and whether a king stands on its goal.
struct Census {
  int whiteCount = 0, blackCount = 0, whiteMen = 0, blackMen = 0;
  int whiteStrong = 0, blackStrong = 0;
  bool whiteGoal = false, blackGoal = false;
};

Census TakeCensus(const Game& g) {
  const RuleRecord& r = g.RuleSet;
  Census n;
  int whiteStrongValue = 0, blackStrongValue = 0;
  for (int row = 2; row <= 9; ++row)
    for (int column = 8; column >= 1; --column) {
      const int s = row * 10 + column, v = g.Board[s];
      if (v == 0 || v == OffBoard) continue;
      if (v > 0) {
        ++n.whiteCount;
        if (v == WhiteMan) ++n.whiteMen;
        if (v > whiteStrongValue) whiteStrongValue = v, n.whiteStrong = s;
      } else {
        ++n.blackCount;
        if (v == BlackMan) ++n.blackMen;
        if (v <= blackStrongValue) blackStrongValue = v, n.blackStrong = s;
      }
      if (r.WinAtPromo == 1) {
        if (v == WhiteKing && IsPromoSquare(r.PromoSquares, 1, s)) n.whiteGoal = true;
        if (v == BlackKing && IsPromoSquare(r.PromoSquares, 0, s)) n.blackGoal = true;
      } else if (r.KingWin == 1) {
        if (v == WhiteKing && IsPromoSquare(r.PromoSquares, 0, s)) n.whiteGoal = true;
        if (v == BlackKing && IsPromoSquare(r.PromoSquares, 1, s)) n.blackGoal = true;
      }
    }
  return n;
}

// The terms of a king on s.
double KingTerms(const RuleRecord& r, int s, int sg) {
  double p = sg * 25;
  if (r.ManCapKing != 1) p += sg * 25;
  if (r.LongKings != 1) {
    if (Column(s) == 1 || Column(s) == 8) p -= sg * 10;
    if (Row(s) == 2 || Row(s) == 9) p -= sg * 10;
    return p;
  }
  p += sg * 50;
  if (s % 11 == 10) p += sg * 50;
  else if (s == 25 || s == 58 || s == 61 || s == 94) p -= sg * 25;
  return p;
}

// A man on its own back row guards the crowning squares of the other side.
double GuardTerms(const RuleRecord& r, int s, int v) {
  const int sg = Sign(v), c = v > 0 ? 0 : 1;
  const auto& guard = r.PromoSquares[1 - c];
  double p = 0;
  if (r.PiecesOnBlack != 2) {
    const int strongEntries[2] = {v > 0 ? 1 : 0, v > 0 ? 3 : 2};
    const int weakEntries[2] = {v > 0 ? 0 : 1, v > 0 ? 2 : 3};
    for (int e : strongEntries)
      if (guard[e] == s) p += sg * 20;
    for (int e : weakEntries)
      if (guard[e] == s) p += sg * 10;
  } else {
    for (int e = 0; e < 8; ++e)
      if (guard[e] == s) p += sg * (e % 2 == 1 ? 20 : 10);
  }
  return p;
}

// The pull of the goal squares: kings and men heading for the squares that
// win under WinAtPromo or KingWin, added to the running score p (one term
// rounds the whole running score to a whole number).
void AddGoalTerms(const Game& g, const Census& n, int s, int v, int& firstRowWhite, int& firstRowBlack, double& p) {
  const RuleRecord& r = g.RuleSet;
  const int sg = Sign(v), c = v > 0 ? 0 : 1, row = Row(s);
  const bool king = std::abs(v) == 2;
  if (r.WinAtPromo == 1) {
    const int aim = king ? 1 - c : c;
    for (int i = 0; i < PromoSlots; ++i) {
      const int k = r.PromoSquares[aim][i];
      if (k != -1) p += v * ((king ? 30 : 15) - Distance(s, k));
    }
  }
  if (r.KingWin == 1) {
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
}

}  // namespace

int Evaluate(Game& g, int alpha, int beta, int side) {
  const RuleRecord& r = g.RuleSet;
  g.RuleLossPending = 0;
  const Census n = TakeCensus(g);

  if (r.NoLegalDraw == 1 && HasLegalMove(g, 1) == 0 && n.whiteCount > 0 && n.blackCount > 0) {
    g.NoMoveDraw = 1;
    return 0;
  }

  // Goal test: a side with too few pieces, or whose opponent reached its goal, has lost.
  int a = n.whiteCount, b = n.blackCount;
  bool fa = n.whiteGoal, fb = n.blackGoal;
  const bool anti = r.AntiMode == 1;
  if (anti) {
    std::swap(a, b);
    std::swap(fa, fb);
  }
  const int limit = r.NumberPieces;
  if (side == 1) {
    if (a <= limit || fb) g.RuleLossPending = 1;
    if (b <= limit || fa) return GoalWinScore - g.Ply;
  } else {
    if (b <= limit || fa) g.RuleLossPending = 1;
    if (a <= limit || fb) return GoalWinScore - g.Ply;
  }

  const int m = g.MaterialByPly[g.Ply];
  if ((m < alpha - g.LazyMargin || m > beta + g.LazyMargin) && g.ActivityByPly[g.Ply] != 0) return anti ? -m : m;
  if (g.LineDrawn != 0) return 0;

  const int ww = n.whiteMen > g.ManThresholdWhite ? 2 : 1;
  const int wb = n.blackMen > g.ManThresholdBlack ? 2 : 1;
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
      if (r.WinAtPromo == 1 || r.KingWin == 1) AddGoalTerms(g, n, s, v, firstRowWhite, firstRowBlack, p);
      if (s == g.FocusSquare && v == g.FocusPiece) p -= sg * 50;
    }

  // Repetition: any earlier position with the same pieces is a draw.
  const PositionKeyWords positionKey = PositionKeyOf(g.Board);
  for (int i = g.HalfMoveCount - 2; i >= 0; --i)
    if (g.Record.PositionHistory[i] == positionKey) return 0;
  if (g.HalfMoveCount != 0) g.Record.PositionHistory[g.HalfMoveCount - 1] = positionKey;

  if (g.BackRankActive == 1) {
    if (n.whiteMen > g.ManThresholdWhite) p += BackRank(g, 0);
    if (n.blackMen > g.ManThresholdBlack) p += BackRank(g, 1);
  }
  if (side == -1) p = -p;

  const double r1 = g.Rnd(), r2 = g.Rnd();
  int score = ToInt32(m + p + std::floor(r1 * g.NoiseRange) - std::floor(r2 * g.NoiseRange));
  if (anti) score = -score;
  return score;
}

int SupportCount(const Game& g, int square, int side) {
  int count = 1;
  const int kinds[2] = {side == 1 ? KindWhiteMan : KindBlackMan, side == 1 ? KindWhiteKing : KindBlackKing};
  const int pieces[2] = {side, 2 * side};
  for (int k = 0; k < 2; ++k) {
    const DirectionRow& steps = g.DirTable[kinds[k]];
    for (int i = 0; steps[i] != EndOfList; ++i) {
      const int t = square - steps[i];
      if (t >= 0 && t < 120 && g.Board[t] == pieces[k]) count += 2;
    }
  }
  return count;
}

}  // namespace qv

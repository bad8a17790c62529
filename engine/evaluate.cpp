// The general evaluation: every rule of the rule set read as data. The four
// fast rule sets have their own, equal in value (evaluate_fast.cpp). A board
// of plain men and kings is evaluated from the pieces and the tables built
// from the rules (evaluate_pieces.cpp); any other board, and the rules whose
// KingWin pursuit term rounds the running sum, square by square
// (evaluate_scan.cpp). Both give the same score.
#include "engine/evaluate.h"

#include <cmath>
#include <utility>

#include "core/searchgen.h"
#include "core/text.h"
#include "engine/evaluate_general.h"
#include "engine/repetition.h"
#include "engine/score.h"

namespace qv {

namespace {

using general::Census;

// A side with too few pieces, or whose opponent reached its goal, has lost:
// the score of a win for `side`, or 0 (and RuleLossPending set when `side`
// itself has lost).
int GoalTest(Game& g, const Census& n, int side) {
  int a = n.whiteCount, b = n.blackCount;
  bool fa = n.whiteGoal, fb = n.blackGoal;
  if (g.RuleSet.AntiMode == 1) {
    std::swap(a, b);
    std::swap(fa, fb);
  }
  const int limit = g.RuleSet.NumberPieces;
  if (side == 1) {
    if (a <= limit || fb) g.RuleLossPending = 1;
    if (b <= limit || fa) return GoalWinScore - g.Ply;
  } else {
    if (b <= limit || fa) g.RuleLossPending = 1;
    if (a <= limit || fb) return GoalWinScore - g.Ply;
  }
  return 0;
}

// The terms of the pieces and squares, White's view: from the tables when
// there are tables for this board and these rules, else square by square.
double PositionTerms(const Game& g, GeneralEvalTables* tables, const Census& n, const BoardPieces& pieces) {
  const int ww = n.whiteMen > g.ManThresholdWhite ? 2 : 1;
  const int wb = n.blackMen > g.ManThresholdBlack ? 2 : 1;
  if (tables && tables->Usable == 1) return general::PieceTerms(g, *tables, n, pieces, ww, wb);
  return general::ScanTerms(g, n, ww, wb);
}

// The back-rank term of each side that still has more men than its threshold.
int BackRankTerms(const Game& g, GeneralEvalTables* tables, const Census& n, const BoardPieces& pieces) {
  if (g.BackRankActive != 1) return 0;
  const bool byLines = tables && tables->LinesUsable == 1;
  int p = 0;
  for (int c = 0; c < 2; ++c) {
    if ((c == 0 ? n.whiteMen : n.blackMen) <= (c == 0 ? g.ManThresholdWhite : g.ManThresholdBlack)) continue;
    p += byLines ? general::CountedBackRank(g.Board, *tables, pieces, c) : general::BackRank(g, c);
  }
  return p;
}

}  // namespace

int Evaluate(Game& g, int alpha, int beta, int side) {
  const RuleRecord& r = g.RuleSet;
  g.RuleLossPending = 0;
  const BoardPieces pieces = PiecesOf(g.Board);
  const bool byPieces = pieces.Odd() == 0 && r.KingWin != 1;
  const Census n = byPieces ? general::CensusOfPieces(g, pieces) : general::TakeCensus(g);

  if (r.NoLegalDraw == 1 && HasLegalMove(g, 1) == 0 && n.whiteCount > 0 && n.blackCount > 0) {
    g.NoMoveDraw = 1;
    return 0;
  }
  if (const int win = GoalTest(g, n, side); win != 0) return win;

  const bool anti = r.AntiMode == 1;
  const int m = g.MaterialByPly[g.Ply];
  if ((m < alpha - g.LazyMargin || m > beta + g.LazyMargin) && g.ActivityByPly[g.Ply] != 0) return anti ? -m : m;
  if (g.LineDrawn != 0) return 0;

  GeneralEvalTables* tables = byPieces ? &general::TablesFor(g) : nullptr;
  double p = PositionTerms(g, tables, n, pieces);
  if (RepeatsEarlierPosition(g, pieces.Key)) return 0;
  p += BackRankTerms(g, tables, n, pieces);
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

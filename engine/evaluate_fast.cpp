// The evaluation of the four fast rule sets. It computes exactly what the
// general evaluation computes with their rules fixed, term for term, but on
// the position's masks: the pieces are counted, each side's strongest piece
// is found by a bit scan, and the terms of all pieces at once are sums of
// counted squares that a mask shares with tables built from the rules. A rule
// set whose pieces do not step diagonally has its terms walked square by
// square instead.
#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <numeric>

#include "core/mask_count.h"
#include "core/text.h"
#include "engine/evaluate.h"
#include "engine/repetition.h"
#include "engine/score.h"
#include "engine/strongest_piece.h"

namespace qv {

namespace {

enum class FastKind { Short, ShortMirror, Long };

constexpr int Row(int s) { return s / 10; }
constexpr int Column(int s) { return s % 10; }
constexpr int Abs(int v) { return v < 0 ? -v : v; }

// (15 - distance) / 3 between two cells, the weight of a piece's support by
// its distance from the strongest enemy piece. Cell 0 stands for "no such
// piece". Every weight lies in 0 to 4.
struct DistanceWeights {
  std::array<std::array<signed char, 120>, 120> w{};
  constexpr DistanceWeights() {
    for (int a = 0; a < 120; ++a)
      for (int b = 0; b < 120; ++b)
        w[a][b] = static_cast<signed char>((15 - (Abs(Row(a) - Row(b)) + Abs(Column(a) - Column(b)))) / 3);
  }
};
constexpr DistanceWeights Weights;

// The same weights as three masks for each square of the strongest piece
// (NoStrongPiece: none): a square's weight is plane 0 + 2 x plane 1 + 4 x plane 2.
struct WeightPlanes {
  std::array<std::array<Mask, 3>, NoStrongPiece + 1> plane{};
  constexpr WeightPlanes() {
    for (int strong = 0; strong <= NoStrongPiece; ++strong) {
      const int from = CellOfStrong(strong);
      for (int bit = 0; bit < 64; ++bit)
        for (int j = 0; j < 3; ++j)
          if (Weights.w[from][CellOfBit(bit)] >> j & 1) plane[strong][j] |= BitOf(bit);
    }
  }
};
constexpr WeightPlanes Planes;

// The four centre squares: b4-style boards (mirror) and a1-style boards.
struct CentreTable {
  std::array<std::array<bool, 120>, 2> in{};
  constexpr CentreTable() {
    for (int s : {53, 55, 64, 66}) in[1][s] = true;
    for (int s : {54, 56, 63, 65}) in[0][s] = true;
  }
};
constexpr CentreTable Centre;

// The support weights summed over a set of squares.
QV_INLINE_COUNT int WeightSum(Mask squares, const std::array<Mask, 3>& weight) {
  return CountOf(squares & weight[0]) + 2 * CountOf(squares & weight[1]) + 4 * CountOf(squares & weight[2]);
}

// The support terms of one side's pieces, all at once: each piece counts its
// support times its weight, and a lone piece 10 less. A piece's support is 1
// plus 2 for each own piece in the two squares behind it (behindA, behindB)
// and each own king in the two squares ahead (aheadA, aheadB); the four
// masks are added bit by bit into a count of three bits.
QV_INLINE_COUNT int SupportTerms(Mask pieces, Mask behindA, Mask behindB, Mask aheadA, Mask aheadB,
                                 const std::array<Mask, 3>& weight) {
  behindA &= pieces, behindB &= pieces, aheadA &= pieces, aheadB &= pieces;
  const Mask sumA = behindA ^ behindB, carryA = behindA & behindB;
  const Mask sumB = aheadA ^ aheadB, carryB = aheadA & aheadB;
  const Mask ones = sumA ^ sumB, twos = carryA ^ carryB ^ (sumA & sumB), fours = carryA & carryB;
  const Mask lone = pieces & ~(behindA | behindB | aheadA | aheadB);
  return WeightSum(pieces, weight) + 2 * WeightSum(ones, weight) + 4 * WeightSum(twos, weight) +
         8 * WeightSum(fours, weight) - 10 * CountOf(lone);
}

// A table of square values summed over the squares of a mask.
QV_INLINE_COUNT int SumOver(const SquareSum& table, Mask squares) {
  int sum = table.Base * CountOf(squares);
  for (int j = 0; j < table.Planes; ++j) sum += table.Weight[j] * CountOf(squares & table.Plane[j]);
  return sum;
}

// The terms of all pieces, on masks: those of their squares, and their
// support weighed by the distance from the strongest enemy piece. Men step
// diagonally forward and kings all ways: White's men behind a white piece
// stand 9 and 11 cells lower (directions 2 and 3), Black's higher.
QV_INLINE_COUNT int PieceTermsFromMasks(const FastEvalTables& t, const PositionKeyWords& k) {
  const Mask white = k.White(), black = k.Black();
  const int whiteSupport = SupportTerms(white, Toward(white, 2), Toward(white, 3), Toward(k.WhiteKings, 0),
                                        Toward(k.WhiteKings, 1), Planes.plane[BlackStrongBit(k)]);
  const int blackSupport = SupportTerms(black, Toward(black, 0), Toward(black, 1), Toward(k.BlackKings, 2),
                                        Toward(k.BlackKings, 3), Planes.plane[WhiteStrongBit(k)]);
  return SumOver(t.PieceSquareSum[WhiteMan + 2], k.WhiteMen) + SumOver(t.PieceSquareSum[WhiteKing + 2], k.WhiteKings) +
         SumOver(t.PieceSquareSum[BlackMan + 2], k.BlackMen) + SumOver(t.PieceSquareSum[BlackKing + 2], k.BlackKings) +
         whiteSupport - blackSupport;
}

// The quiet steps of one side's men and kings, by which the support looks
// behind a piece, for the walk over the board.
struct SupportSteps {
  int man[8];
  int king[8];
  int men = 0, kings = 0;
};

SupportSteps StepsOf(const Game& g, int side) {
  SupportSteps steps;
  const DirectionRow& men = g.DirTable[side == 1 ? KindWhiteMan : KindBlackMan];
  const DirectionRow& kings = g.DirTable[side == 1 ? KindWhiteKing : KindBlackKing];
  for (int i = 0; i < 8 && men.Cells[i] != EndOfList; ++i) steps.man[steps.men++] = men.Cells[i];
  for (int i = 0; i < 8 && kings.Cells[i] != EndOfList; ++i) steps.king[steps.kings++] = kings.Cells[i];
  return steps;
}

// 1, plus 2 for each own man or king one of its own steps behind the square.
int Support(const int* board, int s, int side, const SupportSteps& steps) {
  int count = 1;
  for (int i = 0; i < steps.men; ++i) {
    const int t = s - steps.man[i];
    if (t >= 0 && t < 120 && board[t] == side) count += 2;
  }
  for (int i = 0; i < steps.kings; ++i) {
    const int t = s - steps.king[i];
    if (t >= 0 && t < 120 && board[t] == 2 * side) count += 2;
  }
  return count;
}

template <int Side>
int SideTermsByWalk(const int* board, const FastEvalTables& t, Mask pieces, int strong, const SupportSteps& steps) {
  int p = 0;
  for (; pieces != 0; pieces &= pieces - 1) {
    const int s = CellOfBit(std::countr_zero(pieces));
    const int support = Support(board, s, Side, steps);
    p += t.PieceSquare[board[s] + 2][s] + Side * (support * Weights.w[strong][s] - 10 * (support == 1));
  }
  return p;
}

// The terms of all pieces, walked one by one, for pieces with any steps.
int PieceTermsByWalk(const Game& g, const FastEvalTables& t, const PositionKeyWords& k) {
  const int* board = g.Board.Cells;
  return SideTermsByWalk<1>(board, t, k.White(), CellOfStrong(BlackStrongBit(k)), StepsOf(g, 1)) +
         SideTermsByWalk<-1>(board, t, k.Black(), CellOfStrong(WhiteStrongBit(k)), StepsOf(g, -1));
}

// The back-rank term of list c, as the general evaluation counts it over the
// first four entries of a crowning list, walked over the board.
int BackRankByWalk(const Game& g, int c) {
  int p = 0;
  const int* board = g.Board.Cells;
  const int* list = g.RuleSet.PromoSquares.Cells[c].Cells;
  const int* steps = g.DirTable.Cells[c == 0 ? KindBlackMan : KindWhiteMan].Cells;
  int count = 0;
  while (count < 8 && steps[count] != EndOfList) ++count;
  const int open = 20 - 40 * c, wide = 30 - 60 * c;
  for (int i = 0; i < 4; ++i) {
    const int s = list[i];
    if (s == -1) continue;
    const int p0 = g.Board[s];
    for (int a = 0; a < count; ++a) {
      const int d1 = steps[a];
      if (g.Board[s + d1] == OffBoard) break;
      const int p1 = board[s + d1];
      for (int b = 0; b < count; ++b) {
        const int d2 = steps[b];
        const int t = s + d1 + d2;
        if (d1 + d2 == 0 || t < 0 || t >= 120) continue;
        const int p2 = board[t];
        if (p0 == 0) p += wide * (p1 == 0 && p2 == 0) + open * (p1 == 0 || p2 == 0);
        if (d1 == d2 && p0 == p1 && p1 == p2 && (p0 == 1 || p0 == -1)) p += 30 * p0;
      }
    }
  }
  return p;
}

// The back-rank term of list c on masks: a crowning square and the two
// squares of a line behind it, empty, favour side c; three men of one colour
// on a straight line count for their side. The other colour's men step in
// directions First and First + 1.
template <int C>
QV_INLINE_COUNT int BackRankFromMasks(const FastEvalTables& t, const PositionKeyWords& k) {
  constexpr int First = C == 0 ? 2 : 0;
  constexpr int open = 20 - 40 * C, wide = 30 - 60 * C;
  const Mask empty = ~(k.White() | k.Black());
  const Mask emptyAfter[2] = {Toward(empty, First), Toward(empty, First + 1)};
  const Mask whiteAfter[2] = {Toward(k.WhiteMen, First), Toward(k.WhiteMen, First + 1)};
  const Mask blackAfter[2] = {Toward(k.BlackMen, First), Toward(k.BlackMen, First + 1)};
  int p = 0;
  for (int a = 0; a < 2; ++a)
    for (int b = 0; b < 2; ++b) {
      const Mask crowns = t.Crowns[C][a][b];
      const Mask secondEmpty = Toward(emptyAfter[b], First + a);
      const Mask openCrowns = crowns & empty;
      p += wide * CountOf(openCrowns & emptyAfter[a] & secondEmpty) +
           open * CountOf(openCrowns & (emptyAfter[a] | secondEmpty));
      if (a == b)
        p += 30 * (CountOf(crowns & k.WhiteMen & whiteAfter[a] & Toward(whiteAfter[a], First + a)) -
                   CountOf(crowns & k.BlackMen & blackAfter[a] & Toward(blackAfter[a], First + a)));
    }
  return p;
}

// True when men step diagonally forward and kings diagonally all ways, in
// the order the movement texts of all four fast rule sets give them.
bool DiagonalSteps(const DirectionTable& table) {
  static constexpr int expected[4][5] = {
      {9, 11, EndOfList}, {-9, -11, EndOfList}, {9, 11, -9, -11, EndOfList}, {-9, -11, 9, 11, EndOfList}};
  for (int kind = 0; kind < 4; ++kind)
    for (int i = 0; i < 5; ++i) {
      if (table.Cells[kind].Cells[i] != expected[kind][i]) return false;
      if (expected[kind][i] == EndOfList) break;
    }
  return true;
}

// The lines behind the crowning squares of list c, as BackRankByWalk meets
// them, as masks of crowning squares by the pair of steps they take; false
// when the masks cannot count them (a square outside the board's cells, a
// crowning square listed twice). The men's steps are the diagonal pair.
bool BuildCrownLines(const Game& g, int c, FastEvalTables& t) {
  const int* list = g.RuleSet.PromoSquares.Cells[c].Cells;
  const int* steps = g.DirTable.Cells[c == 0 ? KindBlackMan : KindWhiteMan].Cells;
  for (auto& row : t.Crowns[c])
    for (Mask& crowns : row) crowns = 0;
  for (int i = 0; i < 4; ++i) {
    const int s = list[i];
    if (s == -1) continue;
    if (s < 0 || s >= 120) return false;
    for (int a = 0; a < 2; ++a) {
      const int m = s + steps[a];
      if (m < 0 || m >= 120) return false;
      if (g.Board.Cells[m] == OffBoard) break;  // the frame never changes
      if (IsFrameCell(s)) continue;              // a frame cell is never empty nor a man
      const Mask bit = BitOf((Row(s) - 2) * 8 + Column(s) - 1);
      for (int b = 0; b < 2; ++b) {
        if ((t.Crowns[c][a][b] & bit) != 0) return false;
        t.Crowns[c][a][b] |= bit;
      }
    }
  }
  return true;
}

// The values of a table by square as a base and bit planes; false when they
// need more planes than a SquareSum holds.
bool BuildSquareSum(const int* valueByCell, SquareSum& sum) {
  int low = INT_MAX, high = INT_MIN, unit = 0;
  for (int bit = 0; bit < 64; ++bit) {
    low = std::min(low, valueByCell[CellOfBit(bit)]);
    high = std::max(high, valueByCell[CellOfBit(bit)]);
  }
  for (int bit = 0; bit < 64; ++bit) unit = std::gcd(unit, valueByCell[CellOfBit(bit)] - low);
  sum = SquareSum{};
  sum.Base = low;
  if (unit == 0) return true;
  sum.Planes = std::bit_width(static_cast<unsigned>((high - low) / unit));
  if (sum.Planes > SquareSum::MaxPlanes) return false;
  for (int j = 0; j < sum.Planes; ++j) sum.Weight[j] = unit << j;
  for (int bit = 0; bit < 64; ++bit) {
    const int q = (valueByCell[CellOfBit(bit)] - low) / unit;
    for (int j = 0; j < sum.Planes; ++j)
      if (q >> j & 1) sum.Plane[j] |= BitOf(bit);
  }
  return true;
}

// The terms of a piece of value v on s that its square alone decides.
template <FastKind K>
int SquareTerms(const Game& g, int s, int v) {
  const int c = v > 0 ? 0 : 1, sg = 1 - 2 * c;
  int term = 20 * Centre.in[K == FastKind::ShortMirror ? 1 : 0][s];
  if (v == WhiteKing || v == BlackKing) {
    if constexpr (K == FastKind::Long) {
      term += 75;
      if (s % 11 == 10) term += 50;
      else if (s == 25 || s == 58 || s == 61 || s == 94) term -= 25;
    } else {
      const int column = s % 10, row = s / 10;
      term += 25 - 10 * (column == 1 || column == 8) - 10 * (row == 2 || row == 9);
    }
  } else {
    // Toward the crowning squares; and a man on its own back row guards the
    // crowning squares of the other side, the entries of its own colour more.
    const auto& guard = g.RuleSet.PromoSquares.Cells[1 - c].Cells;
    term += g.PromoApproach.Cells[s].Cells[c];
    term += 20 * ((guard[1 - c] == s) + (guard[3 - c] == s)) + 10 * ((guard[c] == s) + (guard[2 + c] == s));
  }
  return sg * term;
}

// True when two blocks of ints hold the same values. The loop has no early
// exit, so that it runs as a few wide compares.
template <std::size_t N>
QV_INLINE_COUNT bool SameInts(const int* a, const int* b) {
  int difference = 0;
  for (std::size_t i = 0; i < N; ++i) difference |= a[i] ^ b[i];
  return difference == 0;
}

// Whether the tables were built for these rules and this evaluation.
QV_INLINE_COUNT bool TablesMatch(const Game& g, int kind) {
  const FastEvalTables& t = g.FastEval;
  static_assert(sizeof t.StepKey == 4 * sizeof(DirectionRow), "four rows of the direction table, one after another");
  return t.Built == 1 && t.Kind == kind && SameInts<4>(t.PromoKey[0], g.RuleSet.PromoSquares.Cells[0].Cells) &&
         SameInts<4>(t.PromoKey[1], g.RuleSet.PromoSquares.Cells[1].Cells) &&
         SameInts<4 * 9>(t.StepKey[0], g.DirTable.Cells[0].Cells);
}

template <FastKind K>
const FastEvalTables& BuildTables(Game& g) {
  FastEvalTables& t = g.FastEval;
  t.Built = 1;
  t.Kind = static_cast<int>(K);
  for (int c = 0; c < 2; ++c)
    for (int e = 0; e < 4; ++e) t.PromoKey[c][e] = g.RuleSet.PromoSquares.Cells[c].Cells[e];
  for (int k = 0; k < 4; ++k)
    for (int i = 0; i < 9; ++i) t.StepKey[k][i] = g.DirTable.Cells[k].Cells[i];
  bool sums = true;
  for (int v : {BlackKing, BlackMan, WhiteMan, WhiteKing}) {
    for (int s = 0; s < 120; ++s) t.PieceSquare[v + 2][s] = IsFrameCell(s) ? 0 : SquareTerms<K>(g, s, v);
    sums = BuildSquareSum(t.PieceSquare[v + 2], t.PieceSquareSum[v + 2]) && sums;
  }
  t.MasksUsable = sums && DiagonalSteps(g.DirTable) && BuildCrownLines(g, 0, t) && BuildCrownLines(g, 1, t) ? 1 : 0;
  return t;
}

template <FastKind K>
QV_INLINE_COUNT const FastEvalTables& TablesFor(Game& g) {
  return TablesMatch(g, static_cast<int>(K)) ? g.FastEval : BuildTables<K>(g);
}

// The noise of the easier levels. Both numbers are drawn at every level, so
// that the sequence of random numbers does not depend on the level.
QV_INLINE_COUNT int WithNoise(Game& g, int score) {
  const double r1 = g.Rnd(), r2 = g.Rnd();
  if (g.NoiseRange == 0) return score;
  return ToInt32(score + std::floor(r1 * g.NoiseRange) - std::floor(r2 * g.NoiseRange));
}

template <FastKind K>
QV_INLINE_COUNT int EvaluateFast(Game& g, int alpha, int beta, int side) {
  g.RuleLossPending = 0;
  const PositionKeyWords pieces = PositionKeyOf(g.Board);

  // A side without pieces has lost.
  if ((side == 1 ? pieces.White() : pieces.Black()) == 0) g.RuleLossPending = 1;
  if ((side == 1 ? pieces.Black() : pieces.White()) == 0) return GoalWinScore - g.Ply;

  const int m = g.MaterialByPly[g.Ply];
  if (m < alpha - g.LazyMargin || m > beta + g.LazyMargin) return m;
  if (g.LineDrawn != 0) return 0;

  const FastEvalTables& tables = TablesFor<K>(g);
  const bool masks = tables.MasksUsable == 1;
  int p = masks ? PieceTermsFromMasks(tables, pieces) : PieceTermsByWalk(g, tables, pieces);

  if (RepeatsEarlierPosition(g, pieces)) return 0;

  if (CountOf(pieces.WhiteMen) > g.ManThresholdWhite) p += masks ? BackRankFromMasks<0>(tables, pieces) : BackRankByWalk(g, 0);
  if (CountOf(pieces.BlackMen) > g.ManThresholdBlack) p += masks ? BackRankFromMasks<1>(tables, pieces) : BackRankByWalk(g, 1);
  if (side == -1) p = -p;
  return WithNoise(g, m + p);
}

}  // namespace

QV_COUNTING_CLONES int EvaluateShort(Game& g, int alpha, int beta, int side) {
  return EvaluateFast<FastKind::Short>(g, alpha, beta, side);
}
QV_COUNTING_CLONES int EvaluateShortMirror(Game& g, int alpha, int beta, int side) {
  return EvaluateFast<FastKind::ShortMirror>(g, alpha, beta, side);
}
QV_COUNTING_CLONES int EvaluateLong(Game& g, int alpha, int beta, int side) {
  return EvaluateFast<FastKind::Long>(g, alpha, beta, side);
}

}  // namespace qv

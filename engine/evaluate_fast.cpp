// The evaluation of the four fast rule sets. It computes exactly what the
// general evaluation computes with their rules fixed, term for term, but
// walks the pieces once into a short list, reads the board without range
// checks where the cell is known to lie on it, keeps the score in an integer
// (every term of these rule sets is whole) and takes distances from a table.
#include <array>
#ifdef __SSE2__
#include <emmintrin.h>
#endif
#include <cmath>
#include <cstdlib>

#include "core/text.h"
#include "engine/evaluate.h"
#include "engine/score.h"

namespace qv {

namespace {

enum class FastKind { Short, ShortMirror, Long };


constexpr int Row(int s) { return s / 10; }
constexpr int Column(int s) { return s % 10; }
constexpr int Abs(int v) { return v < 0 ? -v : v; }

// (15 - distance) / 3 between two cells, the weight of a piece's support by
// its distance from the strongest enemy piece. Cell 0 stands for "no such piece".
struct DistanceWeights {
  std::array<std::array<signed char, 120>, 120> w{};
  constexpr DistanceWeights() {
    for (int a = 0; a < 120; ++a)
      for (int b = 0; b < 120; ++b)
        w[a][b] = static_cast<signed char>((15 - (Abs(Row(a) - Row(b)) + Abs(Column(a) - Column(b)))) / 3);
  }
};
constexpr DistanceWeights Weights;

// The four centre squares: b4-style boards (mirror) and a1-style boards.
struct CentreTable {
  std::array<std::array<bool, 120>, 2> in{};
  constexpr CentreTable() {
    for (int s : {53, 55, 64, 66}) in[1][s] = true;
    for (int s : {54, 56, 63, 65}) in[0][s] = true;
  }
};
constexpr CentreTable Centre;

// The quiet steps of one side's men and kings, by which SupportCount looks
// behind a piece. Steps of a diagonal or one-square move keep the square
// behind a piece inside the 120 cells.
struct SupportSteps {
  int man[8];
  int king[8];
  int men = 0, kings = 0;
  bool near = true;  // every step at most two rows long
};

SupportSteps StepsOf(const Game& g, int side) {
  SupportSteps steps;
  const DirectionRow& men = g.DirTable[side == 1 ? KindWhiteMan : KindBlackMan];
  const DirectionRow& kings = g.DirTable[side == 1 ? KindWhiteKing : KindBlackKing];
  for (int i = 0; i < 8 && men.Cells[i] != EndOfList; ++i) steps.man[steps.men++] = men.Cells[i];
  for (int i = 0; i < 8 && kings.Cells[i] != EndOfList; ++i) steps.king[steps.kings++] = kings.Cells[i];
  for (int i = 0; i < steps.men; ++i) steps.near = steps.near && Abs(steps.man[i]) <= 21;
  for (int i = 0; i < steps.kings; ++i) steps.near = steps.near && Abs(steps.king[i]) <= 21;
  return steps;
}

// 1, plus 2 for each own man or king one of its own steps behind the square.
int Support(const int* board, int s, int side, const SupportSteps& steps) {
  int count = 1;
  if (steps.near) {
    // s lies on the board (rows 2 to 9), so s - step stays within the frame.
    for (int i = 0; i < steps.men; ++i) count += 2 * (board[s - steps.man[i]] == side);
    for (int i = 0; i < steps.kings; ++i) count += 2 * (board[s - steps.king[i]] == 2 * side);
    return count;
  }
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

// True when men step diagonally forward and kings diagonally all ways, in
// the order the movement texts of all four fast rule sets give them: Support
// can then be counted without its loops.
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

// Support with the diagonal steps: White's men behind a white piece stand 9
// and 11 cells lower, Black's 9 and 11 higher; kings on all four diagonals.
template <int Side>
inline int DiagonalSupport(const int* board, int s) {
  constexpr int man = Side, king = 2 * Side;
  const int a = board[s - 9 * Side], b = board[s - 11 * Side], c = board[s + 9 * Side], d = board[s + 11 * Side];
  return 1 + 2 * ((a == man) + (b == man) + (a == king) + (b == king) + (c == king) + (d == king));
}

// The back-rank term of list c, as the general evaluation counts it over the
// first four entries of a crowning list.
int BackRankFast(const Game& g, int c) {
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

struct Piece {
  int cell, value;
};

// The census of the board: counts, and each side's strongest piece as the
// general evaluation finds it scanning the rows upwards and each row from h to
// a: White's first piece of the highest value, Black's last of the lowest.
struct Census {
  int whiteCount = 0, blackCount = 0, whiteMen = 0, blackMen = 0;
  int whiteStrong = 0, blackStrong = 0;
  // The pieces the terms walk over, by colour, each list a1 to h8 row by row.
  int whiteListed = 0, blackListed = 0;
  Piece white[64], black[64];
};

// The occupied squares of a row as the bits 1 to 8 of a mask, bit c for
// column c.
inline unsigned OccupiedColumns(const int* row) {
#ifdef __SSE2__
  const __m128i empty = _mm_setzero_si128(), frame = _mm_set1_epi32(OffBoard);
  const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + 1));
  const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + 5));
  const __m128i lowFree = _mm_or_si128(_mm_cmpeq_epi32(low, empty), _mm_cmpeq_epi32(low, frame));
  const __m128i highFree = _mm_or_si128(_mm_cmpeq_epi32(high, empty), _mm_cmpeq_epi32(high, frame));
  const unsigned free = static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(lowFree))) |
                        static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(highFree))) << 4;
  return (~free & 0xffu) << 1;
#else
  unsigned mask = 0;
  for (int column = 1; column <= 8; ++column) mask |= unsigned(row[column] != 0 && row[column] != OffBoard) << column;
  return mask;
#endif
}

void TakeCensus(const int* board, Census& census) {
  // One pass a1 to h8; the order h to a within a row that decides the
  // strongest piece is kept by the tie rules: White keeps its first piece of
  // a row unless a later one of the same row is as strong, Black takes a
  // piece as strong as its current one only from a later row.
  int whiteStrongValue = 0, blackStrongValue = 0, blackStrongRow = 0;
  for (int row = 2; row <= 9; ++row) {
    const int* cells = board + row * 10;
    int whiteStrongRow = 0;
    for (unsigned mask = OccupiedColumns(cells); mask != 0; mask &= mask - 1) {
      const int column = __builtin_ctz(mask);
      const int v = cells[column];
      const int s = row * 10 + column;
      if (v > 0) {
        ++census.whiteCount;
        census.whiteMen += v == WhiteMan;
        if (v > whiteStrongValue || (v == whiteStrongValue && whiteStrongRow == row))
          whiteStrongValue = v, census.whiteStrong = s, whiteStrongRow = row;
      } else {
        ++census.blackCount;
        census.blackMen += v == BlackMan;
        if (v < blackStrongValue || (v == blackStrongValue && row > blackStrongRow))
          blackStrongValue = v, census.blackStrong = s, blackStrongRow = row;
      }
      if (v < MarkedBelow) continue;
      if (v > 0) census.white[census.whiteListed++] = {s, v};
      else census.black[census.blackListed++] = {s, v};
    }
  }
}

// Whether the tables were built for these rules and this evaluation.
bool TablesMatch(const Game& g, int kind) {
  const FastEvalTables& t = g.FastEval;
  if (t.Built != 1 || t.Kind != kind) return false;
  for (int c = 0; c < 2; ++c)
    for (int e = 0; e < 4; ++e)
      if (t.PromoKey[c][e] != g.RuleSet.PromoSquares.Cells[c].Cells[e]) return false;
  for (int k = 0; k < 4; ++k)
    for (int i = 0; i < 9; ++i)
      if (t.StepKey[k][i] != g.DirTable.Cells[k].Cells[i]) return false;
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

// The lines behind the crowning squares of list c, as BackRankFast walks
// them; false when a square lies outside the board's cells, which the walk
// itself must meet.
bool BuildLines(const Game& g, int c, FastEvalTables& t) {
  const int* list = g.RuleSet.PromoSquares.Cells[c].Cells;
  const int* steps = g.DirTable.Cells[c == 0 ? KindBlackMan : KindWhiteMan].Cells;
  int count = 0;
  while (count < 8 && steps[count] != EndOfList) ++count;
  t.LineCount[c] = 0;
  for (int i = 0; i < 4; ++i) {
    const int s = list[i];
    if (s == -1) continue;
    if (s < 0 || s >= 120) return false;
    for (int a = 0; a < count; ++a) {
      const int m = s + steps[a];
      if (m < 0 || m >= 120) return false;
      if (g.Board.Cells[m] == OffBoard) break;  // the frame never changes
      for (int b = 0; b < count; ++b) {
        const int d2 = steps[b], tt = m + d2;
        if (steps[a] + d2 == 0 || tt < 0 || tt >= 120) continue;
        if (t.LineCount[c] == 64) return false;
        t.Lines[c][t.LineCount[c]++] = {s, m, tt, steps[a] == d2 ? 1 : 0};
      }
    }
  }
  return true;
}

template <FastKind K>
const FastEvalTables& TablesFor(Game& g) {
  constexpr int kind = static_cast<int>(K);
  if (TablesMatch(g, kind)) return g.FastEval;
  FastEvalTables& t = g.FastEval;
  t.Built = 1;
  t.Kind = kind;
  for (int c = 0; c < 2; ++c)
    for (int e = 0; e < 4; ++e) t.PromoKey[c][e] = g.RuleSet.PromoSquares.Cells[c].Cells[e];
  for (int k = 0; k < 4; ++k)
    for (int i = 0; i < 9; ++i) t.StepKey[k][i] = g.DirTable.Cells[k].Cells[i];
  for (int s = 0; s < 120; ++s) {
    for (int v : {BlackKing, BlackMan, WhiteMan, WhiteKing})
      t.PieceSquare[v + 2][s] = IsFrameCell(s) ? 0 : SquareTerms<K>(g, s, v);
  }
  t.LinesUsable = BuildLines(g, 0, t) && BuildLines(g, 1, t) ? 1 : 0;
  return t;
}

// The back-rank term of list c from the lines behind its crowning squares.
int BackRankFromLines(const int* board, const FastEvalTables& t, int c) {
  const int open = 20 - 40 * c, wide = 30 - 60 * c;
  int p = 0;
  for (int i = 0; i < t.LineCount[c]; ++i) {
    const FastEvalTables::Line& line = t.Lines[c][i];
    const int p0 = board[line.s], p1 = board[line.m], p2 = board[line.t];
    if (p0 == 0) p += wide * (p1 == 0 && p2 == 0) + open * (p1 == 0 || p2 == 0);
    if (line.straight && p0 == p1 && p1 == p2 && (p0 == 1 || p0 == -1)) p += 30 * p0;
  }
  return p;
}

// The terms of one side's pieces: those of their squares, and their support
// weighed by the distance from the strongest enemy piece.
template <int Side>
int SideTerms(const int* board, const FastEvalTables& tables, const Piece* pieces, int count, int strong,
              const SupportSteps* steps) {
  int p = 0;
  for (int i = 0; i < count; ++i) {
    const int s = pieces[i].cell;
    const int support = steps ? Support(board, s, Side, *steps) : DiagonalSupport<Side>(board, s);
    p += tables.PieceSquare[pieces[i].value + 2][s] + Side * (support * Weights.w[strong][s] - 10 * (support == 1));
  }
  return p;
}

int PieceTerms(const Game& g, const FastEvalTables& tables, const Census& census) {
  const int* board = g.Board.Cells;
  if (DiagonalSteps(g.DirTable))
    return SideTerms<1>(board, tables, census.white, census.whiteListed, census.blackStrong, nullptr) +
           SideTerms<-1>(board, tables, census.black, census.blackListed, census.whiteStrong, nullptr);
  const SupportSteps white = StepsOf(g, 1), black = StepsOf(g, -1);
  return SideTerms<1>(board, tables, census.white, census.whiteListed, census.blackStrong, &white) +
         SideTerms<-1>(board, tables, census.black, census.blackListed, census.whiteStrong, &black);
}

template <FastKind K>
int EvaluateFast(Game& g, int alpha, int beta, int side) {
  g.RuleLossPending = 0;
  const int* board = g.Board.Cells;
  Census census;
  TakeCensus(board, census);

  // A side without pieces has lost.
  const int own = side == 1 ? census.whiteCount : census.blackCount;
  const int other = side == 1 ? census.blackCount : census.whiteCount;
  if (own <= 0) g.RuleLossPending = 1;
  if (other <= 0) return GoalWinScore - g.Ply;

  const int m = g.MaterialByPly[g.Ply];
  if (m < alpha - g.LazyMargin || m > beta + g.LazyMargin) return m;
  if (g.LineDrawn != 0) return 0;

  const FastEvalTables& tables = TablesFor<K>(g);
  int p = PieceTerms(g, tables, census);

  // Repetition: any earlier position with the same pieces is a draw.
  const PositionKeyWords positionKey = PositionKeyOf(g.Board);
  for (int i = g.HalfMoveCount - 2; i >= 0; --i)
    if (g.Record.PositionHistory[i] == positionKey) return 0;
  if (g.HalfMoveCount != 0) g.Record.PositionHistory[g.HalfMoveCount - 1] = positionKey;

  for (int c = 0; c < 2; ++c) {
    if ((c == 0 ? census.whiteMen : census.blackMen) <= (c == 0 ? g.ManThresholdWhite : g.ManThresholdBlack)) continue;
    p += tables.LinesUsable == 1 ? BackRankFromLines(board, tables, c) : BackRankFast(g, c);
  }
  if (side == -1) p = -p;

  const double r1 = g.Rnd(), r2 = g.Rnd();
  return ToInt32(m + p + std::floor(r1 * g.NoiseRange) - std::floor(r2 * g.NoiseRange));
}

}  // namespace

int EvaluateShort(Game& g, int alpha, int beta, int side) { return EvaluateFast<FastKind::Short>(g, alpha, beta, side); }
int EvaluateShortMirror(Game& g, int alpha, int beta, int side) {
  return EvaluateFast<FastKind::ShortMirror>(g, alpha, beta, side);
}
int EvaluateLong(Game& g, int alpha, int beta, int side) { return EvaluateFast<FastKind::Long>(g, alpha, beta, side); }

}  // namespace qv

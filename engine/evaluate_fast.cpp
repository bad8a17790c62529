// The evaluation of the four fast rule sets. It computes exactly what the
// general evaluation computes with their rules fixed, term for term, but
// walks the pieces once into a short list, reads the board without range
// checks where the cell is known to lie on it, keeps the score in an integer
// (every term of these rule sets is whole) and takes distances from a table.
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

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

constexpr bool InCentre(int s, bool mirror) {
  return mirror ? (s == 53 || s == 55 || s == 64 || s == 66) : (s == 54 || s == 56 || s == 63 || s == 65);
}

// The quiet steps of one side's men and kings, by which SupportCount looks
// behind a piece.
struct SupportSteps {
  int man[9];
  int king[9];
  int men = 0, kings = 0;
};

SupportSteps StepsOf(const Game& g, int side) {
  SupportSteps steps;
  const DirectionRow& men = g.DirTable[side == 1 ? KindWhiteMan : KindBlackMan];
  const DirectionRow& kings = g.DirTable[side == 1 ? KindWhiteKing : KindBlackKing];
  for (int i = 0; men.Cells[i] != EndOfList && i < 8; ++i) steps.man[steps.men++] = men.Cells[i];
  for (int i = 0; kings.Cells[i] != EndOfList && i < 8; ++i) steps.king[steps.kings++] = kings.Cells[i];
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

// The back-rank term of list c, as the general evaluation counts it over the
// first four entries of a crowning list.
int BackRankFast(const Game& g, int c) {
  int p = 0;
  const int* board = g.Board.Cells;
  const auto& list = g.RuleSet.PromoSquares[c];
  const DirectionRow& steps = g.DirTable[c == 0 ? KindBlackMan : KindWhiteMan];
  for (int i = 0; i < 4; ++i) {
    const int s = list[i];
    if (s == -1) continue;
    const int p0 = g.Board[s];
    for (int a = 0; steps[a] != EndOfList; ++a) {
      const int d1 = steps[a];
      if (g.Board[s + d1] == OffBoard) break;
      const int p1 = board[s + d1];
      for (int b = 0; steps[b] != EndOfList; ++b) {
        const int d2 = steps[b];
        if (d1 + d2 == 0) continue;
        const int t = s + d1 + d2;
        if (t < 0 || t >= 120) continue;
        const int p2 = board[t];
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

struct Piece {
  int cell, value;
};

// The census of the board: counts, and each side's strongest piece as the
// general evaluation finds it scanning the rows upwards and each row from h to
// a: White's first piece of the highest value, Black's last of the lowest.
struct Census {
  int whiteCount = 0, blackCount = 0, whiteMen = 0, blackMen = 0;
  int whiteStrong = 0, blackStrong = 0;
  int pieceCount = 0;
  Piece pieces[64];  // the pieces the terms walk over, a1 to h8 row by row
};

void TakeCensus(const int* board, Census& census) {
  int whiteStrongValue = 0, blackStrongValue = 0;
  for (int row = 2; row <= 9; ++row) {
    // The strongest piece is judged in the order h to a within a row.
    for (int column = 8; column >= 1; --column) {
      const int s = row * 10 + column, v = board[s];
      if (v == 0 || v == OffBoard) continue;
      if (v > 0) {
        ++census.whiteCount;
        if (v == WhiteMan) ++census.whiteMen;
        if (v > whiteStrongValue) whiteStrongValue = v, census.whiteStrong = s;
      } else {
        ++census.blackCount;
        if (v == BlackMan) ++census.blackMen;
        if (v <= blackStrongValue) blackStrongValue = v, census.blackStrong = s;
      }
    }
    for (int column = 1; column <= 8; ++column) {
      const int s = row * 10 + column, v = board[s];
      if (v != 0 && v != OffBoard && v >= MarkedBelow) census.pieces[census.pieceCount++] = {s, v};
    }
  }
}

template <FastKind K>
int PieceTerms(const Game& g, const Census& census, char* key, int& keyLength) {
  const int* board = g.Board.Cells;
  const SupportSteps whiteSteps = StepsOf(g, 1), blackSteps = StepsOf(g, -1);
  int p = 0;
  for (int i = 0; i < census.pieceCount; ++i) {
    const int s = census.pieces[i].cell, v = census.pieces[i].value;
    key[keyLength++] = static_cast<char>('0' + s / 10);
    key[keyLength++] = static_cast<char>('0' + s % 10);
    key[keyLength++] = static_cast<char>('0' + (v > 0 ? v : 2 - v));
    const int sg = v > 0 ? 1 : -1;
    const bool king = v == WhiteKing || v == BlackKing;
    const int strong = v > 0 ? census.blackStrong : census.whiteStrong;

    if (!king) p += v > 0 ? g.PromoApproach.Cells[s].Cells[0] : -g.PromoApproach.Cells[s].Cells[1];
    const int support = Support(board, s, sg, v > 0 ? whiteSteps : blackSteps);
    p += sg * support * Weights.w[strong][s];
    if (support == 1) p -= sg * 10;
    if (InCentre(s, K == FastKind::ShortMirror)) p += sg * 20;

    if (king) {
      if constexpr (K == FastKind::Long) {
        p += sg * 75;
        if (s % 11 == 10) p += sg * 50;
        else if (s == 25 || s == 58 || s == 61 || s == 94) p -= sg * 25;
      } else {
        p += sg * 25;
        const int column = s % 10, row = s / 10;
        if (column == 1 || column == 8) p -= sg * 10;
        if (row == 2 || row == 9) p -= sg * 10;
      }
    } else {
      // A man on its own back row guards the crowning squares of the other side.
      const auto& guard = g.RuleSet.PromoSquares.Cells[v > 0 ? 1 : 0].Cells;
      const int strongA = v > 0 ? 1 : 0, strongB = v > 0 ? 3 : 2;
      const int weakA = v > 0 ? 0 : 1, weakB = v > 0 ? 2 : 3;
      if (guard[strongA] == s) p += sg * 20;
      if (guard[strongB] == s) p += sg * 20;
      if (guard[weakA] == s) p += sg * 10;
      if (guard[weakB] == s) p += sg * 10;
    }
  }
  return p;
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

  char key[3 * 64 + 1];
  int keyLength = 0;
  int p = PieceTerms<K>(g, census, key, keyLength);

  // Repetition: any earlier position with the same pieces is a draw.
  const std::string_view positionKey(key, static_cast<std::size_t>(keyLength));
  for (int i = g.HalfMoveCount - 2; i >= 0; --i)
    if (g.Record.PositionHistory[i] == positionKey) return 0;
  if (g.HalfMoveCount != 0) g.Record.PositionHistory[g.HalfMoveCount - 1].assign(positionKey);

  if (census.whiteMen > g.ManThresholdWhite) p += BackRankFast(g, 0);
  if (census.blackMen > g.ManThresholdBlack) p += BackRankFast(g, 1);
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

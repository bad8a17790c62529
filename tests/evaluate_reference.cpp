// The evaluation as it stood before it was made faster, kept word for word as
// the reference that the faster forms must equal in every position.
#include "evaluate_reference.h"

#include "engine/evaluate.h"

#include <cmath>
#include <cstdlib>
#include <string_view>

#include "core/searchgen.h"
#include "core/text.h"

namespace qv::reference {

int ReferenceSupportCount(const Game& g, int square, int side);

namespace {

enum class EvalKind { General, Short, ShortMirror, Long };

int Row(int s) { return s / 10; }
int Column(int s) { return s % 10; }
int Distance(int a, int b) { return std::abs(Row(a) - Row(b)) + std::abs(Column(a) - Column(b)); }
int Sign(int v) { return v > 0 ? 1 : -1; }

bool InCentre(int s, int set) {
  switch (set) {
    case 0: return s == 53 || s == 55 || s == 64 || s == 66;
    case 2:
      return (s >= 51 && s <= 53) || (s >= 56 && s <= 58) || (s >= 61 && s <= 63) || (s >= 66 && s <= 68);
    default: return s == 54 || s == 56 || s == 63 || s == 65;
  }
}

// The back-rank term of list c: open squares in front of c's crowning squares
// favour side c, and three men of one colour in a line from a crowning square
// count for their side.
template <EvalKind K>
int BackRank(const Game& g, int c) {
  int p = 0;
  const auto& list = g.RuleSet.PromoSquares[c];
  const DirectionRow& steps = g.DirTable[c == 0 ? KindBlackMan : KindWhiteMan];
  const int entries = K == EvalKind::General ? PromoSlots : 4;
  for (int i = 0; i < entries; ++i) {
    const int s = list[i];
    if (s == -1) {
      if (K == EvalKind::General) break;
      continue;
    }
    const int p0 = g.Board[s];
    for (int a = 0; steps[a] != EndOfList; ++a) {
      const int d1 = steps[a];
      if (K == EvalKind::General && std::abs(d1) == 1) break;
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

template <EvalKind K>
int EvaluateAs(Game& g, int alpha, int beta, int side) {
  constexpr bool general = K == EvalKind::General;
  const RuleRecord& r = g.RuleSet;
  g.RuleLossPending = 0;

  // Census, rows 2 to 9 and in a row columns 8 down to 1.
  int whiteCount = 0, blackCount = 0, whiteMen = 0, blackMen = 0;
  int whiteStrong = 0, blackStrong = 0, whiteStrongValue = 0, blackStrongValue = 0;
  bool whiteGoal = false, blackGoal = false;
  for (int row = 2; row <= 9; ++row)
    for (int column = 8; column >= 1; --column) {
      const int s = row * 10 + column, v = g.Board[s];
      if (v == 0 || v == OffBoard) continue;
      if (v > 0) {
        ++whiteCount;
        if (v == WhiteMan) ++whiteMen;
        if (v > whiteStrongValue) whiteStrongValue = v, whiteStrong = s;
      } else {
        ++blackCount;
        if (v == BlackMan) ++blackMen;
        if (v <= blackStrongValue) blackStrongValue = v, blackStrong = s;
      }
      if constexpr (general) {
        if (r.WinAtPromo == 1) {
          if (v == WhiteKing && IsPromoSquare(r.PromoSquares, 1, s)) whiteGoal = true;
          if (v == BlackKing && IsPromoSquare(r.PromoSquares, 0, s)) blackGoal = true;
        } else if (r.KingWin == 1) {
          if (v == WhiteKing && IsPromoSquare(r.PromoSquares, 0, s)) whiteGoal = true;
          if (v == BlackKing && IsPromoSquare(r.PromoSquares, 1, s)) blackGoal = true;
        }
      }
    }

  if constexpr (general) {
    if (r.NoLegalDraw == 1 && HasLegalMove(g, 1) == 0 && whiteCount > 0 && blackCount > 0) {
      g.NoMoveDraw = 1;
      return 0;
    }
  }

  // Goal test: a side with too few pieces, or whose opponent reached its goal, has lost.
  int a = whiteCount, b = blackCount;
  bool fa = whiteGoal, fb = blackGoal;
  if (general && r.AntiMode == 1) {
    std::swap(a, b);
    std::swap(fa, fb);
  }
  const int limit = general ? r.NumberPieces : 0;
  if (side == 1) {
    if (a <= limit || fb) g.RuleLossPending = 1;
    if (b <= limit || fa) return 32000 - g.Ply;
  } else {
    if (b <= limit || fa) g.RuleLossPending = 1;
    if (a <= limit || fb) return 32000 - g.Ply;
  }

  const int m = g.MaterialByPly[g.Ply];
  const bool anti = general && r.AntiMode == 1;
  if ((m < alpha - g.LazyMargin || m > beta + g.LazyMargin) && (!general || g.ActivityByPly[g.Ply] != 0))
    return anti ? -m : m;
  if (g.LineDrawn != 0) return 0;

  const int ww = whiteMen > g.ManThresholdWhite ? 2 : 1;
  const int wb = blackMen > g.ManThresholdBlack ? 2 : 1;
  const int pob = r.PiecesOnBlack;
  const int centreSet = K == EvalKind::General ? pob : K == EvalKind::ShortMirror ? 0 : 1;
  char key[3 * 64 + 1];
  int keyLength = 0;
  int firstRowWhite = 0, firstRowBlack = 0;
  double p = 0;

  for (int row = 2; row <= 9; ++row)
    for (int column = 1; column <= 8; ++column) {
      const int s = row * 10 + column, v = g.Board[s];
      if (v == 0) {
        if constexpr (general) {
          const int w = g.PromoApproach[s][0], bl = g.PromoApproach[s][1];
          p += ww == 2 ? w : w / 2;
          p += wb == 2 ? bl : bl / 2;
        }
        continue;
      }
      if (v == OffBoard || v < MarkedBelow) continue;
      key[keyLength++] = static_cast<char>('0' + s / 10);
      key[keyLength++] = static_cast<char>('0' + s % 10);
      key[keyLength++] = static_cast<char>('0' + (v > 0 ? v : 2 - v));
      const int sg = Sign(v), c = v > 0 ? 0 : 1;
      const bool king = std::abs(v) == 2;
      const int strong = v > 0 ? blackStrong : whiteStrong;

      if constexpr (general) {
        p += (v > 0 ? ww : wb) * g.PromoApproach[s][c];
        if (g.Flags.TropismActive == 1)
          p += sg * ReferenceSupportCount(g, s, sg) * ((15 - Distance(strong, s)) / (2 * std::abs(v) - 1));
      } else {
        if (!king) p += v > 0 ? g.PromoApproach[s][0] : -g.PromoApproach[s][1];
        const int support = ReferenceSupportCount(g, s, sg);
        p += sg * support * ((15 - Distance(strong, s)) / 3);
        if (support == 1) p -= sg * 10;
      }
      if (InCentre(s, centreSet)) p += sg * 20;

      if (king) {
        if (K == EvalKind::Long) {
          p += sg * 75;
          if (s % 11 == 10) p += sg * 50;
          else if (s == 25 || s == 58 || s == 61 || s == 94) p -= sg * 25;
        } else if (!general || r.LongKings != 1) {
          p += sg * 25;
          if (general && r.ManCapKing != 1) p += sg * 25;
          if (column == 1 || column == 8) p -= sg * 10;
          if (row == 2 || row == 9) p -= sg * 10;
        } else {
          p += sg * 25;
          if (r.ManCapKing != 1) p += sg * 25;
          p += sg * 50;
          if (s % 11 == 10) p += sg * 50;
          else if (s == 25 || s == 58 || s == 61 || s == 94) p -= sg * 25;
        }
      } else {
        // A man on its own back row guards the crowning squares of the other side.
        const auto& guard = r.PromoSquares[1 - c];
        if (!general || pob != 2) {
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
      }

      if constexpr (general) {
        if (g.Flags.HasUnreachableSquares == 1 && !king && g.PromoReach[s][c] == 0) p -= sg * 75;
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
              const int target = v > 0 ? blackStrong : whiteStrong;
              int& firstRow = v > 0 ? firstRowWhite : firstRowBlack;
              if (firstRow == 0) firstRow = row - 1;
              p = ToInt32(p + sg * (2.0 - (whiteCount + blackCount) * 0.01) * (15 - Distance(s, target)));
              if (v < 0) p += 10 * std::abs(firstRowBlack + 1 - row);
              else p -= 10 * std::abs(firstRowWhite + 1 - row);
            }
          }
        }
        if (s == g.FocusSquare && v == g.FocusPiece) p -= sg * 50;
      }
    }

  // Repetition: any earlier position with the same pieces is a draw.
  const std::string_view positionKey(key, static_cast<std::size_t>(keyLength));
  for (int i = g.HalfMoveCount - 2; i >= 0; --i)
    if (g.Record.PositionHistory[i].Text() == positionKey) return 0;
  if (g.HalfMoveCount != 0) g.Record.PositionHistory[g.HalfMoveCount - 1] = PositionKeyOf(g.Board);

  if (!general || g.BackRankActive == 1) {
    if (whiteMen > g.ManThresholdWhite) p += BackRank<K>(g, 0);
    if (blackMen > g.ManThresholdBlack) p += BackRank<K>(g, 1);
  }
  if (side == -1) p = -p;

  const double r1 = g.Rnd(), r2 = g.Rnd();
  int score = ToInt32(m + p + std::floor(r1 * g.NoiseRange) - std::floor(r2 * g.NoiseRange));
  if (anti) score = -score;
  return score;
}

}  // namespace

int ReferenceSupportCount(const Game& g, int square, int side) {
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

int Evaluate(Game& g, int alpha, int beta, int side) { return EvaluateAs<EvalKind::General>(g, alpha, beta, side); }
int EvaluateShort(Game& g, int alpha, int beta, int side) { return EvaluateAs<EvalKind::Short>(g, alpha, beta, side); }
int EvaluateShortMirror(Game& g, int alpha, int beta, int side) {
  return EvaluateAs<EvalKind::ShortMirror>(g, alpha, beta, side);
}
int EvaluateLong(Game& g, int alpha, int beta, int side) { return EvaluateAs<EvalKind::Long>(g, alpha, beta, side); }

}  // namespace qv::reference

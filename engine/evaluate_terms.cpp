// The terms of one piece on one square as the rules decide them: the centre,
// a king's place on the board, a man guarding the other side's crowning
// squares, a man that can no longer crown, and the pull of WinAtPromo.
#include <cstdlib>

#include "engine/evaluate_general.h"

namespace qv::general {

namespace {
int Sign(int v) { return v > 0 ? 1 : -1; }
}  // namespace

int Row(int s) { return s / 10; }
int Column(int s) { return s % 10; }
int Distance(int a, int b) { return std::abs(Row(a) - Row(b)) + std::abs(Column(a) - Column(b)); }

// The four centre squares, by the colour the pieces play on.
bool InCentre(int s, int piecesOnBlack) {
  switch (piecesOnBlack) {
    case 0: return s == 53 || s == 55 || s == 64 || s == 66;
    case 2:
      return (s >= 51 && s <= 53) || (s >= 56 && s <= 58) || (s >= 61 && s <= 63) || (s >= 66 && s <= 68);
    default: return s == 54 || s == 56 || s == 63 || s == 65;
  }
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

// Under WinAtPromo men head for their crowning squares and kings for the
// other side's.
int WinAtPromoTerm(const RuleRecord& r, int s, int v) {
  if (r.WinAtPromo != 1) return 0;
  const bool king = std::abs(v) == 2;
  const int aim = king ? (v > 0 ? 1 : 0) : (v > 0 ? 0 : 1);
  int p = 0;
  for (int i = 0; i < PromoSlots; ++i) {
    const int k = r.PromoSquares[aim][i];
    if (k != -1) p += v * ((king ? 30 : 15) - Distance(s, k));
  }
  return p;
}

int SquareTerms(const Game& g, int s, int v) {
  const RuleRecord& r = g.RuleSet;
  const int sg = Sign(v), c = v > 0 ? 0 : 1;
  const bool king = std::abs(v) == 2;
  double p = 0;
  if (InCentre(s, r.PiecesOnBlack)) p += sg * 20;
  p += king ? KingTerms(r, s, sg) : GuardTerms(r, s, v);
  if (g.Flags.HasUnreachableSquares == 1 && !king && g.PromoReach[s][c] == 0) p -= sg * 75;
  return static_cast<int>(p) + WinAtPromoTerm(r, s, v);
}

}  // namespace qv::general

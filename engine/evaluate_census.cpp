// The census of the board: the pieces of each side, its men, its strongest
// piece and whether a king stands on its goal; read square by square for any
// board, or from the piece masks of a board of plain men and kings.
#include <bit>

#include "core/board_masks.h"
#include "engine/evaluate_general.h"

namespace qv::general {

namespace {

// Bits set in x, without relying on a popcount instruction.
constexpr int CountBits(Mask x) {
  x = x - ((x >> 1) & 0x5555555555555555ULL);
  x = (x & 0x3333333333333333ULL) + ((x >> 2) & 0x3333333333333333ULL);
  x = (x + (x >> 4)) & 0x0f0f0f0f0f0f0f0fULL;
  return static_cast<int>((x * 0x0101010101010101ULL) >> 56);
}

// The census reads rows upwards and each row from h to a. White's strongest
// piece is its first of the highest value: the lowest row, the highest column.
int FirstInCensusOrder(Mask m) {
  if (m == 0) return 0;
  const int row = std::countr_zero(m) >> 3;
  const unsigned columns = static_cast<unsigned>(m >> (row * 8)) & 0xffu;
  return CellOfBit(row * 8 + std::bit_width(columns) - 1);
}

// Black's strongest is its last of the lowest value: the highest row, the
// lowest column.
int LastInCensusOrder(Mask m) {
  if (m == 0) return 0;
  const int row = (63 - std::countl_zero(m)) >> 3;
  const unsigned columns = static_cast<unsigned>(m >> (row * 8)) & 0xffu;
  return CellOfBit(row * 8 + std::countr_zero(columns));
}

// True when a king of value `king` stands on a square of crowning list `list`.
bool KingOnList(const Game& g, int list, int king) {
  for (int k : g.RuleSet.PromoSquares.Cells[list].Cells)
    if (k >= 0 && k < 120 && !IsFrameCell(k) && g.Board.Cells[k] == king) return true;
  return false;
}

}  // namespace

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

Census CensusOfPieces(const Game& g, const BoardPieces& pieces) {
  const PositionKeyWords& k = pieces.Key;
  Census n;
  n.whiteMen = CountBits(k.WhiteMen);
  n.blackMen = CountBits(k.BlackMen);
  n.whiteCount = n.whiteMen + CountBits(k.WhiteKings);
  n.blackCount = n.blackMen + CountBits(k.BlackKings);
  n.whiteStrong = FirstInCensusOrder(k.WhiteKings != 0 ? k.WhiteKings : k.WhiteMen);
  n.blackStrong = LastInCensusOrder(k.BlackKings != 0 ? k.BlackKings : k.BlackMen);
  const RuleRecord& r = g.RuleSet;
  if (r.WinAtPromo == 1) {
    n.whiteGoal = k.WhiteKings != 0 && KingOnList(g, 1, WhiteKing);
    n.blackGoal = k.BlackKings != 0 && KingOnList(g, 0, BlackKing);
  } else if (r.KingWin == 1) {
    n.whiteGoal = k.WhiteKings != 0 && KingOnList(g, 0, WhiteKing);
    n.blackGoal = k.BlackKings != 0 && KingOnList(g, 1, BlackKing);
  }
  return n;
}

}  // namespace qv::general

// The census of the board: the pieces of each side, its men, its strongest
// piece and whether a king stands on its goal; read square by square for any
// board, or from the piece masks of a board of plain men and kings.
#include "core/mask_count.h"
#include "engine/evaluate_general.h"
#include "engine/strongest_piece.h"

namespace qv::general {

namespace {

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
  n.whiteMen = CountOf(k.WhiteMen);
  n.blackMen = CountOf(k.BlackMen);
  n.whiteCount = n.whiteMen + CountOf(k.WhiteKings);
  n.blackCount = n.blackMen + CountOf(k.BlackKings);
  n.whiteStrong = CellOfStrong(WhiteStrongBit(k));
  n.blackStrong = CellOfStrong(BlackStrongBit(k));
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

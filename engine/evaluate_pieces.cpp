// The general evaluation walking only the pieces: the census from the piece
// masks, each piece's terms from the tables less the term its square would
// have if it were empty, added to the empty board's sum, and the back-rank
// term from the lines behind the crowning squares. Every term is whole, so
// the sum is kept in an integer.
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

int SumOf(const int* table, Mask m) {
  int p = 0;
  for (; m != 0; m &= m - 1) p += table[std::countr_zero(m)];
  return p;
}

// 1, plus 2 for each own man or king one of its own steps behind the square;
// the steps never reach past the 120 cells from a square (see the tables).
template <int Side>
int Support(const int* board, int s, const GeneralEvalTables& t) {
  constexpr int c = Side == 1 ? 0 : 1;
  int count = 1;
  for (int i = 0; i < t.ManStepCount[c]; ++i) count += 2 * (board[s - t.ManSteps[c][i]] == Side);
  for (int i = 0; i < t.KingStepCount[c]; ++i) count += 2 * (board[s - t.KingSteps[c][i]] == 2 * Side);
  return count;
}

// The support of each piece of one side weighed by its distance D from the
// strongest enemy piece: (15 - D) for a man, (15 - D) / 3 for a king. The
// sum is White's view for White's pieces and Black's for Black's.
template <int Side>
int Tropism(const int* board, const GeneralEvalTables& t, Mask men, Mask kings, int strong) {
  const int strongRow = strong / 10, strongColumn = strong % 10;
  const auto reach = [&](int bit) {
    const int row = (bit >> 3) + 2, column = (bit & 7) + 1;
    const int rows = row > strongRow ? row - strongRow : strongRow - row;
    const int columns = column > strongColumn ? column - strongColumn : strongColumn - column;
    return 15 - rows - columns;
  };
  int p = 0;
  for (; men != 0; men &= men - 1) {
    const int bit = std::countr_zero(men);
    p += Support<Side>(board, CellOfBit(bit), t) * reach(bit);
  }
  for (; kings != 0; kings &= kings - 1) {
    const int bit = std::countr_zero(kings);
    p += Support<Side>(board, CellOfBit(bit), t) * (reach(bit) / 3);
  }
  return p;
}

// The piece the player marked with "Priority", standing where it was marked.
int FocusTerm(const Game& g) {
  const int s = g.FocusSquare, v = g.FocusPiece;
  if (v == 0 || s < 0 || s >= 120 || IsFrameCell(s) || g.Board.Cells[s] != v) return 0;
  return v > 0 ? -50 : 50;
}

}  // namespace

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

int PieceTerms(const Game& g, const GeneralEvalTables& t, const Census& n, const BoardPieces& pieces, int ww, int wb) {
  const auto& table = t.PieceSquare[ww - 1][wb - 1];
  const PositionKeyWords& k = pieces.Key;
  int p = t.EmptyTotal[ww - 1][wb - 1];
  p += SumOf(table[KindWhiteMan], k.WhiteMen) + SumOf(table[KindWhiteKing], k.WhiteKings);
  p += SumOf(table[KindBlackMan], k.BlackMen) + SumOf(table[KindBlackKing], k.BlackKings);
  if (g.Flags.TropismActive == 1) {
    const int* board = g.Board.Cells;
    p += Tropism<1>(board, t, k.WhiteMen, k.WhiteKings, n.blackStrong);
    p -= Tropism<-1>(board, t, k.BlackMen, k.BlackKings, n.whiteStrong);
  }
  return p + FocusTerm(g);
}

int BackRankFromLines(const BoardCells& board, const GeneralEvalTables& t, int c) {
  const int open = 20 - 40 * c, wide = 30 - 60 * c;
  int p = 0;
  for (int i = 0; i < t.LineCount[c]; ++i) {
    const GeneralEvalTables::Line& line = t.Lines[c][i];
    const int p0 = board.Cells[line.s], p1 = board.Cells[line.m], p2 = board.Cells[line.t];
    if (p0 == 0) p += wide * (p1 == 0 && p2 == 0) + open * (p1 == 0 || p2 == 0);
    if (line.straight && p0 == p1 && p1 == p2 && (p0 == 1 || p0 == -1)) p += 30 * p0;
  }
  return p;
}

}  // namespace qv::general

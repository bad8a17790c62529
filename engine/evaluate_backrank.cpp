// The back-rank term of a crowning list: open squares in front of the
// crowning squares favour the side that crowns there, and three men of one
// colour in a line from a crowning square count for their side. Walked along
// the lists for any board, or read from the lines the tables hold.
#include <cstdlib>

#include "engine/evaluate_general.h"

namespace qv::general {

// Open squares in front of c's crowning squares favour side c, and three men
// of one colour in a line from a crowning square count for their side.
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

// Without a branch on the board: every line is read and counts by what its
// crowning square holds.
int BackRankFromLines(const BoardCells& board, const GeneralEvalTables& t, int c) {
  const int open = 20 - 40 * c, wide = 30 - 60 * c;
  const int* cells = board.Cells;
  int p = 0;
  for (int i = 0; i < t.CrownCount[c]; ++i) {
    const GeneralEvalTables::Crown& crown = t.Crowns[c][i];
    const int p0 = cells[crown.s];
    int lines = 0, rows = 0;
    for (const GeneralEvalTables::Line* line = &t.Lines[c][crown.lines]; line->m != 0; ++line) {
      const int p1 = cells[line->m], p2 = cells[line->t];
      lines += wide * ((p1 == 0) & (p2 == 0)) + open * ((p1 == 0) | (p2 == 0));
    }
    for (const GeneralEvalTables::Line* line = &t.Straight[c][crown.straight]; line->m != 0; ++line)
      rows += (cells[line->m] == p0) & (cells[line->t] == p0);
    p += (p0 == 0) * lines + ((p0 == 1) | (p0 == -1)) * 30 * p0 * rows;
  }
  return p;
}

int CountedBackRank(const BoardCells& board, GeneralEvalTables& t, const BoardPieces& pieces, int c) {
  static_assert(GeneralEvalTables::CountedSlots == 256, "the slot is the hash's top byte");
  const Mask zone = t.Zone[c];
  const Mask empty = zone & ~pieces.Occupied, white = zone & pieces.Key.WhiteMen, black = zone & pieces.Key.BlackMen;
  const Mask hash = (empty * 0x9e3779b97f4a7c15ULL) ^ (white * 0xc2b2ae3d27d4eb4fULL) ^ (black * 0x165667b19e3779f9ULL);
  GeneralEvalTables::Counted& slot = t.BackRankCounted[c][hash >> 56];
  if (slot.used == 1 && slot.empty == empty && slot.white == white && slot.black == black) return slot.value;
  slot = {empty, white, black, BackRankFromLines(board, t, c), 1};
  return slot.value;
}

}  // namespace qv::general

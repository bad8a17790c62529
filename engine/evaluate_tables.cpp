// The tables of the general evaluation: built from the rules, the direction
// table and the promotion tables, and kept with a copy of all of it so that a
// change to any of them, however it is made, builds them again.
#include <cstdlib>
#include <cstring>

#include "core/bit_step.h"
#include "core/board_masks.h"
#include "engine/evaluate_general.h"

namespace qv::general {

namespace {

GeneralEvalKey KeyOf(const Game& g) {
  GeneralEvalKey key;
  const RuleRecord& r = g.RuleSet;
  key.PiecesOnBlack = r.PiecesOnBlack;
  key.LongKings = r.LongKings;
  key.ManCapKing = r.ManCapKing;
  key.WinAtPromo = r.WinAtPromo;
  key.HasUnreachableSquares = g.Flags.HasUnreachableSquares;
  std::memcpy(key.Promo, r.PromoSquares.Cells, sizeof key.Promo);
  std::memcpy(key.Steps, g.DirTable.Cells, sizeof key.Steps);
  std::memcpy(key.Approach, g.PromoApproach.Cells + FirstSquareCell, sizeof key.Approach);
  std::memcpy(key.Reach, g.PromoReach.Cells + FirstSquareCell, sizeof key.Reach);
  return key;
}

// PromoReach counts only while HasUnreachableSquares is 1.
bool KeyMatches(const Game& g, const GeneralEvalKey& key) {
  const RuleRecord& r = g.RuleSet;
  return key.PiecesOnBlack == r.PiecesOnBlack && key.LongKings == r.LongKings && key.ManCapKing == r.ManCapKing &&
         key.WinAtPromo == r.WinAtPromo && key.HasUnreachableSquares == g.Flags.HasUnreachableSquares &&
         std::memcmp(key.Promo, r.PromoSquares.Cells, sizeof key.Promo) == 0 &&
         std::memcmp(key.Steps, g.DirTable.Cells, sizeof key.Steps) == 0 &&
         std::memcmp(key.Approach, g.PromoApproach.Cells + FirstSquareCell, sizeof key.Approach) == 0 &&
         (key.HasUnreachableSquares != 1 ||
          std::memcmp(key.Reach, g.PromoReach.Cells + FirstSquareCell, sizeof key.Reach) == 0);
}

// The squares from which a move of `columns` columns sideways stays in the
// row, as a mask of every row.
Mask ColumnsThatStay(int columns) {
  Mask m = 0;
  for (int column = 0; column < 8; ++column)
    if (column + columns >= 0 && column + columns < 8) m |= ColumnA << column;
  return m;
}

// One direction row's steps added to side's support steps; false when the
// row has no end within it or a step the masks cannot follow (BitStepOf).
bool AddSupportSteps(const int (&row)[9], GeneralEvalTables& t, int side) {
  for (int i = 0; i < 9; ++i) {
    if (row[i] == EndOfList) return true;
    const BitStep step = BitStepOf(row[i]);
    if (!step.Usable) return false;
    t.Support[side][t.StepCount[side]++] = {step.Shift, ColumnsThatStay(step.Columns)};
  }
  return false;
}

bool BuildSupportSteps(const Game& g, GeneralEvalTables& t) {
  for (int side = 0; side < 2; ++side) {
    t.StepCount[side] = 0;
    if (!AddSupportSteps(g.DirTable.Cells[side == 0 ? KindWhiteMan : KindBlackMan].Cells, t, side)) return false;
    t.ManStepCount[side] = t.StepCount[side];
    if (!AddSupportSteps(g.DirTable.Cells[side == 0 ? KindWhiteKing : KindBlackKing].Cells, t, side)) return false;
  }
  return true;
}

// The empty-square term of square s with the weights ww and wb.
int EmptyTerm(const Game& g, int s, int ww, int wb) {
  const int w = g.PromoApproach[s][0], bl = g.PromoApproach[s][1];
  return (ww == 2 ? w : w / 2) + (wb == 2 ? bl : bl / 2);
}

void BuildSquareTables(const Game& g, GeneralEvalTables& t) {
  static constexpr int values[4] = {WhiteMan, BlackMan, WhiteKing, BlackKing};  // by PieceKind
  for (int ww = 1; ww <= 2; ++ww)
    for (int wb = 1; wb <= 2; ++wb) {
      int total = 0;
      for (int bit = 0; bit < 64; ++bit) {
        const int s = CellOfBit(bit), empty = EmptyTerm(g, s, ww, wb);
        total += empty;
        for (int kind = 0; kind < 4; ++kind) {
          const int v = values[kind], c = v > 0 ? 0 : 1;
          const int approach = (v > 0 ? ww : wb) * g.PromoApproach[s][c];
          t.PieceSquare[ww - 1][wb - 1][kind][bit] = approach + SquareTerms(g, s, v) - empty;
        }
      }
      t.EmptyTotal[ww - 1][wb - 1] = total;
    }
}

// The lines behind the crowning squares of list c, as BackRank walks them;
// false when they do not fit or the walk would leave the 120 cells, which
// BackRank itself must then meet. A frame cell always holds OffBoard and a
// square never does on the boards the tables serve, so where the walk stops
// is known without the board.
bool BuildLines(const Game& g, int c, GeneralEvalTables& t) {
  const int* list = g.RuleSet.PromoSquares.Cells[c].Cells;
  const int* steps = g.DirTable.Cells[c == 0 ? KindBlackMan : KindWhiteMan].Cells;
  int count = 0;
  while (count < 9 && steps[count] != EndOfList) ++count;
  if (count == 9) return false;
  int lines = 0, straight = 0;
  t.CrownCount[c] = 0;
  t.Zone[c] = 0;
  const auto inZone = [&](int cell) {
    if (!IsFrameCell(cell)) t.Zone[c] |= BitOf((cell / 10 - 2) * 8 + cell % 10 - 1);
  };
  // Room for the lines of one crowning square and the two ends.
  const auto fits = [&](int used) { return used + count * count + 1 <= GeneralEvalTables::MaxLines; };
  for (int i = 0; i < PromoSlots; ++i) {
    const int s = list[i];
    if (s == -1) break;
    if (s < 0 || s >= 120 || !fits(lines) || !fits(straight)) return false;
    t.Crowns[c][t.CrownCount[c]++] = {s, lines, straight};
    inZone(s);
    for (int a = 0; a < count; ++a) {
      const int d1 = steps[a], m = s + d1;
      if (std::abs(d1) == 1) break;
      if (m < 0 || m >= 120) return false;
      if (IsFrameCell(m)) break;
      for (int b = 0; b < count; ++b) {
        const int d2 = steps[b], end = m + d2;
        if (d1 + d2 == 0 || end < 0 || end >= 120) continue;
        t.Lines[c][lines++] = {m, end};
        inZone(m);
        inZone(end);
        if (d1 == d2) t.Straight[c][straight++] = {m, end};
      }
    }
    t.Lines[c][lines++] = {0, 0};
    t.Straight[c][straight++] = {0, 0};
  }
  return true;
}

void Build(const Game& g, GeneralEvalTables& t) {
  t.Built = 1;
  t.From = KeyOf(g);
  t.Usable = BuildSupportSteps(g, t) ? 1 : 0;
  if (t.Usable == 1) BuildSquareTables(g, t);
  t.LinesUsable = BuildLines(g, 0, t) && BuildLines(g, 1, t) ? 1 : 0;
  for (auto& list : t.BackRankCounted)
    for (auto& slot : list) slot.used = 0;
  for (auto& side : t.SideTermsCounted)
    for (auto& slot : side) slot.used = 0;
}

}  // namespace

GeneralEvalTables& TablesFor(Game& g) {
  GeneralEvalTables& t = g.GeneralEval;
  if (t.Built != 1 || !KeyMatches(g, t.From)) Build(g, t);
  return t;
}

}  // namespace qv::general

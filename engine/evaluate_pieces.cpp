// The terms of the pieces walked one by one: each piece's terms from the
// tables less the term its square would have if it were empty, added to the
// empty board's sum, and each piece's support weighed by its distance from
// the strongest enemy piece. Every term is whole, so the sum is an integer.
#include <bit>

#include "core/board_masks.h"
#include "engine/evaluate_general.h"

namespace qv::general {

namespace {

int SumOf(const int* table, Mask m) {
  int p = 0;
  for (; m != 0; m &= m - 1) p += table[std::countr_zero(m)];
  return p;
}

// The weight of a piece's support by its distance D from the strongest enemy
// piece: 15 - D for a man, (15 - D) / 3 for a king. By the strongest piece's
// square bit, or 64 when the enemy has no piece (cell 0); then the piece's
// bit, plus 64 for a king.
struct TropismWeights {
  signed char w[65][128]{};
  constexpr TropismWeights() {
    for (int from = 0; from <= 64; ++from)
      for (int bit = 0; bit < 64; ++bit) {
        const int cell = CellOfBit(bit), other = from == 64 ? 0 : CellOfBit(from);
        const int rows = cell / 10 - other / 10, columns = cell % 10 - other % 10;
        const int reach = 15 - (rows < 0 ? -rows : rows) - (columns < 0 ? -columns : columns);
        w[from][bit] = static_cast<signed char>(reach);
        w[from][64 + bit] = static_cast<signed char>(reach / 3);
      }
  }
};
constexpr TropismWeights Weights;

int BitOfCell(int cell) { return cell == 0 ? 64 : (cell / 10 - 2) * 8 + cell % 10 - 1; }

// The squares by how many of side's own pieces stand one of their steps
// behind them, in binary: bit b of plane i is bit i of square b's count.
struct SupportPlanes {
  Mask plane[5]{};
  int count = 0;
};

SupportPlanes PlanesOf(const GeneralEvalTables& t, int side, Mask men, Mask kings) {
  SupportPlanes planes;
  planes.count = std::bit_width(static_cast<unsigned>(t.StepCount[side]));
  for (int i = 0; i < t.StepCount[side]; ++i) {
    const GeneralEvalTables::SupportStep& step = t.Support[side][i];
    Mask carry = ShiftBy((i < t.ManStepCount[side] ? men : kings) & step.From, step.Shift);
    for (int k = 0; carry != 0 && k < planes.count; ++k) {
      const Mask next = planes.plane[k] & carry;
      planes.plane[k] ^= carry;
      carry = next;
    }
  }
  return planes;
}

// The weights of the pieces of `pieces`, a king's where `kings` has its bit.
int WeightOf(Mask pieces, Mask kings, const signed char* weight) {
  int p = 0;
  for (; pieces != 0; pieces &= pieces - 1) {
    const int bit = std::countr_zero(pieces);
    p += weight[static_cast<int>((kings >> bit) & 1) * 64 + bit];
  }
  return p;
}

// One side's pieces (side 0 White, 1 Black): their squares' terms from the
// table, and with the tropism their support (1, plus 2 for each own piece one
// of its steps behind) times their weight, in White's view.
int SideTerms(const GeneralEvalTables& t, const int* table, int side, Mask men, Mask kings, int strong,
              bool tropism) {
  const Mask pieces = men | kings;
  if (!tropism) return SumOf(table + side * 64, men) + SumOf(table + (2 + side) * 64, kings);
  const signed char* weight = Weights.w[BitOfCell(strong)];
  int p = 0, support = 0;
  for (Mask m = pieces; m != 0; m &= m - 1) {
    const int bit = std::countr_zero(m), king = static_cast<int>((kings >> bit) & 1);
    p += table[(side + 2 * king) * 64 + bit];
    support += weight[king * 64 + bit];
  }
  const SupportPlanes planes = PlanesOf(t, side, men, kings);
  for (int k = 0; k < planes.count; ++k) support += (2 << k) * WeightOf(planes.plane[k] & pieces, kings, weight);
  return p + (side == 0 ? support : -support);
}

// SideTerms, remembered by everything it reads besides the tables.
int CountedSideTerms(GeneralEvalTables& t, int ww, int wb, int side, Mask men, Mask kings, int strong,
                     bool tropism) {
  static_assert(GeneralEvalTables::SideSlots == 512, "the slot is the hash's top nine bits");
  const int weights = (ww - 1) * 4 + (wb - 1) * 2 + (tropism ? 1 : 0);
  const Mask hash = (men * 0x9e3779b97f4a7c15ULL) ^ (kings * 0xc2b2ae3d27d4eb4fULL) ^
                    (static_cast<Mask>(strong * 8 + weights) * 0x165667b19e3779f9ULL);
  GeneralEvalTables::SideCounted& slot = t.SideTermsCounted[side][hash >> 55];
  if (slot.used == 1 && slot.men == men && slot.kings == kings && slot.strong == strong && slot.weights == weights)
    return slot.value;
  const int value = SideTerms(t, &t.PieceSquare[ww - 1][wb - 1][0][0], side, men, kings, strong, tropism);
  slot = {men, kings, strong, weights, value, 1};
  return value;
}

// The piece the player marked with "Priority", standing where it was marked.
int FocusTerm(const Game& g) {
  const int s = g.FocusSquare, v = g.FocusPiece;
  if (v == 0 || s < 0 || s >= 120 || IsFrameCell(s) || g.Board.Cells[s] != v) return 0;
  return v > 0 ? -50 : 50;
}

}  // namespace

int PieceTerms(const Game& g, GeneralEvalTables& t, const Census& n, const BoardPieces& pieces, int ww, int wb) {
  const PositionKeyWords& k = pieces.Key;
  int p = t.EmptyTotal[ww - 1][wb - 1];
  const bool tropism = g.Flags.TropismActive == 1;
  p += CountedSideTerms(t, ww, wb, 0, k.WhiteMen, k.WhiteKings, n.blackStrong, tropism);
  p += CountedSideTerms(t, ww, wb, 1, k.BlackMen, k.BlackKings, n.whiteStrong, tropism);
  return p + FocusTerm(g);
}

}  // namespace qv::general

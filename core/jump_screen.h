#pragma once
// Before the general walk asks each of a side's pieces whether it has a
// first jump, one look at the whole side on square masks sets aside the
// pieces that certainly have none: a piece that does not slide can only jump
// along a capture step onto a piece that is not its own with an empty square
// beyond. What is left may still have no jump; the walk asks those as before.
#include <cstdint>

#include "core/bit_step.h"
#include "core/board_pieces.h"

namespace qv {

// The pieces of `pieces` that may jump along one of the capture steps of
// `row`: all of them when a step cannot be followed on the masks or the row
// has no end mark.
inline Mask MayJumpAlong(const int* row, Mask pieces, Mask targets, Mask empty) {
  Mask may = 0;
  for (int i = 0; row[i] != EndOfList; ++i) {
    const BitStep step = i < 8 ? BitStepOf(row[i]) : BitStep{};
    if (!step.Usable) return pieces;
    may |= pieces & ShiftBy(targets, -step.Shift) & ShiftBy(empty, -2 * step.Shift);
  }
  return may;
}

// The squares whose piece may have a first jump, as bits: every square but
// those of the side's plain men and kings, and of these the ones that slide
// and the ones with a piece of another value one capture step away and an
// empty square beyond it.
inline Mask PiecesThatMayJump(const BoardCells& board, const DirectionTable& dirs, int side, bool menSlide,
                              bool kingsSlide) {
  const BoardPieces pieces = PiecesOf(board);
  const PositionKeyWords& k = pieces.Key;
  const Mask men = side == 1 ? k.WhiteMen : k.BlackMen, kings = side == 1 ? k.WhiteKings : k.BlackKings;
  const Mask targets = pieces.Occupied & ~(men | kings), empty = ~pieces.Occupied;
  const int manRow = (side == 1 ? KindWhiteMan : KindBlackMan) + 4, kingRow = manRow + 2;
  Mask may = ~(men | kings);
  may |= menSlide ? men : MayJumpAlong(dirs.Cells[manRow].Cells, men, targets, empty);
  may |= kingsSlide ? kings : MayJumpAlong(dirs.Cells[kingRow].Cells, kings, targets, empty);
  return may;
}

}  // namespace qv

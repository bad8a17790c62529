#pragma once
// The evaluation's repetition test: a position that repeats any earlier
// position of the game or of the line being searched, whoever was to move
// then, is a draw. The position is stored as the one before the current half
// move, so that the nodes below read it.
#include "core/game.h"

namespace qv {

inline bool RepeatsEarlierPosition(Game& g, const PositionKeyWords& key) {
  for (int i = g.HalfMoveCount - 2; i >= 0; --i)
    if (g.Record.PositionHistory[i] == key) return true;
  if (g.HalfMoveCount != 0) g.Record.PositionHistory[g.HalfMoveCount - 1] = key;
  return false;
}

}  // namespace qv

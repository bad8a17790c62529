#pragma once
// Move generation: the legal moves of the side to move at the current ply.
#include "core/game.h"

namespace qv {

// Lists the moves of SideToMove on Board into MoveStack at PlyBase[Ply] and sets
// MoveTop and PlyBase[Ply + 1]. includeQuiet 0 asks for captures only when
// captures are compulsory.
void GenerateMoves(Game& g, int includeQuiet);

// The two-step call every caller makes: captures first, then, if none came,
// everything else.
inline void GenerateLegalMoves(Game& g) {
  GenerateMoves(g, 0);
  if (g.PlyBase[g.Ply + 1] <= g.PlyBase[g.Ply]) GenerateMoves(g, 1);
}

}  // namespace qv

#pragma once
// Move generation: the legal moves of the side to move at the current ply.
#include "core/game.h"

namespace qv {

// Lists the moves of SideToMove on Board into MoveStack at PlyBase[Ply] and sets
// MoveTop and PlyBase[Ply + 1]. includeQuiet 0 asks for captures only when
// captures are compulsory.
void GenerateMoves(Game& g, int includeQuiet);

// The two-step call every caller makes: captures first, then, if none came,
// everything else. Where the rules allow it both steps are one walk over the
// board; the moves are the same either way.
void GenerateLegalMoves(Game& g);

}  // namespace qv

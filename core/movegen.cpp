#include "core/movegen.h"

#include "core/movegen_walk.h"

namespace qv {

void GenerateMoves(Game& g, int includeQuiet) { MoveWalk<RuntimeRules>(g).Run(includeQuiet); }

void GenerateLegalMoves(Game& g) {
  MoveWalk<RuntimeRules>(g).RunCapturesFirst();
  if (g.PlyBase[g.Ply + 1] <= g.PlyBase[g.Ply]) GenerateMoves(g, 1);
}

}  // namespace qv

#include "core/movegen.h"

namespace qv {

// Placeholder until the generator lands: no moves.
void GenerateMoves(Game& g, int /*includeQuiet*/) {
  g.MoveTop = g.PlyBase[g.Ply];
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

}  // namespace qv

#include "core/movegen.h"

#include "core/movegen_walk.h"

namespace qv {

void GenerateMoves(Game& g, int includeQuiet) { MoveWalk<RuntimeRules>(g).Run(includeQuiet); }

}  // namespace qv

#include "core/searchgen.h"

#include "core/movegen.h"
#include "core/movegen_walk.h"

namespace qv {

void GenerateShort(Game& g, int includeQuiet) { MoveWalk<FastRules<1>>(g).Run(includeQuiet); }
void GenerateShortMaxCap(Game& g, int includeQuiet) { MoveWalk<FastRules<2>>(g).Run(includeQuiet); }
void GenerateLongMaxCap(Game& g, int includeQuiet) { MoveWalk<FastRules<3>>(g).Run(includeQuiet); }
void GenerateLongCrown(Game& g, int includeQuiet) { MoveWalk<FastRules<4>>(g).Run(includeQuiet); }

void GenerateSearchMoves(Game& g, int includeQuiet) {
  switch (g.Flags.SearchFlavour) {
    case 1: GenerateShort(g, includeQuiet); break;
    case 2: GenerateShortMaxCap(g, includeQuiet); break;
    case 3: GenerateLongMaxCap(g, includeQuiet); break;
    case 4: GenerateLongCrown(g, includeQuiet); break;
    default: GenerateMoves(g, includeQuiet); break;
  }
}

void GenerateSearchLegalMoves(Game& g) {
  switch (g.Flags.SearchFlavour) {
    case 1: MoveWalk<FastRules<1>>(g).RunCapturesThenQuiet(); break;
    case 2: MoveWalk<FastRules<2>>(g).RunCapturesThenQuiet(); break;
    case 3: MoveWalk<FastRules<3>>(g).RunCapturesThenQuiet(); break;
    case 4: MoveWalk<FastRules<4>>(g).RunCapturesThenQuiet(); break;
    default: GenerateLegalMoves(g); break;
  }
}

int HasLegalMove(Game& g, int includeQuiet) { return MoveWalk<ProbeRules>(g).Run(includeQuiet) ? -1 : 0; }

}  // namespace qv

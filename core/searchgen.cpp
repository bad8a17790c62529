#include "core/searchgen.h"

#include "core/fastgen.h"
#include "core/movegen.h"
#include "core/movegen_walk.h"

namespace qv {

void GenerateShort(Game& g, int includeQuiet) { FastGenerate<1>(g, includeQuiet, false); }
void GenerateShortMaxCap(Game& g, int includeQuiet) { FastGenerate<2>(g, includeQuiet, false); }
void GenerateLongMaxCap(Game& g, int includeQuiet) { FastGenerate<3>(g, includeQuiet, false); }
void GenerateLongCrown(Game& g, int includeQuiet) { FastGenerate<4>(g, includeQuiet, false); }

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
    case 1: FastGenerate<1>(g, 0, true); break;
    case 2: FastGenerate<2>(g, 0, true); break;
    case 3: FastGenerate<3>(g, 0, true); break;
    case 4: FastGenerate<4>(g, 0, true); break;
    default: GenerateLegalMoves(g); break;
  }
}

int HasLegalMove(Game& g, int includeQuiet) { return MoveWalk<ProbeRules>(g).Run(includeQuiet) ? -1 : 0; }

}  // namespace qv

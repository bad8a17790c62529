#pragma once
// The generators the search uses: for the four fast rule sets the general walk
// with their rules fixed at compile time, and a probe that only asks whether
// the side to move can move at all.
#include "core/game.h"

namespace qv {

void GenerateShort(Game& g, int includeQuiet);        // SearchFlavour 1
void GenerateShortMaxCap(Game& g, int includeQuiet);  // SearchFlavour 2
void GenerateLongMaxCap(Game& g, int includeQuiet);   // SearchFlavour 3
void GenerateLongCrown(Game& g, int includeQuiet);    // SearchFlavour 4

// The generator of the rule set in force: a fast one by SearchFlavour, else
// GenerateMoves.
void GenerateSearchMoves(Game& g, int includeQuiet);

// The two-step call with the search's generator.
void GenerateSearchLegalMoves(Game& g);

// -1 when the side to move has a legal move, else 0. Pushes nothing, except a
// drop it finds.
int HasLegalMove(Game& g, int includeQuiet);

}  // namespace qv

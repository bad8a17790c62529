#pragma once
// The search generators of the four fast rule sets on bit masks of the
// position. They give the moves of the walk with the rule set fixed
// (MoveWalk<FastRules<N>>) in the same order with the same fields; where a
// case is rare and intricate they hand the whole call to that walk.
#include "core/game.h"

namespace qv {

// includeQuiet as GenerateMoves. quietWhenNoCapture: the search's two-step
// call in one, the quiet moves only when there is no capture.
template <int Flavour>
void FastGenerate(Game& g, int includeQuiet, bool quietWhenNoCapture);

extern template void FastGenerate<1>(Game&, int, bool);
extern template void FastGenerate<2>(Game&, int, bool);
extern template void FastGenerate<3>(Game&, int, bool);
extern template void FastGenerate<4>(Game&, int, bool);

}  // namespace qv

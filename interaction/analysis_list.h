#pragma once
// The analysis list beside the game: the root moves of the last search with
// their scores, as the computer's turn (and an analysis) leaves them.
#include <vector>

#include "engine/driver.h"
#include "interaction/session.h"

namespace qv {

// One row a root move, in the order given: source and target in the notation
// in force, a blank, the score as a plain signed number, or " n/a" for a move
// the search never scored. Nothing changes when the first move has no source.
void FillAnalysisList(Session& s, const std::vector<RootScore>& scores);

}  // namespace qv

#pragma once
// Walking the stored game back and forth.
#include "interaction/session.h"

namespace qv {

// count >= 1 goes back count half moves; count <= 0 goes forward -count
// (0 only refreshes). keepAnalysis 1 keeps the analysis table; silent shows
// each step of a walk back and leaves the lists and status alone.
void MoveNavigator(Session& s, int count, int keepAnalysis, int silent);

// One half move forward, as Forward does it.
void StepForward(Session& s);

}  // namespace qv

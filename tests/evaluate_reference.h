#pragma once
// The evaluation before its speed work, the reference of the equivalence test.
#include "core/game.h"

namespace qv::reference {

int Evaluate(Game& g, int alpha, int beta, int side);
int EvaluateShort(Game& g, int alpha, int beta, int side);
int EvaluateShortMirror(Game& g, int alpha, int beta, int side);
int EvaluateLong(Game& g, int alpha, int beta, int side);

}  // namespace qv::reference

#pragma once
// The static evaluation: a score for the position on Board from the view of
// `side`. It also declares wins by the goal rules, finds repetitions by the
// position's key and adds the noise of the easier levels.
#include "core/game.h"

namespace qv {

int Evaluate(Game& g, int alpha, int beta, int side);
// The shorter forms for the fast rule sets.
int EvaluateShort(Game& g, int alpha, int beta, int side);
int EvaluateShortMirror(Game& g, int alpha, int beta, int side);
int EvaluateLong(Game& g, int alpha, int beta, int side);

// 1, plus 2 for each own piece standing one step behind the square.
int SupportCount(const Game& g, int square, int side);

}  // namespace qv

#pragma once
// The search: fail-soft negamax with alpha-beta, killers, the last main line
// first, a capture extension and stand pat. One algorithm, instantiated per
// generator and evaluation.
#include "core/game.h"

namespace qv {

enum class SearchMember { General, Anti, Goal, Fast1, Fast2, Fast3, Fast4 };

// The member that plays the rule set in force at the root.
SearchMember SearchMemberFor(const Game& g);

// One node and its subtree at the current Ply; Depth may go below zero for
// captures. Returns the score from the view of the side to move.
int SearchNode(Game& g, SearchMember member, int alpha, int beta, int depth);

// The capture search that QuickScore uses.
int QuickSearch(Game& g, int alpha, int beta, int depth);

// The score of the position for the side that has just moved.
int QuickScore(Game& g);
int QuickScoreAt(Game& g, int depth);

// The unused move of this ply with the highest ordering score (the lowest
// index among equals), marked used; -1 when none is left.
int SelectNextMove(Game& g);

void UpdatePV(Game& g, int index);

}  // namespace qv

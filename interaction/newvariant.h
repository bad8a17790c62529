#pragma once
// "New Variant...": a new game whose rules the Variants dialog chooses.
#include <functional>

#include "core/game.h"

namespace qv {

// Starts a new game, runs the dialog (runDialog shows it modally and returns
// whether it was closed by OK; it may change RuleSet) with the algebraic
// notation held for as long as it is open, then starts play with the rules in
// force: directions, board colour, side to begin, derived tables, the variant
// label with " (M)" when the rules differ from the file, the legal moves, and
// the men removed at random when the rules say so. The question "Quit current
// game?" is the caller's. Returns what runDialog returned.
bool NewVariantCommand(Game& g, const std::function<bool(Game&)>& runDialog);

}  // namespace qv

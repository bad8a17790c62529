#pragma once
// "New Variant...": a new game whose rules the Variants dialog sets.
#include <functional>

#include "core/game.h"

namespace qv {

// The new-game command with the rules dialog, after the question whether to
// give up a game in progress (the caller asks it): resets the game, shows the
// dialog through `showDialog` with the notation held algebraic, then starts
// play with the rules in force, whatever button closed the dialog. Returns
// what showDialog returned (whether OK closed it).
bool NewVariantCommand(Game& g, const std::function<bool(Game&)>& showDialog);

}  // namespace qv

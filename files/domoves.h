#pragma once
// The automatic opening: a rule set with DoMoves 1 starts each game with
// NumberMoves random half-moves. They are chosen on a copy of the game,
// written as a game file domoves.qvn and loaded from it, so that they enter
// the record the way every loaded move does; the file is deleted after.
#include <filesystem>

#include "files/gamefile.h"

namespace qv {

// Plays the opening moves on g through `folder`/domoves.qvn. A move that
// would end the game (no reply, a win by a goal rule, a draw rule in force)
// is not kept, so fewer moves may result.
LoadResult DoOpeningMoves(Game& g, const std::filesystem::path& folder);

}  // namespace qv

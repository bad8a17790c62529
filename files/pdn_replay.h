#pragma once
// Replaying a game read from a file: each move through the move entry, into
// the game record and the move-text table, marked as a loaded move. Kept apart
// so that the native game files and PDN can share one routine.
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"

namespace qv {

// Who made a move in MoveTextTable: "3" a move read from a file.
inline constexpr const char* LoadedMoverCode = "3";

// Plays moveText (a MoveText, upper case) and enters it in the game record;
// false when the move is not legal, leaving the game as it was.
bool ReplayLoadedMove(Game& g, std::string_view moveText);

// The same for a capture whose every landing square the file wrote: where
// several legal captures join the same two squares over different pieces,
// the one whose captured pieces lie on that path is played.
bool ReplayLoadedCapture(Game& g, std::string_view moveText, const std::vector<int>& pathCells);

// A comment at the current half-move.
void StoreLoadedComment(Game& g, const std::string& text);

}  // namespace qv

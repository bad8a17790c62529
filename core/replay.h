#pragma once
// Moves that come from somewhere else than the board: a game file, the
// automatic opening, the command line. Each one goes through the move entry
// and enters the game record exactly as a played move does, so repetitions,
// the move limit and the end of the game count it.
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"

namespace qv {

// The mover code the game record keeps for a move read from a file.
inline constexpr int MoverCodeLoaded = 3;

enum class ReplayStatus { Played, Refused, RecordFull };

// Plays one move given as text ("C3D4", "c3-d4", "9x14", "D4" for a drop)
// and enters it in the record with the given mover code. A refused move
// changes nothing; so does a move past the 500th full move, which the record
// has no room for.
ReplayStatus PlayRecordedMove(Game& g, std::string_view moveText, int moverCode = MoverCodeLoaded);

struct ReplayResult {
  ReplayStatus status = ReplayStatus::Played;
  int played = 0;       // moves entered
  std::string refused;  // the text of the move that stopped the replay
};

// Plays the texts in order until one is refused or the record is full.
ReplayResult ReplayMoves(Game& g, const std::vector<std::string>& moveTexts, int moverCode = MoverCodeLoaded);

}  // namespace qv

#pragma once
// Hint: a move for the player, the reply the computer's last line expected
// or else the best of a short search.
#include <string>

#include "core/game.h"

namespace qv {

inline constexpr const char* HintStatusText = "Think ahead and try not to leave your opponent with multiple jumps";

struct HintResult {
  bool fromStoredReply = false;  // the computer's last line gave it, no search ran
  bool alreadyWon = false;       // "You have already won!" comes first
  int from = 0, to = 0;          // the move; from 0 when there is none
  std::string text;              // "Try c3-d4" (title "Hint"); empty when there is no move
  int score = 0;                 // the last pass's best score
};

// The hint on g's position. g is the caller's own copy and is left as found;
// the caller clears its stored reply afterwards. The search has no Cancel.
HintResult Hint(Game& g);

}  // namespace qv

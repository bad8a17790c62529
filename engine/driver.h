#pragma once
// The computer's turn: iterative deepening with an aspiration window, the
// clock, the move played and entered in the record, and what follows it.
#include <string>
#include <vector>

#include "core/game.h"
#include "engine/driver_ui.h"
#include "engine/root_moves.h"

namespace qv {

// What one turn found, for the caller's display and log.
struct TurnReport {
  bool moved = false;
  std::string move;      // display text of the move played
  int score = 0;         // BestScore
  int depth = 0;         // last iteration completed or started
  std::string mainLine;  // BestLine
  std::vector<RootScore> rootScores;
  std::string iterationLog;  // a line per finished iteration, for the game log
  bool drawOffered = false;  // the computer asked "How about a draw?"
};

// NoiseRange from StrengthHandicap: 70 a step above the first, 5 at 1, none at 0.
int NoiseRangeFor(int strengthHandicap);

// One computer turn on g. The search tests g.StopRequest, which another
// thread may set to 1 to have the best move so far played at once.
TurnReport ComputerMove(Game& g, DriverUi& ui);

// The game ends drawn as the computer declares it: when the side to move has
// no move but pieces under the rule that makes that a draw, or when the
// player accepts the computer's offer.
void DeclareDraw(Game& g, DriverUi& ui);

}  // namespace qv

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
  bool fromBook = false;     // the move came from the opening book
};

// NoiseRange from StrengthHandicap: 70 a step above the first, 5 at 1, none at 0.
int NoiseRangeFor(int strengthHandicap);

// The engine state a turn changes while it thinks and the rules carry from
// turn to turn. A turn thought on a copy of the game hands it back with its
// decision, so the game that plays the move goes on exactly as if it had
// thought itself.
struct CarriedEngineState {
  int LazyMargin = 0;
  int NoiseRange = 0;
  int BackRankActive = 0;
  int ManThresholdWhite = 0;
  int ManThresholdBlack = 0;
  int HorizonLimit = 0;
  int SearchCancelled = 0;
  int RuleLossPending = 0;
  long long NodeCount = 0;
  RandomSource Random;
  Table<Table<PVEntry, PlyRows>, PlyRows> PVTable;
  int StoredReplyFrom = 0;  // the reply the hint will offer
  int StoredReplyTo = 0;

  static CarriedEngineState From(const Game& g);
  void GiveTo(Game& g) const;
};

// What a turn decided while it thought: the move (or an end of the game found
// before any search), the words for the screen, and the engine state.
struct TurnDecision {
  enum class Ending { None, NoMoveDraw, OwnLoss, NoMoves };
  Ending ending = Ending::None;
  MoveRecord move;  // the root move to play
  int rootCount = 0;
  int bestScore = 0;
  int depth = 0;
  std::string mainLine;
  std::vector<RootScore> rootScores;  // highest score first
  std::string iterationLog;
  std::string strengthLabel;
  std::string calculation;  // the final calculation text; empty without ShowCalculation
  bool fromBook = false;    // the move came from the opening book
  CarriedEngineState engine;
};

// The thinking half of a turn: the start steps, the iterations and the end of
// thinking. It changes g only as the search does (and StopRequest, which
// another thread may set to 1 to have the best move so far played at once),
// so it may run on a copy of the game that is then thrown away.
TurnDecision ThinkComputerMove(Game& g, DriverUi& ui);

// The playing half: applies the decision to g (which must stand where the
// game thought on stood) in the order of the turn's steps: the engine state,
// the move, the record, the announcements, the draw offer, the end rules.
TurnReport PlayComputerMove(Game& g, const TurnDecision& decision, DriverUi& ui);

// One computer turn on g, thought and played in place.
TurnReport ComputerMove(Game& g, DriverUi& ui);

// The game ends drawn as the computer declares it: when the side to move has
// no move but pieces under the rule that makes that a draw, or when the
// player accepts the computer's offer.
void DeclareDraw(Game& g, DriverUi& ui);

}  // namespace qv

#pragma once
// Analyze: the computer's thinking on the position for the side to move,
// shown without playing a move.
#include <string>
#include <vector>

#include "core/game.h"
#include "engine/driver_ui.h"
#include "engine/root_moves.h"
#include "engine/score.h"

namespace qv {

// The end of the game an analysis found, for the caller to apply to its game.
struct GameEnding {
  bool over = false;
  std::string result;  // GameResult
  std::string note;    // GameNote
  int drawReason = 0;
};

struct AnalysisResult {
  bool searched = false;           // the root moves were searched
  std::vector<RootScore> rootScores;  // RootInfo, highest score first
  std::string bestMove;            // display text of the best move
  int bestScore = NoScoreYet;      // BestScore
  std::string mainLine;            // BestLine
  int depth = 0;                   // the last iteration completed or started
  bool cancelled = false;          // Cancel ended it: the best so far is shown
  bool bookMove = false;
  std::string calculation;         // Label9 at the end
  std::string status;              // the first status panel at the end
  std::string boxCaption, boxText;  // a box to show, if any
  GameEnding ending;
};

// The analysis of g's position. g is the caller's own copy: the search runs
// on it and leaves it exactly as it found it. ui follows the thinking as it
// goes (status, calculation, progress); its boxes are not used: they come
// back in the result. Cancel: set g.StopRequest to 1 from any thread.
AnalysisResult Analysis(Game& g, DriverUi& ui);

// Puts the analysis's end of the game on the caller's game.
void ApplyGameEnding(Game& g, const GameEnding& ending);

}  // namespace qv

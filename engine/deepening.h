#pragma once
// Iterative deepening over the root moves with an aspiration window, a
// null-window test of the later root moves and the clock: the thinking that
// the computer's turn and the analysis share.
#include <string>
#include <vector>

#include "core/game.h"
#include "engine/driver_ui.h"
#include "engine/root_moves.h"
#include "engine/score.h"

namespace qv {

struct DeepeningSetup {
  int depthLimit = 1;  // the last iteration (20 in time mode)
  int depthMode = 1;   // 1 fixed depth, 0 fixed time
  int timeLimit = 2;   // seconds, in time mode
  // The computer's turn searches a main line that ended too soon once more,
  // one ply deeper; the analysis does not.
  bool shortLineResearch = true;
  // The status panel's word while it runs: "Thinking..." or "Analyzing...".
  std::string statusWord = "Thinking...";
  bool bookMove = false;  // the one root move comes from the book
  double clockStart = 0;  // SearchClock() when the time began to run
};

// Seconds, with fractions, on a clock that never goes back.
double SearchClock();

struct DeepeningResult {
  std::vector<MoveRecord> roots;     // the root moves, best first
  std::vector<RootScore> rootInfo;   // RootInfo, in the root order, not yet sorted
  int bestScore = NoScoreYet;        // BestScore; NoScoreYet when no root move finished
  std::string bestMove;              // display text of the best move
  std::string bestLine;              // BestLine
  std::string head;                  // "Depth: 4   Best: c3-d4   Score: 12"
  int depth = 0;                     // the last iteration completed or started
  std::string iterationLog;          // a line per finished iteration
};

// Searches the root moves of g (made on g and taken back) until the depth or
// the clock says stop or StopRequest is set. With ShowCalculation the running
// best goes to ui.SetCalculation.
DeepeningResult DeepenRootMoves(Game& g, DriverUi& ui, const DeepeningSetup& setup, std::vector<MoveRecord> roots);

}  // namespace qv

#pragma once
// The places where move entry and the commands call into the engine: the
// checks after a move, the computer's turn, the analysis and hint state.
#include <functional>
#include <mutex>
#include <string>

#include "interaction/session.h"

namespace qv {

// After a human move: man thresholds and the quick score of the position.
void UpdateAfterMove(Session& s);
// After a move entered the game: draw reasons and the end of the game.
void CheckEndAfterMove(Session& s);
// After a walk through the game: the move limit and repetitions, silently.
void CheckDrawsAfterWalk(Session& s);

void ClearHintState(Session& s);
void ClearAnalysisTable(Session& s);
void ClearStoredReply(Game& g);
// The words of the end of the game, shown when the last stored move is reached.
std::string GameEndText(const Game& g);
// The value the computer's last search gave its own side.
int LastSearchValue(const Game& g);
// The game's end as a draw (reason 2) or as a win of the computer.
void EndGameByAgreement(Session& s);
void EndGameByResignation(Session& s);

// What the computer is doing while it thinks, written by the worker and read
// by the window a few times a second: the status line, the running
// calculation and the progress bar.
class ThinkingReport {
 public:
  struct Snapshot {
    std::string status, calculation;
    int progress = 0, maximum = 0;
  };
  void SetStatus(const std::string& text) { Update([&](Snapshot& s) { s.status = text; }); }
  void SetCalculation(const std::string& text) { Update([&](Snapshot& s) { s.calculation = text; }); }
  void SetProgress(int value, int maximum) {
    Update([&](Snapshot& s) {
      s.progress = value;
      s.maximum = maximum;
    });
  }
  // The state since the last call, or false when nothing changed.
  bool Take(Snapshot& out) {
    std::lock_guard hold(lock_);
    if (!changed_) return false;
    out = now_;
    changed_ = false;
    return true;
  }

 private:
  template <class F>
  void Update(F change) {
    std::lock_guard hold(lock_);
    change(now_);
    changed_ = true;
  }
  std::mutex lock_;
  Snapshot now_;
  bool changed_ = false;
};

// What a computer turn on the worker said, for the window thread to show once
// the move is on the board: the last status and calculation, a box, and the
// draw offer the turn could not ask itself.
struct TurnWords {
  std::string status, calculation;
  std::string boxCaption, boxText;
  std::string questionCaption, question;
  // The game ended with this score for the player (1 won, 0.5 drawn, 0 lost); -1 it goes on.
  double playerScore = -1;
  // For the game log: the move's score and depth, its main line, a line per iteration.
  int score = 0, depth = 0;
  std::string mainLine, iterationLog;
};

// Runs on the worker thread: the computer's move, or for Computer-Computer
// play its moves until the game ends or Cancel is pressed. After each move
// `moveEntered` is called (on the worker) with what the turn said; the window
// enters the move into its lists from there. `pause` is the wait between two moves of
// Computer-Computer play; with 0 the engine's own short pauses are skipped
// too. Cancel cuts every wait short. `live`, when given, follows the thinking
// as it goes.
void RunComputerJob(Game& g, TurnReason reason, double pause,
                    const std::function<void(const TurnWords&)>& moveEntered, ThinkingReport* live = nullptr);

// Back on the window thread after a computer move: lists, board, and what the
// turn said.
void EnterComputerMove(Session& s, const TurnWords& words);

}  // namespace qv

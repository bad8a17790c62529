#pragma once
// The places where move entry and the commands call into the engine: the
// checks after a move, the computer's turn, the analysis and hint state.
#include <functional>
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

// Runs on the worker thread: the computer's move, or for Computer-Computer
// play its moves until the game ends or Cancel is pressed. After each move
// `moveEntered` is called (on the worker); the window enters the move into
// its lists from there.
void RunComputerJob(Game& g, TurnReason reason, double pause, const std::function<void()>& moveEntered);

// Back on the window thread after a computer move: lists and board.
void EnterComputerMove(Session& s);

}  // namespace qv

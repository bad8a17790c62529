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

// The computer's turn as an engine job. After `wait` seconds (cut short by
// Cancel; the wait between two moves of Computer-Computer play) it thinks on
// the worker's copy of the game, with the engine's own short pauses when
// `pauses` is set. The step it hands back plays the decided
// move on the window's game, entering it in the lists and showing what the
// turn said as the turn's steps come, then calls `then` with true when the
// computer moved and no Cancel came.
EngineJob ComputerTurnJob(double wait, bool pauses, std::function<void(Session&, bool moved)> then);

}  // namespace qv

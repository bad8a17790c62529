#pragma once
// The commands of the menu bar and toolbar, the play modes, and start-up.
#include "interaction/session.h"

namespace qv {

void EnableCommand(Session& s, Command c, int enabled);
void CheckCommand(Session& s, Command c, int checked);

// Whether a command can run now: it is enabled and, while the computer thinks
// (Busy), it is Cancel or Exit. This is the one gate that keeps every other
// command off the game until the engine's job has been applied.
bool CommandAvailable(const Screen& sc, Command c);
// A menu item or toolbar button, when it is available. Exit is left to the
// window, which closes itself (and so runs UnloadMainWindow).
void RunCommand(Session& s, Command c);
// The level line of the status bar: "Strength: 9   Time: 2 sec".
std::string StrengthCaption(const Options& o);

// The commands a game once over can no longer use, disabled at every end of
// a game: Compute, Analyze, Offer draw, Resign, Hint, Computer-Computer and
// the legal moves.
void DisableAfterGameEnd(Session& s);

// What a new game shows: status, lists and the commands that open a game.
void ShowNewGame(Session& s);

// The load path of the main window.
void StartUp(Session& s);

// "New Game" (askRules 0) and "New Variant..." (askRules 1).
void NewGameCommand(Session& s, int askRules);

void StartComputerMove(Session& s);
// Shows that the computer thinks and hands its turn to the window's worker.
void BeginComputerTurn(Session& s, TurnReason reason);
// On the window thread when the computer's turn is over.
void ComputerTurnFinished(Session& s, TurnReason reason);
void CancelCommand(Session& s);
// Every command but Cancel disabled while a search runs, as for the
// computer's turn, and enabled again after it.
void LockForSearch(Session& s);
void UnlockAfterSearch(Session& s);

void FirstCommand(Session& s);
void BackCommand(Session& s);
void ForwardCommand(Session& s);
void LastCommand(Session& s);

void DrawOffer(Session& s);
void ResignGame(Session& s);

void SetPlayerComputer(Session& s);
void SetPlayerPlayer(Session& s);
void RunComputerComputer(Session& s);

void TurnBoardCommand(Session& s);
// "None" 2, "Algebraic" 0, "Numeric" 1.
void SetNotation(Session& s, int kind);
void ToggleCalculation(Session& s);
void ToggleUseSound(Session& s);

// Board > Picture Set: a classic set chosen from the menu, when the Board
// menu is available.
void PictureSetCommand(Session& s, const std::string& name);

// The close box: true when the window may close.
bool ConfirmClose(Session& s);
// The program's one way out, after Exit, the close box or a fatal error: the
// main window runs it as it closes, once no engine job is left running. What
// must be kept at exit (settings, the autosave) is written here.
void UnloadMainWindow(Session& s);

}  // namespace qv

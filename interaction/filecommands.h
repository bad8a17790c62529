#pragma once
// What the window does with files: Open and Save in the Game menu and the
// toolbar, the settings and the autosaved game at start and at exit, and the
// automatic opening moves of a new game.
#include <filesystem>
#include <string>
#include <vector>

#include "interaction/session.h"

namespace qv {

// The kinds of the Load Game and Save Game dialogs, in their order.
const std::vector<std::string>& GameFileFilters();

// The caption of a window showing a game file.
std::string FileCaption(const std::string& bareName);

// "Open": asks "Quit current game?" over a game in progress, then the Load
// Game dialog, then loads the chosen file.
// What the last game left on the screen goes before a load.
void ClearGameScreen(Session& s);

void OpenCommand(Session& s);
// A game file or PDN collection chosen by the user (the Load dialog, or the
// program's command line): loaded into the window, a collection through its
// chooser.
void OpenGameFile(Session& s, const std::filesystem::path& file);
// "Save": the Save Game dialog, " already exists, overwrite?" for a game file
// that is there, then the file; a failed write is told in a box.
void SaveCommand(Session& s);

// Loads a game file into the window's game and shows it; the file's words go
// to a box. True when the file's game stands.
bool LoadIntoWindow(Session& s, const std::filesystem::path& file, int source);

// Start-up: the settings file (or the first-start defaults) into the game,
// before the first new game. Nothing is read without a writable folder.
void ReadStartSettings(Session& s);
// Start-up after the first new game: the automatic opening moves, then the
// autosaved game when AutoSave is on.
void OpenStartGame(Session& s);
// A new game with DoMoves 1 opens with its automatic moves.
void DoMovesIfAsked(Session& s);

// "Exit": true when the program is to end ("Are you sure you want to exit?"
// when ConfirmExit is 1). Closing the window does not ask.
bool ExitCommand(Session& s);
// Every end of the program, a fatal one too: the game to quorvanis.sav, then
// the settings. A write that fails is told in a box; the old file stays.
void SaveOnExit(Session& s);

}  // namespace qv

#pragma once
// The files the program keeps for its user while it runs: the rating, read at
// start-up and written at exit, and the game log, open in between. They live
// in the game's WritableFolder; without one nothing is read or written.

#include "core/game.h"
#include "files/gamelog.h"

namespace qv {

struct UserFiles {
  GameLog Log;
};

// Start-up: the rating into g.Rating (FirstRating when there is none) and
// the game log opened with its start line.
void OpenUserFiles(UserFiles& files, Game& g);
// Exit: the rating written, the log closed.
void CloseUserFiles(UserFiles& files, const Game& g);

}  // namespace qv

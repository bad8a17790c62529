#pragma once
// The three things every interaction routine works on: the game, what the
// screen shows, and the window layer that shows it.
#include "core/game.h"
#include "files/user_files.h"
#include "interaction/screen.h"
#include "interaction/window_layer.h"

namespace qv {

struct Session {
  Game& game;
  Screen& screen;
  WindowLayer& window;
  // The rating's and the log's files; none in tests that leave it out.
  UserFiles* files = nullptr;
};

}  // namespace qv

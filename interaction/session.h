#pragma once
// The three things every interaction routine works on: the game, what the
// screen shows, and the window layer that shows it.
#include "core/game.h"
#include "interaction/screen.h"
#include "interaction/window_layer.h"

namespace qv {

struct Session {
  Game& game;
  Screen& screen;
  WindowLayer& window;
};

}  // namespace qv

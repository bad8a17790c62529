#pragma once
// A search that runs off the window thread: the analysis, the hint or the ply
// value table. It thinks on its own copy of the game and hands back what it
// found; the window's game is touched by the window thread only.
#include <functional>
#include <memory>

#include "core/game.h"
#include "engine/driver_ui.h"
#include "interaction/engine_calls.h"

namespace qv {

struct EngineJob {
  explicit EngineJob(const Game& g) : game(std::make_unique<Game>(g)) {}
  std::unique_ptr<Game> game;  // the worker's own copy
  ThinkingReport live;          // what the search says while it runs
  std::function<void(EngineJob&)> work;  // on the worker
  std::function<void()> finished;        // afterwards, on the window thread
  bool mainWindowFollows = true;  // the main window shows `live`; false: a window of its own does
  void Cancel() { game->StopRequest = 1; }
};

// The search's running words, passed on to the job's report.
class LiveWords : public DriverUi {
 public:
  explicit LiveWords(ThinkingReport& report) : report_(report) {}
  void SetStatus(const std::string& text) override { report_.SetStatus(text); }
  void SetCalculation(const std::string& text) override { report_.SetCalculation(text); }
  void SetProgress(int value, int maximum) override { report_.SetProgress(value, maximum); }

 private:
  ThinkingReport& report_;
};

}  // namespace qv

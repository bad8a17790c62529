#pragma once
// Engine work off the window thread. The window's game is touched by the
// window thread only: a job thinks on a copy of it made when the job starts,
// and hands back a step that the window thread runs on its own game to apply
// what the job found. The computer's turn is such a job; analysis, hints and
// the ply value table are others.
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "core/game.h"

namespace qv {

struct Session;

// What the engine is doing while it thinks, written by the worker and read by
// the window a few times a second: the status line, the running calculation
// and the progress bar.
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

// The step a job hands back, run on the window thread over the window's game.
using ApplyOnWindow = std::function<void(Session&)>;
// A job: runs on the worker over its own copy of the game.
using EngineJob = std::function<ApplyOnWindow(Game& work, ThinkingReport& live)>;

// One job at a time on a thread of its own.
class EngineWorker {
 public:
  EngineWorker() = default;
  EngineWorker(const EngineWorker&) = delete;
  EngineWorker& operator=(const EngineWorker&) = delete;
  ~EngineWorker();  // cancels a running job and waits for it

  // Copies g (on the calling thread) and runs job on the copy. `done` is
  // called on the worker thread as the job ends, to wake the window thread,
  // which then calls Collect.
  void Start(const Game& g, EngineJob job, std::function<void()> done = {});
  bool Busy() const { return thread_.joinable(); }
  // Cancel: the copy's StopRequest, which the search and the waits test.
  void Cancel();
  // Waits for the job to end and returns its step; a fatal error of the job
  // gives an empty step and its message in `fatal`.
  ApplyOnWindow Collect(std::string& fatal);

  ThinkingReport live;

 private:
  std::unique_ptr<Game> work_;
  std::thread thread_;
  ApplyOnWindow result_;
  std::string fatal_;
};

}  // namespace qv

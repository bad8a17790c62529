#pragma once
// A window layer for tests: it records boxes and sounds, answers questions and
// the set-up popup as told, and runs the engine's jobs to their end at once
// or, when `threaded`, on the worker while the test goes on clicking.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "core/newgame.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/engine_calls.h"
#include "interaction/session.h"

namespace qv {

struct RecordingWindow : WindowLayer {
  Session* session = nullptr;
  std::vector<std::string> messages;  // "caption: text"
  std::vector<std::string> sounds;
  ImageRole pointer = ImageRole::None;
  PopupItem popupAnswer = PopupItem::None;
  PopupChecks lastPopup;
  int popups = 0;
  bool answerYes = true;
  int turns = 0;   // engine jobs started
  int stops = 0;   // Cancel passed on to the job
  bool runTurns = true;  // false: the job is left pending, as if the worker were still thinking
  bool threaded = false;  // true: jobs run on the worker; Pump applies them when they are done
  std::vector<std::string> fatals;  // fatal errors the jobs met
  EngineWorker worker;

  void ShowMessage(const std::string& text, const std::string& caption, BoxIcon) override {
    messages.push_back(caption + ": " + text);
  }
  bool AskYesNo(const std::string& text, const std::string& caption) override {
    messages.push_back(caption + ": " + text);
    return answerYes;
  }
  void PlaySound(const std::filesystem::path& file) override { sounds.push_back(file.filename().string()); }
  void SetPointer(ImageRole icon) override { pointer = icon; }
  PopupItem RunSetupPopup(const PopupChecks& checks) override {
    lastPopup = checks;
    ++popups;
    return popupAnswer;
  }
  void Changed(unsigned) override {}
  void StartEngineJob(const Game& g, EngineJob job) override {
    ++turns;
    if (!runTurns) return;
    jobDone_ = false;
    worker.Start(g, std::move(job), [this] { jobDone_ = true; });
    if (threaded || applying_) return;
    // A step may start the next job (Computer-Computer play): run them all here.
    applying_ = true;
    while (worker.Busy()) ApplyJob();
    applying_ = false;
  }
  void StopEngineJob() override {
    ++stops;
    worker.Cancel();
  }
  // In threaded mode, the window thread's part: applies a job that is done.
  // False when no job is left.
  bool Pump() {
    if (!worker.Busy()) return false;
    if (jobDone_) ApplyJob();
    return true;
  }

 private:
  void ApplyJob() {
    std::string fatal;
    ApplyOnWindow step = worker.Collect(fatal);
    if (!fatal.empty()) fatals.push_back(fatal);
    else if (step) step(*session);
  }
  std::atomic<bool> jobDone_{false};
  bool applying_ = false;
};

class InteractionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    game->Random.SetFixedSeed(7);
    game->Settings.ConfirmExit = 0;
    window.session = &session;
    StartUp(session);
  }

  // The SquareView index of a square named like "c3".
  int Square(const char* name) const {
    return SquareOfCell(SquareNumber(ToUpperName(name), 0, 1), game->Settings.BoardTurned);
  }
  static std::string ToUpperName(const char* name) {
    std::string s(name);
    for (char& ch : s) ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    return s;
  }

  std::unique_ptr<Game> game = std::make_unique<Game>();
  Screen screen;
  RecordingWindow window;
  Session session{*game, screen, window};
};

}  // namespace qv

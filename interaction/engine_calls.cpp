#include "interaction/engine_calls.h"

#include <chrono>
#include <thread>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "engine/driver.h"
#include "engine/search.h"
#include "interaction/analysis_commands.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/movelist.h"

namespace qv {

namespace {

// Waits, but gives way at once to Cancel.
void PauseUnlessCancelled(const Game& g, double seconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (g.StopRequest == 0 && std::chrono::steady_clock::now() < end)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

// The engine's words to the user, on the window thread: straight to the
// screen and the window's boxes.
class WindowDriverUi : public DriverUi {
 public:
  explicit WindowDriverUi(Session& s) : s_(s) {}
  void SetStatus(const std::string& text) override {
    s_.screen.StatusText = text;
    s_.window.Changed(Part::Status);
  }
  void SetCalculation(const std::string& text) override { s_.screen.Label9 = text; }
  void SetStrengthLabel(const std::string& text) override { s_.screen.StrengthText = text; }
  void ShowMessage(const std::string& caption, const std::string& text) override {
    s_.window.Changed(Part::Board | Part::Status | Part::Lists);
    s_.window.ShowMessage(text, caption, caption == "Error" ? BoxIcon::Warning : BoxIcon::Information);
  }
  bool AskYesNo(const std::string& caption, const std::string& text) override { return s_.window.AskYesNo(text, caption); }
  void ShowRootScores(const std::vector<RootScore>& scores) override {
    s_.screen.RootInfo = scores;
    FillAnalysisList(s_);
  }
  // The computer's move entered the record: it goes into the game list and
  // onto the board before anything the turn says about it.
  void MoveRecorded(int halfMove) override {
    const Game& g = s_.game;
    const MoveRecord& move = g.Record.GameMoves[halfMove];
    const std::string moveText = MoveTextOf(move.FromSquare, move.ToSquare, g.Settings.NotationKind);
    if (static_cast<int>(s_.screen.List1.size()) > halfMove - 1) s_.screen.List1.resize(halfMove - 1);
    WriteMoveToList(s_, moveText, DisplayText(g, moveText), MoverComputer);
    s_.screen.List1Selected = halfMove - 1;
    RefreshBoard(s_, 0);
    s_.window.Changed(Part::Board | Part::Lists | Part::Status | Part::Texts);
  }

 private:
  Session& s_;
};

// The engine's words while it thinks on the worker: followed live by the
// window.
class LiveDriverUi : public DriverUi {
 public:
  LiveDriverUi(const Game& g, ThinkingReport& live, bool pauses) : g_(g), live_(live), pauses_(pauses) {}
  void SetStatus(const std::string& text) override { live_.SetStatus(text); }
  void SetCalculation(const std::string& text) override { live_.SetCalculation(text); }
  void SetProgress(int value, int maximum) override { live_.SetProgress(value, maximum); }
  void Pause(double seconds) override {
    if (pauses_) PauseUnlessCancelled(g_, seconds);
  }

 private:
  const Game& g_;
  ThinkingReport& live_;
  bool pauses_;
};

}  // namespace

void UpdateAfterMove(Session& s) {
  UpdateManThresholds(s.game);
  const int score = QuickScore(s.game);
  if (s.game.Settings.PlayMode == 1) s.game.Record.EvalHistory[s.game.HalfMoveCount] = score;
}
void CheckEndAfterMove(Session& s) {
  Game& g = s.game;
  UpdateDrawReason(g);
  WindowDriverUi ui(s);
  CheckGameEnd(g, ui, 0);
  if (g.GameOver == 1) DisableAfterGameEnd(s);
}
void CheckDrawsAfterWalk(Session& s) {
  Game& g = s.game;
  CheckMoveLimit(g, g.HalfMoveCount);
  if (g.LimitReached == 1) g.DrawReason = 2;
  CountRepetitions(g, g.HalfMoveCount);
  if (g.LineDrawn == 3) g.DrawReason = 1;
  if (g.BareKings == 1) g.DrawReason = 3;
}
void ClearHintState(Session& s) { ClearStoredReply(s.game); }
void ClearAnalysisTable(Session& s) {
  s.screen.List3.clear();
  for (RootScore& row : s.screen.RootInfo) row = RootScore{};
}
void ClearStoredReply(Game& g) {
  g.StoredReplyFrom = 0;
  g.StoredReplyTo = 0;
}
std::string GameEndText(const Game&) { return {}; }
int LastSearchValue(const Game& g) { return g.GameInProgress == 1 ? g.LastSearchScore : 0; }
void EndGameByAgreement(Session& s) {
  ResultText(s.game, 2);
  s.game.GameOver = 1;
}
void EndGameByResignation(Session& s) {
  Game& g = s.game;
  // "1-0": the side that began wins. The player resigns, so the computer's side wins.
  const bool playerBegan = PlayerIsSide(g, g.RuleSet.BlackStarts == 1 ? "black" : "white") == 1;
  g.GameResult = playerBegan ? "0-1" : "1-0";
  g.GameOver = 1;
}

EngineJob ComputerTurnJob(double wait, bool pauses, std::function<void(Session&, bool moved)> then) {
  return [wait, pauses, then = std::move(then)](Game& work, ThinkingReport& live) -> ApplyOnWindow {
    PauseUnlessCancelled(work, wait);
    if (work.StopRequest != 0) return [then](Session& s) { then(s, false); };
    LiveDriverUi ui(work, live, pauses);
    TurnDecision decision = ThinkComputerMove(work, ui);
    return [decision = std::move(decision), then](Session& s) {
      WindowDriverUi ui(s);
      const TurnReport turn = PlayComputerMove(s.game, decision, ui);
      const bool moved = turn.moved;
      then(s, moved && s.game.SearchCancelled == 0);
    };
  };
}

}  // namespace qv

#include "interaction/engine_calls.h"

#include <chrono>
#include <thread>
#include <utility>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "engine/driver.h"
#include "engine/search.h"
#include "interaction/boardview.h"
#include "interaction/movelist.h"
#include "interaction/user_commands.h"

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
    // The box of a game's end carries what the game did to the rating.
    std::string shown = text;
    if (caption == "Congratulations") shown += std::exchange(ratingNote_, std::string());
    s_.window.ShowMessage(shown, caption, caption == "Error" ? BoxIcon::Warning : BoxIcon::Information);
  }
  bool AskYesNo(const std::string& caption, const std::string& text) override { return s_.window.AskYesNo(text, caption); }
  void GameEnded(double playerScore) override { ratingNote_ = RateGameEnd(s_, playerScore); }

 private:
  Session& s_;
  std::string ratingNote_;
};

// The engine's words while it thinks on the worker thread: kept for the
// window thread, which shows them once the move is on the board, and followed
// live through `live` when the window asks for it.
class DeferredDriverUi : public DriverUi {
 public:
  // Without pauses (pauses false) the computer moves as fast as it thinks.
  DeferredDriverUi(const Game& g, ThinkingReport* live, bool pauses) : g_(g), live_(live), pauses_(pauses) {}
  void SetStatus(const std::string& text) override {
    words.status = text;
    if (live_) live_->SetStatus(text);
  }
  void SetCalculation(const std::string& text) override {
    words.calculation = text;
    if (live_) live_->SetCalculation(text);
  }
  void SetProgress(int value, int maximum) override {
    if (live_) live_->SetProgress(value, maximum);
  }
  void ShowMessage(const std::string& caption, const std::string& text) override {
    words.boxCaption = caption;
    words.boxText = text;
  }
  void Pause(double seconds) override {
    if (pauses_) PauseUnlessCancelled(g_, seconds);
  }
  // The question waits for the window: the move must be on the board first.
  bool AskYesNo(const std::string& caption, const std::string& text) override {
    words.questionCaption = caption;
    words.question = text;
    return false;
  }
  // The rating moves on the window thread, once the move stands in the lists.
  void GameEnded(double playerScore) override { words.playerScore = playerScore; }

  TurnWords words;

 private:
  const Game& g_;
  ThinkingReport* live_;
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
}
void CheckDrawsAfterWalk(Session& s) {
  Game& g = s.game;
  CheckMoveLimit(g, g.HalfMoveCount);
  if (g.LimitReached == 1) g.DrawReason = 2;
  CountRepetitions(g, g.HalfMoveCount);
  if (g.LineDrawn == 3) g.DrawReason = 1;
  if (g.BareKings == 1) g.DrawReason = 3;
}
void ClearHintState(Session&) {}
void ClearAnalysisTable(Session& s) { s.screen.List3.clear(); }
void ClearStoredReply(Game&) {}
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

void RunComputerJob(Game& g, TurnReason reason, double pause,
                    const std::function<void(const TurnWords&)>& moveEntered, ThinkingReport* live) {
  do {
    if (g.GameOver == 1) break;
    DeferredDriverUi ui(g, live, pause > 0);
    const TurnReport report = ComputerMove(g, ui);
    if (!report.moved) break;
    ui.words.score = report.score;
    ui.words.depth = report.depth;
    ui.words.mainLine = report.mainLine;
    ui.words.iterationLog = report.iterationLog;
    if (moveEntered) moveEntered(ui.words);
    // A Cancel during the search leaves SearchCancelled set: the move found
    // so far is played and the loop ends. A Cancel during the pause leaves
    // StopRequest set.
    if (reason != TurnReason::ComputerComputer || g.SearchCancelled == 1) break;
    PauseUnlessCancelled(g, pause);
  } while (g.GameOver == 0 && g.StopRequest == 0 && g.HalfMoveCount < RecordSize - 2);
  g.StopRequest = 0;
}

void EnterComputerMove(Session& s, const TurnWords& words) {
  Game& g = s.game;
  const int n = g.HalfMoveCount;
  // The engine has entered the move in the record already; MoveStack may have
  // been reused since, by the end-of-game checks.
  const MoveRecord& move = g.Record.GameMoves[n];
  const std::string moveText = MoveTextOf(move.FromSquare, move.ToSquare, g.Settings.NotationKind);
  if (static_cast<int>(s.screen.List1.size()) > n - 1) s.screen.List1.resize(n - 1);
  const std::string row = WriteMoveToList(s, moveText, DisplayText(g, moveText), MoverComputer);
  LogLine(s, ComputerLogLine(row, words.score, words.depth, words.mainLine));
  LogLine(s, words.iterationLog);
  s.screen.List1Selected = n - 1;
  RefreshBoard(s, 0);
  // What the engine said while it thought, now that the move stands.
  if (!words.calculation.empty()) s.screen.Label9 = words.calculation;
  s.screen.StatusText = words.status;
  s.window.Changed(Part::Board | Part::Lists | Part::Status | Part::Texts);
  std::string rating;
  if (words.playerScore >= 0) rating = RateGameEnd(s, words.playerScore);
  if (!words.boxText.empty()) {
    const std::string note = words.boxCaption == "Congratulations" ? rating : std::string();
    s.window.ShowMessage(words.boxText + note, words.boxCaption, BoxIcon::Information);
  }
  // The computer's draw offer; accepted, the game ends here and the commands
  // follow when the turn is over.
  WindowDriverUi ui(s);
  if (!words.question.empty() && g.GameOver == 0 && ui.AskYesNo(words.questionCaption, words.question))
    DeclareDraw(g, ui);
}

}  // namespace qv

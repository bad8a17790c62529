#include "engine/analysis.h"

#include <cmath>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/text.h"
#include "engine/deepening.h"
#include "engine/driver.h"
#include "engine/evaluate.h"
#include "engine/timetext.h"
#include "files/book.h"
#include "engine/score.h"

namespace qv {

namespace {

// Passes the running words on to the caller's ui and keeps the last status
// and the boxes for the result.
class KeptWords : public DriverUi {
 public:
  KeptWords(DriverUi& live, AnalysisResult& result) : live_(live), r_(result) {}
  void SetStatus(const std::string& text) override {
    r_.status = text;
    live_.SetStatus(text);
  }
  void SetCalculation(const std::string& text) override {
    r_.calculation = text;
    live_.SetCalculation(text);
  }
  void SetStrengthLabel(const std::string& text) override { live_.SetStrengthLabel(text); }
  void SetProgress(int value, int maximum) override { live_.SetProgress(value, maximum); }
  void ShowMessage(const std::string& caption, const std::string& text) override {
    r_.boxCaption = caption;
    r_.boxText = text;
  }
  void GameEnded(double playerScore) override { live_.GameEnded(playerScore); }

 private:
  DriverUi& live_;
  AnalysisResult& r_;
};

std::string MovesText(int n) { return Str(n) + " move" + (n > 1 ? "s" : "") + "! "; }

// The winner by the side that has run out of moves or lost by the rules.
void DeclareWinner(Game& g, DriverUi& ui, const std::string& text) {
  ResultText(g, 0);
  g.GameOver = 1;
  ui.SetStatus(text);
  ui.ShowMessage("Congratulations", text);
}

// The side to move has already lost, by the rules or for want of a move:
// the game ends without a search.
bool LostBeforeSearch(Game& g, DriverUi& ui, const std::vector<MoveRecord>& roots, bool ownLoss) {
  const Options& o = g.Settings;
  if (ownLoss) {
    ui.GameEnded(1.0);
    DeclareWinner(g, ui, o.PlayerName + " wins!");
    return true;
  }
  if (roots.empty()) {
    if (g.RuleSet.AntiMode != 1) ui.GameEnded(1.0);
    DeclareWinner(g, ui, g.RuleSet.AntiMode == 1 ? "Computer wins!" : o.PlayerName + " wins!");
    return true;
  }
  return false;
}

// Depth or time as the options say, without the short-line re-search. The
// book, as for the computer's turn: a known move is the only root move,
// searched to depth 1; a move that is not legal is forgotten.
DeepeningSetup AnalysisSetup(Game& g, DriverUi& ui, std::vector<MoveRecord>& roots) {
  const Options& o = g.Settings;
  DeepeningSetup setup;
  setup.depthMode = o.DepthMode;
  setup.depthLimit = o.DepthMode == 1 ? std::max(1, o.DepthLimit) : 20;
  setup.timeLimit = o.TimeLimit;
  setup.shortLineResearch = false;
  setup.statusWord = "Analyzing...";
  if (roots.size() == 1) setup.depthLimit = 1;
  if (o.OpeningBook == 1) {
    const BookAnswer book = BookLookup(g, 1, g.Random);
    if (!book.MessageText.empty()) ui.ShowMessage(book.MessageCaption, book.MessageText);
    g.BookMoveFrom = book.BookMoveFrom;
    g.BookMoveTo = book.BookMoveTo;
    setup.bookMove = NarrowToBookMove(g, roots, setup.depthLimit);
  }
  return setup;
}

// What the search found goes into the result; a clock stop is no cancel.
void KeepThought(Game& g, DriverUi& ui, const DeepeningSetup& setup, DeepeningResult& thought, long start,
                 AnalysisResult& r) {
  r.searched = true;
  r.bookMove = setup.bookMove;
  r.depth = thought.depth;
  r.bestScore = thought.bestScore;
  r.bestMove = thought.bestMove;
  r.mainLine = thought.bestLine;
  if (g.Settings.ShowCalculation == 1)
    ui.SetCalculation(thought.head + "   Time: " + TimeString(static_cast<long>(std::floor(SearchClock())) - start) +
                      "\r\nMain: " + thought.bestLine);
  if (g.StopRequest == 2) {
    g.StopRequest = 0;
    g.SearchCancelled = 0;
  }
  if (g.StopRequest == 1) {
    g.StopRequest = 0;
    g.SearchCancelled = 1;
  }
  r.cancelled = g.SearchCancelled == 1;
  SortRootScores(thought.rootInfo);
  r.rootScores = std::move(thought.rootInfo);
  ui.SetStatus("");
}

// No move is made: the position is judged as it stands, from the other
// side, and a near win or loss is announced.
void AnnounceOutcome(Game& g, DriverUi& ui, int bestScore) {
  if (bestScore < -WinScore) return;
  const int score = Evaluate(g, -WinScore, WinScore, -g.SideToMove);
  if (bestScore >= NearWinScore && score <= NearWinScore) {
    ui.SetStatus("Computer is winning in" + MovesText((WinScore - bestScore + 1) / 2));
  } else if (bestScore >= NearWinScore) {
    ui.GameEnded(0.0);
    DeclareWinner(g, ui, "Computer wins!");
  } else if (bestScore <= -NearWinScore) {
    ui.SetStatus("Computer is losing in" + MovesText((bestScore + WinScore + (g.RuleSet.AntiMode == 1 ? 1 : 0)) / 2));
  }
}

void Analyse(Game& g, DriverUi& ui, AnalysisResult& r) {
  const long start = static_cast<long>(std::floor(SearchClock()));
  UpdateManThresholds(g);
  g.NoiseRange = NoiseRangeFor(g.Settings.StrengthHandicap);
  g.SearchCancelled = 0;
  ui.SetStatus("Analyzing...");

  CommitRootPly(g);
  const int score = Evaluate(g, -WinScore, WinScore, g.SideToMove);
  const bool ownLoss = g.RuleLossPending == 1 || score == WinScore;
  std::vector<MoveRecord> roots = ownLoss ? std::vector<MoveRecord>{} : GenerateRootMoves(g);
  if (LostBeforeSearch(g, ui, roots, ownLoss)) return;

  DeepeningSetup setup = AnalysisSetup(g, ui, roots);
  setup.clockStart = SearchClock();
  ui.SetProgress(0, setup.depthMode == 1 ? static_cast<int>(roots.size()) * setup.depthLimit : setup.timeLimit);
  DeepeningResult thought = DeepenRootMoves(g, ui, setup, std::move(roots));
  KeepThought(g, ui, setup, thought, start, r);
  AnnounceOutcome(g, ui, thought.bestScore);
  // The draw rules and whether the side to move can still move.
  if (g.GameOver == 0) CheckGameEnd(g, ui, 0);
}

}  // namespace

AnalysisResult Analysis(Game& g, DriverUi& ui) {
  AnalysisResult r;
  KeptWords words(ui, r);
  GameKeeper keep(g);
  const int wasOver = g.GameOver;
  Analyse(g, words, r);
  if (g.GameOver == 1 && wasOver == 0) r.ending = GameEnding{true, g.GameResult, g.GameNote, g.DrawReason};
  return r;
}

void ApplyGameEnding(Game& g, const GameEnding& ending) {
  if (!ending.over) return;
  g.GameOver = 1;
  g.GameResult = ending.result;
  if (!ending.note.empty()) g.GameNote = ending.note;
  g.DrawReason = ending.drawReason;
}

}  // namespace qv

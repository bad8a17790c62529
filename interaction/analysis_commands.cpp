#include "interaction/analysis_commands.h"

#include <memory>

#include "core/makemove.h"
#include "core/text.h"
#include "engine/analysis.h"
#include "engine/hint.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/engine_calls.h"
#include "interaction/engine_worker.h"
#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"
#include "interaction/navigation.h"
#include "interaction/record.h"

namespace qv {

namespace {

// The search's running words, passed on to the window through the worker's report.
class LiveWords : public DriverUi {
 public:
  explicit LiveWords(ThinkingReport& report) : report_(report) {}
  void SetStatus(const std::string& text) override { report_.SetStatus(text); }
  void SetCalculation(const std::string& text) override { report_.SetCalculation(text); }
  void SetProgress(int value, int maximum) override { report_.SetProgress(value, maximum); }

 private:
  ThinkingReport& report_;
};

// Back on the window thread when the analysis is over.
void AnalysisFinished(Session& s, const AnalysisResult& r) {
  Game& g = s.game;
  Screen& sc = s.screen;
  ClearStoredReply(g);
  ApplyGameEnding(g, r.ending);
  UnlockAfterSearch(s);
  sc.Busy = 0;
  if (r.searched) {
    sc.RootInfo = r.rootScores;
    FillAnalysisList(s);
    EnableCommand(s, Command::List3, 1);
  }
  if (g.Settings.ShowCalculation == 1 && !r.calculation.empty()) sc.Label9 = r.calculation;
  sc.ProgressValue = 0;
  if (g.GameOver == 1) {
    for (Command c : {Command::Compute, Command::ComputerComputer, Command::Analyze, Command::List2,
                      Command::OfferDraw, Command::Hint, Command::Resign})
      EnableCommand(s, c, 0);
  }
  RefreshMoveChoices(s);
  RefreshBoard(s, 0);
  if (s.game.GameOver == 0 && s.game.Settings.ShowAvailableMoves == 1) MarkMovablePieces(s);
  // "Computer is winning in 3 moves! " and the like stand over the side to move.
  if (!r.status.empty()) sc.StatusText = r.status;
  s.window.Changed(Part::All);
  if (!r.boxText.empty()) s.window.ShowMessage(r.boxText, r.boxCaption, BoxIcon::Information);
}

// Back on the window thread when the hint is found: the boxes, then the
// commands and the status text.
void HintFinished(Session& s, const HintResult& r, const std::array<ControlState, static_cast<int>(Command::Count)>& controls) {
  Screen& sc = s.screen;
  if (r.alreadyWon) s.window.ShowMessage("You have already won!", "Congratulations", BoxIcon::Information);
  if (!r.text.empty()) s.window.ShowMessage(r.text, "Hint", BoxIcon::Information);
  ClearStoredReply(s.game);
  sc.Controls = controls;
  sc.Busy = 0;
  sc.StatusText = HintStatusText;
  s.window.Changed(Part::All);
}

}  // namespace

void AnalyzeCommand(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (g.GameOver == 1 || sc.Busy == 1) return;
  sc.StatusText.clear();
  sc.Busy = 1;
  LockForSearch(s);
  sc.StatusText = "Analyzing...";
  s.window.Changed(Part::All);
  s.window.StartEngineJob(g, [](Game& work, ThinkingReport& live) -> ApplyOnWindow {
    LiveWords words(live);
    AnalysisResult result = Analysis(work, words);
    return [result = std::move(result)](Session& s) { AnalysisFinished(s, result); };
  });
}

void HintCommand(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (sc.Busy == 1) return;
  // Every menu, the toolbar and the typed move are locked while it runs.
  const auto controls = sc.Controls;
  for (ControlState& c : sc.Controls) c.Enabled = 0;
  sc.Busy = 1;
  s.window.Changed(Part::Commands);
  if (g.StoredReplyFrom > 0) {
    // The computer's last line has the answer: no search.
    HintFinished(s, Hint(g), controls);
    return;
  }
  s.window.StartEngineJob(g, [controls](Game& work, ThinkingReport&) -> ApplyOnWindow {
    HintResult result = Hint(work);
    return [result = std::move(result), controls](Session& s) { HintFinished(s, result, controls); };
  });
}

void FillAnalysisList(Session& s) {
  Screen& sc = s.screen;
  if (sc.RootInfo.empty() || sc.RootInfo[0].From == NotScored || sc.RootInfo[0].From == 0) return;
  const int notation = s.game.Settings.NotationKind;
  sc.List3.clear();
  for (const RootScore& row : sc.RootInfo) {
    const std::string score = row.Score == NotScored ? " n/a" : std::to_string(row.Score);
    sc.List3.push_back(SquareNotation(row.From, 1, notation) + SquareNotation(row.To, 1, notation) + " " + score);
  }
  s.window.Changed(Part::Lists);
}

void ClickAnalysisList(Session& s, int row) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (sc.Busy == 1 || sc[Command::List3].Enabled == 0) return;
  if (row < 0 || row >= static_cast<int>(sc.RootInfo.size()) || sc.RootInfo[row].From == NotScored) return;
  ClearHintState(s);
  const RootScore chosen = sc.RootInfo[row];
  const std::string moveText = MoveTextOf(chosen.From, chosen.To, g.Settings.NotationKind);
  MoveNavigator(s, 1, 1, 0);
  if (FindMove(g, ParseMoveText(moveText, g.CaptureChar)) == 0) {
    RefreshBoard(s, 0);
    s.window.ShowMessage("Illegal move", "Error", BoxIcon::Exclamation);
    return;
  }
  RecordHumanMove(s, moveText, EntryPath::List3);
}

}  // namespace qv

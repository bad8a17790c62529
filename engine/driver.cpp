#include "engine/driver.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "engine/deepening.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "engine/timetext.h"

namespace qv {

namespace {

long WholeSeconds() { return static_cast<long>(std::floor(SearchClock())); }

// No man on the board and both sides' pieces worth the same.
bool KingsOnlyLevel(const Game& g) {
  int white = 0, black = 0;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.Board[cell];
    if (v == OffBoard || v == 0) continue;
    if (v == WhiteMan || v == BlackMan) return false;
    if (v > 0) white += v;
    else black -= v;
  }
  return white == black;
}

// The computer offers a draw when the game has long stood still, or only
// kings of equal worth are left, and material is level.
bool WantsDraw(Game& g, int bestScore) {
  const int h = g.HalfMoveCount;
  if (h > 78 && g.ScoreHistory[h - 78] != 0) {
    if (std::abs(g.ScoreHistory[h - 78] - g.ScoreHistory[h]) < 100) ++g.StableCount;
    else g.StableCount = 0;
  }
  if (g.Settings.AskDrawIfComputerDraws != 1 || h - g.LastDrawOffer < 41) return false;
  if (!KingsOnlyLevel(g) && g.StableCount < 2) return false;
  if (g.Settings.PlayMode == 2) return false;
  if (!(g.Rnd() < 0.1 || g.StableCount > 1)) return false;
  return g.WinAnnounced == 0 && bestScore < 30000 && g.MaterialByPly[g.Ply] == 0;
}

}  // namespace

void DeclareDraw(Game& g, DriverUi& ui) {
  ResultText(g, 2);
  g.GameOver = 1;
  ui.SetStatus("It's a draw!");
  ui.GameEnded(0.5);
  ui.ShowMessage("Congratulations", g.Settings.PlayerName + "It's a draw!");
}

int NoiseRangeFor(int strengthHandicap) {
  int range = 70 * strengthHandicap - 70;
  if (range == 0) range = 5;
  if (range < 0) range = 0;
  return range;
}

TurnReport ComputerMove(Game& g, DriverUi& ui) {
  TurnReport report;
  const Options& o = g.Settings;
  const long turnStart = WholeSeconds();
  g.BackRankActive = 1;
  UpdateManThresholds(g);
  g.NoiseRange = NoiseRangeFor(o.StrengthHandicap);
  g.SearchCancelled = 0;
  const int depthMode = o.DepthMode;
  const std::string strength = "Strength:" + Str(10 - o.StrengthHandicap) +
                               (depthMode == 1 ? "   Depth:" + Str(o.DepthLimit) + " ply"
                                               : "   Time:" + Str(o.TimeLimit) + " sec");
  ui.SetStrengthLabel(strength);
  ui.SetStatus("Thinking...");
  ui.SetThinking(true);

  CommitRootPly(g);
  int score = Evaluate(g, -32000, 32000, g.SideToMove);
  const bool ownLoss = g.RuleLossPending == 1 || score == 32000;
  const auto finish = [&]() {
    ui.SetThinking(false);
    g.FocusSquare = 0;
    g.BookMoveFrom = 0;
    return report;
  };
  if (g.NoMoveDraw == 1) {
    g.NoMoveDraw = 0;
    DeclareDraw(g, ui);
    return finish();
  }
  if (ownLoss) {
    ResultText(g, 0);
    ui.SetStatus(o.PlayerName + " wins!");
    g.GameOver = 1;
    ui.GameEnded(1.0);
    ui.Pause(0.5);
    ui.ShowMessage("Congratulations", o.PlayerName + " wins!");
    return finish();
  }

  GenerateLegalMoves(g);
  int rootCount = g.PlyBase[1] - g.PlyBase[0];
  if (rootCount == 0) {
    ResultText(g, 0);
    g.GameOver = 1;
    ui.Pause(0.5);
    const std::string text = g.RuleSet.AntiMode == 1 ? "Computer wins!" : o.PlayerName + " wins!";
    if (g.RuleSet.AntiMode != 1) ui.GameEnded(1.0);
    ui.SetStatus(text);
    ui.ShowMessage("Congratulations", text);
    return finish();
  }
  int depthLimit = depthMode == 1 ? std::max(1, o.DepthLimit) : 20;
  if (rootCount == 1) depthLimit = 1;
  const double clockStart = SearchClock();
  ui.SetProgress(0, depthMode == 1 ? rootCount * depthLimit : o.TimeLimit);
  ui.Pause(0.5);

  DeepeningSetup setup;
  setup.depthLimit = depthLimit;
  setup.depthMode = depthMode;
  setup.timeLimit = o.TimeLimit;
  setup.clockStart = clockStart;
  const std::vector<MoveRecord> legal(g.MoveStack.begin(), g.MoveStack.begin() + rootCount);
  DeepeningResult thought = DeepenRootMoves(g, ui, setup, legal);
  const std::vector<MoveRecord>& roots = thought.roots;
  std::vector<RootScore>& rootInfo = thought.rootInfo;
  const int bestScore = thought.bestScore;
  const std::string& bestLine = thought.bestLine;
  report.iterationLog = thought.iterationLog;
  report.depth = thought.depth;

  // End of thinking.
  ui.SetStrengthLabel(strength);
  if (o.ShowCalculation == 1)
    ui.SetCalculation(thought.head + "   Time: " + TimeString(WholeSeconds() - turnStart) + "\r\nMain: " + bestLine);
  if (g.StopRequest == 2) {
    g.StopRequest = 0;
    g.SearchCancelled = 0;
  }
  if (g.StopRequest == 1) {
    // A Cancel that came after the last node: it still ends the thinking.
    g.StopRequest = 0;
    g.SearchCancelled = 1;
  }
  SortRootScores(rootInfo);
  ui.SetStatus("");

  // Play the best move: index 0 of the root order.
  g.MoveStack[0] = roots[0];
  g.LastWasCapture = roots[0].IsCapture() ? 1 : 0;
  g.LastWasCrowning = roots[0].PromoteFlag == 2 ? 1 : 0;
  g.PlyBase[0] = 0;
  g.PlyBase[1] = 1;
  MakeSearchMove(g, 0);
  g.LastMoveIndex = 0;
  const int mover = -g.SideToMove;
  score = Evaluate(g, -32000, 32000, mover);
  bool computerWins = false;
  if (g.NoMoveDraw == 1) {
    g.NoMoveDraw = 0;
  } else if (bestScore < -31979) {
    const int n = (bestScore + 32000 + (g.RuleSet.AntiMode == 1 ? 1 : 0)) / 2;
    ui.SetStatus("Computer is losing in" + Str(n) + " move" + (n > 1 ? "s" : "") + "! ");
    g.WinAnnounced = 1;
  } else if (bestScore >= 31980 && score < 31981) {
    const int n = (32000 - bestScore + 1) / 2;
    ui.SetStatus("Computer is winning in" + Str(n) + " move" + (n > 1 ? "s" : "") + "! ");
    g.WinAnnounced = 1;
  } else if (bestScore >= 31980) {
    computerWins = true;
  }
  g.ScoreHistory[g.HalfMoveCount] = bestScore;
  g.LastSearchScore = bestScore;
  CommitRootPly(g);
  EnterMoveInRecord(g, 0, rootCount);
  UpdateDrawReason(g);
  ui.MoveRecorded(g.HalfMoveCount);

  report.moved = true;
  report.move = MoveLabel(g, roots[0]);
  report.score = bestScore;
  report.mainLine = bestLine;
  report.rootScores = rootInfo;

  if (computerWins) {
    ResultText(g, 0);
    g.GameOver = 1;
    ui.GameEnded(0.0);
    ui.SetStatus("Computer wins!");
    ui.Pause(0.5);
    ui.ShowMessage("Congratulations", "Computer wins!");
  }
  if (g.GameOver == 0 && WantsDraw(g, bestScore)) {
    g.LastDrawOffer = g.HalfMoveCount;
    ui.Pause(0.5);
    report.drawOffered = true;
    if (ui.AskYesNo("Question", "How about a draw?")) DeclareDraw(g, ui);
  }
  if (g.GameOver == 0) CheckGameEnd(g, ui, 0);
  return finish();
}

}  // namespace qv

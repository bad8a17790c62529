#include "engine/driver.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "engine/timetext.h"

namespace qv {

namespace {

double Clock() {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

long WholeSeconds() { return static_cast<long>(std::floor(Clock())); }

int PVLength(const Game& g) {
  int k = 1;
  while (k < PlyRows && g.PVTable[1][k].From != 0) ++k;
  return k;
}

std::string SquareText(const Game& g, int cell) { return SquareNotation(cell, 1, g.Settings.NotationKind); }

// Everything that stays the same for the root moves of one turn.
struct Turn {
  Game& g;
  DriverUi& ui;
  SearchMember member;
  int rootCount = 0;
  int searchRootCount = 0;
  bool lazyRaiseArmed = false;
  int keptScore = 0;  // the score before the last short-line re-search

  // Searches root move `index` (already made) at iteration depth d.
  int Dispatch(int alpha, int beta, int d) {
    const int up = searchRootCount - 1;
    CountRepetitions(g, up);
    if (g.LineDrawn == 0) {
      CheckMoveLimit(g, up);
      g.LineDrawn = g.LimitReached;
    }
    int score = -SearchNode(g, member, -beta, -alpha, d - 1);
    if (g.LineDrawn >= 1) score = 0;
    g.LineDrawn = 0;
    return score;
  }

  // When the main line ended too soon, the first root move is searched one ply deeper.
  int ShortLineResearch(int score, int alpha, int beta, int d, bool& researched, const std::string& move) {
    if (PVLength(g) >= 3 || d < 3) return score;
    ui.SetStatus("Thinking... (" + std::to_string(d) + "/" + std::to_string(d + 1) + ")  " + move);
    const bool fullWindow = member == SearchMember::Fast1 || member == SearchMember::Anti;
    const int a = fullWindow ? -32000 : alpha, b = fullWindow ? 32000 : beta;
    keptScore = score;
    score = -SearchNode(g, member, -b, -a, d);
    researched = true;
    if (g.MaterialByPly[g.Ply] != 0 && lazyRaiseArmed) g.LazyMargin += 10;
    return score;
  }
};

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

std::string MainLineText(const Game& g) {
  std::string line;
  for (int k = 0; k < PlyRows && g.PVTable[0][k].From != 0; ++k) {
    const PVEntry& e = g.PVTable[0][k];
    if (!line.empty()) line += ' ';
    line += SquareText(g, e.From) + (e.Kind % 10 == 1 ? g.CaptureChar : "-") + SquareText(g, e.To);
    if (e.Kind >= 10) line += 'K';
  }
  return line;
}

CarriedEngineState CarriedEngineState::From(const Game& g) {
  CarriedEngineState c;
  c.LazyMargin = g.LazyMargin;
  c.NoiseRange = g.NoiseRange;
  c.BackRankActive = g.BackRankActive;
  c.ManThresholdWhite = g.ManThresholdWhite;
  c.ManThresholdBlack = g.ManThresholdBlack;
  c.HorizonLimit = g.HorizonLimit;
  c.SearchCancelled = g.SearchCancelled;
  c.RuleLossPending = g.RuleLossPending;
  c.NodeCount = g.NodeCount;
  c.Random = g.Random;
  c.PVTable = g.PVTable;
  return c;
}

void CarriedEngineState::GiveTo(Game& g) const {
  g.LazyMargin = LazyMargin;
  g.NoiseRange = NoiseRange;
  g.BackRankActive = BackRankActive;
  g.ManThresholdWhite = ManThresholdWhite;
  g.ManThresholdBlack = ManThresholdBlack;
  g.HorizonLimit = HorizonLimit;
  g.SearchCancelled = SearchCancelled;
  g.RuleLossPending = RuleLossPending;
  g.NodeCount = NodeCount;
  g.Random = Random;
  g.PVTable = PVTable;
}

TurnDecision ThinkComputerMove(Game& g, DriverUi& ui) {
  TurnDecision decision;
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
  decision.strengthLabel = strength;
  ui.SetStrengthLabel(strength);
  ui.SetStatus("Thinking...");
  ui.SetThinking(true);

  CommitRootPly(g);
  int score = Evaluate(g, -32000, 32000, g.SideToMove);
  const bool ownLoss = g.RuleLossPending == 1 || score == 32000;
  const auto decided = [&](TurnDecision::Ending ending) {
    decision.ending = ending;
    decision.engine = CarriedEngineState::From(g);
    return decision;
  };
  if (g.NoMoveDraw == 1) return decided(TurnDecision::Ending::NoMoveDraw);
  if (ownLoss) return decided(TurnDecision::Ending::OwnLoss);

  GenerateLegalMoves(g);
  int rootCount = g.PlyBase[1] - g.PlyBase[0];
  if (rootCount == 0) return decided(TurnDecision::Ending::NoMoves);
  int depthLimit = depthMode == 1 ? std::max(1, o.DepthLimit) : 20;
  if (rootCount == 1) depthLimit = 1;
  const double clockStart = Clock();
  ui.SetProgress(0, depthMode == 1 ? rootCount * depthLimit : o.TimeLimit);
  ui.Pause(0.5);

  std::vector<RootScore> rootInfo(static_cast<std::size_t>(rootCount));
  for (int i = 0; i < rootCount; ++i)
    rootInfo[i] = RootScore{g.MoveStack[i].FromSquare, g.MoveStack[i].ToSquare, -32767};
  // The root moves are kept apart from the stack the search overwrites.
  std::vector<MoveRecord> roots(g.MoveStack.begin(), g.MoveStack.begin() + rootCount);

  Turn turn{g, ui, SearchMemberFor(g), rootCount, g.HalfMoveCount, false};
  int alpha = -32000, beta = 32000, bestScore = -32001, prevIterationBest = -32001;
  int progress = 0;
  double elapsed = 0;
  std::string bestLine, bestMove, head, shortLine;
  for (auto& row : g.PVTable) row.Fill(PVEntry{});
  for (auto& row : g.KillerTable) row.Fill(MoveKey{});

  // Makes root move i: it is copied back onto the stack first.
  const auto makeRoot = [&](int i) {
    g.MoveStack[0] = roots[static_cast<std::size_t>(i)];
    g.PlyBase[1] = 1;
    MakeSearchMove(g, 0);
  };
  const auto undoRoot = [&]() { UndoSearchMove(g, 0); };

  int d = 1;
  for (; d <= depthLimit; ++d) {
    const long iterationStart = WholeSeconds();
    if (depthMode == 1) turn.lazyRaiseArmed = turn.lazyRaiseArmed || d == 1;
    else turn.lazyRaiseArmed = d > 2;
    if (d == 1) {
      alpha = -32000;
      beta = 32000;
    } else {
      beta = alpha + 100;
      alpha = alpha - 100;
    }
    g.HorizonLimit = d + std::clamp(o.Plys, 1, 6);
    for (int i = 0; i < rootCount; ++i) {
      bool researched = false;
      g.PVTable[0][0].From = 0;
      const std::string move = MoveLabel(g, roots[static_cast<std::size_t>(i)]);
      if (o.ShowCalculation == 1) ui.SetStatus("Thinking... (" + std::to_string(d) + ")  " + move);
      makeRoot(i);
      score = turn.Dispatch(alpha, beta, d);
      if (i == 0) score = turn.ShortLineResearch(score, alpha, beta, d, researched, move);
      undoRoot();
      if (g.SearchCancelled == 1 && std::abs(alpha) < 30001) break;
      bool newBest = false;
      if (i > 0) {
        if (score > alpha) {
          const int old = alpha;
          alpha = score;
          beta = 32000;
          makeRoot(i);
          score = turn.Dispatch(alpha, beta, d);
          if (score > old) score = turn.ShortLineResearch(score, alpha, beta, d, researched, move);
          undoRoot();
          if (g.SearchCancelled == 1 && std::abs(alpha) < 30001) break;
          if (score > old) {
            alpha = score;
            beta = score + 1;
            newBest = true;
          } else {
            alpha = old;
          }
        }
      } else {
        if (score < alpha || score >= beta) {
          if (score < alpha) {
            alpha = -32000;
            beta = score;
          } else {
            alpha = score;
            beta = 32000;
          }
          makeRoot(0);
          score = turn.Dispatch(alpha, beta, d);
          score = turn.ShortLineResearch(score, alpha, beta, d, researched, move);
          undoRoot();
          if (g.SearchCancelled == 1 && std::abs(alpha) < 30001) break;
        }
        alpha = score;
        beta = score + 1;
        newBest = true;
      }
      if (newBest) {
        bestScore = score;
        bestMove = move;
        // The main line: this root move, then what the search found below it.
        g.MoveStack[0] = roots[static_cast<std::size_t>(i)];
        UpdatePV(g, 0);
        bestLine = MainLineText(g);
        if (o.ShowCalculation == 1) {
          head = "Depth:" + Str(d) + "   Best: " + move + "   Score:" + Str(score);
          shortLine = "D:" + Str(d) + "   B: " + move + "   S:" + Str(score);
          ui.SetCalculation(head);
        }
        if (i > 0) {
          std::rotate(roots.begin(), roots.begin() + i, roots.begin() + i + 1);
          std::rotate(rootInfo.begin(), rootInfo.begin() + i, rootInfo.begin() + i + 1);
        }
      }
      // The clock.
      if (depthMode == 1) {
        ui.SetProgress(++progress, rootCount * depthLimit);
      } else {
        elapsed = std::min<double>(std::floor(Clock() - clockStart), o.TimeLimit);
        ui.SetProgress(static_cast<int>(elapsed), o.TimeLimit);
        if (elapsed >= o.TimeLimit && !(bestScore < prevIterationBest - 50)) {
          g.StopRequest = 2;
          g.SearchCancelled = 1;
        }
      }
      int stored = newBest ? alpha : score;
      if (researched) stored = turn.keptScore;
      rootInfo[newBest ? 0 : static_cast<std::size_t>(i)].Score = stored;
      if (g.SearchCancelled == 1) break;
    }
    if (depthMode == 0 && elapsed >= o.TimeLimit && !(bestScore < prevIterationBest - 50)) {
      g.StopRequest = 2;
      g.SearchCancelled = 1;
    }
    if (g.SearchCancelled == 1) break;
    prevIterationBest = bestScore;
    decision.iterationLog += std::string(15, ' ') + shortLine + "   M: " + bestLine +
                           "  T: " + TimeString(WholeSeconds() - iterationStart) + "\r\n";
  }
  decision.depth = std::min(d, depthLimit);

  // End of thinking: the texts are shown as the move is played.
  if (o.ShowCalculation == 1)
    decision.calculation = head + "   Time: " + TimeString(WholeSeconds() - turnStart) + "\r\nMain: " + bestLine;
  if (g.StopRequest == 2) {
    g.StopRequest = 0;
    g.SearchCancelled = 0;
  }
  if (g.StopRequest == 1) {
    // A Cancel that came after the last node: it still ends the thinking.
    g.StopRequest = 0;
    g.SearchCancelled = 1;
  }
  // Highest score first, by exchanges over all pairs: equal scores keep no
  // particular order.
  for (std::size_t i = 0; i < rootInfo.size(); ++i)
    for (std::size_t j = i + 1; j < rootInfo.size(); ++j)
      if (rootInfo[j].Score > rootInfo[i].Score) std::swap(rootInfo[i], rootInfo[j]);
  decision.move = roots[0];
  decision.rootCount = rootCount;
  decision.bestScore = bestScore;
  decision.mainLine = bestLine;
  decision.rootScores = std::move(rootInfo);
  return decided(TurnDecision::Ending::None);
}

TurnReport PlayComputerMove(Game& g, const TurnDecision& decision, DriverUi& ui) {
  TurnReport report;
  const Options& o = g.Settings;
  decision.engine.GiveTo(g);
  CommitRootPly(g);
  const auto finish = [&]() {
    ui.SetThinking(false);
    g.FocusSquare = 0;
    g.BookMoveFrom = 0;
    return report;
  };
  switch (decision.ending) {
    case TurnDecision::Ending::None: break;
    case TurnDecision::Ending::NoMoveDraw:
      g.NoMoveDraw = 0;
      DeclareDraw(g, ui);
      return finish();
    case TurnDecision::Ending::OwnLoss:
      ResultText(g, 0);
      ui.SetStatus(o.PlayerName + " wins!");
      g.GameOver = 1;
      ui.GameEnded(1.0);
      ui.Pause(0.5);
      ui.ShowMessage("Congratulations", o.PlayerName + " wins!");
      return finish();
    case TurnDecision::Ending::NoMoves: {
      ResultText(g, 0);
      g.GameOver = 1;
      ui.Pause(0.5);
      const std::string text = g.RuleSet.AntiMode == 1 ? "Computer wins!" : o.PlayerName + " wins!";
      if (g.RuleSet.AntiMode != 1) ui.GameEnded(1.0);
      ui.SetStatus(text);
      ui.ShowMessage("Congratulations", text);
      return finish();
    }
  }
  ui.SetStrengthLabel(decision.strengthLabel);
  if (!decision.calculation.empty()) ui.SetCalculation(decision.calculation);
  if (o.PlayMode != 2) ui.ShowRootScores(decision.rootScores);
  ui.SetStatus("");
  const int bestScore = decision.bestScore;
  const int rootCount = decision.rootCount;
  report.depth = decision.depth;
  report.iterationLog = decision.iterationLog;

  // Play the best move: index 0 of the root order.
  g.MoveStack[0] = decision.move;
  g.LastWasCapture = decision.move.IsCapture() ? 1 : 0;
  g.LastWasCrowning = decision.move.PromoteFlag == 2 ? 1 : 0;
  g.PlyBase[0] = 0;
  g.PlyBase[1] = 1;
  MakeSearchMove(g, 0);
  g.LastMoveIndex = 0;
  const int mover = -g.SideToMove;
  const int score = Evaluate(g, -32000, 32000, mover);
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
  report.move = MoveLabel(g, decision.move);
  report.score = bestScore;
  report.mainLine = decision.mainLine;
  report.rootScores = decision.rootScores;

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

TurnReport ComputerMove(Game& g, DriverUi& ui) { return PlayComputerMove(g, ThinkComputerMove(g, ui), ui); }

}  // namespace qv

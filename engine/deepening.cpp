#include "engine/deepening.h"

#include <chrono>
#include <cmath>

#include "core/makemove.h"
#include "core/text.h"
#include "engine/search.h"
#include "engine/timetext.h"
#include "engine/score.h"

namespace qv {

double SearchClock() {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

namespace {

long WholeSeconds() { return static_cast<long>(std::floor(SearchClock())); }

int PVLength(const Game& g) {
  int k = 1;
  while (k < PlyRows && g.PVTable[1][k].From != 0) ++k;
  return k;
}

// Everything that stays the same for the root moves of one search.
struct Deepening {
  Game& g;
  DriverUi& ui;
  const DeepeningSetup& setup;
  SearchMember member;
  int searchRootCount = 0;
  bool lazyRaiseArmed = false;
  int keptScore = 0;  // the score before the last short-line re-search

  void MakeRoot(const std::vector<MoveRecord>& roots, int i) { MakeRootMove(g, roots, i, searchRootCount); }

  // The made root move searched at iteration depth d.
  int Dispatch(int alpha, int beta, int d) { return DrawnOr(g, -SearchNode(g, member, -beta, -alpha, d - 1)); }

  // When the main line ended too soon, the first root move is searched one ply deeper.
  int ShortLineResearch(int score, int alpha, int beta, int d, bool& researched, const std::string& move) {
    if (!setup.shortLineResearch || PVLength(g) >= 3 || d < 3) return score;
    ui.SetStatus("Thinking... (" + std::to_string(d) + "/" + std::to_string(d + 1) + ")  " + move);
    const bool fullWindow = member == SearchMember::Fast1 || member == SearchMember::Anti;
    const int a = fullWindow ? -WinScore : alpha, b = fullWindow ? WinScore : beta;
    keptScore = score;
    score = -SearchNode(g, member, -b, -a, d);
    researched = true;
    if (g.MaterialByPly[g.Ply] != 0 && lazyRaiseArmed) g.LazyMargin += 10;
    return score;
  }
};

}  // namespace

DeepeningResult DeepenRootMoves(Game& g, DriverUi& ui, const DeepeningSetup& setup, std::vector<MoveRecord> roots) {
  const Options& o = g.Settings;
  DeepeningResult out;
  const int rootCount = static_cast<int>(roots.size());
  const int depthLimit = setup.depthLimit, depthMode = setup.depthMode, timeLimit = setup.timeLimit;
  const double clockStart = setup.clockStart;
  std::vector<RootScore> rootInfo = FreshRootInfo(roots);
  // What ends in the words "Thinking..." gets the depth and the move behind it.
  const std::string word = setup.statusWord;

  Deepening turn{g, ui, setup, SearchMemberFor(g), g.HalfMoveCount, false};
  int alpha = -WinScore, beta = WinScore, score = 0, bestScore = NoScoreYet, prevIterationBest = NoScoreYet;
  int progress = 0;
  double elapsed = 0;
  std::string bestLine, bestMove, head, shortLine;
  for (auto& row : g.PVTable) row.Fill(PVEntry{});
  for (auto& row : g.KillerTable) row.Fill(MoveKey{});
  g.StoredReplyFrom = 0;
  g.StoredReplyTo = 0;

  int d = 1;
  for (; d <= depthLimit; ++d) {
    const long iterationStart = WholeSeconds();
    if (depthMode == 1) turn.lazyRaiseArmed = turn.lazyRaiseArmed || d == 1;
    else turn.lazyRaiseArmed = d > 2;
    if (d == 1) {
      alpha = -WinScore;
      beta = WinScore;
    } else {
      beta = alpha + 100;
      alpha = alpha - 100;
    }
    g.HorizonLimit = d + std::clamp(o.Plys, 1, 6);
    for (int i = 0; i < rootCount; ++i) {
      bool researched = false;
      g.PVTable[0][0].From = 0;
      const std::string move = MoveLabel(g, roots[static_cast<std::size_t>(i)]);
      if (o.ShowCalculation == 1) ui.SetStatus(word + " (" + std::to_string(d) + ")  " + move);
      turn.MakeRoot(roots, i);
      score = turn.Dispatch(alpha, beta, d);
      if (i == 0) score = turn.ShortLineResearch(score, alpha, beta, d, researched, move);
      UndoRootMove(g);
      if (g.SearchCancelled == 1 && std::abs(alpha) < DecidedScore) break;
      bool newBest = false;
      if (i > 0) {
        if (score > alpha) {
          const int old = alpha;
          alpha = score;
          beta = WinScore;
          turn.MakeRoot(roots, i);
          score = turn.Dispatch(alpha, beta, d);
          if (score > old) score = turn.ShortLineResearch(score, alpha, beta, d, researched, move);
          UndoRootMove(g);
          if (g.SearchCancelled == 1 && std::abs(alpha) < DecidedScore) break;
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
            alpha = -WinScore;
            beta = score;
          } else {
            alpha = score;
            beta = WinScore;
          }
          turn.MakeRoot(roots, 0);
          score = turn.Dispatch(alpha, beta, d);
          score = turn.ShortLineResearch(score, alpha, beta, d, researched, move);
          UndoRootMove(g);
          if (g.SearchCancelled == 1 && std::abs(alpha) < DecidedScore) break;
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
        bestLine = setup.bookMove ? "Book" : MainLineText(g);
        // The line's second move is the reply the hint will offer.
        g.StoredReplyFrom = g.PVTable[0][1].From;
        g.StoredReplyTo = g.PVTable[0][1].To;
        if (o.ShowCalculation == 1) {
          head = "Depth:" + Str(d) + "   Best: " + move + "   Score:" + Str(score);
          shortLine = "D:" + Str(d) + "   B: " + move + "   S:" + Str(score);
          ui.SetCalculation(setup.bookMove ? head + "\r\nBook" : head);
        }
        MoveToFront(roots, i);
        MoveToFront(rootInfo, i);
      }
      // The clock.
      if (depthMode == 1) {
        ui.SetProgress(++progress, rootCount * depthLimit);
      } else {
        elapsed = std::min<double>(std::floor(SearchClock() - clockStart), timeLimit);
        ui.SetProgress(static_cast<int>(elapsed), timeLimit);
        if (elapsed >= timeLimit && !(bestScore < prevIterationBest - 50)) {
          g.StopRequest = 2;
          g.SearchCancelled = 1;
        }
      }
      int stored = newBest ? alpha : score;
      if (researched) stored = turn.keptScore;
      rootInfo[newBest ? 0 : static_cast<std::size_t>(i)].Score = stored;
      if (g.SearchCancelled == 1) break;
    }
    if (depthMode == 0 && elapsed >= timeLimit && !(bestScore < prevIterationBest - 50)) {
      g.StopRequest = 2;
      g.SearchCancelled = 1;
    }
    if (g.SearchCancelled == 1) break;
    prevIterationBest = bestScore;
    out.iterationLog += std::string(15, ' ') + shortLine + "   M: " + bestLine +
                        "  T: " + TimeString(WholeSeconds() - iterationStart) + "\r\n";
  }
  out.depth = std::min(d, depthLimit);
  out.roots = std::move(roots);
  out.rootInfo = std::move(rootInfo);
  out.bestScore = bestScore;
  out.bestMove = bestMove;
  out.bestLine = bestLine;
  out.head = head;
  return out;
}

}  // namespace qv

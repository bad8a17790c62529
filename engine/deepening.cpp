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

// One run of iterative deepening over the root moves: the aspiration window,
// the best move so far and the clock.
class Deepening {
 public:
  Deepening(Game& g, DriverUi& ui, const DeepeningSetup& setup, std::vector<MoveRecord> roots)
      : g(g), ui(ui), setup(setup), member(SearchMemberFor(g)), searchRootCount(g.HalfMoveCount),
        roots(std::move(roots)), rootInfo(FreshRootInfo(this->roots)) {}

  DeepeningResult Run() {
    ForgetEarlierSearch();
    int d = 1;
    for (; d <= setup.depthLimit; ++d) {
      const long iterationStart = WholeSeconds();
      StartIteration(d);
      SearchRootMoves(d);
      if (setup.depthMode == 0) StopWhenTimeIsUp();
      if (g.SearchCancelled == 1) break;
      prevIterationBest = bestScore;
      iterationLog += std::string(15, ' ') + shortLine + "   M: " + bestLine +
                      "  T: " + TimeString(WholeSeconds() - iterationStart) + "\r\n";
    }
    return Result(std::min(d, setup.depthLimit));
  }

 private:
  // How a root move's search ended.
  enum class RootOutcome { Worse, NewBest, Cancelled };

  Game& g;
  DriverUi& ui;
  const DeepeningSetup& setup;
  SearchMember member;
  int searchRootCount = 0;
  std::vector<MoveRecord> roots;
  std::vector<RootScore> rootInfo;

  int alpha = -WinScore, beta = WinScore;
  int bestScore = NoScoreYet, prevIterationBest = NoScoreYet;
  bool lazyRaiseArmed = false;
  int keptScore = 0;  // the score before the last short-line re-search
  int progress = 0;
  double elapsed = 0;
  std::string bestLine, bestMove, head, shortLine, iterationLog;

  void ForgetEarlierSearch() {
    for (auto& row : g.PVTable) row.Fill(PVEntry{});
    for (auto& row : g.KillerTable) row.Fill(MoveKey{});
    g.StoredReplyFrom = 0;
    g.StoredReplyTo = 0;
  }

  // The window: open at depth 1, afterwards 100 either side of the last score.
  void StartIteration(int d) {
    if (setup.depthMode == 1) lazyRaiseArmed = lazyRaiseArmed || d == 1;
    else lazyRaiseArmed = d > 2;
    if (d == 1) {
      alpha = -WinScore;
      beta = WinScore;
    } else {
      beta = alpha + 100;
      alpha = alpha - 100;
    }
    g.HorizonLimit = d + std::clamp(g.Settings.Plys, 1, 6);
  }

  void SearchRootMoves(int d) {
    const int rootCount = static_cast<int>(roots.size());
    for (int i = 0; i < rootCount; ++i) {
      bool researched = false;
      g.PVTable[0][0].From = 0;
      const std::string move = MoveLabel(g, roots[static_cast<std::size_t>(i)]);
      if (g.Settings.ShowCalculation == 1) ui.SetStatus(setup.statusWord + " (" + std::to_string(d) + ")  " + move);
      MakeRootMove(g, roots, i, searchRootCount);
      int score = Dispatch(alpha, beta, d);
      if (i == 0) score = ShortLineResearch(score, alpha, beta, d, researched, move);
      UndoRootMove(g);
      if (Cancelled()) break;
      const RootOutcome outcome =
          i == 0 ? SettleFirstRoot(score, d, researched, move) : TestLaterRoot(i, score, d, researched, move);
      if (outcome == RootOutcome::Cancelled) break;
      const bool newBest = outcome == RootOutcome::NewBest;
      if (newBest) TakeAsBest(i, d, score, move);
      TickClock(rootCount);
      int stored = newBest ? alpha : score;
      if (researched) stored = keptScore;
      rootInfo[newBest ? 0 : static_cast<std::size_t>(i)].Score = stored;
      if (g.SearchCancelled == 1) break;
    }
  }

  // A cancel counts only while the window holds no decided score.
  bool Cancelled() const { return g.SearchCancelled == 1 && std::abs(alpha) < DecidedScore; }

  // The made root move searched at iteration depth d.
  int Dispatch(int a, int b, int d) { return DrawnOr(g, -SearchNode(g, member, -b, -a, d - 1)); }

  // Root move i made, searched in (a, b), taken back.
  int SearchAgain(int i, int a, int b, int d) {
    MakeRootMove(g, roots, i, searchRootCount);
    return Dispatch(a, b, d);
  }

  // The first root move scored outside the aspiration window is searched
  // again with that side open; its score then sets the null window.
  RootOutcome SettleFirstRoot(int& score, int d, bool& researched, const std::string& move) {
    if (score < alpha || score >= beta) {
      if (score < alpha) {
        alpha = -WinScore;
        beta = score;
      } else {
        alpha = score;
        beta = WinScore;
      }
      score = SearchAgain(0, alpha, beta, d);
      score = ShortLineResearch(score, alpha, beta, d, researched, move);
      UndoRootMove(g);
      if (Cancelled()) return RootOutcome::Cancelled;
    }
    alpha = score;
    beta = score + 1;
    return RootOutcome::NewBest;
  }

  // A later root move that beats the null window is searched again above
  // the best score to find out by how much.
  RootOutcome TestLaterRoot(int i, int& score, int d, bool& researched, const std::string& move) {
    if (score <= alpha) return RootOutcome::Worse;
    const int old = alpha;
    alpha = score;
    beta = WinScore;
    score = SearchAgain(i, alpha, beta, d);
    if (score > old) score = ShortLineResearch(score, alpha, beta, d, researched, move);
    UndoRootMove(g);
    if (Cancelled()) return RootOutcome::Cancelled;
    if (score > old) {
      alpha = score;
      beta = score + 1;
      return RootOutcome::NewBest;
    }
    alpha = old;
    return RootOutcome::Worse;
  }

  // When the main line ended too soon, the first root move is searched one ply deeper.
  int ShortLineResearch(int score, int a, int b, int d, bool& researched, const std::string& move) {
    if (!setup.shortLineResearch || PVLength(g) >= 3 || d < 3) return score;
    ui.SetStatus("Thinking... (" + std::to_string(d) + "/" + std::to_string(d + 1) + ")  " + move);
    const bool fullWindow = member == SearchMember::Fast1 || member == SearchMember::Anti;
    if (fullWindow) a = -WinScore, b = WinScore;
    keptScore = score;
    score = -SearchNode(g, member, -b, -a, d);
    researched = true;
    if (g.MaterialByPly[g.Ply] != 0 && lazyRaiseArmed) g.LazyMargin += 10;
    return score;
  }

  // The new best root move goes to the front, with its main line and the
  // reply the hint will offer.
  void TakeAsBest(int i, int d, int score, const std::string& move) {
    bestScore = score;
    bestMove = move;
    g.MoveStack[0] = roots[static_cast<std::size_t>(i)];
    UpdatePV(g, 0);
    bestLine = setup.bookMove ? "Book" : MainLineText(g);
    g.StoredReplyFrom = g.PVTable[0][1].From;
    g.StoredReplyTo = g.PVTable[0][1].To;
    if (g.Settings.ShowCalculation == 1) {
      head = "Depth:" + Str(d) + "   Best: " + move + "   Score:" + Str(score);
      shortLine = "D:" + Str(d) + "   B: " + move + "   S:" + Str(score);
      ui.SetCalculation(setup.bookMove ? head + "\r\nBook" : head);
    }
    MoveToFront(roots, i);
    MoveToFront(rootInfo, i);
  }

  // Progress by root moves in depth mode, by seconds in time mode.
  void TickClock(int rootCount) {
    if (setup.depthMode == 1) {
      ui.SetProgress(++progress, rootCount * setup.depthLimit);
      return;
    }
    elapsed = std::min<double>(std::floor(SearchClock() - setup.clockStart), setup.timeLimit);
    ui.SetProgress(static_cast<int>(elapsed), setup.timeLimit);
    StopWhenTimeIsUp();
  }

  // Time is up unless the best score just fell by more than half a man.
  void StopWhenTimeIsUp() {
    if (elapsed >= setup.timeLimit && !(bestScore < prevIterationBest - 50)) {
      g.StopRequest = 2;
      g.SearchCancelled = 1;
    }
  }

  DeepeningResult Result(int depth) {
    DeepeningResult out;
    out.depth = depth;
    out.roots = std::move(roots);
    out.rootInfo = std::move(rootInfo);
    out.bestScore = bestScore;
    out.bestMove = bestMove;
    out.bestLine = bestLine;
    out.head = head;
    out.iterationLog = iterationLog;
    return out;
  }
};

}  // namespace

DeepeningResult DeepenRootMoves(Game& g, DriverUi& ui, const DeepeningSetup& setup, std::vector<MoveRecord> roots) {
  return Deepening(g, ui, setup, std::move(roots)).Run();
}

}  // namespace qv

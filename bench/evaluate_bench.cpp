// The static evaluation alone, on positions of random play from the start of
// each fast rule set, with a window wide enough that no position is cut short
// and a dozen earlier positions for the repetition test to read.
#include <benchmark/benchmark.h>

#include <vector>

#include "core/makemove.h"
#include "core/searchgen.h"
#include "engine/evaluate.h"
#include "../tests/position_helpers.h"

namespace {

using EvalFn = int (*)(qv::Game&, int, int, int);

// Boards met in random games (moves drawn with the game's own generator).
std::vector<qv::BoardCells> RandomBoards(qv::Game& g, int games, int plies) {
  std::vector<qv::BoardCells> boards;
  const qv::BoardCells start = g.Board;
  const int startSide = g.SideToMove;
  for (int game = 0; game < games; ++game) {
    g.Board = start;
    g.SideToMove = startSide;
    for (int ply = 0; ply < plies; ++ply) {
      g.Ply = 0;
      g.HalfMoveCount = 0;
      qv::GenerateSearchLegalMoves(g);
      const int first = g.PlyBase[0], count = g.PlyBase[1] - first;
      if (count == 0) break;
      qv::MakeSearchMove(g, first + static_cast<int>(g.Rnd() * count));
      boards.push_back(g.Board);
    }
  }
  g.Board = start;
  g.SideToMove = startSide;
  g.Ply = 0;
  g.HalfMoveCount = 0;
  return boards;
}

void RunEvaluate(benchmark::State& state, const qv::RuleRecord& rules, EvalFn evaluate) {
  auto g = qv::testing::NewTestGame(3);
  qv::testing::ApplyRules(*g, rules);
  if (g->RuleSet.PiecesOnBlack == 0) qv::AlignBoardColour(g->Board, 0);
  g->SideToMove = g->RuleSet.BlackStarts == 1 ? -1 : 1;
  const std::vector<qv::BoardCells> boards = RandomBoards(*g, 40, 60);
  g->NoiseRange = 0;
  long long evaluations = 0;
  for (auto _ : state) {
    for (const qv::BoardCells& board : boards) {
      g->Board = board;
      g->HalfMoveCount = 12;
      benchmark::DoNotOptimize(evaluate(*g, -32000, 32000, 1));
    }
    evaluations += static_cast<long long>(boards.size());
  }
  state.counters["positions"] = static_cast<double>(boards.size());
  state.counters["evaluations/s"] =
      benchmark::Counter(static_cast<double>(evaluations), benchmark::Counter::kIsRate);
}

void BM_EvaluateShort(benchmark::State& s) { RunEvaluate(s, qv::testing::FastRuleSet(1), qv::EvaluateShort); }
void BM_EvaluateShortMirror(benchmark::State& s) {
  RunEvaluate(s, qv::testing::FastRuleSet(2), qv::EvaluateShortMirror);
}
void BM_EvaluateLong(benchmark::State& s) { RunEvaluate(s, qv::testing::FastRuleSet(3), qv::EvaluateLong); }
void BM_EvaluateGeneralLongKings(benchmark::State& s) {
  RunEvaluate(s, qv::testing::GeneralLongKingRules(), qv::Evaluate);
}

}  // namespace

BENCHMARK(BM_EvaluateShort);
BENCHMARK(BM_EvaluateShortMirror);
BENCHMARK(BM_EvaluateLong);
BENCHMARK(BM_EvaluateGeneralLongKings);

// Time to finish iterative deepening to a fixed depth from the start position,
// handicap 0, for the four fast rule sets and a general long-king rule set.
#include <benchmark/benchmark.h>

#include "engine/driver.h"
#include "../tests/position_helpers.h"

namespace {

void RunSearch(benchmark::State& state, const qv::RuleRecord& rules) {
  const int depth = static_cast<int>(state.range(0));
  qv::DriverUi ui;
  long long nodes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto g = qv::testing::NewTestGame();
    qv::testing::ApplyRules(*g, rules);
    if (g->RuleSet.PiecesOnBlack == 0) qv::AlignBoardColour(g->Board, 0);
    g->SideToMove = g->RuleSet.BlackStarts == 1 ? -1 : 1;
    g->Settings.DepthMode = 1;
    g->Settings.DepthLimit = depth;
    g->Settings.StrengthHandicap = 0;
    state.ResumeTiming();
    benchmark::DoNotOptimize(qv::ComputerMove(*g, ui).score);
    nodes += g->NodeCount;
  }
  state.counters["nodes/s"] = benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsRate);
}

void BM_SearchAmerican(benchmark::State& s) { RunSearch(s, qv::testing::FastRuleSet(1)); }
void BM_SearchItalian(benchmark::State& s) { RunSearch(s, qv::testing::FastRuleSet(2)); }
void BM_SearchLongMaxCap(benchmark::State& s) { RunSearch(s, qv::testing::FastRuleSet(3)); }
void BM_SearchLongCrown(benchmark::State& s) { RunSearch(s, qv::testing::FastRuleSet(4)); }
void BM_SearchGeneralLongKings(benchmark::State& s) { RunSearch(s, qv::testing::GeneralLongKingRules()); }

}  // namespace

BENCHMARK(BM_SearchAmerican)->Arg(8)->Arg(10)->Arg(12)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchItalian)->Arg(8)->Arg(10)->Arg(12)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchLongMaxCap)->Arg(8)->Arg(10)->Arg(12)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchLongCrown)->Arg(8)->Arg(10)->Arg(12)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchGeneralLongKings)->Arg(8)->Arg(10)->Unit(benchmark::kMillisecond);

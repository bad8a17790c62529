// Perft with every leaf move made and unmade, from the start position of each
// fast rule set, with the general generator and with the rule set's own.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/newgame.h"
#include "core/perft.h"
#include "../tests/position_helpers.h"

namespace {

void RunPerft(benchmark::State& state, int flavour, qv::PerftGenerator generator) {
  auto g = qv::testing::NewTestGame();
  qv::testing::ApplyRules(*g, qv::testing::FastRuleSet(flavour));
  if (g->RuleSet.PiecesOnBlack == 0) qv::AlignBoardColour(g->Board, 0);
  g->SideToMove = g->RuleSet.BlackStarts == 1 ? -1 : 1;
  const int depth = static_cast<int>(state.range(0));
  std::uint64_t leaves = 0;
  for (auto _ : state) leaves += qv::Perft(*g, depth, generator);
  state.counters["leaves/s"] = benchmark::Counter(static_cast<double>(leaves), benchmark::Counter::kIsRate);
}

void BM_PerftAmericanFast(benchmark::State& s) { RunPerft(s, 1, qv::PerftGenerator::Search); }
void BM_PerftAmericanGeneral(benchmark::State& s) { RunPerft(s, 1, qv::PerftGenerator::General); }
void BM_PerftItalianFast(benchmark::State& s) { RunPerft(s, 2, qv::PerftGenerator::Search); }
void BM_PerftItalianGeneral(benchmark::State& s) { RunPerft(s, 2, qv::PerftGenerator::General); }
void BM_PerftLongMaxCapFast(benchmark::State& s) { RunPerft(s, 3, qv::PerftGenerator::Search); }
void BM_PerftLongMaxCapGeneral(benchmark::State& s) { RunPerft(s, 3, qv::PerftGenerator::General); }
void BM_PerftLongCrownFast(benchmark::State& s) { RunPerft(s, 4, qv::PerftGenerator::Search); }
void BM_PerftLongCrownGeneral(benchmark::State& s) { RunPerft(s, 4, qv::PerftGenerator::General); }

}  // namespace

BENCHMARK(BM_PerftAmericanFast)->Arg(9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftAmericanGeneral)->Arg(9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftItalianFast)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftItalianGeneral)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftLongMaxCapFast)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftLongMaxCapGeneral)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftLongCrownFast)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PerftLongCrownGeneral)->Arg(8)->Unit(benchmark::kMillisecond);

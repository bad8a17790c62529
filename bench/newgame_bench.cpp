#include <benchmark/benchmark.h>

#include <memory>

#include "core/newgame.h"

// The cost of setting up a game: rules, flags, tables and the first moves.
static void BM_NewGame(benchmark::State& state) {
  auto g = std::make_unique<qv::Game>();
  for (auto _ : state) {
    qv::NewGame(*g);
    benchmark::DoNotOptimize(g->MoveTop);
  }
}
BENCHMARK(BM_NewGame);

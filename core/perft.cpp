#include "core/perft.h"

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/searchgen.h"

namespace qv {

namespace {
template <bool General>
std::uint64_t PerftWalk(Game& g, int depth) {
  if constexpr (General) GenerateLegalMoves(g);
  else GenerateSearchLegalMoves(g);
  const int first = g.PlyBase[g.Ply], last = g.PlyBase[g.Ply + 1];
  if (depth == 1) {
    // The leaves are still made and unmade: that is what is being measured.
    for (int i = first; i < last; ++i) {
      MakeSearchMove(g, i);
      UndoSearchMove(g, i);
    }
    return static_cast<std::uint64_t>(last - first);
  }
  std::uint64_t leaves = 0;
  for (int i = first; i < last; ++i) {
    MakeSearchMove(g, i);
    leaves += PerftWalk<General>(g, depth - 1);
    UndoSearchMove(g, i);
  }
  return leaves;
}
}  // namespace

std::uint64_t Perft(Game& g, int depth, PerftGenerator generator) {
  if (depth <= 0) return 1;
  return generator == PerftGenerator::General ? PerftWalk<true>(g, depth) : PerftWalk<false>(g, depth);
}

}  // namespace qv

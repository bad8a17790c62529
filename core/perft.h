#pragma once
// Counting the leaves of the legal-move tree: the check of a move generator.
#include <cstdint>

#include "core/game.h"

namespace qv {

enum class PerftGenerator { Search, General };

// Leaves at `depth` from the position, every move made and unmade. Each
// capture line the generator pushes counts as a move of its own.
std::uint64_t Perft(Game& g, int depth, PerftGenerator generator);

}  // namespace qv

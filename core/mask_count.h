#pragma once
// Counting the squares of a mask. The evaluation counts dozens of masks at
// every node; on processors with a population-count instruction the
// functions marked CountingClones run a copy compiled for it, chosen once at
// start-up, and other processors run the portable copy. ThreadSanitizer's
// runtime cannot start before such a choice is made, so its builds have one
// copy only.
#include <bit>

#include "core/board_masks.h"

#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && !defined(__SANITIZE_THREAD__)
#define QV_COUNTING_CLONES __attribute__((target_clones("popcnt", "default")))
#else
#define QV_COUNTING_CLONES
#endif

// Inlined into its caller, so that it takes the caller's instruction set.
#define QV_INLINE_COUNT inline __attribute__((always_inline))

namespace qv {

QV_INLINE_COUNT int CountOf(Mask x) { return std::popcount(x); }

}  // namespace qv

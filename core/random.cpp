#include "core/random.h"

#include <chrono>

namespace qv {

namespace {
std::uint64_t SplitMix(std::uint64_t& x) {
  std::uint64_t z = (x += 0x9e3779b97f4a7c15ULL);
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
  return z ^ (z >> 31);
}
}  // namespace

void RandomSource::Seed(std::uint64_t seed) {
  for (auto& s : state_) s = SplitMix(seed);
}

void RandomSource::Randomize() {
  if (fixedSeed_) {
    Seed(*fixedSeed_);
    return;
  }
  Seed(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
       static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()));
}

}  // namespace qv

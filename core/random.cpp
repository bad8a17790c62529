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
std::uint64_t Rotl(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }
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

double RandomSource::Rnd() {
  // xoshiro256**: small, fast and good enough for games.
  const std::uint64_t result = Rotl(state_[1] * 5, 7) * 9;
  const std::uint64_t t = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= t;
  state_[3] = Rotl(state_[3], 45);
  return static_cast<double>(result >> 11) * 0x1.0p-53;
}

}  // namespace qv

#pragma once
// The one source of random numbers of a game. It is seeded from the clock at
// each new game unless a fixed seed was given (tests, the CLI's --seed), in
// which case every new game starts the same sequence again and any run can be
// repeated exactly.
#include <cstdint>
#include <optional>

namespace qv {

class RandomSource {
 public:
  RandomSource() { Seed(0x5eed); }
  void Seed(std::uint64_t seed);
  // Called at each new game: the fixed seed when one is set, else the clock.
  void Randomize();
  void SetFixedSeed(std::optional<std::uint64_t> seed) { fixedSeed_ = seed; }
  const std::optional<std::uint64_t>& FixedSeed() const { return fixedSeed_; }
  // Uniform in [0, 1). Inline: the evaluation draws twice at every node.
  double Rnd() {
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

 private:
  static std::uint64_t Rotl(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }
  std::uint64_t state_[4]{};
  std::optional<std::uint64_t> fixedSeed_;
};

}  // namespace qv

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
  // Uniform in [0, 1).
  double Rnd();

 private:
  std::uint64_t state_[4]{};
  std::optional<std::uint64_t> fixedSeed_;
};

}  // namespace qv

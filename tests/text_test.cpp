#include <gtest/gtest.h>

#include "core/fatal.h"
#include "core/random.h"
#include "core/text.h"

namespace qv {

TEST(Val, ReadsTheLongestLeadingNumber) {
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("   7"), 7);
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("-3x"), -3);
  EXPECT_DOUBLE_EQ(Val("1.5"), 1.5);
  EXPECT_DOUBLE_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("1 2"), 1);
  EXPECT_DOUBLE_EQ(Val("2e2x"), 200);
  EXPECT_DOUBLE_EQ(Val("2e"), 2);
}

TEST(ToInt32, RoundsHalvesToEven) {
  EXPECT_EQ(ToInt32(1.5), 2);
  EXPECT_EQ(ToInt32(2.5), 2);
  EXPECT_EQ(ToInt32(3.5), 4);
  EXPECT_EQ(ToInt32(-2.5), -2);
  EXPECT_EQ(ToInt32(2.6), 3);
  EXPECT_EQ(ValInt("2.5 kings"), 2);
  EXPECT_THROW(ToInt32(3e10), FatalError);
}

TEST(Str, PutsABlankBeforeNonNegativeNumbers) {
  EXPECT_EQ(Str(5), " 5");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-5), "-5");
}

TEST(Int, TakesTheWholePartDownwards) {
  EXPECT_EQ(Int(2.7), 2);
  EXPECT_EQ(Int(-2.5), -3);
  EXPECT_EQ(Int(0.999), 0);
}

TEST(RandomSource, AFixedSeedRepeatsTheSequenceAtEachNewGame) {
  RandomSource a, b;
  a.SetFixedSeed(42);
  b.SetFixedSeed(42);
  a.Randomize();
  b.Randomize();
  for (int i = 0; i < 100; ++i) {
    const double x = a.Rnd();
    EXPECT_EQ(x, b.Rnd());
    EXPECT_GE(x, 0.0);
    EXPECT_LT(x, 1.0);
  }
  a.Randomize();
  b.Randomize();
  EXPECT_EQ(a.Rnd(), b.Rnd());
}

TEST(RandomSource, IsRoughlyUniform) {
  RandomSource r;
  r.Seed(7);
  int buckets[10] = {};
  for (int i = 0; i < 100000; ++i) ++buckets[static_cast<int>(r.Rnd() * 10)];
  for (int count : buckets) EXPECT_NEAR(count, 10000, 500);
}

}  // namespace qv

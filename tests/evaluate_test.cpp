#include <gtest/gtest.h>

#include "engine/evaluate.h"
#include "position_helpers.h"

namespace qv {

// White's back-rank term on the American board, nearly empty: every open pair
// of squares in front of b8, d8 and f8 counts 50 (30 for both, 20 for either),
// a pair whose far square is off the board 20. At h8 the first black step
// already leaves the board, which ends the walk of that square. The general
// and the fast evaluation agree on it.
TEST(Evaluate, BackRankEndsWhereTheFirstStepLeavesTheBoard) {
  auto g = testing::NewTestGame();
  ASSERT_EQ(g->Flags.SearchFlavour, 1);
  testing::SetPosition(*g, {{"A1", WhiteMan}, {"H4", BlackMan}}, 1);
  g->NoiseRange = 0;
  g->ManThresholdWhite = 0;   // White's term on
  g->ManThresholdBlack = 99;  // Black's off

  g->BackRankActive = 1;
  const int withTerm = Evaluate(*g, -32000, 32000, 1);
  g->BackRankActive = 0;
  EXPECT_EQ(withTerm - Evaluate(*g, -32000, 32000, 1), 170 + 200 + 200);

  // The fast form has no gate; the man threshold turns its term off.
  const int shortWithTerm = EvaluateShort(*g, -32000, 32000, 1);
  g->ManThresholdWhite = 99;
  EXPECT_EQ(shortWithTerm - EvaluateShort(*g, -32000, 32000, 1), 170 + 200 + 200);
}

}  // namespace qv

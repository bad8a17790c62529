// Rule sets drawn at random, as the Variants dialog's Random button draws
// them, each played for a few moves by the computer against itself: nothing
// may crash or corrupt the game, and the only fatal ends allowed are those
// where a table of the move generator is really full.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>

#include "random_rules.h"

namespace qv {

namespace {

// QUORVANIS_SOAK_RULE_SETS=1000 measures more rule sets than the suite plays.
int RuleSetCount() {
  const char* text = std::getenv("QUORVANIS_SOAK_RULE_SETS");
  return text ? std::max(1, std::atoi(text)) : 300;
}

}  // namespace

TEST(RandomRulesSoak, SelfPlayStaysOnTheBoardAndEndsFatallyOnlyAtTableLimits) {
  const int ruleSets = RuleSetCount();
  int fatal = 0, tableLimits = 0, halfMoves = 0;
  for (int round = 0; round < ruleSets; ++round) {
    auto g = std::make_unique<Game>();
    g->DataFolder = QUORVANIS_TEST_DATA;
    const std::filesystem::path dataFolder = g->DataFolder;
    const testing::SelfPlayEnd end = testing::PlayRandomRules(*g, 20261123 + static_cast<std::uint64_t>(round), 24);
    halfMoves += end.halfMoves;
    EXPECT_TRUE(end.boardIntact) << "rule set " << round;
    EXPECT_EQ(g->DataFolder, dataFolder) << "rule set " << round;
    if (!end.fatal) continue;
    ++fatal;
    if (end.tableLimit) ++tableLimits;
    else ADD_FAILURE() << "rule set " << round << " ended fatally: " << end.text;
  }
  std::cout << ruleSets << " rule sets, " << halfMoves << " half-moves, " << fatal << " fatal ends, " << tableLimits
            << " of them at a table limit\n";
  EXPECT_EQ(fatal, tableLimits);
  EXPECT_GT(halfMoves, ruleSets * 4);
}

}  // namespace qv

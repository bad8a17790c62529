// The search, pinned: node counts, moves, scores and main lines of fixed-depth
// searches from the start and from middle-game positions, for the four fast
// rule sets and two rule sets that only the general search plays. Work on the
// speed of the engine must leave every figure as it stands.
#include <gtest/gtest.h>

#include <string>

#include "engine/driver.h"
#include "position_helpers.h"

namespace qv {

namespace {

struct Pin {
  const char* name;
  int rules;       // 1 to 4 the fast rule sets; 5 and 6 rule sets of the general search
  int opening;     // half-moves of noisy self-play before the pinned search
  int depth;
  long long nodes;
  int score;
  const char* move;
  const char* mainLine;
};

RuleRecord PinnedRules(int which) {
  if (which <= 4) return testing::FastRuleSet(which);
  if (which == 5) return testing::GeneralLongKingRules();
  RuleRecord r = testing::FastRuleSet(1);
  r.DirText[0] = r.DirText[1] = "NW;NE NW;NE;SE;SW";  // men capture backwards
  return r;
}

std::unique_ptr<Game> PinnedGame(int rules) {
  auto g = testing::NewTestGame(11);
  testing::ApplyRules(*g, PinnedRules(rules));
  if (g->RuleSet.PiecesOnBlack == 0) AlignBoardColour(g->Board, 0);
  g->SideToMove = g->RuleSet.BlackStarts == 1 ? -1 : 1;
  g->Settings.DepthMode = 1;
  g->Settings.PlayMode = 2;
  return g;
}

// Both sides play a few noisy moves, then the pinned search runs.
TurnReport RunPin(Game& g, int opening, int depth) {
  DriverUi ui;
  g.Settings.DepthLimit = 2;
  g.Settings.StrengthHandicap = 4;
  for (int i = 0; i < opening && g.GameOver == 0; ++i) ComputerMove(g, ui);
  g.Settings.DepthLimit = depth;
  g.Settings.StrengthHandicap = 0;
  g.NodeCount = 0;
  return ComputerMove(g, ui);
}

}  // namespace

TEST(SearchPins, FiguresAtFixedDepthStayAsTheyAre) {
  static const Pin pins[] = {
#include "search_pins.inc"
  };
  for (const Pin& pin : pins) {
    auto g = PinnedGame(pin.rules);
    const TurnReport turn = RunPin(*g, pin.opening, pin.depth);
    if (std::getenv("QUORVANIS_PRINT_PINS"))
      std::printf("    {\"%s\", %d, %d, %d, %lld, %d, \"%s\", \"%s\"},\n", pin.name, pin.rules, pin.opening, pin.depth,
                  g->NodeCount, turn.score, turn.move.c_str(), turn.mainLine.c_str());
    EXPECT_EQ(g->NodeCount, pin.nodes) << pin.name;
    EXPECT_EQ(turn.score, pin.score) << pin.name;
    EXPECT_EQ(turn.move, pin.move) << pin.name;
    EXPECT_EQ(turn.mainLine, pin.mainLine) << pin.name;
  }
}

}  // namespace qv

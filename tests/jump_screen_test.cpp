// The walk sets aside, on square masks, the pieces that cannot have a first
// jump before asking each piece. Under any rules, on any position, it must
// give exactly what the walk that asks every piece gives: the same moves in
// the same order with the same fields, the same probe answer, the same
// fatal error, and the board as it was.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/movegen_walk.h"
#include "core/rule_policies.h"
#include "random_rules.h"
#include "position_helpers.h"

namespace qv {

namespace {

struct UnscreenedRules : RuntimeRules {
  static constexpr bool ScreensJumps = false;
};
struct UnscreenedProbe : ProbeRules {
  static constexpr bool ScreensJumps = false;
};

// What one call of a walk leaves: its moves as text, the probe's answer or
// the fatal error's text, the board and the counters the next call reads.
struct WalkResult {
  std::vector<std::string> moves;
  std::string ending;
  BoardCells board;
  int sharedCounter = 0, candidates = 0, moveTop = 0;
  bool operator==(const WalkResult&) const = default;
};

template <class R>
WalkResult RunWalk(Game& g, int includeQuiet) {
  WalkResult result;
  try {
    const bool found = MoveWalk<R>(g).Run(includeQuiet);
    result.ending = found ? "found" : "done";
  } catch (const FatalError& e) {
    result.ending = std::string("fatal: ") + e.what();
  }
  if (!R::Probe)
    for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) {
      const MoveRecord& m = g.MoveStack[i];
      result.moves.push_back(std::to_string(m.FromSquare) + "-" + std::to_string(m.ToSquare) + " " +
                             std::to_string(m.PromoteFlag) + " " + std::to_string(m.OrderScore) + " " +
                             std::string(m.CaptureText.Cells, strnlen(m.CaptureText.Cells, CaptureTextSize)));
    }
  result.board = g.Board;
  result.sharedCounter = g.Gen.SharedCounter;
  result.candidates = g.Gen.CandCount;
  result.moveTop = g.MoveTop;
  return result;
}

// Pieces at random on the squares the rules play on, kings now and then.
void RandomPosition(Game& g, std::mt19937& rng) {
  const int density = 15 + static_cast<int>(rng() % 50);
  for (int cell = 21; cell <= 98; ++cell) {
    if (IsFrameCell(cell)) continue;
    g.Board[cell] = 0;
    if (g.RuleSet.PiecesOnBlack != 2 && !SquareIsDark(cell, g.RuleSet.PiecesOnBlack)) continue;
    if (static_cast<int>(rng() % 100) >= density) continue;
    const int kind = static_cast<int>(rng() % 100);
    g.Board[cell] = kind < 35 ? WhiteMan : kind < 70 ? BlackMan : kind < 85 ? WhiteKing : BlackKing;
  }
  g.SideToMove = rng() % 2 ? 1 : -1;
  g.Ply = 0;
  g.PlyBase[0] = 0;
}

// Both walks, the probe included, from the same state; counts the positions
// where the side had a capture.
void ExpectSameWalks(Game& g, const std::string& what, int& withCaptures) {
  const Game before = g;
  for (int includeQuiet : {0, 1}) {
    const WalkResult screened = RunWalk<RuntimeRules>(g, includeQuiet);
    g = before;
    const WalkResult asked = RunWalk<UnscreenedRules>(g, includeQuiet);
    g = before;
    ASSERT_TRUE(screened == asked) << what << " quiet " << includeQuiet << ": " << BoardSetupText(g.Board)
                                   << " side " << g.SideToMove;
    if (includeQuiet == 0 && !screened.moves.empty()) ++withCaptures;
    const WalkResult probe = RunWalk<ProbeRules>(g, includeQuiet);
    g = before;
    ASSERT_TRUE(probe == RunWalk<UnscreenedProbe>(g, includeQuiet)) << what << " probe " << includeQuiet;
    g = before;
  }
}

}  // namespace

TEST(JumpScreen, WalkGivesWhatAskingEveryPieceGivesUnderRandomRules) {
  std::mt19937 rng(4711);
  int withCaptures = 0;
  for (int round = 0; round < 120; ++round) {
    auto g = std::make_unique<Game>();
    g->DataFolder = QUORVANIS_TEST_DATA;
    try {
      testing::StartRandomRules(*g, 7000 + static_cast<std::uint64_t>(round));
    } catch (const FatalError&) {
      continue;  // rules the dialog refuses to start
    }
    for (int i = 0; i < 40; ++i) {
      RandomPosition(*g, rng);
      ExpectSameWalks(*g, "rule set " + std::to_string(round), withCaptures);
      if (::testing::Test::HasFatalFailure()) return;
    }
  }
  EXPECT_GT(withCaptures, 1000);
}

TEST(JumpScreen, WalkGivesWhatAskingEveryPieceGivesWithFlyingKingsAndSlidingMen) {
  std::mt19937 rng(99);
  int withCaptures = 0;
  for (int variant = 0; variant < 4; ++variant) {
    auto g = testing::NewTestGame();
    RuleRecord rules = testing::FastRuleSet(variant < 2 ? 3 : 1);
    rules.KingCapMove = 1;
    rules.ManCapMoveKing = variant % 2;  // men capture from afar as kings do
    testing::ApplyRules(*g, rules);
    for (int i = 0; i < 1500; ++i) {
      RandomPosition(*g, rng);
      ExpectSameWalks(*g, "variant " + std::to_string(variant), withCaptures);
      if (::testing::Test::HasFatalFailure()) return;
    }
  }
  EXPECT_GT(withCaptures, 2000);
}

}  // namespace qv

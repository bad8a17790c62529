// The shipped variant files play their published rules: small positions in
// which one rule of a file decides the legal moves or the end of the game.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/gameend.h"
#include "files/variantfile.h"
#include "position_helpers.h"

namespace qv {

namespace {

using Moves = std::vector<std::string>;

std::unique_ptr<Game> Classic(const std::string& name) {
  auto g = std::make_unique<Game>();
  g->DataFolder = QUORVANIS_TEST_DATA;
  g->Settings.UseClassic = 1;
  g->Random.SetFixedSeed(5);
  StartVariant(*g, name);
  return g;
}

// The legal moves of a position set up under the variant's rules.
Moves MovesIn(Game& g, std::initializer_list<std::pair<const char*, int>> pieces, int sideToMove) {
  testing::SetPosition(g, pieces, sideToMove);
  AdoptBoardPosition(g);
  return testing::MoveTexts(g);
}

// The half-move at which a king ending of this material is drawn, counted
// from the first position with it.
int KingEndingDrawnAfter(Game& g, std::initializer_list<std::pair<const char*, int>> pieces, int drawReason) {
  testing::SetPosition(g, pieces, 1);
  for (int h = 10; h <= 80; ++h) {
    g.HalfMoveCount = h;
    g.Board[h % 2 ? 21 : 32] = 0;  // a white king goes a1-b2 and back: the position changes each move
    g.Board[h % 2 ? 32 : 21] = WhiteKing;
    UpdateDrawReason(g);
    if (g.DrawReason == drawReason) return h - (drawReason == 4 ? g.ThreeKingsSince : g.TwoKingsSince) + 2;
  }
  return 0;
}

}  // namespace

TEST(ShippedRules, GermanMenCaptureForwardAndKingsLandDirectlyBehind) {
  auto g = Classic("German Checkers");
  EXPECT_EQ(g->SideToMove, -1);  // Black begins
  // The king on a1 takes c3 and must stop on d4, not on e5 or further.
  EXPECT_EQ(MovesIn(*g, {{"A1", WhiteKing}, {"C3", BlackMan}, {"H8", BlackMan}}, 1), (Moves{"a1xd4 [c3]"}));
  // A man does not capture backwards: d4 has only its steps.
  EXPECT_EQ(MovesIn(*g, {{"D4", WhiteMan}, {"C3", BlackMan}, {"E3", BlackMan}}, 1), (Moves{"d4-c5", "d4-e5"}));
}

TEST(ShippedRules, GothicMenStepDiagonallyAndCaptureForwardAndSideways) {
  auto g = Classic("Gothic Checkers");
  // A man steps only diagonally forward.
  EXPECT_EQ(MovesIn(*g, {{"D4", WhiteMan}, {"H8", BlackMan}}, 1), (Moves{"d4-c5", "d4-e5"}));
  // It captures sideways and straight forward, not backwards.
  EXPECT_EQ(MovesIn(*g, {{"D4", WhiteMan}, {"E4", BlackMan}, {"D3", BlackMan}, {"H8", BlackMan}}, 1),
            (Moves{"d4xf4 [e4]"}));
  EXPECT_EQ(MovesIn(*g, {{"D4", WhiteMan}, {"D5", BlackMan}, {"H8", BlackMan}}, 1), (Moves{"d4xd6 [d5]"}));
  // The most pieces must be taken: d4 takes e4 and then f5, not c4 alone.
  EXPECT_EQ(MovesIn(*g, {{"D4", WhiteMan}, {"C4", BlackMan}, {"E4", BlackMan}, {"F5", BlackMan}, {"H8", BlackMan}},
                    1),
            (Moves{"d4xf6 [e4 f5]"}));
}

TEST(ShippedRules, TurkishManReachingTheFarRowCapturesOnAndIsCrownedAtTheEnd) {
  auto g = Classic("Turkish Checkers");
  // c6 takes c7 onto c8 and goes on along the far row over d8 to e8.
  EXPECT_EQ(MovesIn(*g, {{"C6", WhiteMan}, {"C7", BlackMan}, {"D8", BlackMan}, {"A1", BlackMan}}, 1),
            (Moves{"c6xe8K [c7 d8]"}));
}

TEST(ShippedRules, ArmenianManReachingTheFarRowCapturesOnAsAKing) {
  auto g = Classic("Armenian Checkers");
  // c6 takes c7, is crowned on c8 and takes f8 from a distance, as a king.
  EXPECT_EQ(MovesIn(*g, {{"C6", WhiteMan}, {"C7", BlackMan}, {"F8", BlackMan}, {"A1", BlackMan}}, 1),
            (Moves{"c6xg8K [c7 f8]", "c6xh8K [c7 f8]"}));
}

TEST(ShippedRules, PoolDrawsThreeKingsAgainstOneAfterThirteenMoves) {
  for (const char* name : {"Pool Checkers", "American Pool Checkers"}) {
    auto g = Classic(name);
    EXPECT_EQ(KingEndingDrawnAfter(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"E1", WhiteKing}, {"H8", BlackKing}}, 4),
              2 * 13 + 1)
        << name;
  }
}

TEST(ShippedRules, FrisianDrawsTwoKingsAgainstOneAfterSevenMoves) {
  auto g = Classic("Frisian Checkers");
  EXPECT_EQ(KingEndingDrawnAfter(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"H8", BlackKing}}, 5), 2 * 7 + 1);
}

}  // namespace qv

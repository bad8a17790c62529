// Rule combinations that take a man across its crowning row in the middle of
// a capture: the trace must put every piece back where it stood and stay
// inside the board, and each line comes out once.
#include <gtest/gtest.h>

#include <random>

#include "core/fatal.h"
#include "core/searchgen.h"
#include "position_helpers.h"
#include "random_rules.h"

namespace qv {

using testing::ApplyRules;
using testing::MoveTexts;
using testing::NewTestGame;
using testing::SetPosition;
using Moves = std::vector<std::string>;

namespace {

// Every generator entry point on the position; the board must come out of
// each exactly as it went in.
void ExpectEveryGeneratorLeavesTheBoard(Game& g, const std::string& context) {
  const BoardCells before = g.Board;
  GenerateMoves(g, 0);
  EXPECT_TRUE(g.Board == before) << context << ": GenerateMoves(0)";
  g.Board = before;
  GenerateMoves(g, 1);
  EXPECT_TRUE(g.Board == before) << context << ": GenerateMoves(1)";
  g.Board = before;
  HasLegalMove(g, 1);
  EXPECT_TRUE(g.Board == before) << context << ": HasLegalMove";
  g.Board = before;
  GenerateSearchLegalMoves(g);
  EXPECT_TRUE(g.Board == before) << context << ": GenerateSearchLegalMoves";
  g.Board = before;
}

RuleRecord CrownedInPassing(int manContJump) {
  RuleRecord r;
  r.ManContJump = manContJump;
  r.ManContJumpCrowned = 1;
  return r;
}

}  // namespace

TEST(CaptureTrace, AManCrownedOnItsLastRowStopsThereAndTheBoardStays) {
  auto g = NewTestGame();
  ApplyRules(*g, CrownedInPassing(0));
  SetPosition(*g, {{"B6", WhiteMan}, {"C7", BlackMan}, {"E7", BlackMan}}, 1);
  ExpectEveryGeneratorLeavesTheBoard(*g, "man on b6");
  EXPECT_EQ(MoveTexts(*g), Moves({"b6xd8K [c7]"}));
  EXPECT_EQ(g->Board[SquareNumber("B6", 0, 1)], WhiteMan);

  // The set-up of the report, pieces on the light squares, Black to move.
  RuleRecord light = CrownedInPassing(0);
  light.PiecesOnBlack = 0;
  ShiftPromoSquares(light.PromoSquares, 0);
  ApplyRules(*g, light);
  ReadSetupText(*g, "0200000000101000000000000000000000000000000000000000000000000000");
  g->Board = g->StartBoard;
  g->SideToMove = -1;
  ExpectEveryGeneratorLeavesTheBoard(*g, "report set-up, Black");
  g->SideToMove = 1;
  ExpectEveryGeneratorLeavesTheBoard(*g, "report set-up, White");
}

TEST(CaptureTrace, AJumperStoppingOnItsCrowningRowFindsTheJumpOnce) {
  // A flying-kings variant with "King stops behind the piece" and "Men
  // capture like kings": the man jumps from afar onto its crowning row.
  auto g = NewTestGame();
  RuleRecord r;
  r.LongKings = r.RemovePieces = 1;
  r.KingFirst = r.ManCapMoveKing = 1;
  r.DirText[0] = r.DirText[1] = "NW;NE NW;NE;SE;SW";
  ApplyRules(*g, r);
  SetPosition(*g, {{"A5", WhiteMan}, {"C7", BlackMan}, {"H8", BlackMan}}, 1);
  ExpectEveryGeneratorLeavesTheBoard(*g, "a5");
  EXPECT_EQ(MoveTexts(*g), Moves({"a5xd8K [c7]"}));
}

TEST(CaptureTrace, ASlidingManCrownedInPassingIsPutBackWhole) {
  auto g = NewTestGame();
  RuleRecord r = CrownedInPassing(1);
  r.ManCapMoveKing = 1;
  r.DirText[0] = r.DirText[1] = "NW;NE NW;NE;SE;SW";
  ApplyRules(*g, r);
  SetPosition(*g, {{"A5", WhiteMan}, {"C7", BlackMan}, {"F6", BlackMan}, {"B2", BlackMan}}, 1);
  ExpectEveryGeneratorLeavesTheBoard(*g, "a5");
  const Moves moves = MoveTexts(*g);
  EXPECT_NE(std::find(moves.begin(), moves.end(), "a5xg5K [c7 f6]"), moves.end()) << ::testing::PrintToString(moves);
}

// Random rules as the dialog draws them and random positions: every
// generator leaves the board as it found it; only a full table or the kept
// hop of a black king may end in the fatal error.
TEST(CaptureTrace, RandomRulesAndPositionsLeaveTheBoardAsItWas) {
  int positions = 0, captures = 0;
  for (int round = 0; round < 300; ++round) {
    auto g = std::make_unique<Game>();
    g->DataFolder = QUORVANIS_TEST_DATA;
    ASSERT_NO_THROW(testing::StartRandomRules(*g, 7000 + static_cast<std::uint64_t>(round)));
    std::mt19937 rng(static_cast<std::mt19937::result_type>(round));
    const int pob = g->RuleSet.PiecesOnBlack;
    for (int position = 0; position < 30; ++position) {
      const int density = 2 + static_cast<int>(rng() % 6);
      for (int cell = 21; cell <= 98; ++cell) {
        if (IsFrameCell(cell)) continue;
        const bool playing = pob == 2 || SquareIsDark(cell, pob);
        static constexpr int values[] = {WhiteMan, WhiteMan, WhiteKing, BlackMan, BlackMan, BlackKing};
        g->Board[cell] = playing && static_cast<int>(rng() % 10) < density ? values[rng() % 6] : 0;
      }
      g->SideToMove = rng() % 2 ? 1 : -1;
      const std::string context = "rule set " + std::to_string(round) + ", " + BoardSetupText(g->Board);
      try {
        ExpectEveryGeneratorLeavesTheBoard(*g, context);
        GenerateLegalMoves(*g);
        if (g->PlyBase[1] > g->PlyBase[0] && g->MoveStack[g->PlyBase[0]].IsCapture()) ++captures;
      } catch (const FatalError& e) {
        EXPECT_TRUE(testing::GeneratorTableFull(*g) || testing::BlackKingCanHop(*g)) << context << "\n" << e.what();
      }
      ++positions;
    }
  }
  EXPECT_GT(captures, positions / 10);
}

}  // namespace qv

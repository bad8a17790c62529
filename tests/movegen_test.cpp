#include <gtest/gtest.h>

#include "core/fatal.h"
#include "core/perft.h"
#include "core/searchgen.h"
#include "position_helpers.h"

namespace qv {

using testing::ApplyRules;
using testing::MoveTexts;
using testing::NewTestGame;
using testing::SetPosition;
using Moves = std::vector<std::string>;

TEST(Perft, AmericanCheckersFromTheStartWithBothGenerators) {
  auto g = NewTestGame();
  const std::uint64_t expected[] = {1, 7, 49, 302, 1469, 7361, 36768, 179740};
  for (int depth = 1; depth <= 7; ++depth) {
    EXPECT_EQ(Perft(*g, depth, PerftGenerator::Search), expected[depth]) << depth;
    EXPECT_EQ(Perft(*g, depth, PerftGenerator::General), expected[depth]) << depth;
  }
  EXPECT_EQ(BoardSetupText(g->Board), BoardSetupText(g->StartBoard));
}

TEST(GenerateMoves, CompulsoryCapturesComeAloneAndQuietMovesOnlyWithoutThem) {
  auto g = NewTestGame();
  EXPECT_TRUE(MoveTexts(*g, 0).empty());
  EXPECT_EQ(MoveTexts(*g, 1).size(), 7u);

  SetPosition(*g, {{"C3", WhiteMan}, {"D4", BlackMan}, {"H2", WhiteMan}}, 1);
  EXPECT_EQ(MoveTexts(*g), Moves({"c3xe5 [d4]"}));
  RuleRecord free;
  free.CapRequired = 0;
  ApplyRules(*g, free);
  // Quiet moves of each piece in walk order, the captures after them.
  EXPECT_EQ(MoveTexts(*g, 0), Moves({"h2-g3", "c3-b4", "c3xe5 [d4]"}));
}

TEST(GenerateMoves, MostCapturesMandatoryKeepsOnlyTheLongestLines) {
  auto g = NewTestGame();
  SetPosition(*g, {{"E1", WhiteMan}, {"D2", BlackMan}, {"D4", BlackMan}, {"F6", BlackMan}, {"F2", BlackMan}}, 1);
  EXPECT_EQ(MoveTexts(*g), Moves({"e1xg7 [d2 d4 f6]", "e1xg3 [f2]"}));
  RuleRecord most;
  most.MaxCapMove = 1;
  ApplyRules(*g, most);
  EXPECT_EQ(MoveTexts(*g), Moves({"e1xg7 [d2 d4 f6]"}));
}

TEST(GenerateMoves, CaptureWithKingMandatory) {
  auto g = NewTestGame();
  SetPosition(*g, {{"A1", WhiteKing}, {"B2", BlackMan}, {"E3", WhiteMan}, {"F4", BlackMan}}, 1);
  EXPECT_EQ(MoveTexts(*g), Moves({"a1xc3 [b2]", "e3xg5 [f4]"}));
  RuleRecord kingFirst;
  kingFirst.KingCapMove = 1;
  ApplyRules(*g, kingFirst);
  EXPECT_EQ(MoveTexts(*g), Moves({"a1xc3 [b2]"}));
}

TEST(GenerateMoves, WithoutMultipleJumpsEveryPrefixIsAMove) {
  auto g = NewTestGame();
  SetPosition(*g, {{"E1", WhiteMan}, {"D2", BlackMan}, {"D4", BlackMan}}, 1);
  EXPECT_EQ(MoveTexts(*g), Moves({"e1xe5 [d2 d4]"}));
  RuleRecord single;
  single.MulJumps = 0;
  ApplyRules(*g, single);
  EXPECT_EQ(MoveTexts(*g), Moves({"e1xe5 [d2 d4]", "e1xc3 [d2]"}));
}

TEST(GenerateMoves, AManReachingTheLastRowInACapture) {
  auto g = NewTestGame();
  RuleRecord r;
  r.DirText[0] = "NW;NE NW;NE;SE;SW";
  ApplyRules(*g, r);
  SetPosition(*g, {{"D6", WhiteMan}, {"E7", BlackMan}, {"G7", BlackMan}}, 1);
  // It stops on the promotion square and is crowned.
  EXPECT_EQ(MoveTexts(*g), Moves({"d6xf8K [e7]"}));
  // It jumps on as a man and is crowned only where the line ends.
  r.ManContJump = 1;
  ApplyRules(*g, r);
  EXPECT_EQ(MoveTexts(*g), Moves({"d6xh6 [e7 g7]"}));
  // It is crowned in passing and goes on as a long-jumping king.
  r.ManContJumpCrowned = 1;
  ApplyRules(*g, r);
  SetPosition(*g, {{"D6", WhiteMan}, {"E7", BlackMan}, {"G7", BlackMan}, {"H6", 0}}, 1);
  g->Board[SquareNumber("H6", 0, 1)] = 0;
  const Moves crowned = MoveTexts(*g);
  ASSERT_EQ(crowned.size(), 1u);
  EXPECT_EQ(crowned[0], "d6xh6K [e7 g7]");
  MakeSearchMove(*g, g->PlyBase[0]);
  EXPECT_EQ(g->Board[SquareNumber("H6", 0, 1)], WhiteKing);
}

TEST(GenerateMoves, ARingCaptureEndsOnItsStartSquare) {
  auto g = NewTestGame();
  SetPosition(*g, {{"C3", WhiteKing}, {"D4", BlackMan}, {"F4", BlackMan}, {"F2", BlackMan}, {"D2", BlackMan}}, 1);
  const Moves moves = MoveTexts(*g);
  ASSERT_EQ(moves.size(), 2u);
  EXPECT_EQ(moves[0], "c3xc3 [d4 f4 f2 d2]");
  EXPECT_EQ(moves[1], "c3xc3 [d2 f2 f4 d4]");
  EXPECT_EQ(FindMove(*g, "C3"), -1);
  EXPECT_EQ(g->LastMoveIndex, 0);
  EXPECT_EQ(g->LastWasCapture, 1);
  EXPECT_EQ(BoardSetupText(g->Board).find_first_of("24"), std::string::npos);  // every black piece gone
  EXPECT_EQ(g->Board[SquareNumber("C3", 0, 1)], WhiteKing);
}

TEST(GenerateMoves, CapturingThePieceThatJustMovedIsCompulsory) {
  auto g = NewTestGame();
  RuleRecord r;
  r.CapRequired = 0;
  r.LastCap = 1;
  ApplyRules(*g, r);
  SetPosition(*g, {{"C3", WhiteMan}, {"G3", WhiteMan}, {"D4", BlackMan}, {"F4", BlackMan}}, 1);
  g->HalfMoveCount = 1;
  g->Record.LastToByMove[1] = SquareNumber("D4", 0, 1);
  EXPECT_EQ(MoveTexts(*g, 0), Moves({"c3xe5 [d4]"}));
  r.LastCap = 0;
  ApplyRules(*g, r);
  EXPECT_EQ(MoveTexts(*g, 0), Moves({"c3-b4", "g3-h4", "c3xe5 [d4]", "g3xe5 [f4]"}));
}

TEST(GenerateMoves, PiecesComeOnFromOffTheBoard) {
  auto g = NewTestGame();
  RuleRecord r;
  r.canContract = 1;
  r.ContractNumber = 2;
  r.ContractW1 = 2;
  r.ContractW2 = 3;
  ApplyRules(*g, r);
  SetPosition(*g, {{"C3", BlackMan}, {"H8", BlackMan}}, 1);
  EXPECT_TRUE(MoveTexts(*g, 0).empty());
  // a1, e1 and g1 are free with a free square above; c1 has c3 two rows up, d2 is free.
  EXPECT_EQ(MoveTexts(*g), Moves({"a1", "c1", "e1", "g1"}));
  const int drop = g->PlyBase[0];
  EXPECT_EQ(g->MoveStack[drop].FromSquare, DropSource);
  MakeSearchMove(*g, drop);
  EXPECT_EQ(g->Board[21], WhiteMan);
  EXPECT_EQ(g->ContractLeftWhite, 1);
  UndoSearchMove(*g, drop);
  EXPECT_EQ(g->Board[21], 0);
  EXPECT_EQ(g->ContractLeftWhite, 2);
  // A drop is found by its target whatever source the text names.
  EXPECT_EQ(FindMove(*g, "H8E1"), -1);
  EXPECT_EQ(g->Board[25], WhiteMan);
}

TEST(GenerateMoves, HoppingOwnPieces) {
  auto g = NewTestGame();
  RuleRecord r;
  r.JumpFriend = 1;
  r.NumberFriends = -1;
  ApplyRules(*g, r);
  SetPosition(*g, {{"C3", WhiteMan}, {"D4", WhiteMan}, {"E5", WhiteMan}, {"A7", BlackMan}}, 1);
  // c3 hops the two men in front of it; b4 is a plain step.
  EXPECT_EQ(MoveTexts(*g), Moves({"c3-b4", "c3-f6", "d4-c5", "d4-f6", "e5-d6", "e5-f6"}));
  r.NumberFriends = 1;
  ApplyRules(*g, r);
  EXPECT_EQ(MoveTexts(*g), Moves({"c3-b4", "d4-c5", "d4-f6", "e5-d6", "e5-f6"}));
}

TEST(GenerateMoves, ABlackKingHoppingItsOwnKingIsFatal) {
  auto g = NewTestGame();
  RuleRecord r;
  r.JumpFriend = 1;
  r.NumberFriends = -1;
  ApplyRules(*g, r);
  SetPosition(*g, {{"D4", BlackKing}, {"E5", BlackKing}, {"A1", WhiteMan}}, -1);
  try {
    GenerateLegalMoves(*g);
    FAIL() << "no fatal error";
  } catch (const RangeError&) {
    FAIL() << "a range error escaped the generator";
  } catch (const FatalError& e) {
    EXPECT_EQ(std::string(e.what()),
              "X=-1   K=0\n\nFatal Error! Quorvanis will exit.\n\n"
              "Try to check 'Remove captured pieces after move'\nin the Variants dialog box.\n");
  }
  r.RemovePieces = 1;
  ApplyRules(*g, r);
  try {
    GenerateLegalMoves(*g);
    FAIL() << "no fatal error";
  } catch (const FatalError& e) {
    EXPECT_EQ(std::string(e.what()), "X=-1   K=0\n\nFatal Error! Quorvanis will exit.\n");
  }
}

TEST(GenerateMoves, LongKingsAndJumpedPieces) {
  auto g = NewTestGame();
  RuleRecord r;
  r.LongKings = 1;
  ApplyRules(*g, r);
  // The king on a1 takes c3 from a distance and may land on any free square behind it.
  SetPosition(*g, {{"A1", WhiteKing}, {"C3", BlackMan}, {"H8", BlackMan}}, 1);
  EXPECT_EQ(MoveTexts(*g), Moves({"a1xd4 [c3]", "a1xe5 [c3]", "a1xf6 [c3]", "a1xg7 [c3]"}));
  r.KingFirst = 1;
  ApplyRules(*g, r);
  EXPECT_EQ(MoveTexts(*g), Moves({"a1xd4 [c3]"}));
  // A man jumping like a long king; without long kings only its first
  // landing is recorded.
  r = RuleRecord{};
  r.ManCapMoveKing = 1;
  ApplyRules(*g, r);
  SetPosition(*g, {{"A1", WhiteMan}, {"D4", BlackMan}, {"H8", BlackMan}}, 1);
  EXPECT_EQ(MoveTexts(*g), Moves({"a1xe5 [d4]"}));
}

TEST(GenerateMoves, RemovedPiecesBlockOrNotAtTheEndOfTheMove) {
  // Round the board the king must cross c3, which it took first.
  auto g = NewTestGame();
  RuleRecord r;
  r.LongKings = 1;
  r.RemovePieces = 1;
  ApplyRules(*g, r);
  SetPosition(*g, {{"A1", WhiteKing}, {"C3", BlackMan}, {"D6", BlackMan}, {"B6", BlackMan}, {"D2", BlackMan}}, 1);
  auto longest = [](const Moves& moves) {
    std::size_t most = 0;
    for (const std::string& m : moves) most = std::max(most, m.size());
    return most;
  };
  const Moves blocked = MoveTexts(*g);
  r.RemovePieces = 0;
  ApplyRules(*g, r);
  const Moves passing = MoveTexts(*g);
  EXPECT_GT(longest(passing), longest(blocked));
}

TEST(MoveStack, AFullStackStopsTheSearchAndWritesNoFurther) {
  auto g = NewTestGame();
  g->PlyBase[0] = MoveStackSize - 3;
  g->StopRequest = 0;
  GenerateLegalMoves(*g);
  EXPECT_EQ(g->StopRequest, 1);
  EXPECT_EQ(g->MoveTop, MoveStackSize - 1);
}

TEST(HasLegalMove, AnswersWithoutPushing) {
  auto g = NewTestGame();
  const int top = g->MoveTop;
  EXPECT_EQ(HasLegalMove(*g, 1), -1);
  EXPECT_EQ(HasLegalMove(*g, 0), 0);
  EXPECT_EQ(g->MoveTop, top);
  SetPosition(*g, {{"A1", WhiteMan}, {"B2", BlackMan}, {"C3", BlackMan}}, 1);
  EXPECT_EQ(HasLegalMove(*g, 1), 0);
  SetPosition(*g, {{"A1", WhiteMan}, {"B2", BlackMan}}, 1);
  EXPECT_EQ(HasLegalMove(*g, 0), -1);
}

}  // namespace qv

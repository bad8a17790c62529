#include <gtest/gtest.h>

#include "core/fatal.h"
#include "position_helpers.h"

namespace qv {

namespace {

struct RuleCase {
  const char* name;
  void (*apply)(RuleRecord&);
};

// Rule combinations whose make and unmake have something to undo.
const RuleCase RuleCases[] = {
    {"American", [](RuleRecord&) {}},
    {"LongKingsRemovePieces", [](RuleRecord& r) { r.LongKings = r.RemovePieces = r.ManContJump = 1; }},
    {"LongKingsPassing", [](RuleRecord& r) { r.LongKings = 1; r.MaxCapMove = 1; }},
    {"CrownedInPassing",
     [](RuleRecord& r) {
       r.DirText[0] = r.DirText[1] = "NW;NE NW;NE;SE;SW";
       r.LongKings = r.ManContJump = r.ManContJumpCrowned = 1;
     }},
    {"KingMan", [](RuleRecord& r) { r.KingMan = 1; }},
    {"ManKing", [](RuleRecord& r) { r.ManKing = 1; }},
    {"ChangeSide", [](RuleRecord& r) { r.ChangeSide = 1; }},
    {"FreeCapturesMulJumpsOff", [](RuleRecord& r) { r.CapRequired = 0; r.MulJumps = 0; r.LastCap = 1; }},
    {"HopsWithLongKings", [](RuleRecord& r) { r.JumpFriend = 1; r.NumberFriends = -1; r.LongKings = 1; }},
    {"ManJumpsFromAfar", [](RuleRecord& r) { r.ManCapMoveKing = 1; r.CapReverse = 1; }},
    {"Drops",
     [](RuleRecord& r) {
       r.canContract = 1;
       r.ContractNumber = 4;
       r.ContractW1 = 4;
       r.ContractW2 = 4;
       r.ContractB1 = 7;
       r.ContractB2 = 7;
     }},
    {"Orthogonal",
     [](RuleRecord& r) {
       r.DirText[0] = "N;E;W N;E;W";
       r.DirText[1] = "N;E;W N;E;W";
       r.DirText[2] = r.DirText[3] = "N;E;S;W N;E;S;W";
       r.LongKings = 1;
     }},
};

struct Snapshot {
  BoardCells board;
  int side, ply, halfMoves, leftWhite, leftBlack;
  bool operator==(const Snapshot&) const = default;
};

Snapshot Take(const Game& g) {
  Snapshot s{g.Board, g.SideToMove, g.Ply, g.HalfMoveCount, g.ContractLeftWhite, g.ContractLeftBlack};
  s.board[0] = 0;  // with ManKing on, an undo with nothing noted writes to cell 0, which nothing reads
  return s;
}

}  // namespace

TEST(MakeSearchMove, MakeThenUndoLeavesNoTraceUnderEveryRuleCombination) {
  for (const RuleCase& rc : RuleCases) {
    auto g = testing::NewTestGame(7);
    RuleRecord r;
    rc.apply(r);
    testing::ApplyRules(*g, r);
    int made = 0;
    for (int game = 0; game < 20; ++game) {
      g->Board = g->StartBoard;
      g->SideToMove = -1;
      g->Ply = 0;
      g->HalfMoveCount = 0;
      g->ContractLeftWhite = g->ContractLeftBlack = r.ContractNumber;
      for (int halfMove = 0; halfMove < 200; ++halfMove) {
        GenerateLegalMoves(*g);
        const int first = g->PlyBase[0], last = g->PlyBase[1];
        if (first == last) break;
        const Snapshot before = Take(*g);
        const int material = g->MaterialByPly[0];
        for (int i = first; i < last; ++i) {
          MakeSearchMove(*g, i);
          EXPECT_EQ(g->Ply, 1);
          EXPECT_EQ(g->SideToMove, -before.side);
          EXPECT_EQ(g->Record.LastToByMove[g->HalfMoveCount], g->MoveStack[i].ToSquare);
          GenerateLegalMoves(*g);  // the reply's generation leaves the position alone too
          UndoSearchMove(*g, i);
          ASSERT_TRUE(Take(*g) == before) << rc.name << " game " << game << " move " << halfMove;
          ++made;
        }
        EXPECT_EQ(g->MaterialByPly[0], material);
        MakeSearchMove(*g, first + static_cast<int>(g->Rnd() * (last - first)));
        CommitRootPly(*g);
      }
    }
    EXPECT_GT(made, 1000) << rc.name;
  }
}

TEST(MakeSearchMove, KeepsMaterialAndActivityFromTheSideToMove) {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"C3", WhiteMan}, {"D4", BlackMan}, {"B6", BlackKing}, {"G7", WhiteMan}}, 1);
  g->MaterialByPly[0] = 0;
  g->ActivityByPly[0] = 500;
  ASSERT_EQ(FindMove(*g, "C3E5"), -1);
  EXPECT_EQ(g->MaterialByPly[1], -100);  // Black, to move, is a man down
  EXPECT_EQ(g->ActivityByPly[1], 400);
  EXPECT_EQ(g->CaptureFlagByPly[1], 1);
  EXPECT_EQ(g->PrevToSquare[1], SquareNumber("E5", 0, 1));
  CommitRootPly(*g);
  ASSERT_EQ(FindMove(*g, "B6A5"), -1);
  EXPECT_EQ(g->MaterialByPly[1], 100);
  EXPECT_EQ(g->CaptureFlagByPly[1], 0);
  CommitRootPly(*g);
  ASSERT_EQ(FindMove(*g, "G7H8"), -1);  // crowning
  EXPECT_EQ(g->MaterialByPly[1], -200);
  EXPECT_EQ(g->ActivityByPly[1], 500);
  EXPECT_EQ(g->CaptureFlagByPly[1], 1);
  EXPECT_EQ(g->Board[SquareNumber("H8", 0, 1)], WhiteKing);
  EXPECT_EQ(g->LastWasCrowning, 1);
}

TEST(MakeSearchMove, CrownedMenChangeSidesAndLastMenBecomeKings) {
  auto g = testing::NewTestGame();
  RuleRecord r;
  r.ChangeSide = 1;
  testing::ApplyRules(*g, r);
  testing::SetPosition(*g, {{"G7", WhiteMan}, {"A7", BlackMan}, {"C7", BlackMan}}, 1);
  ASSERT_EQ(FindMove(*g, "G7H8"), -1);
  EXPECT_EQ(g->Board[SquareNumber("H8", 0, 1)], BlackKing);

  r = RuleRecord{};
  r.ManKing = 1;
  testing::ApplyRules(*g, r);
  testing::SetPosition(*g, {{"C3", WhiteMan}, {"D4", BlackMan}, {"H6", BlackMan}, {"A1", WhiteMan}}, 1);
  ASSERT_EQ(FindMove(*g, "C3E5"), -1);
  EXPECT_EQ(g->Board[SquareNumber("H6", 0, 1)], BlackKing);  // Black's last man
  EXPECT_EQ(g->Record.ManKingCell[g->HalfMoveCount], SquareNumber("H6", 0, 1));
  UndoSearchMove(*g, g->LastMoveIndex);
  EXPECT_EQ(g->Board[SquareNumber("H6", 0, 1)], BlackMan);
  EXPECT_EQ(g->Board[SquareNumber("D4", 0, 1)], BlackMan);
}

TEST(MakeSearchMove, AKingThatCapturesBecomesAManAgain) {
  auto g = testing::NewTestGame();
  RuleRecord r;
  r.KingMan = 1;
  testing::ApplyRules(*g, r);
  testing::SetPosition(*g, {{"C3", WhiteKing}, {"D4", BlackMan}, {"H8", BlackMan}}, 1);
  ASSERT_EQ(FindMove(*g, "C3E5"), -1);
  EXPECT_EQ(g->Board[SquareNumber("E5", 0, 1)], WhiteMan);
  EXPECT_EQ(g->Record.KingManMark[1], 1);
  UndoSearchMove(*g, g->LastMoveIndex);
  EXPECT_EQ(g->Board[SquareNumber("C3", 0, 1)], WhiteKing);
  EXPECT_EQ(g->Board[SquareNumber("E5", 0, 1)], 0);
}

TEST(FindMove, TakesTheFirstMatchingMoveOrNothing) {
  auto g = testing::NewTestGame();
  const BoardCells before = g->Board;
  EXPECT_EQ(FindMove(*g, "C3D4"), 0);  // Black begins
  EXPECT_EQ(FindMove(*g, "B6B5"), 0);
  EXPECT_EQ(FindMove(*g, "ZZ"), 0);
  EXPECT_EQ(g->Board, before);
  EXPECT_EQ(g->HalfMoveCount, 0);
  EXPECT_EQ(FindMove(*g, "B6A5"), -1);
  EXPECT_EQ(g->HalfMoveCount, 1);
  EXPECT_EQ(g->SideToMove, 1);
  EXPECT_EQ(g->LastWasCapture, 0);
  g->Settings.NotationKind = 1;
  EXPECT_EQ(FindMove(*g, ParseMoveText("21-17", g->CaptureChar)), -1);  // a1? no: 21 is a3, 17 is b4
  EXPECT_EQ(g->Board[SquareNumber("B4", 0, 1)], WhiteMan);
}

TEST(FindMove, TouchMoveRefusesAnotherPiece) {
  auto g = testing::NewTestGame();
  g->Settings.TouchMove = 1;
  g->TouchedCell = SquareNumber("B6", 0, 1);
  EXPECT_EQ(FindMove(*g, "D6C5"), 0);
  EXPECT_EQ(FindMove(*g, "B6C5"), -1);
  EXPECT_EQ(g->TouchedCell, 0);
}

TEST(ParseMoveText, DropsCaptureMarksAndSplitsNumbers) {
  EXPECT_EQ(ParseMoveText("C3XD4", "x"), "C3D4");
  EXPECT_EQ(ParseMoveText("C3-D4", "x"), "C3D4");
  EXPECT_EQ(ParseMoveText("9-14", "x"), "9 14");
  EXPECT_EQ(ParseMoveText("9X14", "x"), "914");
  EXPECT_EQ(ParseMoveText("22:15", ":"), "2215");
  EXPECT_EQ(ParseMoveText("1-5", "x"), "1 5 ");
}

TEST(MoveLabel, ShowsTheMoveInTheNotationInUse) {
  auto g = testing::NewTestGame();
  MoveRecord m;
  m.FromSquare = 43;
  m.ToSquare = 65;
  m.CaptureText[0] = '0';
  m.CaptureText[1] = '1';
  m.CaptureText[2] = '5';
  m.CaptureText[3] = '4';
  EXPECT_EQ(MoveLabel(*g, m), "c3xe5");
  EXPECT_EQ(CapturedCells(m), std::vector<int>({54}));
  m.PromoteFlag = 2;
  g->Settings.NotationKind = 1;
  g->CaptureChar = ":";
  EXPECT_EQ(MoveLabel(*g, m), "22:15K");
  m.FromSquare = DropSource;
  EXPECT_EQ(MoveLabel(*g, m), "15K");
}

TEST(PositionKey, RepetitionsAndMoveLimit) {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"A1", WhiteKing}, {"H8", BlackKing}}, 1);
  EXPECT_EQ(PositionKey(*g), "212984");
  g->Record.PositionHistory[0] = PositionKeyOf(g->Board);
  g->Record.PositionHistory[3] = PositionKeyOf(g->Board);
  // Marks of a capture being traced are not part of the key; a key differs by any piece.
  EXPECT_EQ(g->Record.PositionHistory[0].Text(), "212984");
  g->Board[32] = WhiteMan - 10;
  EXPECT_EQ(PositionKeyOf(g->Board), g->Record.PositionHistory[0]);
  g->Board[32] = BlackMan;
  EXPECT_EQ(PositionKey(*g), "212323984");
  EXPECT_NE(PositionKeyOf(g->Board), g->Record.PositionHistory[0]);
  g->Board[32] = 0;
  CountRepetitions(*g, 3);
  EXPECT_EQ(g->LineDrawn, 2);
  EXPECT_EQ(g->BareKings, 1);
  for (int i = 0; i < 70; ++i) g->MoveTextTable[i / 2 + 1][i % 2] = "a1b2 a1-b2";
  g->Settings.FiftyMoveKind = 0;  // 64 half-moves
  CheckMoveLimit(*g, 62);  // 63 half-moves without a capture or crowning
  EXPECT_EQ(g->LimitReached, 0);
  CheckMoveLimit(*g, 63);
  EXPECT_EQ(g->LimitReached, 1);
  g->MoveTextTable[30][1] = "c3e5 c3xe5";
  CheckMoveLimit(*g, 64);
  EXPECT_EQ(g->LimitReached, 0);
  EXPECT_EQ(MoveLimit(1), 100);
  EXPECT_EQ(MoveLimit(3), 40);
}

}  // namespace qv

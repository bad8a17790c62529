#include <gtest/gtest.h>

#include <memory>

#include "core/newgame.h"

namespace qv {

namespace {
std::unique_ptr<Game> FreshGame() {
  auto g = std::make_unique<Game>();
  g->Random.SetFixedSeed(1);
  NewGame(*g);
  return g;
}
}  // namespace

TEST(NewGame, SetsUpAmericanCheckers) {
  auto g = FreshGame();
  EXPECT_EQ(BoardSetupText(g->Board), "1010101001010101101010100000000000000000020202022020202002020202");
  EXPECT_EQ(g->StartBoard, g->Board);
  EXPECT_EQ(g->SideToMove, -1);
  EXPECT_EQ(g->Flags.SearchFlavour, 1);
  EXPECT_EQ(g->VariantLabel, "American Checkers");
  EXPECT_EQ(g->StartMaterial, 24);
  EXPECT_EQ(g->TotalMaterialStart, 2400);
  EXPECT_EQ(g->ActivityByPly[0], 2400);
  EXPECT_EQ(g->Flags.AllOrthogonal, 0);
  EXPECT_EQ(g->Flags.NoDiagonalMoves, 0);
  EXPECT_EQ(g->CaptureChar, "x");
}

TEST(ClassifyVariant, RecognisesTheFourFastRuleSets) {
  auto g = FreshGame();
  EXPECT_EQ(ClassifyVariant(*g), -1);

  RuleRecord& r = g->RuleSet;
  // Italian: men take only men, longest and most-king captures, White starts on the other colour.
  r.ManCapKing = 0;
  r.MaxCapMove = 1;
  r.MaxCapMoveKings = 1;
  r.KingCapMove = 1;
  r.BlackStarts = 0;
  r.PiecesOnBlack = 0;
  const int whiteItalian[] = {91, 93, 95, 97}, blackItalian[] = {22, 24, 26, 28};
  for (int i = 0; i < 4; ++i) {
    r.PromoSquares[0][i] = whiteItalian[i];
    r.PromoSquares[1][i] = blackItalian[i];
  }
  EXPECT_EQ(ClassifyVariant(*g), 0);
  EXPECT_EQ(g->Flags.SearchFlavour, 2);

  // Russian style.
  r = RuleRecord{};
  r.DirText[0] = r.DirText[1] = "NW;NE NW;NE;SE;SW";
  r.MaxCapMove = 1;
  r.LongKings = 1;
  r.ManContJump = 1;
  r.RemovePieces = 1;
  r.BlackStarts = 0;
  EXPECT_EQ(ClassifyVariant(*g), 0);
  EXPECT_EQ(g->Flags.SearchFlavour, 3);

  // Brazilian style: crowned in passing, three kings against one.
  r.MaxCapMove = 0;
  r.ManContJumpCrowned = 1;
  r.ThreeKings = 1;
  r.NumberKings = 15;
  ClassifyVariant(*g);
  EXPECT_EQ(g->Flags.SearchFlavour, 4);
  r.NumberKings = 16;
  ClassifyVariant(*g);
  EXPECT_EQ(g->Flags.SearchFlavour, 0);
}

TEST(ClassifyVariant, AnyExtraRuleFallsBackToTheGeneralSearch) {
  auto g = FreshGame();
  for (const RuleField& field : RuleFields()) {
    RuleRecord saved = g->RuleSet;
    if (field.name == "NumberKings" || field.name == "ThreeKings") continue;
    g->RuleSet.*field.member += 1;
    ClassifyVariant(*g);
    EXPECT_EQ(g->Flags.SearchFlavour, 0) << field.name;
    g->RuleSet = saved;
  }
  g->RuleSet.PromoSquares[0][4] = 91;
  ClassifyVariant(*g);
  EXPECT_EQ(g->Flags.SearchFlavour, 0);
  g->RuleSet = RuleRecord{};
  g->StartBoard[21] = 0;
  ClassifyVariant(*g);
  EXPECT_EQ(g->Flags.SearchFlavour, 0);
}

TEST(MarkModified, ComparesTheRulesWithTheFile) {
  auto g = FreshGame();
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers");
  g->RuleSet.NumberFriends = 3;  // left out of the comparison
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers");
  g->RuleSet.MaxCapMove = 1;
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers (M)");
  g->RuleSet.MaxCapMove = 0;
  g->RuleSet.DirText[0] = "NW;NE NW;NE;SE;SW";
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers (M)");
  g->RuleSet.DirText[0] = g->VariantDefinition.DirText[0];
  g->RuleSet.BlackStarts = 0;
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers (M)");
  g->CustomPosition = 1;  // BlackStarts is not compared, but a custom position marks by itself
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers (M)");
  g->RuleSet.RemoveMen = 1;
  g->VariantDefinition.RemoveMen = 1;
  MarkModified(*g);
  EXPECT_EQ(g->VariantLabel, "American Checkers");
}

TEST(RemoveMenAtRandom, LeavesEachSideAtLeastOnePiece) {
  auto g = FreshGame();
  g->RuleSet.NumberMen = 50;
  RemoveMenAtRandom(*g);
  int white = 0, black = 0;
  for (int cell = 21; cell <= 98; ++cell) {
    if (g->Board[cell] == WhiteMan) ++white;
    if (g->Board[cell] == BlackMan) ++black;
  }
  EXPECT_EQ(white, 1);
  EXPECT_EQ(black, 1);
  EXPECT_EQ(g->CustomPosition, 1);
}

TEST(RemoveMenAtRandom, ThenAdoptBoardPositionKeepsThePosition) {
  auto g = FreshGame();
  g->RuleSet.RemoveMen = g->VariantDefinition.RemoveMen = 1;
  g->RuleSet.NumberMen = g->VariantDefinition.NumberMen = 3;
  RemoveMenAtRandom(*g);
  const BoardCells position = g->Board;
  AdoptBoardPosition(*g);
  EXPECT_EQ(g->Board, position);
  EXPECT_EQ(g->StartBoard, position);
  EXPECT_EQ(g->StartMaterial, 18);
  EXPECT_EQ(g->WhiteMen, 9);
  EXPECT_EQ(g->CustomPosition, 1);
  EXPECT_EQ(g->VariantLabel, "American Checkers");  // RemoveMen: not a modification
  EXPECT_EQ(g->Flags.SearchFlavour, 0);
}

TEST(AdoptBoardPosition, SeesTheBalanceFromTheSideToMove) {
  auto g = FreshGame();
  g->Board[21] = 0;  // White a man short
  g->SideToMove = 1;
  AdoptBoardPosition(*g);
  EXPECT_EQ(g->MaterialByPly[0], -100);
  EXPECT_EQ(g->RuleSet.BlackStarts, 0);
  EXPECT_EQ(g->SideToMove, 1);
  g->SideToMove = -1;
  AdoptBoardPosition(*g);
  EXPECT_EQ(g->MaterialByPly[0], 100);
  EXPECT_EQ(g->RuleSet.BlackStarts, 1);
}

TEST(ScanDirections, OrthogonalStepsUseAllSquares) {
  auto g = FreshGame();
  g->RuleSet.DirText[0] = "N;E;W N;E;W";
  g->RuleSet.LongKings = 1;
  BuildDirTable(*g);
  ScanDirections(*g);
  ScanDirectionKinds(*g);
  EXPECT_EQ(g->RuleSet.PiecesOnBlack, 2);
  EXPECT_EQ(g->Flags.AllOrthogonal, 0);
  EXPECT_EQ(g->Flags.CompareCaptureSets, 1);
  EXPECT_EQ(g->Flags.NoDiagonalMoves, 0);
  EXPECT_EQ(g->Flags.CrowdedOrthogonal, 0);  // twelve men a side: left as it was
  for (int kind = 1; kind < 4; ++kind) g->RuleSet.DirText[kind] = "N;S;E;W N;S;E;W";
  BuildDirTable(*g);
  ScanDirections(*g);
  ScanDirectionKinds(*g);
  EXPECT_EQ(g->Flags.AllOrthogonal, 1);
  EXPECT_EQ(g->Flags.NoDiagonalMoves, 1);
  g->WhiteMen = g->BlackMen = 16;
  ScanDirectionKinds(*g);
  EXPECT_EQ(g->Flags.CrowdedOrthogonal, 1);
}

TEST(ScanPromoCounts, ComparesTheTwoLists) {
  auto g = FreshGame();
  ScanPromoCounts(*g);
  EXPECT_EQ(g->Flags.PromoListsEqual, 1);
  EXPECT_EQ(g->Flags.PromoListLast, 3);
  g->RuleSet.PromoSquares[0][4] = 91;
  g->Flags.HasUnreachableSquares = 1;
  ScanPromoCounts(*g);
  EXPECT_EQ(g->Flags.PromoListsEqual, 0);
  EXPECT_EQ(g->Flags.HasUnreachableSquares, 0);
  EXPECT_EQ(g->Flags.PromoListLast, 4);
}

TEST(ReadSetupText, CountsMenAndMaterial) {
  auto g = FreshGame();
  std::string setup(64, '0');
  setup[0] = '1';
  setup[2] = '3';
  setup[63] = '2';
  ReadSetupText(*g, setup);
  EXPECT_EQ(g->Board[21], WhiteMan);
  EXPECT_EQ(g->Board[23], WhiteKing);
  EXPECT_EQ(g->Board[98], BlackMan);
  EXPECT_EQ(g->StartBoard, g->Board);
  EXPECT_EQ(g->WhiteMen, 1);
  EXPECT_EQ(g->BlackMen, 1);
  EXPECT_EQ(g->StartMaterial, 4);
  EXPECT_EQ(g->MaterialByPly[0], -200);
  ReadSetupText(*g, "12");  // a short text empties the rest
  EXPECT_EQ(g->Board[22], BlackMan);
  EXPECT_EQ(g->Board[98], 0);
}

TEST(Games, SeveralLiveSideBySide) {
  auto a = FreshGame();
  auto b = FreshGame();
  a->Board[21] = 0;
  a->RuleSet.MaxCapMove = 1;
  EXPECT_EQ(b->Board[21], WhiteMan);
  EXPECT_EQ(b->RuleSet.MaxCapMove, 0);
}

}  // namespace qv

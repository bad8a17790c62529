#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/fatal.h"
#include "core/newgame.h"
#include "files/variantfile.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

// A data folder of our own under the system's temporary folder, removed again.
class VariantFolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    data = fs::temp_directory_path() /
           ("quorvanis-variants-" + std::to_string(::getpid()) + "-" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(data / "variants" / "uservariants");
    game = std::make_unique<Game>();
    game->Random.SetFixedSeed(1);
    game->DataFolder = data;
  }
  void TearDown() override { fs::remove_all(data); }

  void Write(const std::string& name, const std::string& text, bool user = false) {
    std::ofstream(VariantFolder(data, user ? 0 : 1) / (name + ".ini"), std::ios::binary) << text;
  }
  // Reads the file the way a new game does.
  void Read(const std::string& name) {
    game->VariantName = name;
    ReadVariantFile(*game);
  }
  std::string FatalText(const std::string& name) {
    try {
      Read(name);
    } catch (const FatalError& e) {
      return e.what();
    }
    return "no error";
  }

  fs::path data;
  std::unique_ptr<Game> game;
};

}  // namespace

TEST_F(VariantFolderTest, NoDataFolderKeepsTheBuiltInRules) {
  game->DataFolder.clear();
  game->VariantName = "Anything";
  const RuleRecord before = game->VariantDefinition;
  EXPECT_NO_THROW(ReadVariantFile(*game));
  EXPECT_EQ(game->VariantDefinition.MaxCapMove, before.MaxCapMove);
}

TEST_F(VariantFolderTest, FirstLineIsNeverReadAndKeysAreExact) {
  Write("v", "MaxCapMove=1\nMaxCapMoveKings=1\nMaxCapMoveK=0\nmulJumps=0\nNoSuchKey=5\n  LongKings=1\nEND\n");
  Read("v");
  const RuleRecord& d = game->VariantDefinition;
  EXPECT_EQ(d.MaxCapMove, 0);  // only in the title line
  EXPECT_EQ(d.MaxCapMoveKings, 1);
  EXPECT_EQ(d.MaxCapMoveK, 0);
  EXPECT_EQ(d.MulJumps, 1);  // keys are case-sensitive
  EXPECT_EQ(d.LongKings, 0);  // and start at the first character
  EXPECT_EQ(game->LoadedVariantName, "v");

  // The dialog reads the first line like any other.
  DialogRuleTables tables;
  ReadVariantIntoDialog(*game, "v", tables);
  EXPECT_EQ(game->VariantDefinition.MaxCapMove, 1);
  EXPECT_EQ(game->RuleSet.MaxCapMove, 1);
  EXPECT_EQ(game->RuleSet.MaxCapMoveK, 0);
}

TEST_F(VariantFolderTest, NumbersFollowTheLeadingNumberRule) {
  Write("v", "t\nMaxCapMove=1.5\nMulJumps=2.5\nLongKings= 3xyz\nKingFirst=abc\nNumberKings=-2.5\nEND\n");
  Read("v");
  const RuleRecord& d = game->VariantDefinition;
  EXPECT_EQ(d.MaxCapMove, 2);
  EXPECT_EQ(d.MulJumps, 2);
  EXPECT_EQ(d.LongKings, 3);
  EXPECT_EQ(d.KingFirst, 0);
  EXPECT_EQ(d.NumberKings, -2);
}

TEST_F(VariantFolderTest, ReplacingKeysHandTheirValueToTheLaterKeys) {
  // PromoW's value starts with a key tested after it; MulJumps is tested before it.
  Write("v",
        "t\nPromoW=PiecesOnBlack=0\nPromoB=MulJumps=0\nWhiteManMovement=KingWin=1\n"
        "BlackKingMovement=Help=<br>\nSetup=RndColor=1\nEND\n");
  Read("v");
  const RuleRecord& d = game->VariantDefinition;
  EXPECT_EQ(d.PiecesOnBlack, 0);
  EXPECT_EQ(d.MulJumps, 1);
  EXPECT_EQ(d.KingWin, 0);  // tested before the movement keys
  EXPECT_EQ(d.RndColor, 1);
  EXPECT_EQ(d.DirText[0], "KingWin=1");
  EXPECT_EQ(game->HelpText, "\r\n");
  for (int i = 0; i < PromoSlots; ++i) EXPECT_EQ(d.PromoSquares[0][i], -1);
  // The setup text "RndColor=1" holds one digit, its tenth character: a white man on b2.
  EXPECT_EQ(game->Board[32], WhiteMan);
  EXPECT_EQ(game->Board[21], 0);
}

TEST_F(VariantFolderTest, AValueOfEndEndsTheFile) {
  Write("v", "t\nPromoW=END\nMaxCapMove=1\n");
  EXPECT_NO_THROW(Read("v"));
  EXPECT_EQ(game->VariantDefinition.MaxCapMove, 0);
}

TEST_F(VariantFolderTest, PromotionSquaresAreAlgebraicWhateverTheNotation) {
  game->Settings.NotationKind = 1;
  Write("v", "t\nPromoW=A8C8ZZE8\nPromoB=\nEND\n");
  Read("v");
  const PromoTable& p = game->VariantDefinition.PromoSquares;
  EXPECT_EQ(p[0][0], 91);
  EXPECT_EQ(p[0][1], 93);
  EXPECT_EQ(p[0][2], -1);
  EXPECT_EQ(p[0][3], 95);
  for (int i = 4; i < PromoSlots; ++i) EXPECT_EQ(p[0][i], -1);
  for (int i = 0; i < PromoSlots; ++i) EXPECT_EQ(p[1][i], -1);
  EXPECT_EQ(game->Settings.NotationKind, 1);
}

TEST_F(VariantFolderTest, ShortSetupEmptiesTheRestAndTheBalanceFollowsTheStart) {
  game->DataFolder.clear();  // the standard game with its frame, no file read
  NewGame(*game);
  game->DataFolder = data;
  Write("v", "t\nSetup=3000000000000004\nBlackStarts=0\nEND\n");
  Read("v");
  EXPECT_EQ(game->Board[21], WhiteKing);
  EXPECT_EQ(game->Board[38], BlackKing);
  EXPECT_EQ(BoardSetupText(game->StartBoard), "3000000000000004" + std::string(48, '0'));
  EXPECT_EQ(game->StartMaterial, 4);
  EXPECT_EQ(game->WhiteMen, 0);
  EXPECT_EQ(game->MaterialByPly[0], 0);

  Write("w", "t\nSetup=1110000000000002\nBlackStarts=0\nEND\n");
  Read("w");
  EXPECT_EQ(game->MaterialByPly[0], 200);  // Black is two men short, seen from White who begins
  Write("b", "t\nSetup=1110000000000002\nEND\n");
  game->VariantDefinition.BlackStarts = 1;
  Read("b");
  EXPECT_EQ(game->MaterialByPly[0], -200);
  EXPECT_EQ(game->WhiteMen, 3);
  EXPECT_EQ(game->BlackMen, 1);
}

TEST_F(VariantFolderTest, HelpLinesAndLinks) {
  Write("a", "t\nHelp=One \nHelp=line.\nHelp=<br>\nHelp=<br> \nHelp=Two\nHelpLink=http://a\nQuickHelpLink=q\nEND\n");
  Write("b", "t\nHelp=Other\nEND\n");
  Read("a");
  EXPECT_EQ(game->HelpText, "One line.\r\n<br> Two");
  Read("b");
  EXPECT_EQ(game->HelpText, "Other");
  EXPECT_EQ(game->HelpLink, "http://a");  // kept from the file before
  EXPECT_EQ(game->QuickHelpLink, "q");

  DialogRuleTables tables;
  ReadVariantIntoDialog(*game, "b", tables);
  EXPECT_EQ(game->HelpLink, "");
  EXPECT_EQ(game->QuickHelpLink, "");
}

TEST_F(VariantFolderTest, TitleAndEndAloneLeaveEveryField) {
  game->VariantDefinition.MaxCapMove = 7;
  game->VariantDefinition.DirText[3] = "N";
  const RuleRecord before = game->VariantDefinition;
  const BoardCells board = game->Board;
  Write("v", "Some title\r\nEND\r\n");  // written on Windows
  Read("v");
  const RuleRecord& d = game->VariantDefinition;
  for (const RuleField& field : RuleFields()) EXPECT_EQ(d.*field.member, before.*field.member) << field.name;
  EXPECT_EQ(d.DirText, before.DirText);
  EXPECT_TRUE(d.PromoSquares == before.PromoSquares);
  EXPECT_EQ(game->Board, board);
}

TEST_F(VariantFolderTest, OnlyAnExactEndLineEndsTheFile) {
  const std::string expected = "Error found!\r\nPlease delete 'quorvanis.ini'.\r\n\r\nQuorvanis will exit";
  Write("blank", "t\nMaxCapMove=1\nEND \n");
  Write("lower", "t\nend\n");
  Write("none", "t\nMaxCapMove=1\n");
  Write("empty", "");
  Write("junk", "t\nMaxCapMove=1e99\nEND\n");  // too big for 32 bits
  for (const char* name : {"blank", "lower", "none", "empty", "junk", "missing"}) EXPECT_EQ(FatalText(name), expected) << name;

  // The dialog parses movements at once: a ninth direction has no room in the table.
  Write("nine", "WhiteManMovement=NW;NE;NW;NE;NW;NE;NW;NE;NW\nEND\n");
  for (const char* name : {"none", "nine"}) {
    DialogRuleTables tables;
    try {
      ReadVariantIntoDialog(*game, name, tables);
      ADD_FAILURE() << name;
    } catch (const FatalError& e) {
      EXPECT_STREQ(e.what(), "Error found! Quorvanis will exit");
    }
  }
}

TEST_F(VariantFolderTest, TheUserFolderIsChosenByUseClassic) {
  Write("mine", "t\nMaxCapMove=1\nEND\n", true);
  EXPECT_NE(FatalText("mine"), "no error");
  game->Settings.UseClassic = 0;
  EXPECT_EQ(FatalText("mine"), "no error");
  EXPECT_EQ(game->VariantDefinition.MaxCapMove, 1);
}

TEST_F(VariantFolderTest, DialogReadingSplitsMovementsAndReportsBadWords) {
  Write("v",
        "WhiteManMovement=NW;NE NW;NE;SE;SW\nBlackManMovement=NW;XX;NE NW\nWhiteKingMovement=NW;NE;SE;SW\n"
        "BlackKingMovement=Q\nPiecesOnBlack=2\nPromoW=B8D8\nBlackStarts=0\nSetup=1\nEND\n");
  game->Settings.NotationKind = 1;
  game->MaterialByPly[0] = 0;
  DialogRuleTables tables;
  ReadVariantIntoDialog(*game, "v", tables);
  EXPECT_EQ(game->VariantName, "v");
  EXPECT_EQ(tables.StepText[0], "NW;NE");
  EXPECT_EQ(tables.CaptureText[0], "NW;NE;SE;SW");
  EXPECT_EQ(tables.StepText[2], "NW;NE;SE;SW");
  EXPECT_EQ(tables.CaptureText[2], "");
  EXPECT_EQ(tables.DirectionErrorRow, KindBlackMan);  // the first bad word
  EXPECT_EQ(tables.DirectionErrorWord, 2);
  EXPECT_EQ(tables.DirTableFile[KindBlackMan][0], -9);  // Black's words are seen from White
  EXPECT_EQ(tables.DirTableFile[KindBlackMan][1], EndOfList);
  EXPECT_EQ(tables.DirTableFile[KindWhiteMan + 4][3], -11);
  EXPECT_EQ(tables.DirTableFile[KindWhiteKing + 4][0], EndOfList);
  EXPECT_EQ(tables.PromoSquares[0][1], 94);
  EXPECT_EQ(tables.PromoSquares[0][2], -1);
  EXPECT_EQ(game->VariantDefinition.DirText[1], "NW;XX;NE NW");
  EXPECT_EQ(game->RuleSet.PiecesOnBlack, 2);
  EXPECT_EQ(game->Settings.NotationKind, 0);
  EXPECT_EQ(game->MaterialByPly[0], -100);  // no sign change for White beginning
}

TEST_F(VariantFolderTest, ListingTakesIniFilesOnly) {
  Write("One", "t\nEND\n");
  Write("Two", "t\nEND\n");
  std::ofstream(data / "variants" / "notes.txt") << "x";
  std::ofstream(data / "variants" / ".ini") << "x";
  std::vector<std::string> names = FillVariantList(data / "variants");
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"One", "Two"}));
  const std::vector<std::string> openAs = FillOpenAsList(data / "variants");
  ASSERT_EQ(openAs.size(), 3u);
  EXPECT_EQ(openAs[0], "DEFAULT");
  EXPECT_TRUE(FillVariantList(data / "variants" / "uservariants").empty());
  EXPECT_TRUE(FillVariantList(data / "nowhere").empty());
}

TEST_F(VariantFolderTest, StartVariantPutsTheFileInForce) {
  Write("v",
        "t\nMaxCapMove=1\nBlackStarts=0\nPromoW=A8\nWhiteKingMovement=NW;NE NW;NE\nSetup=1000000000000002\nEND\n");
  StartVariant(*game, "v");
  EXPECT_EQ(game->RuleSet.MaxCapMove, 1);
  EXPECT_EQ(game->RuleSet.BlackStarts, 0);
  EXPECT_EQ(game->SideToMove, 1);
  EXPECT_EQ(game->RuleSet.PromoSquares[0][0], 91);
  EXPECT_EQ(game->RuleSet.DirText[2], "NW;NE NW;NE");
  EXPECT_EQ(game->DirTable[KindWhiteKing][2], EndOfList);
  EXPECT_EQ(game->VariantLabel, "v");
  EXPECT_EQ(game->StartMaterial, 2);
}

}  // namespace qv

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/movegen.h"
#include "core/newgame.h"
#include "interaction/newvariant.h"
#include "interaction/variantsform.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

const char* const AmericanFile =
    "American Checkers\nSetup=normal\nPromoW=B8D8F8H8\nPromoB=A1C1E1G1\nEND\n";
const char* const ItalianFile =
    "Italian Checkers\nSetup=normal\nMaxCapMove=1\nBlackStarts=0\nPromoW=A8C8E8G8\nPromoB=B1D1F1H1\n"
    "PiecesOnBlack=0\nManCapKing=0\nMaxCapMoveKings=1\nKingCapMove=1\n"
    "WhiteManMovement=NW;NE NW;NE\nBlackManMovement=NW;NE NW;NE\n"
    "HelpLink=https://example.org/italian\nEND\n";
const char* const RussianFile =
    "Russian Checkers\nBlackStarts=0\nPromoW=B8D8F8H8\nPromoB=A1C1E1G1\nPiecesOnBlack=1\nLongKings=1\n"
    "ManContJump=1\nManContJumpCrowned=1\nRemovePieces=1\n"
    "WhiteManMovement=NW;NE NW;NE;SE;SW\nBlackManMovement=NW;NE NW;NE;SE;SW\nEND\n";
// Men step and jump straight ahead and sideways, from the second and third rows.
const char* const RooksFile =
    "Rooks\nPiecesOnBlack=2\nSetup=0000000011111111111111110000000000000000222222222222222200000000\n"
    "PromoW=A8B8C8D8E8F8G8H8\nPromoB=A1B1C1D1E1F1G1H1\n"
    "WhiteManMovement=N;E;W N;E;W\nBlackManMovement=N;E;W N;E;W\n"
    "WhiteKingMovement=N;E;S;W N;E;S;W\nBlackKingMovement=N;E;S;W N;E;S;W\nEND\n";

// A variant file states every rule: the American defaults come first and the
// variant's own lines, read later, win.
void WriteVariantFile(const fs::path& path, const char* ownLines) {
  std::ofstream out(path, std::ios::binary);
  std::string text = ownLines;
  const std::size_t firstLineEnd = text.find('\n') + 1;
  out << text.substr(0, firstLineEnd);
  for (const RuleField& field : RuleFields()) out << field.name << '=' << field.defaultValue << '\n';
  out << "PromoW=B8D8F8H8\nPromoB=A1C1E1G1\n";
  out << text.substr(firstLineEnd);
}

class VariantsDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("qv-variants-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(folder_ / "variants" / "uservariants");
    WriteVariantFile(folder_ / "variants" / "American Checkers.ini", AmericanFile);
    WriteVariantFile(folder_ / "variants" / "Italian Checkers.ini", ItalianFile);
    WriteVariantFile(folder_ / "variants" / "Russian Checkers.ini", RussianFile);
    WriteVariantFile(folder_ / "variants" / "uservariants" / "Rooks.ini", RooksFile);
    g_ = std::make_unique<Game>();
    g_->DataFolder = folder_;
    g_->Random.SetFixedSeed(7);
    NewGame(*g_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  // New Variant...: the dialog opens, `edit` clicks in it, OK must succeed.
  template <typename Edit>
  void RunDialog(Edit edit) {
    NewVariantCommand(*g_, [&](Game& g) {
      OpenVariantsForm(form_, g);
      edit(g);
      const bool stored = StoreFormRules(form_, g, true);
      EXPECT_TRUE(stored) << form_.Message;
      return stored;
    });
  }

  int LegalMoveCount() const { return g_->PlyBase[1] - g_->PlyBase[0]; }

  fs::path folder_;
  std::unique_ptr<Game> g_;
  VariantsForm form_;
};

TEST_F(VariantsDialog, OpensOnTheClassicListWithTheCurrentVariant) {
  OpenVariantsForm(form_, *g_);
  EXPECT_EQ(form_.UseClassic, 1);
  EXPECT_EQ(form_.Combo1List,
            (std::vector<std::string>{"American Checkers", "Italian Checkers", "Russian Checkers"}));
  EXPECT_EQ(form_.Combo1, "American Checkers");
  EXPECT_EQ(form_.Text1[0].Text, "b8");
  EXPECT_EQ(form_.Text1[4].Text, "");
  EXPECT_EQ(form_.Text1[12].Text, "a1");
  EXPECT_EQ(form_.Text2[2].Text, "NW;NE;SE;SW");
  EXPECT_EQ(form_.Text2[4].Text, "NW;NE");
  EXPECT_EQ(form_.Check18.Value, 1);
  EXPECT_FALSE(form_.Check7.Enabled);  // no longest capture, no tie-break on kings
}

TEST_F(VariantsDialog, ItalianThenRussianThenAUserVariantEachPlayWithTheirOwnRules) {
  RunDialog([&](Game& g) { SelectVariant(form_, g, "Italian Checkers"); });
  EXPECT_EQ(g_->VariantLabel, "Italian Checkers");
  EXPECT_EQ(g_->RuleSet.PiecesOnBlack, 0);
  EXPECT_EQ(g_->SideToMove, 1);  // White begins
  EXPECT_EQ(g_->Board[22], WhiteMan);
  EXPECT_EQ(g_->Board[21], 0);
  EXPECT_EQ(g_->RuleSet.PromoSquares[0][0], 91);
  EXPECT_EQ(g_->HelpLink, "https://example.org/italian");
  EXPECT_EQ(LegalMoveCount(), 7);

  RunDialog([&](Game& g) {
    EXPECT_EQ(form_.Combo1, "Italian Checkers");
    EXPECT_EQ(form_.Check2.Value, 1);
    EXPECT_FALSE(form_.Check2.Enabled);  // longest capture implies going on to the end
    SelectVariant(form_, g, "Russian Checkers");
    EXPECT_EQ(form_.Label10, "");
    EXPECT_EQ(form_.Text2[4].Text, "NW;NE;SE;SW");
    EXPECT_TRUE(form_.Check14.Enabled);
  });
  EXPECT_EQ(g_->VariantLabel, "Russian Checkers");
  EXPECT_EQ(g_->RuleSet.PiecesOnBlack, 1);
  EXPECT_EQ(g_->RuleSet.LongKings, 1);
  EXPECT_EQ(g_->RuleSet.DirText[1], "NW;NE NW;NE;SE;SW");
  EXPECT_EQ(g_->Board[21], WhiteMan);
  EXPECT_EQ(LegalMoveCount(), 7);

  RunDialog([&](Game& g) { ChooseVariantFolder(form_, g, 0); });
  EXPECT_EQ(form_.Combo1List, std::vector<std::string>{"Rooks"});
  EXPECT_EQ(g_->VariantLabel, "Rooks");
  EXPECT_EQ(g_->RuleSet.PiecesOnBlack, 2);  // straight steps use every square
  EXPECT_EQ(g_->Board[31], WhiteMan);
  EXPECT_EQ(g_->Board[21], 0);
  EXPECT_EQ(g_->SideToMove, -1);
  // Black's front row moves: eight steps ahead, none sideways into own men.
  EXPECT_EQ(LegalMoveCount(), 8);
}

TEST_F(VariantsDialog, AChangedRuleMarksTheVariantModified) {
  RunDialog([&](Game& g) {
    SelectVariant(form_, g, "Russian Checkers");
    form_.Check19.Value = 1;
  });
  EXPECT_EQ(g_->RuleSet.NoLegalDraw, 1);
  EXPECT_EQ(g_->VariantLabel, "Russian Checkers (M)");

  RunDialog([&](Game& g) { SelectVariant(form_, g, "Russian Checkers"); });
  EXPECT_EQ(g_->VariantLabel, "Russian Checkers");
}

TEST_F(VariantsDialog, BadSquaresAndDirectionWordsAreRefusedAndChangeNothing) {
  OpenVariantsForm(form_, *g_);
  const RuleRecord before = g_->RuleSet;
  const DirectionTable tableBefore = g_->DirTable;
  form_.Check5.Value = 1;  // would be stored with a good entry

  for (const char* bad : {"b7", "z9", "0", "b"}) {
    EditPromoBox(form_, 13, bad);
    EXPECT_FALSE(StoreFormRules(form_, *g_, true)) << bad;
    EXPECT_EQ(form_.Message, "Illegal entry!");
    EXPECT_TRUE(form_.Text1[13].Marked);
    EXPECT_EQ(g_->RuleSet.AntiMode, before.AntiMode);
    EXPECT_EQ(g_->RuleSet.PromoSquares, before.PromoSquares);
  }
  EditPromoBox(form_, 13, "c1");
  EXPECT_FALSE(form_.Text1[13].Marked);

  EditDirectionBox(form_, 6, "NW;NX");  // White king's captures
  EXPECT_FALSE(StoreFormRules(form_, *g_, true));
  EXPECT_TRUE(form_.Text2[6].Marked);
  EXPECT_FALSE(form_.Text2[2].Marked);
  EditDirectionBox(form_, 6, "NW;NE;SE;SW");
  EditDirectionBox(form_, 1, "NW;NE;SE;SW;N;E;S;W;NN");  // nine directions
  EXPECT_FALSE(StoreFormRules(form_, *g_, true));
  EXPECT_TRUE(form_.Text2[1].Marked);
  EXPECT_EQ(g_->RuleSet.DirText, before.DirText);
  EXPECT_EQ(g_->DirTable, tableBefore);
  EXPECT_EQ(g_->RuleSet.AntiMode, 0);

  // Lower case passes; an empty box in the middle keeps its place as unused.
  EditDirectionBox(form_, 1, "SW;SE");
  EditPromoBox(form_, 0, "");
  EditPromoBox(form_, 13, "c1");
  EXPECT_TRUE(StoreFormRules(form_, *g_, true));
  EXPECT_EQ(form_.Message, "");
  EXPECT_EQ(g_->RuleSet.PromoSquares[0][0], -1);
  EXPECT_EQ(g_->RuleSet.PromoSquares[0][1], 94);
  EXPECT_EQ(g_->RuleSet.PromoSquares[1][1], 23);
  EXPECT_EQ(g_->RuleSet.DirText[1], "SW;SE NW;NE");
  EXPECT_EQ(g_->RuleSet.AntiMode, 1);
  EXPECT_EQ(g_->DirTable[1][0], -DirectionOffset("SW"));
}

TEST_F(VariantsDialog, EnablingRulesFollowTheirFirstControl) {
  OpenVariantsForm(form_, *g_);
  form_.Check1.Value = 1;
  form_.Check2.Value = 0;
  form_.Check29.Value = 1;
  form_.Check30.Value = 1;
  form_.Check33.Value = 1;
  ApplyEnablingRules(form_);
  EXPECT_EQ(form_.Check2.Value, 1);
  EXPECT_FALSE(form_.Check2.Enabled);
  EXPECT_TRUE(form_.Check7.Enabled);
  EXPECT_TRUE(form_.Check30.Enabled);
  EXPECT_FALSE(form_.Text6.Enabled);
  EXPECT_TRUE(form_.Text13.Enabled);

  form_.Check7.Value = 1;
  form_.Check1.Value = 0;
  form_.Check29.Value = 0;
  form_.Check6.Value = 1;
  ApplyEnablingRules(form_);
  EXPECT_EQ(form_.Check7.Value, 0);
  EXPECT_FALSE(form_.Check7.Enabled);
  EXPECT_FALSE(form_.Check30.Enabled);
  EXPECT_FALSE(form_.Check16.Enabled);

  // Apply leaves the jump count alone, OK stores "unlimited" as -1.
  form_.Check29.Value = 1;
  EXPECT_TRUE(StoreFormRules(form_, *g_, false));
  EXPECT_EQ(g_->RuleSet.NumberFriends, 0);
  EXPECT_TRUE(StoreFormRules(form_, *g_, true));
  EXPECT_EQ(g_->RuleSet.NumberFriends, -1);
}

TEST_F(VariantsDialog, Check3MovesThePromotionSquaresOntoTheOtherColour) {
  OpenVariantsForm(form_, *g_);
  ClickCheck3(form_, *g_, 0);
  EXPECT_EQ(g_->RuleSet.PiecesOnBlack, 0);
  EXPECT_EQ(g_->VariantDefinition.PiecesOnBlack, 0);
  EXPECT_EQ(form_.Text1[0].Text, "a8");  // b8 is light now: its dark neighbour in the row
  EXPECT_EQ(form_.Text1[12].Text, "b1");
  EXPECT_TRUE(StoreFormRules(form_, *g_, true));
  ClickCheck3(form_, *g_, 1);
  EXPECT_EQ(form_.Text1[0].Text, "b8");
}

TEST_F(VariantsDialog, RandomRulesAreValidAndPlay) {
  for (int round = 0; round < 20; ++round) {
    RunDialog([&](Game& g) {
      DrawRandomRules(form_, g);
      EXPECT_TRUE(form_.Check7.Enabled == (g.RuleSet.MaxCapMove == 1));
    });
    EXPECT_EQ(form_.Message, "");
    EXPECT_GE(g_->RuleSet.NumberMen, 1);
    EXPECT_LE(g_->RuleSet.NumberKings, 20);
    for (int side = 0; side < 2; ++side)
      for (int cell : g_->RuleSet.PromoSquares[side])
        if (cell != -1) {
          EXPECT_TRUE(SquareIsDark(cell, g_->RuleSet.PiecesOnBlack)) << cell;
        }
    EXPECT_GT(LegalMoveCount(), 0) << "round " << round;
  }
}

}  // namespace
}  // namespace qv

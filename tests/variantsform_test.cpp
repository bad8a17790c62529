#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/fatal.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/newgame.h"
#include "interaction/newvariant.h"
#include "files/variantfile.h"
#include "interaction/variantsform.h"

namespace qv {

namespace {

namespace fs = std::filesystem;

// A variant file that states every key, as the installed ones do: the
// defaults with the given lines after them (a later key wins).
std::string VariantText(const std::string& lines) {
  std::string text = "title line\n";
  for (const RuleField& field : RuleFields())
    text += std::string(field.name) + "=" + std::to_string(field.defaultValue) + "\n";
  text += "PromoW=B8D8F8H8\nPromoB=A1C1E1G1\n";
  text += "WhiteManMovement=NW;NE NW;NE\nBlackManMovement=NW;NE NW;NE\n";
  text += "WhiteKingMovement=NW;NE;SE;SW NW;NE;SE;SW\nBlackKingMovement=NW;NE;SE;SW NW;NE;SE;SW\n";
  return text + lines + "END\n";
}

const std::string ItalianFile = VariantText(
    "Setup=normal\n"
    "MaxCapMove=1\nMaxCapMoveKings=1\nKingCapMove=1\nManCapKing=0\nBlackStarts=0\nPiecesOnBlack=0\n"
    "PromoW=A8C8E8G8\nPromoB=B1D1F1H1\n"
    "Help=Men may not take kings.\nHelpLink=https://example.org/italian\n");

const std::string RussianFile = VariantText(
    "LongKings=1\nManContJump=1\nManContJumpCrowned=1\nRemovePieces=1\nBlackStarts=0\nThreeKings=1\nNumberKings=15\n"
    "WhiteManMovement=NW;NE NW;NE;SE;SW\nBlackManMovement=NW;NE NW;NE;SE;SW\n");

// Two white men on a1 and c1, one black king on h8; Black begins.
const std::string DuelFile =
    VariantText("Setup=1010000000000000000000000000000000000000000000000000000000000004\nLongKings=1\n");

class VariantsFormTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("quorvanis-variants-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::create_directories(folder_ / "variants" / "uservariants");
    Write("variants/American Checkers.ini", VariantText(""));
    Write("variants/Italian Checkers.ini", ItalianFile);
    Write("variants/Russian Checkers.ini", RussianFile);
    Write("variants/uservariants/Duel.ini", DuelFile);
    game_ = std::make_unique<Game>();
    game_->DataFolder = folder_;
    game_->Random.SetFixedSeed(7);
    NewGame(*game_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  void Write(const std::string& name, const std::string& text) { std::ofstream(folder_ / name) << text; }

  // New Variant... with a dialog that chooses `name` in the folder and presses OK.
  void ChooseAndPlay(const std::string& name, int useClassic = 1) {
    Game& g = *game_;
    NewVariantCommand(g, [&](Game& game) {
      VariantsForm form;
      OpenVariantsForm(form, game);
      if (useClassic != form.UseClassic) ChooseVariantFolder(form, game, useClassic);
      SelectVariant(form, game, name);
      return StoreFormRules(form, game, true);
    });
  }

  int LegalMoveCount() { return game_->PlyBase[1] - game_->PlyBase[0]; }

  fs::path folder_;
  std::unique_ptr<Game> game_;
};

}  // namespace

TEST_F(VariantsFormTest, ListsBothFolders) {
  VariantsForm form;
  OpenVariantsForm(form, *game_);
  EXPECT_EQ(form.Combo1List,
            (std::vector<std::string>{"American Checkers", "Italian Checkers", "Russian Checkers"}));
  ChooseVariantFolder(form, *game_, 0);
  EXPECT_EQ(form.Combo1List, std::vector<std::string>{"Duel"});
  EXPECT_EQ(form.Combo1, "Duel");
  EXPECT_EQ(game_->Settings.UseClassic, 0);
}

TEST_F(VariantsFormTest, SelectingAVariantShowsItsRulesAtOnce) {
  Game& g = *game_;
  VariantsForm form;
  OpenVariantsForm(form, g);
  EXPECT_EQ(form.Combo1, "American Checkers");
  EXPECT_EQ(form.Text1[0].Text, "B8");
  SelectVariant(form, g, "Italian Checkers");
  EXPECT_EQ(g.RuleSet.ManCapKing, 0);
  EXPECT_EQ(g.VariantDefinition.ManCapKing, 0);
  EXPECT_EQ(form.Check8.Value, 0);
  EXPECT_EQ(form.Check1.Value, 1);
  EXPECT_FALSE(form.Check2.Enabled);
  EXPECT_TRUE(form.Check7.Enabled);
  EXPECT_EQ(form.Check3.Value, 0);
  EXPECT_EQ(form.Text1[0].Text, "A8");
  EXPECT_EQ(form.Text1[12].Text, "B1");
  EXPECT_EQ(form.Text1[4].Text, "");
  EXPECT_EQ(form.Text2[0].Text, "NW;NE");
  EXPECT_EQ(form.Text2[6].Text, "NW;NE;SE;SW");
  EXPECT_EQ(form.Label10, "https://example.org/italian");
  EXPECT_EQ(g.HelpText, "Men may not take kings.");
  // The next variant has no link: the old one goes.
  SelectVariant(form, g, "Russian Checkers");
  EXPECT_EQ(form.Label10, "");
  EXPECT_EQ(form.Text2[4].Text, "NW;NE;SE;SW");
}

TEST_F(VariantsFormTest, EachChosenVariantStartsWithItsOwnSetupAndMoves) {
  Game& g = *game_;
  ChooseAndPlay("Italian Checkers");
  EXPECT_EQ(g.VariantLabel, "Italian Checkers");
  EXPECT_EQ(g.SideToMove, 1);
  EXPECT_EQ(g.Flags.SearchFlavour, 2);
  EXPECT_EQ(g.Board[22], WhiteMan);  // the other colour: b1, not a1
  EXPECT_EQ(g.Board[21], 0);
  EXPECT_EQ(LegalMoveCount(), 7);

  ChooseAndPlay("Russian Checkers");
  EXPECT_EQ(g.VariantLabel, "Russian Checkers");
  EXPECT_EQ(g.Flags.SearchFlavour, 4);
  EXPECT_EQ(g.Board[21], WhiteMan);
  EXPECT_EQ(g.SideToMove, 1);
  EXPECT_EQ(LegalMoveCount(), 7);

  ChooseAndPlay("Duel", 0);
  EXPECT_EQ(g.VariantLabel, "Duel");
  EXPECT_EQ(g.Board[21], WhiteMan);
  EXPECT_EQ(g.Board[23], WhiteMan);
  EXPECT_EQ(g.Board[98], BlackKing);
  EXPECT_EQ(g.SideToMove, -1);
  EXPECT_EQ(g.RuleSet.LongKings, 1);
  EXPECT_EQ(LegalMoveCount(), 6);  // the flying king slides from g7 down to b2
}

TEST_F(VariantsFormTest, ARuleChangedByHandMarksTheVariant) {
  Game& g = *game_;
  NewVariantCommand(g, [](Game& game) {
    VariantsForm form;
    OpenVariantsForm(form, game);
    SelectVariant(form, game, "Russian Checkers");
    form.Check19.Value = 1;  // draw when no moves but pieces
    return StoreFormRules(form, game, true);
  });
  EXPECT_EQ(g.RuleSet.NoLegalDraw, 1);
  EXPECT_EQ(g.VariantLabel, "Russian Checkers (M)");
}

TEST_F(VariantsFormTest, EnablingRulesFollowTheirFirstControl) {
  VariantsForm form;
  OpenVariantsForm(form, *game_);
  form.Check2.Value = 0;
  form.Check1.Value = 1;
  ApplyEnablingRules(form);
  EXPECT_EQ(form.Check2.Value, 1);
  EXPECT_FALSE(form.Check2.Enabled);
  form.Check7.Value = 1;
  form.Check1.Value = 0;
  form.Check10.Value = 0;
  form.Check12.Value = 1;
  form.Check29.Value = 1;
  form.Check30.Value = 1;
  form.Check33.Value = 1;
  form.Check6.Value = 1;
  ApplyEnablingRules(form);
  EXPECT_EQ(form.Check7.Value, 0);
  EXPECT_FALSE(form.Check7.Enabled);
  EXPECT_EQ(form.Check12.Value, 0);
  EXPECT_FALSE(form.Check12.Enabled);
  EXPECT_TRUE(form.Check30.Enabled);
  EXPECT_FALSE(form.Text6.Enabled);
  EXPECT_TRUE(form.Text9.Enabled && form.Text13.Enabled);
  EXPECT_FALSE(form.Check16.Enabled);
  EXPECT_FALSE(form.Text3.Enabled);
}

TEST_F(VariantsFormTest, Check3MovesThePromotionSquaresToTheOtherColour) {
  Game& g = *game_;
  VariantsForm form;
  OpenVariantsForm(form, g);
  ClickCheck3(form, g, 0);
  EXPECT_EQ(g.RuleSet.PiecesOnBlack, 0);
  EXPECT_EQ(g.VariantDefinition.PiecesOnBlack, 0);
  EXPECT_EQ(g.RuleSet.PromoSquares[0][0], 91);
  EXPECT_EQ(g.RuleSet.PromoSquares[1][0], 22);
  EXPECT_EQ(form.Text1[0].Text, "A8");
  EXPECT_EQ(form.Text1[12].Text, "B1");
  EXPECT_EQ(form.Text1[5].Text, "");
  ClickCheck3(form, g, 1);
  EXPECT_EQ(g.RuleSet.PromoSquares[0][0], 92);
  EXPECT_TRUE(StoreFormRules(form, g, true));
}

TEST_F(VariantsFormTest, BadSquaresAreRefusedAndTheRulesStay) {
  Game& g = *game_;
  const RuleRecord before = g.RuleSet;
  for (const char* bad : {"A2", "Z9", "0", "B"}) {
    VariantsForm form;
    OpenVariantsForm(form, g);
    form.Check19.Value = 1;
    EditPromoBox(form, 2, "b8");  // lower case is fine
    EditPromoBox(form, 14, bad);
    EXPECT_FALSE(StoreFormRules(form, g, true)) << bad;
    EXPECT_EQ(form.Message, "Illegal entry!");
    EXPECT_TRUE(form.Text1[14].Marked);
    EXPECT_FALSE(form.Text1[2].Marked);
    EXPECT_EQ(g.RuleSet.NoLegalDraw, before.NoLegalDraw);
    EXPECT_TRUE(g.RuleSet.PromoSquares == before.PromoSquares);
    EditPromoBox(form, 14, "");
    EXPECT_FALSE(form.Text1[14].Marked);
    EXPECT_TRUE(StoreFormRules(form, g, true));
    EXPECT_EQ(form.Message, "");
    EXPECT_EQ(g.RuleSet.PromoSquares[0][2], 92);
    EXPECT_EQ(g.RuleSet.PromoSquares[1][2], -1);
    g.RuleSet = before;
  }
  // With pieces on all squares any square of the board passes.
  VariantsForm form;
  g.RuleSet.PiecesOnBlack = 2;
  OpenVariantsForm(form, g);
  EXPECT_EQ(form.Check3.Value, 2);
  EXPECT_FALSE(form.Check3.Enabled);
  EditPromoBox(form, 0, "A2");
  EXPECT_TRUE(StoreFormRules(form, g, true));
  EXPECT_EQ(g.RuleSet.PromoSquares[0][0], 31);
}

TEST_F(VariantsFormTest, UnknownDirectionWordsAreRefusedAndTheTablesRestored) {
  Game& g = *game_;
  const RuleRecord before = g.RuleSet;
  const DirectionTable table = g.DirTable;
  VariantsForm form;
  OpenVariantsForm(form, g);
  EditDirectionBox(form, 0, "N;E");         // good: orthogonal steps
  EditDirectionBox(form, 5, "NW;NE;XX");    // Black man's captures
  EXPECT_FALSE(StoreFormRules(form, g, false));
  EXPECT_EQ(form.Message, "Illegal entry!");
  EXPECT_TRUE(form.Text2[5].Marked);
  EXPECT_FALSE(form.Text2[1].Marked);
  EXPECT_EQ(g.RuleSet.DirText, before.DirText);
  EXPECT_EQ(g.DirTable, table);

  EditDirectionBox(form, 5, "NW;NE");
  EditDirectionBox(form, 3, "SW;Q");  // Black king's normal moves
  EXPECT_FALSE(StoreFormRules(form, g, false));
  EXPECT_TRUE(form.Text2[3].Marked);
  EXPECT_FALSE(form.Text2[5].Marked);

  EditDirectionBox(form, 3, "SW;NE");
  EditDirectionBox(form, 6, "NW;NE;SE;SW;N;E;S;W;NN");  // nine: no room
  EXPECT_FALSE(StoreFormRules(form, g, false));
  EXPECT_TRUE(form.Text2[6].Marked);
  EditDirectionBox(form, 6, "NW;NE;SE;SW;N;E;S;W");
  EXPECT_TRUE(StoreFormRules(form, g, false));
  EXPECT_EQ(g.RuleSet.DirText[0], "N;E NW;NE");
  EXPECT_EQ(g.DirTable[0][0], 10);
}

TEST_F(VariantsFormTest, ApplyLeavesTheNumberOfFriendsAlone) {
  Game& g = *game_;
  VariantsForm form;
  OpenVariantsForm(form, g);
  form.Check29.Value = 1;
  form.Check30.Value = 1;
  form.Text8.Text = "2.5 pieces";
  EXPECT_TRUE(StoreFormRules(form, g, false));
  EXPECT_EQ(g.RuleSet.NumberFriends, 0);
  EXPECT_EQ(g.RuleSet.NumberPieces, 2);
  EXPECT_TRUE(StoreFormRules(form, g, true));
  EXPECT_EQ(g.RuleSet.NumberFriends, -1);
}

TEST_F(VariantsFormTest, RandomRulesPlay) {
  Game& g = *game_;
  int played = 0;
  for (int round = 0; round < 12; ++round) {
    NewVariantCommand(g, [](Game& game) {
      VariantsForm form;
      OpenVariantsForm(form, game);
      DrawRandomRules(form, game);
      EXPECT_EQ(form.Check7.Enabled, game.RuleSet.MaxCapMove == 1);
      EXPECT_GE(game.RuleSet.NumberMen, 1);
      EXPECT_LE(game.RuleSet.NumberKings, 20);
      return StoreFormRules(form, game, true);
    });
    ASSERT_EQ(g.VariantLabel.substr(0, 17), "American Checkers");
    // A random game of up to 80 half-moves; any fatal error fails the test.
    for (int half = 0; half < 80 && LegalMoveCount() > 0; ++half) {
      const int index = g.PlyBase[0] + static_cast<int>(g.Rnd() * LegalMoveCount());
      ASSERT_NO_THROW({
        MakeSearchMove(g, index);
        CommitRootPly(g);
        GenerateLegalMoves(g);
      });
      ++played;
    }
  }
  EXPECT_GT(played, 12 * 20);
}

TEST_F(VariantsFormTest, AFileThatCannotBeReadIsFatal) {
  Game& g = *game_;
  VariantsForm form;
  OpenVariantsForm(form, g);
  Write("variants/Broken.ini", "MulJumps=0\n");
  for (const char* name : {"Missing", "Broken"}) {
    try {
      SelectVariant(form, g, name);
      ADD_FAILURE() << name;
    } catch (const FatalError& e) {
      EXPECT_STREQ(e.what(), "Error found! Quorvanis will exit");
    }
  }
}

}  // namespace qv

namespace qv {

// Every shipped variant chosen in the dialog and confirmed with OK: its own
// name without a mark, its own set-up and side to begin, and moves to play.
TEST(VariantsDialogShipped, EveryVariantStartsAsItsFileSays) {
  for (int useClassic : {1, 0}) {
    Game g;
    g.DataFolder = QUORVANIS_TEST_DATA;
    g.Random.SetFixedSeed(3);
    g.Settings.UseClassic = useClassic;
    g.VariantName = FillVariantList(VariantFolder(g.DataFolder, useClassic)).front();
    NewGame(g);
    VariantsForm listing;
    OpenVariantsForm(listing, g);
    ASSERT_FALSE(listing.Combo1List.empty());
    for (const std::string& name : listing.Combo1List) {
      std::string setup;
      NewVariantCommand(g, [&](Game& game) {
        VariantsForm form;
        OpenVariantsForm(form, game);
        SelectVariant(form, game, name);
        setup = BoardSetupText(game.Board);
        return StoreFormRules(form, game, true);
      });
      EXPECT_EQ(g.VariantLabel, name);
      EXPECT_EQ(g.SideToMove, g.RuleSet.BlackStarts == 1 ? -1 : 1) << name;
      EXPECT_TRUE(g.RuleSet.PromoSquares == g.VariantDefinition.PromoSquares) << name;
      EXPECT_EQ(g.RuleSet.DirText, g.VariantDefinition.DirText) << name;
      EXPECT_EQ(BoardSetupText(g.StartBoard), setup) << name;
      if (g.RuleSet.RemoveMen == 0 && g.RuleSet.canContract == 0) {
        EXPECT_GT(g.PlyBase[1] - g.PlyBase[0], 0) << name;
      }
    }
  }
}

}  // namespace qv

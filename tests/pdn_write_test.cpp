#include "files/pdn_gametype.h"
#include "files/pdn_rulestag.h"
#include "files/pdn_write.h"
#include "pdn_fixture.h"

namespace qv {

namespace {

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t n = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
  return n;
}

void ExpectSameGame(const Game& a, const Game& b) {
  ASSERT_EQ(a.GameLength, b.GameLength);
  EXPECT_EQ(a.StartBoard, b.StartBoard);
  EXPECT_EQ(a.RuleSet.BlackStarts, b.RuleSet.BlackStarts);
  for (int i = 1; i <= a.GameLength; ++i) {
    EXPECT_EQ(a.Record.GameMoves[i].FromSquare, b.Record.GameMoves[i].FromSquare) << "half-move " << i;
    EXPECT_EQ(a.Record.GameMoves[i].ToSquare, b.Record.GameMoves[i].ToSquare) << "half-move " << i;
  }
  EXPECT_EQ(a.Board, b.Board);
}

// The file as another program sees it: without this program's rules tag.
std::string WithoutRulesTag(std::string text) {
  for (const char* tag : {"[QVersion ", "[Quorvanis "}) {
    const std::size_t at = text.find(tag);
    if (at != std::string::npos) text.erase(at, text.find("\r\n", at) + 2 - at);
  }
  return text;
}

}  // namespace

TEST_F(PdnTest, StandardGameTagsMovetextAndResult) {
  game->Tags.Event = "Club";
  game->Tags.White = "Weiss";
  PlaySomeMoves(*game, 30);
  game->Record.CommentTable[0] = "first\r\nline";
  game->Record.CommentTable[3] = "a {brace}";
  const std::string text = PdnGameText(*game, "05/06/2024");
  EXPECT_TRUE(text.starts_with("[Event \"Club\"]\r\n[Date \"05/06/2024\"]\r\n[White \"Weiss\"]\r\n[Result \"*\"]\r\n"
                               "[GameType \"21,B,8,8,N1,0\"]\r\n\r\n1. {first  line} "))
      << text;
  EXPECT_EQ(Count(text, "[QVersion"), 0u);
  EXPECT_EQ(Count(text, "[FEN"), 0u);
  EXPECT_EQ(game->Record.CommentTable[0], "first  line");  // the stored comment is changed too
  EXPECT_NE(text.find("{a {brace)} "), std::string::npos);
  EXPECT_EQ(game->Tags.Date, "05/06/2024");
  EXPECT_TRUE(text.ends_with(" *\r\n\r\n"));
  // Lines are cut once they pass 70 characters.
  std::size_t start = text.find("\r\n\r\n") + 4;
  while (start < text.size()) {
    const std::size_t end = text.find("\r\n", start);
    EXPECT_LE(end - start, 70u + 8u);
    start = end + 2;
  }
  // A game without moves is its result alone.
  auto empty = NewTestGame();
  const std::string none = PdnGameText(*empty, "01/01/2000");
  EXPECT_TRUE(none.ends_with("]\r\n\r\n*\r\n\r\n")) << none;
}

TEST_F(PdnTest, SavesAppendKeepTheDateAndReadBack) {
  PlaySomeMoves(*game, 12);
  game->GameResult = "1/2-1/2";
  const auto file = folder / "games.pdn";
  std::string error;
  ASSERT_TRUE(AppendPdnGame(file, *game, error)) << error;
  const std::string date = game->Tags.Date;
  EXPECT_EQ(date, TodayText());
  game->Tags.Date = "12/31/1999";
  ASSERT_TRUE(AppendPdnGame(file, *game, error)) << error;
  const std::string text = ReadBack(file);
  EXPECT_EQ(Count(text, "[Date "), 2u);
  EXPECT_EQ(Count(text, "12/31/1999"), 1u);
  EXPECT_FALSE(std::filesystem::exists(folder / "games.pdn.tmp"));

  const PdnOpenResult open = OpenPdnFile(file, folder);
  ASSERT_EQ(open.Collection.Games.size(), 2u);
  auto back = NewTestGame();
  ASSERT_EQ(ReadPdnGame(*back, open.Collection, 2, {}).Status, PdnLoadStatus::Loaded);
  ExpectSameGame(*game, *back);
  EXPECT_EQ(back->GameResult, "1/2-1/2");
}

TEST_F(PdnTest, AlgebraicPdnAndNumericDefault) {
  game->Settings.NotationKind = 0;
  PlaySomeMoves(*game, 6);
  const std::string numeric = PdnGameText(*game, "d");
  EXPECT_NE(numeric.find("1. 9-14 21-17 2. 14x21 "), std::string::npos) << numeric;
  game->Settings.PdnAlgebraic = 1;
  const std::string algebraic = PdnGameText(*game, "d");
  EXPECT_NE(algebraic.find("1. b6-c5 a3-b4 2. c5xa3 "), std::string::npos) << algebraic;
  EXPECT_NE(algebraic.find("[GameType \"21,B,8,8,A0,0\"]"), std::string::npos);
  auto back = NewTestGame();
  ASSERT_EQ(Load(*back, Write("alg.pdn", algebraic)).Status, PdnLoadStatus::Loaded);
  ExpectSameGame(*game, *back);
}

TEST_F(PdnTest, CustomSetUpsGoOutAsFenAndComeBack) {
  for (const char* fen : {"W:W18,24,27,K10,K15:B12,16,20,K22,K25,K29", "B:W30,K5:B1,K32"}) {
    auto g = NewTestGame();
    ASSERT_TRUE(ApplyPdnFen(*g, fen));
    PlaySomeMoves(*g, 8);
    const std::string text = PdnGameText(*g, "d");
    EXPECT_NE(text.find("[SetUp \"1\"]"), std::string::npos);
    EXPECT_NE(text.find("[GameType \"21,"), std::string::npos);
    // Another position is no longer the standard American game: the rules tag
    // is written too, and our own reader follows it (see the version 1.13 test).
    EXPECT_NE(text.find("[Quorvanis "), std::string::npos);
    auto back = NewTestGame();
    const PdnLoadResult r = Load(*back, Write("fen.pdn", WithoutRulesTag(text)));
    ASSERT_EQ(r.Status, PdnLoadStatus::Loaded) << r.Message << "\n" << text;
    ExpectSameGame(*g, *back);
  }
}

// Every variant of the GameType table: written, and read back the way another
// program reads it (by its GameType, its set-up and its moves).
TEST_F(PdnTest, EveryGameTypeVariantRoundTrips) {
  for (int type : {20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 40}) {
    const std::string name = GameTypeVariant(std::to_string(type));
    for (int algebraic = 0; algebraic < 2; ++algebraic) {
      auto g = NewTestGame();
      g->Settings.PdnAlgebraic = algebraic;
      StartVariant(*g, name);
      PlaySomeMoves(*g, 40);
      const std::string text = PdnGameText(*g, "d");
      const std::string expected = "[GameType \"" + std::to_string(type) + ",";
      EXPECT_NE(text.find(expected), std::string::npos) << name << "\n" << text;
      auto back = NewTestGame();
      const PdnLoadResult r = Load(*back, Write("v.pdn", WithoutRulesTag(text)));
      ASSERT_EQ(r.Status, PdnLoadStatus::Loaded) << name << ": " << r.Message << "\n" << text;
      EXPECT_EQ(back->VariantName, name);
      ExpectSameGame(*g, *back);
    }
  }
}

TEST_F(PdnTest, RulesTagIsWrittenOnlyForOtherRules) {
  StartVariant(*game, "Russian Checkers");
  game->RuleSet.NumberPieces = 3;
  game->RuleSet.ContractB2 = 7;
  MarkModified(*game);
  const std::string tag = RulesTagText(*game);
  EXPECT_TRUE(tag.starts_with("*Russian Checkers* " + BoardSetupText(game->StartBoard) + " 1 0 0 B8D8F8H8 A1C1E1G1 1 "))
      << tag;
  EXPECT_TRUE(tag.ends_with(" 3 0 0 0 0 0 7 " + game->RuleSet.DirText[0] + "  " + game->RuleSet.DirText[1] + "  " +
                            game->RuleSet.DirText[2] + "  " + game->RuleSet.DirText[3] + "  1"))
      << tag;
  const std::string text = PdnGameText(*game, "d");
  EXPECT_NE(text.find("[QVersion \"1.13\"]\r\n[Quorvanis \"" + tag + "\"]"), std::string::npos);
  // Changed rules are no longer the variant of the GameType table.
  EXPECT_EQ(text.find("[GameType"), std::string::npos);
}

TEST_F(PdnTest, RulesTagReadsEveryFieldFromLaterVersions) {
  StartVariant(*game, "Russian Checkers");
  game->RuleSet.NumberPieces = 3;
  game->RuleSet.LastCap = 1;
  game->RuleSet.KingMan = 1;
  game->RuleSet.ContractB2 = 7;
  game->RuleSet.ManContJumpCrowned = 1;
  const RuleRecord written = game->RuleSet;
  auto back = NewTestGame();
  ApplyRulesTag(*back, RulesTagText(*game), 112);
  EXPECT_EQ(back->VariantName, "Russian Checkers");
  for (const RuleField& field : RuleFields())
    EXPECT_EQ(back->RuleSet.*field.member, written.*field.member) << field.name;
  EXPECT_EQ(back->RuleSet.DirText, written.DirText);
  EXPECT_EQ(back->RuleSet.PromoSquares, written.PromoSquares);
  EXPECT_EQ(back->SideToMove, 1);
  EXPECT_EQ(back->VariantLabel, "Russian Checkers (M)");
}

// A tag of version 1.13 skips the gated groups: the numbers it wrote for them
// stay in front of White's men's movement text, which reads them as words.
TEST_F(PdnTest, RulesTagOfVersion113KeepsTheLeftOverNumbers) {
  StartVariant(*game, "Russian Checkers");
  game->RuleSet.NumberPieces = 3;
  auto back = NewTestGame();
  ApplyRulesTag(*back, RulesTagText(*game), Val(PdnRulesVersion));
  EXPECT_EQ(back->RuleSet.NumberPieces, 0);
  // RemoveMen to ContractB2 as written: the three-kings rule (1, 15) and NumberPieces 3 among them.
  EXPECT_EQ(back->RuleSet.DirText[0], "0 0 0 0 0 0 0 0 1 15 0 0 0 0 0 0 3 0 0 0 0 0 0 " + game->RuleSet.DirText[0]);
  EXPECT_EQ(back->RuleSet.DirText[1], game->RuleSet.DirText[1]);
  EXPECT_EQ(back->RuleSet.LongKings, 1);
  EXPECT_EQ(back->DirTable[KindWhiteMan][0], EndOfList);
}

TEST_F(PdnTest, OldFormatRulesTagNamesTheVariantByNumber) {
  const auto& names = VariantNumberTable();
  int italian = 0;
  for (int i = 1; i < static_cast<int>(names.size()); ++i)
    if (names[i] == "Italian Checkers") italian = i;
  ASSERT_GT(italian, 0);
  StartVariant(*game, "Italian Checkers");
  std::string tag = RulesTagText(*game);
  tag = std::to_string(italian) + tag.substr(tag.find("* ") + 1);
  auto back = NewTestGame();
  ApplyRulesTag(*back, tag, 0);
  EXPECT_EQ(back->VariantName, "Italian Checkers");
  EXPECT_EQ(back->RuleSet.ManCapKing, 0);
  // No NoLegalDraw in the old form: the numbers after CapRequired start the movement texts.
  EXPECT_TRUE(back->RuleSet.DirText[0].starts_with("0 "));
}

}  // namespace qv

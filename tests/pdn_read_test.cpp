#include "core/makemove.h"
#include "files/pdn_movetext.h"
#include "files/pdn_tags.h"
#include "pdn_fixture.h"

namespace qv {

namespace {

const std::string ShortGame = "[Event \"Club\"]\n[Black \"Brown\"]\n[White \"Weiss\"]\n[Result \"1-0\"]\n\n"
                              "1. 11-15 22-18 2. 15x22 25x18 1-0\n";

std::string WithLineEnds(const std::string& text, const std::string& end) {
  std::string out;
  for (char c : text) {
    if (c == '\n') out += end;
    else out += c;
  }
  return out;
}

int Cell(const char* name) { return SquareNumber(name, 0, 1); }
int Numbered(int n) { return SquareNumber(std::to_string(n), 1, 1); }

}  // namespace

TEST_F(PdnTest, LineEndsOfEveryKindReadTheSameGame) {
  const std::string mixedCrFirst = "[Event \"Club\"]\r\n" + ShortGame.substr(ShortGame.find('\n') + 1);
  std::string lfFirstThenCr = ShortGame;
  lfFirstThenCr.replace(lfFirstThenCr.find("\n\n"), 2, "\n\r\n");
  for (const std::string& text : {ShortGame, WithLineEnds(ShortGame, "\r\n"), mixedCrFirst, lfFirstThenCr,
                                  ShortGame.substr(0, ShortGame.size() - 1)}) {
    auto g = NewTestGame();
    const PdnLoadResult r = Load(*g, Write("ends.pdn", text));
    EXPECT_EQ(r.Status, PdnLoadStatus::Loaded) << r.Message;
    EXPECT_EQ(g->HalfMoveCount, 4);
    EXPECT_EQ(g->Tags.Black, "Brown");
    // Only the program's own copy was made, and it is gone.
    EXPECT_FALSE(std::filesystem::exists(folder / PdnTempName));
  }
}

TEST_F(PdnTest, RepairCopiesLfFilesThroughTheTemporaryFile) {
  const RepairedText lf = ReadWithRepairedLineEnds(Write("a.pdn", std::string("[Event \"x\"]\nab\0cd\n", 18)), folder);
  EXPECT_TRUE(lf.UsedTemporary);
  EXPECT_EQ(lf.Text, "[Event \"x\"]\r\nab\r\n");  // a block is cut at its first NUL
  const RepairedText crlf = ReadWithRepairedLineEnds(Write("b.pdn", "[Event \"x\"]\r\n"), folder);
  EXPECT_FALSE(crlf.UsedTemporary);
  // A file that begins with a lone LF but holds CRs cannot be looked behind.
  const PdnOpenResult bad = OpenPdnFile(Write("c.pdn", "\n[Event \"x\"]\r\n1. 11-15 *\r\n"), folder);
  EXPECT_EQ(bad.Status, PdnOpenStatus::Failed);
  EXPECT_EQ(bad.Message, "Error in loading PDN file!");
}

TEST_F(PdnTest, AFileThatIsNotPdnIsNeverDeleted) {
  for (const std::string& bytes : {std::string("just some notes\n"), std::string("notes\r\nmore\r\n"),
                                   std::string("[GameType \"21\"]\r\n1. 11-15 *\r\n")}) {
    const auto file = Write("notes.txt", bytes);
    const PdnOpenResult r = OpenPdnFile(file, folder);
    EXPECT_EQ(r.Status, PdnOpenStatus::NotPdn);
    EXPECT_EQ(r.Message, "notes.txt is not a PDN file");
    ASSERT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(ReadBack(file), bytes);
    EXPECT_FALSE(std::filesystem::exists(folder / PdnTempName));
  }
  EXPECT_EQ(OpenPdnFile(folder / "missing.pdn", folder).Status, PdnOpenStatus::Missing);
}

TEST_F(PdnTest, TypeCheckAndScan) {
  EXPECT_TRUE(BeginsWithPdnTag("\r\n\r\n[Rem \"x\"]"));
  EXPECT_TRUE(BeginsWithPdnTag("\xEF\xBB\xBF[Event \"x\"]"));
  EXPECT_FALSE(BeginsWithPdnTag("[GameType \"21\"]"));
  EXPECT_FALSE(BeginsWithPdnTag("[Event\"x\"]"));

  const PdnOpenResult none = OpenPdnFile(Write("t.pdn", "[Event \"only tags\"]\n[Date \"2001\"]\n"), folder);
  EXPECT_EQ(none.Status, PdnOpenStatus::NoGames);
  EXPECT_EQ(none.Message, "No games found!");

  const std::string two = "[Event \"Open\"]\n[Round \"3\"]\n[Date \"1999.01.02\"]\n[Year \"1998\"]\n[Site \"Here\"]\n"
                          "[ECO \"K1\"]\n[BlackElo \"2100\"]\n[Comment \"ignored\"]\n[QVersion \"112\"]\n\n"
                          "1. 11-15 *\n\n1. 9-13 *\n\n"  // a movetext without tags is not a game
                          "[Year \"1950\"]\n[Date \"1951\"]\n[Result \"1/2-1/2\"]\n1. 10-14 1/2-1/2\n";
  const PdnOpenResult r = OpenPdnFile(Write("two.pdn", two), folder);
  ASSERT_EQ(r.Collection.Games.size(), 2u);
  EXPECT_EQ(r.Collection.QVersionValue, "112");
  const auto first = PdnChooserRow(r.Collection.Games[0].Tags);
  EXPECT_EQ(first, (std::array<std::string, 10>{"Open 3", "1998", "", "", "*", "Here", "", "K1", "2100", ""}));
  const auto second = PdnChooserRow(r.Collection.Games[1].Tags);
  EXPECT_EQ(second[1], "1951");
  EXPECT_EQ(second[4], "1/2-1/2");
  EXPECT_EQ(r.Collection.Games[1].Movetext, std::vector<std::string>{"1. 10-14 1/2-1/2"});
}

TEST_F(PdnTest, TagValuesAreTheTextBetweenTheQuotes) {
  PdnTags tags;
  ResetPdnTags(tags);
  ParseTagLine("[White \"Smith, J\"]", tags);
  ParseTagLine("[fen \"B:W1:B2\"]", tags);
  ParseTagLine("[event \"lower case is no tag\"]", tags);
  std::string version;
  ParseTagLine("[QVersion \"1.13\"]", tags, &version);
  EXPECT_EQ(tags.White, "Smith, J");
  EXPECT_EQ(tags.Fen, "B:W1:B2");
  EXPECT_EQ(tags.Event, "");
  EXPECT_EQ(version, "1.13");
  EXPECT_EQ(tags.Result, "*");
}

TEST_F(PdnTest, MovetextCommentsNumbersAndResults) {
  const PdnMovetext m = ParsePdnMovetext({"{Start} {of game} 1. 11-15! {good}", "22-18 2.15x22 {takes", "back} 25x18",
                                          "(2... 9-13) 3. 8-11 $1 0-1 9-14"});
  ASSERT_EQ(m.Items.size(), 8u);
  EXPECT_EQ(m.Items[0].Comment, "Start\r\nof game");
  EXPECT_EQ(m.Items[1].Move, "11-15!");
  EXPECT_EQ(m.Items[2].Comment, "good");
  EXPECT_EQ(m.Items[4].Move, "15x22");
  EXPECT_EQ(m.Items[5].Comment, "takes back");
  EXPECT_EQ(m.Items[7].Move, "8-11");  // the result ends the game
  EXPECT_FALSE(m.SecondMoverFirst);

  EXPECT_TRUE(ParsePdnMovetext({"1. ... 22-18 *"}).SecondMoverFirst);
  EXPECT_TRUE(ParsePdnMovetext({"1... 22-18 *"}).SecondMoverFirst);
  EXPECT_EQ(ParsePdnMovetext({"1. 11- 15 *"}).Items[0].Move, "11-15");

  EXPECT_EQ(NormalMoveSquares("1x10x19").To, "19");
  EXPECT_EQ(NormalMoveSquares("c3:e5:g3").From, "c3");
  EXPECT_EQ(NormalMoveSquares("c3xe5*").To, "e5");
  EXPECT_EQ(NormalMoveSquares("d4").From, "d4");
  EXPECT_EQ(NormalMoveSquares("-").From, "");
}

TEST_F(PdnTest, GameLoadsWithPlayersResultAndComments) {
  const PdnLoadResult r = LoadText(ShortGame);
  ASSERT_EQ(r.Status, PdnLoadStatus::Loaded) << r.Message;
  EXPECT_EQ(r.StatusText, "1-0;  no comments");
  EXPECT_EQ(game->GameResult, "1-0");
  EXPECT_EQ(game->Tags.White, "Weiss");
  EXPECT_EQ(game->GameLength, 4);
  EXPECT_EQ(game->Record.GameMoves[3].ToSquare, Numbered(22));
  EXPECT_EQ(game->MoveTextTable[1][2], "3");  // loaded moves are marked as such

  const PdnLoadResult c = LoadText("[Event \"c\"]\n1. {opening} 11-15 {reply?} 22-18 {end} *\n");
  EXPECT_TRUE(c.HadComments);
  EXPECT_EQ(c.StatusText, "*");
  EXPECT_EQ(game->Record.CommentTable[0], "opening");
  EXPECT_EQ(game->Record.CommentTable[1], "reply?");
  EXPECT_EQ(game->Record.CommentTable[2], "end");
}

TEST_F(PdnTest, MovesInEitherNotationAndWithIntermediateSquares) {
  game->Settings.NotationKind = 0;  // the player reads algebraic squares
  EXPECT_EQ(LoadText("[Event \"n\"]\n1. 11-15 22-18 *\n").Status, PdnLoadStatus::Loaded);
  EXPECT_EQ(game->Record.GameMoves[1].FromSquare, Cell("F6"));
  game->Settings.NotationKind = 1;
  EXPECT_EQ(LoadText("[Event \"a\"]\n1. f6-e5 c3-d4 *\n").Status, PdnLoadStatus::Loaded);
  EXPECT_EQ(game->Record.GameMoves[2].ToSquare, Numbered(18));

  // A double jump written with its middle square, and without.
  for (const char* jump : {"1x10x19", "1x19"}) {
    const PdnLoadResult r = LoadText(std::string("[SetUp \"1\"]\n[FEN \"B:W6,15,30:B1\"]\n1. ") + jump + " *\n");
    ASSERT_EQ(r.Status, PdnLoadStatus::Loaded) << r.Message;
    EXPECT_EQ(game->Board[Numbered(19)], BlackMan);
    EXPECT_EQ(game->Board[Numbered(6)], 0);
    EXPECT_EQ(game->Board[Numbered(15)], 0);
  }
  // "1. ..." : White moves first from this set-up.
  const PdnLoadResult w = LoadText("[FEN \"W:W22:B5\"]\n1. ... 22-18 2. 5-9 *\n");
  ASSERT_EQ(w.Status, PdnLoadStatus::Loaded) << w.Message;
  EXPECT_EQ(game->HalfMoveCount, 2);
}

TEST_F(PdnTest, IllegalMoveEndsTheLoadWithANewGame) {
  const PdnLoadResult r = LoadText("[Event \"bad\"]\n1. 11-15 22-18 2. 11-17 *\n");
  EXPECT_EQ(r.Status, PdnLoadStatus::IllegalMove);
  EXPECT_EQ(r.Message, "11-17: Illegal move!");
  EXPECT_EQ(game->HalfMoveCount, 0);
  EXPECT_EQ(BoardSetupText(game->Board), "1010101001010101101010100000000000000000020202022020202002020202");
  EXPECT_EQ(LoadText("[Event \"x\"]\n1. 11-15 banana *\n").Message, "BANANA: Illegal move!");
}

TEST_F(PdnTest, FenSetUpsWithKingsSideAndRanges) {
  ASSERT_EQ(LoadText("[SetUp \"1\"]\n[FEN \"W:W18,24,27,28,K10,K15:B12,16,20,K22,K25,K29\"]\n1. 18-14 *\n").Status,
            PdnLoadStatus::Loaded);
  EXPECT_EQ(game->StartBoard[Numbered(10)], WhiteKing);
  EXPECT_EQ(game->StartBoard[Numbered(29)], BlackKing);
  EXPECT_EQ(game->StartBoard[Numbered(12)], BlackMan);
  EXPECT_EQ(game->RuleSet.BlackStarts, 0);
  EXPECT_EQ(game->Board[Numbered(14)], WhiteMan);

  ASSERT_EQ(LoadText("[FEN \"B:W21-32:B1-12.\"]\n1. 11-15 *\n").Status, PdnLoadStatus::Loaded);
  EXPECT_EQ(BoardSetupText(game->StartBoard), "1010101001010101101010100000000000000000020202022020202002020202");

  for (const char* fen : {"B:W33:B1", "W::.", "w::.", "X:W1:B2", "B:Wz9:B1"}) {
    const PdnLoadResult r = LoadText(std::string("[SetUp \"1\"]\n[FEN \"") + fen + "\"]\n1. 1-5 *\n");
    EXPECT_EQ(r.Status, PdnLoadStatus::IllegalSetup) << fen;
    EXPECT_EQ(r.Message, "Illegal Setup!");
  }
  // [SetUp "1"] without a FEN cannot be set up either.
  EXPECT_EQ(LoadText("[SetUp \"1\"]\n1. 11-15 *\n").Status, PdnLoadStatus::IllegalSetup);
}

TEST_F(PdnTest, GameTypeChoosesTheVariantInBothForms) {
  ASSERT_EQ(LoadText("[Event \"r\"]\n[GameType \"25\"]\n1. c3-d4 f6-e5 2. d4:f6 g7xe5 *\n").Status, PdnLoadStatus::Loaded);
  EXPECT_EQ(game->VariantName, "Russian Checkers");
  EXPECT_EQ(game->Settings.NotationKind, 0);

  const PdnLoadResult longForm = LoadText(
      "[Event \"r\"]\n[GameType \"25,W,8,8,A0,0\"]\n[SetUp \"1\"]\n[FEN \"W:Wa1,c3,Ke1:Bb6,h8\"]\n1. c3-d4 b6-a5 *\n");
  ASSERT_EQ(longForm.Status, PdnLoadStatus::Loaded) << longForm.Message;
  EXPECT_EQ(game->StartBoard[Cell("E1")], WhiteKing);
  EXPECT_EQ(game->Board[Cell("A5")], BlackMan);

  // Turkish: all 64 squares, named only algebraically.
  const PdnLoadResult turkish = LoadText("[Event \"t\"]\n[GameType \"30,W,8,8,A0,0\"]\n1. a3-a4 a6-a5 2. a4xa6xa8 *\n");
  ASSERT_EQ(turkish.Status, PdnLoadStatus::Loaded) << turkish.Message;
  EXPECT_EQ(game->VariantName, "Turkish Checkers");
  EXPECT_EQ(game->Board[Cell("A8")], WhiteKing);

  // An unknown number keeps the variant in force but still counts as chosen.
  game->Settings.NotationKind = 0;
  const PdnLoadResult unknown = LoadText("[Event \"u\"]\n[GameType \"99\"]\n1. a3-a4 *\n");
  EXPECT_TRUE(unknown.VariantChosen);
  EXPECT_EQ(game->VariantName, "Turkish Checkers");
}

TEST_F(PdnTest, OpenAsAndDefaultRules) {
  game->Settings.NotationKind = 0;
  StartVariant(*game, "Italian Checkers");
  // Without tags naming rules a user's file is read with the American rules.
  ASSERT_EQ(LoadText("[Event \"e\"]\n1. 11-15 *\n").Status, PdnLoadStatus::Loaded);
  EXPECT_EQ(game->VariantName, "American Checkers");
  EXPECT_EQ(game->RuleSet.PiecesOnBlack, 1);
  // "Open as:" chooses the rules, and the movetext its notation.
  PdnLoadChoice choice;
  choice.OpenAs = "Italian Checkers";
  const PdnLoadResult italian = LoadText("[Event \"i\"]\n1. 22-19 11-14 *\n", 1, choice);
  ASSERT_EQ(italian.Status, PdnLoadStatus::Loaded) << italian.Message;
  EXPECT_EQ(game->VariantName, "Italian Checkers");
  EXPECT_EQ(game->Settings.NotationKind, 1);
}

}  // namespace qv

namespace qv {

// The shipped openings: every game replays with the rules of American Checkers.
TEST_F(PdnTest, EveryShippedOpeningIsLegal) {
  const PdnOpenResult open = OpenPdnFile(std::filesystem::path(QUORVANIS_TEST_DATA) / "opening.pdn", folder);
  ASSERT_EQ(open.Status, PdnOpenStatus::Read) << open.Message;
  ASSERT_GE(open.Collection.Games.size(), 25u);
  PdnLoadChoice choice;
  choice.Source = 1;
  for (int n = 1; n <= static_cast<int>(open.Collection.Games.size()); ++n) {
    auto g = NewTestGame();
    ASSERT_TRUE(OpeningsApply(*g));
    const PdnLoadResult r = ReadPdnGame(*g, open.Collection, n, choice);
    const std::string name = open.Collection.Games[static_cast<std::size_t>(n - 1)].Tags.Event;
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(r.Status, PdnLoadStatus::Loaded) << name << ": " << r.Message;
    EXPECT_GE(r.Moves, 1) << name;
    EXPECT_EQ(g->VariantName, "American Checkers");
  }
}

TEST_F(PdnTest, OpeningsKeepTheRulesInForce) {
  StartVariant(*game, "American Pool Checkers");
  ASSERT_TRUE(OpeningsApply(*game));
  PdnLoadChoice choice;
  choice.Source = 1;
  const PdnLoadResult r = LoadText("[Event \"Kelso\"]\n1. 10-15 *\n", 1, choice);
  ASSERT_EQ(r.Status, PdnLoadStatus::Loaded) << r.Message;
  EXPECT_EQ(game->VariantName, "American Pool Checkers");
  EXPECT_EQ(game->HalfMoveCount, 1);
  StartVariant(*game, "Italian Checkers");
  EXPECT_FALSE(OpeningsApply(*game));
}

}  // namespace qv

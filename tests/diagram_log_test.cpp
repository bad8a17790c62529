// The diagram page, line for line, and the game log as games are played.
#include <gtest/gtest.h>

#include <fstream>

#include "files/diagram.h"
#include "files/gamelog.h"
#include "interaction/movelist.h"
#include "interaction/user_commands.h"
#include "interaction_fixture.h"
#include "temp_folder.h"

namespace qv {

namespace {

// One row of the diagram's table: the pictures named, then "<BR>".
std::string Row(std::initializer_list<const char*> names) {
  std::string line;
  for (const char* name : names) line += std::string("<IMG SRC=\"pieces/") + name + ".bmp\">";
  return line + "<BR>\n";
}

Game EmptyBoard() {
  Game g;
  for (int cell = 21; cell <= 98; ++cell)
    if (g.Board[cell] != OffBoard) g.Board[cell] = 0;
  return g;
}

}  // namespace

TEST(Diagram, ShowsTheTurnedBoardAsTheScreenDoesWithTheCommentBelow) {
  Game g = EmptyBoard();
  g.LoadedVariantName = "American Checkers";
  g.Settings.BoardTurned = 1;
  g.Board[21] = WhiteMan;   // a1: top right once turned
  g.Board[98] = BlackKing;  // h8: bottom left
  g.Board[54] = BlackMan;   // d5
  const char* lightFirst[] = {"lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare"};
  const char* darkFirst[] = {"dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare"};
  const auto empty = [&](bool dark) {
    const char** n = dark ? darkFirst : lightFirst;
    return Row({n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7]});
  };
  const std::string expected =
      "<HTML>\n<HEAD>\n<TITLE>American Checkers</TITLE>\n</HEAD>\n\n<BODY>\n"
      "<TABLE BORDER=\"1\" BORDERCOLOR=\"#000000\">\n<TR>\n<TD>\n" +
      Row({"lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dwhite_man"}) + empty(true) +
      empty(false) + Row({"dsquare", "lsquare", "dsquare", "lsquare", "dblack_man", "lsquare", "dsquare", "lsquare"}) +
      empty(false) + empty(true) + empty(false) +
      Row({"dblack_king", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare"}) +
      "</TD>\n</TR>\n</TABLE>\n<BR>\nBlack to move\n<BR>\nand win\n</BODY>\n\n</HTML>\n";
  EXPECT_EQ(DiagramText(g, "Black to move\r\nand win"), expected);

  // Unturned, a8 is the top left; without a comment the page ends after the table.
  g.Settings.BoardTurned = 0;
  const std::string plain = DiagramText(g, "");
  EXPECT_NE(plain.find("<TD>\n" + Row({"lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare",
                                        "dblack_king"})),
            std::string::npos);
  EXPECT_NE(plain.find(Row({"dwhite_man", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare", "dsquare", "lsquare"}) +
                       "</TD>\n</TR>\n</TABLE>\n</BODY>\n\n</HTML>\n"),
            std::string::npos);
}

TEST(Diagram, OnAllSixtyFourSquaresPiecesTakeTheColourOfTheirSquare) {
  Game g = EmptyBoard();
  g.RuleSet.PiecesOnBlack = 2;
  g.Settings.BoardTurned = 0;
  g.Board[91] = WhiteMan;   // a8, light
  g.Board[92] = BlackMan;   // b8, dark
  g.Board[93] = WhiteKing;  // c8, light
  g.Board[94] = BlackKing;  // d8, dark
  g.Board[95] = BlackMan;   // e8, light
  g.Board[96] = WhiteKing;  // f8, dark
  const std::string text = DiagramText(g, "");
  EXPECT_NE(text.find("<TD>\n" + Row({"lwhite_man", "dblack_man", "lwhite_king", "dblack_king", "lblack_man",
                                      "dwhite_king", "lsquare", "dsquare"})),
            std::string::npos)
      << text;
  // On one colour only, a piece keeps its dark picture whatever the square.
  EXPECT_EQ(DiagramPicture(WhiteMan, false, 1), "dwhite_man");
  EXPECT_EQ(DiagramPicture(BlackKing, false, 0), "dblack_king");
  EXPECT_EQ(DiagramPicture(0, false, 1), "lsquare");
  EXPECT_EQ(DiagramPicture(BlackKing, false, 2), "lblack_king");
}

TEST(Diagram, IsWrittenWithThePicturesItNeedsAndTheBoxSaysSo) {
  testing::TempFolder folder;
  Game g;
  g.DataFolder = QUORVANIS_TEST_DATA;
  ASSERT_TRUE(WriteDiagram(g, "", folder.path(), g.DataFolder));
  EXPECT_EQ(testing::ReadFileText(folder.path() / DiagramFileName), DiagramText(g, ""));
  for (const std::string& name : DiagramPictureNames())
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "pieces" / (name + ".bmp"))) << name;
  // A picture the user changed stays as it is.
  std::ofstream(folder.path() / "pieces" / "dsquare.bmp") << "mine";
  ASSERT_TRUE(WriteDiagram(g, "", folder.path(), g.DataFolder));
  EXPECT_EQ(testing::ReadFileText(folder.path() / "pieces" / "dsquare.bmp"), "mine");
}

TEST(GameLog, StartLineHeaderAndRowsWithTheirNumbers) {
  std::tm when{};
  when.tm_year = 126;
  when.tm_mon = 10;
  when.tm_mday = 23;
  when.tm_hour = 16;
  when.tm_min = 5;
  when.tm_sec = 9;
  EXPECT_EQ(LogStartLine(when), "Quorvanis 1.58   11/23/26  16:05:09");
  EXPECT_EQ(PlayerLogLine("  1. b6-a5", 0), "  1. b6-a5   0     ");
  EXPECT_EQ(PlayerLogLine("      c3xe5K", -40), "      c3xe5K  -40   ");
  EXPECT_EQ(ComputerLogLine("  2. d6-e5b", 35, 7, "d6-e5 g3-h4"), "  2. d6-e5b  35      7       d6-e5 g3-h4");
}

namespace {

class LoggedGameTest : public InteractionTest {
 protected:
  void SetUp() override {
    game->WritableFolder = folder.path();
    session.files = &files;
    game->Settings.DepthMode = 1;
    InteractionTest::SetUp();
  }
  void Type(const char* move) {
    screen.Text2 = move;
    EnterTypedMove(session);
  }
  testing::TempFolder folder;
  UserFiles files;
};

}  // namespace

TEST_F(LoggedGameTest, EveryHalfMoveIsLoggedUnderTheGamesHeaderAndTheRatingIsKeptAtExit) {
  Type("b6-a5");  // the computer answers
  ASSERT_EQ(game->HalfMoveCount, 2);
  ResignGame(session);
  CloseUserFiles(files, *game);
  const std::string log = testing::ReadFileText(folder.path() / GameLogFileName);
  std::vector<std::string> lines;
  for (std::size_t start = 0, end; (end = log.find('\n', start)) != std::string::npos; start = end + 1)
    lines.push_back(log.substr(start, end - start));
  ASSERT_GE(lines.size(), 9u) << log;
  EXPECT_EQ(lines[0], "");
  EXPECT_EQ(lines[1].rfind("Quorvanis 1.58   ", 0), 0u);
  EXPECT_EQ(lines[2], "");
  EXPECT_EQ(lines[3], "American Checkers");
  EXPECT_EQ(lines[4], "Black   White");
  EXPECT_EQ(lines[5], "      moves    score   depth    main");
  EXPECT_EQ(lines[6], "  1. b6-a5   0     ");
  // The computer's row with its score, depth and main line, then its iterations.
  EXPECT_EQ(lines[7].rfind(screen.List1[1] + "   ", 0), 0u) << lines[7];
  EXPECT_EQ(lines[8].rfind(std::string(15, ' ') + "D: 1   B: ", 0), 0u) << lines[8];
  // The rating the resignation left is what the next start reads.
  UserFiles next;
  Game fresh;
  fresh.WritableFolder = folder.path();
  OpenUserFiles(next, fresh);
  EXPECT_EQ(fresh.Rating.PlayerRating, game->Rating.PlayerRating);
  EXPECT_LT(fresh.Rating.PlayerRating, FirstRating);
}

}  // namespace qv

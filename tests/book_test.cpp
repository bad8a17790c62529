#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "book_fixture.h"
#include "core/fatal.h"
#include "engine/driver.h"
#include "interaction_fixture.h"
#include "interaction/movelist.h"

namespace qv {

namespace {

using testing::BookFolder;
using testing::PlayBookMove;

const std::string AmericanStart =
    "Variant=American Checkers\n"
    "Setup=1010101001010101101010100000000000000000020202022020202002020202\n";

// A small American book: a fork after 11-15 23-19, a move the book knows but
// never proposes (10-14), and names from general to specific.
const std::string SmallTree =
    "start\n"
    "1115b2319w0811b2217w\n"
    "               2623w\n"
    "          0914b2217w\n"
    "     2218w1522b\n"
    "0913b\n"
    "1014.2217w\n"
    "names\n"
    "1115'Eleven-Fifteen'\n"
    "1115 2319'Main'\n"
    "1115 2319 0811 2623'Nailor'\n"
    "1115 2218'Single Corner'\n"
    "end\n";

std::string Book(const std::string& sections) { return std::string(BookHeader) + BookVersion + "\n" + sections; }

std::set<std::string> Candidates(const BookAnswer& a) { return {a.BookCandidates.begin(), a.BookCandidates.end()}; }

BookAnswer Lookup(Game& g, int mode = 0) { return BookLookup(g, mode, g.Random); }

class BookTest : public ::testing::Test {
 protected:
  BookFolder folder;
};

}  // namespace

TEST(MirrorSquare, TurnsTheBoardHalfRound) {
  EXPECT_EQ(MirrorSquare(21), 98);  // a1 <-> h8
  EXPECT_EQ(MirrorSquare(43), 76);  // c3 <-> f6
  EXPECT_EQ(MirrorSquare(MirrorSquare(54)), 54);
}

TEST_F(BookTest, NoBookFileSaysNothing) {
  auto g = folder.StartGame("American Checkers");
  const BookAnswer a = Lookup(*g, 1);
  EXPECT_TRUE(a.BookCandidates.empty());
  EXPECT_TRUE(a.MessageText.empty());
  EXPECT_EQ(a.BookMoveFrom, 0);
}

TEST_F(BookTest, RefusesAFileThatIsNoBookOrOfAnotherVersion) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", "QUORVANIS Versions 0.89\n" + AmericanStart + "start\n1115b\nend\n");
  BookAnswer a = Lookup(*g, 1);
  EXPECT_EQ(a.MessageCaption, "Quorvanis");
  EXPECT_EQ(a.MessageText, "American Checkers.BOK is not an Quorvanis Book file");
  EXPECT_EQ(a.BookMoveFrom, 0);

  folder.WriteBook("American Checkers", "QUORVANIS Version=0.88\n" + AmericanStart + "start\n1115b\nend\n");
  a = Lookup(*g, 1);
  EXPECT_EQ(a.MessageCaption, "Error");
  EXPECT_EQ(a.MessageText, "Incorrect version of American Checkers.BOK\r\nNeed version 0.89");

  // The version is read as a number: trailing text and a file from Windows are fine.
  folder.WriteBook("American Checkers", "QUORVANIS Version=0.890 beta\r\n" + AmericanStart + "start\r\n1115b\r\nend\r\n");
  EXPECT_EQ(Candidates(Lookup(*g)), std::set<std::string>{"1115"});
}

TEST_F(BookTest, ASectionMustMatchEveryRuleTheSetupAndTheMovement) {
  auto g = folder.StartGame("American Checkers");
  const std::string sections =
      // Wrong rules, set-up, variant, promotion squares, movement: none is read.
      AmericanStart + "MaxCapMove=1\nstart\n0914b\nend\n" +
      "Variant=American Checkers\nSetup=1010101001010101101010100000000000000000020202022020202002020200\n"
      "start\n1014b\nend\n" +
      "Variant=Pool Checkers\nSetup=1010101001010101101010100000000000000000020202022020202002020202\nstart\n"
      "1015b\nend\n" +
      AmericanStart + "PromoW=B8D8F8\nstart\n1116b\nend\n" + AmericanStart +
      "WhiteManMovement=NW;NE NW;NE;SE;SW\nstart\n1216b\nend\n" +
      // The section of the game, its keys written out.
      AmericanStart +
      "MulJumps=1\nMaxCapMove=0\nBlackStarts=1\nPromoW=B8D8F8H8\nPromoB=A1C1E1G1\nPiecesOnBlack=1\n"
      "WhiteManMovement=NW;NE NW;NE\nBlackKingMovement=NW;NE;SE;SW NW;NE;SE;SW\nstart\n1115b\nend\n";
  folder.WriteBook("American Checkers", Book(sections));
  EXPECT_EQ(Candidates(Lookup(*g)), std::set<std::string>{"1115"});

  // A variant whose section is missing has no book moves.
  folder.WriteBook("American Checkers", Book(AmericanStart + "KingCapMove=1\nstart\n1115b\nend\n"));
  EXPECT_TRUE(Lookup(*g).BookCandidates.empty());
}

TEST_F(BookTest, FirstMovesComeFromTheMarksOfTheLines) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", Book(AmericanStart + SmallTree));
  const BookAnswer a = Lookup(*g);
  EXPECT_EQ(Candidates(a), (std::set<std::string>{"1115", "0913"}));  // 10-14 is known, not proposed
  EXPECT_EQ(a.InBook, 0);
  EXPECT_EQ(a.OpeningName, "");
}

TEST_F(BookTest, FollowsThePrefixCompressedTree) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", Book(AmericanStart + SmallTree));
  ASSERT_TRUE(PlayBookMove(*g, "1115"));
  BookAnswer a = Lookup(*g);
  EXPECT_EQ(a.InBook, 1);
  EXPECT_EQ(a.BookCandidates.size(), 2u);  // an inherited move is not counted twice
  EXPECT_EQ(Candidates(a), (std::set<std::string>{"2319", "2218"}));
  EXPECT_EQ(a.OpeningName, "Eleven-Fifteen");

  ASSERT_TRUE(PlayBookMove(*g, "2319"));
  a = Lookup(*g);
  EXPECT_EQ(Candidates(a), (std::set<std::string>{"0811", "0914"}));
  EXPECT_EQ(a.OpeningName, "Main");

  ASSERT_TRUE(PlayBookMove(*g, "0811"));
  EXPECT_EQ(Candidates(Lookup(*g)), (std::set<std::string>{"2217", "2623"}));

  // Out of the book: the game is not in it, and the name stays the last that fits.
  ASSERT_TRUE(PlayBookMove(*g, "2420"));
  a = Lookup(*g);
  EXPECT_EQ(a.InBook, 0);
  EXPECT_TRUE(a.BookCandidates.empty());
  EXPECT_EQ(a.OpeningName, "Main");
}

TEST_F(BookTest, ModeOneChoosesEveryCandidateAndNamesTheLineItLeadsTo) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", Book(AmericanStart + SmallTree));
  for (const char* move : {"1115", "2319", "0811"}) ASSERT_TRUE(PlayBookMove(*g, move));
  std::set<int> fromCells;
  for (int i = 0; i < 60; ++i) {
    const BookAnswer a = Lookup(*g, 1);
    fromCells.insert(a.BookMoveFrom);
    if (a.BookMoveFrom == SquareNumber("26", 1, 1)) {
      EXPECT_EQ(a.BookMoveTo, SquareNumber("23", 1, 1));
      EXPECT_EQ(a.OpeningName, "Nailor");
    } else {
      EXPECT_EQ(a.BookMoveTo, SquareNumber("17", 1, 1));
      EXPECT_EQ(a.OpeningName, "Main");
    }
  }
  EXPECT_EQ(fromCells, (std::set<int>{SquareNumber("22", 1, 1), SquareNumber("26", 1, 1)}));
}

TEST_F(BookTest, ElevenMovesAtANodeAreAllowedATwelfthIsFatal) {
  auto g = folder.StartGame("American Checkers");
  std::string lines;
  for (int i = 0; i < BookCandidateSlots; ++i) lines += "1115b\n";
  folder.WriteBook("American Checkers", Book(AmericanStart + "start\n" + lines + "end\n"));
  EXPECT_EQ(Lookup(*g).BookCandidates.size(), 11u);
  folder.WriteBook("American Checkers", Book(AmericanStart + "start\n" + lines + "0913b\nend\n"));
  try {
    Lookup(*g);
    FAIL() << "a twelfth move was accepted";
  } catch (const FatalError& e) {
    EXPECT_STREQ(e.what(), "Error found! Quorvanis will exit");
  }
}

TEST_F(BookTest, ANameLineWithoutQuoteIsFatal) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", Book(AmericanStart + "start\n1115b\nnames\n1115 Old\nend\n"));
  EXPECT_THROW(Lookup(*g), FatalError);
}

TEST_F(BookTest, TheAmericanBookServesOtherVariantsTurnedRound) {
  folder.WriteBook("American Checkers", Book(AmericanStart + "KingCapMove=1\n" + SmallTree));
  auto russian = folder.StartGame("Russian Checkers");
  EXPECT_TRUE(Lookup(*russian).BookCandidates.empty());  // its own book is missing
  russian->Settings.AmericanBookForOthers = 1;
  // White begins in Russian: 11-15 of the book is c3-d4 seen from the other side.
  BookAnswer a = Lookup(*russian, 1);
  ASSERT_FALSE(a.BookCandidates.empty());
  // 11-15 and 9-13 of the book are c3-d4 and g3-h4 here.
  EXPECT_TRUE(a.BookMoveFrom == SquareNumber("C3", 0, 1) || a.BookMoveFrom == SquareNumber("G3", 0, 1))
      << a.BookMoveFrom;
  ASSERT_TRUE(testing::PlayCells(*russian, SquareNumber("C3", 0, 1), SquareNumber("D4", 0, 1)));
  a = Lookup(*russian, 0);
  EXPECT_EQ(a.OpeningName, "Eleven-Fifteen");
  // 23-19 and 22-18 of the book, as Black plays them here.
  std::set<std::pair<int, int>> moves;
  for (const std::string& m : a.BookCandidates)
    moves.insert({SquareNumber(m.substr(0, 2), 1, 1), SquareNumber(m.substr(2, 2), 1, 1)});
  EXPECT_EQ(moves, (std::set<std::pair<int, int>>{{SquareNumber("F6", 0, 1), SquareNumber("E5", 0, 1)},
                                                  {SquareNumber("D6", 0, 1), SquareNumber("C5", 0, 1)}}));

  // Another start position finds no section.
  auto italian = folder.StartGame("Italian Checkers");
  italian->Settings.AmericanBookForOthers = 1;
  EXPECT_TRUE(Lookup(*italian).BookCandidates.empty());
}

namespace {

struct SilentUi : DriverUi {
  std::string calculation, box;
  std::vector<std::string> calculations;
  void SetCalculation(const std::string& text) override {
    calculation = text;
    calculations.push_back(text);
  }
  void ShowMessage(const std::string& caption, const std::string& text) override { box = caption + ": " + text; }
};

}  // namespace

TEST_F(BookTest, TheComputerPlaysABookMoveAfterOneIteration) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", Book(AmericanStart + SmallTree));
  g->Settings.DepthMode = 1;
  g->Settings.DepthLimit = 8;
  SilentUi ui;
  TurnReport turn = ComputerMove(*g, ui);
  ASSERT_TRUE(turn.moved);
  EXPECT_TRUE(turn.fromBook);
  EXPECT_EQ(turn.depth, 1);
  EXPECT_EQ(turn.mainLine, "Book");
  // "Book" under the best move while it thinks, and as the main line after.
  EXPECT_TRUE(std::any_of(ui.calculations.begin(), ui.calculations.end(), [](const std::string& text) {
    return text.size() > 6 && text.substr(text.size() - 6) == "\r\nBook";
  }));
  EXPECT_EQ(ui.calculation.substr(ui.calculation.size() - 10), "Main: Book");
  EXPECT_TRUE(turn.move == "f6-e5" || turn.move == "b6-a5") << turn.move;
  EXPECT_EQ(g->BookMoveFrom, 0);  // cleared at the end of the turn

  // The book off: the search decides.
  g->Settings.OpeningBook = 0;
  g->Settings.DepthLimit = 2;
  turn = ComputerMove(*g, ui);
  EXPECT_FALSE(turn.fromBook);
  EXPECT_NE(turn.mainLine, "Book");
}

TEST_F(BookTest, AnIllegalBookMoveIsDroppedAndTheSearchPlays) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", Book(AmericanStart + "start\n1120b\nend\n"));
  g->Settings.DepthMode = 1;
  g->Settings.DepthLimit = 2;
  SilentUi ui;
  const TurnReport turn = ComputerMove(*g, ui);
  EXPECT_TRUE(turn.moved);
  EXPECT_FALSE(turn.fromBook);
  EXPECT_EQ(turn.depth, 2);
}

TEST_F(BookTest, ABrokenBookIsShownWhenTheComputerAsks) {
  auto g = folder.StartGame("American Checkers");
  folder.WriteBook("American Checkers", "not a book\n");
  g->Settings.DepthMode = 1;
  g->Settings.DepthLimit = 1;
  SilentUi ui;
  EXPECT_TRUE(ComputerMove(*g, ui).moved);
  EXPECT_EQ(ui.box, "Quorvanis: American Checkers.BOK is not an Quorvanis Book file");
}

class BookListsTest : public InteractionTest {
 protected:
  BookFolder folder;
};

TEST_F(BookListsTest, BookMovesAndTheOpeningNameAreShownBesideTheBoard) {
  folder.WriteBook("American Checkers", Book(AmericanStart + SmallTree));
  game->DataFolder = folder.Root();
  RefreshMoveChoices(session);
  std::set<std::string> marked;
  for (const std::string& row : screen.List2)
    if (row.back() == 'b') marked.insert(row);
  EXPECT_EQ(marked, (std::set<std::string>{"f6-e5b", "b6-a5b"}));  // 11-15 and 9-13

  // The player plays 11-15 from the list; the computer answers from the book.
  const auto row = std::find(screen.List2.begin(), screen.List2.end(), "f6-e5b");
  ClickLegalMove(session, static_cast<int>(row - screen.List2.begin()));
  ASSERT_EQ(screen.List1.size(), 2u);
  EXPECT_EQ(screen.List1[0], "  1. f6-e5b");
  EXPECT_EQ(screen.List1[1].back(), 'b');
  EXPECT_TRUE(screen.OpeningNameShown == "Main" || screen.OpeningNameShown == "Single Corner")
      << screen.OpeningNameShown;
}

}  // namespace qv

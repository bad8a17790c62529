// Every book the program ships: its section fits its variant, every line
// replays legally from the start and stays in the book, no position proposes
// more than eleven moves, and every name is given where its line leads.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "book_fixture.h"

namespace qv {

namespace {

namespace fs = std::filesystem;
using testing::ShippedDataFolder;

struct ShippedBook {
  std::string variant;
  std::vector<std::string> variantLines;  // the Variant= line of each section
  std::vector<std::string> lines;         // the move lines, expanded
  std::vector<std::string> names;
};

ShippedBook ReadShippedBook(const fs::path& path) {
  ShippedBook book{path.stem().string(), {}, {}, {}};
  std::ifstream in(path, std::ios::binary);
  std::string line, kept;
  enum { Rules, Moves, Names } part = Rules;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.rfind("Variant=", 0) == 0) book.variantLines.push_back(line);
    if (line == "start") part = Moves;
    else if (line == "names") part = Names;
    else if (line == "end") part = Rules;
    else if (part == Moves) {
      const std::size_t first = line.find_first_not_of(' ');
      kept = kept.substr(0, first) + line.substr(first);
      book.lines.push_back(kept);
    } else if (part == Names) {
      book.names.push_back(line);
    }
  }
  return book;
}

std::vector<fs::path> ShippedBooks() {
  std::vector<fs::path> books;
  for (const auto& entry : fs::directory_iterator(ShippedDataFolder / "books"))
    if (entry.path().extension() == ".bok") books.push_back(entry.path());
  std::sort(books.begin(), books.end());
  return books;
}

std::unique_ptr<Game> StartShipped(const std::string& variant) {
  auto g = std::make_unique<Game>();
  g->DataFolder = ShippedDataFolder;
  g->Random.SetFixedSeed(5);
  StartVariant(*g, variant);
  return g;
}

// Plays a line from the start, checking at each move that the game is in
// the book and the move is proposed to its side. The first fault, or "".
std::string ReplayLine(const std::string& variant, const std::string& line) {
  if (line.size() % 5 != 0) return "the line is not made of groups of five";
  auto g = StartShipped(variant);
  for (std::size_t at = 0; at < line.size(); at += 5) {
    const std::string move = line.substr(at, 4), where = " at move " + std::to_string(at / 5 + 1);
    const BookAnswer answer = BookLookup(*g, 0, g->Random);
    if (answer.InBook != (at == 0 ? 0 : 1)) return "not in the book" + where;
    if (answer.BookCandidates.size() > static_cast<std::size_t>(BookCandidateSlots)) return "too many moves" + where;
    const char side = g->SideToMove == 1 ? 'w' : 'b';
    const bool proposed =
        std::find(answer.BookCandidates.begin(), answer.BookCandidates.end(), move) != answer.BookCandidates.end();
    if (line[at + 4] == side && !proposed) return move + " is not proposed" + where;
    if (line[at + 4] != side && line[at + 4] != '.') return move + " is marked for the side not to move" + where;
    if (!testing::PlayBookMove(*g, move)) return move + " is illegal" + where;
  }
  return BookLookup(*g, 0, g->Random).InBook == 1 ? "" : "the end of the line is not in the book";
}

}  // namespace

TEST(ShippedBooks, TheFourMainBooksAreThere) {
  for (const char* variant : {"American Checkers", "Russian Checkers", "Italian Checkers"})
    EXPECT_TRUE(fs::exists(ShippedDataFolder / "books" / (std::string(variant) + ".bok"))) << variant;
}

TEST(ShippedBooks, EveryLineReplaysLegallyAndStaysInTheBook) {
  for (const fs::path& path : ShippedBooks()) {
    const ShippedBook book = ReadShippedBook(path);
    SCOPED_TRACE(book.variant);
    EXPECT_EQ(book.variantLines, std::vector<std::string>{"Variant=" + book.variant});
    ASSERT_FALSE(book.lines.empty());
    // The section fits the variant's rules: the book proposes first moves.
    auto start = StartShipped(book.variant);
    EXPECT_FALSE(BookLookup(*start, 0, start->Random).BookCandidates.empty());

    for (const std::string& line : book.lines) EXPECT_EQ(ReplayLine(book.variant, line), "") << line;
  }
}

TEST(ShippedBooks, EveryNameIsGivenWhereItsLineLeads) {
  for (const fs::path& path : ShippedBooks()) {
    const ShippedBook book = ReadShippedBook(path);
    SCOPED_TRACE(book.variant);
    EXPECT_FALSE(book.names.empty());
    for (const std::string& line : book.names) {
      SCOPED_TRACE(line);
      const std::size_t quote = line.find('\'');
      EXPECT_NE(quote, std::string::npos);
      EXPECT_EQ(line.back(), '\'');
      if (quote == std::string::npos || line.size() < quote + 3) continue;
      const std::string name = line.substr(quote + 1, line.size() - quote - 2);
      auto g = StartShipped(book.variant);
      std::istringstream moves(line.substr(0, quote));
      std::string move;
      bool legal = true;
      while (legal && moves >> move) legal = testing::PlayBookMove(*g, move);
      EXPECT_TRUE(legal) << move;
      const BookAnswer answer = BookLookup(*g, 0, g->Random);
      EXPECT_EQ(answer.InBook, 1);
      EXPECT_EQ(answer.OpeningName, name);
    }
  }
}

}  // namespace qv

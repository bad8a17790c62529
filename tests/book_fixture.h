#pragma once
// A data folder of its own for book tests: the shipped variant files it
// needs, and books written by the test.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/newgame.h"
#include "core/text.h"
#include "files/book.h"

namespace qv::testing {

inline const std::filesystem::path ShippedDataFolder = QUORVANIS_TEST_DATA;

class BookFolder {
 public:
  BookFolder() {
    std::random_device seed;
    root_ = std::filesystem::temp_directory_path() / ("quorvanis-book-" + std::to_string(seed()));
    std::filesystem::create_directories(root_ / "books");
    std::filesystem::create_directories(root_ / "variants");
  }
  ~BookFolder() {
    std::error_code ec;
    std::filesystem::remove_all(root_, ec);
  }
  BookFolder(const BookFolder&) = delete;
  BookFolder& operator=(const BookFolder&) = delete;

  const std::filesystem::path& Root() const { return root_; }

  void WriteBook(const std::string& variant, const std::string& text) const {
    std::ofstream(root_ / "books" / (variant + ".bok"), std::ios::binary) << text;
  }

  // A new game of a shipped variant whose book is read from this folder.
  std::unique_ptr<Game> StartGame(const std::string& variant, unsigned seed = 3) const {
    std::filesystem::copy_file(ShippedDataFolder / "variants" / (variant + ".ini"),
                               root_ / "variants" / (variant + ".ini"),
                               std::filesystem::copy_options::overwrite_existing);
    auto g = std::make_unique<Game>();
    g->DataFolder = root_;
    g->Random.SetFixedSeed(seed);
    StartVariant(*g, variant);
    return g;
  }

 private:
  std::filesystem::path root_;
};

// Plays the legal move between two cells and enters it in the game record,
// as the computer's turn does. False when there is no such move.
inline bool PlayCells(Game& g, int from, int to) {
  GenerateLegalMoves(g);
  const int first = g.PlyBase[g.Ply], end = g.PlyBase[g.Ply + 1];
  for (int i = first; i < end; ++i) {
    if (g.MoveStack[i].FromSquare != from || g.MoveStack[i].ToSquare != to) continue;
    g.MoveStack[0] = g.MoveStack[i];
    g.PlyBase[0] = 0;
    g.PlyBase[1] = 1;
    MakeSearchMove(g, 0);
    CommitRootPly(g);
    EnterMoveInRecord(g, 0, end - first);
    return true;
  }
  return false;
}

// A move in book form ("1115", "c3d4") played on the game.
inline bool PlayBookMove(Game& g, const std::string& move) {
  const int pob = g.RuleSet.PiecesOnBlack;
  const auto cell = [pob](const std::string& square) {
    return pob >= 2 ? SquareNumber(ToUpper(square), 0, pob) : SquareNumber(std::to_string(std::stoi(square)), 1, pob);
  };
  return PlayCells(g, cell(move.substr(0, 2)), cell(move.substr(2, 2)));
}

}  // namespace qv::testing

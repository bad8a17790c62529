#pragma once
// A temporary folder for PDN files and a game that reads the shipped variants.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/movegen.h"
#include "core/newgame.h"
#include "core/text.h"
#include "files/pdn_read.h"
#include "files/pdn_replay.h"
#include "files/pdn_source.h"

namespace qv {

class PdnTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() /
             ("quorvanis-pdn-" + std::to_string(::getpid()) + "-" +
              ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder);
    game = NewTestGame();
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  static std::unique_ptr<Game> NewTestGame() {
    auto g = std::make_unique<Game>();
    g->Random.SetFixedSeed(3);
    g->DataFolder = QUORVANIS_TEST_DATA;
    NewGame(*g);
    return g;
  }

  std::filesystem::path Write(const std::string& name, const std::string& bytes) {
    const std::filesystem::path file = folder / name;
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }
  std::string ReadBack(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

  // Opens the file and loads game `number` into `g`; the open's status must be Read.
  PdnLoadResult Load(Game& g, const std::filesystem::path& file, int number = 1, PdnLoadChoice choice = {}) {
    const PdnOpenResult open = OpenPdnFile(file, folder);
    EXPECT_EQ(open.Status, PdnOpenStatus::Read) << open.Message;
    if (open.Status != PdnOpenStatus::Read) return {};
    return ReadPdnGame(g, open.Collection, number, choice);
  }
  PdnLoadResult LoadText(const std::string& text, int number = 1, PdnLoadChoice choice = {}) {
    return Load(*game, Write("game.pdn", text), number, choice);
  }

  // Plays `count` legal moves, taking move (k * 7) mod n of each position
  // so that games wander; stops early when a side cannot move.
  static void PlaySomeMoves(Game& g, int count) {
    for (int k = 0; k < count; ++k) {
      GenerateLegalMoves(g);
      const int n = g.PlyBase[g.Ply + 1] - g.PlyBase[g.Ply];
      if (n == 0) return;
      const MoveRecord& m = g.MoveStack[g.PlyBase[g.Ply] + (k * 7) % n];
      const int kind = g.Settings.NotationKind;
      auto square = [kind](int cell) {
        std::string t = ToUpper(SquareNotation(cell, 1, kind));
        return t.size() == 1 ? " " + t : t;
      };
      const std::string text = m.FromSquare == DropSource ? square(m.ToSquare) : square(m.FromSquare) + square(m.ToSquare);
      ASSERT_TRUE(ReplayLoadedMove(g, text)) << text;
    }
  }

  std::filesystem::path folder;
  std::unique_ptr<Game> game;
};

}  // namespace qv

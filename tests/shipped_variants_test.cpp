#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/newgame.h"
#include "core/perft.h"
#include "files/variantfile.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

const fs::path ShippedData = QUORVANIS_TEST_DATA;

struct Shipped {
  std::string name;
  int useClassic;
};

std::vector<Shipped> AllShipped() {
  std::vector<Shipped> all;
  for (int useClassic : {1, 0})
    for (const std::string& name : FillVariantList(VariantFolder(ShippedData, useClassic)))
      all.push_back({name, useClassic});
  return all;
}

// GenerateLegalMoves against its two steps made one after the other.
bool SameAsTwoSteps(Game& g) {
  GenerateLegalMoves(g);
  std::vector<MoveRecord> oneWalk(&g.MoveStack[g.PlyBase[g.Ply]], &g.MoveStack[g.PlyBase[g.Ply]] + (g.PlyBase[g.Ply + 1] - g.PlyBase[g.Ply]));
  GenerateMoves(g, 0);
  if (g.PlyBase[g.Ply + 1] <= g.PlyBase[g.Ply]) GenerateMoves(g, 1);
  if (static_cast<int>(oneWalk.size()) != g.PlyBase[g.Ply + 1] - g.PlyBase[g.Ply]) return false;
  for (std::size_t i = 0; i < oneWalk.size(); ++i) {
    const MoveRecord& a = oneWalk[i];
    const MoveRecord& b = g.MoveStack[g.PlyBase[g.Ply] + static_cast<int>(i)];
    if (a.FromSquare != b.FromSquare || a.ToSquare != b.ToSquare || a.PromoteFlag != b.PromoteFlag ||
        a.OrderScore != b.OrderScore || std::memcmp(a.CaptureText.Cells, b.CaptureText.Cells, CaptureTextSize) != 0)
      return false;
  }
  return true;
}

std::unique_ptr<Game> StartShipped(const Shipped& v, unsigned seed = 7) {
  auto g = std::make_unique<Game>();
  g->DataFolder = ShippedData;
  g->Settings.UseClassic = v.useClassic;
  g->Random.SetFixedSeed(seed);
  StartVariant(*g, v.name);
  return g;
}

std::string ReadWhole(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

TEST(ShippedVariants, EveryNamedVariantHasAFile) {
  std::vector<std::string> names(VariantNumberTable().begin() + 1, VariantNumberTable().end());
  for (const char* extra : {"International Checkers", "American Pool Checkers", "Brazilian Checkers",
                            "Canadian Checkers", "Frisian Checkers"})
    names.push_back(extra);
  const std::vector<std::string> files = FillVariantList(VariantFolder(ShippedData, 1));
  for (const std::string& name : names)
    EXPECT_NE(std::find(files.begin(), files.end(), name), files.end()) << name;
  EXPECT_GE(FillVariantList(VariantFolder(ShippedData, 0)).size(), 3u);
}

TEST(ShippedVariants, EveryFileWritesOutEveryKey) {
  for (const Shipped& v : AllShipped()) {
    const std::string text = ReadWhole(VariantFolder(ShippedData, v.useClassic) / (v.name + ".ini"));
    std::vector<std::string> keys = {"Setup=", "PromoW=", "PromoB=", "WhiteManMovement=", "BlackManMovement=",
                                     "WhiteKingMovement=", "BlackKingMovement=", "Help=", "HelpLink="};
    for (const RuleField& field : RuleFields()) keys.push_back(std::string(field.name) + "=");
    for (const std::string& key : keys) EXPECT_NE(text.find("\n" + key), std::string::npos) << v.name << ": " << key;
    EXPECT_TRUE(text.ends_with("\nEND\n")) << v.name;
  }
}

TEST(ShippedVariants, LoadWithHelpAndTheirSearchFlavour) {
  const std::map<std::string, int> fast = {{"American Checkers", 1},      {"Italian Checkers", 2},
                                           {"Brazilian Checkers", 3},     {"International Checkers", 3},
                                           {"Canadian Checkers", 3},      {"Russian Checkers", 4}};
  for (const Shipped& v : AllShipped()) {
    auto g = StartShipped(v);
    EXPECT_EQ(g->VariantLabel, v.name);
    EXPECT_FALSE(g->HelpText.empty()) << v.name;
    EXPECT_EQ(g->HelpText.find("\r\n\r\n"), std::string::npos) << v.name;
    const auto it = fast.find(v.name);
    EXPECT_EQ(g->Flags.SearchFlavour, it == fast.end() || v.useClassic == 0 ? 0 : it->second) << v.name;
    EXPECT_GT(g->PlyBase[1], 0) << v.name << " has no first move";
  }
}

// Every shipped variant plays random legal moves to the end of the game or to
// a cap, and its move tree to depth 4 can be walked with both generators.
TEST(ShippedVariants, PlayRandomGamesAndPerft) {
  for (const Shipped& v : AllShipped()) {
    SCOPED_TRACE(v.name);
    for (unsigned seed : {1u, 2u}) {
      auto g = StartShipped(v, seed);
      auto playRandomGame = [&g] {
        for (int halfMove = 0; halfMove < 300; ++halfMove) {
          ASSERT_TRUE(SameAsTwoSteps(*g)) << "half-move " << halfMove;
          const int first = g->PlyBase[0], count = g->PlyBase[1] - first;
          if (count == 0) return;
          MakeSearchMove(*g, first + static_cast<int>(g->Rnd() * count));
          CommitRootPly(*g);
        }
      };
      ASSERT_NO_THROW(playRandomGame());
      EXPECT_EQ(g->Ply, 0);
    }
    auto g = StartShipped(v);
    const BoardCells start = g->Board;
    std::uint64_t general = 0, search = 0;
    ASSERT_NO_THROW(general = Perft(*g, 4, PerftGenerator::General));
    ASSERT_NO_THROW(search = Perft(*g, 4, PerftGenerator::Search));
    EXPECT_GT(general, 0u);
    EXPECT_EQ(general, search);
    // Only the squares: undoing ManKing writes the frame cell 0 on purpose.
    for (int cell = 21; cell <= 98; ++cell) EXPECT_EQ(g->Board[cell], start[cell]) << cell;
  }
}

}  // namespace qv

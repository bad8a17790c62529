// Rule numbers and texts at the edge of what the tables and 32-bit
// arithmetic hold: each ends in the program's own fatal words, never in a
// wrapped number or a stray index.
#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <functional>

#include "core/fatal.h"
#include "core/gameend.h"
#include "position_helpers.h"

namespace qv {

using testing::ApplyRules;
using testing::NewTestGame;
using testing::SetPosition;

namespace {

namespace fs = std::filesystem;

std::string FatalTextOf(const std::function<void()>& step) {
  try {
    step();
  } catch (const FatalError& e) {
    return e.what();
  }
  return "no fatal error";
}

// The American variant file with one line replaced, in a folder of its own.
class VariantLineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("quorvanis-limits-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::create_directories(folder_ / "variants");
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string StartWith(const std::string& key, const std::string& line) {
    std::ifstream in(fs::path(QUORVANIS_TEST_DATA) / "variants" / "American Checkers.ini");
    std::ofstream out(folder_ / "variants" / "Edited.ini");
    for (std::string text; std::getline(in, text);) out << (text.rfind(key, 0) == 0 ? line : text) << '\n';
    out.close();
    Game g;
    g.DataFolder = folder_;
    return FatalTextOf([&] { StartVariant(g, "Edited"); });
  }

  fs::path folder_;
};

const std::string GeneratorFatal =
    "\n\nFatal Error! Quorvanis will exit.\n\nTry to check 'Remove captured pieces after move'\nin the Variants "
    "dialog box.\n";

}  // namespace

TEST_F(VariantLineTest, RulesThatCannotStartAGameEndWithTheStartUpWords) {
  EXPECT_EQ(StartWith("WhiteManMovement=", "WhiteManMovement=NW;NE;N;S;E;W;NN;SS;EE NW;NE"), StartUpErrorText);
  EXPECT_EQ(StartWith("BlackKingMovement=", "BlackKingMovement=NW NW;NE;SE;SW;N;S;E;W;SS"), StartUpErrorText);
  EXPECT_EQ(StartWith("Setup=", "Setup="), StartUpErrorText);
  EXPECT_EQ(StartWith("Setup=", "Setup=Normal"), StartUpErrorText);
  EXPECT_EQ(StartWith("WhiteManMovement=", "WhiteManMovement=NW;NE;N;S;E;W;NN;SS NW;NE"), "no fatal error");
}

TEST(DropStep, RowNumbersThatOverflowAreTheGeneratorsFatalError) {
  auto g = NewTestGame();
  const auto dropWith = [&](int w1, int w2, int b1, int b2, int side) {
    RuleRecord r;
    r.canContract = 1;
    r.ContractNumber = 1;
    r.ContractW1 = w1;
    r.ContractW2 = w2;
    r.ContractB1 = b1;
    r.ContractB2 = b2;
    ApplyRules(*g, r);
    SetPosition(*g, {{"A1", WhiteMan}, {"H8", BlackMan}}, side);
    return FatalTextOf([&] { GenerateMoves(*g, 1); });
  };
  EXPECT_EQ(dropWith(2, 3, 9, 8, 1), "no fatal error");
  EXPECT_EQ(dropWith(300000000, 3, 9, 8, 1), "X=-1   K=0" + GeneratorFatal);
  EXPECT_EQ(dropWith(2, INT_MIN, 9, 8, 1), "X=-1   K=0" + GeneratorFatal);
  EXPECT_EQ(dropWith(2, 60, 9, 8, 1), "X=-1   K=0" + GeneratorFatal);  // the cell tested lies off the board
  EXPECT_EQ(dropWith(2, 3, -300000000, 8, -1), "X=-1   K=0" + GeneratorFatal);
  EXPECT_EQ(dropWith(2, 3, 9, INT_MIN, -1), "X=-1   K=0" + GeneratorFatal);
}

TEST(DrawRules, KingsOnlyMoveCountsThatCannotBeDoubledAreFatal) {
  auto g = NewTestGame();
  RuleRecord r;
  r.ThreeKings = 1;
  r.NumberKings = 1500000000;
  ApplyRules(*g, r);
  SetPosition(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"E1", WhiteKing}, {"H8", BlackKing}}, 1);
  EXPECT_EQ(FatalTextOf([&] { UpdateDrawReason(*g); }), FatalErrorText);
  r.NumberKings = 15;
  ApplyRules(*g, r);
  EXPECT_EQ(FatalTextOf([&] { UpdateDrawReason(*g); }), "no fatal error");

  r.TwoKings = 1;
  r.NumberKings2 = INT_MAX;
  ApplyRules(*g, r);
  SetPosition(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"H8", BlackKing}}, 1);
  EXPECT_EQ(FatalTextOf([&] { UpdateDrawReason(*g); }), FatalErrorText);
}

}  // namespace qv

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "cli_run.h"

namespace {

using RunResult = qv::testing::CliRun;

RunResult RunCli(const std::string& arguments) { return qv::testing::RunCliTool(arguments); }

}  // namespace

TEST(CliShow, PrintsTheAmericanStartPosition) {
  const RunResult r = RunCli("show");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.output.find("Setup: 1010101001010101101010100000000000000000020202022020202002020202"),
            std::string::npos);
  EXPECT_NE(r.output.find("SearchFlavour: 1"), std::string::npos);
  EXPECT_NE(r.output.find("Side to move: Black"), std::string::npos);
  EXPECT_NE(r.output.find("8  . b . b . b . b"), std::string::npos) << r.output;
  EXPECT_NE(r.output.find("1  w . w . w . w ."), std::string::npos) << r.output;
}

TEST(CliShow, TakesASetupAndSide) {
  const std::string setup = "3000000000000000000000000000000000000000000000000000000000000004";
  const RunResult r = RunCli("--setup " + setup + " --side white show");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.output.find("Setup: " + setup), std::string::npos);
  EXPECT_NE(r.output.find("Side to move: White"), std::string::npos);
  EXPECT_NE(r.output.find("1  W"), std::string::npos) << r.output;
}

TEST(CliOptions, BadInputNamesTheValueAndExitsWithTwo) {
  struct Case {
    const char* arguments;
    const char* named;
  } cases[] = {
      {"--frobnicate show", "--frobnicate"},
      {"--setup 123 show", "123"},
      {"--setup 1010101001010101101010100000000000000000020202022020202002020209 show", "0209"},
      {"--side green show", "green"},
      {"--notation roman show", "roman"},
      {"--seed many show", "many"},
      {"dance", "dance"},
      {"play --time inf", "'inf' for --time: give seconds above 0, at most 180"},
      {"play --time 1e300", "'1e300' for --time"},
      {"play --time 0", "'0' for --time"},
      {"play --depth 40", "'40' for --depth: give a whole number of plies from 1 to 39"},
      {"play --depth 0", "'0' for --depth"},
      {"", "no command"},
  };
  for (const Case& c : cases) {
    const RunResult r = RunCli(c.arguments);
    EXPECT_EQ(r.status, 2) << c.arguments;
    EXPECT_NE(r.output.find(c.named), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("usage:"), std::string::npos) << r.output;
  }
}

TEST(CliMoves, ListsTheMovesAfterTheGivenOnes) {
  RunResult r = RunCli("--moves \"f6-g5 c3-d4 g5-h4 d4-e5\" moves");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.output, "d6xf4 [e5]\n");
  r = RunCli("--moves \"f6-g5 c3-d4 g5-h4 d4-e5\" moves --json");
  EXPECT_EQ(r.output, "[{\"from\":\"d6\",\"to\":\"f4\",\"captures\":[\"e5\"],\"crowns\":false}]\n");
  r = RunCli("--notation numeric --moves \"9-14 23-18\" moves");
  EXPECT_EQ(r.output, "14x23 [18]\n");
  r = RunCli("moves");
  EXPECT_EQ(r.output, "b6-c5\nb6-a5\nd6-e5\nd6-c5\nf6-g5\nf6-e5\nh6-g5\n");
}

TEST(CliMoves, AnIllegalMoveStopsWithItsText) {
  const RunResult r = RunCli("--moves \"f6-g5 c3-d5\" show");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.output, "c3-d5: Illegal move!\n");
}

TEST(CliMoves, MoreMovesThanTheRecordHoldsAreRefused) {
  std::string moves;
  for (int i = 0; i < 250; ++i) moves += "a1-b2 h8-g7 b2-a1 g7-h8 ";
  const std::string setup = "--setup 3000000000000000000000000000000000000000000000000000000000000004 --side white ";
  RunResult r = RunCli(setup + "--moves \"" + moves + "\" show");
  EXPECT_EQ(r.status, 0) << r.output;
  r = RunCli(setup + "--moves \"" + moves + "a1-b2\" show");
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.output.substr(0, r.output.find('\n')),
            "quorvanis-cli: too many moves in --moves: a game holds at most 1000 half-moves");
}

TEST(CliPerft, CountsAndDividesWithEitherGenerator) {
  RunResult r = RunCli("perft 5");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.output.find("perft 5: 7361"), std::string::npos);
  r = RunCli("perft 4 --general --divide");
  EXPECT_NE(r.output.find("b6-c5 "), std::string::npos);
  EXPECT_NE(r.output.find("perft 4: 1469"), std::string::npos);
  r = RunCli("perft many");
  EXPECT_EQ(r.status, 2);
}

TEST(CliPlay, PlaysBothSidesAndRepeatsWithTheSameSeed) {
  const RunResult first = RunCli("--seed 5 play --depth 3 --handicap 3 --max-moves 16");
  const RunResult second = RunCli("--seed 5 play --depth 3 --handicap 3 --max-moves 16");
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.output, second.output);
  EXPECT_NE(first.output.find("1. "), std::string::npos);
  EXPECT_NE(first.output.find("Stopped after 16 half-moves."), std::string::npos);
  const RunResult won = RunCli(
      "--setup 0030303000000000000000000000000000000000000000000000000000040000 --side white play --depth 8");
  EXPECT_NE(won.output.find("Computer wins!"), std::string::npos) << won.output;
  EXPECT_NE(won.output.find(" 1-0"), std::string::npos);
}

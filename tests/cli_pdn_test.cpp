#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "cli_run.h"

namespace {

using RunResult = qv::testing::CliRun;

RunResult RunCli(const std::string& arguments) { return qv::testing::RunCliTool(arguments); }

std::string Quoted(const std::filesystem::path& p) { return "\"" + p.string() + "\""; }

class CliPdn : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() / ("quorvanis-clipdn-" + std::to_string(::getpid()) + "-" +
                                                       ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::filesystem::path folder;
};

}  // namespace

TEST_F(CliPdn, LoadsTheChosenGameOfACollection) {
  const std::string openings = Quoted(std::filesystem::path(QUORVANIS_TEST_DATA) / "opening.pdn");
  const RunResult first = RunCli("--load " + openings + " show");
  EXPECT_EQ(first.status, 0) << first.output;
  EXPECT_NE(first.output.find("Side to move: White"), std::string::npos) << first.output;  // Alma: five half-moves
  const RunResult kelso = RunCli("--load " + openings + " --game 19 --notation numeric moves");
  EXPECT_EQ(kelso.status, 0) << kelso.output;
  EXPECT_EQ(kelso.output.find("10-15"), std::string::npos);  // Kelso's 10-15 is played: White to move
  EXPECT_NE(kelso.output.find("21-17"), std::string::npos) << kelso.output;

  const RunResult beyond = RunCli("--load " + openings + " --game 99 show");
  EXPECT_EQ(beyond.status, 1);
  EXPECT_NE(beyond.output.find("games"), std::string::npos) << beyond.output;
  // Anything but a .pdn is read as the program's own game file.
  EXPECT_EQ(RunCli("--load notes.txt show").status, 1);
  const RunResult missing = RunCli("--load " + Quoted(folder / "none.pdn") + " show");
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.output.find("none.pdn does not exist"), std::string::npos);
}

TEST_F(CliPdn, PlayedGameIsAppendedAndReadsBack) {
  const std::string file = Quoted(folder / "played.pdn");
  const RunResult played = RunCli("--seed 4 --moves \"f6-e5 c3-d4\" play --depth 2 --max-moves 10 --save " + file);
  ASSERT_EQ(played.status, 0) << played.output;
  ASSERT_EQ(RunCli("--seed 5 play --depth 2 --max-moves 6 --save " + file).status, 0);
  std::ifstream in(folder / "played.pdn", std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("1. 11-15 22-18 "), std::string::npos) << text;
  EXPECT_EQ(text.find("[Quorvanis"), std::string::npos);

  // Both games read back, each standing where its play stopped: twelve and six half-moves.
  const RunResult back = RunCli("--load " + file + " --moves \"1.\" show");
  EXPECT_EQ(back.status, 0) << back.output;
  EXPECT_NE(back.output.find("Side to move: Black"), std::string::npos) << back.output;
  const RunResult second = RunCli("--load " + file + " --game 2 show");
  EXPECT_EQ(second.status, 0) << second.output;
  EXPECT_NE(second.output.find("Side to move: Black"), std::string::npos) << second.output;

  // Any other name gets the program's own game file.
  const RunResult own = RunCli("play --depth 1 --max-moves 2 --save " + Quoted(folder / "x.qvn"));
  EXPECT_EQ(own.status, 0) << own.output;
  EXPECT_EQ(RunCli("--load " + Quoted(folder / "x.qvn") + " show").status, 0);
}

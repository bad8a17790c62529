#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace {

struct RunResult {
  int status;
  std::string output;
};

// Runs the command-line tool with the given arguments, stdout and stderr together.
RunResult RunCli(const std::string& arguments) {
  const std::string command = std::string(QUORVANIS_CLI) + " " + arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer;
  while (std::size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), n);
  const int status = pclose(pipe);
  return {WEXITSTATUS(status), output};
}

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
      {"", "no command"},
  };
  for (const Case& c : cases) {
    const RunResult r = RunCli(c.arguments);
    EXPECT_EQ(r.status, 2) << c.arguments;
    EXPECT_NE(r.output.find(c.named), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("usage:"), std::string::npos) << r.output;
  }
}

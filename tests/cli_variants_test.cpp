#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "cli_run.h"

namespace {

using RunResult = qv::testing::CliRun;

RunResult RunCli(const std::string& arguments) { return qv::testing::RunCliTool(arguments); }

bool Has(const RunResult& r, const std::string& text) { return r.output.find(text) != std::string::npos; }

}  // namespace

TEST(CliVariant, ReadsTheNamedFileFromEitherFolder) {
  RunResult r = RunCli("--variant 'Italian Checkers' show");
  EXPECT_EQ(r.status, 0);
  EXPECT_TRUE(Has(r, "Variant: Italian Checkers\n")) << r.output;
  EXPECT_TRUE(Has(r, "SearchFlavour: 2")) << r.output;
  EXPECT_TRUE(Has(r, "Side to move: White")) << r.output;

  r = RunCli("--variant 'Gothic Checkers' show");
  EXPECT_TRUE(Has(r, "Setup: 1111111111111111000000000000000000000000000000002222222222222222")) << r.output;

  r = RunCli("--user --variant 'My Flying Kings' show");
  EXPECT_EQ(r.status, 0);
  EXPECT_TRUE(Has(r, "Variant: My Flying Kings\n")) << r.output;
  // The user folder does not hold the classic files.
  r = RunCli("--user --variant 'Italian Checkers' show");
  EXPECT_EQ(r.status, 1);
}

TEST(CliVariant, AMissingFileEndsWithTheVariantMessage) {
  const RunResult r = RunCli("--variant 'No Such Variant' show");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.output, "Error found!\r\nPlease delete 'quorvanis.ini'.\r\n\r\nQuorvanis will exit\n");
}

TEST(CliVariants, ListsBothFoldersWithTheSearchFlavour) {
  const RunResult r = RunCli("variants");
  EXPECT_EQ(r.status, 0) << r.output;
  EXPECT_TRUE(Has(r, "classic variants")) << r.output;
  EXPECT_TRUE(Has(r, "  American Checkers: SearchFlavour 1\n")) << r.output;
  EXPECT_TRUE(Has(r, "  Russian Checkers: SearchFlavour 4\n")) << r.output;
  EXPECT_TRUE(Has(r, "  Brazilian Checkers: SearchFlavour 3\n")) << r.output;
  EXPECT_TRUE(Has(r, "user variants")) << r.output;
  EXPECT_TRUE(Has(r, "  Last Man Standing: SearchFlavour 0\n")) << r.output;
  EXPECT_LT(r.output.find("classic variants"), r.output.find("user variants"));
}

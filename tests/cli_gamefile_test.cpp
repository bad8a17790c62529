#include <gtest/gtest.h>

#include <string>

#include "cli_run.h"
#include "temp_folder.h"

namespace qv {

namespace {
using testing::RunCliTool;
using testing::TempFolder;

std::string Quoted(const std::filesystem::path& p) { return "'" + p.string() + "'"; }

std::string SetupLine(const std::string& output) {
  const std::size_t at = output.find("Setup: ");
  return at == std::string::npos ? "" : output.substr(at, 71);
}
}  // namespace

TEST(CliGameFile, APlayedGameSavedIsTheGameLoaded) {
  TempFolder folder;
  const std::filesystem::path file = folder / "played.qvn";
  const testing::CliRun play =
      RunCliTool("--seed 5 --variant 'Italian Checkers' play --depth 2 --max-moves 12 --save " + Quoted(file));
  ASSERT_EQ(play.status, 0) << play.output;
  ASSERT_TRUE(std::filesystem::exists(file));
  EXPECT_TRUE(testing::ReadFileText(file).starts_with("QUORVANIS Version=0.89\r\nVariant=*Italian Checkers*\r\n"));

  // The loaded game goes on from where the played one stopped: the same
  // position as the twelve moves given by hand.
  const std::string movetext = play.output.substr(play.output.rfind("1. "));
  std::string moves;
  for (std::size_t at = 0; at < movetext.size() && movetext[at] != '*';) {
    const std::size_t end = movetext.find(' ', at);
    moves += movetext.substr(at, end - at) + " ";
    at = end + 1;
  }
  const testing::CliRun loaded = RunCliTool("--load " + Quoted(file) + " show");
  const testing::CliRun given = RunCliTool("--variant 'Italian Checkers' --moves '" + moves + "' show");
  EXPECT_EQ(loaded.status, 0) << loaded.output;
  EXPECT_EQ(given.status, 0) << given.output;
  EXPECT_FALSE(SetupLine(loaded.output).empty());
  EXPECT_EQ(SetupLine(loaded.output), SetupLine(given.output));
  EXPECT_TRUE(loaded.Has("Variant: Italian Checkers"));

  // Moves given after a loaded game go on from it.
  const testing::CliRun more = RunCliTool("--load " + Quoted(file) + " moves");
  EXPECT_EQ(more.status, 0);
}

TEST(CliGameFile, BadFilesGiveTheirWordsAndStatusOne) {
  TempFolder folder;
  testing::WriteFileText(folder / "notes.qvn", "hello\r\n");
  testing::WriteFileText(folder / "old.qvn", "QUORVANIS Version=0.5\r\n");
  testing::CliRun r = RunCliTool("--load " + Quoted(folder / "missing.qvn") + " show");
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(r.Has("missing.qvn does not exist")) << r.output;
  r = RunCliTool("--load " + Quoted(folder / "notes.qvn") + " show");
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(r.Has("notes.qvn is not an Quorvanis file")) << r.output;
  r = RunCliTool("--load " + Quoted(folder / "old.qvn") + " show");
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(r.Has("Need version 0.89")) << r.output;
  r = RunCliTool("--load");
  EXPECT_EQ(r.status, 2);
  r = RunCliTool("play --max-moves 2 --save " + Quoted(folder / "no" / "such" / "folder.qvn"));
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(r.Has("Could not write folder.qvn")) << r.output;
}

TEST(CliGameFile, GivenMovesCountTowardsRepetition) {
  // Kings shuffling: the third repetition ends the game before play starts.
  std::string kings(64, '0');
  kings[0] = kings[2] = '3';
  kings[61] = kings[63] = '4';
  const testing::CliRun r = RunCliTool("--setup " + kings +
                                       " --side white --moves 'a1-b2 h8-g7 b2-a1 g7-h8 a1-b2 h8-g7 b2-a1 g7-h8 a1-b2' play");
  EXPECT_EQ(r.status, 0) << r.output;
  EXPECT_TRUE(r.Has("1/2-1/2")) << r.output;
  EXPECT_TRUE(r.Has("Triple Repetition")) << r.output;
}

}  // namespace qv

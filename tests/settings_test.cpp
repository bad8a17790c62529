#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>
#include <memory>
#include <vector>

#include "core/text.h"
#include "files/safe_write.h"
#include "files/settings.h"
#include "temp_folder.h"

namespace qv {

namespace {

using testing::ReadFileText;
using testing::TempFolder;
using testing::WriteFileText;

// The lines that hold text rather than a number, by field number.
std::string TextFieldValue(int field) {
  switch (field) {
    case 11: return "Italian Checkers";
    case 21: return "Ann";
    case 30: return "A8C8";
    case 31: return "B1";
    case 32: return "NW;NE NW;NE";
    case 33: return "NW;NE NW;NE;SE;SW";
    case 34: return "NW;NE;SE;SW NW;NE;SE;SW";
    case 35: return "N;E;S;W NN;EE;SS;WW";
    case 64: return "Classic Big";
    default: return {};
  }
}

// A settings file whose number field k holds k, so that each value shows
// where it was read from.
std::string NumberedSettingsFile(const std::string& playerName = "Ann") {
  std::string text = std::string(SettingsHeader) + "\r\n";
  for (int field = 2; field <= 84; ++field) {
    std::string value = TextFieldValue(field);
    if (field == 21) value = playerName;
    text += (value.empty() ? Str(field) + " " : value) + "\r\n";
  }
  return text;
}

std::unique_ptr<Game> ReadInto(const std::filesystem::path& file) {
  auto g = std::make_unique<Game>();
  ReadSettings(*g, file);
  return g;
}

}  // namespace

TEST(Settings, EveryFieldIsReadFromItsLineAndWrittenBackToIt) {
  TempFolder folder;
  const std::string original = NumberedSettingsFile();
  WriteFileText(folder / "quorvanis.ini", original);
  auto g = std::make_unique<Game>();
  EXPECT_EQ(ReadSettings(*g, folder / "quorvanis.ini").source, SettingsSource::File);

  EXPECT_EQ(g->Settings.PlayMode, 2);
  EXPECT_EQ(g->RuleSet.MaxCapMove, 7);
  EXPECT_EQ(g->VariantName, "Italian Checkers");
  EXPECT_EQ(g->Settings.PlayerName, "Ann");
  EXPECT_EQ(g->RuleSet.ManContJumpCrowned, 28);
  EXPECT_EQ(g->RuleSet.PromoSquares[0][0], 91);
  EXPECT_EQ(g->RuleSet.PromoSquares[0][1], 93);
  EXPECT_EQ(g->RuleSet.PromoSquares[0][2], -1);
  EXPECT_EQ(g->RuleSet.PromoSquares[1][0], 22);
  EXPECT_EQ(g->RuleSet.DirText[3], "N;E;S;W NN;EE;SS;WW");
  DirectionTable orthogonal{};
  ParseDirections("N;E;S;W NN;EE;SS;WW", 3, orthogonal);
  EXPECT_TRUE(g->DirTable[3] == orthogonal[3]) << "the movement texts build the direction table";
  EXPECT_EQ(g->Settings.SkinName, "Classic Big");
  EXPECT_EQ(g->Settings.UseClassic, 72);
  EXPECT_EQ(g->RuleSet.ContractB2, 84);

  EXPECT_EQ(SettingsText(*g), original);
  ASSERT_TRUE(WriteSettings(*g, folder / "again.ini"));
  EXPECT_EQ(ReadFileText(folder / "again.ini"), original);
}

TEST(Settings, NumbersArePrintedWithTheirSignPlace) {
  auto g = std::make_unique<Game>();
  g->RuleSet.NumberFriends = -1;
  const std::string text = SettingsText(*g);
  EXPECT_TRUE(text.starts_with("QUORVANIS0.89\r\n 0 \r\n 1 \r\n 2 \r\n")) << text.substr(0, 40);
  EXPECT_NE(text.find("\r\n-1 \r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\nB8D8F8H8\r\nA1C1E1G1\r\nNW;NE NW;NE\r\n"), std::string::npos);
}

TEST(Settings, ACommaInThePlayersNameShiftsTheFieldsAfterIt) {
  TempFolder folder;
  WriteFileText(folder / "quorvanis.ini", NumberedSettingsFile("Smith, John"));
  auto g = ReadInto(folder / "quorvanis.ini");
  EXPECT_EQ(g->Settings.PlayerName, "Smith");
  EXPECT_EQ(g->Settings.CapitalNotation, 0) << "\"John\" is no number";
  EXPECT_EQ(g->Settings.ConfirmExit, 22) << "each field reads the line meant for the one before";
  EXPECT_EQ(g->Settings.AskDrawIfComputerDraws, 23);
}

TEST(Settings, AMissingShortOrOtherVersionFileIsReplacedByTheDefaults) {
  TempFolder folder;
  const std::filesystem::path file = folder / "quorvanis.ini";
  const std::string defaults = SettingsText(Game{});
  const std::string numbered = NumberedSettingsFile();
  std::size_t end = 0;
  for (int line = 0; line < 40; ++line) end = numbered.find("\r\n", end) + 2;
  const std::string cutAfter40 = numbered.substr(0, end);
  std::string otherVersion = numbered;
  otherVersion.replace(0, 13, "QUORVANIS0.88");

  for (const std::string* contents : std::vector<const std::string*>{nullptr, &cutAfter40, &otherVersion}) {
    std::filesystem::remove(file);
    if (contents) WriteFileText(file, *contents);
    auto g = std::make_unique<Game>();
    g->Settings.PlayerName = "Before";
    g->RuleSet.LongKings = 1;
    const SettingsResult result = ReadSettings(*g, file);
    EXPECT_EQ(result.source, SettingsSource::Defaults);
    EXPECT_TRUE(result.written.ok);
    EXPECT_EQ(g->Settings.PlayerName, "Player");
    EXPECT_EQ(g->RuleSet.LongKings, 0);
    EXPECT_EQ(g->VariantName, "American Checkers");
    EXPECT_EQ(ReadFileText(file), defaults) << "the file exists with the defaults after the first start";
  }
}

TEST(Settings, StartUpNeverBeginsInComputerComputerPlayOrAtDepthZero) {
  Options o;
  o.PlayMode = 2;
  o.DepthLimit = 0;
  SettleStoredModes(o);
  EXPECT_EQ(o.PlayMode, 0);
  EXPECT_EQ(o.DepthLimit, 2);
  o.PlayMode = 1;
  o.DepthLimit = 5;
  SettleStoredModes(o);
  EXPECT_EQ(o.PlayMode, 1);
  EXPECT_EQ(o.DepthLimit, 5);
}

namespace {
int FailingRename(const char*, const char*) {
  errno = EIO;
  return -1;
}
}  // namespace

TEST(SafeWrite, AFailedRenameLeavesTheOldFileWholeAndNoTemporaryFile) {
  TempFolder folder;
  const std::filesystem::path file = folder / "quorvanis.sav";
  WriteFileText(file, "the old game");
  const FileWriteResult result = WriteFileAtomically(file, "a new game", &FailingRename);
  EXPECT_FALSE(result.ok);
  EXPECT_NE(result.error.find("quorvanis.sav"), std::string::npos) << result.error;
  EXPECT_EQ(ReadFileText(file), "the old game");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1) << "no temporary file is left";

  ASSERT_TRUE(WriteFileAtomically(file, "a new game"));
  EXPECT_EQ(ReadFileText(file), "a new game");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);

  // A full disk: the write itself fails.
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  rlimit tiny = old;
  tiny.rlim_cur = 4;
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &tiny);
  const FileWriteResult full = WriteFileAtomically(file, "a game too long for the disk");
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(full.ok);
  EXPECT_EQ(ReadFileText(file), "a new game");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);

  const FileWriteResult noFolder = WriteFileAtomically(folder / "missing" / "x.ini", "text");
  EXPECT_FALSE(noFolder.ok);
  EXPECT_FALSE(noFolder.error.empty());
}

}  // namespace qv

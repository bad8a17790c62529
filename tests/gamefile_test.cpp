#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/newgame.h"
#include "core/replay.h"
#include "core/text.h"
#include "files/domoves.h"
#include "files/gamefile.h"
#include "files/variantfile.h"
#include "position_helpers.h"
#include "temp_folder.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

using testing::ReadFileText;
using testing::TempFolder;
using testing::WriteFileText;

const fs::path ShippedData = QUORVANIS_TEST_DATA;

std::unique_ptr<Game> GameOf(const std::string& variant, int useClassic = 1, unsigned seed = 11) {
  auto g = std::make_unique<Game>();
  g->DataFolder = ShippedData;
  g->Settings.UseClassic = useClassic;
  g->Random.SetFixedSeed(seed);
  StartVariant(*g, variant);
  return g;
}

// Plays up to n random legal moves through the move entry; returns how many.
int PlayRandomMoves(Game& g, int n) {
  int played = 0;
  for (; played < n && g.GameOver == 0; ++played) {
    GenerateLegalMoves(g);
    const int count = g.PlyBase[1] - g.PlyBase[0];
    if (count == 0) break;
    const MoveRecord& m = g.MoveStack[g.PlyBase[0] + Int(g.Rnd() * count)];
    const int notation = g.Settings.NotationKind;
    const std::string text = SquareNotation(m.FromSquare, 2, notation) + SquareNotation(m.ToSquare, 2, notation);
    if (PlayRecordedMove(g, text) != ReplayStatus::Played) ADD_FAILURE() << "refused its own legal move " << text;
  }
  return played;
}

// What a game file must give back.
void ExpectSameGame(const Game& a, const Game& b, const std::string& label) {
  SCOPED_TRACE(label);
  for (const RuleField& field : RuleFields())
    if (field.name != "NumberFriends") {
      EXPECT_EQ(a.RuleSet.*field.member, b.RuleSet.*field.member) << field.name;
    }
  EXPECT_TRUE(a.RuleSet.PromoSquares == b.RuleSet.PromoSquares);
  EXPECT_EQ(a.RuleSet.DirText, b.RuleSet.DirText);
  EXPECT_TRUE(a.DirTable == b.DirTable);
  EXPECT_EQ(a.VariantName, b.VariantName);
  EXPECT_TRUE(a.StartBoard == b.StartBoard);
  EXPECT_TRUE(a.Board == b.Board);
  EXPECT_EQ(a.SideToMove, b.SideToMove);
  EXPECT_EQ(a.HalfMoveCount, b.HalfMoveCount);
  EXPECT_EQ(a.GameLength, b.GameLength);
  EXPECT_EQ(a.GameOver, b.GameOver);
  for (int h = 1; h <= a.GameLength; ++h) {
    EXPECT_EQ(a.MoveTextTable[(h + 1) / 2][(h + 1) % 2], b.MoveTextTable[(h + 1) / 2][(h + 1) % 2]) << h;
    EXPECT_EQ(b.MoveTextTable[(h + 1) / 2][2 + (h + 1) % 2], "3") << "loaded moves carry mover code 3";
  }
  for (int h = 0; h <= a.GameLength; ++h) EXPECT_EQ(a.Record.CommentTable[h], b.Record.CommentTable[h]) << h;
}

std::vector<std::pair<std::string, int>> ShippedVariants() {
  std::vector<std::pair<std::string, int>> all;
  for (int useClassic : {1, 0})
    for (const std::string& name : FillVariantList(VariantFolder(ShippedData, useClassic))) all.push_back({name, useClassic});
  return all;
}

// The file text of a loaded game, for checking that a failed load left it alone.
std::string Snapshot(Game& g) { return NativeGameText(g); }

const std::string Header = [] {
  Game g;
  return NativeGameHeader(g);
}();

}  // namespace

TEST(GameFile, EveryShippedVariantComesBackWithRulesPositionMovesAndComments) {
  TempFolder folder;
  int count = 0;
  for (const auto& [name, useClassic] : ShippedVariants()) {
    auto played = GameOf(name, useClassic);
    const int moves = PlayRandomMoves(*played, 40);
    played->Record.CommentTable[0] = "before the first move";
    if (moves >= 3) played->Record.CommentTable[3] = "two lines\r\nof comment";
    played->Record.CommentTable[played->GameLength] = "at the end";
    const auto expected = std::make_unique<Game>(*played);
    const fs::path file = folder / "game.qvn";
    ASSERT_TRUE(SaveGame(*played, file)) << name;

    auto loaded = std::make_unique<Game>();
    loaded->DataFolder = ShippedData;
    NewGame(*loaded);
    const LoadResult result = LoadGame(*loaded, file, LoadChosenFile);
    EXPECT_TRUE(result.loaded) << name << ": " << result.message;
    EXPECT_EQ(result.fileName, "game.qvn");
    ExpectSameGame(*expected, *loaded, name);
    EXPECT_EQ(loaded->CustomPosition, 0);
    ++count;
  }
  EXPECT_GE(count, 30);
}

TEST(GameFile, ANumericGameAndAGameOfDropsComeBack) {
  TempFolder folder;
  for (const auto& [name, notation] : std::vector<std::pair<std::string, int>>{{"American Checkers", 1}}) {
    auto played = GameOf(name);
    played->Settings.NotationKind = notation;
    PlayRandomMoves(*played, 60);
    const auto expected = std::make_unique<Game>(*played);
    ASSERT_TRUE(SaveGame(*played, folder / "n.qvn"));
    auto loaded = GameOf("American Checkers");
    EXPECT_TRUE(LoadGame(*loaded, folder / "n.qvn", LoadChosenFile).loaded);
    EXPECT_EQ(loaded->Settings.NotationKind, 1);
    ExpectSameGame(*expected, *loaded, name);
  }
  // Drops are written as their square alone and found again by it.
  auto drops = GameOf("American Checkers");
  RuleRecord rules = drops->RuleSet;
  rules.canContract = 1;
  rules.ContractNumber = 2;
  rules.ContractW1 = 2;
  rules.ContractB1 = 9;
  testing::ApplyRules(*drops, rules);
  GenerateLegalMoves(*drops);
  PlayRandomMoves(*drops, 30);
  const auto expected = std::make_unique<Game>(*drops);
  ASSERT_TRUE(SaveGame(*drops, folder / "d.qvn"));
  auto loaded = GameOf("American Checkers");
  EXPECT_TRUE(LoadGame(*loaded, folder / "d.qvn", LoadChosenFile).loaded);
  ExpectSameGame(*expected, *loaded, "drops");
}

TEST(GameFile, SavesTheHeaderLinesInTheirOrder) {
  auto g = GameOf("Italian Checkers");
  g->Settings.PlayerName = "Ann";
  const std::vector<std::string> lines = [&] {
    std::vector<std::string> out;
    const std::string text = NativeGameText(*g);
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = text.find("\r\n", at);
      out.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return out;
  }();
  ASSERT_EQ(lines.size(), 57u) << "a game without moves ends with START";
  EXPECT_EQ(lines[0], "QUORVANIS Version=0.89");
  EXPECT_EQ(lines[1], "Variant=*Italian Checkers*");
  EXPECT_EQ(lines[3], "Book=1");
  EXPECT_EQ(lines[7], "BlackStarts=0");
  EXPECT_EQ(lines[8], "PromoW=A8C8E8G8");
  EXPECT_EQ(lines[10], "PiecesOnBlack=0");
  EXPECT_EQ(lines[47], "ContractB2=0");
  EXPECT_EQ(lines[48], "UseClassic=1");
  EXPECT_EQ(lines[49], "Offset=");
  EXPECT_EQ(lines[50], "NW;NE NW;NE");
  EXPECT_EQ(lines[54], "ManContJumpCrowned=0");
  EXPECT_EQ(lines[55], "PlayerName=Ann");
  EXPECT_EQ(lines[56], "START");
  // Numeric promotion squares are two characters wide.
  auto american = GameOf("American Checkers");
  american->Settings.NotationKind = 1;
  EXPECT_NE(NativeGameHeader(*american).find("\r\nPromoW= 1 2 3 4\r\n"), std::string::npos);
}

TEST(GameFile, FilesThatAreNoGameFilesOfThisVersionChangeNothing) {
  TempFolder folder;
  auto g = GameOf("American Checkers");
  PlayRandomMoves(*g, 8);
  const std::string before = Snapshot(*g);
  struct Case {
    std::string name, contents, message, caption;
  } cases[] = {
      {"notes.qvn", "hello\r\n", "notes.qvn is not an Quorvanis file", ""},
      {"empty.qvn", "", "empty.qvn is not an Quorvanis file", ""},
      {"old.qvn", "QUORVANIS Version=0.88\r\nVariant=*Italian Checkers*\r\n", "Incorrect game file!\r\nNeed version 0.89",
       "Error"},
  };
  for (const Case& c : cases) {
    WriteFileText(folder / c.name, c.contents);
    const LoadResult r = LoadGame(*g, folder / c.name, LoadChosenFile);
    EXPECT_FALSE(r.loaded);
    EXPECT_EQ(r.message, c.message);
    EXPECT_EQ(r.caption, c.caption);
    EXPECT_EQ(Snapshot(*g), before) << c.name;
    EXPECT_EQ(g->HalfMoveCount, 8);
  }
  // A missing file: the chosen one says so, the autosave and the opening moves say nothing.
  LoadResult r = LoadGame(*g, folder / "gone.qvn", LoadChosenFile);
  EXPECT_EQ(r.message, "gone.qvn does not exist");
  r = LoadGame(*g, folder / "quorvanis.sav", LoadAutosave);
  EXPECT_FALSE(r.loaded);
  EXPECT_TRUE(r.message.empty());
  EXPECT_EQ(Snapshot(*g), before);
  // PDN is another reader's matter.
  r = LoadGame(*g, folder / "game.PDN", LoadChosenFile);
  EXPECT_FALSE(r.loaded);
  EXPECT_FALSE(r.message.empty());
  EXPECT_EQ(Snapshot(*g), before);
}

TEST(GameFile, AFileBrokenOffOrUnreadableInItsHeaderChangesNothing) {
  TempFolder folder;
  auto g = GameOf("American Checkers");
  PlayRandomMoves(*g, 8);
  const std::string before = Snapshot(*g);
  const std::string header = NativeGameHeader(*GameOf("Italian Checkers"));
  const std::string broken[] = {
      header.substr(0, header.find("UseClassic=")),             // cut before START
      header.substr(0, header.find("Offset=") + 9),               // cut inside the movement lines
      std::string(header).replace(header.find("Book=1"), 6, "Book=x"),  // Book= is read strictly
      std::string(header).replace(header.find("Variant=*Italian Checkers*"), 26, "Variant=77"),
  };
  for (const std::string& text : broken) {
    WriteFileText(folder / "broken.qvn", text);
    const LoadResult r = LoadGame(*g, folder / "broken.qvn", LoadChosenFile);
    EXPECT_FALSE(r.loaded);
    EXPECT_TRUE(r.message.empty()) << r.message;
    EXPECT_EQ(Snapshot(*g), before);
    EXPECT_EQ(g->VariantName, "American Checkers");
  }
}

TEST(GameFile, AFileLongerThan500MovesLoadsTheFirst500) {
  TempFolder folder;
  auto kings = testing::NewTestGame();
  testing::SetPosition(*kings, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"H8", BlackKing}, {"F8", BlackKing}}, 1);
  AdoptBoardPosition(*kings);
  std::string text = NativeGameHeader(*kings);
  const char* shuffle[] = {"a1b2", "h8g7", "b2a1", "g7h8"};
  for (int i = 0; i < 1010; ++i) text += std::string(shuffle[i % 4]) + "\r\n";
  WriteFileText(folder / "long.qvn", text);
  auto g = testing::NewTestGame();
  const LoadResult r = LoadGame(*g, folder / "long.qvn", LoadChosenFile);
  EXPECT_TRUE(r.loaded) << r.message;
  EXPECT_EQ(g->HalfMoveCount, 1000);
  EXPECT_EQ(g->GameOver, 1) << "the repetition ended it long before";
  ASSERT_TRUE(SaveGame(*g, folder / "again.qvn"));
  EXPECT_EQ(testing::ReadFileText(folder / "again.qvn"), text.substr(0, text.size() - 10 * 6));
}

TEST(GameFile, AnIllegalMoveEndsTheLoadWithANewGameOfTheFilesRules) {
  TempFolder folder;
  auto source = GameOf("Italian Checkers");
  std::string text = NativeGameHeader(*source) + "b3c4\r\ng6f5\r\nc3d6\r\nh2g3\r\n";
  WriteFileText(folder / "bad.qvn", text);
  auto g = GameOf("American Checkers");
  PlayRandomMoves(*g, 5);
  const LoadResult r = LoadGame(*g, folder / "bad.qvn", LoadChosenFile);
  EXPECT_FALSE(r.loaded);
  EXPECT_EQ(r.message, "C3D6: Illegal move!");
  EXPECT_EQ(r.caption, "Error");
  EXPECT_EQ(g->HalfMoveCount, 0) << "the moves made up to there are lost";
  EXPECT_EQ(g->GameLength, 0);
  EXPECT_EQ(g->VariantName, "Italian Checkers");
  EXPECT_EQ(g->RuleSet.MaxCapMove, 1);
  EXPECT_EQ(g->RuleSet.BlackStarts, 1) << "a chosen file's failure leaves Black to begin";
}

TEST(GameFile, ReadsOldAndOddFilesAsTheyAlwaysWere) {
  TempFolder folder;
  auto italian = GameOf("Italian Checkers");
  std::string header = NativeGameHeader(*italian);
  auto replace = [](std::string text, const std::string& from, const std::string& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
  };
  auto load = [&](const std::string& text) {
    WriteFileText(folder / "odd.qvn", text);
    auto g = GameOf("American Checkers");
    g->RuleSet.NumberFriends = 3;
    const LoadResult r = LoadGame(*g, folder / "odd.qvn", LoadChosenFile);
    EXPECT_TRUE(r.loaded) << r.message;
    return g;
  };
  // A variant by its old number; NumberFriends= is never applied; extra lines are harmless.
  auto g = load(replace(replace(header, "Variant=*Italian Checkers*", "Variant=6\r\nComment=anything"),
                        "NumberFriends=0", "NumberFriends=-1"));
  EXPECT_EQ(g->VariantName, "Italian Checkers");
  EXPECT_EQ(g->RuleSet.NumberFriends, 3);
  // Without UseClassic= the file's setup is never applied.
  const std::string american = NativeGameHeader(*GameOf("American Checkers"));
  g = load(replace(replace(american, "UseClassic=1\r\n", ""), "Setup=1", "Setup=3"));
  EXPECT_EQ(g->Board[21], WhiteMan);
  g = load(replace(american, "Setup=1", "Setup=3"));
  EXPECT_EQ(g->Board[21], WhiteKing);
  // Comments: two in a row keep the second; a last "{" line is stored and ends the replay.
  g = load(header + "{first}\r\n{second}\r\nb3c4\r\n{last\xFF\xFFline}\r\n");
  EXPECT_EQ(g->Record.CommentTable[0], "second");
  EXPECT_EQ(g->Record.CommentTable[1], "last\r\nline");
  EXPECT_EQ(g->HalfMoveCount, 1);
  // An empty line ends the replay.
  g = load(header + "b3c4\r\n\r\ng6f5\r\n");
  EXPECT_EQ(g->HalfMoveCount, 1);
  // The player's name of the file replaces the setting, an empty one too.
  g = load(replace(header, "PlayerName=Player", "PlayerName="));
  EXPECT_EQ(g->Settings.PlayerName, "");
}

TEST(GameFile, SavingKeepsTheCommentsLineBreaksAsTwoBytes255) {
  auto g = GameOf("American Checkers");
  g->Record.CommentTable[0] = "a\r\nb";
  EXPECT_NE(NativeGameText(*g).find("{a\xFF\xFF" "b}\r\n"), std::string::npos);
  EXPECT_EQ(g->Record.CommentTable[0], "a\xFF\xFF" "b") << "the stored comment keeps the replacement";
  EXPECT_EQ(SavedMoveText("c3d4 c3-d4"), "c3d4");
  EXPECT_EQ(SavedMoveText("d4 d4"), "d4");
}

TEST(Replay, GivenMovesCountForRepetitionAndEndTheGame) {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"H8", BlackKing}, {"F8", BlackKing}}, 1);
  AdoptBoardPosition(*g);
  const std::vector<std::string> shuffle = {"a1b2", "h8g7", "b2a1", "g7h8"};
  int moves = 0;
  while (g->GameOver == 0 && moves < 12) ASSERT_EQ(PlayRecordedMove(*g, shuffle[moves++ % 4]), ReplayStatus::Played);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_EQ(g->DrawReason, 1);
  EXPECT_EQ(g->GameResult, "1/2-1/2");
  EXPECT_EQ(moves, 9) << "the position after the first move stands for the third time";
  EXPECT_EQ(g->GameLength, 9);

  const ReplayResult refused = ReplayMoves(*g, {"h8g7", "g7g5"});
  EXPECT_EQ(refused.status, ReplayStatus::Refused);
  EXPECT_EQ(refused.refused, "G7G5");
  EXPECT_EQ(refused.played, 1);
}

TEST(DoOpeningMoves, OpensWithRandomMovesThatDecideNothingAndLeavesNoFile) {
  TempFolder folder;
  for (int numberMoves : {0, 6, 300}) {
    auto g = GameOf("American Checkers", 1, static_cast<unsigned>(numberMoves + 1));
    g->RuleSet.DoMoves = 1;
    g->RuleSet.NumberMoves = numberMoves;
    const LoadResult r = DoOpeningMoves(*g, folder.path());
    EXPECT_TRUE(r.loaded) << r.message;
    EXPECT_FALSE(fs::exists(folder / "domoves.qvn"));
    EXPECT_LE(g->HalfMoveCount, numberMoves);
    if (numberMoves == 6) {
      EXPECT_EQ(g->HalfMoveCount, 6);
    }
    if (numberMoves == 300) {
      EXPECT_GT(g->HalfMoveCount, 6);
    }
    EXPECT_EQ(g->GameOver, 0) << "no opening move ends the game";
    GenerateLegalMoves(*g);
    EXPECT_GT(g->PlyBase[1], 0);
    EXPECT_EQ(g->RuleSet.DoMoves, 1);
  }
}

}  // namespace qv

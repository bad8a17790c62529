#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/newgame.h"
#include "files/settings.h"
#include "interaction/commands.h"
#include "interaction/filecommands.h"
#include "interaction/movelist.h"
#include "interaction_fixture.h"
#include "temp_folder.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

struct FileWindow : RecordingWindow {
  fs::path chosen;  // what the Load and Save dialogs return
  std::vector<std::string> dialogs;
  fs::path ChooseGameFile(const std::string& title, const std::vector<std::string>& filters, bool save) override {
    dialogs.push_back(title + (save ? " (save)" : "") + ": " + filters.at(0) + " | " + filters.at(1));
    return chosen;
  }
};

// One run of the program: a game, its screen and window, started as the
// window starts, with its files in `folder`.
struct ProgramRun {
  explicit ProgramRun(const fs::path& folder) {
    game->DataFolder = QUORVANIS_TEST_DATA;
    game->WritableFolder = folder;
    game->Random.SetFixedSeed(3);
    window.session = &session;
    StartUp(session);
  }
  void Type(const std::string& move) {
    screen.Text2 = move;
    EnterTypedMove(session);
  }
  std::unique_ptr<Game> game = std::make_unique<Game>();
  Screen screen;
  FileWindow window;
  Session session{*game, screen, window};
};

}  // namespace

TEST(FileCommands, ARestartBringsBackTheSettingsTheRulesAndTheGame) {
  testing::TempFolder folder;
  {
    ProgramRun first(folder.path());
    EXPECT_TRUE(fs::exists(folder / "quorvanis.ini")) << "the first start writes the settings";
    Game& g = *first.game;
    g.Settings.BoardTurned = 0;
    g.Settings.StrengthHandicap = 4;
    g.Settings.SkinName = "Classic Big";
    g.Settings.AutoSave = 1;
    StartVariant(g, "Italian Checkers");
    ShowNewGame(first.session);
    SetPlayerPlayer(first.session);
    for (const char* move : {"b3-c4", "g6-f5", "c4-d5"}) first.Type(move);
    ASSERT_EQ(g.HalfMoveCount, 3);
    first.game->Record.CommentTable[3] = "a note";
    SaveOnExit(first.session);
    EXPECT_TRUE(first.window.messages.empty());
  }
  ProgramRun second(folder.path());
  const Game& g = *second.game;
  EXPECT_EQ(g.Settings.BoardTurned, 0);
  EXPECT_EQ(g.Settings.StrengthHandicap, 4);
  EXPECT_EQ(g.Settings.SkinName, "Classic Big");
  EXPECT_EQ(g.VariantName, "Italian Checkers");
  EXPECT_EQ(g.RuleSet.MaxCapMove, 1);
  EXPECT_EQ(g.HalfMoveCount, 3);
  ASSERT_EQ(second.screen.List1.size(), 3u);
  EXPECT_NE(second.screen.List1[2].find("c4-d5"), std::string::npos) << second.screen.List1[2];
  EXPECT_EQ(second.screen.Text1, "a note");
  EXPECT_EQ(second.screen[Command::Back].Enabled, 1);
  EXPECT_TRUE(second.window.messages.empty());
}

TEST(FileCommands, SaveAsksBeforeReplacingAndOpenShowsTheGame) {
  testing::TempFolder folder;
  ProgramRun run(folder.path());
  SetPlayerPlayer(run.session);
  run.Type("f6-e5");
  run.Type("c3-d4");
  run.window.chosen = folder / "mine.qvn";
  SaveCommand(run.session);
  EXPECT_EQ(run.window.dialogs.back(),
            "Save Game (save): Quorvanis File (*.qvn) | Portable Draughts Notation File (*.pdn)");
  EXPECT_EQ(run.screen.Title, " Quorvanis 1.58 Beta - mine.qvn");
  const std::string saved = testing::ReadFileText(folder / "mine.qvn");
  EXPECT_TRUE(saved.ends_with("START\r\nf6e5\r\nc3d4\r\n"));

  run.Type("e5xc3");
  run.window.answerYes = false;
  SaveCommand(run.session);
  EXPECT_EQ(run.window.messages.back(), "Confirmation: mine.qvn already exists, overwrite?");
  EXPECT_EQ(testing::ReadFileText(folder / "mine.qvn"), saved) << "No keeps the file";

  // Open over a game in progress asks first; No changes nothing.
  OpenCommand(run.session);
  EXPECT_EQ(run.window.messages.back(), "Confirmation: Quit current game?");
  EXPECT_EQ(run.game->HalfMoveCount, 3);
  run.window.answerYes = true;
  OpenCommand(run.session);
  EXPECT_EQ(run.window.dialogs.back(), "Load Game: Quorvanis File (*.qvn) | Portable Draughts Notation File (*.pdn)");
  EXPECT_EQ(run.game->HalfMoveCount, 2);
  EXPECT_EQ(run.screen.List1.size(), 2u);
  EXPECT_EQ(run.screen.Title, " Quorvanis 1.58 Beta - mine.qvn");

  testing::WriteFileText(folder / "notes.qvn", "hello");
  run.window.chosen = folder / "notes.qvn";
  OpenCommand(run.session);
  EXPECT_EQ(run.window.messages.back(), "Quorvanis: notes.qvn is not an Quorvanis file");
  EXPECT_EQ(run.game->HalfMoveCount, 2);
  run.window.chosen = folder / "gone.qvn";
  OpenCommand(run.session);
  EXPECT_EQ(run.window.messages.back(), "Quorvanis: gone.qvn does not exist");
  // A PDN file gathers games: the game is added to it without a question.
  const std::size_t questions = run.window.messages.size();
  run.window.chosen = folder / "game.pdn";
  SaveCommand(run.session);
  SaveCommand(run.session);
  EXPECT_EQ(run.window.messages.size(), questions);
  EXPECT_NE(testing::ReadFileText(folder / "game.pdn").find("[Result"), std::string::npos);
  EXPECT_EQ(run.game->HalfMoveCount, 2);
}

TEST(FileCommands, ANewGameWithDoMovesOpensWithThemAndLeavesNoFile) {
  testing::TempFolder folder;
  ProgramRun run(folder.path());
  run.game->RuleSet.DoMoves = 1;
  run.game->RuleSet.NumberMoves = 4;
  NewGameCommand(run.session, 0);
  EXPECT_EQ(run.game->HalfMoveCount, 4);
  EXPECT_EQ(run.screen.List1.size(), 4u);
  EXPECT_EQ(run.game->MoveTextTable[1][2], "3");
  EXPECT_FALSE(fs::exists(folder / "domoves.qvn"));
}

TEST(FileCommands, ExitAsksWhenToldAndAFailedWriteIsToldInABox) {
  testing::TempFolder folder;
  ProgramRun run(folder.path());
  run.game->Settings.ConfirmExit = 1;
  run.window.answerYes = false;
  EXPECT_FALSE(ExitCommand(run.session));
  EXPECT_EQ(run.window.messages.back(), "Confirmation: Are you sure you want to exit?");
  run.game->Settings.ConfirmExit = 0;
  EXPECT_TRUE(ExitCommand(run.session));

  testing::WriteFileText(folder / "quorvanis.sav", "the last autosave");
  run.game->WritableFolder = folder / "gone";
  SaveOnExit(run.session);
  ASSERT_EQ(run.window.messages.size(), 3u);
  EXPECT_EQ(run.window.messages[1].rfind("Error: Could not write quorvanis.sav", 0), 0u) << run.window.messages[1];
  EXPECT_EQ(run.window.messages[2].rfind("Error: Could not write quorvanis.ini", 0), 0u) << run.window.messages[2];
  EXPECT_EQ(testing::ReadFileText(folder / "quorvanis.sav"), "the last autosave");
}

}  // namespace qv

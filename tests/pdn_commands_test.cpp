#include <unistd.h>

#include <fstream>

#include "files/pdn_source.h"
#include "interaction/navigation.h"
#include "interaction/pdn_commands.h"
#include "interaction/pdn_forms.h"
#include "interaction_fixture.h"

namespace qv {

namespace {

// Answers the PDN chooser and the Details dialog as told.
struct PdnWindow : RecordingWindow {
  int chooserShown = 0;
  PdnChooserForm lastChooser;
  bool chooserOk = true;
  int rowToPick = 0;
  int openAsToPick = 0;
  int detailsShown = 0;
  bool ShowPdnChooser(PdnChooserForm& form) override {
    ++chooserShown;
    form.SelectedRow = rowToPick;
    form.OpenAsIndex = openAsToPick;
    lastChooser = form;
    return chooserOk;
  }
  void ShowDetailsDialog(PdnTags& tags) override {
    ++detailsShown;
    DetailsForm form = FillDetailsForm(tags);
    form.Text1 = "Edited";
    ApplyDetailsForm(form, tags);
  }
};

const char* Collection =
    "[Event \"First\"]\r\n[Black \"Ann\"]\r\n[White \"Bob\"]\r\n[Result \"*\"]\r\n\r\n1. 11-15 22-18 *\r\n\r\n"
    "[Event \"Second\"]\r\n[Round \"2\"]\r\n[Black \"Cy\"]\r\n[Result \"1-0\"]\r\n\r\n"
    "1. 11-15 23-19 2. 8-11 22-17 {Old Fourteenth} 3. 4-8 1-0\r\n";

}  // namespace

class PdnCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() /
             ("quorvanis-pdncmd-" + std::to_string(::getpid()) + "-" +
              ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder);
    game->Random.SetFixedSeed(5);
    game->DataFolder = QUORVANIS_TEST_DATA;
    game->Settings.ConfirmExit = 0;
    window.session = &session;
    StartUp(session);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::filesystem::path Write(const std::string& name, const std::string& text) {
    std::ofstream(folder / name, std::ios::binary) << text;
    return folder / name;
  }

  std::filesystem::path folder;
  std::unique_ptr<Game> game = std::make_unique<Game>();
  Screen screen;
  PdnWindow window;
  Session session{*game, screen, window};
};

TEST_F(PdnCommandsTest, ChooserPicksAGameThatIsShownWithPlayersAndResult) {
  window.rowToPick = 1;
  LoadPdnCommand(session, Write("games.pdn", Collection), 0);
  ASSERT_EQ(window.chooserShown, 1);
  EXPECT_EQ(window.lastChooser.Title, " Choose Game");
  ASSERT_EQ(window.lastChooser.Rows.size(), 2u);
  EXPECT_EQ(window.lastChooser.Rows[1][0], "Second 2");
  EXPECT_EQ(window.lastChooser.OpenAsList.front(), "DEFAULT");
  EXPECT_TRUE(window.messages.empty()) << window.messages.front();
  EXPECT_EQ(game->HalfMoveCount, 5);
  EXPECT_EQ(screen.List1.size(), 5u);
  EXPECT_EQ(screen.StatusText, "1-0");
  EXPECT_EQ(screen.View.Label1, "Cy");
  EXPECT_EQ(screen.View.Label2, "Player");
  EXPECT_EQ(screen.Title, "Quorvanis 1.58 - games.pdn");
  EXPECT_EQ(screen[Command::Back].Enabled, 1);
  EXPECT_EQ(screen[Command::Forward].Enabled, 0);

  // The loaded game can be walked through.
  FirstCommand(session);
  EXPECT_EQ(game->HalfMoveCount, 0);
  ForwardCommand(session);
  ForwardCommand(session);
  ForwardCommand(session);
  ForwardCommand(session);
  EXPECT_EQ(screen.Text1, "Old Fourteenth");
  LastCommand(session);
  EXPECT_EQ(game->HalfMoveCount, 5);
}

TEST_F(PdnCommandsTest, CancelAndBadFilesLeaveTheGameAlone) {
  window.chooserOk = false;
  LoadPdnCommand(session, Write("games.pdn", Collection), 0);
  EXPECT_EQ(game->HalfMoveCount, 0);

  const auto notes = Write("notes.txt", "shopping list\r\n");
  LoadPdnCommand(session, notes, 0);
  ASSERT_EQ(window.messages.size(), 1u);
  EXPECT_EQ(window.messages[0], "Error: notes.txt is not a PDN file");
  EXPECT_TRUE(std::filesystem::exists(notes));

  window.chooserOk = true;
  LoadPdnCommand(session, Write("bad.pdn", "[Event \"x\"]\r\n1. 11-15 22-18 2. 11-17 *\r\n"), 0);
  EXPECT_EQ(window.messages.back(), "Error: 11-17: Illegal move!");
  EXPECT_EQ(game->HalfMoveCount, 0);

  LoadPdnCommand(session, Write("empty.pdn", "[Event \"x\"]\r\n"), 0);
  EXPECT_EQ(window.messages.back(), "Quorvanis: No games found!");
}

TEST_F(PdnCommandsTest, SavedGameOpensAgain) {
  LoadPdnCommand(session, Write("games.pdn", Collection), 0);
  const auto saved = folder / "mine.pdn";
  ASSERT_TRUE(SavePdnCommand(session, saved));
  ASSERT_TRUE(SavePdnCommand(session, saved));
  window.rowToPick = 1;
  LoadPdnCommand(session, saved, 0);
  EXPECT_EQ(window.lastChooser.Rows.size(), 2u);
  EXPECT_EQ(game->HalfMoveCount, 2);
  EXPECT_EQ(screen.View.Label1, "Ann");
  EXPECT_EQ(screen.View.Label2, "Bob");
  EXPECT_EQ(screen.StatusText, "*;  no comments");
}

TEST_F(PdnCommandsTest, OpeningChosenAtNewGame) {
  game->Settings.ChooseOpening = 1;
  window.rowToPick = 4;
  NewGameCommand(session, 0);
  EXPECT_EQ(window.lastChooser.Title, " Choose Opening");
  EXPECT_EQ(window.lastChooser.Rows[4][0], "Bristol");
  EXPECT_EQ(game->HalfMoveCount, 3);
  EXPECT_EQ(screen.StatusText, "White moves");

  // BookRandom plays one without asking.
  game->Settings.BookRandom = 1;
  window.chooserShown = 0;
  NewGameCommand(session, 0);
  EXPECT_EQ(window.chooserShown, 0);
  EXPECT_GE(game->HalfMoveCount, 1);

  // Not for rules that start elsewhere.
  StartVariant(*game, "Italian Checkers");
  game->GameInProgress = 0;
  NewGameCommand(session, 0);
  EXPECT_EQ(game->HalfMoveCount, 0);
}

TEST_F(PdnCommandsTest, DetailsEditTheTagsTheWriterUses) {
  game->Tags.Site = "Club";
  DetailsCommand(session);
  EXPECT_EQ(window.detailsShown, 1);
  EXPECT_EQ(game->Tags.Event, "Edited");
  EXPECT_EQ(game->Tags.Site, "Club");
  const DetailsForm form = FillDetailsForm(game->Tags);
  EXPECT_EQ(form.Text2, "Club");
}

}  // namespace qv

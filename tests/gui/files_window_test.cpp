// The main window's ways out keep the game and the settings: the close box
// without a question, and a fatal error after its box.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <memory>

#include "core/fatal.h"
#include "gui/mainwindow.h"
#include "../temp_folder.h"

namespace qv::gui {

namespace {

std::unique_ptr<MainWindow> OpenWindowIn(const std::filesystem::path& folder, std::vector<std::string>& messages) {
  auto game = std::make_unique<Game>();
  game->Random.SetFixedSeed(3);
  game->DataFolder = QUORVANIS_TEST_DATA;
  game->WritableFolder = folder;
  auto window = std::make_unique<MainWindow>(std::move(game));
  window->DivertMessages([&messages](const std::string& text, const std::string& caption) {
    messages.push_back(caption + ": " + text);
  });
  window->show();
  return window;
}

}  // namespace

TEST(MainWindowFiles, TheCloseBoxDoesNotAskAndKeepsGameAndSettings) {
  testing::TempFolder folder;
  std::vector<std::string> messages;
  auto window = OpenWindowIn(folder.path(), messages);
  ASSERT_EQ(window->game().Settings.ConfirmExit, 1);
  ASSERT_NE(window->action(Command::Open), nullptr);
  ASSERT_NE(window->action(Command::Save), nullptr);
  window->game().Settings.BoardTurned = 0;
  window->close();
  QApplication::processEvents();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(messages.empty()) << messages.front();
  EXPECT_TRUE(testing::ReadFileText(folder / "quorvanis.sav").starts_with("QUORVANIS Version=0.89\r\n"));
  EXPECT_TRUE(testing::ReadFileText(folder / "quorvanis.ini").starts_with("QUORVANIS0.89\r\n 0 \r\n 1 \r\n 2 \r\n 0 \r\n 0 \r\n"));
}

TEST(MainWindowFiles, AFatalErrorSavesOnItsWayOut) {
  testing::TempFolder folder;
  std::vector<std::string> messages;
  auto window = OpenWindowIn(folder.path(), messages);
  std::filesystem::remove(folder / "quorvanis.ini");
  window->EndAfterFatal("Fatal Error! Quorvanis will exit.");
  QApplication::processEvents();
  EXPECT_FALSE(window->isVisible());
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "Error: Fatal Error! Quorvanis will exit.");
  EXPECT_TRUE(std::filesystem::exists(folder / "quorvanis.sav"));
  EXPECT_TRUE(std::filesystem::exists(folder / "quorvanis.ini"));
}

}  // namespace qv::gui

// Analyze, Hint and the ply value table in the main window on the offscreen
// platform, on a position with a shot: White gives a man on g5 and jumps two.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QPushButton>
#include <cstdlib>

#include "../position_helpers.h"
#include "engine/hint.h"
#include "gui/mainwindow.h"
#include "gui/plyvaluewindow.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/movelist.h"

namespace qv::gui {

namespace {

bool WaitFor(const std::function<bool()>& done, int milliseconds = 20000) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < milliseconds) QApplication::processEvents(QEventLoop::AllEvents, 20);
  return done();
}

// Saves a picture of a window when QUORVANIS_SHOTS names a folder.
void Picture(QWidget* w, const char* name) {
  if (const char* folder = std::getenv("QUORVANIS_SHOTS")) w->grab().save(QString(folder) + "/" + name + ".png");
}

class AnalysisWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    auto game = std::make_unique<Game>();
    game->Random.SetFixedSeed(3);
    game->Settings.ConfirmExit = 0;
    window = std::make_unique<MainWindow>(std::move(game));
    window->DivertMessages([this](const std::string& text, const std::string& caption) {
      messages.push_back(caption + ": " + text);
    });
    Game& g = window->game();
    testing::SetPosition(g,
                         {{"H4", WhiteMan}, {"G3", WhiteMan}, {"H2", WhiteMan}, {"C1", WhiteMan},
                          {"H6", BlackMan}, {"D6", BlackMan}, {"A7", BlackMan}},
                         1);
    AdoptBoardPosition(g);
    g.Settings.DepthMode = 1;
    g.Settings.DepthLimit = 6;
    RefreshMoveChoices(window->session());
    RefreshBoard(window->session(), 0);
    window->show();
    board = g.Board;
  }

  bool Idle() { return !window->ComputerThinking(); }

  std::unique_ptr<MainWindow> window;
  std::vector<std::string> messages;
  BoardCells board;
};

}  // namespace

TEST_F(AnalysisWindow, AnalyzeFillsTheListAndHintFindsTheShot) {
  window->action(Command::Analyze)->trigger();
  EXPECT_FALSE(window->action(Command::Hint)->isEnabled());  // locked while it runs
  ASSERT_TRUE(WaitFor([&] { return Idle(); }));
  QApplication::processEvents();
  const Screen& sc = window->screen();
  ASSERT_EQ(sc.List3.size(), 4u);
  EXPECT_EQ(sc.List3[0].rfind("h4g5 ", 0), 0u) << sc.List3[0];
  EXPECT_NE(sc.Label9.find("Main: h4-g5 h6xf4 g3xc7"), std::string::npos) << sc.Label9;
  EXPECT_TRUE(window->action(Command::Hint)->isEnabled());
  EXPECT_EQ(window->game().Board, board);
  EXPECT_EQ(window->game().HalfMoveCount, 0);
  Picture(window.get(), "analysis");

  window->action(Command::Hint)->trigger();
  ASSERT_TRUE(WaitFor([&] { return Idle() && !messages.empty(); }));
  QApplication::processEvents();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "Hint: Try h4-g5");
  EXPECT_EQ(sc.StatusText, HintStatusText);
  EXPECT_EQ(window->game().Board, board);
}

TEST_F(AnalysisWindow, TheTableMarksTheShotSortsAgainAndCancels) {
  window->game().Settings.PlyValueDepth = 5;
  window->action(Command::PlyValueTable)->trigger();
  PlyValueWindow* pv = window->plyValueWindow();
  ASSERT_NE(pv, nullptr);
  ASSERT_TRUE(WaitFor([&] { return !pv->Searching() && Idle(); }));
  QApplication::processEvents();
  EXPECT_EQ(pv->form().status, "Done!");
  ASSERT_EQ(pv->form().table.rows.size(), 4u);
  EXPECT_EQ(pv->sortBox()->count(), 5);
  EXPECT_EQ(pv->sortBox()->itemText(4), "Combinations/Problems");
  Picture(pv, "plyvalue");
  pv->sortBox()->setCurrentIndex(SortCombinations);
  const QString combinations = pv->table()->toPlainText();
  EXPECT_TRUE(combinations.contains("h4-g5"));
  EXPECT_FALSE(combinations.contains("c1-b2"));
  EXPECT_EQ(window->game().Board, board);
  EXPECT_TRUE(window->action(Command::Analyze)->isEnabled());

  // A deep table from the opening, cancelled at once: it ends with the rows done.
  window->game().Settings.PlyValueDepth = 20;
  NewGame(window->game());
  ShowNewGame(window->session());
  window->action(Command::PlyValueTable)->trigger();
  ASSERT_TRUE(pv->Searching());
  EXPECT_FALSE(window->action(Command::Analyze)->isEnabled());
  pv->cancelButton()->click();
  ASSERT_TRUE(WaitFor([&] { return !pv->Searching() && Idle(); }, 5000));
  EXPECT_TRUE(pv->form().table.cancelled);
  EXPECT_LT(pv->form().table.rows.size(), 7u);
  EXPECT_EQ(pv->form().status, "Done!");
}

}  // namespace qv::gui

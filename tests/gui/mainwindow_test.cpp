// The main window on the offscreen platform: it opens on American Checkers, a
// move made with the mouse is answered by the computer, and closing during a
// computer game stops it first.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QTimer>
#include <memory>

#include "core/board.h"
#include "core/fatal.h"
#include "core/makemove.h"
#include "gui/boardwidget.h"
#include "gui/mainwindow.h"
#include "interaction/boardview.h"

namespace qv::gui {

namespace {

std::unique_ptr<MainWindow> OpenWindow(std::vector<std::string>& messages) {
  auto game = std::make_unique<Game>();
  game->Random.SetFixedSeed(3);
  game->Settings.ConfirmExit = 0;
  auto window = std::make_unique<MainWindow>(std::move(game));
  window->DivertMessages([&messages](const std::string& text, const std::string& caption) {
    messages.push_back(caption + ": " + text);
  });
  window->screen().ComputerPause = 0.0;
  window->show();
  return window;
}

void Send(QWidget* target, QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, QPointF(pos), target->mapToGlobal(QPointF(pos)), button, held, Qt::NoModifier);
  QApplication::sendEvent(target, &event);
}

// Drags the piece on `from` to `to` as a person would: press, a few moves, release.
void Drag(BoardWidget* board, const char* from, const char* to, int turned) {
  const QPoint a = board->SquareCentre(SquareOfCell(SquareNumber(from, 0, 1), turned));
  const QPoint b = board->SquareCentre(SquareOfCell(SquareNumber(to, 0, 1), turned));
  Send(board, QEvent::MouseMove, a, Qt::NoButton, Qt::NoButton);
  Send(board, QEvent::MouseButtonPress, a, Qt::LeftButton, Qt::LeftButton);
  for (int step = 1; step <= 4; ++step)
    Send(board, QEvent::MouseMove, a + (b - a) * step / 4, Qt::NoButton, Qt::LeftButton);
  Send(board, QEvent::MouseButtonRelease, b, Qt::LeftButton, Qt::NoButton);
}

bool WaitUntil(const std::function<bool()>& done, int milliseconds = 20000) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < milliseconds) QApplication::processEvents(QEventLoop::AllEvents, 20);
  return done();
}

}  // namespace

TEST(MainWindow, OpensOnAmericanCheckers) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  EXPECT_EQ(window->windowTitle(), "Quorvanis 1.58");
  EXPECT_EQ(window->screen().StatusText, "Black moves");
  EXPECT_EQ(window->game().VariantLabel, "American Checkers");
  EXPECT_GE(window->board()->width(), 8 * 54);
  EXPECT_TRUE(messages.empty());
}

TEST(MainWindow, AWhitePieceCannotBeLiftedWhenBlackMoves) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  Drag(window->board(), "C3", "D4", window->game().Settings.BoardTurned);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "Error: Black moves");
}

TEST(MainWindow, AMoveDraggedWithTheMouseIsAnsweredByTheComputer) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  Drag(window->board(), "D6", "E5", window->game().Settings.BoardTurned);
  ASSERT_TRUE(WaitUntil([&] { return !window->ComputerThinking() && window->screen().List1.size() >= 2; }));
  EXPECT_EQ(window->screen().List1[0], "  1. d6-e5");
  EXPECT_EQ(window->game().HalfMoveCount, 2);
  EXPECT_EQ(window->game().SideToMove, -1);
  EXPECT_EQ(window->screen().Busy, 0);
  auto* list = window->findChildren<QListWidget*>().front();
  EXPECT_EQ(list->count(), 2);
  // The reply in the list is the one on the board.
  const Game& g = window->game();
  const MoveRecord& reply = g.Record.GameMoves[2];
  EXPECT_EQ(g.Board[reply.FromSquare], 0);
  EXPECT_NE(g.Board[reply.ToSquare], 0);
  EXPECT_EQ(window->screen().List1[1], "      " + MoveLabel(g, reply));
  EXPECT_TRUE(messages.empty());
}

TEST(MainWindow, ClosingDuringComputerComputerStopsTheGameFirst) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  window->screen().ComputerPause = 0.2;
  window->action(Command::ComputerComputer)->trigger();
  EXPECT_TRUE(window->ComputerThinking());
  window->close();
  ASSERT_TRUE(WaitUntil([&] { return !window->ComputerThinking(); }));
  QApplication::processEvents();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(window->game().Settings.PlayMode, 0);
}

// A box opened by a press takes that press's release; the next press on the
// board is a press of its own.
TEST(MainWindow, ThePressAfterAMessageBoxIsNotLost) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  window->game().Settings.DepthMode = 1;
  window->game().Settings.DepthLimit = 2;
  BoardWidget* board = window->board();
  const int turned = window->game().Settings.BoardTurned;
  const QPoint white = board->SquareCentre(SquareOfCell(SquareNumber("C3", 0, 1), turned));
  Send(board, QEvent::MouseButtonPress, white, Qt::LeftButton, Qt::LeftButton);  // its release never comes
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "Error: Black moves");
  Drag(board, "B6", "A5", turned);
  EXPECT_EQ(window->game().HalfMoveCount, 1);
  ASSERT_TRUE(WaitUntil([&] { return !window->ComputerThinking() && window->game().HalfMoveCount == 2; }));
}

// Every command has keys of its own, named in its tool tip.
TEST(MainWindow, EveryCommandHasKeysNamedInItsToolTip) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  for (Command c : {Command::NewGame, Command::NewVariant, Command::Exit, Command::Compute, Command::Cancel,
                    Command::OfferDraw, Command::Resign, Command::PlayerComputer, Command::PlayerPlayer,
                    Command::ComputerComputer, Command::First, Command::Back, Command::Forward, Command::Last,
                    Command::TurnBoard, Command::NotationNone, Command::NotationAlgebraic, Command::NotationNumeric,
                    Command::Calculation, Command::UseSound}) {
    QAction* a = window->action(c);
    ASSERT_NE(a, nullptr);
    EXPECT_FALSE(a->shortcut().isEmpty()) << a->text().toStdString();
    EXPECT_TRUE(a->toolTip().contains(a->shortcut().toString(QKeySequence::NativeText))) << a->text().toStdString();
  }
}

TEST(MainWindow, AFatalErrorOnTheWorkerStopsThenShowsTheBoxThenCloses) {
  std::vector<std::string> messages;
  auto window = OpenWindow(messages);
  const int before = window->game().HalfMoveCount;
  window->StartEngineJob(window->game(), [](Game& work, ThinkingReport&) -> ApplyOnWindow {
    work.Board[55] = WhiteKing;  // half-changed, on the worker's copy only
    throw FatalError("X=-1 K=0 Fatal Error! Quorvanis will exit.");
  });
  ASSERT_TRUE(WaitUntil([&] { return !window->isVisible(); }));
  EXPECT_FALSE(window->ComputerThinking());
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "Error: X=-1 K=0 Fatal Error! Quorvanis will exit.");
  EXPECT_EQ(window->game().HalfMoveCount, before);
  EXPECT_NE(window->game().Board[55], WhiteKing);
}

}  // namespace qv::gui

namespace {

// A test that ends the program the way a fatal error does asks the
// application to quit, and a quitting application runs no more dialogs.
// One turn of the main loop after each test clears that request.
class ClearQuitRequest : public ::testing::EmptyTestEventListener {
  void OnTestEnd(const ::testing::TestInfo&) override {
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
  }
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  // A test that closes its window must not end the event loops of the next.
  QApplication::setQuitOnLastWindowClosed(false);
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::UnitTest::GetInstance()->listeners().Append(new ClearQuitRequest);
  return RUN_ALL_TESTS();
}

// Every command, board click and list click while Computer-Computer play runs
// on the worker: the window's game changes only when a move the worker decided
// is applied on the window thread. Run under ThreadSanitizer too.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

#include "core/makemove.h"
#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"
#include "interaction_fixture.h"

namespace qv {

namespace {

class CommandsWhileThinkingTest : public InteractionTest {
 protected:
  // Everything a person can do in the window, short of closing it; Cancel
  // only when asked.
  void ClickEverything(bool withCancel) {
    for (int c = 0; c < static_cast<int>(Command::Count); ++c)
      if (withCancel || static_cast<Command>(c) != Command::Cancel) RunCommand(session, static_cast<Command>(c));
    for (const char* skin : {"Classic Medium", "Classic Small"}) PictureSetCommand(session, skin);
    SquarePress(session, Square("c3"), MouseButton::Left);
    SquareMove(session, Square("d4"), 100, 100);
    SquareRelease(session, Square("d4"), MouseButton::Left, 100, 100);
    SquarePress(session, Square("e5"), MouseButton::Right);
    SquareRelease(session, Square("e5"), MouseButton::Right, 0, 0);
    ClickGameList(session, 0);
    ClickLegalMove(session, 0);
    screen.Text2 = "b6-a5";
    EnterTypedMove(session);
  }

  // The game replayed from its record on a fresh game stands where the
  // window's game stands.
  void ExpectRecordMatchesBoard() {
    auto replay = std::make_unique<Game>();
    replay->Random.SetFixedSeed(7);
    NewGame(*replay);
    for (int n = 1; n <= game->HalfMoveCount; ++n) {
      const MoveRecord& m = game->Record.GameMoves[n];
      ASSERT_EQ(FindMove(*replay, MoveTextOf(m.FromSquare, m.ToSquare, 0)), -1) << "half-move " << n;
    }
    EXPECT_TRUE(std::equal(replay->Board.begin(), replay->Board.end(), game->Board.begin()));
    EXPECT_EQ(replay->SideToMove, game->SideToMove);
  }
};

}  // namespace

TEST_F(CommandsWhileThinkingTest, OnlyTheWorkersMovesChangeTheGame) {
  game->Settings.DepthMode = 1;
  game->Settings.DepthLimit = 4;
  game->Settings.ShowAvailableMoves = 1;
  screen.ComputerPause = 0;
  window.threaded = true;
  window.answerYes = true;
  RunCommand(session, Command::ComputerComputer);
  ASSERT_TRUE(window.worker.Busy());

  int seenTurns = -1;
  std::unique_ptr<Game> atStart;
  std::vector<std::string> listAtStart;
  const int cancelAt = 16;
  // Until the play has ended: once it has, a click would start something new.
  while (screen.Busy == 1) {
    if (window.turns != seenTurns) {
      seenTurns = window.turns;
      atStart = std::make_unique<Game>(*game);
      listAtStart = screen.List1;
    }
    ClickEverything(game->HalfMoveCount >= cancelAt);
    // Still the same job: nothing the clicks did reached the game.
    if (window.turns == seenTurns && window.worker.Busy()) {
      ASSERT_TRUE(std::equal(game->Board.begin(), game->Board.end(), atStart->Board.begin()));
      ASSERT_EQ(game->HalfMoveCount, atStart->HalfMoveCount);
      ASSERT_EQ(game->Settings.NotationKind, atStart->Settings.NotationKind);
      ASSERT_EQ(game->Settings.BoardTurned, atStart->Settings.BoardTurned);
      ASSERT_EQ(game->Settings.PlayMode, atStart->Settings.PlayMode);
      ASSERT_EQ(screen.List1, listAtStart);
      ASSERT_EQ(screen.Busy, 1);
    }
    window.Pump();
    std::this_thread::sleep_for(std::chrono::microseconds(300));
  }
  EXPECT_FALSE(window.Pump());
  EXPECT_TRUE(window.fatals.empty());
  EXPECT_GE(game->HalfMoveCount, cancelAt);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(game->Settings.PlayMode, 0);
  EXPECT_EQ(static_cast<int>(screen.List1.size()), game->HalfMoveCount);
  ExpectRecordMatchesBoard();
  EXPECT_GE(window.stops, 1);
}

// Cancel while the worker thinks: the best move so far is played at once and
// Computer-Computer play ends; the commands come back.
TEST_F(CommandsWhileThinkingTest, CancelMovesAtOnceAndEndsComputerComputer) {
  game->Settings.DepthMode = 0;
  game->Settings.TimeLimit = 60;
  screen.ComputerPause = 0;
  window.threaded = true;
  RunCommand(session, Command::ComputerComputer);
  EXPECT_EQ(screen[Command::Cancel].Enabled, 1);
  EXPECT_FALSE(CommandAvailable(screen, Command::NewGame));
  EXPECT_FALSE(CommandAvailable(screen, Command::NotationNumeric));
  EXPECT_FALSE(CommandAvailable(screen, Command::BoardMenu));
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  const auto pressed = std::chrono::steady_clock::now();
  RunCommand(session, Command::Cancel);
  while (window.Pump()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_LT(std::chrono::steady_clock::now() - pressed, std::chrono::seconds(5));
  EXPECT_EQ(game->HalfMoveCount, 1);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_TRUE(CommandAvailable(screen, Command::NewGame));
  EXPECT_FALSE(CommandAvailable(screen, Command::Cancel));
  ExpectRecordMatchesBoard();
}

}  // namespace qv

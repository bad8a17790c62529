// What the window shows around the computer's turn and at the end of a game:
// the commands an ended game leaves, the analysis list of the computer's root
// moves, the movable-piece boxes while it thinks.
#include <algorithm>

#include "interaction_fixture.h"
#include "position_helpers.h"

#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"

namespace qv {

namespace {

class WindowAfterTurnTest : public InteractionTest {
 protected:
  void SetUpPosition(std::initializer_list<std::pair<const char*, int>> pieces, int sideToMove) {
    testing::SetPosition(*game, pieces, sideToMove);
    AdoptBoardPosition(*game);
    RefreshMoveChoices(session);
    RefreshBoard(session, 0);
    game->Settings.DepthMode = 1;
    game->Settings.DepthLimit = 3;
  }
  void ExpectEndedGameCommands() {
    for (Command c : {Command::Compute, Command::ComputerComputer, Command::Analyze, Command::OfferDraw,
                      Command::Resign, Command::Hint, Command::List2})
      EXPECT_EQ(screen[c].Enabled, 0) << static_cast<int>(c);
    for (Command c : {Command::NewGame, Command::Back, Command::PlayerPlayer, Command::TurnBoard})
      EXPECT_TRUE(CommandAvailable(screen, c)) << static_cast<int>(c);
  }
};

}  // namespace

TEST_F(WindowAfterTurnTest, ThePlayersWinningMoveLeavesTheCommandsOfAnEndedGame) {
  SetUpPosition({{"C3", WhiteMan}, {"D4", BlackMan}}, 1);
  screen.Text2 = "c3xe5";
  EnterTypedMove(session);
  ASSERT_EQ(game->GameOver, 1);
  EXPECT_EQ(window.messages.back(), "Congratulations: White wins!");
  EXPECT_EQ(window.turns, 0);
  ExpectEndedGameCommands();
  // Offer draw and Resign are gone with the game.
  window.messages.clear();
  RunCommand(session, Command::OfferDraw);
  RunCommand(session, Command::Resign);
  EXPECT_TRUE(window.messages.empty());
}

TEST_F(WindowAfterTurnTest, TheComputersWinningMoveLeavesTheCommandsOfAnEndedGame) {
  SetUpPosition({{"C3", WhiteMan}, {"D4", BlackMan}}, -1);
  RunCommand(session, Command::Compute);
  ASSERT_EQ(game->GameOver, 1);
  ExpectEndedGameCommands();
}

TEST_F(WindowAfterTurnTest, ComputerComputerToTheEndLeavesTheCommandsOfAnEndedGame) {
  SetUpPosition({{"A1", WhiteMan}, {"C3", WhiteMan}, {"F6", BlackMan}, {"H8", BlackMan}}, 1);
  screen.ComputerPause = 0;
  RunCommand(session, Command::ComputerComputer);
  ASSERT_EQ(game->GameOver, 1);
  ExpectEndedGameCommands();
  EXPECT_TRUE(screen.List3.empty());  // never shown in Computer-Computer play
}

TEST_F(WindowAfterTurnTest, TheComputersRootMovesAndScoresStandInTheAnalysisList) {
  game->Settings.DepthMode = 1;
  game->Settings.DepthLimit = 4;
  RunCommand(session, Command::Compute);
  ASSERT_EQ(game->HalfMoveCount, 1);
  // Seven opening moves, highest score first, as "b6a5 12".
  ASSERT_EQ(screen.List3.size(), 7u);
  int last = 1 << 30;
  for (const std::string& row : screen.List3) {
    ASSERT_EQ(row[4], ' ') << row;
    const int score = std::stoi(row.substr(5));
    EXPECT_LE(score, last) << row;
    last = score;
  }
  // The move played is among them.
  const MoveRecord& played = game->Record.GameMoves[1];
  const std::string playedText = SquareNotation(played.FromSquare, 1, 0) + SquareNotation(played.ToSquare, 1, 0);
  EXPECT_TRUE(std::any_of(screen.List3.begin(), screen.List3.end(),
                          [&](const std::string& row) { return row.substr(0, 4) == playedText; }));
  EXPECT_EQ(screen[Command::List3].Enabled, 0);  // filled, not offered: only an analysis offers it
}

TEST_F(WindowAfterTurnTest, TheMovablePieceBoxesComeOffWhileTheComputerThinks) {
  game->Settings.ShowAvailableMoves = 1;
  MarkMovablePieces(session);
  auto boxed = [&] {
    return std::count_if(screen.View.Squares.begin(), screen.View.Squares.end(),
                         [](const SquareView& v) { return v.Boxed == 1; });
  };
  ASSERT_GT(boxed(), 0);
  window.runTurns = false;
  RunCommand(session, Command::Compute);
  EXPECT_EQ(boxed(), 0);
  // Nothing on the board answers until the turn is over.
  SquareMove(session, Square("b6"), 10, 10);
  EXPECT_EQ(boxed(), 0);
}

}  // namespace qv

#include "interaction_fixture.h"
#include "position_helpers.h"

#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"

namespace qv {

namespace {

class MoveEntryTest : public InteractionTest {
 protected:
  int Size() const { return SquareTwips(game->Settings.SkinKind, screen.SkinBoardSize, screen.TwipsPerPixel); }

  // Press on `from`, carry the piece in a few steps and release it over the
  // middle of `to` (or `dx`, `dy` twips from the pressed square when given).
  void Drag(const char* from, const char* to) {
    const int a = Square(from), b = Square(to);
    const int dx = (b % 8 - a % 8) * Size() + Size() / 2, dy = (b / 8 - a / 8) * Size() + Size() / 2;
    DragBy(from, dx, dy);
  }
  void DragBy(const char* from, int dx, int dy) {
    const int a = Square(from);
    SquareMove(session, a, Size() / 2, Size() / 2);
    SquarePress(session, a, MouseButton::Left);
    for (int step = 1; step <= 3; ++step) SquareMove(session, a, Size() / 2 + (dx - Size() / 2) * step / 3,
                                                    Size() / 2 + (dy - Size() / 2) * step / 3);
    SquareRelease(session, a, MouseButton::Left, dx, dy);
  }
  int Cell(const char* name) const { return SquareNumber(ToUpperName(name), 0, 1); }
  void Type(const char* text) {
    screen.Text2 = text;
    EnterTypedMove(session);
  }
  std::string Messages() const {
    std::string all;
    for (const std::string& m : window.messages) all += m + "\n";
    return all;
  }
};

}  // namespace

TEST_F(MoveEntryTest, AGameEnteredWithTheMouseFillsTheRecordAndTheLists) {
  SetPlayerPlayer(session);
  Drag("d6", "e5");
  Drag("c3", "d4");
  Drag("e5", "c3");  // the jump over d4
  Drag("b2", "d4");  // and back
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(game->HalfMoveCount, 4);
  EXPECT_EQ(game->GameLength, 4);
  EXPECT_EQ(game->GameInProgress, 1);
  ASSERT_EQ(screen.List1.size(), 4u);
  EXPECT_EQ(screen.List1[0], "  1. d6-e5");
  EXPECT_EQ(screen.List1[1], "      c3-d4");
  EXPECT_EQ(screen.List1[2], "  2. e5xc3");
  EXPECT_EQ(screen.List1[3], "      b2xd4");
  EXPECT_EQ(screen.List1Selected, 3);
  EXPECT_EQ(game->MoveTextTable[1][FirstHalfText], "d6e5 d6-e5");
  EXPECT_EQ(game->MoveTextTable[2][SecondHalfText], "b2d4 b2xd4");
  EXPECT_EQ(game->MoveTextTable[2][SecondMoverCode], "2");
  EXPECT_EQ(game->Record.GameMoves[3].FromSquare, Cell("e5"));
  EXPECT_EQ(game->Record.GameMoves[3].ToSquare, Cell("c3"));
  EXPECT_EQ(game->Record.GameMoves[5].FromSquare, 0);
  EXPECT_EQ(game->Board[Cell("d4")], WhiteMan);
  EXPECT_EQ(game->Board[Cell("e5")], 0);
  EXPECT_EQ(screen.View.Label5, "11");
  EXPECT_EQ(screen.View.Label6, "11");
  EXPECT_EQ(screen.Carry.DragSource, -1);
  EXPECT_EQ(window.pointer, ImageRole::None);
  EXPECT_EQ(screen[Command::Back].Enabled, 1);
  EXPECT_EQ(screen[Command::Forward].Enabled, 0);
  EXPECT_EQ(window.turns, 0);  // Player-Player: the computer never moves
  EXPECT_EQ(screen.StatusText, "Black moves");
  // The legal moves of Black are listed again.
  EXPECT_FALSE(screen.List2.empty());
}

TEST_F(MoveEntryTest, APlayedGameEndsWhenTheLastPieceIsTaken) {
  SetPlayerPlayer(session);
  window.popupAnswer = PopupItem::ClearBoard;
  SquarePress(session, Square("e5"), MouseButton::Right);
  SquareRelease(session, Square("e5"), MouseButton::Right, 10, 10);
  for (auto [square, item] : {std::pair{"e5", PopupItem::BlackChecker}, {"d4", PopupItem::WhiteChecker}}) {
    SquareMove(session, Square(square), 5, 5);
    window.popupAnswer = item;
    SquarePress(session, Square(square), MouseButton::Right);
    SquareRelease(session, Square(square), MouseButton::Right, 5, 5);
  }
  SquareMove(session, Square("e5"), 5, 5);
  ASSERT_EQ(game->SideToMove, -1);
  Drag("e5", "c3");
  EXPECT_EQ(game->GameOver, 1);
  EXPECT_EQ(screen.List1.size(), 1u);
  // A finished game takes no more mouse moves.
  SquarePress(session, Square("c3"), MouseButton::Left);
  EXPECT_EQ(screen.Carry.DragSource, -1);
  // Back opens the game again.
  BackCommand(session);
  EXPECT_EQ(game->GameOver, 0);
  EXPECT_EQ(game->Board[Cell("d4")], WhiteMan);
  EXPECT_EQ(screen[Command::Compute].Enabled, 1);
}

TEST_F(MoveEntryTest, EveryRefusalOfTheMouseHasItsMessage) {
  SquarePress(session, Square("b8"), MouseButton::Left);  // boxed in by its own men
  SquareRelease(session, Square("b8"), MouseButton::Left, 10, 10);
  EXPECT_EQ(Messages(), "Error: You cannot move that piece\n");
  EXPECT_EQ(screen.View.Squares[Square("b8")].Image, ImageRole::DarkBlackMan);
  window.messages.clear();

  Drag("b6", "c7");
  EXPECT_EQ(Messages(), "Error: Illegal move: that square is not empty\n");
  window.messages.clear();
  Drag("b6", "d4");
  EXPECT_EQ(Messages(), "Error: Illegal move\n");
  window.messages.clear();
  EXPECT_EQ(game->HalfMoveCount, 0);
  EXPECT_EQ(screen.View.Squares[Square("b6")].Image, ImageRole::DarkBlackMan);

  // Dropped where it came from, on a light square or beside the board: no move, no word.
  Drag("b6", "b6");
  Drag("b6", "b5");
  DragBy("h6", -Size(), Size() / 2);  // one square beyond the board's edge
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(game->HalfMoveCount, 0);
  EXPECT_EQ(screen.View.Squares[Square("h6")].Image, ImageRole::DarkBlackMan);

  SetPlayerPlayer(session);
  Drag("d6", "e5");
  Drag("c3", "d4");
  Drag("f6", "g5");  // only the jump may move now
  EXPECT_EQ(Messages(), "Error: You cannot move that piece\n");
  window.messages.clear();
  Drag("e5", "f4");
  EXPECT_EQ(Messages(), "Error: Illegal move: you need to jump\n");
  EXPECT_EQ(game->HalfMoveCount, 2);
}

TEST_F(MoveEntryTest, TypedAndListedMovesAreFoundOrRefused) {
  SetPlayerPlayer(session);
  Type("d6-e5");
  EXPECT_EQ(game->HalfMoveCount, 1);
  EXPECT_EQ(screen.Text2, "");
  Type("c3-c4");
  EXPECT_EQ(Messages(), "Error: Illegal move\n");
  EXPECT_EQ(screen[Command::Text2].Enabled, 1);
  // A row of the legal moves plays it.
  const auto row = std::find(screen.List2.begin(), screen.List2.end(), "c3-d4");
  ASSERT_NE(row, screen.List2.end());
  ClickLegalMove(session, static_cast<int>(row - screen.List2.begin()));
  EXPECT_EQ(game->HalfMoveCount, 2);
  Type("E5XC3");
  EXPECT_EQ(game->HalfMoveCount, 3);
  EXPECT_EQ(screen.List1[2], "  2. e5xc3");

  // Numeric notation: the list is rewritten and numbers are typed.
  SetNotation(session, 1);
  EXPECT_EQ(screen.List1[0], "  1. 10-15");
  EXPECT_EQ(screen.List1[2], "  2. 15x22");
  EXPECT_EQ(game->MoveTextTable[1][FirstHalfText], "1015 10-15");
  Type("25x18");  // b2 takes c3 and lands on d4
  EXPECT_EQ(game->HalfMoveCount, 4);
  EXPECT_EQ(screen.List1[3], "      25x18");
  SetNotation(session, 0);
  EXPECT_EQ(screen.List1[3], "      b2xd4");
  EXPECT_EQ(Messages(), "Error: Illegal move\n");
}

TEST_F(MoveEntryTest, NavigationWalksTheGameAndANewMoveCutsTheTail) {
  SetPlayerPlayer(session);
  for (const char* move : {"d6-e5", "c3-d4", "e5xc3", "b2xd4"}) Type(move);
  const BoardCells end = game->Board;
  BackCommand(session);
  EXPECT_EQ(game->HalfMoveCount, 3);
  EXPECT_EQ(game->Board[Cell("c3")], BlackMan);
  EXPECT_EQ(game->SideToMove, 1);
  EXPECT_EQ(screen.List1Selected, 2);
  EXPECT_EQ(screen[Command::Forward].Enabled, 1);
  ForwardCommand(session);
  EXPECT_EQ(game->Board, end);
  EXPECT_EQ(screen[Command::Forward].Enabled, 0);
  FirstCommand(session);
  EXPECT_EQ(game->HalfMoveCount, 0);
  EXPECT_EQ(game->Board, game->StartBoard);
  EXPECT_EQ(screen[Command::First].Enabled, 0);
  EXPECT_EQ(screen[Command::Back].Enabled, 0);
  EXPECT_EQ(screen.List1Selected, -1);
  FirstCommand(session);  // nothing to do
  EXPECT_EQ(game->HalfMoveCount, 0);
  LastCommand(session);
  EXPECT_EQ(game->HalfMoveCount, 4);
  EXPECT_EQ(game->Board, end);
  ClickGameList(session, 1);  // the row of half move 2
  EXPECT_EQ(game->HalfMoveCount, 2);
  EXPECT_EQ(screen.List1.size(), 4u);
  EXPECT_EQ(Messages(), "");

  // The comment of a half move comes back with it.
  game->Record.CommentTable[2] = "White offers a man";
  BackCommand(session);
  ForwardCommand(session);
  EXPECT_EQ(screen.Text1, "White offers a man");

  // A different move here replaces everything after it.
  BackCommand(session);
  ASSERT_EQ(game->HalfMoveCount, 1);
  ASSERT_EQ(game->SideToMove, 1) << Messages();
  Type("g3-h4");
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(game->HalfMoveCount, 2);
  EXPECT_EQ(game->GameLength, 2);
  ASSERT_EQ(screen.List1.size(), 2u);
  EXPECT_EQ(screen.List1[1], "      g3-h4");
  EXPECT_EQ(game->Record.GameMoves[3].FromSquare, 0);
  EXPECT_EQ(game->MoveTextTable[2][FirstHalfText], "");
  EXPECT_EQ(screen[Command::Forward].Enabled, 0);
  LastCommand(session);
  EXPECT_EQ(game->HalfMoveCount, 2);
}

TEST_F(MoveEntryTest, TheComputersDrawOfferIsAskedOnceItsMoveStands) {
  testing::SetPosition(*game, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"F8", BlackKing}, {"H8", BlackKing}}, 1);
  AdoptBoardPosition(*game);
  game->Settings.DepthMode = 1;
  game->Settings.DepthLimit = 2;
  game->Settings.AskDrawIfComputerDraws = 1;
  game->HalfMoveCount = 50;  // long enough since the last offer
  game->StableCount = 2;     // the score has stood still
  StartComputerMove(session);
  ASSERT_GE(window.messages.size(), 2u);
  EXPECT_EQ(window.messages[window.messages.size() - 2], "Question: How about a draw?");
  EXPECT_EQ(window.messages.back(), "Congratulations: PlayerIt's a draw!");
  EXPECT_EQ(screen.List1.size(), 1u);  // asked with the move already in the list
  EXPECT_EQ(game->GameOver, 1);
  EXPECT_EQ(game->GameResult, "1/2-1/2");
  EXPECT_EQ(screen[Command::Compute].Enabled, 0);
}

TEST_F(MoveEntryTest, TheComputerRepliesAndBusyBlocksTheBoard) {
  Drag("d6", "e5");
  EXPECT_EQ(window.turns, 1);
  EXPECT_EQ(game->HalfMoveCount, 2);
  EXPECT_EQ(screen.List1.size(), 2u);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(game->SideToMove, -1);
  EXPECT_EQ(screen[Command::Cancel].Enabled, 0);
  EXPECT_EQ(screen[Command::Compute].Enabled, 1);
  EXPECT_EQ(screen[Command::BoardMenu].Enabled, 1);

  // While the computer thinks, board, lists and typed moves are refused without a word.
  window.runTurns = false;
  StartComputerMove(session);
  EXPECT_EQ(screen.Busy, 1);
  EXPECT_EQ(screen.StatusText, "Thinking...");
  EXPECT_EQ(screen[Command::Cancel].Enabled, 1);
  EXPECT_EQ(screen[Command::NewGame].Enabled, 0);
  EXPECT_EQ(screen[Command::Back].Enabled, 0);
  SquarePress(session, Square("b6"), MouseButton::Left);
  EXPECT_EQ(screen.Carry.DragSource, -1);
  Type("b6-a5");
  ClickGameList(session, 0);
  EXPECT_EQ(game->HalfMoveCount, 2);
  CancelCommand(session);
  EXPECT_EQ(window.stops, 1);
  EXPECT_EQ(screen[Command::Cancel].Enabled, 0);
  ComputerTurnFinished(session, TurnReason::Compute);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(screen[Command::NewGame].Enabled, 1);
  EXPECT_TRUE(window.messages.empty());

  // A new game now asks first.
  window.answerYes = false;
  NewGameCommand(session, 0);
  EXPECT_EQ(window.messages.back(), "Confirmation: Quit current game?");
  EXPECT_EQ(game->HalfMoveCount, 2);
  window.answerYes = true;
  NewGameCommand(session, 0);
  EXPECT_EQ(game->HalfMoveCount, 0);
  EXPECT_TRUE(screen.List1.empty());
}

TEST_F(MoveEntryTest, ComputerComputerPlaysUntilTheEndAndHandsBackTheBoard) {
  // White to move takes Black's last two men one after the other.
  for (int& v : game->Board)
    if (v != OffBoard) v = 0;
  game->Board[Cell("c3")] = WhiteMan;
  game->Board[Cell("d4")] = BlackMan;
  game->Board[Cell("f6")] = BlackMan;
  game->SideToMove = 1;
  AdoptBoardPosition(*game);
  ShowNewGame(session);
  RunComputerComputer(session);
  EXPECT_EQ(game->GameOver, 1);
  EXPECT_EQ(game->HalfMoveCount, 1);
  EXPECT_EQ(screen.List1[0], "  1. c3xg7");
  EXPECT_EQ(static_cast<int>(screen.List1.size()), game->HalfMoveCount);
  EXPECT_EQ(game->Settings.PlayMode, 0);
  EXPECT_EQ(screen[Command::PlayerComputer].Checked, 1);
  EXPECT_EQ(screen[Command::ComputerComputer].Checked, 0);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(screen[Command::Compute].Enabled, 0);
}

}  // namespace qv

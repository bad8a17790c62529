#include "interaction_fixture.h"

#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"

namespace qv {

TEST(BoardViewGeometry, SquareIndexAndCellAreInverseInBothOrientations) {
  for (int turned = 0; turned <= 1; ++turned)
    for (int index = 0; index < 64; ++index) EXPECT_EQ(SquareOfCell(CellOfSquare(index, turned), turned), index);
  EXPECT_EQ(CellOfSquare(0, 0), 91);   // a8 top left
  EXPECT_EQ(CellOfSquare(63, 0), 28);  // h1 bottom right
  EXPECT_EQ(CellOfSquare(0, 1), 28);   // turned: h1 top left
  EXPECT_EQ(CellOfSquare(56, 1), 98);  // turned: h8 bottom left
}

TEST(BoardViewGeometry, SquareSizesFollowPictureSetAndScale) {
  EXPECT_EQ(SquareTwips(0, -1, 15), 570);
  EXPECT_EQ(SquareTwips(2, -1, 15), 810);
  EXPECT_EQ(SquareTwips(3, -1, 15), 1050);
  EXPECT_EQ(SquareTwips(0, -1, 12), 460);
  EXPECT_EQ(SquareTwips(2, -1, 12), 655);
  // The big board keeps its size on a large-font screen; only code 1 shrinks.
  EXPECT_EQ(SquareTwips(3, -1, 12), 1050);
  EXPECT_EQ(SquareTwips(1, -1, 12), 840);
  EXPECT_EQ(SquareTwips(4, 0, 15), 570);
  EXPECT_EQ(SquareTwips(4, 1, 15), 1050);
}

TEST(BoardViewGeometry, PiecesOnBothColoursPickTheLightPicture) {
  EXPECT_EQ(CellImage(WhiteMan, 22, 1), ImageRole::DarkWhiteMan);  // b1 is light with pieces on dark
  EXPECT_EQ(CellImage(WhiteMan, 22, 2), ImageRole::LightWhiteMan);
  EXPECT_EQ(CellImage(BlackKing, 21, 2), ImageRole::DarkBlackKing);
  EXPECT_EQ(CellImage(0, 21, 1), ImageRole::EmptyDark);
  EXPECT_EQ(CellImage(0, 21, 0), ImageRole::EmptyLight);
}

TEST_F(InteractionTest, StartUpShowsAmericanCheckersTurnedForBlack) {
  EXPECT_EQ(game->Settings.BoardTurned, 1);
  EXPECT_EQ(screen.StatusText, "Black moves");
  EXPECT_EQ(screen.View.Label3, "Black");
  EXPECT_EQ(screen.View.Label4, "White");
  EXPECT_EQ(screen.View.Label1, "Player");
  EXPECT_EQ(screen.View.Label2, "Computer");
  EXPECT_EQ(screen.View.Label1ToMove, 1);
  EXPECT_EQ(screen.View.Label5, "12");
  EXPECT_EQ(screen.View.Label6, "12");
  EXPECT_EQ(screen.View.ExtraPiecesShown, 0);
  EXPECT_EQ(screen.Label9, "no calculation");
  // Turned: White's men at the top, files from h to a, rank 1 at the top.
  EXPECT_EQ(screen.View.Squares[Square("a1")].Image, ImageRole::DarkWhiteMan);
  EXPECT_EQ(screen.View.Squares[Square("a8")].Image, ImageRole::EmptyLight);
  EXPECT_EQ(screen.View.Squares[Square("b8")].Image, ImageRole::DarkBlackMan);
  EXPECT_EQ(screen.View.FileLabels[0], "h");
  EXPECT_EQ(screen.View.RankLabels[0], "8");
  EXPECT_EQ(screen[Command::Back].Enabled, 0);
  EXPECT_EQ(screen[Command::Cancel].Enabled, 0);
  EXPECT_EQ(screen[Command::PlayerComputer].Checked, 1);
  EXPECT_EQ(screen[Command::NotationAlgebraic].Checked, 1);
}

TEST_F(InteractionTest, TurnBoardAndNotationCommandsRepaintTheLabels) {
  TurnBoardCommand(session);
  EXPECT_EQ(game->Settings.BoardTurned, 0);
  EXPECT_EQ(screen.View.FileLabels[0], "a");
  EXPECT_EQ(screen.View.RankLabels[0], "1");
  EXPECT_EQ(screen.View.Squares[56].Image, ImageRole::DarkWhiteMan);  // a1 bottom left

  SetNotation(session, 1);
  EXPECT_EQ(screen[Command::NotationNumeric].Checked, 1);
  EXPECT_EQ(screen[Command::NotationAlgebraic].Checked, 0);
  // Numbers of the bottom row's playable squares, and the first square of each row.
  EXPECT_EQ(screen.View.FileLabels[0], "29");
  EXPECT_EQ(screen.View.FileLabels[1], "");
  EXPECT_EQ(screen.View.FileLabels[6], "32");
  EXPECT_EQ(screen.View.RankLabels[0], "29");
  EXPECT_EQ(screen.View.RankLabels[7], "1");
  TurnBoardCommand(session);
  EXPECT_EQ(screen.View.FileLabels[0], "4");
  EXPECT_EQ(screen.View.RankLabels[0], "4");
  EXPECT_EQ(screen.View.RankLabels[7], "32");

  SetNotation(session, 2);
  for (const std::string& label : screen.View.FileLabels) EXPECT_EQ(label, "");
  EXPECT_EQ(screen[Command::NotationNone].Checked, 1);

  // With pieces on both colours numeric notation is refused without a word.
  SetNotation(session, 0);
  game->RuleSet.PiecesOnBlack = 2;
  SetNotation(session, 1);
  EXPECT_EQ(game->Settings.NotationKind, 0);
  EXPECT_TRUE(window.messages.empty());
}

TEST_F(InteractionTest, PressOnAnEmptySquareShowsNumbersUntilRelease) {
  const int e = Square("d4");
  SquarePress(session, e, MouseButton::Left);
  EXPECT_EQ(screen.Carry.EmptyClick, 1);
  // Square 1 is in the top row of the board whatever its orientation: b8 stands bottom right when turned.
  EXPECT_EQ(screen.View.Squares[Square("b8")].Number, 1);
  EXPECT_EQ(screen.View.Squares[Square("g1")].Number, 32);
  EXPECT_EQ(screen.View.Squares[Square("a8")].Number, 0);
  SquareRelease(session, e, MouseButton::Left, 10, 10);
  EXPECT_EQ(screen.Carry.EmptyClick, 0);
  EXPECT_EQ(screen.View.Squares[Square("b8")].Number, 0);
}

TEST_F(InteractionTest, PressOnTheOtherSidesPieceIsRefused) {
  SquarePress(session, Square("c3"), MouseButton::Left);
  ASSERT_EQ(window.messages.size(), 1u);
  EXPECT_EQ(window.messages[0], "Error: Black moves");
  EXPECT_EQ(screen.Carry.DragSource, -1);
  EXPECT_EQ(screen.View.Squares[Square("c3")].Image, ImageRole::DarkWhiteMan);
}

TEST_F(InteractionTest, PopupEditorStartsAGameFromTheEditedPosition) {
  // A right click on a light square opens nothing.
  SquarePress(session, Square("a2"), MouseButton::Right);
  SquareRelease(session, Square("a2"), MouseButton::Right, 10, 10);
  EXPECT_EQ(window.popups, 0);

  window.popupAnswer = PopupItem::ClearBoard;
  SquarePress(session, Square("c3"), MouseButton::Right);
  EXPECT_EQ(screen.Carry.RightPending, Square("c3"));
  SquareRelease(session, Square("c3"), MouseButton::Right, 10, 10);
  EXPECT_EQ(window.popups, 1);
  EXPECT_EQ(window.lastPopup.piece, PopupItem::WhiteChecker);
  EXPECT_EQ(window.lastPopup.blackMoves, 1);
  EXPECT_EQ(screen.View.Label5, "0");
  EXPECT_EQ(game->CustomPosition, 1);
  EXPECT_EQ(game->VariantLabel, "American Checkers (M)");
  // Presses wait until the pointer has moved over a square.
  EXPECT_EQ(screen.Carry.SetupPending, 1);
  SquarePress(session, Square("c3"), MouseButton::Right);
  EXPECT_EQ(screen.Carry.RightPending, -1);
  SquareMove(session, Square("c3"), 10, 10);
  EXPECT_EQ(screen.Carry.SetupPending, 0);

  auto put = [&](const char* square, PopupItem item) {
    window.popupAnswer = item;
    SquarePress(session, Square(square), MouseButton::Right);
    SquareRelease(session, Square(square), MouseButton::Right, 5, 5);
    SquareMove(session, Square(square), 5, 5);
  };
  put("c3", PopupItem::WhiteKing);
  put("e5", PopupItem::BlackChecker);
  put("g7", PopupItem::WhiteMoves);
  EXPECT_EQ(game->Board[SquareNumber("C3", 0, 1)], WhiteKing);
  EXPECT_EQ(game->Board[SquareNumber("E5", 0, 1)], BlackMan);
  EXPECT_EQ(game->SideToMove, 1);
  EXPECT_EQ(game->RuleSet.BlackStarts, 0);
  EXPECT_EQ(game->StartBoard, game->Board);
  EXPECT_EQ(game->StartMaterial, 3);
  EXPECT_EQ(game->MaterialByPly[0], 100);  // seen by White: a king against a man
  // White starts now, so its total stands first.
  EXPECT_EQ(screen.View.Label3, "White");
  EXPECT_EQ(screen.View.Label5, "2");
  EXPECT_EQ(screen.View.Label6, "1");

  // "Priority" marks a square but leaves the game as it was.
  put("e5", PopupItem::Priority);
  EXPECT_EQ(game->FocusSquare, SquareNumber("E5", 0, 1));
  EXPECT_EQ(game->FocusPiece, BlackMan);
  EXPECT_EQ(game->Board[SquareNumber("E5", 0, 1)], BlackMan);
  EXPECT_EQ(game->SideToMove, 1);
}

TEST_F(InteractionTest, GameListRowsNumberFullMoves) {
  EXPECT_EQ(GameListRow(1, "c3-d4"), "  1. c3-d4");
  EXPECT_EQ(GameListRow(2, "f6-e5"), "      f6-e5");
  EXPECT_EQ(GameListRow(199, "a1-b2"), "100. a1-b2");
}

TEST_F(InteractionTest, PlayModesNameThePlayersAndSetTheCommands) {
  SetPlayerPlayer(session);
  EXPECT_EQ(game->Settings.PlayMode, 1);
  EXPECT_EQ(screen.View.Label2, "Player");
  EXPECT_EQ(screen[Command::OfferDraw].Enabled, 0);
  EXPECT_EQ(screen[Command::Resign].Enabled, 0);
  EXPECT_EQ(screen[Command::PlayerPlayer].Checked, 1);
  SetPlayerComputer(session);
  EXPECT_EQ(screen.View.Label1, "Player");
  EXPECT_EQ(screen.View.Label2, "Computer");
  EXPECT_EQ(screen[Command::Resign].Enabled, 1);

  DrawOffer(session);  // before any move: refused
  EXPECT_EQ(window.messages.back(), "Draw Offer: Offer rejected... Play on!");
  EXPECT_EQ(game->GameOver, 0);
  ResignGame(session);
  EXPECT_EQ(window.messages.back(), "Congratulations: OK... Computer wins!");
  EXPECT_EQ(game->GameOver, 1);
  EXPECT_EQ(screen.StatusText, "Computer wins!");
  EXPECT_EQ(screen[Command::Compute].Enabled, 0);
  EXPECT_EQ(screen[Command::List2].Enabled, 0);
  // No question without a game in progress; the new game opens the commands again.
  window.messages.clear();
  NewGameCommand(session, 0);
  EXPECT_TRUE(window.messages.empty());
  EXPECT_EQ(game->GameOver, 0);
  EXPECT_EQ(screen[Command::Compute].Enabled, 1);
}

}  // namespace qv

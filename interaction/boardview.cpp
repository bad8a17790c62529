#include "interaction/boardview.h"

#include <cstdlib>
#include <string>

namespace qv {

int CellOfSquare(int index, int boardTurned) {
  if (boardTurned == 1) return 28 + 10 * (index / 8) - (index % 8);
  return 91 - 10 * (index / 8) + (index % 8);
}

int SquareOfCell(int cell, int boardTurned) {
  const int row = cell / 10, column = cell % 10;
  if (boardTurned == 1) return (row - 1) * 8 - column;
  return (9 - row) * 8 + (column - 1);
}

ImageRole CellImage(int value, int cell, int piecesOnBlack) {
  const bool dark = SquareIsDark(cell, piecesOnBlack);
  const int kind = std::abs(value);
  if (kind == 0) return dark ? ImageRole::EmptyDark : ImageRole::EmptyLight;
  // With pieces on one colour only, a piece always shows its dark picture.
  const bool darkPicture = piecesOnBlack < 2 || dark;
  const bool white = value > 0;
  if (kind == 1) {
    if (darkPicture) return white ? ImageRole::DarkWhiteMan : ImageRole::DarkBlackMan;
    return white ? ImageRole::LightWhiteMan : ImageRole::LightBlackMan;
  }
  if (darkPicture) return white ? ImageRole::DarkWhiteKing : ImageRole::DarkBlackKing;
  return white ? ImageRole::LightWhiteKing : ImageRole::LightBlackKing;
}

ImageRole CarryIcon(int value) {
  switch (value) {
    case WhiteMan: return ImageRole::WhiteManIcon;
    case WhiteKing: return ImageRole::WhiteKingIcon;
    case BlackMan: return ImageRole::BlackManIcon;
    case BlackKing: return ImageRole::BlackKingIcon;
    default: return ImageRole::None;
  }
}

namespace {

// 0 Small, 1 Medium, 2 Big; -1 for a skin that named no size.
int SizeClass(int skinKind, int skinBoardSize) {
  switch (skinKind) {
    case 0: return 0;
    case 2: return 1;
    case 1:
    case 3: return 2;
    default: return skinBoardSize == 0 ? 0 : skinBoardSize == 2 ? 1 : skinBoardSize == 1 ? 2 : -1;
  }
}

}  // namespace

int SquareTwips(int skinKind, int skinBoardSize, int twipsPerPixel) {
  const bool large = twipsPerPixel == 12;
  switch (SizeClass(skinKind, skinBoardSize)) {
    case 0: return large ? 460 : 570;
    case 1: return large ? 655 : 810;
    case 2:
      // The large-font correction of the big board exists only for code 1.
      if (large && skinKind == 1) return 840;
      return 1050;
    default: return 810;
  }
}

int LabelPitchTwips(int skinKind, int skinBoardSize, int twipsPerPixel) {
  const bool large = twipsPerPixel == 12;
  switch (SizeClass(skinKind, skinBoardSize)) {
    case 0: return large ? 456 : 570;
    case 1: return large ? 648 : 809;
    case 2: return large ? 844 : 1049;
    default: return 809;
  }
}

void ShowCellPicture(Session& s, int index) {
  const Game& g = s.game;
  const int cell = CellOfSquare(index, g.Settings.BoardTurned);
  SquareView& square = s.screen.View.Squares[index];
  square.Image = CellImage(g.Board[cell], cell, g.RuleSet.PiecesOnBlack);
  square.Boxed = 0;
}

void ShowCellEmpty(Session& s, int index) {
  const Game& g = s.game;
  const int cell = CellOfSquare(index, g.Settings.BoardTurned);
  SquareView& square = s.screen.View.Squares[index];
  square.Image = CellImage(0, cell, g.RuleSet.PiecesOnBlack);
  square.Boxed = 0;
}

namespace {

void PaintSquares(Session& s, int& whiteTotal, int& blackTotal, bool& manSeen) {
  const Game& g = s.game;
  for (int row = 9; row >= 2; --row)
    for (int column = 1; column <= 8; ++column) {
      const int cell = row * 10 + column;
      const int value = g.Board[cell];
      const int kind = std::abs(value);
      if (kind > 2) continue;  // nothing else is ever drawn
      if (value > 0) whiteTotal += kind;
      if (value < 0) blackTotal += kind;
      if (kind == 1) manSeen = true;
      SquareView& square = s.screen.View.Squares[SquareOfCell(cell, g.Settings.BoardTurned)];
      square.Image = CellImage(value, cell, g.RuleSet.PiecesOnBlack);
      square.Boxed = 0;
      square.Number = 0;
    }
}

// Square numbers on every second square, 1 in the top row of the board
// whatever its orientation.
void NumberSquares(Session& s) {
  const Game& g = s.game;
  if (g.RuleSet.PiecesOnBlack == 2) return;
  const int wanted = g.RuleSet.PiecesOnBlack == 0 ? 0 : 1;
  int toggle = 0, number = 0;
  for (int row = 9; row >= 2; --row) {
    for (int column = 1; column <= 8; ++column) {
      if (toggle == wanted) {
        const int index = SquareOfCell(row * 10 + column, g.Settings.BoardTurned);
        s.screen.View.Squares[index].Number = ++number;
      }
      toggle ^= 1;
    }
    toggle ^= 1;
  }
}

void WriteNotationLabels(Session& s) {
  const Game& g = s.game;
  BoardView& view = s.screen.View;
  view.FileLabels.fill("");
  view.RankLabels.fill("");
  const int kind = g.Settings.NotationKind;
  if (kind == 2) return;
  const int turned = g.Settings.BoardTurned;
  if (kind == 0) {
    for (int i = 1; i <= 8; ++i) {
      char letter = static_cast<char>(turned == 1 ? 'h' - i + 1 : 'a' + i - 1);
      if (g.Settings.CapitalNotation == 1) letter = static_cast<char>(letter - 'a' + 'A');
      view.FileLabels[i - 1] = std::string(1, letter);
      view.RankLabels[i - 1] = std::to_string(turned == 1 ? 9 - i : i);
    }
    return;
  }
  if (g.RuleSet.PiecesOnBlack >= 2) return;
  // Numbers of the playable squares of the bottom row, one label every
  // second column; with the other colour in play they stand one square on.
  const int shift = g.RuleSet.PiecesOnBlack == 0 ? 1 : 0;
  for (int i = 1; i <= 8; i += 2) {
    const int n = i + 29 - (i + 1) / 2;
    view.FileLabels[i - 1 + shift] = std::to_string(turned == 1 ? 33 - n : n);
  }
  for (int i = 1; i <= 8; ++i)
    view.RankLabels[i - 1] = std::to_string(turned == 1 ? 30 - (4 * (9 - i) - 6) : 33 - 4 * i);
}

}  // namespace

void RefreshBoard(Session& s, int mode) {
  const Game& g = s.game;
  BoardView& view = s.screen.View;
  view.KingsOnlyLevel = 0;
  int whiteTotal = 0, blackTotal = 0;
  bool manSeen = false;
  PaintSquares(s, whiteTotal, blackTotal, manSeen);
  if (mode == 1) NumberSquares(s);
  if (whiteTotal == blackTotal && !manSeen) view.KingsOnlyLevel = 1;
  const std::string black = std::to_string(blackTotal), white = std::to_string(whiteTotal);
  view.Label5 = g.RuleSet.BlackStarts == 1 ? black : white;
  view.Label6 = g.RuleSet.BlackStarts == 1 ? white : black;
  view.ExtraPiecesShown = g.RuleSet.canContract == 1 ? 1 : 0;
  view.Label12 = std::to_string(g.ContractLeftBlack);
  view.Label14 = std::to_string(g.ContractLeftWhite);
  WriteNotationLabels(s);
  s.window.Changed(Part::Board | Part::Labels);
  RefreshPlayers(s);
}

void RefreshPlayers(Session& s) {
  const Game& g = s.game;
  BoardView& view = s.screen.View;
  const bool blackStarts = g.RuleSet.BlackStarts == 1;
  view.Label3 = blackStarts ? "Black" : "White";
  view.Label4 = blackStarts ? "White" : "Black";
  view.Label1 = g.FirstPlayerName;
  view.Label2 = g.SecondPlayerName;
  view.Label1ToMove = (blackStarts && g.SideToMove == -1) || (!blackStarts && g.SideToMove == 1) ? 1 : 0;
  s.screen.StatusText = g.SideToMove == 1 ? "White moves" : "Black moves";
  s.window.Changed(Part::Labels | Part::Status);
}

}  // namespace qv

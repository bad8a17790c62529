#pragma once
// Everything the main window shows, as plain data: the board view, the lists,
// texts and labels, the status panels and progress bar, which commands are
// enabled or checked, and the state of a mouse move in progress. The window
// layer draws from it; the interaction routines change it and say which part
// changed.
#include <array>
#include <string>
#include <vector>

#include "core/table.h"
#include "engine/root_moves.h"

namespace qv {

// The fourteen pictures of a picture set.
enum class ImageRole {
  None = -1,
  EmptyDark,
  EmptyLight,
  DarkBlackKing,
  DarkWhiteKing,
  DarkBlackMan,
  DarkWhiteMan,
  WhiteManIcon,
  BlackManIcon,
  WhiteKingIcon,
  BlackKingIcon,
  LightBlackKing,
  LightWhiteKing,
  LightBlackMan,
  LightWhiteMan,
};
inline constexpr int ImageRoleCount = 14;

constexpr bool IsEmptyImage(ImageRole role) { return role == ImageRole::EmptyDark || role == ImageRole::EmptyLight; }

// One of the 64 cells of the board view.
struct SquareView {
  ImageRole Image = ImageRole::EmptyLight;
  int Boxed = 0;   // the highlight box is drawn in it
  int Number = 0;  // square number shown while a press on an empty square is held, 0 none
};

struct BoardView {
  Table<SquareView, 64> Squares;
  // Notation labels, indexed by the column from the left and the row from the
  // bottom as seen on the screen. Empty text: no label.
  std::array<std::string, 8> FileLabels;
  std::array<std::string, 8> RankLabels;
  std::string Label1, Label2;  // names of the side that starts and of the other side
  std::string Label3, Label4;  // "Black" / "White" above them
  std::string Label5, Label6;  // piece totals, the side that starts in Label5
  int Label1ToMove = 1;        // 1: Label1 is the side to move (white on red), 0: Label2
  int ExtraPiecesShown = 0;    // the "Extra Pieces:" group is in use
  std::string Label12, Label14;  // pieces still off the board: Black, White
  int KingsOnlyLevel = 0;
};

// Menu items and toolbar buttons, and the other controls that get enabled
// and disabled.
enum class Command {
  NewGame,
  NewVariant,
  Open,
  Save,
  Compute,
  Cancel,
  First,
  Back,
  Forward,
  Last,
  OfferDraw,
  Resign,
  Hint,
  PlayerComputer,
  PlayerPlayer,
  ComputerComputer,
  Options,
  TurnBoard,
  Analyze,
  NotationNone,
  NotationAlgebraic,
  NotationNumeric,
  Calculation,
  UseSound,
  Exit,
  BoardMenu,
  List1,
  List2,
  List3,
  Text2,
  PlyValueTable,
  Count
};

struct ControlState {
  int Enabled = 1;
  int Checked = 0;
};

// The view-side state of a mouse move: a piece lifted and carried, the
// highlight boxes, the set-up popup.
struct CarryState {
  int DragSource = -1;  // SquareView index of the lifted piece, -1 none
  int DragOffsetX = 0, DragOffsetY = 0;  // last pointer position relative to the pressed square, twips
  int EmptyClick = 0;
  int HoverCell = 0;
  int HoverSquare = -1;
  int DragIconSet = 0;
  int HighlightDrawn = 0;
  int PopupJustClosed = 0;
  int RightPending = -1;
  int SetupPending = 0;
  int CircularMoveHere = 0;
  int PopupCell = 0;
  int BoardEdited = 0;
};

// Bits for WindowLayer::Changed.
namespace Part {
inline constexpr unsigned Board = 1, Labels = 2, Lists = 4, Status = 8, Commands = 16, Texts = 32, Progress = 64,
                          All = 0xffff;
}

struct Screen {
  BoardView View;
  CarryState Carry;
  int Busy = 0;  // the computer is calculating: board and list handlers return at once
  int TwipsPerPixel = 15;
  int SkinBoardSize = -1;  // geometry a skin file names: 0 Small, 2 Medium, 1 Big
  // The highlight box colours of a skin, blue-green-red packed: yellow and dark yellow until a skin says otherwise.
  int HighlightDark = 0x00FFFF;
  int HighlightLight = 0x008080;
  std::array<ControlState, static_cast<int>(Command::Count)> Controls{};

  std::string Title = "Quorvanis 1.58";
  std::string StatusText;   // the first status panel
  std::string ProductText;  // the product line
  std::string StrengthText;  // Label7
  std::string OpeningNameShown;  // the third panel: the opening the game is in
  int ProgressValue = 0;
  int ProgressMax = 100;
  std::string Label9 = "no calculation";  // the running calculation
  std::string Text1;  // comment of the current half move
  std::string Text2;  // typed move
  std::vector<std::string> List1;  // the game, one row a half move
  int List1Selected = -1;
  std::vector<std::string> List2;  // legal moves
  std::vector<std::string> List3;  // analysis
  std::vector<RootScore> RootInfo;  // the analysis table behind List3, best first

  double ComputerPause = 0.5;  // seconds between two moves of Computer-Computer play

  ControlState& operator[](Command c) { return Controls[static_cast<int>(c)]; }
  const ControlState& operator[](Command c) const { return Controls[static_cast<int>(c)]; }
};

}  // namespace qv

#include "interaction/mouse_entry.h"

#include "core/makemove.h"
#include "core/newgame.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/engine_calls.h"
#include "interaction/movelist.h"
#include "interaction/record.h"

namespace qv {

namespace {

int SquareSize(const Session& s) {
  const Options& o = s.game.Settings;
  return SquareTwips(o.SkinKind, s.screen.SkinBoardSize, s.screen.TwipsPerPixel);
}

// The legal moves of the position, as the generator left them.
template <class F>
void ForEachLegalMove(const Game& g, F&& f) {
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) f(g.MoveStack[i]);
}

bool HasMoveFrom(const Game& g, int cell) {
  bool found = false;
  ForEachLegalMove(g, [&](const MoveRecord& m) { found = found || m.FromSquare == cell; });
  return found;
}

void Box(Session& s, int cell) { s.screen.View.Squares[SquareOfCell(cell, s.game.Settings.BoardTurned)].Boxed = 1; }

// A piece was picked: only the targets of the piece under the pointer stay boxed.
void BoxTargetsOfPickedPiece(Session& s) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  if (c.HoverSquare >= 0) s.screen.View.Squares[c.HoverSquare].Boxed = 0;
  ForEachLegalMove(g, [&](const MoveRecord& m) {
    if (m.FromSquare != DropSource && m.FromSquare != c.HoverCell)
      ShowCellPicture(s, SquareOfCell(m.FromSquare, g.Settings.BoardTurned));
  });
  c.HighlightDrawn = 1;
  ForEachLegalMove(g, [&](const MoveRecord& m) {
    if (m.FromSquare == c.HoverCell) Box(s, m.ToSquare);
  });
}

void PickUp(Session& s, int index) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  c.DragSource = index;
  const int cell = CellOfSquare(index, g.Settings.BoardTurned);
  ShowCellEmpty(s, index);
  const int v = g.Board[cell];
  if (SideOf(v) != g.SideToMove) {
    ShowCellPicture(s, index);
    s.window.Changed(Part::Board);
    s.window.ShowMessage(g.SideToMove == 1 ? "White moves" : "Black moves", "Error", BoxIcon::Exclamation);
    c.DragSource = -1;
    return;
  }
  c.CircularMoveHere = 0;
  ForEachLegalMove(g, [&](const MoveRecord& m) {
    if (m.FromSquare == cell && m.ToSquare == cell) c.CircularMoveHere = 1;
  });
  if (!HasMoveFrom(g, cell)) {
    ShowCellPicture(s, index);
    s.window.Changed(Part::Board);
    s.window.ShowMessage("You cannot move that piece", "Error", BoxIcon::Exclamation);
    c.DragSource = -1;
    return;
  }
  s.window.SetPointer(CarryIcon(v));
  if (g.Settings.ShowAvailableMoves == 1) {
    BoxTargetsOfPickedPiece(s);
    if (g.TouchedCell == 0) g.TouchedCell = cell;
  }
  s.window.Changed(Part::Board);
}

// The cell a carried piece was dropped on, 0 when the drop left the board or
// fell on a square of the colour not in play.
int DropTarget(const Session& s, int sourceCell) {
  const Game& g = s.game;
  const CarryState& c = s.screen.Carry;
  const int pitch = SquareSize(s) - 2;
  int columns = c.DragOffsetX / pitch, rows = c.DragOffsetY / pitch;
  if (c.DragOffsetX < 0) --columns;
  if (c.DragOffsetY < 0) --rows;
  int column = sourceCell % 10, row = sourceCell / 10;
  if (g.Settings.BoardTurned == 1) {
    column -= columns;
    row += rows;
  } else {
    column += columns;
    row -= rows;
  }
  if (column < 1 || column > 8 || row < 2 || row > 9) return 0;
  const int target = row * 10 + column;
  if (target <= 0) return 0;
  if (g.RuleSet.PiecesOnBlack < 2 && !SquareIsDark(target, g.RuleSet.PiecesOnBlack)) return 0;
  return target;
}

void ExplainRefusal(Session& s, int source, int target) {
  Game& g = s.game;
  bool captureAvailable = false;
  ForEachLegalMove(g, [&](const MoveRecord& m) { captureAvailable = captureAvailable || m.IsCapture(); });
  std::string reason;
  if (captureAvailable && g.RuleSet.CapRequired == 1) {
    reason = "you need to jump";
    // A capture line that was traced but did not pass the capture rules.
    for (int row = 0; row <= 20; ++row) {
      if (g.Gen.CandidateKeys[row].Length == 0) break;
      const CaptureCandidate& line = g.Gen.Candidates[row];
      if (line.From == source && line.To == target) reason = "you cannot jump that way";
    }
  } else if (g.Board[target] == 0) {
    RefreshBoard(s, 0);
    s.window.ShowMessage("Illegal move", "Error", BoxIcon::Exclamation);
    return;
  } else {
    reason = "that square is not empty";
  }
  RefreshBoard(s, 0);
  s.window.ShowMessage("Illegal move: " + reason, "Error", BoxIcon::Exclamation);
}

void Drop(Session& s) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  s.window.SetPointer(ImageRole::None);
  const int source = CellOfSquare(c.DragSource, g.Settings.BoardTurned);
  const int target = DropTarget(s, source);
  if (target == 0 || (target == source && c.CircularMoveHere == 0)) {
    ShowCellPicture(s, c.DragSource);
    c.DragSource = -1;
    c.HighlightDrawn = 0;
    c.DragIconSet = 0;
    RefreshBoard(s, 0);
    return;
  }
  const std::string moveText = MoveTextOf(source, target, g.Settings.NotationKind);
  c.DragSource = -1;
  c.DragOffsetX = c.DragOffsetY = 0;
  c.EmptyClick = 0;
  c.PopupJustClosed = 0;
  c.HoverSquare = -1;
  c.RightPending = -1;
  c.HoverCell = 0;
  c.DragIconSet = 0;
  c.SetupPending = 0;
  if (FindMove(g, moveText) != 0) {
    RecordHumanMove(s, moveText, EntryPath::Mouse);
    return;
  }
  ExplainRefusal(s, source, target);
}

PopupChecks ChecksFor(const Game& g, int cell) {
  PopupChecks checks;
  switch (g.Board[cell]) {
    case WhiteMan: checks.piece = PopupItem::WhiteChecker; break;
    case WhiteKing: checks.piece = PopupItem::WhiteKing; break;
    case BlackMan: checks.piece = PopupItem::BlackChecker; break;
    case BlackKing: checks.piece = PopupItem::BlackKing; break;
    default: checks.piece = PopupItem::Empty; break;
  }
  checks.whiteMoves = g.SideToMove == 1;
  checks.blackMoves = g.SideToMove != 1;
  checks.priority = g.FocusSquare == cell;
  return checks;
}

void ApplyPopupItem(Session& s, PopupItem item) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  const int cell = c.PopupCell;
  auto put = [&](int value) {
    c.BoardEdited = 1;
    g.Board[cell] = value;
  };
  switch (item) {
    case PopupItem::ClearBoard:
      c.BoardEdited = 1;
      for (int& v : g.Board)
        if (v != OffBoard) v = 0;
      break;
    case PopupItem::Empty: put(0); break;
    case PopupItem::BlackChecker: put(BlackMan); break;
    case PopupItem::BlackKing: put(BlackKing); break;
    case PopupItem::WhiteChecker: put(WhiteMan); break;
    case PopupItem::WhiteKing: put(WhiteKing); break;
    case PopupItem::BlackMoves:
    case PopupItem::WhiteMoves:
      c.BoardEdited = 1;
      g.SideToMove = item == PopupItem::WhiteMoves ? 1 : -1;
      s.screen.StatusText = g.SideToMove == 1 ? "White moves" : "Black moves";
      break;
    case PopupItem::Priority:
      g.FocusSquare = cell;
      g.FocusPiece = g.Board[cell];
      break;
    case PopupItem::None: break;
  }
}

// The edited position becomes the start of a new game.
void AdoptEditedPosition(Session& s) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  s.screen.List3.clear();
  AdoptBoardPosition(g);
  ShowNewGame(s);
  g.TouchedCell = 0;
  ClearHintState(s);
  c.PopupJustClosed = 1;
  c.SetupPending = 1;
  c.BoardEdited = 0;
  g.VariantLabel = g.LoadedVariantName + " (M)";
  RefreshBoard(s, 0);
}

void OpenSetupPopup(Session& s, int index) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  const int cell = CellOfSquare(index, g.Settings.BoardTurned);
  if (g.RuleSet.PiecesOnBlack < 2 && !SquareIsDark(cell, g.RuleSet.PiecesOnBlack)) return;
  c.PopupJustClosed = 1;
  c.PopupCell = cell;
  ApplyPopupItem(s, s.window.RunSetupPopup(ChecksFor(g, cell)));
  if (c.BoardEdited == 1) AdoptEditedPosition(s);
  s.window.Changed(Part::All);
}

}  // namespace

void MarkMovablePieces(Session& s) {
  Game& g = s.game;
  s.screen.Carry.HighlightDrawn = 1;
  ForEachLegalMove(g, [&](const MoveRecord& m) {
    if (m.FromSquare == DropSource) return;
    ShowCellPicture(s, SquareOfCell(m.FromSquare, g.Settings.BoardTurned));
    Box(s, m.FromSquare);
  });
  s.window.Changed(Part::Board);
}

void ResetCarry(Session& s) {
  CarryState& c = s.screen.Carry;
  if (c.DragSource != -1) s.window.SetPointer(ImageRole::None);
  c = CarryState{};
}

void SquarePress(Session& s, int index, MouseButton button) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  if (s.screen.Busy == 1 || c.RightPending >= 0 || c.SetupPending == 1) return;
  if (button == MouseButton::Right) {
    if (c.HighlightDrawn != 1) c.RightPending = index;
    return;
  }
  if (IsEmptyImage(s.screen.View.Squares[index].Image)) {
    if (c.PopupJustClosed == 0) {
      c.EmptyClick = 1;
      c.HighlightDrawn = 0;
      RefreshBoard(s, 1);
    }
    c.PopupJustClosed = 0;
    return;
  }
  if (g.GameOver == 1) return;
  PickUp(s, index);
}

void SquareMove(Session& s, int index, int x, int y) {
  Game& g = s.game;
  CarryState& c = s.screen.Carry;
  if (c.EmptyClick == 1 || s.screen.Busy == 1 || g.GameOver == 1) return;
  c.SetupPending = 0;
  if (g.Settings.ShowAvailableMoves == 1 && c.HighlightDrawn == 0) MarkMovablePieces(s);
  if (c.DragSource == -1) {
    const int cell = CellOfSquare(index, g.Settings.BoardTurned);
    if (HasMoveFrom(g, cell)) {
      c.HoverCell = cell;
      c.HoverSquare = index;
    }
    return;
  }
  if (c.DragIconSet == 0) {
    c.DragIconSet = 1;
    s.window.SetPointer(CarryIcon(g.Board[CellOfSquare(c.DragSource, g.Settings.BoardTurned)]));
  }
  c.DragOffsetX = x;
  c.DragOffsetY = y;
}

void SquareRelease(Session& s, int index, MouseButton button, int x, int y) {
  CarryState& c = s.screen.Carry;
  if (s.screen.Busy == 1) return;
  if (button == MouseButton::Right) {
    c.RightPending = -1;
    if (c.DragSource != -1) return;
    const int size = SquareSize(s);
    if (x >= 0 && y >= 0 && x < size && y < size) OpenSetupPopup(s, index);
    return;
  }
  if (c.EmptyClick == 1) {
    c.EmptyClick = 0;
    RefreshBoard(s, 0);
    return;
  }
  if (c.DragSource == -1) return;
  Drop(s);
}

void WindowMouseMove(Session& s) { s.screen.Carry.HighlightDrawn = 0; }

}  // namespace qv

// Stand-in for the make/undo code until the move generator branch is merged.
#include <cstdlib>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"

namespace qv {

void MakeSearchMove(Game& g, int index) {
  const MoveRecord& m = g.MoveStack[index];
  g.HalfMoveCount += 1;
  g.Record.LastToByMove[g.HalfMoveCount] = m.ToSquare;
  g.Ply += 1;
  g.MaterialByPly[g.Ply] = -g.MaterialByPly[g.Ply - 1];
  g.ActivityByPly[g.Ply] = g.ActivityByPly[g.Ply - 1];
  for (int i = 1; i + 2 < CaptureTextSize && m.CaptureText[i] != '\0'; i += 3) {
    const int worth = m.CaptureText[i] - '0';
    const int cell = (m.CaptureText[i + 1] - '0') * 10 + (m.CaptureText[i + 2] - '0');
    g.Board[cell] = 0;
    g.MaterialByPly[g.Ply] -= 100 * worth;
  }
  const int piece = g.Board[m.FromSquare];
  g.Board[m.FromSquare] = 0;
  g.Board[m.ToSquare] = piece;
  if (m.PromoteFlag != 0) g.Board[m.ToSquare] = m.PromoteFlag * g.SideToMove;
  g.SideToMove = -g.SideToMove;
}

void UndoSearchMove(Game& g, int index) {
  const MoveRecord& m = g.MoveStack[index];
  g.HalfMoveCount -= 1;
  g.SideToMove = -g.SideToMove;
  g.Ply -= 1;
  const int piece = g.Board[m.ToSquare];
  g.Board[m.ToSquare] = 0;
  g.Board[m.FromSquare] = m.PromoteFlag != 0 ? g.SideToMove : piece;
  for (int i = 1; i + 2 < CaptureTextSize && m.CaptureText[i] != '\0'; i += 3) {
    const int worth = m.CaptureText[i] - '0';
    const int cell = (m.CaptureText[i + 1] - '0') * 10 + (m.CaptureText[i + 2] - '0');
    g.Board[cell] = worth * -g.SideToMove;
  }
}

void CommitRootPly(Game& g) {
  if (g.Ply == 0) return;
  g.MaterialByPly[0] = g.MaterialByPly[1];
  g.ActivityByPly[0] = g.ActivityByPly[1];
  g.Ply = 0;
}

int FindMove(Game& g, std::string_view moveText) {
  g.LastWasCapture = 0;
  g.LastWasCrowning = 0;
  const int kind = g.Settings.NotationKind;
  const int from = SquareNumber(moveText.substr(0, 2), kind, g.RuleSet.PiecesOnBlack);
  if (g.TouchedCell >= 1 && from != g.TouchedCell && g.Settings.TouchMove == 1) return 0;
  const int to = moveText.size() > 2 ? SquareNumber(moveText.substr(2, 2), kind, g.RuleSet.PiecesOnBlack) : from;
  CommitRootPly(g);
  GenerateLegalMoves(g);
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) {
    const MoveRecord& m = g.MoveStack[i];
    if (!((m.FromSquare == from && m.ToSquare == to) || (m.FromSquare == DropSource && m.ToSquare == to))) continue;
    g.LastWasCapture = m.IsCapture() ? 1 : 0;
    g.LastWasCrowning = m.PromoteFlag == 2 ? 1 : 0;
    MakeSearchMove(g, i);
    g.LastMoveIndex = i;
    g.TouchedCell = 0;
    return -1;
  }
  return 0;
}

std::string MoveLabel(const Game& g, const MoveRecord& m) {
  const int kind = g.Settings.NotationKind;
  std::string text;
  if (m.FromSquare != DropSource) text = SquareNotation(m.FromSquare, 1, kind) + (m.IsCapture() ? g.CaptureChar : "-");
  text += SquareNotation(m.ToSquare, 1, kind);
  if (m.PromoteFlag != 0) text += 'K';
  return text;
}

}  // namespace qv

#include "core/gameend.h"

#include <cstdlib>

#include "core/fatal.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "engine/driver_ui.h"
#include "engine/evaluate.h"
#include "engine/score.h"

namespace qv {

namespace {

// How many half-moves an ending of kings alone may last: twice the rule's
// number of moves. A number too large to double is a fatal error.
int KingsOnlyLimit(int moves) {
  try {
    return CheckedMul(2, moves);
  } catch (const RangeError&) {
    throw FatalError(FatalErrorText);
  }
}

}  // namespace

void UpdateDrawReason(Game& g) {
  if (g.DrawReason == 4) return;  // three kings against one, once reached, stands
  g.DrawReason = 0;
  const PositionKeyWords key = PositionKeyOf(g.Board);
  int white = 0, black = 0;
  bool man = false;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.Board[cell];
    if (v == OffBoard || v == 0 || v < MarkedBelow) continue;
    if (v > 0) white += v;
    else black -= v;
    if (std::abs(v) == 1) man = true;
  }
  if (g.HalfMoveCount >= 1) g.Record.PositionHistory[g.HalfMoveCount - 1] = key;
  int same = 0;
  for (int i = 0; i <= g.HalfMoveCount - 1; ++i)
    if (g.Record.PositionHistory[i] == key) ++same;
  if (same > 2) g.DrawReason = 1;

  g.LimitReached = 0;
  CheckMoveLimit(g, g.HalfMoveCount - 1);
  if (g.LimitReached == 1) g.DrawReason = 2;

  const auto either = [&](int a, int b) { return (white == a && black == b) || (white == b && black == a); };
  if (white == 2 && black == 2) {
    if (man) {
      g.ThreeKingsSince = 0;
    } else {
      g.DrawReason = 3;
    }
  }
  if (!(white == 2 && black == 2 && man)) {
    if (!man && either(6, 2)) {
      if (g.RuleSet.ThreeKings == 1) {
        const int d = g.HalfMoveCount - g.ThreeKingsSince + 2;
        if (d > KingsOnlyLimit(g.RuleSet.NumberKings) && g.ThreeKingsSince > 0) g.DrawReason = 4;
        if (g.ThreeKingsSince == 0) g.ThreeKingsSince = g.HalfMoveCount;
      }
    } else {
      g.ThreeKingsSince = 0;
    }
  }
  if (man || !either(4, 2)) {
    g.TwoKingsSince = 0;
    return;
  }
  if (g.RuleSet.TwoKings != 1) return;
  const int d = g.HalfMoveCount - g.TwoKingsSince + 2;
  if (d > KingsOnlyLimit(g.RuleSet.NumberKings2) && g.TwoKingsSince > 0) g.DrawReason = 5;
  if (g.TwoKingsSince == 0) g.TwoKingsSince = g.HalfMoveCount;
}

std::string DrawText(int drawReason) {
  switch (drawReason) {
    case 1: return "It's a draw! Triple Repetition";
    case 2: return "It's a draw! 50 Moves Rule";
    case 3: return "It's a draw! King versus King";
    case 4: return "It's a draw! 3 Kings versus 1 King";
    default: return "It's a draw! 2 Kings versus 1 King";
  }
}

void ReportDraw(Game& g, DriverUi& ui, int silent) {
  if (silent == 0) {
    const std::string text = DrawText(g.DrawReason);
    ui.SetStatus(text);
    ui.ShowMessage("Congratulations", text + g.ResultNote);
    return;
  }
  if (!g.GameNote.empty()) return;
  static const char* notes[] = {"", "Triple Repetition at move ", "It's a draw! 50 Moves Rule ",
                                "It's a draw! King versus King ", "It's a draw! 3 Kings versus 1 King "};
  const std::string note =
      g.DrawReason >= 1 && g.DrawReason <= 4 ? notes[g.DrawReason] : "It's a draw! 2 Kings versus 1 King ";
  g.GameNote = note + std::to_string((g.HalfMoveCount + 1) / 2);
}

void ResultText(Game& g, int kind) {
  g.GameResult.clear();
  if (kind == 2) {
    g.GameResult = "1/2-1/2";
    return;
  }
  int white = 0, black = 0;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.Board[cell];
    if (v == OffBoard || v == 0) continue;
    if (v > 0) ++white;
    else ++black;
  }
  const bool blackStarts = g.RuleSet.BlackStarts == 1;
  if (white == 0) g.GameResult = blackStarts ? "1-0" : "0-1";
  else if (black == 0) g.GameResult = blackStarts ? "0-1" : "1-0";
  if (!g.GameResult.empty()) {
    if (g.RuleSet.AntiMode == 1) g.GameResult = g.GameResult == "1-0" ? "0-1" : "1-0";
    return;
  }
  const int ply = g.Ply;
  GenerateLegalMoves(g);
  if (g.PlyBase[ply + 1] <= g.PlyBase[ply]) {
    const bool blackToMove = g.SideToMove == -1;
    g.GameResult = (blackToMove == blackStarts) ? "0-1" : "1-0";
  }
  if (g.RuleSet.AntiMode == 1) g.GameResult = g.GameResult == "1-0" ? "0-1" : "1-0";
}

int PlayerIsSide(const Game& g, const std::string& colourWord) {
  // The first player's colour is the side that begins.
  const bool firstIsBlack = g.RuleSet.BlackStarts == 1;
  const bool askBlack = colourWord == "black";
  const std::string& name = askBlack == firstIsBlack ? g.FirstPlayerName : g.SecondPlayerName;
  return name == g.Settings.PlayerName ? 1 : 0;
}

void CheckGameEnd(Game& g, DriverUi& ui, int silent) {
  if (g.GameOver == 1) return;
  CommitRootPly(g);
  const int mover = g.RuleSet.AntiMode == 1 ? g.SideToMove : -g.SideToMove;
  const int score = Evaluate(g, -WinScore, WinScore, mover);
  GenerateMoves(g, 0);
  const int captures = g.PlyBase[1];
  GenerateMoves(g, 1);
  const bool noMove = g.PlyBase[1] == 0 && captures == 0;
  const int reason = g.DrawReason;
  const bool over = noMove || score == WinScore || (g.Settings.ChessDrawRules == 1 && (reason == 1 || reason == 2)) ||
                    (g.Settings.KingVersusKing == 1 && reason == 3 && captures == 0) ||
                    (g.RuleSet.ThreeKings == 1 && reason == 4) || (g.RuleSet.TwoKings == 1 && reason == 5);
  if (!over) return;
  if (silent == 0) ui.Pause(0.5);
  g.GameOver = 1;
  if (g.NoMoveDraw == 1) {
    g.NoMoveDraw = 0;
    ResultText(g, 2);
    if (silent != 0) {
      if (g.GameNote.empty()) g.GameNote = "It's a draw!";
      return;
    }
    ui.SetStatus("It's a draw!");
    ui.GameEnded(0.5);
    ui.ShowMessage("Congratulations", "It's a draw!" + g.ResultNote);
  } else if (g.DrawReason != 0) {
    ResultText(g, 2);
    if (silent == 0) ui.GameEnded(0.5);
    ReportDraw(g, ui, silent);
  } else {
    ResultText(g, 0);
    const bool whiteWins = g.RuleSet.AntiMode == 1 ? g.SideToMove == 1 : g.SideToMove == -1;
    const std::string text = whiteWins ? "White wins!" : "Black wins!";
    if (silent != 0) {
      if (g.GameNote.empty()) g.GameNote = text;
      return;
    }
    ui.GameEnded(PlayerIsSide(g, whiteWins ? "white" : "black"));
    ui.SetStatus(text);
    ui.ShowMessage("Congratulations", text + g.ResultNote);
  }
}

void EnterMoveInRecord(Game& g, int index, int legalCount) {
  const int h = g.HalfMoveCount;
  const MoveRecord& m = g.MoveStack[index];
  g.Record.GameMoves[h] = m;
  g.Record.MaterialSaved[h] = g.MaterialByPly[g.Ply];
  g.Record.ActivitySaved[h] = g.ActivityByPly[g.Ply];
  if (h + 1 < RecordSize) g.Record.GameMoves[h + 1].FromSquare = 0;
  g.Record.LegalCountHistory[h] = legalCount;
  for (int i = h + 1; i <= g.GameLength && i < RecordSize; ++i) g.Record.CommentTable[i].clear();
  g.GameLength = h;
  g.GameInProgress = 1;
  // "c3d4 c3-d4": the move text in lower case, a blank, the display text.
  const int notation = g.Settings.NotationKind;
  std::string moveText = m.FromSquare == DropSource ? "" : SquareNotation(m.FromSquare, 2, notation);
  moveText += SquareNotation(m.ToSquare, 2, notation);
  g.MoveTextTable[(h + 1) / 2][(h + 1) % 2] = ToLower(moveText) + " " + MoveLabel(g, m);
}

}  // namespace qv

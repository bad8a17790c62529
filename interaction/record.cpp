#include "interaction/record.h"

#include "core/makemove.h"
#include "core/movegen.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/engine_calls.h"
#include "interaction/movelist.h"
#include "interaction/user_commands.h"

namespace qv {

namespace {

void CutStoredTail(Session& s, int n) {
  Game& g = s.game;
  auto& rows = s.screen.List1;
  if (static_cast<int>(rows.size()) > n - 1) rows.resize(n - 1 < 0 ? 0 : n - 1);
  for (int k = n + 1; k <= g.GameLength; ++k) {
    g.Record.CommentTable[k].clear();
    g.Record.EvalHistory[k] = 0;
    g.Record.LegalCountHistory[k] = 0;
  }
  // A half-move of the cut tail may still stand as the second half of row n.
  if (n % 2 == 1) {
    auto& row = g.MoveTextTable[(n + 1) / 2];
    row[SecondHalfText].clear();
    row[SecondMoverCode].clear();
  }
  for (int pair = (n + 1) / 2 + 1; pair <= (g.GameLength + 1) / 2 && pair < MoveTextRows; ++pair) g.MoveTextTable[pair] = {};
  g.GameLength = n;
}

// The screen forgets the last calculation and the reply the computer
// expected; the game is under way and can be stepped back.
void ClearForHumanMove(Session& s, EntryPath path) {
  Game& g = s.game;
  Screen& sc = s.screen;
  sc.Label9 = "no calculation";
  sc.StatusText.clear();
  ClearStoredReply(g);
  if (path != EntryPath::List3) sc[Command::List3].Enabled = 0;
  g.GameInProgress = 1;
  EnableCommand(s, Command::First, 1);
  EnableCommand(s, Command::Back, 1);
}

// The move enters the record at half-move n and ends it there.
void StoreHumanMove(Session& s, int n) {
  Game& g = s.game;
  g.Record.GameMoves[n] = g.MoveStack[g.LastMoveIndex];
  g.Record.MaterialSaved[n] = g.MaterialByPly[g.Ply];
  g.Record.ActivitySaved[n] = g.ActivityByPly[g.Ply];
  g.Record.GameMoves[n + 1].FromSquare = 0;
  EnableCommand(s, Command::Forward, 0);
  EnableCommand(s, Command::Last, 0);
  CutStoredTail(s, n);
  RefreshBoard(s, 0);
  UpdateAfterMove(s);
  g.Record.LegalCountHistory[n] = g.PlyBase[g.Ply] - g.PlyBase[g.Ply - 1];
  g.GameResult.clear();
  RefreshBoard(s, 0);
}

// The click, the move list, the log.
void ShowHumanMove(Session& s, std::string_view moveText, const std::string& display, int n) {
  Game& g = s.game;
  if (g.Settings.UseSound == 1) s.window.PlaySound(g.DataFolder / "sounds" / "click.wav");
  const std::string row = WriteMoveToList(s, moveText, display, MoverHuman);
  LogLine(s, PlayerLogLine(row, g.Record.EvalHistory[n]));
  s.screen.List1Selected = n - 1;
  s.window.Changed(Part::Lists | Part::Texts | Part::Status | Part::Commands);
}

// After the move: the game has ended, the other player moves, a replaced
// move waits for Compute, or the computer replies.
void AfterHumanMove(Session& s, EntryPath path) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (g.GameOver == 1) {
    if (path == EntryPath::Mouse || path == EntryPath::List3) SwapPlayerNames(g);
    RefreshBoard(s, 0);
    FinishHumanMove(s);
    return;
  }
  if (g.Settings.PlayMode != 0) {
    sc.StatusText = "Player-Player mode";
    sc.ProgressValue = 0;
    RefreshBoard(s, 0);
    GenerateLegalMoves(g);
    s.window.Changed(Part::Status | Part::Progress);
    FinishHumanMove(s);
    return;
  }
  sc.StatusText.clear();
  sc.Busy = 1;
  EnableCommand(s, Command::BoardMenu, 0);
  if (path == EntryPath::List3) {
    // A replaced move is only looked at: no reply until Compute is pressed.
    sc.Busy = 0;
    FinishHumanMove(s);
    return;
  }
  // The mouse path goes through the Compute routine, which clears the status
  // and disables the Board menu once more.
  if (path == EntryPath::Mouse) {
    sc.StatusText.clear();
    EnableCommand(s, Command::BoardMenu, 0);
  }
  BeginComputerTurn(s, path == EntryPath::Mouse ? TurnReason::Reply : TurnReason::ReplyDirect);
}

}  // namespace

void RecordHumanMove(Session& s, std::string_view moveText, EntryPath path) {
  const int n = s.game.HalfMoveCount;
  ClearForHumanMove(s, path);
  const std::string display = DisplayText(s.game, moveText);
  StoreHumanMove(s, n);
  ShowHumanMove(s, moveText, display, n);
  CheckEndAfterMove(s);
  AfterHumanMove(s, path);
}

void FinishHumanMove(Session& s) {
  Game& g = s.game;
  RefreshMoveChoices(s);
  g.FocusSquare = 0;
  if (g.Settings.PlayMode == 1) s.screen.Carry.HighlightDrawn = 0;
}

}  // namespace qv

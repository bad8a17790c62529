#include "interaction/navigation.h"

#include <utility>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/engine_calls.h"
#include "interaction/movelist.h"

namespace qv {

namespace {

void SwapNamesIfComputerPlays(Game& g) {
  if (g.FirstPlayerName == "Computer" || g.SecondPlayerName == "Computer")
    SwapPlayerNames(g);
}

// Replays the next stored half move from its text.
void ReplayNextMove(Session& s) {
  Game& g = s.game;
  const int n = g.HalfMoveCount;
  const auto& row = g.MoveTextTable[n / 2 + 1];
  const std::string& entry = row[n % 2 == 0 ? FirstHalfText : SecondHalfText];
  const std::string moveText = entry.size() >= 3 && entry[2] != ' ' ? entry.substr(0, 4) : entry.substr(0, 2);
  s.screen.Text1 = g.Record.CommentTable[n + 1];
  g.MaterialByPly[0] = g.Record.MaterialSaved[n];
  g.ActivityByPly[0] = g.Record.ActivitySaved[n];
  FindMove(g, ToUpper(moveText));
  SwapNamesIfComputerPlays(g);
}

void TakeBackOneMove(Session& s, int silent) {
  Game& g = s.game;
  const int n = g.HalfMoveCount;
  g.MoveStack[0] = g.Record.GameMoves[n];
  g.MaterialByPly[0] = g.Record.MaterialSaved[n - 1];
  g.ActivityByPly[0] = g.Record.ActivitySaved[n - 1];
  g.Ply = 1;
  UndoSearchMove(g, 0);
  if (silent == 1) RefreshBoard(s, 0);
  g.Ply = 0;
  if (silent == 0) {
    if (g.HalfMoveCount > 0 && s.screen.List1Selected >= 0) s.screen.List1Selected = g.HalfMoveCount - 1;
    else if (g.HalfMoveCount == 0) s.screen.List1Selected = -1;
  }
  SwapNamesIfComputerPlays(g);
}

void RefreshAfterWalk(Session& s) {
  RefreshBoard(s, 0);
  RefreshPlayers(s);
  RefreshBoard(s, 0);
}

// Forward and Last stay usable only while a stored move follows.
void SetForwardByRecord(Session& s) {
  const Game& g = s.game;
  if (g.Record.GameMoves[g.HalfMoveCount + 1].FromSquare == 0) {
    EnableCommand(s, Command::Forward, 0);
    EnableCommand(s, Command::Last, 0);
  }
}

void ShowLegalMovesAgain(Session& s) {
  GenerateLegalMoves(s.game);
  RefreshMoveChoices(s);
  s.game.FocusSquare = 0;
}

}  // namespace

void MoveNavigator(Session& s, int count, int keepAnalysis, int silent) {
  Game& g = s.game;
  Screen& sc = s.screen;
  ClearHintState(s);
  if (keepAnalysis == 0) {
    ClearAnalysisTable(s);
    sc[Command::List3].Enabled = 0;
  }
  if (count < 1) {
    for (int step = 0; step < -count; ++step) ReplayNextMove(s);
    sc.Label9 = "no calculation";
    RefreshAfterWalk(s);
    sc.List1Selected = g.HalfMoveCount - 1;
    sc.StatusText.clear();
    if (!GameEndText(g).empty() && g.HalfMoveCount == g.GameLength) sc.StatusText = GameEndText(g);
    sc.ProgressValue = 0;
    EnableCommand(s, Command::Back, 1);
    EnableCommand(s, Command::First, 1);
    CheckDrawsAfterWalk(s);
    SetForwardByRecord(s);
  } else {
    g.GameOver = 0;
    for (int step = 0; step < count && g.HalfMoveCount > 0; ++step) TakeBackOneMove(s, silent);
    if (silent == 0) sc.Label9 = "no calculation";
    RefreshAfterWalk(s);
    ClearStoredReply(g);
    g.DrawReason = 0;
    if (silent == 0) sc.Text1 = g.Record.CommentTable[g.HalfMoveCount];
    if (g.HalfMoveCount == 0) {
      EnableCommand(s, Command::First, 0);
      EnableCommand(s, Command::Back, 0);
    }
    if (silent == 0) {
      sc.StatusText.clear();
      sc.ProgressValue = 0;
      for (Command c : {Command::Compute, Command::Analyze, Command::Forward, Command::Last, Command::Hint,
                        Command::List2, Command::ComputerComputer})
        EnableCommand(s, c, 1);
      if (g.Settings.PlayMode != 1) {
        EnableCommand(s, Command::OfferDraw, 1);
        EnableCommand(s, Command::Resign, 1);
      }
    }
  }
  ShowLegalMovesAgain(s);
  s.window.Changed(Part::All);
}

void StepForward(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  ClearHintState(s);
  ClearAnalysisTable(s);
  sc[Command::List3].Enabled = 0;
  ReplayNextMove(s);
  sc.Label9 = "no calculation";
  RefreshAfterWalk(s);
  sc.List1Selected = g.HalfMoveCount - 1;
  sc.StatusText.clear();
  if (!GameEndText(g).empty() && g.HalfMoveCount == g.GameLength) sc.StatusText = GameEndText(g);
  sc.ProgressValue = 0;
  EnableCommand(s, Command::Back, 1);
  EnableCommand(s, Command::First, 1);
  CheckDrawsAfterWalk(s);
  SetForwardByRecord(s);
  ShowLegalMovesAgain(s);
  s.window.Changed(Part::All);
}

}  // namespace qv

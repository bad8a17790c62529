#include "interaction/engine_calls.h"

#include <chrono>
#include <thread>

#include "core/makemove.h"
#include "core/movegen.h"
#include "interaction/boardview.h"
#include "interaction/movelist.h"

namespace qv {

void UpdateAfterMove(Session& s) { UpdateManThresholds(s.game); }
void CheckEndAfterMove(Session& s) {
  Game& g = s.game;
  // Without moves the side to move has lost.
  GenerateLegalMoves(g);
  if (g.PlyBase[g.Ply + 1] <= g.PlyBase[g.Ply]) g.GameOver = 1;
}
void CheckDrawsAfterWalk(Session& s) {
  Game& g = s.game;
  CheckMoveLimit(g, g.HalfMoveCount);
  if (g.LimitReached == 1) g.DrawReason = 2;
  CountRepetitions(g, g.HalfMoveCount);
  if (g.LineDrawn == 3) g.DrawReason = 1;
  if (g.BareKings == 1) g.DrawReason = 3;
}
void ClearHintState(Session&) {}
void ClearAnalysisTable(Session& s) { s.screen.List3.clear(); }
void ClearStoredReply(Game&) {}
std::string GameEndText(const Game&) { return {}; }
int LastSearchValue(const Game&) { return 0; }
void EndGameByAgreement(Session& s) { s.game.GameOver = 1; }
void EndGameByResignation(Session& s) { s.game.GameOver = 1; }

namespace {

// Until the search is in: the first legal move.
void PlayFirstLegalMove(Game& g) {
  GenerateLegalMoves(g);
  if (g.PlyBase[g.Ply + 1] <= g.PlyBase[g.Ply]) {
    g.GameOver = 1;
    return;
  }
  const MoveRecord& move = g.MoveStack[g.PlyBase[g.Ply]];
  FindMove(g, MoveTextOf(move.FromSquare, move.ToSquare, g.Settings.NotationKind));
}

}  // namespace

void RunComputerJob(Game& g, TurnReason reason, double pause, const std::function<void()>& moveEntered) {
  do {
    if (g.GameOver == 1) break;
    PlayFirstLegalMove(g);
    if (g.GameOver == 0 && moveEntered) moveEntered();
    if (reason != TurnReason::ComputerComputer) break;
    std::this_thread::sleep_for(std::chrono::duration<double>(pause));
  } while (g.GameOver == 0 && g.StopRequest == 0 && g.HalfMoveCount < RecordSize - 2);
}

void EnterComputerMove(Session& s) {
  Game& g = s.game;
  const int n = g.HalfMoveCount;
  const MoveRecord& move = g.MoveStack[g.LastMoveIndex];
  const std::string moveText = MoveTextOf(move.FromSquare, move.ToSquare, g.Settings.NotationKind);
  g.Record.GameMoves[n] = move;
  g.Record.MaterialSaved[n] = g.MaterialByPly[g.Ply];
  g.Record.ActivitySaved[n] = g.ActivityByPly[g.Ply];
  g.Record.GameMoves[n + 1].FromSquare = 0;
  if (static_cast<int>(s.screen.List1.size()) > n - 1) s.screen.List1.resize(n - 1);
  g.GameLength = n;
  WriteMoveToList(s, moveText, DisplayText(g, moveText), MoverComputer);
  s.screen.List1Selected = n - 1;
  RefreshBoard(s, 0);
  CheckEndAfterMove(s);
}

}  // namespace qv

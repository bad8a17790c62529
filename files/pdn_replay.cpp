#include "files/pdn_replay.h"

#include <cstdlib>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"

namespace qv {

namespace {

// The step of a straight line from one cell to another: diagonal (9, 11) or
// orthogonal (1, 10), with its sign; 0 when they do not share a line.
int LineStep(int from, int to) {
  const int d = to - from;
  for (int step : {11, 9, 10}) {
    if (d % step == 0 && std::abs(d / step) <= 7) return d > 0 ? step : -step;
  }
  if (std::abs(d) <= 7 && from / 10 == to / 10) return d > 0 ? 1 : -1;
  return 0;
}

bool LiesBetween(int cell, int from, int to) {
  const int step = LineStep(from, to);
  if (step == 0 || from == to) return false;
  for (int c = from + step; c != to; c += step)
    if (c == cell) return true;
  return false;
}

// Every captured piece stands on one leg of the path.
bool CapturesFollowPath(const MoveRecord& m, const std::vector<int>& path) {
  for (int captured : CapturedCells(m)) {
    bool onPath = false;
    for (std::size_t leg = 0; leg + 1 < path.size() && !onPath; ++leg)
      onPath = LiesBetween(captured, path[leg], path[leg + 1]);
    if (!onPath) return false;
  }
  return true;
}

void EnterLoadedMove(Game& g) {
  const int h = g.HalfMoveCount;
  EnterMoveInRecord(g, g.LastMoveIndex, g.PlyBase[g.Ply] - g.PlyBase[g.Ply - 1]);
  g.MoveTextTable[(h + 1) / 2][2 + (h + 1) % 2] = LoadedMoverCode;
  UpdateManThresholds(g);
  UpdateDrawReason(g);
}

}  // namespace

bool ReplayLoadedMove(Game& g, std::string_view moveText) {
  if (g.HalfMoveCount + 1 >= RecordSize - 1) return false;
  if (FindMove(g, moveText) == 0) return false;
  EnterLoadedMove(g);
  return true;
}

bool ReplayLoadedCapture(Game& g, std::string_view moveText, const std::vector<int>& path) {
  if (path.size() < 3) return ReplayLoadedMove(g, moveText);
  if (g.HalfMoveCount + 1 >= RecordSize - 1) return false;
  GenerateLegalMoves(g);
  int first = -1, chosen = -1;
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) {
    const MoveRecord& m = g.MoveStack[i];
    if (m.FromSquare != path.front() || m.ToSquare != path.back()) continue;
    if (first < 0) first = i;
    if (chosen < 0 && CapturesFollowPath(m, path)) chosen = i;
  }
  // The first capture of the two squares is the move entry's own choice.
  if (chosen < 0 || chosen == first) return ReplayLoadedMove(g, moveText);
  const MoveRecord& m = g.MoveStack[chosen];
  g.LastWasCapture = m.IsCapture() ? 1 : 0;
  g.LastWasCrowning = m.PromoteFlag == 2 ? 1 : 0;
  CommitRootPly(g);
  MakeSearchMove(g, chosen);
  g.LastMoveIndex = chosen;
  g.TouchedCell = 0;
  EnterLoadedMove(g);
  return true;
}

void StoreLoadedComment(Game& g, const std::string& text) { g.Record.CommentTable[g.HalfMoveCount] = text; }

}  // namespace qv

#include "files/pdn_replay.h"

#include "core/gameend.h"
#include "core/makemove.h"

namespace qv {

bool ReplayLoadedMove(Game& g, std::string_view moveText) {
  if (g.HalfMoveCount + 1 >= RecordSize - 1) return false;
  if (FindMove(g, moveText) == 0) return false;
  const int h = g.HalfMoveCount;
  EnterMoveInRecord(g, g.LastMoveIndex, g.PlyBase[g.Ply] - g.PlyBase[g.Ply - 1]);
  g.MoveTextTable[(h + 1) / 2][2 + (h + 1) % 2] = LoadedMoverCode;
  UpdateManThresholds(g);
  UpdateDrawReason(g);
  return true;
}

void StoreLoadedComment(Game& g, const std::string& text) { g.Record.CommentTable[g.HalfMoveCount] = text; }

}  // namespace qv

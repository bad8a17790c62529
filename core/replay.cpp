#include "core/replay.h"

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "engine/driver_ui.h"

namespace qv {

ReplayStatus PlayRecordedMove(Game& g, std::string_view moveText, int moverCode) {
  // The record holds 1000 half-moves, the move texts 500 full moves.
  if (g.HalfMoveCount + 1 >= RecordSize) return ReplayStatus::RecordFull;
  CommitRootPly(g);
  if (FindMove(g, ParseMoveText(ToUpper(moveText), g.CaptureChar)) == 0) return ReplayStatus::Refused;
  const int legalCount = g.PlyBase[1] - g.PlyBase[0];
  CommitRootPly(g);
  EnterMoveInRecord(g, g.LastMoveIndex, legalCount);
  const int h = g.HalfMoveCount;
  g.MoveTextTable[(h + 1) / 2][2 + (h + 1) % 2] = std::to_string(moverCode);
  UpdateDrawReason(g);
  DriverUi silent;
  CheckGameEnd(g, silent, 1);
  GenerateLegalMoves(g);
  return ReplayStatus::Played;
}

ReplayResult ReplayMoves(Game& g, const std::vector<std::string>& moveTexts, int moverCode) {
  ReplayResult result;
  for (const std::string& text : moveTexts) {
    result.status = PlayRecordedMove(g, text, moverCode);
    if (result.status != ReplayStatus::Played) {
      result.refused = ToUpper(text);
      break;
    }
    ++result.played;
  }
  return result;
}

}  // namespace qv

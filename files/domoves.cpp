#include "files/domoves.h"

#include <memory>

#include "core/movegen.h"
#include "core/replay.h"
#include "core/text.h"
#include "engine/evaluate.h"
#include "files/paths.h"
#include "engine/score.h"

namespace qv {

namespace {

// True when the draw reason of the position ends the game under the rules in force.
bool DrawRuleEnds(const Game& g) {
  const int reason = g.DrawReason;
  return (g.Settings.ChessDrawRules == 1 && (reason == 1 || reason == 2)) ||
         (g.Settings.KingVersusKing == 1 && reason == 3) || (g.RuleSet.ThreeKings == 1 && reason == 4) ||
         (g.RuleSet.TwoKings == 1 && reason == 5);
}

}  // namespace

LoadResult DoOpeningMoves(Game& g, const std::filesystem::path& folder) {
  std::string text = NativeGameHeader(g);
  // The moves are tried on a copy, so that a move that is not kept leaves no trace.
  auto trial = std::make_unique<Game>(g);
  const int notation = g.Settings.NotationKind;
  for (int i = 1; i <= g.RuleSet.NumberMoves; ++i) {
    GenerateLegalMoves(*trial);
    const int count = trial->PlyBase[1] - trial->PlyBase[0];
    if (count <= 0) break;
    const MoveRecord& move = trial->MoveStack[trial->PlyBase[0] + Int(trial->Rnd() * count)];
    const std::string moveText =
        ToUpper(SquareNotation(move.FromSquare, 0, notation) + SquareNotation(move.ToSquare, 0, notation));
    if (PlayRecordedMove(*trial, moveText) != ReplayStatus::Played) break;
    const int side = trial->RuleSet.AntiMode == 1 ? -trial->SideToMove : trial->SideToMove;
    const int score = Evaluate(*trial, -WinScore, WinScore, side);
    GenerateLegalMoves(*trial);
    if (trial->PlyBase[1] == trial->PlyBase[0] || score == WinScore) break;
    if (trial->GameOver == 1 || DrawRuleEnds(*trial)) break;
    text += moveText + "\r\n";
  }
  g.Random = trial->Random;
  const std::filesystem::path file = folder / DoMovesFileName;
  const FileWriteResult written = WriteFileAtomically(file, text);
  if (!written) return {false, written.error, "Error", DoMovesFileName};
  return LoadGame(g, file, LoadDoMoves);
}

}  // namespace qv

#include "engine/hint.h"

#include "core/makemove.h"
#include "engine/evaluate.h"
#include "engine/quick_root.h"
#include "engine/root_moves.h"

namespace qv {

HintResult Hint(Game& g) {
  HintResult r;
  GameKeeper keep(g);
  UpdateManThresholds(g);
  const int notation = g.Settings.NotationKind;
  if (g.StoredReplyFrom > 0) {
    r.fromStoredReply = true;
    r.from = g.StoredReplyFrom;
    r.to = g.StoredReplyTo;
    r.text = "Try " + SquareNotation(r.from, 1, notation) + "-" + SquareNotation(r.to, 1, notation);
    return r;
  }
  g.NoiseRange = 5;
  const int searchRootCount = g.HalfMoveCount;
  CommitRootPly(g);
  Evaluate(g, -32000, 32000, g.SideToMove);
  r.alreadyWon = g.RuleLossPending == 1;
  std::vector<MoveRecord> roots = GenerateRootMoves(g);
  if (roots.empty()) {
    r.alreadyWon = true;
    return r;
  }
  for (auto& row : g.PVTable) row.Fill(PVEntry{});
  QuickPass pass;
  pass.quickDepth = QuickScoreDepth(g);
  pass.searchRootCount = searchRootCount;
  const int passes = g.RuleSet.PiecesOnBlack == 2 ? 1 : 2;
  for (int hintPass = 1; hintPass <= passes; ++hintPass) {
    if (hintPass == 1) {
      pass.alpha = -32000;
      pass.beta = 32000;
    } else {
      pass.beta = pass.alpha + 100;
      pass.alpha -= 100;
    }
    g.HorizonLimit = g.Settings.Plys + hintPass;
    RunQuickPass(g, roots, pass, [](int) {});
  }
  r.from = roots[0].FromSquare;
  r.to = roots[0].ToSquare;
  r.score = pass.alpha;
  r.text = "Try " + MoveLabel(g, roots[0]);
  return r;
}

}  // namespace qv

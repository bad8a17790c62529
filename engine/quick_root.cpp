#include "engine/quick_root.h"

#include "engine/root_moves.h"
#include "engine/search.h"

namespace qv {

int QuickScoreDepth(const Game& g) { return g.Flags.SearchFlavour > 0 ? 1 : 3; }

int QuickRootScore(Game& g, const std::vector<MoveRecord>& roots, int i, const QuickPass& pass) {
  MakeRootMove(g, roots, i, pass.searchRootCount);
  const int score = DrawnOr(g, QuickScoreAt(g, pass.quickDepth));
  UndoRootMove(g);
  return score;
}

void NoteRootLine(Game& g, const std::vector<MoveRecord>& roots, int i) {
  g.MoveStack[0] = roots[static_cast<std::size_t>(i)];
  UpdatePV(g, 0);
}

}  // namespace qv

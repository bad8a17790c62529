#pragma once
// One pass over the root moves with the quick capture search: the loop of the
// hint and of the ply value table.
#include <vector>

#include "core/game.h"
#include "engine/score.h"

namespace qv {

struct QuickPass {
  int alpha = -WinScore;  // the window; on return Alpha holds the pass's best score
  int beta = WinScore;
  int quickDepth = 1;  // the depth QuickScoreAt searches each root move to
  int searchRootCount = 0;  // HalfMoveCount at the root
  // The ply value table leaves a pass when Cancel has come and no decided
  // score stands; the hint has no Cancel.
  bool stopOnCancel = false;
};

// Scores every root move in order; a better one is searched once more against
// (Alpha, WinScore) and, still better, becomes the new best: its main line is
// noted (UpdatePV), it goes to the front of `roots`, and newBest(score) runs.
// Returns false when Cancel ended the pass.
template <class NewBest>
bool RunQuickPass(Game& g, std::vector<MoveRecord>& roots, QuickPass& pass, NewBest newBest);

// The depth of QuickScore: QuickScoreAt of this depth is QuickScore.
int QuickScoreDepth(const Game& g);

// Root move i searched by QuickScoreAt, with the draw tests of the line.
int QuickRootScore(Game& g, const std::vector<MoveRecord>& roots, int i, const QuickPass& pass);
// The main line of root move i, as UpdatePV notes it at the root.
void NoteRootLine(Game& g, const std::vector<MoveRecord>& roots, int i);

template <class NewBest>
bool RunQuickPass(Game& g, std::vector<MoveRecord>& roots, QuickPass& pass, NewBest newBest) {
  const auto cancelled = [&] { return pass.stopOnCancel && g.SearchCancelled == 1 && std::abs(pass.alpha) < DecidedScore; };
  for (int i = 0; i < static_cast<int>(roots.size()); ++i) {
    g.PVTable[g.Ply][g.Ply].From = 0;
    int score = QuickRootScore(g, roots, i, pass);
    if (cancelled()) return false;
    if (i > 0) {
      if (score <= pass.alpha) continue;
      const int old = pass.alpha;
      pass.alpha = score;
      pass.beta = WinScore;
      score = QuickRootScore(g, roots, i, pass);
      if (cancelled()) return false;
      if (score <= old) continue;
    } else if (score < pass.alpha || score >= pass.beta) {
      score = QuickRootScore(g, roots, 0, pass);
      if (cancelled()) return false;
    }
    pass.alpha = score;
    pass.beta = score + 1;
    NoteRootLine(g, roots, i);
    if (i > 0) std::rotate(roots.begin(), roots.begin() + i, roots.begin() + i + 1);
    newBest(score);
  }
  return true;
}

}  // namespace qv

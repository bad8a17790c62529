#include "engine/search.h"

#include "core/fastgen.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/searchgen.h"
#include "engine/evaluate.h"

namespace qv {

namespace {

constexpr int Used = -32000;

// What a member of the search family fixes at compile time: its generator and
// evaluation, how deep it goes, and what a side without moves scores. Quick
// members (QuickSearch) stop at a shallower depth, ignore a cancel on entry
// unless QuickSearchCancels asks for it, and ignore BruteForce.
template <SearchMember M, bool Quick>
struct Member {
  static constexpr bool Fast = M == SearchMember::Fast1 || M == SearchMember::Fast2 ||
                               M == SearchMember::Fast3 || M == SearchMember::Fast4;
  static constexpr int LowestDepth = !Quick ? -4 : Fast ? 0 : -1;

  static void Generate(Game& g, int includeQuiet) {
    if constexpr (M == SearchMember::Fast1) GenerateShort(g, includeQuiet);
    else if constexpr (M == SearchMember::Fast2) GenerateShortMaxCap(g, includeQuiet);
    else if constexpr (M == SearchMember::Fast3) GenerateLongMaxCap(g, includeQuiet);
    else if constexpr (M == SearchMember::Fast4) GenerateLongCrown(g, includeQuiet);
    else GenerateMoves(g, includeQuiet);
  }

  // The moves of a node above the frontier: the captures, and only when
  // there are none the quiet moves, as the two calls of Generate give them.
  static void GenerateAll(Game& g) {
    if constexpr (M == SearchMember::Fast1) FastGenerate<1>(g, 0, true);
    else if constexpr (M == SearchMember::Fast2) FastGenerate<2>(g, 0, true);
    else if constexpr (M == SearchMember::Fast3) FastGenerate<3>(g, 0, true);
    else if constexpr (M == SearchMember::Fast4) FastGenerate<4>(g, 0, true);
    else GenerateLegalMoves(g);
  }

  static int Evaluate(Game& g, int alpha, int beta) {
    if constexpr (M == SearchMember::Fast1) return EvaluateShort(g, alpha, beta, g.SideToMove);
    else if constexpr (M == SearchMember::Fast2) return EvaluateShortMirror(g, alpha, beta, g.SideToMove);
    else if constexpr (M == SearchMember::Fast3 || M == SearchMember::Fast4)
      return EvaluateLong(g, alpha, beta, g.SideToMove);
    else return qv::Evaluate(g, alpha, beta, g.SideToMove);
  }

  // The score of a side that has no move at all at a depth above 0: 0 leaves
  // it at -32000; otherwise the side without moves wins (AntiMode) or loses
  // by the goal rules' count.
  static int NoMoveValue(const Game& g, int ply) {
    if constexpr (M == SearchMember::Anti) return 31999 - ply;
    else if constexpr (M == SearchMember::Goal) return -(31999 - ply);
    else if constexpr (Quick && M == SearchMember::General) return g.RuleSet.AntiMode == 1 ? 31999 - ply : 0;
    else return 0;
  }
};

template <SearchMember M, bool Quick>
int Node(Game& g, int alpha, int beta, int depth) {
  using Self = Member<M, Quick>;
  int result = 0;
  if (g.SearchCancelled == 1 && (!Quick || g.QuickSearchCancels == 1)) return result;
  ++g.NodeCount;
  const int ply = g.Ply;
  g.PVTable[ply][ply].From = 0;
  const int score = Self::Evaluate(g, alpha, beta);
  const int ruleLoss = g.RuleLossPending;

  // A side about to lose by the rules looks one ply further; so does a
  // capture or crowning whose score is near the window.
  if (ruleLoss == 1 && depth + ply < g.HorizonLimit + 1) {
    ++depth;
  } else if (g.CaptureFlagByPly[ply] == 2 - g.Settings.ExtendedSearch && depth + ply < g.HorizonLimit &&
             score >= alpha - g.Settings.Balance && score <= beta + g.Settings.Balance && ply >= 2 &&
             (M != SearchMember::Anti || depth >= 0)) {
    ++depth;
  }
  if (score == 32000 - ply || depth < Self::LowestDepth) return score;

  // Stand pat, at the frontier as well as below it.
  const bool bruteForce = !Quick && g.Settings.BruteForce == 1;
  if (score >= beta && depth + ruleLoss <= 1) {
    result = score;
    if (!bruteForce) return score;
  }

  int best;
  if (depth > 0) {
    Self::GenerateAll(g);
    best = -32000;
    if (g.PlyBase[ply + 1] <= g.PlyBase[ply]) {
      const int noMove = Self::NoMoveValue(g, ply);
      if (noMove != 0) best = noMove;
    }
  } else {
    Self::Generate(g, depth);  // captures only; the side may also stop here
    best = score;
  }
  if (g.StopRequest != 0) {
    g.SearchCancelled = 1;
    g.StopRequest = 0;
    return result;
  }

  int cutMove = -1;
  for (int index = SelectNextMove(g); index >= 0; index = SelectNextMove(g)) {
    MakeSearchMove(g, index);
    const int value = -Node<M, Quick>(g, -beta, -alpha, depth - 1);
    UndoSearchMove(g, index);
    if (value > best) {
      best = value;
      if (value >= beta) {
        if (depth > 0) UpdatePV(g, index);
        if (!bruteForce) {
          cutMove = index;
          break;
        }
      }
      if (value > alpha) {
        if (depth > 0) UpdatePV(g, index);
        alpha = value;
      }
    }
  }
  if (cutMove >= 0) {
    g.KillerTable[ply][1] = g.KillerTable[ply][0];
    g.KillerTable[ply][0] = MoveKey{g.MoveStack[cutMove].FromSquare, g.MoveStack[cutMove].ToSquare};
  }
  // A win found below this node: the shorter one scores higher.
  if (best == 32000) best = 31999 - ply;
  return best;
}

SearchMember FlavourMember(const Game& g) {
  switch (g.Flags.SearchFlavour) {
    case 1: return SearchMember::Fast1;
    case 2: return SearchMember::Fast2;
    case 3: return SearchMember::Fast3;
    case 4: return SearchMember::Fast4;
    default: return SearchMember::General;
  }
}

int Dispatch(Game& g, SearchMember member, int alpha, int beta, int depth) {
  switch (member) {
    case SearchMember::Anti: return Node<SearchMember::Anti, false>(g, alpha, beta, depth);
    case SearchMember::Goal: return Node<SearchMember::Goal, false>(g, alpha, beta, depth);
    case SearchMember::Fast1: return Node<SearchMember::Fast1, false>(g, alpha, beta, depth);
    case SearchMember::Fast2: return Node<SearchMember::Fast2, false>(g, alpha, beta, depth);
    case SearchMember::Fast3: return Node<SearchMember::Fast3, false>(g, alpha, beta, depth);
    case SearchMember::Fast4: return Node<SearchMember::Fast4, false>(g, alpha, beta, depth);
    default: return Node<SearchMember::General, false>(g, alpha, beta, depth);
  }
}

// QuickSearch has one general member and one per fast rule set.
int DispatchQuick(Game& g, int alpha, int beta, int depth) {
  switch (g.Flags.SearchFlavour) {
    case 1: return Node<SearchMember::Fast1, true>(g, alpha, beta, depth);
    case 2: return Node<SearchMember::Fast2, true>(g, alpha, beta, depth);
    case 3: return Node<SearchMember::Fast3, true>(g, alpha, beta, depth);
    case 4: return Node<SearchMember::Fast4, true>(g, alpha, beta, depth);
    default: return Node<SearchMember::General, true>(g, alpha, beta, depth);
  }
}

}  // namespace

SearchMember SearchMemberFor(const Game& g) {
  if (g.Flags.SearchFlavour > 0) return FlavourMember(g);
  if (g.RuleSet.AntiMode == 1) return SearchMember::Anti;
  if (g.RuleSet.WinAtPromo != 1 && g.RuleSet.KingWin != 1) return SearchMember::General;
  return SearchMember::Goal;
}

int SearchNode(Game& g, SearchMember member, int alpha, int beta, int depth) {
  return Dispatch(g, member, alpha, beta, depth);
}

int QuickSearch(Game& g, int alpha, int beta, int depth) { return DispatchQuick(g, alpha, beta, depth); }

int QuickScoreAt(Game& g, int depth) {
  if (g.Flags.SearchFlavour == 0 && g.RuleSet.PiecesOnBlack == 2) --depth;
  return -QuickSearch(g, -32000, 32000, depth);
}

int QuickScore(Game& g) {
  int depth = 1;
  if (g.Flags.SearchFlavour == 0) depth = g.RuleSet.PiecesOnBlack == 2 ? 2 : 3;
  return -QuickSearch(g, -32000, 32000, depth);
}

int SelectNextMove(Game& g) {
  const int first = g.PlyBase[g.Ply], last = g.PlyBase[g.Ply + 1];
  if (first >= last) return -1;
  // The range is checked once; the scan then reads the stack directly.
  if (first < 0) RaiseRangeError(first, MoveStackSize);
  if (last > MoveStackSize) RaiseRangeError(MoveStackSize, MoveStackSize);
  MoveRecord* moves = g.MoveStack.Cells;
  int best = -1, bestScore = Used;
  for (int i = first; i < last; ++i) {
    const int score = moves[i].OrderScore;
    if (score > bestScore) {
      bestScore = score;
      best = i;
    }
  }
  if (best >= 0) moves[best].OrderScore = Used;
  return best;
}

void UpdatePV(Game& g, int index) {
  const int ply = g.Ply;
  const MoveRecord& m = g.MoveStack[index];
  g.PVTable[ply][ply] = PVEntry{(m.IsCapture() ? 1 : 0) + (m.PromoteFlag != 0 ? 10 : 0), m.FromSquare, m.ToSquare};
  for (int k = 1; ply + k < PlyRows; ++k) {
    g.PVTable[ply][ply + k] = g.PVTable[ply + 1][ply + k];
    if (g.PVTable[ply][ply + k].From == 0) break;
  }
}

}  // namespace qv

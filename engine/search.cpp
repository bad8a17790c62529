#include "engine/search.h"

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/searchgen.h"
#include "engine/evaluate.h"

namespace qv {

namespace {

constexpr int Used = -32000;

// What differs between the members of the family.
struct MemberTraits {
  void (*generate)(Game&, int);
  int (*evaluate)(Game&, int, int, int);
  int lowestDepth;
  bool quick;   // no cancel test on entry, no brute force
  int noMove;   // 0: -32000; 1: the side without moves wins; -1: it loses
};

MemberTraits Traits(const Game& g, SearchMember member, bool quick) {
  switch (member) {
    case SearchMember::Fast1: return {GenerateShort, EvaluateShort, quick ? 0 : -4, quick, 0};
    case SearchMember::Fast2: return {GenerateShortMaxCap, EvaluateShortMirror, quick ? 0 : -4, quick, 0};
    case SearchMember::Fast3: return {GenerateLongMaxCap, EvaluateLong, quick ? 0 : -4, quick, 0};
    case SearchMember::Fast4: return {GenerateLongCrown, EvaluateLong, quick ? 0 : -4, quick, 0};
    case SearchMember::Anti: return {GenerateMoves, Evaluate, quick ? -1 : -4, quick, 1};
    case SearchMember::Goal: return {GenerateMoves, Evaluate, quick ? -1 : -4, quick, quick ? 0 : -1};
    default: return {GenerateMoves, Evaluate, quick ? -1 : -4, quick, quick && g.RuleSet.AntiMode == 1 ? 1 : 0};
  }
}

int Node(Game& g, SearchMember member, const MemberTraits& t, int alpha, int beta, int depth) {
  int result = 0;
  if (!t.quick && g.SearchCancelled == 1) return result;
  ++g.NodeCount;
  const int ply = g.Ply;
  g.PVTable[ply][ply].From = 0;
  const int score = t.evaluate(g, alpha, beta, g.SideToMove);
  const int ruleLoss = g.RuleLossPending;
  if (ruleLoss == 1 && depth + ply < g.HorizonLimit + 1) {
    ++depth;
  } else if (g.CaptureFlagByPly[ply] == 2 - g.Settings.ExtendedSearch && depth + ply < g.HorizonLimit &&
             score >= alpha - g.Settings.Balance && score <= beta + g.Settings.Balance && ply >= 2 &&
             (member != SearchMember::Anti || depth >= 0)) {
    ++depth;
  }
  if (score == 32000 - ply || depth < t.lowestDepth) return score;
  const bool bruteForce = !t.quick && g.Settings.BruteForce == 1;
  if (score >= beta && depth + ruleLoss <= 1) {
    result = score;
    if (!bruteForce) return score;
  }

  int best;
  if (depth > 0) {
    t.generate(g, 0);
    if (g.PlyBase[ply + 1] <= g.PlyBase[ply]) t.generate(g, 1);
    best = -32000;
    if (t.noMove != 0 && g.PlyBase[ply + 1] <= g.PlyBase[ply]) best = t.noMove * (31999 - ply);
  } else {
    t.generate(g, depth);
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
    const int value = -Node(g, member, t, -beta, -alpha, depth - 1);
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
  if (best == 32000) best = 31999 - ply;
  return best;
}

SearchMember QuickMember(const Game& g) {
  switch (g.Flags.SearchFlavour) {
    case 1: return SearchMember::Fast1;
    case 2: return SearchMember::Fast2;
    case 3: return SearchMember::Fast3;
    case 4: return SearchMember::Fast4;
    default: return SearchMember::General;
  }
}

}  // namespace

SearchMember SearchMemberFor(const Game& g) {
  if (g.Flags.SearchFlavour > 0) return QuickMember(g);
  if (g.RuleSet.AntiMode == 1) return SearchMember::Anti;
  if (g.RuleSet.WinAtPromo == 0 && g.RuleSet.KingWin == 0) return SearchMember::General;
  return SearchMember::Goal;
}

int SearchNode(Game& g, SearchMember member, int alpha, int beta, int depth) {
  const MemberTraits traits = Traits(g, member, false);
  return Node(g, member, traits, alpha, beta, depth);
}

int QuickSearch(Game& g, int alpha, int beta, int depth) {
  const SearchMember member = QuickMember(g);
  const MemberTraits traits = Traits(g, member, true);
  return Node(g, member, traits, alpha, beta, depth);
}

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
  int best = -1, bestScore = Used;
  for (int i = g.PlyBase[g.Ply], last = g.PlyBase[g.Ply + 1]; i < last; ++i) {
    const int score = g.MoveStack[i].OrderScore;
    if (score > bestScore) {
      bestScore = score;
      best = i;
    }
  }
  if (best >= 0) g.MoveStack[best].OrderScore = Used;
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

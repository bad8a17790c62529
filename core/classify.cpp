// Which fast rule set a variant is, and whether the rules in force differ from
// the variant's file.
#include <array>

#include "core/newgame.h"
#include "core/rule_policies.h"

namespace qv {

namespace {

constexpr std::string_view StandardSetup = "1010101001010101101010100000000000000000020202022020202002020202";
constexpr std::string_view MenForward = "NW;NE NW;NE";
constexpr std::string_view MenBoth = "NW;NE NW;NE;SE;SW";
constexpr std::string_view KingsAllWays = "NW;NE;SE;SW NW;NE;SE;SW";

struct FastRuleSet {
  int flavour;
  std::string_view men;
  int ManCapKing, MaxCapMove, MaxCapMoveKings, KingCapMove, LongKings, ManContJump, ManContJumpCrowned,
      RemovePieces, ThreeKings, NumberKings, BlackStarts, PiecesOnBlack;
};

// American; Italian; long kings with majority capture, a man passing the far
// row uncrowned (Brazilian, International); long kings crowned in passing with
// the three-kings draw (Russian). Their promotion squares: FastPromoSquares.
constexpr FastRuleSet FastRuleSets[] = {
    {1, MenForward, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1},
    {2, MenForward, 0, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0},
    {3, MenBoth, 1, 1, 0, 0, 1, 1, 0, 1, 0, 0, 0, 1},
    {4, MenBoth, 1, 0, 0, 0, 1, 1, 1, 1, 1, 15, 0, 1},
};

bool CommonRulesHold(const Game& g) {
  const RuleRecord& r = g.RuleSet;
  if (BoardSetupText(g.StartBoard) != StandardSetup) return false;
  if (r.CapRequired != 1 || r.MaxCapMoveK != 1 || r.MulJumps != 1) return false;
  const int mustBeZero[] = {r.NoLegalDraw, r.RemoveMen,      r.NumberMen,  r.DoMoves,    r.NumberMoves,
                            r.LastCap,     r.ManKing,        r.KingMan,    r.ChangeSide, r.CapReverse,
                            r.RndColor,    r.JumpFriend,     r.NumberFriends, r.TwoKings, r.NumberKings2,
                            r.NumberPieces, r.canContract,   r.ContractNumber, r.ContractW1, r.ContractW2,
                            r.ContractB1,  r.ContractB2,     r.KingWin,    r.ManCapMoveKing, r.KingFirst,
                            r.WinAtPromo,  r.AntiMode};
  for (int v : mustBeZero)
    if (v != 0) return false;
  return r.DirText[2] == KingsAllWays && r.DirText[3] == KingsAllWays;
}

bool PromoSquaresAre(const PromoTable& promo, const std::array<int, 4>& white, const std::array<int, 4>& black) {
  for (int i = 0; i < PromoSlots; ++i) {
    const int w = i < 4 ? white[i] : -1, b = i < 4 ? black[i] : -1;
    if (promo[0][i] != w || promo[1][i] != b) return false;
  }
  return true;
}

bool Matches(const Game& g, const FastRuleSet& f) {
  const RuleRecord& r = g.RuleSet;
  return r.DirText[0] == f.men && r.DirText[1] == f.men && r.ManCapKing == f.ManCapKing &&
         r.MaxCapMove == f.MaxCapMove && r.MaxCapMoveKings == f.MaxCapMoveKings && r.KingCapMove == f.KingCapMove &&
         r.LongKings == f.LongKings && r.ManContJump == f.ManContJump &&
         r.ManContJumpCrowned == f.ManContJumpCrowned && r.RemovePieces == f.RemovePieces &&
         r.ThreeKings == f.ThreeKings && r.NumberKings == f.NumberKings && r.BlackStarts == f.BlackStarts &&
         r.PiecesOnBlack == f.PiecesOnBlack &&
         PromoSquaresAre(r.PromoSquares, FastPromoSquares(f.flavour)[0], FastPromoSquares(f.flavour)[1]);
}

}  // namespace

int ClassifyVariant(Game& g) {
  g.Flags.SearchFlavour = 0;
  if (!CommonRulesHold(g)) return 0;
  int isAmerican = 0;
  for (const FastRuleSet& f : FastRuleSets)
    if (Matches(g, f)) {
      g.Flags.SearchFlavour = f.flavour;
      if (f.flavour == 1) isAmerican = -1;
    }
  return isAmerican;
}

void MarkModified(Game& g) {
  const RuleRecord& a = g.RuleSet;
  const RuleRecord& b = g.VariantDefinition;
  bool modified = false;
  for (const RuleField& field : RuleFields()) {
    if (field.name == "NumberFriends" || field.name == "BlackStarts") continue;
    if (a.*field.member != b.*field.member) modified = true;
  }
  if (!(a.PromoSquares == b.PromoSquares) || a.DirText != b.DirText) modified = true;
  if (g.CustomPosition == 0) {
    if (a.BlackStarts != b.BlackStarts) modified = true;
  } else if (a.RemoveMen == 0 && a.DoMoves == 0) {
    modified = true;
  }
  g.VariantLabel = g.LoadedVariantName + (modified ? " (M)" : "");
}

void RemoveMenAtRandom(Game& g) {
  Table<int, 33> white, black;
  int whiteCount = 0, blackCount = 0;
  for (int row = 2; row <= 9; ++row)
    for (int column = 8; column >= 1; --column) {
      const int cell = row * 10 + column;
      const int v = g.Board[cell];
      if (v > 0 && v != OffBoard) white[++whiteCount] = cell;
      if (v < 0) black[++blackCount] = cell;
    }
  auto removeFrom = [&](Table<int, 33>& list, int count) {
    const int n = std::min(g.RuleSet.NumberMen, count - 1);
    for (int k = 0; k < n; ++k) {
      int cell;
      do {
        cell = list[static_cast<int>(g.Rnd() * count) + 1];
      } while (g.Board[cell] == 0);
      g.Board[cell] = 0;
    }
  };
  removeFrom(white, whiteCount);
  removeFrom(black, blackCount);
  g.CustomPosition = 1;
}

}  // namespace qv

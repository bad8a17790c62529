#pragma once
// Building games and positions for tests.
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/newgame.h"

namespace qv::testing {

// A fresh American game with a fixed seed.
inline std::unique_ptr<Game> NewTestGame(unsigned seed = 1) {
  auto g = std::make_unique<Game>();
  g->Random.SetFixedSeed(seed);
  NewGame(*g);
  return g;
}

// Puts the rules in force and derives everything a new game derives.
inline void ApplyRules(Game& g, const RuleRecord& rules) {
  g.RuleSet = rules;
  g.VariantDefinition = rules;
  BuildDirTable(g);
  ScanDirections(g);
  ScanDirectionKinds(g);
  DeriveRuleTables(g);
  g.ContractLeftWhite = g.ContractLeftBlack = rules.ContractNumber;
}

// The rules of one of the four fast rule sets.
inline RuleRecord FastRuleSet(int flavour) {
  RuleRecord r;
  if (flavour == 2) {
    r.ManCapKing = 0;
    r.MaxCapMove = r.MaxCapMoveKings = r.KingCapMove = 1;
    r.BlackStarts = 0;
    r.PiecesOnBlack = 0;
    const int white[] = {91, 93, 95, 97}, black[] = {22, 24, 26, 28};
    for (int i = 0; i < 4; ++i) {
      r.PromoSquares[0][i] = white[i];
      r.PromoSquares[1][i] = black[i];
    }
  }
  if (flavour >= 3) {
    r.DirText[0] = r.DirText[1] = "NW;NE NW;NE;SE;SW";
    r.LongKings = r.ManContJump = r.RemovePieces = 1;
    r.BlackStarts = 0;
  }
  if (flavour == 3) r.MaxCapMove = 1;
  if (flavour == 4) {
    r.ManContJumpCrowned = 1;
    r.ThreeKings = 1;
    r.NumberKings = 15;
  }
  return r;
}

// Flying kings with majority capture and kings that must capture on: one
// rule more than the Brazilian-type fast rule set, so only the general
// search plays it.
inline RuleRecord GeneralLongKingRules() {
  RuleRecord r = FastRuleSet(3);
  r.KingCapMove = 1;
  return r;
}

// Empties the board and places pieces given as ("C3", value); side to move.
inline void SetPosition(Game& g, std::initializer_list<std::pair<const char*, int>> pieces, int sideToMove) {
  for (int cell = 21; cell <= 98; ++cell)
    if (!IsFrameCell(cell)) g.Board[cell] = 0;
  for (const auto& [name, value] : pieces) g.Board[SquareNumber(name, 0, 1)] = value;
  g.SideToMove = sideToMove;
  g.Ply = 0;
  g.PlyBase[0] = 0;
}

// The legal moves of the position as "c3-d4 [d4 ...]" texts, in stack order.
inline std::vector<std::string> MoveTexts(Game& g, int includeQuiet = -1) {
  if (includeQuiet < 0) GenerateLegalMoves(g);
  else GenerateMoves(g, includeQuiet);
  std::vector<std::string> texts;
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) {
    const MoveRecord& m = g.MoveStack[i];
    std::string text = MoveLabel(g, m);
    const std::vector<int> captured = CapturedCells(m);
    if (!captured.empty()) {
      text += " [";
      for (std::size_t k = 0; k < captured.size(); ++k)
        text += (k ? " " : "") + SquareNotation(captured[k], 1, g.Settings.NotationKind);
      text += "]";
    }
    texts.push_back(text);
  }
  return texts;
}

}  // namespace qv::testing

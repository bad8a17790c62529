#include "interaction/newvariant.h"

#include "core/newgame.h"

namespace qv {

bool NewVariantCommand(Game& g, const std::function<bool(Game&)>& runDialog) {
  g.CustomPosition = 0;
  g.TouchedCell = 0;
  NewGame(g);

  const int notationKind = g.Settings.NotationKind;
  g.Settings.NotationKind = 0;
  const bool accepted = runDialog(g);
  g.Settings.NotationKind = notationKind;  // pieces on all squares force algebraic again below

  // The dialog may have read another variant's setup onto the board: the
  // position is counted again, its balance seen from Black, before the side
  // that begins is settled.
  ReadSetupText(g, BoardSetupText(g.Board));
  ApplyRulesToNewGame(g);
  if (g.RuleSet.RemoveMen == 1) {
    RemoveMenAtRandom(g);
    if (g.RuleSet.RemoveMen == 1) AdoptBoardPosition(g);
  }
  return accepted;
}

}  // namespace qv

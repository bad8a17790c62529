#include "interaction/newvariant.h"

#include "core/newgame.h"

namespace qv {

bool NewVariantCommand(Game& g, const std::function<bool(Game&)>& showDialog) {
  g.CustomPosition = 0;
  g.TouchedCell = 0;
  NewGame(g);

  // Square texts in the dialog are always algebraic.
  const int notationKind = g.Settings.NotationKind;
  g.Settings.NotationKind = 0;
  const bool accepted = showDialog(g);
  g.Settings.NotationKind = notationKind;

  // The dialog may have read another variant's setup onto the board. Recount
  // the position as it stands, its balance seen from Black, before the side
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

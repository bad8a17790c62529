#include <ostream>

#include "cli/cli.h"
#include "core/newgame.h"

namespace qv::cli {

void PrepareGame(CliContext& context) {
  Game& g = context.game;
  const CliOptions& o = context.options;
  if (o.seed) g.Random.SetFixedSeed(*o.seed);
  if (o.notation) g.Settings.NotationKind = *o.notation;
  g.Settings.UseClassic = o.userFolder ? 0 : 1;
  if (o.variant) StartVariant(g, *o.variant);
  else NewGame(g);
  if (o.setup || o.side) {
    if (o.setup) {
      ReadSetupText(g, *o.setup);
      g.Board = g.StartBoard;
    }
    if (o.side) g.SideToMove = *o.side;
    AdoptBoardPosition(g);
  }
  if (o.notation && g.RuleSet.PiecesOnBlack != 2) g.Settings.NotationKind = *o.notation;
}

}  // namespace qv::cli

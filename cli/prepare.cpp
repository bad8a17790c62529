#include <ostream>

#include "cli/cli.h"
#include <sstream>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/newgame.h"
#include "core/text.h"
#include "files/pdn_replay.h"

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
  if (o.load) LoadPdnOption(context);
  if (o.moves) {
    std::istringstream words(*o.moves);
    std::string word;
    while (words >> word) {
      // Move numbers such as "1." may stand between the moves.
      if (word.back() == '.') continue;
      // Each enters the game record, where the opening book reads the game and a saved game holds it.
      if (!ReplayLoadedMove(g, ParseMoveText(ToUpper(word), g.CaptureChar))) throw IllegalMove{word};
    }
    CommitRootPly(g);
  }
}

}  // namespace qv::cli

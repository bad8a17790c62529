#include <ostream>

#include "cli/cli.h"
#include <sstream>

#include "core/makemove.h"
#include "core/newgame.h"
#include "core/replay.h"
#include "core/text.h"
#include "files/gamefile.h"

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
  if (o.load) {
    const LoadResult loaded = IsPdnFile(*o.load) ? LoadPdnGameNumber(g, *o.load, LoadChosenFile, o.game.value_or(1))
                                                 : LoadGame(g, *o.load, LoadChosenFile);
    if (!loaded.loaded) throw LoadFailed{loaded.message.empty() ? *o.load + ": not a readable game file" : loaded.message};
  }
  if (o.moves) {
    std::istringstream words(*o.moves);
    std::string word;
    while (words >> word) {
      // Move numbers such as "1." may stand between the moves.
      if (word.back() == '.') continue;
      if (g.HalfMoveCount >= RecordSize - 1)
        throw UsageError{"too many moves in --moves: a game holds at most " + std::to_string(RecordSize - 1) +
                         " half-moves"};
      // Each enters the record as a played move: repetitions and the move limit count it.
      if (PlayRecordedMove(g, word) != ReplayStatus::Played) throw IllegalMove{word};
    }
  }
}

}  // namespace qv::cli

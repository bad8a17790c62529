#include <ostream>

#include "cli/cli.h"
#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "engine/driver.h"
#include "files/book.h"

namespace qv::cli {

namespace {

// The command line's side of the computer's turn: boxes become lines of
// output, questions are answered No.
class CliDriverUi : public DriverUi {
 public:
  explicit CliDriverUi(std::ostream& out) : out_(out) {}
  void ShowMessage(const std::string& caption, const std::string& text) override {
    if (caption == "Congratulations") result = text;
    else out_ << caption << ": " << text << '\n';
  }
  std::string result;

 private:
  std::ostream& out_;
};

}  // namespace

int RunPlay(CliContext& context) {
  Game& g = context.game;
  const CliOptions& o = context.options;
  if (o.depth && o.time) throw UsageError{"give --depth or --time, not both"};
  g.Settings.DepthMode = o.time ? 0 : 1;
  g.Settings.DepthLimit = o.depth.value_or(6);
  g.Settings.TimeLimit = o.time ? std::max(1, static_cast<int>(*o.time + 0.5)) : g.Settings.TimeLimit;
  g.Settings.StrengthHandicap = o.handicap.value_or(0);
  g.Settings.OpeningBook = o.noBook ? 0 : 1;
  g.Settings.PlayMode = 2;
  const int maxMoves = o.maxMoves.value_or(400);
  const int firstHalfMove = g.HalfMoveCount;
  CliDriverUi ui(context.out);
  std::string movetext;
  std::string opening;  // the last name the book gave the game
  while (g.GameOver == 0 && g.HalfMoveCount - firstHalfMove < maxMoves) {
    const int number = g.HalfMoveCount / 2 + 1;
    const bool firstHalf = g.HalfMoveCount % 2 == 0;
    const TurnReport turn = ComputerMove(g, ui);
    if (!turn.moved) break;
    context.out << (firstHalf ? std::to_string(number) + ". " : std::to_string(number) + "... ") << turn.move;
    if (turn.fromBook) {
      const std::string name = BookLookup(g, 0, g.Random).OpeningName;
      context.out << "  book" << (name.empty() ? "" : "  " + name) << '\n';
      if (!name.empty()) opening = name;
    } else {
      context.out << "  score " << turn.score << "  depth " << turn.depth << "  line " << turn.mainLine << '\n';
    }
    if (firstHalf) movetext += std::to_string(number) + ". ";
    movetext += turn.move + " ";
  }
  if (g.GameOver == 0) {
    context.out << "Stopped after " << maxMoves << " half-moves.\n";
    g.GameResult = "*";
  }
  if (!opening.empty()) context.out << "Opening: " << opening << '\n';
  context.out << movetext << (g.GameResult.empty() ? "*" : g.GameResult) << '\n';
  if (!ui.result.empty()) context.out << ui.result << '\n';
  if (o.save) return SavePdnOption(context);
  return 0;
}

}  // namespace qv::cli

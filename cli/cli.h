#pragma once
// The command-line tool: options shared by all commands and the commands.
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "core/game.h"

namespace qv::cli {

struct CliOptions {
  std::optional<std::string> variant;
  bool userFolder = false;
  std::optional<std::string> setup;
  std::optional<int> side;  // 1 White, -1 Black
  std::optional<unsigned long long> seed;
  std::optional<int> notation;  // 0 algebraic, 1 numeric
  std::optional<std::string> moves;
  std::optional<std::string> load;  // a game file (.qvn) or PDN collection to start from
  std::optional<int> game;          // the game of a PDN collection, 1-based
  std::optional<std::string> save;  // play: the game file to write, or the PDN file to add the game to
  bool json = false;
  bool divide = false;
  bool general = false;
  bool noBook = false;
  bool stats = false;  // play: nodes and nodes per second to stderr
  std::optional<int> depth;
  std::optional<double> time;
  std::optional<int> handicap;
  std::optional<int> maxMoves;
  std::optional<std::string> sort;  // pvtable's order of rows
  std::string command;
  std::vector<std::string> arguments;  // what follows the command
};

// Thrown for bad command-line input: the message names the bad value.
struct UsageError {
  std::string message;
};

CliOptions ParseOptions(int argc, char** argv);
std::string UsageText();

struct CliContext {
  Game& game;
  const CliOptions& options;
  std::ostream& out;
  std::ostream& err;
};

// Thrown when a move of --moves is not legal: the move's text.
struct IllegalMove {
  std::string move;
};

// Thrown when --load cannot read its file: the words the window would show.
struct LoadFailed {
  std::string message;
};

// Builds the game the options describe: variant, set-up, side, seed, notation,
// the game of --load, then plays the moves of --moves.
void PrepareGame(CliContext& context);

// --load FILE.pdn [--game N]: the game's rules, start and moves; play --save
// FILE.pdn: the played game appended to the file.

int RunShow(CliContext& context);
int RunMoves(CliContext& context);
int RunPerft(CliContext& context);
int RunPlay(CliContext& context);
int RunVariants(CliContext& context);
int RunAnalyze(CliContext& context);
int RunPvTable(CliContext& context);

}  // namespace qv::cli

#include <cstdlib>
#include <sstream>
#include <string_view>

#include "cli/cli.h"

namespace qv::cli {

namespace {

std::string NeedValue(int& i, int argc, char** argv) {
  const std::string option = argv[i];
  if (i + 1 >= argc) throw UsageError{"option '" + option + "' needs a value"};
  return argv[++i];
}

// The search keeps 41 plies of tables; the Options dialog's clock goes to 180 seconds.
constexpr int MaxDepth = 39;
constexpr int MaxSeconds = 180;

long long WholeNumber(const std::string& option, const std::string& text, long long low, long long high) {
  char* end = nullptr;
  errno = 0;
  const long long value = std::strtoll(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno != 0 || value < low || value > high)
    throw UsageError{"bad value '" + text + "' for " + option};
  return value;
}

}  // namespace

std::string UsageText() {
  return "usage: quorvanis-cli [options] <command> [arguments]\n"
         "options:\n"
         "  --variant NAME          play the variant NAME (a file of the variants folder)\n"
         "  --user                  take --variant from the user variants folder\n"
         "  --setup 64DIGITS        start from this position (0 empty, 1/2 white/black man, 3/4 kings)\n"
         "  --side white|black      the side to move in that position\n"
         "  --seed N                seed the random generator so that a run can be repeated\n"
         "  --notation algebraic|numeric\n"
         "  --moves \"c3-d4 f6-e5\"   play these moves first (either notation, - or x)\n"
         "  --load FILE [--game N]  start from the game saved in FILE (.qvn), or game N (default 1) of a .pdn\n"
         "commands:\n"
         "  show                    print the position, its setup text and the rule set\n"
         "  moves [--json]          list the legal moves in generation order\n"
         "  perft N [--divide] [--general]\n"
         "                          count the leaves of the move tree to depth N\n"
         "  play [--depth N | --time S] [--handicap H] [--max-moves N] [--no-book] [--stats]\n"
         "                          the computer plays both sides to the end of the game\n"
         "                          (from the opening book while it knows the game)\n"
         "       [--save FILE]      and writes the game to FILE (.qvn), or adds it to a .pdn\n"
         "  variants                list the classic and the user variants with their search flavour\n"
         "  analyze [--depth N | --time S] [--handicap H] [--json]\n"
         "                          the root moves of the position with their scores, best first, and the main line\n"
         "  pvtable [--depth N] [--sort KEY] [--json]\n"
         "                          the ply value table: each move searched at rising depths, combinations marked;\n"
         "                          KEY: best-difference, both-difference, best-value, most-time, combinations\n";
}

CliOptions ParseOptions(int argc, char** argv) {
  CliOptions o;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--variant") o.variant = NeedValue(i, argc, argv);
    else if (arg == "--user") o.userFolder = true;
    else if (arg == "--setup") {
      const std::string text = NeedValue(i, argc, argv);
      if (text.size() != 64 || text.find_first_not_of("01234") != std::string::npos)
        throw UsageError{"bad setup '" + text + "': it must be 64 digits from 0 to 4"};
      o.setup = text;
    } else if (arg == "--side") {
      const std::string text = NeedValue(i, argc, argv);
      if (text == "white") o.side = 1;
      else if (text == "black") o.side = -1;
      else throw UsageError{"unknown side '" + text + "': use white or black"};
    } else if (arg == "--seed") {
      o.seed = static_cast<unsigned long long>(WholeNumber(arg, NeedValue(i, argc, argv), 0, 9223372036854775807LL));
    } else if (arg == "--notation") {
      const std::string text = NeedValue(i, argc, argv);
      if (text == "algebraic") o.notation = 0;
      else if (text == "numeric") o.notation = 1;
      else throw UsageError{"unknown notation '" + text + "': use algebraic or numeric"};
    } else if (arg == "--moves") o.moves = NeedValue(i, argc, argv);
    else if (arg == "--load") o.load = NeedValue(i, argc, argv);
    else if (arg == "--game") o.game = static_cast<int>(WholeNumber(arg, NeedValue(i, argc, argv), 1, 1000000));
    else if (arg == "--save") o.save = NeedValue(i, argc, argv);
    else if (arg == "--json") o.json = true;
    else if (arg == "--divide") o.divide = true;
    else if (arg == "--general") o.general = true;
    else if (arg == "--no-book") o.noBook = true;
    else if (arg == "--stats") o.stats = true;
    else if (arg == "--depth") {
      const std::string text = NeedValue(i, argc, argv);
      try {
        o.depth = static_cast<int>(WholeNumber(arg, text, 1, MaxDepth));
      } catch (const UsageError&) {
        throw UsageError{"bad value '" + text + "' for --depth: give a whole number of plies from 1 to " +
                         std::to_string(MaxDepth)};
      }
    } else if (arg == "--time") {
      const std::string text = NeedValue(i, argc, argv);
      char* end = nullptr;
      const double seconds = std::strtod(text.c_str(), &end);
      if (text.empty() || *end != '\0' || !(seconds > 0 && seconds <= MaxSeconds))
        throw UsageError{"bad value '" + text + "' for --time: give seconds above 0, at most " +
                         std::to_string(MaxSeconds)};
      o.time = seconds;
    } else if (arg == "--handicap") o.handicap = static_cast<int>(WholeNumber(arg, NeedValue(i, argc, argv), 0, 100));
    else if (arg == "--sort") o.sort = NeedValue(i, argc, argv);
    else if (arg == "--max-moves")
      o.maxMoves = static_cast<int>(WholeNumber(arg, NeedValue(i, argc, argv), 1, 1000));
    else if (arg.size() > 1 && arg[0] == '-' && !(arg.size() > 1 && std::isdigit(static_cast<unsigned char>(arg[1]))))
      throw UsageError{"unknown option '" + arg + "'"};
    else if (o.command.empty()) o.command = arg;
    else o.arguments.push_back(arg);
  }
  if (o.command.empty()) throw UsageError{"no command given"};
  return o;
}

}  // namespace qv::cli

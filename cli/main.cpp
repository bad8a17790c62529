// quorvanis-cli: the game core and engine from the command line.
#include <iostream>
#include <memory>
#include <string_view>

#include "cli/cli.h"
#include "core/fatal.h"
#include "files/paths.h"

namespace {

using Command = int (*)(qv::cli::CliContext&);

struct CommandEntry {
  std::string_view name;
  Command run;
};

constexpr CommandEntry Commands[] = {
    {"show", qv::cli::RunShow},
    {"moves", qv::cli::RunMoves},
    {"perft", qv::cli::RunPerft},
    {"play", qv::cli::RunPlay},
    {"variants", qv::cli::RunVariants},
    {"analyze", qv::cli::RunAnalyze},
    {"pvtable", qv::cli::RunPvTable},
};

}  // namespace

int main(int argc, char** argv) {
  // --help and --version answer alone, whatever else the line holds.
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      std::cout << qv::cli::UsageText();
      return 0;
    }
    if (arg == "--version") {
      std::cout << "quorvanis-cli " << QUORVANIS_VERSION << "\n";
      return 0;
    }
  }
  qv::cli::CliOptions options;
  try {
    options = qv::cli::ParseOptions(argc, argv);
  } catch (const qv::cli::UsageError& e) {
    std::cerr << "quorvanis-cli: " << e.message << "\n" << qv::cli::UsageText();
    return 2;
  }
  Command run = nullptr;
  for (const CommandEntry& entry : Commands)
    if (entry.name == options.command) run = entry.run;
  if (!run) {
    std::cerr << "quorvanis-cli: unknown command '" << options.command << "'\n" << qv::cli::UsageText();
    return 2;
  }
  auto game = std::make_unique<qv::Game>();
  // Without --variant the built-in American rules stand and no file is read.
  const std::filesystem::path dataFolder = qv::FindDataFolder(qv::ExecutableFolder(argv[0]));
  if (options.variant) game->DataFolder = dataFolder;
  qv::cli::CliContext context{*game, options, std::cout, std::cerr};
  try {
    qv::cli::PrepareGame(context);
    game->DataFolder = dataFolder;
    return run(context);
  } catch (const qv::cli::UsageError& e) {
    std::cerr << "quorvanis-cli: " << e.message << "\n" << qv::cli::UsageText();
    return 2;
  } catch (const qv::cli::LoadFailed& e) {
    std::cerr << e.message << "\n";
    return 1;
  } catch (const qv::cli::IllegalMove& e) {
    std::cerr << e.move << ": Illegal move!\n";
    return 1;
  } catch (const qv::FatalError& e) {
    std::cerr << e.what() << "\n";
    return 1;
  }
}

#include <chrono>
#include <cstdio>
#include <ostream>

#include "cli/cli.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/perft.h"
#include "core/searchgen.h"

namespace qv::cli {

int RunPerft(CliContext& context) {
  const CliOptions& o = context.options;
  if (o.arguments.size() != 1) throw UsageError{"perft needs one depth"};
  const std::string& text = o.arguments[0];
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos || text.size() > 2 ||
      std::stoi(text) < 1 || std::stoi(text) > 30)
    throw UsageError{"bad perft depth '" + text + "'"};
  const int depth = std::stoi(text);
  Game& g = context.game;
  const PerftGenerator generator = o.general ? PerftGenerator::General : PerftGenerator::Search;
  const auto start = std::chrono::steady_clock::now();
  std::uint64_t total = 0;
  if (o.divide) {
    if (o.general) GenerateLegalMoves(g);
    else GenerateSearchLegalMoves(g);
    for (int i = g.PlyBase[g.Ply], last = g.PlyBase[g.Ply + 1]; i < last; ++i) {
      const std::string label = MoveLabel(g, g.MoveStack[i]);
      MakeSearchMove(g, i);
      const std::uint64_t count = Perft(g, depth - 1, generator);
      UndoSearchMove(g, i);
      context.out << label << ' ' << count << '\n';
      total += count;
    }
  } else {
    total = Perft(g, depth, generator);
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  char rate[64];
  std::snprintf(rate, sizeof rate, "%.0f", seconds > 0 ? static_cast<double>(total) / seconds : 0.0);
  context.out << "perft " << depth << ": " << total << '\n';
  context.err << "time " << seconds << " s, " << rate << " leaves/s ("
              << (o.general || g.Flags.SearchFlavour == 0 ? "general" : "fast") << " generator)\n";
  return 0;
}

}  // namespace qv::cli

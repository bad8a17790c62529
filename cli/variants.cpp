#include <algorithm>
#include <memory>
#include <ostream>

#include "cli/cli.h"
#include "core/fatal.h"
#include "core/newgame.h"
#include "files/variantfile.h"

namespace qv::cli {

// Lists the classic and the user variants, each with the fast rule set that
// search recognises in it (0: only the general generator plays it).
int RunVariants(CliContext& context) {
  const Game& base = context.game;
  if (base.DataFolder.empty()) {
    context.err << "no data folder with variants found\n";
    return 1;
  }
  int status = 0;
  for (int useClassic : {1, 0}) {
    const auto folder = VariantFolder(base.DataFolder, useClassic);
    std::vector<std::string> names = FillVariantList(folder);
    std::sort(names.begin(), names.end());  // the directory's order is not stable across systems
    context.out << (useClassic == 1 ? "classic" : "user") << " variants (" << folder.string() << "):\n";
    for (const std::string& name : names) {
      auto g = std::make_unique<Game>();
      g->DataFolder = base.DataFolder;
      g->Settings.UseClassic = useClassic;
      g->Random.SetFixedSeed(1);
      context.out << "  " << name << ": ";
      try {
        StartVariant(*g, name);
        context.out << "SearchFlavour " << g->Flags.SearchFlavour << '\n';
      } catch (const FatalError&) {
        context.out << "unreadable\n";
        status = 1;
      }
    }
  }
  return status;
}

}  // namespace qv::cli

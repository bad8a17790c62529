// The command line's PDN files: a game of a collection to start from, and
// the played game appended to a collection.
#include <ostream>

#include "cli/cli.h"
#include "core/text.h"
#include "files/pdn_read.h"
#include "files/pdn_write.h"

namespace qv::cli {

namespace {

bool IsPdnName(const std::string& name) { return name.size() >= 3 && ToUpper(name.substr(name.size() - 3)) == "PDN"; }

std::filesystem::path TemporaryFolder() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  return error ? std::filesystem::current_path(error) : folder;
}

}  // namespace

void LoadPdnOption(CliContext& context) {
  const CliOptions& o = context.options;
  if (!IsPdnName(*o.load)) throw UsageError{"--load reads PDN files (.pdn): '" + *o.load + "'"};
  const PdnOpenResult open = OpenPdnFile(*o.load, TemporaryFolder());
  if (open.Status != PdnOpenStatus::Read) throw LoadFailed{open.Message};
  const int count = static_cast<int>(open.Collection.Games.size());
  const int number = o.game.value_or(1);
  if (number > count)
    throw UsageError{"--game " + std::to_string(number) + ": the file holds " + std::to_string(count) +
                     (count == 1 ? " game" : " games")};
  const PdnLoadResult loaded = ReadPdnGame(context.game, open.Collection, number, {});
  if (loaded.Status != PdnLoadStatus::Loaded) throw LoadFailed{loaded.Message};
}

int SavePdnOption(CliContext& context) {
  const std::string& file = *context.options.save;
  if (!IsPdnName(file)) throw UsageError{"--save writes PDN files (.pdn): '" + file + "'"};
  std::string error;
  if (!AppendPdnGame(file, context.game, error)) {
    context.err << error << '\n';
    return 1;
  }
  return 0;
}

}  // namespace qv::cli

// Portable Draughts Notation is not read or written yet: both branches say so
// and leave the game as it is.
#include "files/gamefile.h"

namespace qv {

namespace {
constexpr const char* NotYet = "Portable Draughts Notation files are not supported yet";
}

LoadResult LoadPdnGame(Game&, const std::filesystem::path& file, int) {
  return {false, NotYet, "Error", file.filename().string()};
}

FileWriteResult SavePdnGame(Game&, const std::filesystem::path&) { return {false, NotYet}; }

}  // namespace qv

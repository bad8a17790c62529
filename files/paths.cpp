#include "files/paths.h"

#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace qv {

namespace fs = std::filesystem;

namespace {
bool HasVariants(const fs::path& folder) {
  std::error_code ec;
  return fs::is_directory(folder / "variants", ec);
}
}  // namespace

fs::path FindDataFolder(const fs::path& executableFolder) {
  // A build folder holds a link "data" to the source tree's data, so that the
  // programs and tests of a build that was not installed find it one level up.
  const fs::path candidates[] = {executableFolder / ".." / "share" / "quorvanis", executableFolder / "data",
                                 executableFolder / ".." / "data"};
  for (const fs::path& candidate : candidates)
    if (HasVariants(candidate)) return fs::weakly_canonical(candidate);
  return {};
}

fs::path FindWritableFolder(const fs::path& executableFolder) {
  if (!executableFolder.empty() && access(executableFolder.c_str(), W_OK) == 0 &&
      !HasVariants(executableFolder / ".." / "share" / "quorvanis"))
    return executableFolder;
  fs::path base;
  if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg) base = xdg;
  else if (const char* home = std::getenv("HOME"); home && *home) base = fs::path(home) / ".local" / "share";
  else base = fs::temp_directory_path();
  const fs::path folder = base / "quorvanis";
  std::error_code ec;
  fs::create_directories(folder, ec);
  return folder;
}

fs::path ExecutableFolder(const char* argv0) {
  std::error_code ec;
  fs::path self = fs::read_symlink("/proc/self/exe", ec);
  if (ec && argv0) self = fs::absolute(argv0, ec);
  return self.parent_path();
}

}  // namespace qv

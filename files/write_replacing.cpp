#include "files/write_replacing.h"

#include <unistd.h>

#include <fstream>
#include <system_error>

namespace qv {

namespace fs = std::filesystem;

bool WriteReplacing(const fs::path& file, std::string_view text) {
  fs::path temporary = file;
  temporary += ".tmp" + std::to_string(getpid());
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.flush();
    if (!out) {
      std::error_code ignored;
      fs::remove(temporary, ignored);
      return false;
    }
  }
  std::error_code ec;
  fs::rename(temporary, file, ec);
  if (ec) {
    std::error_code ignored;
    fs::remove(temporary, ignored);
    return false;
  }
  return true;
}

}  // namespace qv

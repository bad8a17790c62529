#pragma once
// Writing a whole file so that the old one is never half overwritten: the
// text goes to a temporary file beside it, which is then renamed over it.
#include <filesystem>
#include <string_view>

namespace qv {

// True when `file` now holds `text`. On failure the old file is untouched and
// the temporary file is removed.
bool WriteReplacing(const std::filesystem::path& file, std::string_view text);

}  // namespace qv

#pragma once
// Every file the program writes goes through here: the text is written to a
// temporary file beside the target, flushed to the disk and renamed over the
// target in one step. A crash, a full disk or a kill during the write leaves
// the previous file whole; a failed write says why and leaves no trace.
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace qv {

struct FileWriteResult {
  bool ok = true;
  std::string error;  // what went wrong, in words for a message box; empty when ok
  explicit operator bool() const { return ok; }
};

// The last step of a write; tests put a failing one in its place.
using RenameStep = int (*)(const char* from, const char* to);

FileWriteResult WriteFileAtomically(const std::filesystem::path& target, std::string_view contents,
                                    RenameStep rename = &std::rename);

}  // namespace qv

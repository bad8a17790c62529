#include "files/safe_write.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace qv {

namespace fs = std::filesystem;

namespace {

FileWriteResult Failure(const fs::path& target, int error) {
  return {false, "Could not write " + target.filename().string() + ": " + std::strerror(error)};
}

bool WriteAll(int fd, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t n = ::write(fd, contents.data(), contents.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    contents.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

}  // namespace

FileWriteResult WriteFileAtomically(const fs::path& target, std::string_view contents, RenameStep rename) {
  // The temporary file lies in the target's folder, so that the rename never
  // crosses file systems and either the old or the new file stands.
  std::string temporary = (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
  if (target.parent_path().empty()) temporary = "." + target.filename().string() + ".XXXXXX";
  const int fd = ::mkstemp(temporary.data());
  if (fd < 0) return Failure(target, errno);
  // mkstemp creates the file for its owner alone: a replaced file keeps its
  // rights, a new one gets the usual ones.
  struct stat old {};
  ::fchmod(fd, ::stat(target.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644);

  const bool written = WriteAll(fd, contents) && ::fsync(fd) == 0;
  const int writeError = errno;
  const bool closed = ::close(fd) == 0;
  if (!written || !closed) {
    const int error = written ? errno : writeError;
    ::unlink(temporary.c_str());
    return Failure(target, error);
  }
  if (rename(temporary.c_str(), target.c_str()) != 0) {
    const int error = errno != 0 ? errno : EIO;
    ::unlink(temporary.c_str());
    return Failure(target, error);
  }
  return {};
}

}  // namespace qv

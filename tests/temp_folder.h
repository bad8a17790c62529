#pragma once
// A fresh temporary folder for one test, removed with everything in it.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>

namespace qv::testing {

class TempFolder {
 public:
  TempFolder() {
    std::random_device seed;
    path_ = std::filesystem::temp_directory_path() / ("quorvanis-test-" + std::to_string(seed()));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The whole of a file, byte for byte; empty when it cannot be read.
inline std::string ReadFileText(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace qv::testing

#pragma once
// Running the command-line tool from a test.
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace qv::testing {

struct CliRun {
  int status;
  std::string output;  // stdout and stderr together
  bool Has(const std::string& text) const { return output.find(text) != std::string::npos; }
};

inline CliRun RunCliTool(const std::string& arguments) {
  const std::string command = std::string(QUORVANIS_CLI) + " " + arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer;
  while (std::size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), n);
  const int status = pclose(pipe);
  return {WEXITSTATUS(status), output};
}

}  // namespace qv::testing

#include "files/gamelog.h"

#include "core/version.h"

namespace qv {

namespace {

// The blanks between a row and its numbers: one fewer behind a book or crown mark.
std::string RowGap(const std::string& row) {
  const bool marked = !row.empty() && (row.back() == 'b' || row.back() == 'K');
  return marked ? "  " : "   ";
}

std::string LeftAligned(const std::string& text, std::size_t width) {
  return text.size() >= width ? text : text + std::string(width - text.size(), ' ');
}

}  // namespace

std::string LogStartLine(const std::tm& when) {
  char date[64], time[64];
  std::strftime(date, sizeof date, "%x", &when);
  std::strftime(time, sizeof time, "%X", &when);
  return std::string(ProductName) + " " + ProgramVersion + "   " + date + "  " + time;
}

bool OpenGameLog(GameLog& log, const std::filesystem::path& file, const std::tm& when) {
  CloseGameLog(log);
  log.File.clear();
  log.File.open(file, std::ios::app);
  if (!log.File) {
    log.File.close();
    return false;
  }
  WriteLogLine(log, "");
  WriteLogLine(log, LogStartLine(when));
  return true;
}

void CloseGameLog(GameLog& log) {
  if (log.File.is_open()) log.File.close();
}

void WriteLogLine(GameLog& log, std::string_view text) {
  if (!log.File.is_open()) return;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = text.find("\r\n", start);
    log.File << text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start) << '\n';
    if (end == std::string_view::npos || end + 2 == text.size()) break;
    start = end + 2;
  }
  // Flushed at once: a log is read while the program runs.
  log.File.flush();
}

void LogHeader(GameLog& log, const Game& g) {
  WriteLogLine(log, "");
  WriteLogLine(log, g.LoadedVariantName);
  WriteLogLine(log, g.RuleSet.BlackStarts == 1 ? "Black   White" : "White   Black");
  WriteLogLine(log, "      moves    score   depth    main");
}

std::string PlayerLogLine(const std::string& row, int evalHistory) {
  return row + RowGap(row) + LeftAligned(std::to_string(evalHistory), 6);
}

std::string ComputerLogLine(const std::string& row, int score, int depth, const std::string& mainLine) {
  return row + RowGap(row) + LeftAligned(std::to_string(score), 8) + LeftAligned(std::to_string(depth), 8) + mainLine;
}

}  // namespace qv

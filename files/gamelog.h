#pragma once
// The game log quorvanis.log: one plain text of all games played, appended to
// from start-up to exit. Each run starts with a line of version, date and
// time; each game with a header; then a line per half move as the move list
// shows it, the computer's with its score, depth, main line and a line per
// iteration of its search.
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "core/game.h"

namespace qv {

inline constexpr const char* GameLogFileName = "quorvanis.log";

struct GameLog {
  std::ofstream File;  // closed: nothing is written
};

// "Quorvanis 1.58   <date>  <time>", in the short forms of date and time.
std::string LogStartLine(const std::tm& when);

// Opens `file` for appending and writes an empty line and the start line.
// False when it cannot be opened; the log then stays closed.
bool OpenGameLog(GameLog& log, const std::filesystem::path& file, const std::tm& when);
void CloseGameLog(GameLog& log);

// One line; CR LF in `text` start new lines.
void WriteLogLine(GameLog& log, std::string_view text);

// The head of a game, written when its first half move enters the record:
// an empty line, the variant, the colours in the order they move, the titles.
void LogHeader(GameLog& log, const Game& g);

// A half move of the person: its move list row, then the quick score.
std::string PlayerLogLine(const std::string& row, int evalHistory);
// A half move of the computer: its row, then score, depth and main line.
std::string ComputerLogLine(const std::string& row, int score, int depth, const std::string& mainLine);

}  // namespace qv

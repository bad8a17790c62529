#pragma once
// Writing a game in Portable Draughts Notation, appended to a file so that a
// PDN file gathers games.
#include <filesystem>
#include <string>

#include "core/game.h"

namespace qv {

// Today as "mm/dd/yyyy".
std::string TodayText();

// The text of the game: tags, an empty line, the movetext in lines of about
// 70 characters ending with the result, and an empty line; lines end with
// CR LF. An empty Date becomes `today` and stays in g.Tags; an empty result
// becomes "*". Comments have their line breaks replaced by two blanks, in the
// game itself as well.
std::string PdnGameText(Game& g, const std::string& today);

// Appends the game to the file (made when missing) through a temporary file
// renamed over it. False, with the reason in error, when it cannot be written.
bool AppendPdnGame(const std::filesystem::path& file, Game& g, std::string& error);

}  // namespace qv

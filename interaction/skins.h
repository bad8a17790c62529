#pragma once
// Skins: a board and pieces of the user's own, a small text file in the
// skins folder and a folder of pictures beside it, and the three classic
// picture sets that are built in.
#include <filesystem>
#include <string>
#include <vector>

#include "interaction/session.h"

namespace qv {

inline constexpr const char* ClassicSmall = "Classic Small";
inline constexpr const char* ClassicMedium = "Classic Medium";
inline constexpr const char* ClassicBig = "Classic Big";

// The names the Options dialog offers: the three classic sets, then the stem
// of every "*.ini" of the skins folder in the order the folder lists them.
std::vector<std::string> FillSkinList(const std::filesystem::path& dataFolder);

// The entry of `folder` whose name equals `name` when upper and lower case are
// not told apart; `folder / name` when there is none.
std::filesystem::path FindFolded(const std::filesystem::path& folder, const std::string& name);

// Puts the named skin in force: a classic name picks its built-in set, any
// other name reads "skins/NAME.ini" up to "END" and has the window load its
// pictures. A failure stops the reading without a word and keeps what loaded.
void SelectSkin(Session& s, const std::string& name);

}  // namespace qv

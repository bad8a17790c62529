#include "interaction/skins.h"

#include <array>
#include <fstream>
#include <system_error>

#include "core/fatal.h"
#include "core/text.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

constexpr int SkinKindOfFile = 4;

// The picture keys of a skin file and the roles they fill.
struct PictureKey {
  std::string_view key;
  ImageRole role;
};
constexpr std::array<PictureKey, ImageRoleCount> PictureKeys{{
    {"dark_square=", ImageRole::EmptyDark},
    {"light_square=", ImageRole::EmptyLight},
    {"dark_black_king=", ImageRole::DarkBlackKing},
    {"dark_white_king=", ImageRole::DarkWhiteKing},
    {"dark_black_man=", ImageRole::DarkBlackMan},
    {"dark_white_man=", ImageRole::DarkWhiteMan},
    {"white_man_ico=", ImageRole::WhiteManIcon},
    {"black_man_ico=", ImageRole::BlackManIcon},
    {"white_king_ico=", ImageRole::WhiteKingIcon},
    {"black_king_ico=", ImageRole::BlackKingIcon},
    {"light_black_king=", ImageRole::LightBlackKing},
    {"light_white_king=", ImageRole::LightWhiteKing},
    {"light_black_man=", ImageRole::LightBlackMan},
    {"light_white_man=", ImageRole::LightWhiteMan},
}};

bool StartsWith(const std::string& line, std::string_view key) { return line.compare(0, key.size(), key) == 0; }

// The classic set a reserved name stands for, or -1.
int ClassicKind(const std::string& name) {
  if (name == ClassicSmall) return 0;
  if (name == ClassicMedium) return 2;
  if (name == ClassicBig) return 3;
  return -1;
}

// One line of a skin file; false when the reading must stop.
bool ReadSkinLine(Session& s, const fs::path& pictureFolder, const std::string& line) {
  Screen& sc = s.screen;
  if (StartsWith(line, "BoardCustomSize=")) {
    sc.SkinBoardSize = ValInt(line.substr(16));
    return true;
  }
  if (StartsWith(line, "dark_highlight=")) {
    sc.HighlightDark = ValInt(line.substr(15));
    return true;
  }
  if (StartsWith(line, "light_highlight=")) {
    sc.HighlightLight = ValInt(line.substr(16));
    return true;
  }
  for (const PictureKey& picture : PictureKeys)
    if (StartsWith(line, picture.key))
      return s.window.LoadSkinPicture(picture.role, FindFolded(pictureFolder, line.substr(picture.key.size())));
  return true;
}

// Reads the skin file to "END"; any failure simply ends the reading.
void ReadSkinFile(Session& s, const std::string& name) {
  const fs::path skins = s.game.DataFolder / "skins";
  std::ifstream file(skins / (name + ".ini"));
  if (!file) return;
  const fs::path pictureFolder = FindFolded(skins, name);
  std::string line;
  try {
    while (std::getline(file, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line == "END") return;
      if (!ReadSkinLine(s, pictureFolder, line)) return;
    }
  } catch (const FatalError&) {
    // A number too large for its field: the reading stops like any other failure.
  }
}

}  // namespace

std::vector<std::string> FillSkinList(const fs::path& dataFolder) {
  std::vector<std::string> names{ClassicSmall, ClassicMedium, ClassicBig};
  std::error_code ec;
  for (fs::directory_iterator it(dataFolder / "skins", ec), end; !ec && it != end; it.increment(ec)) {
    const std::string file = it->path().filename().string();
    if (file.size() > 4 && ToLower(file.substr(file.size() - 4)) == ".ini" && it->is_regular_file(ec))
      names.push_back(file.substr(0, file.size() - 4));
  }
  return names;
}

fs::path FindFolded(const fs::path& folder, const std::string& name) {
  const std::string wanted = ToLower(name);
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
    if (ToLower(it->path().filename().string()) == wanted) return it->path();
  return folder / name;
}

void SelectSkin(Session& s, const std::string& name) {
  Options& o = s.game.Settings;
  o.SkinName = name;
  if (const int kind = ClassicKind(name); kind >= 0) {
    o.SkinKind = kind;
  } else {
    o.SkinKind = SkinKindOfFile;
    s.screen.SkinBoardSize = -1;
    ReadSkinFile(s, name);
  }
  s.window.Changed(Part::All);
}

}  // namespace qv

#include "interaction/variantreader.h"

#include <algorithm>
#include <fstream>
#include <string_view>

#include "core/fatal.h"
#include "core/newgame.h"
#include "core/text.h"

namespace qv {

namespace fs = std::filesystem;

fs::path VariantFolder(const Game& g, int useClassic) {
  const fs::path classic = g.DataFolder / "variants";
  return useClassic == 1 ? classic : classic / "uservariants";
}

std::vector<std::string> FillVariantList(const Game& g, int useClassic) {
  std::vector<std::string> names;
  std::error_code ec;
  for (const fs::directory_entry& entry : fs::directory_iterator(VariantFolder(g, useClassic), ec)) {
    const std::string file = entry.path().filename().string();
    if (entry.is_regular_file(ec) && file.size() > 4 && file.ends_with(".ini"))
      names.push_back(file.substr(0, file.size() - 4));
  }
  std::sort(names.begin(), names.end());
  return names;
}

namespace {

bool StartsWith(std::string_view line, std::string_view key) { return line.substr(0, key.size()) == key; }

void StoreNumber(Game& g, int RuleRecord::*field, std::string_view value) {
  const int number = ValInt(value);
  g.RuleSet.*field = number;
  g.VariantDefinition.*field = number;
  if (field == &RuleRecord::PiecesOnBlack && number == 2) g.Settings.NotationKind = 0;
}

// The numeric keys tested after the promotion keys: every field but the three
// tested before them.
bool IsEarlyNumericKey(std::string_view name) {
  return name == "MulJumps" || name == "MaxCapMove" || name == "BlackStarts";
}

}  // namespace

void ReadVariantIntoDialog(Game& g, std::array<std::string, 4>& dirTexts) {
  std::ifstream in(VariantFolder(g, g.Settings.UseClassic) / (g.VariantName + ".ini"));
  if (!in) throw FatalError("Error found! Quorvanis will exit");
  g.LoadedVariantName = g.VariantName;
  g.HelpText.clear();
  g.HelpLink.clear();
  g.QuickHelpLink.clear();
  // A variant without a setup of its own starts from the standard position,
  // whatever the variant read before it had put on the board.
  if (g.CustomPosition == 0) {
    BoardCells standard;
    FillFrame(standard);
    BuildStandardPosition(standard);
    ReadSetupText(g, BoardSetupText(standard));
  }

  static constexpr std::string_view movementKeys[4] = {"WhiteManMovement=", "WhiteKingMovement=",
                                                       "BlackManMovement=", "BlackKingMovement="};
  static constexpr int movementKinds[4] = {KindWhiteMan, KindWhiteKing, KindBlackMan, KindBlackKing};
  std::string line;
  while (true) {
    if (!std::getline(in, line)) throw FatalError("Error found! Quorvanis will exit");
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line == "END") break;
    // One line passes through every test in turn; the keys whose value is a
    // text replace the line by that value before the next test.
    if (StartsWith(line, "Setup=")) {
      line = line.substr(6);
      if (line != "normal") ReadSetupText(g, line);
    }
    for (const RuleField& field : RuleFields()) {
      const std::string key = std::string(field.name) + "=";
      if (IsEarlyNumericKey(field.name) && StartsWith(line, key)) StoreNumber(g, field.member, line.substr(key.size()));
    }
    for (int side = 0; side < 2; ++side) {
      const std::string_view key = side == 0 ? "PromoW=" : "PromoB=";
      if (!StartsWith(line, key)) continue;
      line = line.substr(key.size());
      ReadPromoSquaresText(line, g.RuleSet.PromoSquares, side, g.RuleSet.PiecesOnBlack);
      g.VariantDefinition.PromoSquares[side] = g.RuleSet.PromoSquares[side];
    }
    for (const RuleField& field : RuleFields()) {
      const std::string key = std::string(field.name) + "=";
      if (!IsEarlyNumericKey(field.name) && StartsWith(line, key)) StoreNumber(g, field.member, line.substr(key.size()));
    }
    for (int k = 0; k < 4; ++k) {
      if (!StartsWith(line, movementKeys[k])) continue;
      line = line.substr(movementKeys[k].size());
      g.VariantDefinition.DirText[movementKinds[k]] = line;
      dirTexts[movementKinds[k]] = line;
    }
    if (line == "Help=<br>") g.HelpText += "\r\n";
    else if (StartsWith(line, "Help=")) g.HelpText += line.substr(5);
    if (StartsWith(line, "HelpLink=")) g.HelpLink = line.substr(9);
    if (StartsWith(line, "QuickHelpLink=")) g.QuickHelpLink = line.substr(14);
    if (line == "END") break;
  }
}

}  // namespace qv

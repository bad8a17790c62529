#pragma once
// The Variants dialog's side of the variant files: the folder listing and the
// reading of a chosen file into the rules in force and the dialog together.
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "core/game.h"

namespace qv {

// "variants" under the data folder for Classic (useClassic 1), else
// "variants/uservariants".
std::filesystem::path VariantFolder(const Game& g, int useClassic);

// The stems of the ".ini" files of that folder, sorted by name.
std::vector<std::string> FillVariantList(const Game& g, int useClassic);

// Reads the file of g.VariantName (in the folder of g.Settings.UseClassic)
// into RuleSet and VariantDefinition both, the promotion squares into both,
// the movement texts into VariantDefinition.DirText and dirTexts (the dialog's
// copy), a setup into Board and StartBoard; clears HelpText, HelpLink and
// QuickHelpLink first. The first line is read like any other. RuleSet.DirText
// and DirTable are left alone: the dialog's OK stores the directions.
// A file that is missing or has no "END" line throws the fatal error
// "Error found! Quorvanis will exit".
void ReadVariantIntoDialog(Game& g, std::array<std::string, 4>& dirTexts);

}  // namespace qv

#pragma once
// Variant files: one small text file of rule keys per variant, in the classic
// folder "variants" or the user folder "variants/uservariants" of the data
// folder. The program only reads them.
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "core/game.h"

namespace qv {

// What ends the program when the variant of the settings cannot be read.
inline constexpr const char* VariantFileError =
    "Error found!\r\nPlease delete 'quorvanis.ini'.\r\n\r\nQuorvanis will exit";
// The same failure while the variants dialog reads a file.
inline constexpr const char* VariantDialogError = "Error found! Quorvanis will exit";

// The folder UseClassic chooses: 1 the classic variants, else the user's.
std::filesystem::path VariantFolder(const std::filesystem::path& dataFolder, int useClassic);
std::filesystem::path VariantFilePath(const Game& g, const std::string& variantName);

// Reads the file of g.VariantName into VariantDefinition (and a setup into
// Board and StartBoard). The first line is a title and is never read. Does
// nothing when no data folder is set. A missing file or one without an "END"
// line throws FatalError(VariantFileError).
void ReadVariantFile(Game& g);

// The tables the variants dialog edits besides RuleSet.
struct DialogRuleTables {
  PromoTable PromoSquares = RuleRecord::StandardPromoSquares();
  std::array<std::string, 4> StepText;     // movement text before the first blank
  std::array<std::string, 4> CaptureText;  // after it
  DirectionTable DirTableFile{};
  int DirectionErrorRow = -1;   // the movement text (0..3) holding an unknown word, -1 none
  int DirectionErrorWord = 0;   // 1-based position of that word
};

// The dialog's reading of a variant: VariantName becomes `name`, the first line
// is read like any other, numbers go to RuleSet and VariantDefinition both, and
// HelpText, HelpLink and QuickHelpLink start empty. Failures throw
// FatalError(VariantDialogError).
void ReadVariantIntoDialog(Game& g, const std::string& name, DialogRuleTables& out);

// The variant names of a folder: each "*.ini" file less its extension, in the
// order the directory gives them. Empty when the folder has none.
std::vector<std::string> FillVariantList(const std::filesystem::path& folder);
// The "Open as" choices of the PDN dialog: "DEFAULT", then the folder's names.
std::vector<std::string> FillOpenAsList(const std::filesystem::path& folder);

}  // namespace qv

#pragma once
// What the two PDN dialogs show and hand back: dlgPDN, which chooses a game
// of a collection and the rules to open it with, and dlgDetails, which edits
// the tags the PDN writer writes.
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "core/pdntags.h"
#include "files/pdn_source.h"

namespace qv {

struct PdnChooserForm {
  std::string Title;                              // " Choose Opening" for the openings
  std::vector<std::array<std::string, 10>> Rows;  // ListView1, one row a game
  std::vector<std::string> OpenAsList;            // Combo1: "DEFAULT" first, then the variants
  int SelectedRow = 0;                            // 0-based
  int OpenAsIndex = 0;                            // 0 "DEFAULT"
};

// The chooser for a scanned collection; the variants of `variantFolder` fill "Open as:".
PdnChooserForm MakePdnChooser(const PdnCollection& collection, const std::filesystem::path& variantFolder, int source);

// What OK leaves: the 1-based game number, and the variant of "Open as:"
// (empty for "DEFAULT").
int ChosenGameOf(const PdnChooserForm& form);
std::string OpenAsVariantOf(const PdnChooserForm& form);

// dlgDetails: Text1 Event, Text2 Site, Text3 Date, Text4 Black, Text5 White.
struct DetailsForm {
  std::string Text1, Text2, Text3, Text4, Text5;
};
DetailsForm FillDetailsForm(const PdnTags& tags);
// "Apply" and "OK": the boxes into the tags.
void ApplyDetailsForm(const DetailsForm& form, PdnTags& tags);

}  // namespace qv

#pragma once
// The "[Quorvanis " tag: this program's whole rule record in one PDN tag, so
// that a game of any rule set can be written to PDN and read again.
#include <string>
#include <string_view>

#include "core/game.h"

namespace qv {

// The version written beside the tag as [QVersion "1.13"].
inline constexpr const char* PdnRulesVersion = "1.13";

// The tag's value: "*" name "*", the start position, the rule numbers and
// promotion squares each followed by one blank, the four movement texts each
// followed by two blanks, and ManContJumpCrowned.
std::string RulesTagText(const Game& g);

// Reads a tag value into the rules in force and the start position: the
// variant's file first, then the tag's fields. qversionValue is the number of
// the file's "[QVersion " tag: the groups of later fields are read only from
// files of versions 101 and up; a tag of version 1.13 leaves its later numbers
// in front of the first movement text, which then reads them as its words.
void ApplyRulesTag(Game& g, std::string_view tag, double qversionValue);

// True when the rules in force are the standard American ones.
bool RulesAreStandardAmerican(Game& g);

}  // namespace qv

#pragma once
// The "[GameType " tag: the numbers PDN gives to the variants, in the short
// form ("21") and the long form ("25,W,8,8,A0,0": type, side that begins,
// board width and height, notation, inversion).
#include <string>
#include <string_view>

#include "core/game.h"

namespace qv {

struct GameTypeValue {
  std::string Type;        // the text before the first comma
  bool Algebraic = false;  // the notation field names squares like "c3"
};
GameTypeValue ParseGameType(std::string_view value);

// The variant of a type number, empty for a number the table does not know.
std::string GameTypeVariant(std::string_view type);

// The long form for the variant in force, empty when its name is not in the
// table or its rules were changed. algebraic: the movetext names its squares like "c3".
std::string GameTypeLongForm(const Game& g, bool algebraic);

}  // namespace qv

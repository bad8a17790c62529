#include "files/pdn_gametype.h"

#include <array>

#include "core/text.h"

namespace qv {

namespace {

struct GameTypeEntry {
  std::string_view type;
  std::string_view variant;
  // Where numeric notation puts square 1, as the long form's digit says it.
  char numericCorner;
};

constexpr std::array<GameTypeEntry, 13> GameTypes = {{
    {"20", "International Checkers", '2'},
    {"21", "American Checkers", '1'},
    {"22", "Italian Checkers", '2'},
    {"23", "American Pool Checkers", '1'},
    {"24", "Spanish Checkers", '2'},
    {"25", "Russian Checkers", '2'},
    {"26", "Brazilian Checkers", '2'},
    {"27", "Canadian Checkers", '2'},
    {"28", "Portuguese Checkers", '2'},
    {"29", "Czech Checkers", '2'},
    {"30", "Turkish Checkers", '2'},
    {"31", "Thai Checkers", '2'},
    {"40", "Frisian Checkers", '2'},
}};

std::string_view Field(std::string_view value, int index) {
  for (int i = 0; i < index; ++i) {
    const std::size_t comma = value.find(',');
    if (comma == std::string_view::npos) return {};
    value.remove_prefix(comma + 1);
  }
  return value.substr(0, value.find(','));
}

// The rules in force are those of the variant's file; the side that begins
// and the position may differ.
bool RulesAsInTheFile(const Game& g) {
  const RuleRecord& a = g.RuleSet;
  const RuleRecord& b = g.VariantDefinition;
  for (const RuleField& field : RuleFields())
    if (field.name != "BlackStarts" && field.name != "NumberFriends" && a.*field.member != b.*field.member) return false;
  return a.PromoSquares == b.PromoSquares && a.DirText == b.DirText;
}

}  // namespace

GameTypeValue ParseGameType(std::string_view value) {
  GameTypeValue result;
  result.Type = Trim(Field(value, 0));
  const std::string notation = ToUpper(Trim(Field(value, 4)));
  result.Algebraic = notation.starts_with("A") || notation.starts_with("S");
  return result;
}

std::string GameTypeVariant(std::string_view type) {
  for (const GameTypeEntry& entry : GameTypes)
    if (entry.type == type) return std::string(entry.variant);
  return {};
}

std::string GameTypeLongForm(const Game& g, bool algebraic) {
  // Rules changed from the variant's file are no longer that variant.
  if (!RulesAsInTheFile(g)) return {};
  for (const GameTypeEntry& entry : GameTypes) {
    if (entry.variant != g.VariantName) continue;
    std::string text(entry.type);
    text += g.RuleSet.BlackStarts == 1 ? ",B,8,8," : ",W,8,8,";
    text += algebraic ? std::string("A0") : std::string("N") + entry.numericCorner;
    text += g.RuleSet.PiecesOnBlack == 0 ? ",1" : ",0";
    return text;
  }
  return {};
}

}  // namespace qv

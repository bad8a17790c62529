#include "core/rules.h"

#include "core/board.h"

namespace qv {

PromoTable RuleRecord::StandardPromoSquares() {
  PromoTable promo;
  for (auto& side : promo) side.Fill(-1);
  const int white[] = {92, 94, 96, 98}, black[] = {21, 23, 25, 27};
  for (int i = 0; i < 4; ++i) {
    promo[0][i] = white[i];
    promo[1][i] = black[i];
  }
  return promo;
}

const std::array<RuleField, 42>& RuleFields() {
  static const std::array<RuleField, 42> fields = {{
#define QV_RULE_FIELD_ENTRY(name, value) {#name, &RuleRecord::name, value},
      QV_RULE_FIELDS(QV_RULE_FIELD_ENTRY)
#undef QV_RULE_FIELD_ENTRY
  }};
  return fields;
}

const RuleField* FindRuleField(std::string_view name) {
  for (const RuleField& field : RuleFields())
    if (field.name == name) return &field;
  return nullptr;
}

bool IsPromoSquare(const PromoTable& promo, int side, int cell) {
  for (int entry : promo[side])
    if (entry == cell) return true;
  return false;
}

std::string PromoSquaresText(const PromoTable& promo, int side) {
  std::string text;
  for (int cell : promo[side])
    if (cell != -1) {
      std::string name = SquareNotation(cell, 1, 0);
      for (char& c : name) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
      text += name;
    }
  return text;
}

void ReadPromoSquaresText(std::string_view text, PromoTable& promo, int side, int piecesOnBlack) {
  for (int i = 0; i < PromoSlots; ++i) {
    const std::size_t at = static_cast<std::size_t>(2 * i);
    const std::string_view pair = at < text.size() ? text.substr(at, 2) : std::string_view{};
    const int cell = SquareNumber(pair, 0, piecesOnBlack);
    promo[side][i] = cell == 0 ? -1 : cell;
  }
}

void ShiftPromoSquares(PromoTable& promo, int piecesOnBlack) {
  for (auto& side : promo)
    for (int& cell : side) {
      if (cell == -1) continue;
      int step = 0;
      SquareIsDark(cell, piecesOnBlack, &step);
      cell += step;
    }
}

void CopyRuleFields(const RuleRecord& from, RuleRecord& to) {
  for (const RuleField& field : RuleFields())
    if (field.name != "BlackStarts") to.*field.member = from.*field.member;
}

const std::array<std::string_view, 30>& VariantNumberTable() {
  static const std::array<std::string_view, 30> names = {
      "",
      "American Checkers",
      "NW Diagonal Checkers",
      "NE Diagonal Checkers",
      "Anti Checkers",
      "Double-Back Checkers",
      "Italian Checkers",
      "German Checkers",
      "Russian Checkers",
      "Pool Checkers",
      "Spanish Checkers",
      "Central-S-German Checkers",
      "Scandinavian Checkers",
      "Gothic Checkers",
      "Turkish Checkers",
      "Armenian Checkers",
      "King Race",
      "Portuguese Checkers",
      "Mini Checkers",
      "NoCap Checkers",
      "Fox and Geese",
      "Wolf and Goats",
      "Czech Checkers",
      "King Checkers",
      "NoPromo Checkers",
      "Thai Checkers",
      "Kings",
      "Kings Corners",
      "Kings Corners 6",
      "Anti Checkers Standoff",
  };
  return names;
}

}  // namespace qv

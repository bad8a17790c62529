#include "files/pdn_rulestag.h"

#include <initializer_list>

#include "core/newgame.h"
#include "core/text.h"

namespace qv {

namespace {

// Reads the tag's blank-separated fields one at a time.
class TagCursor {
 public:
  explicit TagCursor(std::string_view text) : rest_(text) {}
  std::string Next() {
    const std::size_t blank = rest_.find(' ');
    std::string token(rest_.substr(0, blank));
    rest_ = blank == std::string_view::npos ? std::string_view{} : rest_.substr(blank + 1);
    return token;
  }
  int NextNumber() { return ValInt(Next()); }
  // A field that ends at two blanks.
  std::string NextField() {
    const std::size_t gap = rest_.find("  ");
    std::string field(rest_.substr(0, gap));
    rest_ = gap == std::string_view::npos ? std::string_view{} : rest_.substr(gap + 2);
    return field;
  }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

void ReadFields(TagCursor& cursor, RuleRecord& r, std::initializer_list<int RuleRecord::*> fields) {
  for (int RuleRecord::*field : fields) r.*field = cursor.NextNumber();
}

}  // namespace

std::string RulesTagText(const Game& g) {
  const RuleRecord& r = g.RuleSet;
  std::string text = "*" + g.VariantName + "* " + BoardSetupText(g.StartBoard) + " ";
  auto number = [&text](int value) { text += std::to_string(value) + " "; };
  number(r.MulJumps);
  number(r.MaxCapMove);
  number(r.BlackStarts);
  text += PromoSquaresText(r.PromoSquares, 0) + " ";
  text += PromoSquaresText(r.PromoSquares, 1) + " ";
  for (int RuleRecord::*field :
       {&RuleRecord::PiecesOnBlack, &RuleRecord::AntiMode, &RuleRecord::WinAtPromo, &RuleRecord::MaxCapMoveKings,
        &RuleRecord::ManCapKing, &RuleRecord::KingCapMove, &RuleRecord::ManContJump, &RuleRecord::LongKings,
        &RuleRecord::RemovePieces, &RuleRecord::KingFirst, &RuleRecord::ManCapMoveKing, &RuleRecord::KingWin,
        &RuleRecord::MaxCapMoveK, &RuleRecord::CapRequired, &RuleRecord::NoLegalDraw, &RuleRecord::RemoveMen,
        &RuleRecord::NumberMen, &RuleRecord::DoMoves, &RuleRecord::NumberMoves, &RuleRecord::LastCap,
        &RuleRecord::ManKing, &RuleRecord::KingMan, &RuleRecord::ChangeSide, &RuleRecord::ThreeKings,
        &RuleRecord::NumberKings, &RuleRecord::CapReverse, &RuleRecord::RndColor, &RuleRecord::JumpFriend,
        &RuleRecord::NumberFriends, &RuleRecord::TwoKings, &RuleRecord::NumberKings2, &RuleRecord::NumberPieces,
        &RuleRecord::canContract, &RuleRecord::ContractNumber, &RuleRecord::ContractW1, &RuleRecord::ContractW2,
        &RuleRecord::ContractB1, &RuleRecord::ContractB2})
    number(r.*field);
  for (const std::string& dir : r.DirText) text += dir + "  ";
  text += std::to_string(r.ManContJumpCrowned);
  return text;
}

void ApplyRulesTag(Game& g, std::string_view tag, double qversionValue) {
  g.Settings.NotationKind = 1;
  TagCursor cursor(tag);
  bool oldFormat = false;
  std::string name;
  if (tag.starts_with("*")) {
    const std::size_t close = tag.find('*', 1);
    name = std::string(tag.substr(1, close == std::string_view::npos ? std::string_view::npos : close - 1));
    cursor = TagCursor(close == std::string_view::npos ? std::string_view{} : tag.substr(close + 1));
    if (cursor.Rest().starts_with(" ")) cursor.Next();
  } else {
    const int number = cursor.NextNumber();
    const auto& names = VariantNumberTable();
    if (number >= 1 && number < static_cast<int>(names.size())) name = std::string(names[number]);
    oldFormat = true;
  }
  if (!name.empty()) StartVariant(g, name);

  RuleRecord& r = g.RuleSet;
  ReadSetupText(g, cursor.Next());
  ReadFields(cursor, r, {&RuleRecord::MulJumps, &RuleRecord::MaxCapMove, &RuleRecord::BlackStarts});
  ReadPromoSquaresText(cursor.Next(), r.PromoSquares, 0, r.PiecesOnBlack);
  ReadPromoSquaresText(cursor.Next(), r.PromoSquares, 1, r.PiecesOnBlack);
  ReadFields(cursor, r,
             {&RuleRecord::PiecesOnBlack, &RuleRecord::AntiMode, &RuleRecord::WinAtPromo, &RuleRecord::MaxCapMoveKings,
              &RuleRecord::ManCapKing, &RuleRecord::KingCapMove, &RuleRecord::ManContJump, &RuleRecord::LongKings,
              &RuleRecord::RemovePieces, &RuleRecord::KingFirst, &RuleRecord::ManCapMoveKing, &RuleRecord::KingWin,
              &RuleRecord::MaxCapMoveK, &RuleRecord::CapRequired});
  if (!oldFormat) {
    ReadFields(cursor, r, {&RuleRecord::NoLegalDraw});
    // The gates are plain numbers: a tag of version "1.13" skips them all.
    const double v = qversionValue;
    if (v >= 101)
      ReadFields(cursor, r, {&RuleRecord::RemoveMen, &RuleRecord::NumberMen, &RuleRecord::DoMoves, &RuleRecord::NumberMoves});
    if (v >= 102) ReadFields(cursor, r, {&RuleRecord::LastCap, &RuleRecord::ManKing});
    if (v >= 103) ReadFields(cursor, r, {&RuleRecord::KingMan});
    if (v >= 104) ReadFields(cursor, r, {&RuleRecord::ChangeSide});
    if (v >= 111) ReadFields(cursor, r, {&RuleRecord::ThreeKings, &RuleRecord::NumberKings});
    if (v >= 112)
      ReadFields(cursor, r,
                 {&RuleRecord::CapReverse, &RuleRecord::RndColor, &RuleRecord::JumpFriend, &RuleRecord::NumberFriends,
                  &RuleRecord::TwoKings, &RuleRecord::NumberKings2, &RuleRecord::NumberPieces, &RuleRecord::canContract,
                  &RuleRecord::ContractNumber, &RuleRecord::ContractW1, &RuleRecord::ContractW2,
                  &RuleRecord::ContractB1, &RuleRecord::ContractB2});
  }
  for (std::string& dir : r.DirText) dir = cursor.NextField();
  r.ManContJumpCrowned = ValInt(cursor.Rest());
  BuildDirTable(g);
  // The start position and side of the tag are the game's: the balance of
  // ply 0 is seen from Black until the rules are applied.
  ApplyRulesToNewGame(g);
  if (r.PiecesOnBlack == 2) g.Settings.NotationKind = 0;
}

bool RulesAreStandardAmerican(Game& g) {
  const int flavour = g.Flags.SearchFlavour;
  const bool american = ClassifyVariant(g) == -1;
  g.Flags.SearchFlavour = flavour;
  return american;
}

}  // namespace qv

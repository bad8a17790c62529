#pragma once
// The rules of a variant as data: one record of integer fields named after the
// keys of the variant files, plus promotion squares and movement texts.
#include <array>
#include <string>
#include <string_view>

#include "core/table.h"

namespace qv {

// Every integer rule field: X(name, default). The order is the order of the
// rules table; readers, writers and comparisons walk this list.
#define QV_RULE_FIELDS(X)                                                                            \
  X(MulJumps, 1) X(MaxCapMove, 0) X(MaxCapMoveKings, 0) X(MaxCapMoveK, 1) X(KingCapMove, 0)          \
  X(ManCapKing, 1) X(CapRequired, 1) X(CapReverse, 0) X(LongKings, 0) X(KingFirst, 0)                \
  X(ManCapMoveKing, 0) X(ManContJump, 0) X(ManContJumpCrowned, 0) X(RemovePieces, 0) X(LastCap, 0)   \
  X(JumpFriend, 0) X(NumberFriends, 0) X(ManKing, 0) X(KingMan, 0) X(ChangeSide, 0)                  \
  X(BlackStarts, 1) X(RndColor, 0) X(PiecesOnBlack, 1) X(AntiMode, 0) X(WinAtPromo, 0)               \
  X(KingWin, 0) X(NoLegalDraw, 0) X(NumberPieces, 0) X(ThreeKings, 0) X(NumberKings, 0)              \
  X(TwoKings, 0) X(NumberKings2, 0) X(RemoveMen, 0) X(NumberMen, 0) X(DoMoves, 0) X(NumberMoves, 0)  \
  X(canContract, 0) X(ContractNumber, 0) X(ContractW1, 0) X(ContractW2, 0) X(ContractB1, 0)          \
  X(ContractB2, 0)

inline constexpr int PromoSlots = 12;
// Entry [side][i]: side 0 White, 1 Black; a Board cell, or -1 for an unused slot.
using PromoTable = Table<Table<int, PromoSlots>, 2>;

// Movement texts: 0 White man, 1 Black man, 2 White king, 3 Black king.
inline constexpr std::array<std::string_view, 4> DefaultDirText = {
    "NW;NE NW;NE", "NW;NE NW;NE", "NW;NE;SE;SW NW;NE;SE;SW", "NW;NE;SE;SW NW;NE;SE;SW"};

struct RuleRecord {
#define QV_DECLARE_RULE_FIELD(name, value) int name = value;
  QV_RULE_FIELDS(QV_DECLARE_RULE_FIELD)
#undef QV_DECLARE_RULE_FIELD
  // In the file's copy (VariantDefinition) these two are the file's promotion
  // squares and movement texts.
  PromoTable PromoSquares = StandardPromoSquares();
  std::array<std::string, 4> DirText = {std::string(DefaultDirText[0]), std::string(DefaultDirText[1]),
                                        std::string(DefaultDirText[2]), std::string(DefaultDirText[3])};

  static PromoTable StandardPromoSquares();
};

struct RuleField {
  std::string_view name;
  int RuleRecord::*member;
  int defaultValue;
};
// All integer fields in table order.
const std::array<RuleField, 42>& RuleFields();
const RuleField* FindRuleField(std::string_view name);

bool IsPromoSquare(const PromoTable& promo, int side, int cell);  // side 0 White, 1 Black

// Squares as written in files: algebraic pairs without separator, "B8D8F8H8".
std::string PromoSquaresText(const PromoTable& promo, int side);
void ReadPromoSquaresText(std::string_view text, PromoTable& promo, int side, int piecesOnBlack);

// After PiecesOnBlack changed: each used entry moves sideways onto the
// playing square of its row pair (a square already of that colour stays).
void ShiftPromoSquares(PromoTable& promo, int piecesOnBlack);

// Every rule of the file's copy into the copy in force, except BlackStarts,
// which the caller settles with the side to move.
void CopyRuleFields(const RuleRecord& from, RuleRecord& to);

// The 29 numbered names that old game files give instead of a variant name;
// index 1..29, entry 0 empty.
const std::array<std::string_view, 30>& VariantNumberTable();

}  // namespace qv

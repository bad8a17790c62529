#pragma once
// How a generator reads the rules: at run time from the rule set in force, or
// as constants for one of the four fast rule sets, so that the compiler drops
// every test a fixed rule set decides.
#include <array>
#include <cstdint>

#include "core/game.h"

namespace qv {

// The rule fields as plain integers, with the American defaults.
struct RuleInts {
#define QV_RULE_INT(name, value) int name = value;
  QV_RULE_FIELDS(QV_RULE_INT)
#undef QV_RULE_INT
};

// The rules the four fast rule sets fix (see ClassifyVariant).
constexpr RuleInts FastRuleValues(int flavour) {
  RuleInts r;
  switch (flavour) {
    case 2:
      r.ManCapKing = 0;
      r.MaxCapMove = 1;
      r.MaxCapMoveKings = 1;
      r.KingCapMove = 1;
      r.BlackStarts = 0;
      r.PiecesOnBlack = 0;
      break;
    case 3:
      r.MaxCapMove = 1;
      r.LongKings = 1;
      r.ManContJump = 1;
      r.RemovePieces = 1;
      r.BlackStarts = 0;
      break;
    case 4:
      r.LongKings = 1;
      r.ManContJump = 1;
      r.ManContJumpCrowned = 1;
      r.RemovePieces = 1;
      r.ThreeKings = 1;
      r.NumberKings = 15;
      r.BlackStarts = 0;
      break;
    default:
      break;
  }
  return r;
}

// The promotion squares the fast rule sets fix (see ClassifyVariant): White's,
// then Black's.
constexpr std::array<std::array<int, 4>, 2> FastPromoSquares(int flavour) {
  if (flavour == 2) return {{{91, 93, 95, 97}, {22, 24, 26, 28}}};
  return {{{92, 94, 96, 98}, {21, 23, 25, 27}}};
}

// A direction row as the generator walks it: up to the end mark of a row of
// DirTable, or a list fixed at compile time, whose loops the compiler unrolls.
struct RowSteps {
  const int* cells;
  // Every row ends with EndOfList within its nine entries (ParseDirections
  // raises an error for a ninth step), so reading up to the mark stays inside.
  bool More(int i) const { return cells[i] != EndOfList; }
  int operator[](int i) const { return cells[i]; }
};
template <int... D>
struct FixedSteps {
  static constexpr int cells[] = {D...};
  static constexpr bool More(int i) { return i < static_cast<int>(sizeof...(D)); }
  constexpr int operator[](int i) const { return cells[i]; }
};

// What a generator does with the capture lines it finds.
enum class CaptureFilter {
  General,       // every filter, in order
  PushAtOnce,    // no filter applies: push each line as it is found
  ShortMaxCap,   // longest, then most kings, then the strongest mover
  LongKingPeak,  // a king's line must reach its own longest, then the overall longest
  KingPeakOnly,  // a king's line must reach its own longest
};

struct RuntimeRules {
#define QV_RUNTIME_RULE(name, value) \
  static int name(const Game& g) { return g.RuleSet.name; }
  QV_RULE_FIELDS(QV_RUNTIME_RULE)
#undef QV_RUNTIME_RULE
  static int CompareCaptureSets(const Game& g) { return g.Flags.CompareCaptureSets; }
  static constexpr int PromoEntries = PromoSlots;
  static constexpr CaptureFilter Filter = CaptureFilter::General;
  static constexpr bool Probe = false;
  static constexpr bool FixedBoardRules = false;  // directions and promotion squares from the Game
  static constexpr bool MaySlide = true;          // whether a piece may move as a long king
  // Whether the walk screens the side on masks before asking each piece for
  // a first jump (core/jump_screen.h).
  static constexpr bool ScreensJumps = true;
};

// HasLegalMove: every rule, but it only asks whether a move exists.
struct ProbeRules : RuntimeRules {
  static constexpr bool Probe = true;
};

template <int Flavour>
struct FastRules {
  static constexpr RuleInts V = FastRuleValues(Flavour);
#define QV_FIXED_RULE(name, value) \
  static constexpr int name(const Game&) { return V.name; }
  QV_RULE_FIELDS(QV_FIXED_RULE)
#undef QV_FIXED_RULE
  static constexpr int CompareCaptureSets(const Game&) { return 0; }
  static constexpr int PromoEntries = 4;
  static constexpr CaptureFilter Filter = Flavour == 1   ? CaptureFilter::PushAtOnce
                                          : Flavour == 2 ? CaptureFilter::ShortMaxCap
                                          : Flavour == 3 ? CaptureFilter::LongKingPeak
                                                         : CaptureFilter::KingPeakOnly;
  static constexpr bool Probe = false;

  // The movement texts are fixed too ("NW;NE NW;NE" or "NW;NE NW;NE;SE;SW" for
  // men, all four diagonals for kings; Black's steps are White's negated), and
  // so are the promotion squares. Rows as in DirTable: 0..3 quiet steps of
  // kinds 0..3, 4..7 their capture steps.
  static constexpr bool FixedBoardRules = true;
  static constexpr bool ScreensJumps = false;  // the fast generators screen the side themselves
  static constexpr bool MaySlide = V.LongKings == 1 || V.ManCapMoveKing == 1 || V.ManContJumpCrowned == 1;
  static constexpr bool MenCaptureBackwards = Flavour >= 3;
  template <int Row>
  static constexpr auto Steps() {
    if constexpr (Row == 0 || (Row == 4 && !MenCaptureBackwards)) return FixedSteps<9, 11>{};
    else if constexpr (Row == 1 || (Row == 5 && !MenCaptureBackwards)) return FixedSteps<-9, -11>{};
    else if constexpr (Row == 2 || Row == 4 || Row == 6) return FixedSteps<9, 11, -9, -11>{};
    else return FixedSteps<-9, -11, 9, 11>{};
  }
  // The promotion squares of White (0) and Black (1) as bits by cell.
  static constexpr std::array<std::array<std::uint64_t, 2>, 2> PromoBits = [] {
    std::array<std::array<std::uint64_t, 2>, 2> bits{};
    for (int promoSide = 0; promoSide < 2; ++promoSide)
      for (int target : FastPromoSquares(Flavour)[promoSide])
        bits[promoSide][target >> 6] |= std::uint64_t{1} << (target & 63);
    return bits;
  }();
};

}  // namespace qv

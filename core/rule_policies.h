#pragma once
// How a generator reads the rules: at run time from the rule set in force, or
// as constants for one of the four fast rule sets, so that the compiler drops
// every test a fixed rule set decides.
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
};

}  // namespace qv

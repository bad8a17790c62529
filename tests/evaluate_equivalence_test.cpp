// The evaluations equal the reference evaluation in every position: the same
// score, the same side effects (pending rule loss, the draw of a side without
// moves, the position stored in the history) and the same noise draws, for
// the four fast rule sets and every shipped variant.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <random>

#include "core/makemove.h"
#include "engine/evaluate.h"
#include "evaluate_reference.h"
#include "files/variantfile.h"
#include "position_helpers.h"

namespace qv {

namespace {

using EvalFn = int (*)(Game&, int, int, int);

// A random position on the squares the rule set plays on, with random search
// state around it: history, material, window, noise and thresholds.
void Scramble(Game& g, std::mt19937& rnd) {
  std::uniform_int_distribution<int> percent(0, 99);
  const int density = 10 + percent(rnd) / 2;
  for (int cell = 21; cell <= 98; ++cell) {
    if (IsFrameCell(cell)) continue;
    g.Board[cell] = 0;
    if (g.RuleSet.PiecesOnBlack != 2 && !SquareIsDark(cell, g.RuleSet.PiecesOnBlack)) continue;
    if (percent(rnd) >= density) continue;
    const int kind = percent(rnd);
    g.Board[cell] = kind < 35 ? WhiteMan : kind < 70 ? BlackMan : kind < 85 ? WhiteKing : BlackKing;
  }
  g.Ply = percent(rnd) % 6;
  g.HalfMoveCount = percent(rnd) % 12;
  for (int i = 0; i < g.HalfMoveCount; ++i)
    g.Record.PositionHistory[i] =
        percent(rnd) < 15 ? PositionKeyOf(g.Board) : PositionKeyWords{static_cast<Mask>(percent(rnd)), 0, 0, 0};
  g.MaterialByPly[g.Ply] = (percent(rnd) - 50) * 8;
  g.ActivityByPly[g.Ply] = percent(rnd) % 2;
  g.LineDrawn = percent(rnd) < 5 ? 1 : 0;
  g.NoiseRange = percent(rnd) < 50 ? 0 : percent(rnd);
  g.ManThresholdWhite = percent(rnd) % 12;
  g.ManThresholdBlack = percent(rnd) % 12;
  g.FocusSquare = percent(rnd) < 20 ? 21 + percent(rnd) % 78 : 0;
  g.FocusPiece = std::array{WhiteMan, WhiteKing, BlackMan, BlackKing}[percent(rnd) % 4];
  g.SideToMove = percent(rnd) % 2 ? 1 : -1;
}

// A square, now and then a frame cell next to the board, or an unused slot.
int RandomPromoEntry(std::mt19937& rnd) {
  std::uniform_int_distribution<int> percent(0, 99);
  if (percent(rnd) < 15) return -1;
  if (percent(rnd) < 10) return 20 + percent(rnd) % 80;
  int cell = 0;
  do cell = 21 + percent(rnd) % 78;
  while (IsFrameCell(cell));
  return cell;
}

// Steps as the movement words give them, now and then one twice, ended by
// the end mark after 0 to 8 of them.
void RandomQuietSteps(DirectionRow& row, std::mt19937& rnd) {
  static constexpr int steps[] = {9, 11, -9, -11, 1, -1, 10, -10, 2, -2, 20, -20};
  std::uniform_int_distribution<int> percent(0, 99);
  const int count = percent(rnd) < 80 ? 1 + percent(rnd) % 4 : percent(rnd) % 9;
  row.Fill(EndOfList);
  for (int i = 0; i < count; ++i) row[i] = steps[percent(rnd) % 12];
}

// One change to what the general evaluation derives its tables from, made
// directly as a test or a dialog may make it between two evaluations: the
// rules, the crowning squares, the movement, the promotion tables and flags.
void ChangeSomething(Game& g, std::mt19937& rnd) {
  std::uniform_int_distribution<int> percent(0, 99);
  RuleRecord& r = g.RuleSet;
  const int square = 21 + percent(rnd) % 78, side = percent(rnd) % 2;
  switch (percent(rnd) % 14) {
    case 0: r.PiecesOnBlack = percent(rnd) % 3; break;
    case 1: r.LongKings ^= 1; break;
    case 2: r.ManCapKing ^= 1; break;
    case 3: r.WinAtPromo = percent(rnd) < 40 ? 1 : 0; break;
    case 4: r.KingWin = percent(rnd) < 25 ? 1 : 0; break;
    case 5: g.Flags.HasUnreachableSquares ^= 1; break;
    case 6:
    case 7: r.PromoSquares[side][percent(rnd) % (percent(rnd) < 70 ? 4 : PromoSlots)] = RandomPromoEntry(rnd); break;
    case 8:
    case 9: RandomQuietSteps(g.DirTable[percent(rnd) % 4], rnd); break;
    case 10: g.PromoApproach[square][side] = (percent(rnd) % 7 - 3) * 10; break;
    case 11: g.PromoReach[square][side] ^= 1; break;
    case 12: r.AntiMode = percent(rnd) < 20 ? 1 : 0; break;
    default: r.NumberPieces = percent(rnd) < 80 ? 0 : percent(rnd) % 3; break;
  }
}

// Now and then a square holding what no plain piece holds: a piece marked by
// a capture being traced, or the frame's value.
void MarkSomeSquare(Game& g, std::mt19937& rnd) {
  std::uniform_int_distribution<int> percent(0, 99);
  if (percent(rnd) >= 10) return;
  int cell = 0;
  do cell = 21 + percent(rnd) % 78;
  while (IsFrameCell(cell));
  g.Board[cell] = std::array{WhiteMan - 10, BlackMan - 10, WhiteKing - 10, BlackKing - 10, OffBoard}[percent(rnd) % 5];
}

// What an evaluation leaves behind besides its score.
struct Outcome {
  int score, ruleLossPending, noMoveDraw;
  PositionKeyWords stored;
  double nextRandom;
  bool operator==(const Outcome&) const = default;
};

Outcome Run(Game& g, EvalFn evaluate, int alpha, int beta) {
  const RandomSource random = g.Random;
  const int h = g.HalfMoveCount;
  const PositionKeyWords before = h > 0 ? g.Record.PositionHistory[h - 1] : PositionKeyWords{};
  g.RuleLossPending = g.NoMoveDraw = 0;
  Outcome o{evaluate(g, alpha, beta, g.SideToMove), g.RuleLossPending, g.NoMoveDraw, {}, 0};
  if (h > 0) o.stored = g.Record.PositionHistory[h - 1];
  o.nextRandom = g.Rnd();
  g.Random = random;
  if (h > 0) g.Record.PositionHistory[h - 1] = before;
  return o;
}

// Evaluates one scrambled position with both functions from the same state.
void ExpectSame(Game& g, EvalFn fast, EvalFn reference, std::mt19937& rnd, const std::string& what) {
  std::uniform_int_distribution<int> window(-600, 600);
  const int alpha = window(rnd), beta = alpha + 1 + std::abs(window(rnd));
  const Outcome got = Run(g, fast, alpha, beta);
  const Outcome want = Run(g, reference, alpha, beta);
  ASSERT_TRUE(got == want) << what << ": " << BoardSetupText(g.Board) << " side " << g.SideToMove << " score "
                           << got.score << " against " << want.score;
}

}  // namespace

TEST(EvaluateEquivalence, FastFormsEqualTheReference) {
  const EvalFn fast[] = {EvaluateShort, EvaluateShortMirror, EvaluateLong, EvaluateLong};
  const EvalFn reference[] = {reference::EvaluateShort, reference::EvaluateShortMirror, reference::EvaluateLong,
                              reference::EvaluateLong};
  std::mt19937 rnd(20261123);
  for (int flavour = 1; flavour <= 4; ++flavour) {
    auto g = testing::NewTestGame(5);
    testing::ApplyRules(*g, testing::FastRuleSet(flavour));
    for (int i = 0; i < 4000; ++i) {
      Scramble(*g, rnd);
      ExpectSame(*g, fast[flavour - 1], reference[flavour - 1], rnd, "flavour " + std::to_string(flavour));
    }
  }
}

// The fast forms on the rule sets' own movement and crowning squares, and on
// others set directly between calls: crowning squares on the frame or
// listed twice, steps that are not diagonal. Their tables must follow every
// such change, and rules the masks cannot count must be walked.
TEST(EvaluateEquivalence, FastFormsFollowChangedMovementAndCrowningSquares) {
  const EvalFn fast[] = {EvaluateShort, EvaluateShortMirror, EvaluateLong, EvaluateLong};
  const EvalFn reference[] = {reference::EvaluateShort, reference::EvaluateShortMirror, reference::EvaluateLong,
                              reference::EvaluateLong};
  std::mt19937 rnd(77);
  std::uniform_int_distribution<int> percent(0, 99);
  for (int flavour = 1; flavour <= 4; ++flavour) {
    auto g = testing::NewTestGame(9);
    testing::ApplyRules(*g, testing::FastRuleSet(flavour));
    for (int i = 0; i < 3000; ++i) {
      const int change = percent(rnd);
      if (change < 10) testing::ApplyRules(*g, testing::FastRuleSet(flavour));
      else if (change < 20) g->RuleSet.PromoSquares[percent(rnd) % 2][percent(rnd) % 4] = RandomPromoEntry(rnd);
      else if (change < 25) RandomQuietSteps(g->DirTable[percent(rnd) % 4], rnd);
      Scramble(*g, rnd);
      ExpectSame(*g, fast[flavour - 1], reference[flavour - 1], rnd, "flavour " + std::to_string(flavour));
      if (::testing::Test::HasFatalFailure()) return;
    }
  }
}

TEST(EvaluateEquivalence, GeneralFormEqualsTheReferenceInEveryShippedVariant) {
  const std::filesystem::path data = QUORVANIS_TEST_DATA;
  std::mt19937 rnd(7);
  for (int useClassic : {1, 0})
    for (const std::string& name : FillVariantList(VariantFolder(data, useClassic))) {
      auto g = std::make_unique<Game>();
      g->DataFolder = data;
      g->Settings.UseClassic = useClassic;
      g->Random.SetFixedSeed(3);
      StartVariant(*g, name);
      for (int i = 0; i < 600; ++i) {
        Scramble(*g, rnd);
        g->Flags.TropismActive = i % 5 == 0 ? 0 : 1;
        g->BackRankActive = i % 7 == 0 ? 0 : 1;
        ExpectSame(*g, Evaluate, reference::Evaluate, rnd, name);
      }
    }
}

// One game evaluated again and again while its rules and tables change under
// it: what the evaluation keeps from one call to the next must follow every
// change, whatever made it.
TEST(EvaluateEquivalence, GeneralFormFollowsEveryChangeOfRulesAndTables) {
  std::mt19937 rnd(424242);
  for (int start = 1; start <= 4; ++start) {
    auto g = testing::NewTestGame(11);
    RuleRecord rules = testing::FastRuleSet(start);
    rules.KingCapMove = 1;  // keeps the game on the general evaluation
    testing::ApplyRules(*g, rules);
    for (int i = 0; i < 6000; ++i) {
      for (int change = 0; change < 3; ++change)
        if (rnd() % 4 == 0) ChangeSomething(*g, rnd);
      Scramble(*g, rnd);
      MarkSomeSquare(*g, rnd);
      g->Flags.TropismActive = i % 5 == 0 ? 0 : 1;
      g->BackRankActive = i % 7 == 0 ? 0 : 1;
      ExpectSame(*g, Evaluate, reference::Evaluate, rnd, "start " + std::to_string(start));
      if (::testing::Test::HasFatalFailure()) return;
    }
  }
}

// The same pieces evaluated again and again under other weights, other
// focus and the other side to move: what was kept from one call must not
// stand in for another whose terms differ.
TEST(EvaluateEquivalence, GeneralFormKeepsNothingAcrossOtherWeights) {
  std::mt19937 rnd(5);
  auto g = testing::NewTestGame(3);
  testing::ApplyRules(*g, testing::GeneralLongKingRules());
  for (int position = 0; position < 40; ++position) {
    Scramble(*g, rnd);
    g->Ply = 0;
    g->HalfMoveCount = 0;
    g->LineDrawn = 0;
    g->ActivityByPly[0] = 0;  // never the lazy score
    for (int i = 0; i < 24; ++i) {
      g->Flags.TropismActive = i % 2;
      g->ManThresholdWhite = (i / 2) % 3 * 4;
      g->ManThresholdBlack = (i / 6) % 3 * 4;
      g->SideToMove = i % 12 < 6 ? 1 : -1;
      ExpectSame(*g, Evaluate, reference::Evaluate, rnd, "position " + std::to_string(position));
      if (::testing::Test::HasFatalFailure()) return;
    }
  }
}

}  // namespace qv

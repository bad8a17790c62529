// The fast generators are the general walk with their rules fixed: on many
// positions reached by random play they must give the same moves, in the same
// order, with the same fields.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "core/movegen_walk.h"
#include "core/rule_policies.h"
#include "core/searchgen.h"
#include "position_helpers.h"

namespace qv {

namespace {

std::vector<MoveRecord> Snapshot(const Game& g) {
  std::vector<MoveRecord> moves;
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) moves.push_back(g.MoveStack[i]);
  return moves;
}

bool SameMove(const MoveRecord& a, const MoveRecord& b) {
  return a.FromSquare == b.FromSquare && a.ToSquare == b.ToSquare && a.PromoteFlag == b.PromoteFlag &&
         a.OrderScore == b.OrderScore && std::memcmp(a.CaptureText.Cells, b.CaptureText.Cells, CaptureTextSize) == 0;
}

// Italian rules: when a king can capture, the fast generator keeps only the
// king's longest lines, where the general filters let a man's longer or equal
// line through. Those positions are told apart and not compared.
bool KingAndManBothCapture(const std::vector<MoveRecord>& general, const Game& g) {
  bool king = false, man = false;
  for (const MoveRecord& m : general) {
    if (!m.IsCapture()) continue;
    (std::abs(g.Board[m.FromSquare]) == 2 ? king : man) = true;
  }
  return king && man;
}

}  // namespace

class FastGenerator : public ::testing::TestWithParam<int> {};

TEST_P(FastGenerator, MatchesTheGeneralGeneratorOnRandomGames) {
  const int flavour = GetParam();
  auto g = testing::NewTestGame(static_cast<unsigned>(flavour));
  testing::ApplyRules(*g, testing::FastRuleSet(flavour));
  ASSERT_EQ(g->Flags.SearchFlavour, flavour);
  int compared = 0, captures = 0;
  for (int game = 0; game < 150; ++game) {
    g->Board = g->StartBoard;
    if (g->RuleSet.PiecesOnBlack == 0) AlignBoardColour(g->Board, 0);
    g->SideToMove = g->RuleSet.BlackStarts == 1 ? -1 : 1;
    g->Ply = 0;
    g->HalfMoveCount = 0;
    for (int halfMove = 0; halfMove < 160; ++halfMove) {
      GenerateLegalMoves(*g);
      const std::vector<MoveRecord> general = Snapshot(*g);
      if (general.empty()) break;
      GenerateSearchLegalMoves(*g);
      const std::vector<MoveRecord> fast = Snapshot(*g);
      if (!(flavour == 2 && KingAndManBothCapture(general, *g))) {
        ASSERT_EQ(fast.size(), general.size()) << "game " << game << " move " << halfMove;
        for (std::size_t i = 0; i < general.size(); ++i)
          ASSERT_TRUE(SameMove(fast[i], general[i])) << "game " << game << " move " << halfMove << " index " << i;
        ++compared;
        if (general[0].IsCapture()) ++captures;
      }
      const int pick = g->PlyBase[0] + static_cast<int>(g->Rnd() * static_cast<double>(fast.size()));
      MakeSearchMove(*g, pick);
      CommitRootPly(*g);
    }
  }
  EXPECT_GT(compared, 6000);
  EXPECT_GT(captures, 600);
}

// The fast generators on masks against the walk with the same rules fixed,
// on random positions full of kings and long capture lines, at random plies
// with main-line, killer and recapture keys taken from the moves themselves,
// and with the move stack nearly full.
namespace {

struct Generated {
  std::vector<MoveRecord> moves;
  int moveTop = 0;
  int plyEnd = 0;
  int stop = 0;
  BoardCells board;
};

// Runs `generate` on a copy of the stack state and returns what it left.
template <class F>
Generated RunOn(Game& g, F&& generate) {
  g.StopRequest = 0;
  generate();
  Generated r;
  r.moveTop = g.MoveTop;
  r.plyEnd = g.PlyBase[g.Ply + 1];
  r.stop = g.StopRequest;
  r.board = g.Board;
  for (int i = g.PlyBase[g.Ply]; i <= std::min(g.MoveTop, MoveStackSize - 1); ++i) r.moves.push_back(g.MoveStack[i]);
  return r;
}

void ExpectSame(const Generated& fast, const Generated& walk, const std::string& where) {
  ASSERT_EQ(fast.moveTop, walk.moveTop) << where;
  ASSERT_EQ(fast.plyEnd, walk.plyEnd) << where;
  ASSERT_EQ(fast.stop, walk.stop) << where;
  ASSERT_TRUE(fast.board == walk.board) << where;
  ASSERT_EQ(fast.moves.size(), walk.moves.size()) << where;
  // The entry at MoveTop is compared too: a full stack writes it.
  for (std::size_t i = 0; i < walk.moves.size(); ++i)
    ASSERT_TRUE(SameMove(fast.moves[i], walk.moves[i])) << where << " index " << i;
}

// Pieces on the playing squares, some of them kings, none on its own
// crowning row as a man.
void RandomPosition(Game& g, double fill, double kings) {
  for (int cell = 21; cell <= 98; ++cell) {
    if (IsFrameCell(cell)) continue;
    g.Board[cell] = 0;
    if (!SquareIsDark(cell, g.RuleSet.PiecesOnBlack) || g.Rnd() >= fill) continue;
    const int side = g.Rnd() < 0.5 ? 1 : -1;
    const bool king = g.Rnd() < kings;
    if (!king && IsPromoSquare(g.RuleSet.PromoSquares, side == 1 ? 0 : 1, cell)) continue;
    g.Board[cell] = side * (king ? 2 : 1);
  }
  g.SideToMove = g.Rnd() < 0.5 ? 1 : -1;
}

template <int Flavour>
void CompareOnRandomPositions(int positions, int& captures) {
  auto g = testing::NewTestGame(static_cast<unsigned>(40 + Flavour));
  testing::ApplyRules(*g, testing::FastRuleSet(Flavour));
  ASSERT_EQ(g->Flags.SearchFlavour, Flavour);
  const auto searchGenerator = [&](int includeQuiet) {
    if (Flavour == 1) GenerateShort(*g, includeQuiet);
    else if (Flavour == 2) GenerateShortMaxCap(*g, includeQuiet);
    else if (Flavour == 3) GenerateLongMaxCap(*g, includeQuiet);
    else GenerateLongCrown(*g, includeQuiet);
  };
  for (int n = 0; n < positions; ++n) {
    RandomPosition(*g, 0.15 + 0.6 * g->Rnd(), g->Rnd() < 0.3 ? 0.0 : g->Rnd());
    g->Ply = static_cast<int>(g->Rnd() * 4);
    g->PlyBase[g->Ply] = g->Rnd() < 0.05 ? MoveStackSize - 6 : static_cast<int>(g->Rnd() * 50);
    g->PVTable[0][g->Ply] = PVEntry{};
    g->KillerTable[g->Ply][0] = g->KillerTable[g->Ply][1] = MoveKey{};
    if (g->Ply > 0) g->PrevToSquare[g->Ply - 1] = 0;
    // A first run gives the moves that the ordering keys are taken from.
    const Generated plain = RunOn(*g, [&] { MoveWalk<FastRules<Flavour>>(*g).RunCapturesThenQuiet(); });
    if (!plain.moves.empty() && plain.moveTop > g->PlyBase[g->Ply]) {
      const int count = plain.moveTop - g->PlyBase[g->Ply];
      const auto pick = [&] { return plain.moves[static_cast<std::size_t>(g->Rnd() * count)]; };
      const MoveRecord a = pick(), b = pick(), c = pick();
      g->PVTable[0][g->Ply] = PVEntry{0, a.FromSquare, a.ToSquare};
      g->KillerTable[g->Ply][0] = MoveKey{b.FromSquare, b.ToSquare};
      g->KillerTable[g->Ply][1] = MoveKey{c.FromSquare, c.ToSquare};
      if (g->Ply > 0) g->PrevToSquare[g->Ply - 1] = pick().ToSquare;
      if (plain.moves[0].IsCapture()) ++captures;
    }
    const std::string where = "flavour " + std::to_string(Flavour) + " position " + std::to_string(n) + " " +
                              BoardSetupText(g->Board) + " side " + std::to_string(g->SideToMove);
    ExpectSame(RunOn(*g, [&] { GenerateSearchLegalMoves(*g); }),
               RunOn(*g, [&] { MoveWalk<FastRules<Flavour>>(*g).RunCapturesThenQuiet(); }), where + " two-step");
    for (int includeQuiet : {-2, 0, 1})
      ExpectSame(RunOn(*g, [&] { searchGenerator(includeQuiet); }),
                 RunOn(*g, [&] { MoveWalk<FastRules<Flavour>>(*g).Run(includeQuiet); }),
                 where + " includeQuiet " + std::to_string(includeQuiet));
    // Every move made and taken back leaves the position as it was (a full
    // stack stops the search instead, its last entry overwritten).
    g->StopRequest = 0;
    GenerateSearchLegalMoves(*g);
    if (g->StopRequest != 0) continue;
    const BoardCells before = g->Board;
    const int side = g->SideToMove, ply = g->Ply, halfMoves = g->HalfMoveCount;
    for (int i = g->PlyBase[ply]; i < g->PlyBase[ply + 1]; ++i) {
      MakeSearchMove(*g, i);
      UndoSearchMove(*g, i);
      ASSERT_TRUE(g->Board == before && g->SideToMove == side && g->Ply == ply && g->HalfMoveCount == halfMoves)
          << where << " move " << i;
    }
    if (::testing::Test::HasFailure()) return;  // one position tells enough
  }
}

}  // namespace

TEST(FastGenerator, MasksMatchTheFixedRuleWalkOnRandomPositions) {
  int captures[4] = {};
  CompareOnRandomPositions<1>(6000, captures[0]);
  CompareOnRandomPositions<2>(6000, captures[1]);
  CompareOnRandomPositions<3>(6000, captures[2]);
  CompareOnRandomPositions<4>(6000, captures[3]);
  for (int c : captures) EXPECT_GT(c, 1500);
}

// The direction rows and promotion squares a fast generator has built in are
// those the rule set's texts give.
template <int Flavour, int Row>
std::vector<int> FixedRow() {
  const auto steps = FastRules<Flavour>::template Steps<Row>();
  std::vector<int> row;
  for (int i = 0; steps.More(i); ++i) row.push_back(steps[i]);
  return row;
}
template <int Flavour>
void ExpectFixedBoardRules() {
  auto g = testing::NewTestGame();
  testing::ApplyRules(*g, testing::FastRuleSet(Flavour));
  ASSERT_EQ(g->Flags.SearchFlavour, Flavour);
  const std::vector<int> fixed[8] = {FixedRow<Flavour, 0>(), FixedRow<Flavour, 1>(), FixedRow<Flavour, 2>(),
                                     FixedRow<Flavour, 3>(), FixedRow<Flavour, 4>(), FixedRow<Flavour, 5>(),
                                     FixedRow<Flavour, 6>(), FixedRow<Flavour, 7>()};
  for (int row = 0; row < 8; ++row) {
    std::vector<int> parsed;
    for (int i = 0; g->DirTable[row][i] != EndOfList; ++i) parsed.push_back(g->DirTable[row][i]);
    EXPECT_EQ(fixed[row], parsed) << "flavour " << Flavour << " row " << row;
  }
  for (int side = 0; side < 2; ++side)
    for (int cell = 0; cell < 120; ++cell)
      EXPECT_EQ(IsPromoSquare(g->RuleSet.PromoSquares, side, cell),
                ((FastRules<Flavour>::PromoBits[side][cell >> 6] >> (cell & 63)) & 1) == 1)
          << "flavour " << Flavour << " side " << side << " cell " << cell;
}

TEST(FastGenerator, BuiltInDirectionsAndPromotionSquaresAreTheRuleSets) {
  ExpectFixedBoardRules<1>();
  ExpectFixedBoardRules<2>();
  ExpectFixedBoardRules<3>();
  ExpectFixedBoardRules<4>();
}

INSTANTIATE_TEST_SUITE_P(RuleSets, FastGenerator, ::testing::Values(1, 2, 3, 4));

}  // namespace qv

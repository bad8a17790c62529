// The fast generators are the general walk with their rules fixed: on many
// positions reached by random play they must give the same moves, in the same
// order, with the same fields.
#include <gtest/gtest.h>

#include <cstring>

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

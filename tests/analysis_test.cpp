#include <gtest/gtest.h>

#include "core/gameend.h"
#include "engine/analysis.h"
#include "engine/driver.h"
#include "engine/hint.h"
#include "engine/plyvalue.h"
#include "position_helpers.h"

namespace qv {

namespace {

// What a search over the game must leave as it found it.
struct GameFace {
  BoardCells board;
  int side, halfMoves, gameLength, ply, gameOver;
  std::vector<std::string> legal;
  std::vector<std::string> recordMoves;
  std::vector<std::string> moveTexts;
  Table<int, PlyRows> material;

  explicit GameFace(Game& g)
      : board(g.Board), side(g.SideToMove), halfMoves(g.HalfMoveCount), gameLength(g.GameLength), ply(g.Ply),
        gameOver(g.GameOver), material(g.MaterialByPly) {
    for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) legal.push_back(MoveLabel(g, g.MoveStack[i]));
    for (int h = 0; h <= g.GameLength + 1; ++h)
      recordMoves.push_back(std::to_string(g.Record.GameMoves[h].FromSquare) + "-" +
                            std::to_string(g.Record.GameMoves[h].ToSquare) + " " + g.Record.PositionHistory[h].Text());
    for (int p = 0; p <= g.GameLength / 2 + 1; ++p)
      for (const std::string& text : g.MoveTextTable[p]) moveTexts.push_back(text);
  }
  friend bool operator==(const GameFace&, const GameFace&) = default;
};

// A game some moves in, each entered in the record as the computer enters its own.
std::unique_ptr<Game> GameUnderWay(int halfMoves) {
  auto g = testing::NewTestGame(5);
  g->Settings.DepthMode = 1;
  g->Settings.DepthLimit = 3;
  g->Settings.StrengthHandicap = 0;
  g->Settings.PlayMode = 2;
  DriverUi silent;
  for (int i = 0; i < halfMoves; ++i) ComputerMove(*g, silent);
  GenerateLegalMoves(*g);
  return g;
}

// The shot of the tests: White gives a man on g5; h6xf4 is forced and g3
// jumps twice, over f4 and d6, to c7 on its way to crown.
std::unique_ptr<Game> ShotPosition() {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g,
                       {{"H4", WhiteMan}, {"G3", WhiteMan}, {"H2", WhiteMan}, {"C1", WhiteMan},
                        {"H6", BlackMan}, {"D6", BlackMan}, {"A7", BlackMan}},
                       1);
  AdoptBoardPosition(*g);
  return g;
}

// A two-for-one: c3-d4 is taken by c5xe3 or e5xc3, and the reply takes two.
std::unique_ptr<Game> TwoForOnePosition() {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g,
                       {{"A1", WhiteMan}, {"B2", WhiteMan}, {"C3", WhiteMan}, {"E3", WhiteMan},
                        {"C5", BlackMan}, {"E5", BlackMan}, {"H8", BlackMan}},
                       1);
  AdoptBoardPosition(*g);
  return g;
}

const PlyValueRow* RowOf(const PlyValueTable& table, const std::string& move) {
  for (const PlyValueRow& row : table.rows)
    if (row.move == move) return &row;
  return nullptr;
}

// Stops the search once the progress has moved `after` times.
struct CancelAfter : DriverUi {
  Game& g;
  int after;
  CancelAfter(Game& game, int n) : g(game), after(n) {}
  void SetProgress(int, int) override {
    if (--after == 0) g.StopRequest = 1;
  }
};

}  // namespace

TEST(PlyValueTable, FindsAndFlagsKnownShots) {
  struct Case {
    std::unique_ptr<Game> game;
    std::string key;
  };
  Case cases[] = {{ShotPosition(), "h4-g5"}, {TwoForOnePosition(), "c3-d4"}};
  for (Case& c : cases) {
    SCOPED_TRACE(c.key);
    const PlyValueTable table = SearchPlyValueTable(*c.game, 5);
    EXPECT_FALSE(table.cancelled);
    ASSERT_EQ(static_cast<int>(table.rows.size()), table.moveCount);
    const PlyValueRow* key = RowOf(table, c.key);
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->problem, 1) << key->line;
    ASSERT_EQ(key->values.size(), 5u);
    // The side that replies is worse off after the shot than after any other move.
    for (const PlyValueRow& row : table.rows) {
      if (&row == key) continue;
      EXPECT_LT(key->values.back(), row.values.back()) << row.move;
    }
    EXPECT_NE(key->line.find('x'), std::string::npos);
    const std::vector<PlyValueRow> combinations = SortPlyValueRows(table.rows, SortCombinations);
    EXPECT_TRUE(std::any_of(combinations.begin(), combinations.end(), [&](auto& r) { return r.move == c.key; }));
    // The analysis finds the same move and sees it win material.
    c.game->Settings.DepthMode = 1;
    c.game->Settings.DepthLimit = 6;
    c.game->Settings.StrengthHandicap = 0;
    DriverUi silent;
    const AnalysisResult analysis = Analysis(*c.game, silent);
    EXPECT_EQ(analysis.bestMove, c.key);
    EXPECT_GT(analysis.bestScore, 50);
    EXPECT_EQ(analysis.mainLine.rfind(c.key, 0), 0u) << analysis.mainLine;
  }
}

TEST(PlyValueTable, DepthOneComparesWithAnUnwrittenSecondPass) {
  auto g = ShotPosition();
  const PlyValueTable table = SearchPlyValueTable(*g, 1);
  for (const PlyValueRow& row : table.rows) {
    ASSERT_EQ(row.values.size(), 1u);
    EXPECT_EQ(row.diff, row.values[0]);
  }
}

TEST(PlyValueTable, SortsOrderTheRowsAsWritten) {
  PlyValueTable table;
  table.depth = 2;
  // move, values, diff, seconds, problem
  const auto row = [](std::string move, int v1, int v2, int diff, int seconds, int problem) {
    return PlyValueRow{std::move(move), {v1, v2}, diff, seconds, "a-b c-d", problem};
  };
  table.rows = {row("a3-b4", 10, 20, -150, 1, 1), row("c3-d4", 5, 40, 30, 4, 0), row("e3-f4", -5, -60, 90, 2, 1),
                row("g3-h4", 0, 15, -10, 3, 0)};
  const auto order = [&](int sort) {
    std::string moves;
    for (const PlyValueRow& r : SortPlyValueRows(table.rows, sort)) moves += r.move + " ";
    return moves;
  };
  EXPECT_EQ(order(SortBestDifference), "e3-f4 c3-d4 g3-h4 a3-b4 ");
  EXPECT_EQ(order(SortBothDifference), "a3-b4 e3-f4 c3-d4 g3-h4 ");
  EXPECT_EQ(order(SortBestValue), "c3-d4 a3-b4 g3-h4 e3-f4 ");
  EXPECT_EQ(order(SortMostTime), "c3-d4 g3-h4 e3-f4 a3-b4 ");
  EXPECT_EQ(order(SortCombinations), "a3-b4 e3-f4 ");
  // A second sort starts from the search's order, not from the last sort.
  SortPlyValueRows(table.rows, SortMostTime);
  EXPECT_EQ(order(SortBestDifference), "e3-f4 c3-d4 g3-h4 a3-b4 ");

  const std::string text = PlyValueText(table, SortCombinations);
  const std::string header = "  No      MOVE   PLY1    PLY2     Diff     Time   \r\n";
  ASSERT_EQ(text.rfind(header, 0), 0u) << text;
  EXPECT_EQ(text.substr(header.size(), 122), std::string(120, '-') + "\r\n");
  const std::string rows = text.substr(header.size() + 122);
  EXPECT_EQ(rows.rfind("   1.    a3-b4    ", 0), 0u) << rows;
  EXPECT_NE(rows.find("   2.    e3-f4    "), std::string::npos);
  EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 2);
  // Each value starts under its column's name.
  const std::string first = rows.substr(0, rows.find('\r'));
  EXPECT_EQ(first.substr(header.find("PLY2"), 2), "20");
  EXPECT_EQ(first.substr(header.find("Diff"), 4), "-150");
  EXPECT_EQ(PlyValueSortFromName("combinations"), SortCombinations);
  EXPECT_EQ(PlyValueSortFromName("Most time"), SortMostTime);
  EXPECT_EQ(PlyValueSortFromName("best-value"), SortBestValue);
  EXPECT_EQ(PlyValueSortFromName("fastest"), -1);
}

TEST(PlyValueTable, CancelEndsItWithTheRowsDone) {
  auto g = GameUnderWay(4);
  const GameFace before(*g);
  PlyValueWatch watch;
  watch.rowStarted = [&](int row, int) {
    if (row == 2) g->StopRequest = 1;
  };
  const PlyValueTable table = SearchPlyValueTable(*g, 4, watch);
  EXPECT_TRUE(table.cancelled);
  ASSERT_EQ(table.rows.size(), 2u);
  for (const PlyValueRow& row : table.rows) EXPECT_EQ(row.values.size(), 4u);
  EXPECT_EQ(GameFace(*g), before);
  EXPECT_EQ(g->StopRequest, 0);
}

TEST(AnalysisAndHint, LeaveBoardAndRecordAsFound) {
  auto g = GameUnderWay(6);
  g->Settings.DepthLimit = 5;
  const GameFace before(*g);
  DriverUi silent;
  const AnalysisResult analysis = Analysis(*g, silent);
  EXPECT_TRUE(analysis.searched);
  EXPECT_EQ(analysis.rootScores.size(), before.legal.size());
  for (std::size_t i = 1; i < analysis.rootScores.size(); ++i)
    EXPECT_GE(analysis.rootScores[i - 1].Score, analysis.rootScores[i].Score);
  EXPECT_FALSE(analysis.ending.over);
  EXPECT_EQ(GameFace(*g), before);

  g->StoredReplyFrom = 0;
  const HintResult hint = Hint(*g);
  EXPECT_FALSE(hint.fromStoredReply);
  EXPECT_EQ(hint.text.rfind("Try ", 0), 0u);
  EXPECT_NE(std::find(before.legal.begin(), before.legal.end(), hint.text.substr(4)), before.legal.end())
      << hint.text;
  EXPECT_EQ(GameFace(*g), before);

  SearchPlyValueTable(*g, 3);
  EXPECT_EQ(GameFace(*g), before);
}

TEST(AnalysisAndHint, HintOffersTheReplyTheComputerExpected) {
  auto g = GameUnderWay(1);
  ASSERT_GT(g->StoredReplyFrom, 0);
  const int from = g->StoredReplyFrom, to = g->StoredReplyTo;
  const HintResult hint = Hint(*g);
  EXPECT_TRUE(hint.fromStoredReply);
  EXPECT_EQ(hint.text, "Try " + SquareNotation(from, 1, 0) + "-" + SquareNotation(to, 1, 0));
  EXPECT_EQ(g->StoredReplyFrom, from);  // the caller clears it
}

TEST(AnalysisAndHint, HintOnALostPositionSaysYouHaveWon) {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"A1", WhiteMan}, {"B2", BlackMan}, {"C3", BlackMan}}, 1);
  AdoptBoardPosition(*g);
  const HintResult hint = Hint(*g);
  EXPECT_TRUE(hint.alreadyWon);
  EXPECT_TRUE(hint.text.empty());
}

TEST(AnalysisAndHint, CancelShowsTheBestMoveSoFar) {
  auto g = GameUnderWay(2);
  g->Settings.DepthLimit = 20;
  CancelAfter ui(*g, 25);
  const AnalysisResult r = Analysis(*g, ui);
  EXPECT_TRUE(r.cancelled);
  EXPECT_LT(r.depth, 20);
  EXPECT_FALSE(r.bestMove.empty());
  EXPECT_EQ(r.bestMove, MoveLabel(*g, [&] {
              for (int i = g->PlyBase[g->Ply]; i < g->PlyBase[g->Ply + 1]; ++i)
                if (g->MoveStack[i].FromSquare == r.rootScores[0].From && g->MoveStack[i].ToSquare == r.rootScores[0].To)
                  return g->MoveStack[i];
              return MoveRecord{};
            }()));
}

TEST(AnalysisAndHint, AWonPositionEndsTheGameOnlyThroughTheResult) {
  // Black has no man that can move: the analysis for Black finds the game over.
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"A1", BlackMan}, {"C3", WhiteMan}, {"B2", WhiteMan}}, -1);
  AdoptBoardPosition(*g);
  DriverUi silent;
  const AnalysisResult r = Analysis(*g, silent);
  EXPECT_FALSE(r.searched);
  EXPECT_TRUE(r.ending.over);
  EXPECT_EQ(r.boxCaption, "Congratulations");
  EXPECT_EQ(g->GameOver, 0);
  ApplyGameEnding(*g, r.ending);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_FALSE(g->GameResult.empty());
}

}  // namespace qv

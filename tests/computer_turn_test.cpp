// The order of the computer's turn: when its clock starts, how a root move
// that repeats the game scores, and how the game ends after its move.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "core/gameend.h"
#include "core/text.h"
#include "engine/driver.h"
#include "position_helpers.h"

namespace qv {

namespace {

// Remembers the last status and box, and how the player's rating moved.
struct EndUi : DriverUi {
  std::string status, box;
  double playerScore = -1;
  void SetStatus(const std::string& text) override { status = text; }
  void ShowMessage(const std::string&, const std::string& text) override { box = text; }
  void GameEnded(double score) override { playerScore = score; }
};

// Its first pause, the one before thinking, is longer than the computer's
// whole thinking time.
struct SlowPauseUi : EndUi {
  bool first = true;
  void Pause(double) override {
    if (first) std::this_thread::sleep_for(std::chrono::milliseconds(1200));
    first = false;
  }
};

void UseDepth(Game& g, int depth) {
  g.Settings.DepthMode = 1;
  g.Settings.DepthLimit = depth;
  g.Settings.StrengthHandicap = 0;
}

// A move entered into the game as the player's move is.
void PlayRecorded(Game& g, const std::string& move) {
  ASSERT_EQ(FindMove(g, ParseMoveText(ToUpper(move), g.CaptureChar)), -1) << move;
  CommitRootPly(g);
  EnterMoveInRecord(g, g.LastMoveIndex, 1);
  UpdateDrawReason(g);
}

// White to move: the king steps c5-b4 and Black's last man, on a5, is shut in.
std::unique_ptr<Game> QuietBlockingMove() {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"C5", WhiteKing}, {"C3", WhiteMan}, {"A5", BlackMan}}, 1);
  AdoptBoardPosition(*g);
  UseDepth(*g, 4);
  return g;
}

// White to move: the only legal move, e5xc3, leaves Black's a5 shut in
// behind b4 and c3.
std::unique_ptr<Game> CaptureThatBlocks(const RuleRecord& rules) {
  auto g = testing::NewTestGame();
  testing::ApplyRules(*g, rules);
  testing::SetPosition(*g, {{"E5", WhiteKing}, {"B4", WhiteMan}, {"D4", BlackMan}, {"A5", BlackMan}}, 1);
  AdoptBoardPosition(*g);
  UseDepth(*g, 4);
  return g;
}

}  // namespace

TEST(ComputerTurn, TheClockStartsAfterThePauseBeforeThinking) {
  // Two captures, each taking Black's last piece: every iteration is quick,
  // so with a whole second of its own the search reaches its last depth.
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"C3", WhiteMan}, {"E3", WhiteMan}, {"D4", BlackMan}}, 1);
  AdoptBoardPosition(*g);
  g->Settings.DepthMode = 0;
  g->Settings.TimeLimit = 1;
  g->Settings.StrengthHandicap = 0;
  SlowPauseUi ui;
  const TurnReport turn = ComputerMove(*g, ui);
  ASSERT_TRUE(turn.moved);
  EXPECT_EQ(turn.depth, 20);
  EXPECT_EQ(ui.box, "Computer wins!");
}

TEST(ComputerTurn, ARootMoveThatRepeatsThePositionStaysADrawWhenSearchedAgain) {
  // White's lone king against a king and three men. The king went c1-d2 and
  // back while Black's king went h8-g7 and back, so c1-d2 now repeats a
  // position of the game: a draw, which the losing side takes. At depth 3
  // its main line is short and it is searched once more, one ply deeper.
  auto g = testing::NewTestGame();
  testing::SetPosition(*g,
                       {{"C1", WhiteKing}, {"H8", BlackKing}, {"A7", BlackMan}, {"C7", BlackMan}, {"E7", BlackMan}},
                       1);
  AdoptBoardPosition(*g);
  for (const char* move : {"c1-d2", "h8-g7", "d2-c1", "g7-h8"}) PlayRecorded(*g, move);
  UseDepth(*g, 3);
  EndUi ui;
  const TurnReport turn = ComputerMove(*g, ui);
  EXPECT_EQ(turn.move, "c1-d2");
  EXPECT_EQ(turn.score, 0);
  EXPECT_EQ(g->LineDrawn, 0);  // the mark does not outlive the turn
}

TEST(ComputerTurn, ABlockedOpponentLosesToTheComputer) {
  // The computer's words, not the colour's; under giveaway rules the blocked
  // player wins, except when the computer plays both sides.
  auto g = CaptureThatBlocks(RuleRecord{});
  EndUi ui;
  ASSERT_TRUE(ComputerMove(*g, ui).moved);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_EQ(ui.status, "Computer wins!");
  EXPECT_EQ(ui.box, "Computer wins!");
  EXPECT_EQ(ui.playerScore, 0.0);
  EXPECT_EQ(g->GameResult, "1-0");  // White began this position and won

  RuleRecord giveaway;
  giveaway.AntiMode = 1;
  for (const int playMode : {0, 2}) {
    g = CaptureThatBlocks(giveaway);
    g->Settings.PlayMode = playMode;
    EndUi anti;
    ASSERT_TRUE(ComputerMove(*g, anti).moved);
    EXPECT_EQ(g->GameOver, 1);
    EXPECT_EQ(anti.box, playMode == 0 ? "Player wins!" : "Computer wins!");
    EXPECT_EQ(anti.playerScore, playMode == 0 ? 1.0 : 0.0);
  }
}

TEST(ComputerTurn, TheMoveLimitEndsTheGameOnlyUnderTheChessRules) {
  // 31 quiet half-moves lie behind; the computer's blocking move is the
  // 33rd half-move without a capture, one past the limit of 32.
  for (const int chessRules : {0, 1}) {
    auto g = QuietBlockingMove();
    g->Settings.FiftyMoveKind = 2;
    g->Settings.ChessDrawRules = chessRules;
    g->HalfMoveCount = 31;
    EndUi ui;
    const TurnReport turn = ComputerMove(*g, ui);
    EXPECT_EQ(turn.move, "c5-b4");
    EXPECT_EQ(g->DrawReason, 2);
    EXPECT_EQ(g->GameOver, 1);
    EXPECT_EQ(ui.box, chessRules == 1 ? "It's a draw! 50 Moves Rule" : "Computer wins!");
    EXPECT_EQ(g->GameResult, chessRules == 1 ? "1/2-1/2" : "1-0");
  }
}

TEST(ComputerTurn, ABlockedOpponentDrawsWithThePlayersNameUnderNoLegalDraw) {
  RuleRecord rules;
  rules.NoLegalDraw = 1;
  auto g = CaptureThatBlocks(rules);
  EndUi ui;
  ASSERT_TRUE(ComputerMove(*g, ui).moved);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_EQ(g->NoMoveDraw, 0);
  EXPECT_EQ(g->GameResult, "1/2-1/2");
  EXPECT_EQ(ui.status, "It's a draw!");
  EXPECT_EQ(ui.box, "PlayerIt's a draw!");
  EXPECT_EQ(ui.playerScore, 0.5);
}

}  // namespace qv

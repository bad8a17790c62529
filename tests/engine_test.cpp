#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "core/gameend.h"
#include "engine/driver.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "engine/timetext.h"
#include "files/variantfile.h"
#include "position_helpers.h"

namespace qv {

namespace {

// Remembers what the engine said.
struct RecordingUi : DriverUi {
  std::string status, box;
  void SetStatus(const std::string& text) override { status = text; }
  void ShowMessage(const std::string&, const std::string& text) override { box = text; }
};

void UseDepth(Game& g, int depth, int handicap = 0) {
  g.Settings.DepthMode = 1;
  g.Settings.DepthLimit = depth;
  g.Settings.StrengthHandicap = handicap;
  g.Settings.PlayMode = 2;
}

}  // namespace

TEST(ComputerMove, IsDeterministicWithoutNoise) {
  TurnReport first, second;
  for (TurnReport* report : {&first, &second}) {
    auto g = testing::NewTestGame(3);
    UseDepth(*g, 6);
    RecordingUi ui;
    *report = ComputerMove(*g, ui);
    ASSERT_TRUE(report->moved);
  }
  EXPECT_EQ(first.move, second.move);
  EXPECT_EQ(first.score, second.score);
  EXPECT_EQ(first.mainLine, second.mainLine);
}

TEST(ComputerMove, SeesATwoForOneShot) {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g,
                       {{"A1", WhiteMan}, {"B2", WhiteMan}, {"C3", WhiteMan}, {"E3", WhiteMan},
                        {"C5", BlackMan}, {"E5", BlackMan}, {"H8", BlackMan}},
                       1);
  AdoptBoardPosition(*g);
  UseDepth(*g, 4);
  RecordingUi ui;
  const TurnReport turn = ComputerMove(*g, ui);
  EXPECT_EQ(turn.move, "c3-d4");
  EXPECT_GT(turn.score, 50);
}

TEST(ComputerMove, WinsKingsAgainstALoneKing) {
  auto g = testing::NewTestGame();
  testing::SetPosition(*g, {{"C1", WhiteKing}, {"E1", WhiteKing}, {"G1", WhiteKing}, {"D8", BlackKing}}, 1);
  AdoptBoardPosition(*g);
  UseDepth(*g, 8);
  RecordingUi ui;
  for (int turn = 0; turn < 120 && g->GameOver == 0; ++turn) ASSERT_TRUE(ComputerMove(*g, ui).moved);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_EQ(ui.box, "Computer wins!");
  EXPECT_EQ(g->GameResult, "1-0");  // White began this position and won
}

TEST(ComputerMove, ACancelPlaysTheBestMoveSoFar) {
  auto g = testing::NewTestGame();
  g->Settings.DepthMode = 0;
  g->Settings.TimeLimit = 180;
  g->Settings.StrengthHandicap = 0;
  RecordingUi ui;
  TurnReport report;
  std::thread thinker([&] { report = ComputerMove(*g, ui); });
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  const auto cancelled = std::chrono::steady_clock::now();
  g->StopRequest = 1;
  thinker.join();
  EXPECT_LT(std::chrono::steady_clock::now() - cancelled, std::chrono::seconds(2));
  EXPECT_TRUE(report.moved);
  EXPECT_EQ(g->HalfMoveCount, 1);
}

// Answers the computer's draw offer.
struct AnsweringUi : RecordingUi {
  bool answer = false;
  std::string question;
  bool AskYesNo(const std::string& caption, const std::string& text) override {
    question = caption + ": " + text;
    return answer;
  }
};

TEST(ComputerMove, OffersADrawWithLevelKingsOnlyWhenAllowed) {
  for (const bool allowed : {false, true}) {
    for (const bool accepted : {false, true}) {
      auto g = testing::NewTestGame();
      testing::SetPosition(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"F8", BlackKing}, {"H8", BlackKing}}, 1);
      AdoptBoardPosition(*g);
      UseDepth(*g, 2);
      g->Settings.PlayMode = 0;
      g->Settings.AskDrawIfComputerDraws = allowed ? 1 : 0;
      g->HalfMoveCount = 50;  // long enough since the last offer
      g->StableCount = 2;     // the score has stood still
      AnsweringUi ui;
      ui.answer = accepted;
      const TurnReport turn = ComputerMove(*g, ui);
      ASSERT_TRUE(turn.moved);
      EXPECT_EQ(turn.drawOffered, allowed);
      EXPECT_EQ(ui.question, allowed ? "Question: How about a draw?" : "");
      const bool drawn = allowed && accepted;
      EXPECT_EQ(g->GameOver, drawn ? 1 : 0);
      EXPECT_EQ(g->GameResult, drawn ? "1/2-1/2" : "");
      if (allowed) {
        EXPECT_EQ(g->LastDrawOffer, g->HalfMoveCount);
      }
    }
  }
}

TEST(ComputerMove, LogsEachIterationAndSortsTheRootScores) {
  auto g = testing::NewTestGame();
  UseDepth(*g, 4);
  RecordingUi ui;
  const TurnReport turn = ComputerMove(*g, ui);
  ASSERT_TRUE(turn.moved);
  EXPECT_EQ(turn.iterationLog.rfind(std::string(15, ' ') + "D:", 0), 0u) << turn.iterationLog;
  EXPECT_NE(turn.iterationLog.find("  T: 00:00.0"), std::string::npos);
  int lines = 0;
  for (std::size_t at = 0; (at = turn.iterationLog.find("\r\n", at)) != std::string::npos; at += 2) ++lines;
  EXPECT_EQ(lines, 4);
  ASSERT_EQ(turn.rootScores.size(), 7u);
  for (std::size_t i = 1; i < turn.rootScores.size(); ++i)
    EXPECT_GE(turn.rootScores[i - 1].Score, turn.rootScores[i].Score);
}

TEST(TimeText, ClockAndWords) {
  EXPECT_EQ(TimeString(0), "00:00.00");
  EXPECT_EQ(TimeString(7), "00:00.07");
  EXPECT_EQ(TimeString(3 * 3600 + 25), "03:00.25");
  // Minutes are rounded: 59 minutes 59 seconds shows as the next hour.
  EXPECT_EQ(TimeString(3599), "01:00.59");
  EXPECT_EQ(TimeString(100 * 3600), "100:00.00");
  EXPECT_EQ(TimeWords("00:00.01"), "1 second");
  EXPECT_EQ(TimeWords("00:03.01"), "3 minutes and 1 second");
  EXPECT_EQ(TimeWords("00:01.12"), "1 minute and 12 seconds");
  EXPECT_EQ(TimeWords("02:00.07"), "2 hours, 0 minutes, and 7 seconds");
  EXPECT_EQ(TimeWords("01:05.00"), "1 hour, 5 minutes, and 0 seconds");
  EXPECT_EQ(TimeString(125, true), "2 minutes and 5 seconds");
}

TEST(Evaluate, SeesGoalsRepetitionsAndCounts) {
  auto g = testing::NewTestGame();
  UseDepth(*g, 2);
  // No black piece: White, to move or not, has won.
  testing::SetPosition(*g, {{"C3", WhiteMan}}, -1);
  EXPECT_EQ(Evaluate(*g, -32000, 32000, 1), 32000);
  EXPECT_EQ(g->RuleLossPending, 0);
  Evaluate(*g, -32000, 32000, -1);
  EXPECT_EQ(g->RuleLossPending, 1);
  // A white king on its crowning row wins under KingWin.
  RuleRecord r;
  r.KingWin = 1;
  testing::ApplyRules(*g, r);
  testing::SetPosition(*g, {{"B8", WhiteKing}, {"A1", BlackMan}, {"C1", BlackMan}}, -1);
  EXPECT_EQ(Evaluate(*g, -32000, 32000, 1), 32000);
  // A position met before scores 0.
  testing::ApplyRules(*g, RuleRecord{});
  testing::SetPosition(*g, {{"C3", WhiteMan}, {"F6", BlackMan}}, 1);
  g->HalfMoveCount = 3;
  g->Record.PositionHistory[0] = PositionKeyOf(g->Board);
  EXPECT_EQ(Evaluate(*g, -32000, 32000, 1), 0);
}

TEST(Evaluate, NoiseFollowsTheHandicap) {
  EXPECT_EQ(NoiseRangeFor(0), 0);
  EXPECT_EQ(NoiseRangeFor(1), 5);
  EXPECT_EQ(NoiseRangeFor(2), 70);
  EXPECT_EQ(NoiseRangeFor(9), 560);
}

TEST(SelectNextMove, TakesTheBestScoreFirstAndEqualsInOrder) {
  auto g = testing::NewTestGame();
  g->PlyBase[0] = 0;
  g->PlyBase[1] = 4;
  const int scores[] = {0, 250, 0, 250};
  for (int i = 0; i < 4; ++i) g->MoveStack[i].OrderScore = scores[i];
  EXPECT_EQ(SelectNextMove(*g), 1);
  EXPECT_EQ(SelectNextMove(*g), 3);
  EXPECT_EQ(SelectNextMove(*g), 0);
  EXPECT_EQ(SelectNextMove(*g), 2);
  EXPECT_EQ(SelectNextMove(*g), -1);
}

TEST(GameEnd, DrawRulesAndTheirTexts) {
  auto g = testing::NewTestGame();
  RecordingUi ui;
  // King against king.
  testing::SetPosition(*g, {{"A1", WhiteKing}, {"H8", BlackKing}}, 1);
  g->HalfMoveCount = 1;
  UpdateDrawReason(*g);
  EXPECT_EQ(g->DrawReason, 3);
  CheckGameEnd(*g, ui, 0);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_EQ(ui.box, "It's a draw! King versus King");
  EXPECT_EQ(g->GameResult, "1/2-1/2");

  // The third occurrence of a position.
  g = testing::NewTestGame();
  testing::SetPosition(*g, {{"A1", WhiteKing}, {"C1", WhiteMan}, {"H8", BlackKing}, {"F8", BlackMan}}, 1);
  for (int h = 1; h <= 3; ++h) {
    g->HalfMoveCount = h;
    UpdateDrawReason(*g);
  }
  EXPECT_EQ(g->DrawReason, 1);
  EXPECT_EQ(DrawText(1), "It's a draw! Triple Repetition");

  // Three kings against one under the fifteen-move rule.
  g = testing::NewTestGame();
  RuleRecord r;
  r.ThreeKings = 1;
  r.NumberKings = 15;
  testing::ApplyRules(*g, r);
  testing::SetPosition(*g, {{"A1", WhiteKing}, {"C1", WhiteKing}, {"E1", WhiteKing}, {"H8", BlackKing}}, 1);
  int drawnAt = 0;
  for (int h = 10; h <= 60 && drawnAt == 0; ++h) {
    g->HalfMoveCount = h;
    g->Board[h % 2 ? 21 : 32] = 0;  // the position changes each move
    g->Board[h % 2 ? 32 : 21] = WhiteKing;
    UpdateDrawReason(*g);
    if (g->DrawReason == 4) drawnAt = h;
  }
  EXPECT_EQ(drawnAt - g->ThreeKingsSince + 2, 31);

  // A side with no piece has lost; under NumberPieces 1 so has a side with one.
  g = testing::NewTestGame();
  testing::SetPosition(*g, {{"C3", WhiteMan}, {"D4", WhiteMan}, {"H8", BlackKing}}, -1);
  g->HalfMoveCount = 1;
  CheckGameEnd(*g, ui, 0);
  EXPECT_EQ(g->GameOver, 0);
  r = RuleRecord{};
  r.NumberPieces = 1;
  testing::ApplyRules(*g, r);
  CheckGameEnd(*g, ui, 0);
  EXPECT_EQ(g->GameOver, 1);
  EXPECT_EQ(ui.box, "White wins!");

  // Blocked with pieces on both sides: a loss, or a draw with NoLegalDraw.
  g = testing::NewTestGame();
  testing::SetPosition(*g, {{"A1", WhiteMan}, {"B2", BlackMan}, {"C3", BlackMan}}, 1);
  g->HalfMoveCount = 1;
  CheckGameEnd(*g, ui, 0);
  EXPECT_EQ(ui.box, "Black wins!");
  g = testing::NewTestGame();
  r = RuleRecord{};
  r.NoLegalDraw = 1;
  testing::ApplyRules(*g, r);
  testing::SetPosition(*g, {{"A1", WhiteMan}, {"B2", BlackMan}, {"C3", BlackMan}}, 1);
  g->HalfMoveCount = 1;
  CheckGameEnd(*g, ui, 0);
  EXPECT_EQ(ui.box, "It's a draw!");
}

TEST(SelfPlay, EveryShippedVariantPlaysToAResultOrTheCap) {
  const std::filesystem::path data = QUORVANIS_TEST_DATA;
  for (int useClassic : {1, 0}) {
    for (const std::string& name : FillVariantList(VariantFolder(data, useClassic))) {
      auto g = std::make_unique<Game>();
      g->DataFolder = data;
      g->Settings.UseClassic = useClassic;
      g->Random.SetFixedSeed(11);
      StartVariant(*g, name);
      UseDepth(*g, 2);
      RecordingUi ui;
      int turns = 0;
      ASSERT_NO_THROW({
        while (g->GameOver == 0 && turns < 200) {
          if (!ComputerMove(*g, ui).moved) break;
          ++turns;
        }
      }) << name;
      EXPECT_GT(turns, 0) << name;
    }
  }
}

}  // namespace qv

#include "interaction_fixture.h"

#include <chrono>
#include <thread>

#include "engine/hint.h"
#include "interaction/analysis_commands.h"
#include "interaction/movelist.h"
#include "interaction/plyvalue_form.h"

namespace qv {

namespace {

class AnalysisCommandsTest : public InteractionTest {
 protected:
  void Type(const char* text) {
    screen.Text2 = text;
    EnterTypedMove(session);
  }
  void Fast() {
    game->Settings.DepthMode = 1;
    game->Settings.DepthLimit = 4;
    game->Settings.StrengthHandicap = 0;
  }
};

}  // namespace

TEST_F(AnalysisCommandsTest, HintFirstOffersTheExpectedReplyThenSearches) {
  Fast();
  Type("b6-a5");  // the computer replies and expects an answer
  ASSERT_EQ(game->HalfMoveCount, 2);
  ASSERT_GT(game->StoredReplyFrom, 0);
  const std::string expected = "Hint: Try " + SquareNotation(game->StoredReplyFrom, 1, 0) + "-" +
                               SquareNotation(game->StoredReplyTo, 1, 0);
  const BoardCells board = game->Board;
  window.messages.clear();
  HintCommand(session);
  ASSERT_EQ(window.messages.size(), 1u);
  EXPECT_EQ(window.messages[0], expected);
  EXPECT_EQ(game->StoredReplyFrom, 0);
  EXPECT_EQ(screen.StatusText, HintStatusText);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(screen[Command::Hint].Enabled, 1);  // the commands are back as they were

  HintCommand(session);  // now a search
  ASSERT_EQ(window.messages.size(), 2u);
  EXPECT_EQ(window.messages[1].rfind("Hint: Try ", 0), 0u);
  const std::string move = window.messages[1].substr(10);
  EXPECT_NE(std::find(screen.List2.begin(), screen.List2.end(), move), screen.List2.end()) << move;
  EXPECT_EQ(game->Board, board);
  EXPECT_EQ(game->HalfMoveCount, 2);
}

TEST_F(AnalysisCommandsTest, AnalyzeFillsTheListAndKeepsTheGame) {
  Fast();
  Type("b6-a5");
  const BoardCells board = game->Board;
  const std::vector<std::string> gameRows = screen.List1;
  AnalyzeCommand(session);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(game->Board, board);
  EXPECT_EQ(screen.List1, gameRows);
  ASSERT_EQ(screen.List3.size(), screen.List2.size());
  EXPECT_EQ(screen[Command::List3].Enabled, 1);
  EXPECT_EQ(screen[Command::Analyze].Enabled, 1);
  EXPECT_EQ(screen[Command::Cancel].Enabled, 0);
  EXPECT_EQ(game->StoredReplyFrom, 0);
  // "b6a5 12": the source and target, a blank and the score, best first.
  const RootScore& best = screen.RootInfo[0];
  EXPECT_EQ(screen.List3[0], SquareNotation(best.From, 1, 0) + SquareNotation(best.To, 1, 0) + " " +
                                 std::to_string(best.Score));
  EXPECT_NE(screen.Label9.find("Main: "), std::string::npos);

  // The notation changes: the list follows.
  SetNotation(session, 1);
  FillAnalysisList(session);
  EXPECT_EQ(screen.List3[0].substr(0, screen.List3[0].find(' ')),
            SquareNotation(best.From, 1, 1) + SquareNotation(best.To, 1, 1));
}

TEST_F(AnalysisCommandsTest, AClickOnTheAnalysisReplacesTheLastMoveWithoutAReply) {
  Fast();
  SetPlayerPlayer(session);
  Type("b6-a5");
  // The analysis table of the position before it: the other moves of Black.
  screen.RootInfo = {RootScore{SquareNumber("D6", 0, 1), SquareNumber("C5", 0, 1), 20},
                     RootScore{SquareNumber("B6", 0, 1), SquareNumber("A5", 0, 1), 10}};
  FillAnalysisList(session);
  EXPECT_EQ(screen.List3[0], "d6c5 20");
  EnableCommand(session, Command::List3, 1);
  SetPlayerComputer(session);
  window.turns = 0;
  ClickAnalysisList(session, 0);
  EXPECT_EQ(window.turns, 0);  // no reply
  EXPECT_EQ(game->HalfMoveCount, 1);
  ASSERT_EQ(screen.List1.size(), 1u);
  EXPECT_EQ(screen.List1[0], "  1. d6-c5");
  EXPECT_EQ(screen.List3.size(), 2u);  // the table stays
  EXPECT_EQ(screen[Command::List3].Enabled, 1);
}

TEST_F(AnalysisCommandsTest, ThePlyValueFormSortsWithoutSearchingAgain) {
  game->Settings.PlyValueDepth = 3;
  PlyValueForm form;
  int changes = 0;
  PlyValueTableCommand(session, form, [&] { ++changes; });
  EXPECT_GE(changes, 2);
  EXPECT_EQ(form.status, "Done!");
  EXPECT_FALSE(form.searching);
  ASSERT_EQ(form.table.rows.size(), 7u);
  ASSERT_EQ(form.sortNames.size(), 5u);
  EXPECT_EQ(form.sortNames[0], "Best difference");
  EXPECT_EQ(form.text, PlyValueText(form.table, SortBestDifference));
  const PlyValueTable searched = form.table;
  ChangePlyValueSort(form, SortMostTime);
  EXPECT_EQ(form.text, PlyValueText(searched, SortMostTime));
  EXPECT_EQ(form.table.rows.size(), searched.rows.size());
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(screen[Command::Compute].Enabled, 1);
  EXPECT_EQ(game->HalfMoveCount, 0);
}

}  // namespace qv

namespace qv {

TEST_F(AnalysisCommandsTest, CancelEndsADeepTableWithTheRowsDoneAndEveryClickWaits) {
  window.threaded = true;
  game->Settings.PlyValueDepth = 20;
  PlyValueForm form;
  PlyValueTableCommand(session, form, {});
  ASSERT_TRUE(form.searching);
  EXPECT_EQ(screen.Busy, 1);
  // Nothing else runs while the table is searched; Cancel does.
  for (Command c : {Command::Analyze, Command::Hint, Command::Compute, Command::PlyValueTable, Command::NewGame})
    EXPECT_FALSE(CommandAvailable(screen, c));
  EXPECT_TRUE(CommandAvailable(screen, Command::Cancel));
  AnalyzeCommand(session);
  HintCommand(session);
  CancelPlyValueTable(session);
  while (window.Pump()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_FALSE(form.searching);
  EXPECT_EQ(form.status, "Done!");
  EXPECT_TRUE(form.table.cancelled);
  EXPECT_LT(form.table.rows.size(), 7u);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_TRUE(window.messages.empty());
  EXPECT_EQ(window.turns, 1);  // the analysis and the hint did not start
  EXPECT_TRUE(CommandAvailable(screen, Command::Analyze));
}

}  // namespace qv

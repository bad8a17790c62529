// The computer's turn thought on a copy of the game and applied to the game
// afterwards plays exactly as the turn thought and played in place.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "engine/driver.h"
#include "files/variantfile.h"
#include "interaction_fixture.h"

namespace qv {

namespace {

// The boxes and questions of a turn, so that the two ways can be compared.
struct WordsUi : DriverUi {
  std::string said;
  void ShowMessage(const std::string& caption, const std::string& text) override {
    said += caption + ":" + text + "\n";
  }
  bool AskYesNo(const std::string& caption, const std::string& text) override {
    said += caption + "?" + text + "\n";
    return false;
  }
};

std::unique_ptr<Game> SelfPlayGame(const std::string& variant, int depth, int handicap) {
  auto g = std::make_unique<Game>();
  g->DataFolder = QUORVANIS_TEST_DATA;
  g->Random.SetFixedSeed(5);
  StartVariant(*g, variant);
  g->Settings.DepthMode = 1;
  g->Settings.DepthLimit = depth;
  g->Settings.StrengthHandicap = handicap;
  g->Settings.AskDrawIfComputerDraws = 1;
  g->Settings.PlayMode = 0;
  return g;
}

void ExpectSameTurn(const TurnReport& inPlace, const TurnReport& onCopy, int turn) {
  EXPECT_EQ(inPlace.moved, onCopy.moved) << "turn " << turn;
  EXPECT_EQ(inPlace.move, onCopy.move) << "turn " << turn;
  EXPECT_EQ(inPlace.score, onCopy.score) << "turn " << turn;
  EXPECT_EQ(inPlace.depth, onCopy.depth) << "turn " << turn;
  EXPECT_EQ(inPlace.mainLine, onCopy.mainLine) << "turn " << turn;
  EXPECT_EQ(inPlace.drawOffered, onCopy.drawOffered) << "turn " << turn;
  ASSERT_EQ(inPlace.rootScores.size(), onCopy.rootScores.size()) << "turn " << turn;
  for (std::size_t i = 0; i < inPlace.rootScores.size(); ++i) {
    EXPECT_EQ(inPlace.rootScores[i].From, onCopy.rootScores[i].From) << "turn " << turn;
    EXPECT_EQ(inPlace.rootScores[i].To, onCopy.rootScores[i].To) << "turn " << turn;
    EXPECT_EQ(inPlace.rootScores[i].Score, onCopy.rootScores[i].Score) << "turn " << turn;
  }
}

// What the rules carry from turn to turn, and the position.
void ExpectSameGame(const Game& a, const Game& b, int turn) {
  EXPECT_TRUE(std::equal(a.Board.begin(), a.Board.end(), b.Board.begin())) << "turn " << turn;
  EXPECT_EQ(a.SideToMove, b.SideToMove) << "turn " << turn;
  EXPECT_EQ(a.HalfMoveCount, b.HalfMoveCount) << "turn " << turn;
  EXPECT_EQ(a.GameOver, b.GameOver) << "turn " << turn;
  EXPECT_EQ(a.GameResult, b.GameResult) << "turn " << turn;
  EXPECT_EQ(a.LazyMargin, b.LazyMargin) << "turn " << turn;
  EXPECT_EQ(a.NoiseRange, b.NoiseRange) << "turn " << turn;
  EXPECT_EQ(a.StableCount, b.StableCount) << "turn " << turn;
  EXPECT_EQ(a.LastDrawOffer, b.LastDrawOffer) << "turn " << turn;
  EXPECT_EQ(a.WinAnnounced, b.WinAnnounced) << "turn " << turn;
  EXPECT_EQ(a.LastSearchScore, b.LastSearchScore) << "turn " << turn;
  EXPECT_EQ(a.ScoreHistory[a.HalfMoveCount], b.ScoreHistory[b.HalfMoveCount]) << "turn " << turn;
  EXPECT_EQ(a.DrawReason, b.DrawReason) << "turn " << turn;
  EXPECT_EQ(a.MoveTextTable[(a.HalfMoveCount + 1) / 2], b.MoveTextTable[(b.HalfMoveCount + 1) / 2]) << "turn " << turn;
  Game ca = a, cb = b;  // the next random numbers
  EXPECT_EQ(ca.Rnd(), cb.Rnd()) << "turn " << turn;
}

}  // namespace

// Self-play of four fast rule sets and two general ones, without noise and
// with it: every turn, its words and the game after it are the same.
TEST(TurnOnCopy, PlaysAsTheTurnInPlaceMoveForMove) {
  for (const char* variant : {"American Checkers", "Italian Checkers", "Russian Checkers", "Brazilian Checkers",
                              "Turkish Checkers", "Anti Checkers"}) {
    for (int handicap : {0, 3}) {
      SCOPED_TRACE(std::string(variant) + " handicap " + std::to_string(handicap));
      auto inPlace = SelfPlayGame(variant, 3, handicap);
      auto played = SelfPlayGame(variant, 3, handicap);
      WordsUi inPlaceUi, thinkUi, playUi;
      for (int turn = 0; turn < 90 && inPlace->GameOver == 0; ++turn) {
        const TurnReport a = ComputerMove(*inPlace, inPlaceUi);
        auto copy = std::make_unique<Game>(*played);
        const TurnDecision decision = ThinkComputerMove(*copy, thinkUi);
        copy.reset();
        const TurnReport b = PlayComputerMove(*played, decision, playUi);
        ExpectSameTurn(a, b, turn);
        ExpectSameGame(*inPlace, *played, turn);
        if (::testing::Test::HasFailure()) return;
        if (!a.moved) break;
      }
      // Boxes and questions come as the move is played, never while thinking.
      EXPECT_EQ(inPlaceUi.said, playUi.said);
      EXPECT_EQ(thinkUi.said, "");
    }
  }
}

class WindowTurnTest : public InteractionTest {};

// Computer-Computer play through the window layer, each move thought on the
// worker's copy, is the same game as the computer playing itself in place.
TEST_F(WindowTurnTest, ComputerComputerPlaysTheGameOfTheTurnInPlace) {
  game->Settings.DepthMode = 1;
  game->Settings.DepthLimit = 4;
  game->Settings.StrengthHandicap = 0;
  screen.ComputerPause = 0;
  auto inPlace = std::make_unique<Game>(*game);
  inPlace->Settings.PlayMode = 2;
  RunCommand(session, Command::ComputerComputer);
  EXPECT_EQ(game->GameOver, 1);
  WordsUi ui;
  for (int turn = 0; inPlace->GameOver == 0 && turn < 400; ++turn) ComputerMove(*inPlace, ui);
  EXPECT_EQ(game->HalfMoveCount, inPlace->HalfMoveCount);
  EXPECT_EQ(game->GameResult, inPlace->GameResult);
  for (int n = 1; n <= inPlace->HalfMoveCount; ++n) {
    EXPECT_EQ(game->Record.GameMoves[n].FromSquare, inPlace->Record.GameMoves[n].FromSquare) << n;
    EXPECT_EQ(game->Record.GameMoves[n].ToSquare, inPlace->Record.GameMoves[n].ToSquare) << n;
    EXPECT_EQ(game->ScoreHistory[n], inPlace->ScoreHistory[n]) << n;
  }
  EXPECT_EQ(static_cast<int>(screen.List1.size()), game->HalfMoveCount);
  EXPECT_EQ(screen.Busy, 0);
  EXPECT_EQ(window.turns, game->HalfMoveCount);
}

}  // namespace qv

// The rating: its scrambled file, the arithmetic of one update, which games
// count, and the rating moving (or not) through real games in the window's logic.
#include <gtest/gtest.h>

#include <fstream>

#include "files/rating.h"
#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"
#include "interaction/user_commands.h"
#include "interaction_fixture.h"
#include "temp_folder.h"

namespace qv {

namespace {

// A game of `pairs` full moves whose rows name the two movers and the
// computer's level; the position is the end of it.
Game PlayedGame(const std::string& firstMover, const std::string& secondMover, int pairs, int level = 9) {
  Game g;
  for (int p = 1; p <= pairs; ++p) {
    auto& row = g.MoveTextTable[p];
    row[FirstHalfText] = "c3d4 c3-d4";
    row[SecondHalfText] = "f6e5 f6-e5";
    row[FirstMoverCode] = firstMover;
    row[SecondMoverCode] = secondMover;
    row[MoveLevel] = std::to_string(level);
  }
  g.HalfMoveCount = g.GameLength = 2 * pairs;
  return g;
}

}  // namespace

TEST(RatingFile, DigitsScrambleByTheKeyAndBack) {
  EXPECT_EQ(ScrambleRating("0123456789").value(), "QZ4N8WTRLM");
  EXPECT_EQ(ScrambleRating("1200").value(), "Z4QQ");
  EXPECT_FALSE(ScrambleRating("-5").has_value());
  EXPECT_EQ(UnscrambleRating("Z4QQ"), "1200");
  // A character outside the key stops the number there.
  EXPECT_EQ(UnscrambleRating("Z4xQ"), "12/0");
  for (int rating : {0, 7, 1200, 1999, 2401, 32767})
    EXPECT_EQ(UnscrambleRating(ScrambleRating(std::to_string(rating)).value()), std::to_string(rating));
}

TEST(RatingFile, IsWrittenScrambledAndReadBackAndAMissingOneGivesTheFirstRating) {
  testing::TempFolder folder;
  const auto file = folder.path() / RatingFileName;
  EXPECT_EQ(ReadRating(file), FirstRating);
  ASSERT_TRUE(WriteRating(file, 1873));
  EXPECT_EQ(testing::ReadFileText(file), "ZLRN\r\n");
  EXPECT_EQ(ReadRating(file), 1873);
  // A negative rating cannot be written: the old file stays.
  EXPECT_FALSE(WriteRating(file, -3));
  EXPECT_EQ(ReadRating(file), 1873);
  // Only the first field counts; the number stops at a foreign character.
  std::ofstream(file) << " ZLRN , whatever\n";
  EXPECT_EQ(ReadRating(file), 1873);
  std::ofstream(file) << "ZLxN\n";
  EXPECT_EQ(ReadRating(file), 18);
  // Nothing readable: the first rating, as for a first run.
  std::ofstream(file) << "hello\n";
  EXPECT_EQ(ReadRating(file), FirstRating);
  std::ofstream(file, std::ios::trunc).flush();
  EXPECT_EQ(ReadRating(file), FirstRating);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);  // no temporary left
}

TEST(RatingUpdate, KFallsFromThirtyToTenBetween2000And2400) {
  EXPECT_EQ(RatingFactor(1200), 30);
  EXPECT_EQ(RatingFactor(1999), 30);
  EXPECT_EQ(RatingFactor(2000), 30);
  EXPECT_EQ(RatingFactor(2030), 28);  // 28.5, half to even
  EXPECT_EQ(RatingFactor(2200), 20);
  EXPECT_EQ(RatingFactor(2400), 10);
  EXPECT_EQ(RatingFactor(2401), 10);
  EXPECT_NEAR(ExpectedScore(1600, 1600), 0.5, 1e-12);
  EXPECT_NEAR(ExpectedScore(2000, 1600), 10.0 / 11.0, 1e-12);
}

TEST(RatingUpdate, MovesByResultLevelAndBand) {
  // The computer played at level 9 throughout: its rating is 1600.
  struct Case {
    int before;
    double score;
    int after;
  };
  for (const Case& c : {Case{1999, 0.0, 1972}, Case{2000, 0.0, 1973}, Case{2000, 1.0, 2003}, Case{2400, 0.0, 2390},
                        Case{2401, 0.0, 2391}, Case{2401, 0.5, 2396}, Case{1200, 1.0, 1227}, Case{1200, 0.0, 1197},
                        Case{1600, 0.5, 1600}}) {
    Game g = PlayedGame("2", "1", 3);
    g.Rating.PlayerRating = c.before;
    UpdateRating(g, c.score);
    EXPECT_EQ(g.Rating.RatingValid, 1);
    EXPECT_EQ(g.Rating.ComputerRating, 1600);
    EXPECT_EQ(g.Rating.PlayerRating, c.after) << c.before << " scoring " << c.score;
  }
  Game g = PlayedGame("1", "2", 2, 4);
  g.Rating.PlayerRating = 2000;
  UpdateRating(g, 0.0);
  EXPECT_EQ(g.Rating.ComputerRating, 1100);
  EXPECT_EQ(g.Rating.RatingMessage,
            "\r\n\r\nYour previous rating was 2000\r\nThe computers' rating in this game was 1100"
            "\r\n\r\nYour new rating is 1970");
  EXPECT_EQ(RatingBoxText(g.Rating.PlayerRating), "Your currrent rating is 1970");
}

TEST(RatingUpdate, AWinIsCommentedByHowWellTheComputerStood) {
  // The player's third half move won: the computer's second is looked at.
  Game g = PlayedGame("2", "1", 2);
  g.HalfMoveCount = 3;
  g.Record.LegalCountHistory[2] = 5;
  g.ScoreHistory[2] = 150;
  UpdateRating(g, 1.0);
  EXPECT_EQ(g.Rating.RatingMessage.substr(0, 14), "  Great game\r\n");
  // Once two men up with a choice of moves, and still beaten.
  g.ScoreHistory[2] = 200;
  g.Rating.PlayerRating = 1200;
  UpdateRating(g, 1.0);
  EXPECT_EQ(g.Rating.RatingMessage.substr(0, 13), "  Good game\r\n");
  // A forced move does not count.
  g.Record.LegalCountHistory[2] = 1;
  EXPECT_EQ(GameComment(g), "  Great game");
}

TEST(RatingUpdate, OnlyAPersonAgainstTheComputerThroughoutIsRated) {
  const auto rated = [](Game g) {
    UpdateRating(g, 1.0);
    return g.Rating.PlayerRating != FirstRating;
  };
  EXPECT_TRUE(rated(PlayedGame("2", "1", 3)));
  EXPECT_FALSE(rated(PlayedGame("2", "2", 3)));  // two players
  EXPECT_FALSE(rated(PlayedGame("3", "3", 3)));  // a loaded game
  EXPECT_FALSE(rated(PlayedGame("1", "1", 3)));  // the computer against itself
  // Loaded opening moves before a game against the computer are passed over.
  Game opened = PlayedGame("2", "1", 3);
  opened.MoveTextTable[1][FirstMoverCode] = opened.MoveTextTable[1][SecondMoverCode] = "3";
  EXPECT_TRUE(rated(opened));
  // Taking over the computer's side during the game.
  Game takenOver = PlayedGame("2", "1", 3);
  takenOver.MoveTextTable[3][SecondMoverCode] = "2";
  UpdateRating(takenOver, 1.0);
  EXPECT_EQ(takenOver.Rating.RatingValid, 0);
  EXPECT_EQ(takenOver.Rating.RatingMessage, "");
  // Without UseRating nothing happens at all.
  Game unrated = PlayedGame("2", "1", 3);
  unrated.Settings.UseRating = 0;
  EXPECT_FALSE(rated(unrated));
}

namespace {

class RatedGameTest : public InteractionTest {
 protected:
  // Clears the board and puts the pieces named, as the set-up popup does.
  void SetUpPosition(std::initializer_list<std::pair<const char*, PopupItem>> pieces) {
    window.popupAnswer = PopupItem::ClearBoard;
    SquarePress(session, Square("e5"), MouseButton::Right);
    SquareRelease(session, Square("e5"), MouseButton::Right, 10, 10);
    for (auto [square, item] : pieces) {
      SquareMove(session, Square(square), 5, 5);
      window.popupAnswer = item;
      SquarePress(session, Square(square), MouseButton::Right);
      SquareRelease(session, Square(square), MouseButton::Right, 5, 5);
    }
  }
  void Type(const char* move) {
    screen.Text2 = move;
    EnterTypedMove(session);
  }
};

}  // namespace

TEST_F(RatedGameTest, BeatingTheComputerRaisesTheRatingAndTheBoxSaysSo) {
  SetUpPosition({{"g5", PopupItem::BlackChecker}, {"h2", PopupItem::WhiteChecker}});
  Type("g5-h4");  // the computer can only answer h2-g3
  ASSERT_EQ(game->HalfMoveCount, 2);
  Type("h4xf2");
  ASSERT_EQ(game->GameOver, 1);
  EXPECT_EQ(game->Rating.PlayerRating, 1227);
  ASSERT_FALSE(window.messages.empty());
  EXPECT_EQ(window.messages.back(),
            "Congratulations: Black wins!  Great game\r\n\r\nYour previous rating was 1200\r\n"
            "The computers' rating in this game was 1600\r\n\r\nYour new rating is 1227");
  RunCommand(session, Command::Rating);
  EXPECT_EQ(window.messages.back(), "Rating: Your currrent rating is 1227");
}

TEST_F(RatedGameTest, LosingToTheComputerOrResigningLowersIt) {
  SetUpPosition({{"c5", PopupItem::BlackChecker}, {"e3", PopupItem::WhiteChecker}});
  Type("c5-d4");  // taken by e3xc5: the computer wins on its own move
  ASSERT_EQ(game->GameOver, 1);
  EXPECT_EQ(game->Rating.PlayerRating, 1197);
  EXPECT_NE(window.messages.back().find("Your new rating is 1197"), std::string::npos) << window.messages.back();

  NewGameCommand(session, 0);
  game->Settings.DepthMode = 1;  // a quick reply
  Type("b6-a5");
  ResignGame(session);
  EXPECT_EQ(window.messages.back().rfind("Congratulations: OK... Computer wins!\r\n\r\nYour previous rating was 1197", 0), 0u)
      << window.messages.back();
  EXPECT_LT(game->Rating.PlayerRating, 1197);
}

TEST_F(RatedGameTest, AGameBetweenTwoPlayersLeavesTheRatingAlone) {
  SetPlayerPlayer(session);
  SetUpPosition({{"g5", PopupItem::BlackChecker}, {"h2", PopupItem::WhiteChecker}});
  Type("g5-h4");
  Type("h2-g3");
  Type("h4xf2");
  ASSERT_EQ(game->GameOver, 1);
  EXPECT_EQ(game->Rating.PlayerRating, FirstRating);
  EXPECT_EQ(window.messages.back(), "Congratulations: Black wins!");
}

}  // namespace qv

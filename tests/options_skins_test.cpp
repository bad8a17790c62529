// The Options dialog's logic (the walk of OK and Apply, its clamps and
// exclusive choices, Reset) and the skin reader on good, partial and broken
// skins.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "interaction/optionsform.h"
#include "interaction/skins.h"
#include "interaction_fixture.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

// Opens the form on the game's settings, lets `edit` change it and stores it.
Options StoredAfter(Game& g, const std::function<void(OptionsForm&)>& edit) {
  OptionsForm form;
  FillOptionsForm(form, g, 1500);
  edit(form);
  StoreOptionsForm(form, g.Settings);
  return g.Settings;
}

}  // namespace

TEST(OptionsForm, NumberBoxesAreClampedToTheirRanges) {
  Game g;
  struct Case {
    std::string plys, balance, table;
    int wantPlys, wantBalance, wantTable;
  };
  for (const Case& c : {Case{"0", "1000", "25", 1, 750, 20}, Case{"abc", "0", "0", 1, 1, 1},
                        Case{"7", "149.5", "20", 6, 150, 20}, Case{"4 plies", "-3", "3", 4, 1, 3}}) {
    const Options o = StoredAfter(g, [&](OptionsForm& f) {
      f.Text2 = c.plys;
      f.Text3 = c.balance;
      f.Text4 = c.table;
    });
    EXPECT_EQ(o.Plys, c.wantPlys) << c.plys;
    EXPECT_EQ(o.Balance, c.wantBalance) << c.balance;
    EXPECT_EQ(o.PlyValueDepth, c.wantTable) << c.table;
  }
}

TEST(OptionsForm, OneLevelChoiceAlwaysStaysOn) {
  Game g;
  OptionsForm f;
  FillOptionsForm(f, g, 1200);
  ASSERT_EQ(f.Check2, 1);  // a first start thinks for a fixed time
  EXPECT_FALSE(DepthSliderEnabled(f));
  ClickLevelChoice(f, 1);
  EXPECT_EQ(f.Check1, 1);
  EXPECT_EQ(f.Check2, 0);
  EXPECT_TRUE(DepthSliderEnabled(f));
  EXPECT_FALSE(TimeSliderEnabled(f));
  ClickLevelChoice(f, 1);  // clearing the box that is on turns it on again
  EXPECT_EQ(f.Check1, 1);
  EXPECT_EQ(f.Check2, 0);
  f.Slider2 = 10;
  f.Slider4 = 12;
  StoreOptionsForm(f, g.Settings);
  EXPECT_EQ(g.Settings.DepthMode, 1);
  EXPECT_EQ(g.Settings.DepthLimit, 12);
  EXPECT_EQ(g.Settings.StrengthHandicap, 0);  // Hard
}

TEST(OptionsForm, FiftyMoveButtonsAndCaptureCharacter) {
  Game g;
  EXPECT_EQ(StoredAfter(g, [](OptionsForm& f) { f.FiftyMoveKind = 0; }).FiftyMoveKind, 0);
  EXPECT_EQ(StoredAfter(g, [](OptionsForm& f) { f.FiftyMoveKind = 4; }).FiftyMoveKind, 4);
  // No button chosen: the usual fifty moves.
  EXPECT_EQ(StoredAfter(g, [](OptionsForm& f) { f.FiftyMoveKind = -1; }).FiftyMoveKind, 1);
  EXPECT_EQ(StoredAfter(g, [](OptionsForm& f) { f.CaptureCharColon = 1; }).CaptureCharColon, 1);
}

TEST(OptionsForm, BookBoxesFollowTheirGoverningBoxes) {
  OptionsForm f;
  f.Check9 = 1;
  f.Check14 = 1;
  EXPECT_TRUE(BookBoxesEnabled(f));
  EXPECT_FALSE(RandomBookEnabled(f));  // "Choose opening" rules out "Random"
  f.Check14 = 0;
  EXPECT_TRUE(RandomBookEnabled(f));
  f.Check9 = 0;
  EXPECT_FALSE(BookBoxesEnabled(f));
  EXPECT_FALSE(RandomBookEnabled(f));
}

TEST(OptionsForm, ResetTakesEffectEvenWhenTheDialogIsCancelled) {
  Game g;
  int rating = 1873;
  OptionsForm f;
  FillOptionsForm(f, g, rating);
  EXPECT_EQ(RatingCaption(f.PlayerRating), "Use Rating (1873)");
  f.Text1 = "Someone Else";
  ResetRating(f, rating);
  // Cancel: nothing is stored, but the rating has gone back already.
  EXPECT_EQ(rating, 1200);
  EXPECT_EQ(RatingCaption(f.PlayerRating), "Use Rating (1200)");
  EXPECT_EQ(g.Settings.PlayerName, "Player");
}

class OptionsApplied : public InteractionTest {};

TEST_F(OptionsApplied, LevelLineCaptureCharacterAndNamesFollowTheSettings) {
  game->Settings.PlayerName = "Ada";
  game->Settings.DepthMode = 1;
  game->Settings.DepthLimit = 8;
  game->Settings.StrengthHandicap = 3;
  game->Settings.CaptureCharColon = 1;
  game->FirstPlayerName = "Player";
  game->SecondPlayerName = "Computer";
  ApplyOptions(session, game->Settings.SkinName);
  EXPECT_EQ(screen.StrengthText, "Strength: 7   Depth: 8 ply");
  EXPECT_EQ(game->CaptureChar, ":");
  EXPECT_EQ(game->FirstPlayerName, "Ada");
  EXPECT_EQ(game->SecondPlayerName, "Computer");
}

// A window layer that loads a picture when the file exists and is not empty.
struct PictureWindow : RecordingWindow {
  std::vector<std::string> loaded;
  bool LoadSkinPicture(ImageRole, const fs::path& file) override {
    std::error_code ec;
    if (!fs::is_regular_file(file, ec) || fs::file_size(file, ec) == 0) return false;
    loaded.push_back(file.filename().string());
    return true;
  }
};

class SkinReading : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = fs::temp_directory_path() / ("quorvanis-skins-" + std::to_string(::getpid()));
    fs::create_directories(folder / "skins");
    game->DataFolder = folder;
    window.session = &session;
  }
  void TearDown() override { fs::remove_all(folder); }

  void WriteSkin(const std::string& name, const std::string& text, const std::string& pictureFolder) {
    std::ofstream(folder / "skins" / (name + ".ini")) << text;
    fs::create_directories(folder / "skins" / pictureFolder);
    for (const char* picture : {"a.png", "b.png"}) std::ofstream(folder / "skins" / pictureFolder / picture) << "picture";
  }

  fs::path folder;
  std::unique_ptr<Game> game = std::make_unique<Game>();
  Screen screen;
  PictureWindow window;
  Session session{*game, screen, window};
};

TEST_F(SkinReading, ClassicNamesAreExactAndComeFirstInTheList) {
  WriteSkin("Marble", "Marble\nEND\n", "Marble");
  const std::vector<std::string> names = FillSkinList(folder);
  ASSERT_EQ(names.size(), 4u);
  EXPECT_EQ(names[0], "Classic Small");
  EXPECT_EQ(names[1], "Classic Medium");
  EXPECT_EQ(names[2], "Classic Big");
  EXPECT_EQ(names[3], "Marble");
  SelectSkin(session, "Classic Big");
  EXPECT_EQ(game->Settings.SkinKind, 3);
  // A name with a blank at its end is not a classic set but a file, here a missing one.
  SelectSkin(session, "Classic Small ");
  EXPECT_EQ(game->Settings.SkinKind, 4);
  EXPECT_EQ(screen.SkinBoardSize, -1);
  EXPECT_TRUE(window.loaded.empty());
}

TEST_F(SkinReading, AGoodSkinSetsItsSizeColoursAndPicturesWithTheFolderCaseFolded) {
  WriteSkin("Marble", "Marble skin\r\nBoardCustomSize=1\r\ndark_highlight=255\r\nlight_highlight=65280\r\n"
                      "dark_square=a.png\r\nlight_square=B.PNG\r\nEND\r\nBoardCustomSize=0\r\n",
            "marble");
  SelectSkin(session, "Marble");
  EXPECT_EQ(game->Settings.SkinKind, 4);
  EXPECT_EQ(game->Settings.SkinName, "Marble");
  EXPECT_EQ(screen.SkinBoardSize, 1);  // what follows END is not read
  EXPECT_EQ(screen.HighlightDark, 255);
  EXPECT_EQ(screen.HighlightLight, 65280);
  EXPECT_EQ(window.loaded, (std::vector<std::string>{"a.png", "b.png"}));
}

TEST_F(SkinReading, APartialSkinKeepsWhatItDoesNotSay) {
  screen.HighlightDark = 1234;
  WriteSkin("Plain", "Plain\nlight_highlight=77\nEND\n", "Plain");
  SelectSkin(session, "Plain");
  EXPECT_EQ(screen.SkinBoardSize, -1);
  EXPECT_EQ(screen.HighlightDark, 1234);
  EXPECT_EQ(screen.HighlightLight, 77);
}

TEST_F(SkinReading, AFailureStopsTheReadingSilentlyAndKeepsWhatLoaded) {
  WriteSkin("Broken",
            "Broken\ndark_square=a.png\nlight_square=missing.png\nBoardCustomSize=0\ndark_highlight=99999999999\nEND\n",
            "Broken");
  SelectSkin(session, "Broken");
  EXPECT_EQ(game->Settings.SkinKind, 4);
  EXPECT_EQ(window.loaded, (std::vector<std::string>{"a.png"}));
  EXPECT_EQ(screen.SkinBoardSize, -1);  // never reached
  EXPECT_TRUE(window.messages.empty());

  // A number too large for its field ends the reading the same way.
  WriteSkin("Huge", "Huge\nBoardCustomSize=2\ndark_highlight=99999999999\nBoardCustomSize=0\nEND\n", "Huge");
  SelectSkin(session, "Huge");
  EXPECT_EQ(screen.SkinBoardSize, 2);
}

TEST(ShippedSkins, EverySkinNamesItsSizeAndAllFourteenPictures) {
  const fs::path data = QUORVANIS_TEST_DATA;
  const std::vector<std::string> names = FillSkinList(data);
  ASSERT_GE(names.size(), 5u) << "at least two skins beside the classic sets";
  for (std::size_t i = 3; i < names.size(); ++i) {
    Game g;
    g.DataFolder = data;
    Screen screen;
    PictureWindow window;
    Session s{g, screen, window};
    SelectSkin(s, names[i]);
    EXPECT_NE(screen.SkinBoardSize, -1) << names[i];
    EXPECT_EQ(window.loaded.size(), static_cast<std::size_t>(ImageRoleCount)) << names[i];
  }
}

}  // namespace qv

#include "interaction/optionsform.h"

#include <algorithm>

#include "core/text.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/movelist.h"
#include "interaction/skins.h"

namespace qv {

namespace {

constexpr int StrongestSlider = 10;
constexpr int ResetRatingValue = 1200;

// A number box as the dialog stores it: Val of its text, held within its range.
int ClampedNumber(const std::string& text, int low, int high) { return std::clamp(ValInt(text), low, high); }

// The player's name replaces every name that is not the computer's.
void RenamePlayers(Game& g) {
  if (g.FirstPlayerName != "Computer") g.FirstPlayerName = g.Settings.PlayerName;
  if (g.SecondPlayerName != "Computer") g.SecondPlayerName = g.Settings.PlayerName;
}

}  // namespace

std::string RatingCaption(int rating) { return "Use Rating (" + std::to_string(rating) + ")"; }

bool DepthSliderEnabled(const OptionsForm& f) { return f.Check1 == 1; }
bool TimeSliderEnabled(const OptionsForm& f) { return f.Check2 == 1; }
bool ExtendedBoxesEnabled(const OptionsForm& f) { return f.Check7 == 1; }
bool FiftyMoveEnabled(const OptionsForm& f) { return f.Check4 == 1; }
bool BookBoxesEnabled(const OptionsForm& f) { return f.Check9 == 1; }
bool RandomBookEnabled(const OptionsForm& f) { return BookBoxesEnabled(f) && f.Check14 != 1; }

void FillOptionsForm(OptionsForm& f, const Game& g, int playerRating) {
  const Options& o = g.Settings;
  f.Slider2 = std::clamp(StrongestSlider - o.StrengthHandicap, 1, StrongestSlider);
  f.Slider4 = std::clamp(o.DepthLimit, 1, 20);
  f.Slider1 = std::clamp(o.TimeLimit, 1, 180);
  f.Check1 = o.DepthMode == 1 ? 1 : 0;
  f.Check2 = 1 - f.Check1;
  f.Check7 = o.ExtendedSearch;
  f.Text2 = std::to_string(o.Plys);
  f.Text3 = std::to_string(o.Balance);
  f.Check13 = o.BruteForce;
  f.Text4 = std::to_string(o.PlyValueDepth);
  f.Check4 = o.ChessDrawRules;
  f.FiftyMoveKind = o.FiftyMoveKind;
  f.Check10 = o.KingVersusKing;
  f.Check8 = o.AskDrawIfComputerDraws;
  f.Check9 = o.OpeningBook;
  f.Check12 = o.AmericanBookForOthers;
  f.Check14 = o.ChooseOpening;
  f.Check15 = o.BookRandom;
  f.Check19 = o.TouchMove;
  f.Check11 = o.PdnAlgebraic;
  f.Check18 = o.UseSound;
  f.Check17 = o.AutoSave;
  f.Check16 = o.UseRating;
  f.PlayerRating = playerRating;
  f.Check6 = o.ConfirmExit;
  f.Text1 = o.PlayerName;
  f.Combo1List = FillSkinList(g.DataFolder);
  f.Combo1 = o.SkinName;
  f.Check3 = o.ShowAvailableMoves;
  f.Check5 = o.CapitalNotation;
  f.CaptureCharColon = o.CaptureCharColon;
}

void ClickLevelChoice(OptionsForm& f, int which) {
  // A click on the box that is on turns it on again: one choice always stays.
  f.Check1 = which == 1 ? 1 : 0;
  f.Check2 = 1 - f.Check1;
}

void ResetRating(OptionsForm& f, int& playerRating) {
  playerRating = ResetRatingValue;
  f.PlayerRating = ResetRatingValue;
}

void StoreOptionsForm(const OptionsForm& f, Options& o) {
  o.StrengthHandicap = StrongestSlider - f.Slider2;
  o.DepthLimit = f.Slider4;
  o.ShowAvailableMoves = f.Check3;
  o.ChessDrawRules = f.Check4;
  o.TimeLimit = f.Slider1;
  o.PlayerName = f.Text1;
  o.CapitalNotation = f.Check5;
  o.ConfirmExit = f.Check6;
  o.ExtendedSearch = f.Check7;
  o.AutoSave = f.Check17;
  o.UseSound = f.Check18;
  o.TouchMove = f.Check19;
  o.PdnAlgebraic = f.Check11;
  o.AskDrawIfComputerDraws = f.Check8;
  o.OpeningBook = f.Check9;
  o.AmericanBookForOthers = f.Check12;
  o.BruteForce = f.Check13;
  o.ChooseOpening = f.Check14;
  o.BookRandom = f.Check15;
  o.UseRating = f.Check16;
  o.KingVersusKing = f.Check10;
  o.DepthMode = f.Check1 == 1 ? 1 : 0;
  // With none of the five buttons chosen the fifty-move rule keeps its usual 50 moves.
  const bool chosen =
      std::find(std::begin(FiftyMoveChoices), std::end(FiftyMoveChoices), f.FiftyMoveKind) != std::end(FiftyMoveChoices);
  o.FiftyMoveKind = chosen ? f.FiftyMoveKind : 1;
  o.CaptureCharColon = f.CaptureCharColon;
  o.Plys = ClampedNumber(f.Text2, 1, 6);
  o.Balance = ClampedNumber(f.Text3, 1, 750);
  o.PlyValueDepth = ClampedNumber(f.Text4, 1, 20);
}

void ApplyOptions(Session& s, const std::string& oldSkinName) {
  Game& g = s.game;
  if (g.Settings.SkinName != oldSkinName) SelectSkin(s, g.Settings.SkinName);
  s.screen.StrengthText = StrengthCaption(g.Settings);
  g.CaptureChar = g.Settings.CaptureCharColon == 1 ? ":" : "x";
  RenamePlayers(g);
  CheckCommand(s, Command::UseSound, g.Settings.UseSound == 1);
  RefreshMoveChoices(s);
  RefreshBoard(s, 0);
  s.window.Changed(Part::All);
}

void OpenOptions(Session& s) {
  const std::string oldSkinName = s.game.Settings.SkinName;
  s.window.ShowOptionsDialog();
  // Even after Cancel: a skin chosen in the list was stored at once.
  ApplyOptions(s, oldSkinName);
}

}  // namespace qv

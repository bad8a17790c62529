#pragma once
// The Options dialog without its window: the values of its controls, the
// rules that enable and disable them, and the walk of OK and Apply that
// stores them into the settings. A window layer shows an OptionsForm and
// calls these functions on each click.
#include <string>
#include <vector>

#include "core/options.h"
#include "interaction/session.h"

namespace qv {

// The five choices of the fifty-move rule as FiftyMoveKind numbers, in the
// order the dialog shows them (Option2 .. Option6): 16, 20, 32, 40, 50 moves.
inline constexpr int FiftyMoveChoices[5] = {2, 3, 0, 4, 1};
// The number of moves each choice stands for, in the same order.
inline constexpr int FiftyMoveCounts[5] = {16, 20, 32, 40, 50};

struct OptionsForm {
  // Level / Strength
  int Slider2 = 9;  // strength 1 (Easy) to 10 (Hard): 10 - StrengthHandicap
  int Slider4 = 2;  // depth 1 to 20 plies
  int Slider1 = 2;  // time 1 to 180 seconds
  int Check1 = 0;   // fixed depth
  int Check2 = 1;   // fixed time
  // Search / Draw
  int Check7 = 1;  // extended search
  std::string Text2 = "3", Text3 = "150";  // Plys, Balance
  int Check13 = 0;                         // brute force
  std::string Text4 = "5";                 // Ply Value Table Search
  int Check4 = 1;                          // chess drawing rules
  int FiftyMoveKind = 1;                   // the chosen button's FiftyMoveKind
  int Check10 = 1, Check8 = 0;             // King versus King, ask for draw
  // Book / Misc
  int Check9 = 1, Check12 = 0, Check14 = 0, Check15 = 0;
  int Check19 = 0, Check11 = 0, Check18 = 0, Check17 = 0, Check16 = 1, Check6 = 1;
  int PlayerRating = 1200;
  std::string Text1 = "Player";
  // Skin / Misc
  std::vector<std::string> Combo1List;
  std::string Combo1;
  int Check3 = 1, Check5 = 0;
  int CaptureCharColon = 0;
};

// The caption of the rating box: "Use Rating (1200)".
std::string RatingCaption(int rating);

// What each control's enabled state is, from the boxes that govern it.
bool DepthSliderEnabled(const OptionsForm& f);    // Slider4 and its labels
bool TimeSliderEnabled(const OptionsForm& f);     // Slider1 and its labels
bool ExtendedBoxesEnabled(const OptionsForm& f);  // Text2, Text3, Label16
bool FiftyMoveEnabled(const OptionsForm& f);      // Label13 and the five buttons
bool BookBoxesEnabled(const OptionsForm& f);      // Check12, Check14, Check15
bool RandomBookEnabled(const OptionsForm& f);     // Check15

// Every control from the settings; the skin list from the data folder.
void FillOptionsForm(OptionsForm& f, const Game& g, int playerRating);

// A click on Check1 (depth, which = 1) or Check2 (time, which = 2): the
// clicked box is on and the other off, so that one of the two always stays on.
void ClickLevelChoice(OptionsForm& f, int which);

// Reset: the rating goes back to 1200 at once, even if the dialog is cancelled.
void ResetRating(OptionsForm& f, int& playerRating);

// OK and Apply: the controls into the settings, in the dialog's order, with
// the number boxes clamped.
void StoreOptionsForm(const OptionsForm& f, Options& o);

// After the dialog stored its values: the skin when its name changed, the
// level line, the capture character, the players' names, the move choices
// and the board.
void ApplyOptions(Session& s, const std::string& oldSkinName);

// "Options...": the dialog through the window layer (OK and Apply store the
// controls), then what changed, whichever button closed it.
void OpenOptions(Session& s);

}  // namespace qv

#pragma once
// The Variants dialog without its window: the values of its controls, the
// rules that enable and disable them, and what its buttons do to the game.
// A window layer shows a VariantsForm and calls these functions on each click.
#include <array>
#include <string>
#include <vector>

#include "core/game.h"

namespace qv {

inline constexpr const char* IllegalEntryMessage = "Illegal entry!";

struct CheckBox {
  int Value = 0;  // 0 off, 1 on, 2 grey (Check3 when pieces stand on all squares)
  bool Enabled = true;
};

// A text box; Marked is the white-on-black look of a refused entry. A label
// beside a number box is enabled together with it.
struct TextBox {
  std::string Text;
  bool Enabled = true;
  bool Marked = false;
};

struct VariantsForm {
  // Captures
  CheckBox Check1, Check2, Check7, Check8, Check9, Check10, Check12, Check13, Check18, Check22, Check24, Check29,
      Check30;
  TextBox Text6;
  // Flying Kings
  CheckBox Check11, Check14, Check15, Check17, Check27;
  // Misc
  CheckBox Check3, Check4, Check28, Check5, Check23, Check25;
  // Win/Draw
  CheckBox Check6, Check16, Check19, Check26, Check31;
  TextBox Text5, Text7, Text8;
  // Opening
  CheckBox Check20, Check21;
  TextBox Text3, Text4;
  // Off the Board
  CheckBox Check33;
  TextBox Text10, Text9, Text11, Text12, Text13;
  // Promotion squares: 0..11 White, 12..23 Black.
  std::array<TextBox, 24> Text1;
  // Movement directions: 0..3 the normal moves, 4..7 the captures, each in
  // the order White man, Black man, White king, Black king.
  std::array<TextBox, 8> Text2;
  // Top: Option1 "Classic" (UseClassic 1) or Option2 "User" (0), the variant list.
  int UseClassic = 1;
  std::vector<std::string> Combo1List;
  std::string Combo1;
  std::string Label10;  // the rules link of the variant; empty when it has none
  // The message box a button asks for ("Illegal entry!"), empty when none.
  std::string Message;
};

// Every check box and number box as the rule it edits, for walks over all.
struct CheckBoxKey {
  CheckBox VariantsForm::*box;
  int RuleRecord::*key;
};
struct NumberBoxKey {
  TextBox VariantsForm::*box;
  int RuleRecord::*key;
};
const std::vector<CheckBoxKey>& CheckBoxKeys();    // all but Check30 (NumberFriends)
const std::vector<NumberBoxKey>& NumberBoxKeys();  // all but Text6 (NumberFriends)

// Opening the dialog: the folder choice, the list of that folder, the current
// variant chosen in it, and the controls set from the rules in force.
void OpenVariantsForm(VariantsForm& form, Game& g);

// All controls from RuleSet and the form's own direction texts left alone
// unless withDirections; then the enabling rules.
void FillFormFromRules(VariantsForm& form, const Game& g, bool withDirections);
void FillDirectionBoxes(VariantsForm& form, const std::array<std::string, 4>& dirText);
void FillPromoBoxes(VariantsForm& form, const Game& g);

// Runs every enabling rule, as after a click on each first control.
void ApplyEnablingRules(VariantsForm& form);

// "Classic" (1) or "User" (0): the folder in use and its list.
void ChooseVariantFolder(VariantsForm& form, Game& g, int useClassic);

// A name chosen in Combo1: the file is read into the rules and the dialog.
void SelectVariant(VariantsForm& form, Game& g, const std::string& name);

// A click on Check3 with its new value: the squares change colour at once.
void ClickCheck3(VariantsForm& form, Game& g, int value);

// A text typed into a promotion or direction box clears its mark.
void EditPromoBox(VariantsForm& form, int index, const std::string& text);
void EditDirectionBox(VariantsForm& form, int index, const std::string& text);

// Random: a whole rule set drawn from g.Random into RuleSet and the controls.
void DrawRandomRules(VariantsForm& form, Game& g);

// OK (isOK true) and Apply: check every box and store the rules. On a bad
// square or direction word the box is marked, Message is "Illegal entry!" and
// the rules in force stay as they were; returns whether all was good.
bool StoreFormRules(VariantsForm& form, Game& g, bool isOK);

}  // namespace qv

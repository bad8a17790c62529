#include "interaction/variantsform.h"

#include <algorithm>

#include "core/text.h"
#include "core/newgame.h"
#include "files/variantfile.h"

namespace qv {

using F = VariantsForm;
using R = RuleRecord;

const std::vector<CheckBoxKey>& CheckBoxKeys() {
  static const std::vector<CheckBoxKey> keys = {
      {&F::Check1, &R::MaxCapMove},       {&F::Check2, &R::MulJumps},        {&F::Check7, &R::MaxCapMoveKings},
      {&F::Check8, &R::ManCapKing},       {&F::Check9, &R::KingCapMove},     {&F::Check10, &R::ManContJump},
      {&F::Check12, &R::ManContJumpCrowned}, {&F::Check13, &R::RemovePieces}, {&F::Check18, &R::CapRequired},
      {&F::Check22, &R::LastCap},         {&F::Check24, &R::KingMan},        {&F::Check29, &R::JumpFriend},
      {&F::Check11, &R::LongKings},       {&F::Check14, &R::KingFirst},      {&F::Check15, &R::ManCapMoveKing},
      {&F::Check17, &R::MaxCapMoveK},     {&F::Check27, &R::CapReverse},     {&F::Check3, &R::PiecesOnBlack},
      {&F::Check4, &R::BlackStarts},      {&F::Check28, &R::RndColor},       {&F::Check5, &R::AntiMode},
      {&F::Check23, &R::ManKing},         {&F::Check25, &R::ChangeSide},     {&F::Check6, &R::WinAtPromo},
      {&F::Check16, &R::KingWin},         {&F::Check19, &R::NoLegalDraw},    {&F::Check26, &R::ThreeKings},
      {&F::Check31, &R::TwoKings},        {&F::Check20, &R::RemoveMen},      {&F::Check21, &R::DoMoves},
      {&F::Check33, &R::canContract},
  };
  return keys;
}

const std::vector<NumberBoxKey>& NumberBoxKeys() {
  static const std::vector<NumberBoxKey> keys = {
      {&F::Text5, &R::NumberKings},    {&F::Text7, &R::NumberKings2}, {&F::Text8, &R::NumberPieces},
      {&F::Text3, &R::NumberMen},      {&F::Text4, &R::NumberMoves},  {&F::Text10, &R::ContractNumber},
      {&F::Text9, &R::ContractW1},     {&F::Text11, &R::ContractW2},  {&F::Text12, &R::ContractB1},
      {&F::Text13, &R::ContractB2},
  };
  return keys;
}

namespace {

// A number as a text box shows it: no leading blank.
std::string NumberText(int value) { return Trim(Str(value)); }

void EnableTogether(TextBox& box, const CheckBox& check) { box.Enabled = check.Value == 1; }

}  // namespace

void ApplyEnablingRules(VariantsForm& f) {
  if (f.Check1.Value == 1) {
    f.Check2.Value = 1;
    f.Check2.Enabled = false;
    f.Check7.Enabled = true;
  } else {
    f.Check2.Enabled = true;
    f.Check7.Value = 0;
    f.Check7.Enabled = false;
  }
  f.Check12.Enabled = f.Check10.Value == 1;
  if (f.Check10.Value != 1) f.Check12.Value = 0;
  f.Check14.Enabled = f.Check17.Enabled = f.Check11.Value == 1;
  f.Check16.Enabled = f.Check6.Value != 1;
  f.Check6.Enabled = f.Check16.Value != 1;
  f.Check4.Enabled = f.Check28.Value != 1;
  EnableTogether(f.Text3, f.Check20);
  EnableTogether(f.Text4, f.Check21);
  EnableTogether(f.Text5, f.Check26);
  EnableTogether(f.Text7, f.Check31);
  f.Check30.Enabled = f.Check29.Value == 1;
  f.Text6.Enabled = f.Check29.Value == 1 && f.Check30.Value != 1;
  for (TextBox* box : {&f.Text10, &f.Text9, &f.Text11, &f.Text12, &f.Text13}) EnableTogether(*box, f.Check33);
  f.Check3.Enabled = f.Check3.Value != 2;
}

void FillPromoBoxes(VariantsForm& f, const Game& g) {
  for (int side = 0; side < 2; ++side)
    for (int i = 0; i < PromoSlots; ++i) {
      const int cell = g.RuleSet.PromoSquares[side][i];
      TextBox& box = f.Text1[static_cast<std::size_t>(side * PromoSlots + i)];
      box.Text = cell == -1 ? std::string() : ToUpper(SquareNotation(cell, 1, g.NotationKind()));
      box.Marked = false;
    }
}

void FillDirectionBoxes(VariantsForm& f, const std::array<std::string, 4>& dirText) {
  for (std::size_t k = 0; k < 4; ++k) {
    const std::size_t blank = dirText[k].find(' ');
    f.Text2[k].Text = dirText[k].substr(0, blank);
    f.Text2[k + 4].Text = blank == std::string::npos ? std::string() : dirText[k].substr(blank + 1);
    f.Text2[k].Marked = f.Text2[k + 4].Marked = false;
  }
}

void FillFormFromRules(VariantsForm& f, const Game& g, bool withDirections) {
  const RuleRecord& rules = g.RuleSet;
  for (const CheckBoxKey& c : CheckBoxKeys()) (f.*c.box).Value = rules.*c.key;
  for (const NumberBoxKey& n : NumberBoxKeys()) (f.*n.box).Text = NumberText(rules.*n.key);
  f.Check30.Value = rules.NumberFriends == -1 ? 1 : 0;
  f.Text6.Text = rules.NumberFriends == -1 ? std::string() : NumberText(rules.NumberFriends);
  FillPromoBoxes(f, g);
  if (withDirections) FillDirectionBoxes(f, rules.DirText);
  f.Label10 = g.HelpLink;
  ApplyEnablingRules(f);
}

namespace {

// The variant names of the folder in use, by name: the order a directory
// gives differs between file systems.
std::vector<std::string> SortedVariantList(const Game& g, int useClassic) {
  std::vector<std::string> names = FillVariantList(VariantFolder(g.DataFolder, useClassic));
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

void ChooseVariantFolder(VariantsForm& f, Game& g, int useClassic) {
  f.UseClassic = useClassic;
  g.Settings.UseClassic = useClassic;
  f.Combo1List = SortedVariantList(g, useClassic);
  f.Combo1 = f.Combo1List.empty() ? std::string() : f.Combo1List.front();
}

void OpenVariantsForm(VariantsForm& f, Game& g) {
  f = VariantsForm{};
  f.UseClassic = g.Settings.UseClassic;
  f.Combo1List = SortedVariantList(g, f.UseClassic);
  f.Combo1 = g.VariantName;
  FillFormFromRules(f, g, true);
}

void SelectVariant(VariantsForm& f, Game& g, const std::string& name) {
  f.Combo1 = name;
  // A variant without a setup of its own starts from the standard position,
  // whatever the variant read before it had put on the board.
  if (g.CustomPosition == 0) {
    BoardCells standard;
    FillFrame(standard);
    BuildStandardPosition(standard);
    ReadSetupText(g, BoardSetupText(standard));
  }
  // Keys the file leaves out keep what the dialog shows.
  DialogRuleTables tables;
  tables.PromoSquares = g.RuleSet.PromoSquares;
  for (std::size_t k = 0; k < 4; ++k) {
    tables.StepText[k] = f.Text2[k].Text;
    tables.CaptureText[k] = f.Text2[k + 4].Text;
  }
  ReadVariantIntoDialog(g, name, tables);
  // The promotion squares shown are those in force, as the numbers are.
  g.RuleSet.PromoSquares = tables.PromoSquares;
  FillFormFromRules(f, g, false);
  for (std::size_t k = 0; k < 4; ++k) {
    f.Text2[k].Text = tables.StepText[k];
    f.Text2[k + 4].Text = tables.CaptureText[k];
    f.Text2[k].Marked = f.Text2[k + 4].Marked = false;
  }
}

void ClickCheck3(VariantsForm& f, Game& g, int value) {
  f.Check3.Value = value;
  g.RuleSet.PiecesOnBlack = value;
  g.VariantDefinition.PiecesOnBlack = value;
  ShiftPromoSquares(g.RuleSet.PromoSquares, value);
  FillPromoBoxes(f, g);
}

void EditPromoBox(VariantsForm& f, int index, const std::string& text) {
  TextBox& box = f.Text1[static_cast<std::size_t>(index)];
  box.Text = text;
  box.Marked = false;
}

void EditDirectionBox(VariantsForm& f, int index, const std::string& text) {
  TextBox& box = f.Text2[static_cast<std::size_t>(index)];
  box.Text = text;
  box.Marked = false;
}

void DrawRandomRules(VariantsForm& f, Game& g) {
  RuleRecord& r = g.RuleSet;
  const auto coin = [&g] { return Int(g.Rnd() * 2); };
  const int oldPiecesOnBlack = r.PiecesOnBlack;
  r.MaxCapMove = coin();
  r.MulJumps = coin();
  r.BlackStarts = coin();
  r.RndColor = coin();
  if (f.Check3.Enabled) r.PiecesOnBlack = coin();
  r.AntiMode = coin();
  r.WinAtPromo = coin();
  r.KingWin = coin();
  r.JumpFriend = coin();
  r.MaxCapMoveKings = coin();
  r.MaxCapMoveK = coin();
  r.ManCapKing = coin();
  r.CapRequired = coin();
  r.KingCapMove = coin();
  r.ManContJump = coin();
  r.LongKings = coin();
  r.ManContJumpCrowned = coin();
  r.RemovePieces = coin();
  r.KingFirst = coin();
  r.ManCapMoveKing = coin();
  r.NoLegalDraw = coin();
  r.RemoveMen = coin();
  r.NumberMen = Int(g.Rnd() * 10) + 1;
  r.NumberKings = Int(g.Rnd() * 20) + 1;
  r.NumberMoves = Int(g.Rnd() * 10) + 1;
  r.LastCap = coin();
  r.ManKing = coin();
  r.KingMan = coin();
  r.CapReverse = coin();
  r.DoMoves = coin();
  r.ChangeSide = coin();
  r.ThreeKings = coin();
  FillFormFromRules(f, g, false);
  // Setting Check3 to a new value is a click on it: the squares follow.
  if (r.PiecesOnBlack != oldPiecesOnBlack) ClickCheck3(f, g, r.PiecesOnBlack);
  if (r.MaxCapMove == 0) f.Check7.Enabled = false;
  if (r.ManContJump == 0) f.Check12.Enabled = false;
}

namespace {

// Box k (0..3) and box k + 4 make the movement text of piece kind k; the
// parser's first unknown word tells which of the two boxes holds it.
int BadDirectionBox(const VariantsForm& f, int k, int firstUnknown) {
  const std::string& quiet = f.Text2[static_cast<std::size_t>(k)].Text;
  const int quietWords = static_cast<int>(std::count(quiet.begin(), quiet.end(), ';')) + 1;
  return firstUnknown <= quietWords ? k : k + 4;
}

}  // namespace

bool StoreFormRules(VariantsForm& f, Game& g, bool isOK) {
  // The walk fills a copy; the rules in force take it only when every box was good.
  RuleRecord rules = g.RuleSet;
  for (const CheckBoxKey& c : CheckBoxKeys()) {
    const int value = (f.*c.box).Value;
    if (c.key == &R::PiecesOnBlack && value != 0 && value != 1) continue;  // grey: left as it is
    rules.*c.key = value;
  }
  for (const NumberBoxKey& n : NumberBoxKeys()) rules.*n.key = ValInt((f.*n.box).Text);
  if (isOK) rules.NumberFriends = f.Check30.Value == 1 ? -1 : ValInt(f.Text6.Text);

  for (int side = 0; side < 2; ++side)
    for (int i = 0; i < PromoSlots; ++i) {
      TextBox& box = f.Text1[static_cast<std::size_t>(side * PromoSlots + i)];
      if (box.Text.empty()) {
        rules.PromoSquares[side][i] = -1;
        continue;
      }
      const int cell = SquareNumber(ToUpper(box.Text), g.NotationKind(), rules.PiecesOnBlack);
      const bool bad = cell < 21 || cell > 98 || (rules.PiecesOnBlack < 2 && !SquareIsDark(cell, rules.PiecesOnBlack));
      if (bad) {
        box.Marked = true;
        f.Message = IllegalEntryMessage;
        return false;
      }
      rules.PromoSquares[side][i] = cell;
    }

  // A list has room for eight directions; a longer one is refused like an
  // unknown word.
  for (int box = 0; box < 8; ++box) {
    const std::string& text = f.Text2[static_cast<std::size_t>(box)].Text;
    if (std::count(text.begin(), text.end(), ';') >= 8) {
      f.Text2[static_cast<std::size_t>(box)].Marked = true;
      f.Message = IllegalEntryMessage;
      return false;
    }
  }
  DirectionTable table = g.DirTable;
  for (int k = 0; k < 4; ++k) {
    const auto& boxes = f.Text2;
    // An empty capture box is a piece that never captures: no capture list.
    const std::string& captures = boxes[static_cast<std::size_t>(k) + 4].Text;
    rules.DirText[static_cast<std::size_t>(k)] =
        boxes[static_cast<std::size_t>(k)].Text + (captures.empty() ? "" : " " + captures);
    const int firstUnknown = ParseDirections(rules.DirText[static_cast<std::size_t>(k)], k, table);
    if (firstUnknown != 0) {
      f.Text2[static_cast<std::size_t>(BadDirectionBox(f, k, firstUnknown))].Marked = true;
      f.Message = IllegalEntryMessage;
      return false;
    }
  }

  g.VariantName = f.Combo1;
  g.RuleSet = rules;
  g.DirTable = table;
  f.Message.clear();
  return true;
}

}  // namespace qv

#include "interaction/variantsform.h"

#include <algorithm>
#include <string_view>

#include "core/board.h"
#include "core/text.h"
#include "interaction/variantreader.h"

namespace qv {

const std::vector<CheckBoxKey>& CheckBoxKeys() {
  static const std::vector<CheckBoxKey> keys = {
      {&VariantsForm::Check1, &RuleRecord::MaxCapMove},       {&VariantsForm::Check2, &RuleRecord::MulJumps},
      {&VariantsForm::Check7, &RuleRecord::MaxCapMoveKings},  {&VariantsForm::Check8, &RuleRecord::ManCapKing},
      {&VariantsForm::Check9, &RuleRecord::KingCapMove},      {&VariantsForm::Check10, &RuleRecord::ManContJump},
      {&VariantsForm::Check12, &RuleRecord::ManContJumpCrowned},
      {&VariantsForm::Check13, &RuleRecord::RemovePieces},    {&VariantsForm::Check18, &RuleRecord::CapRequired},
      {&VariantsForm::Check22, &RuleRecord::LastCap},         {&VariantsForm::Check24, &RuleRecord::KingMan},
      {&VariantsForm::Check29, &RuleRecord::JumpFriend},      {&VariantsForm::Check11, &RuleRecord::LongKings},
      {&VariantsForm::Check14, &RuleRecord::KingFirst},       {&VariantsForm::Check15, &RuleRecord::ManCapMoveKing},
      {&VariantsForm::Check17, &RuleRecord::MaxCapMoveK},     {&VariantsForm::Check27, &RuleRecord::CapReverse},
      {&VariantsForm::Check3, &RuleRecord::PiecesOnBlack},    {&VariantsForm::Check4, &RuleRecord::BlackStarts},
      {&VariantsForm::Check28, &RuleRecord::RndColor},        {&VariantsForm::Check5, &RuleRecord::AntiMode},
      {&VariantsForm::Check23, &RuleRecord::ManKing},         {&VariantsForm::Check25, &RuleRecord::ChangeSide},
      {&VariantsForm::Check6, &RuleRecord::WinAtPromo},       {&VariantsForm::Check16, &RuleRecord::KingWin},
      {&VariantsForm::Check19, &RuleRecord::NoLegalDraw},     {&VariantsForm::Check26, &RuleRecord::ThreeKings},
      {&VariantsForm::Check31, &RuleRecord::TwoKings},        {&VariantsForm::Check20, &RuleRecord::RemoveMen},
      {&VariantsForm::Check21, &RuleRecord::DoMoves},         {&VariantsForm::Check33, &RuleRecord::canContract},
  };
  return keys;
}

const std::vector<NumberBoxKey>& NumberBoxKeys() {
  static const std::vector<NumberBoxKey> keys = {
      {&VariantsForm::Text5, &RuleRecord::NumberKings},     {&VariantsForm::Text7, &RuleRecord::NumberKings2},
      {&VariantsForm::Text8, &RuleRecord::NumberPieces},    {&VariantsForm::Text3, &RuleRecord::NumberMen},
      {&VariantsForm::Text4, &RuleRecord::NumberMoves},     {&VariantsForm::Text10, &RuleRecord::ContractNumber},
      {&VariantsForm::Text9, &RuleRecord::ContractW1},      {&VariantsForm::Text11, &RuleRecord::ContractW2},
      {&VariantsForm::Text12, &RuleRecord::ContractB1},     {&VariantsForm::Text13, &RuleRecord::ContractB2},
  };
  return keys;
}

namespace {

// A check box that turns another on or off: on enables, off disables; `clear`
// also unticks the other when it goes off.
void Follow(const CheckBox& first, CheckBox& other, bool clear) {
  other.Enabled = first.Value == 1;
  if (!other.Enabled && clear) other.Value = 0;
}

void Follow(const CheckBox& first, TextBox& other) { other.Enabled = first.Value == 1; }

std::string NumberText(int value) { return std::to_string(value); }

std::array<std::string, 4> DirectionTexts(const VariantsForm& form) {
  std::array<std::string, 4> texts;
  for (int k = 0; k < 4; ++k) texts[k] = form.Text2[k].Text + " " + form.Text2[k + 4].Text;
  return texts;
}

int WordCount(std::string_view text) { return static_cast<int>(std::count(text.begin(), text.end(), ';')) + 1; }

void MarkBad(VariantsForm& form, TextBox& box) {
  box.Marked = true;
  form.Message = IllegalEntryMessage;
}

// The promotion boxes into `rules`; the index of the first bad box, or -1.
int ReadPromoBoxes(const VariantsForm& form, RuleRecord& rules, int notationKind) {
  for (int side = 0; side < 2; ++side)
    for (int i = 0; i < PromoSlots; ++i) {
      const int box = side * PromoSlots + i;
      const std::string& text = form.Text1[box].Text;
      if (text.empty()) {
        rules.PromoSquares[side][i] = -1;
        continue;
      }
      const int cell = SquareNumber(ToUpper(text), notationKind, rules.PiecesOnBlack);
      if (cell < 21 || cell > 98) return box;
      if (rules.PiecesOnBlack < 2 && !SquareIsDark(cell, rules.PiecesOnBlack)) return box;
      rules.PromoSquares[side][i] = cell;
    }
  return -1;
}

// The direction boxes into `table`; the index of the first bad box, or -1.
// A list holds at most eight directions: more is refused like an unknown word.
int ReadDirectionBoxes(const VariantsForm& form, DirectionTable& table) {
  for (int box = 0; box < 8; ++box)
    if (WordCount(form.Text2[box].Text) > 8) return box;
  const std::array<std::string, 4> texts = DirectionTexts(form);
  for (int k = 0; k < 4; ++k) {
    const int unknownWord = ParseDirections(texts[k], k, table);
    if (unknownWord == 0) continue;
    return unknownWord <= WordCount(form.Text2[k].Text) ? k : k + 4;
  }
  return -1;
}

}  // namespace

void ApplyEnablingRules(VariantsForm& f) {
  if (f.Check1.Value == 1) {
    f.Check2.Value = 1;
    f.Check2.Enabled = false;
  } else {
    f.Check2.Enabled = true;
  }
  Follow(f.Check1, f.Check7, true);
  Follow(f.Check10, f.Check12, true);
  Follow(f.Check11, f.Check14, false);
  Follow(f.Check11, f.Check17, false);
  f.Check16.Enabled = f.Check6.Value != 1;
  f.Check6.Enabled = f.Check16.Value != 1;
  f.Check4.Enabled = f.Check28.Value != 1;
  Follow(f.Check20, f.Text3);
  Follow(f.Check21, f.Text4);
  Follow(f.Check26, f.Text5);
  Follow(f.Check31, f.Text7);
  f.Check30.Enabled = f.Check29.Value == 1;
  f.Text6.Enabled = f.Check29.Value == 1 && f.Check30.Value != 1;
  for (TextBox* box : {&f.Text10, &f.Text9, &f.Text11, &f.Text12, &f.Text13}) Follow(f.Check33, *box);
}

void FillDirectionBoxes(VariantsForm& form, const std::array<std::string, 4>& dirText) {
  for (int k = 0; k < 4; ++k) {
    const std::string& text = dirText[k];
    const std::size_t blank = text.find(' ');
    form.Text2[k] = TextBox{text.substr(0, blank)};
    form.Text2[k + 4] = TextBox{blank == std::string::npos ? std::string() : text.substr(blank + 1)};
  }
}

void FillPromoBoxes(VariantsForm& form, const Game& g) {
  for (int side = 0; side < 2; ++side)
    for (int i = 0; i < PromoSlots; ++i) {
      const int cell = g.RuleSet.PromoSquares[side][i];
      form.Text1[side * PromoSlots + i] = TextBox{cell == -1 ? std::string() : SquareNotation(cell, 1, g.NotationKind())};
    }
}

void FillFormFromRules(VariantsForm& form, const Game& g, bool withDirections) {
  const RuleRecord& rules = g.RuleSet;
  for (const CheckBoxKey& key : CheckBoxKeys()) form.*key.box = CheckBox{rules.*key.key == 1 ? 1 : 0};
  for (const NumberBoxKey& key : NumberBoxKeys()) form.*key.box = TextBox{NumberText(rules.*key.key)};
  form.Check3.Value = rules.PiecesOnBlack == 2 ? 2 : rules.PiecesOnBlack == 1;
  form.Check3.Enabled = rules.PiecesOnBlack != 2;
  form.Check30 = CheckBox{rules.NumberFriends == -1 ? 1 : 0};
  form.Text6 = TextBox{rules.NumberFriends == -1 ? std::string("0") : NumberText(rules.NumberFriends)};
  FillPromoBoxes(form, g);
  if (withDirections) FillDirectionBoxes(form, rules.DirText);
  form.Label10 = g.HelpLink;
  ApplyEnablingRules(form);
}

void OpenVariantsForm(VariantsForm& form, Game& g) {
  form = VariantsForm{};
  form.UseClassic = g.Settings.UseClassic == 1 ? 1 : 0;
  form.Combo1List = FillVariantList(g, form.UseClassic);
  form.Combo1 = g.VariantName;
  FillFormFromRules(form, g, true);
}

void SelectVariant(VariantsForm& form, Game& g, const std::string& name) {
  form.Combo1 = name;
  g.VariantName = name;
  std::array<std::string, 4> dirTexts = DirectionTexts(form);
  ReadVariantIntoDialog(g, dirTexts);
  FillFormFromRules(form, g, false);
  FillDirectionBoxes(form, dirTexts);
}

void ChooseVariantFolder(VariantsForm& form, Game& g, int useClassic) {
  form.UseClassic = useClassic;
  g.Settings.UseClassic = useClassic;
  form.Combo1List = FillVariantList(g, useClassic);
  // The list chooses its first name, and choosing reads it.
  if (!form.Combo1List.empty()) SelectVariant(form, g, form.Combo1List.front());
}

void ClickCheck3(VariantsForm& form, Game& g, int value) {
  form.Check3.Value = value;
  g.RuleSet.PiecesOnBlack = value;
  g.VariantDefinition.PiecesOnBlack = value;
  ShiftPromoSquares(g.RuleSet.PromoSquares, value);
  FillPromoBoxes(form, g);
}

void EditPromoBox(VariantsForm& form, int index, const std::string& text) {
  form.Text1.at(index) = TextBox{text};
}

void EditDirectionBox(VariantsForm& form, int index, const std::string& text) {
  form.Text2.at(index) = TextBox{text};
}

void DrawRandomRules(VariantsForm& form, Game& g) {
  RuleRecord& r = g.RuleSet;
  auto coin = [&g] { return Int(g.Rnd() * 2); };
  auto upTo = [&g](int n) { return Int(g.Rnd() * n) + 1; };
  const int piecesOnBlack = r.PiecesOnBlack;
  r.MaxCapMove = coin();
  r.MulJumps = coin();
  r.BlackStarts = coin();
  r.RndColor = coin();
  if (form.Check3.Enabled) r.PiecesOnBlack = coin();
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
  r.NumberMen = upTo(10);
  r.NumberKings = upTo(20);
  r.NumberMoves = upTo(10);
  r.LastCap = coin();
  r.ManKing = coin();
  r.KingMan = coin();
  r.CapReverse = coin();
  r.DoMoves = coin();
  r.ChangeSide = coin();
  r.ThreeKings = coin();
  // A board of the other colour keeps its promotion rows, as Check3 does.
  if (r.PiecesOnBlack != piecesOnBlack) ShiftPromoSquares(r.PromoSquares, r.PiecesOnBlack);
  FillFormFromRules(form, g, false);
}

bool StoreFormRules(VariantsForm& form, Game& g, bool isOK) {
  form.Message.clear();
  // Everything is stored into a copy first: a refused box leaves the rules
  // in force and the direction table exactly as they were.
  RuleRecord rules = g.RuleSet;
  for (const CheckBoxKey& key : CheckBoxKeys()) {
    const int value = (form.*key.box).Value;
    if (key.box == &VariantsForm::Check3 && value > 1) continue;  // grey: pieces on all squares stay
    rules.*key.key = value;
  }
  for (const NumberBoxKey& key : NumberBoxKeys()) rules.*key.key = ValInt((form.*key.box).Text);
  if (isOK) rules.NumberFriends = form.Check30.Value == 1 ? -1 : ValInt(form.Text6.Text);

  const int badSquare = ReadPromoBoxes(form, rules, g.NotationKind());
  if (badSquare >= 0) {
    MarkBad(form, form.Text1[badSquare]);
    return false;
  }
  DirectionTable table = g.DirTable;
  const int badDirection = ReadDirectionBoxes(form, table);
  if (badDirection >= 0) {
    MarkBad(form, form.Text2[badDirection]);
    return false;
  }
  rules.DirText = DirectionTexts(form);
  g.VariantName = form.Combo1;
  g.RuleSet = rules;
  g.DirTable = table;
  return true;
}

}  // namespace qv

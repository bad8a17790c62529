#include "files/settings.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "core/fatal.h"
#include "core/newgame.h"
#include "core/text.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

// What the file holds, apart from the game it belongs to.
struct SettingsRecord {
  Options options;
  RuleRecord rules;
  std::string variantName;
  std::string header = SettingsHeader;
  std::string promoText[2];
};

// The 84 fields in file order. `io` reads or writes them: Number for a
// number line, Field for text that ends at a comma, Line for a whole line.
template <class Io>
void VisitFields(SettingsRecord& r, Io& io) {
  Options& o = r.options;
  RuleRecord& s = r.rules;
  io.Field(r.header);
  io.Number(o.PlayMode);
  io.Number(o.StrengthHandicap);
  io.Number(o.DepthLimit);
  io.Number(o.NotationKind);
  io.Number(o.BoardTurned);
  io.Number(s.MaxCapMove);
  io.Number(s.MulJumps);
  io.Number(o.ShowAvailableMoves);
  io.Number(s.BlackStarts);
  io.Line(r.variantName);
  io.Number(s.PiecesOnBlack);
  io.Number(s.AntiMode);
  io.Number(s.WinAtPromo);
  io.Number(o.TimeLimit);
  io.Number(o.DepthMode);
  io.Number(o.ChessDrawRules);
  io.Number(s.MaxCapMoveKings);
  io.Number(s.ManCapKing);
  io.Number(s.KingCapMove);
  io.Field(o.PlayerName);
  io.Number(o.CapitalNotation);
  io.Number(o.ConfirmExit);
  io.Number(o.AskDrawIfComputerDraws);
  io.Number(o.ExtendedSearch);
  io.Number(s.ManContJump);
  io.Number(s.LongKings);
  io.Number(s.ManContJumpCrowned);
  io.Number(s.RemovePieces);
  io.Field(r.promoText[0]);
  io.Field(r.promoText[1]);
  for (std::string& text : s.DirText) io.Field(text);
  io.Number(o.OpeningBook);
  io.Number(o.FiftyMoveKind);
  io.Number(o.ShowCalculation);
  io.Number(o.AmericanBookForOthers);
  io.Number(o.BruteForce);
  io.Number(s.KingFirst);
  io.Number(s.ManCapMoveKing);
  io.Number(o.CaptureCharColon);
  io.Number(s.KingWin);
  io.Number(s.MaxCapMoveK);
  io.Number(o.Plys);
  io.Number(o.Balance);
  io.Number(s.CapRequired);
  io.Number(o.ChooseOpening);
  io.Number(o.BookRandom);
  io.Number(o.UseRating);
  io.Number(o.SkinKind);
  io.Number(s.NoLegalDraw);
  io.Number(s.RemoveMen);
  io.Number(s.NumberMen);
  io.Number(s.DoMoves);
  io.Number(s.NumberMoves);
  io.Number(s.LastCap);
  io.Number(s.ManKing);
  io.Number(s.KingMan);
  io.Number(o.AutoSave);
  io.Number(o.UseSound);
  io.Number(s.ChangeSide);
  io.Line(o.SkinName);
  io.Number(o.KingVersusKing);
  io.Number(s.ThreeKings);
  io.Number(s.NumberKings);
  io.Number(o.PdnAlgebraic);
  io.Number(s.CapReverse);
  io.Number(s.RndColor);
  io.Number(o.PlyValueDepth);
  io.Number(o.UseClassic);
  io.Number(o.TouchMove);
  io.Number(s.JumpFriend);
  io.Number(s.NumberFriends);
  io.Number(s.TwoKings);
  io.Number(s.NumberKings2);
  io.Number(s.NumberPieces);
  io.Number(s.canContract);
  io.Number(s.ContractNumber);
  io.Number(s.ContractW1);
  io.Number(s.ContractW2);
  io.Number(s.ContractB1);
  io.Number(s.ContractB2);
}

// Numbers as the program prints them: a blank or minus sign, the digits, a
// blank. Every line ends in CR LF.
struct FieldWriter {
  std::string text;
  void Number(int& value) { text += Str(value) + " \r\n"; }
  void Field(std::string& value) { text += value + "\r\n"; }
  void Line(std::string& value) { text += value + "\r\n"; }
};

// Reading past the end of the file: the file is short.
struct ShortFile {};

// Reads the fields the way they were always read: numbers are taken between
// blanks, commas and line ends; a text field ends at a comma or the line's
// end and loses its leading blanks; a line field is the rest of the line.
struct FieldReader {
  std::string_view rest;

  static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
  static bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

  void SkipLineEnd() {
    if (!rest.empty() && rest.front() == '\r') rest.remove_prefix(1);
    if (!rest.empty() && rest.front() == '\n') rest.remove_prefix(1);
  }
  // After a number or text field: blanks, then one comma or one line end.
  void SkipDelimiter() {
    while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
    if (!rest.empty() && rest.front() == ',') rest.remove_prefix(1);
    else SkipLineEnd();
  }
  void Number(int& value) {
    while (!rest.empty() && (IsBlank(rest.front()) || IsLineEnd(rest.front()))) rest.remove_prefix(1);
    if (rest.empty()) throw ShortFile{};
    std::size_t end = 0;
    while (end < rest.size() && !IsBlank(rest[end]) && !IsLineEnd(rest[end]) && rest[end] != ',') ++end;
    value = ValInt(rest.substr(0, end));
    rest.remove_prefix(end);
    SkipDelimiter();
  }
  void Field(std::string& value) {
    while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
    if (rest.empty()) throw ShortFile{};
    std::size_t end = 0;
    while (end < rest.size() && rest[end] != ',' && !IsLineEnd(rest[end])) ++end;
    value.assign(rest.substr(0, end));
    rest.remove_prefix(end);
    if (!rest.empty() && rest.front() == ',') rest.remove_prefix(1);
    else SkipLineEnd();
  }
  void Line(std::string& value) {
    if (rest.empty()) throw ShortFile{};
    std::size_t end = 0;
    while (end < rest.size() && !IsLineEnd(rest[end])) ++end;
    value.assign(rest.substr(0, end));
    rest.remove_prefix(end);
    SkipLineEnd();
  }
};

SettingsRecord RecordOf(const Game& g) {
  SettingsRecord r;
  r.options = g.Settings;
  r.rules = g.RuleSet;
  r.variantName = g.VariantName;
  // The promotion squares are always written in algebraic form.
  r.promoText[0] = PromoSquaresText(g.RuleSet.PromoSquares, 0);
  r.promoText[1] = PromoSquaresText(g.RuleSet.PromoSquares, 1);
  return r;
}

void ApplyRecord(Game& g, const SettingsRecord& r) {
  g.Settings = r.options;
  g.RuleSet = r.rules;
  g.VariantName = r.variantName;
  for (auto& side : g.RuleSet.PromoSquares) side.Fill(-1);
  for (int side = 0; side < 2; ++side) ReadPromoSquaresText(r.promoText[side], g.RuleSet.PromoSquares, side, 0);
  BuildDirTable(g);
}

// The record of a first start.
SettingsRecord Defaults() {
  SettingsRecord r;
  r.options = Options{};
  r.rules = RuleRecord{};
  r.variantName = "American Checkers";
  r.promoText[0] = PromoSquaresText(r.rules.PromoSquares, 0);
  r.promoText[1] = PromoSquaresText(r.rules.PromoSquares, 1);
  return r;
}

std::string ReadWholeFile(const fs::path& file, bool& missing) {
  missing = false;
  std::error_code ec;
  if (!fs::exists(file, ec)) {
    missing = true;
    return {};
  }
  std::ifstream in(file, std::ios::binary);
  if (!in) throw FatalError(SettingsReadError);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) throw FatalError(SettingsReadError);
  return text;
}

}  // namespace

std::string SettingsText(const Game& g) {
  SettingsRecord r = RecordOf(g);
  FieldWriter writer;
  VisitFields(r, writer);
  return writer.text;
}

FileWriteResult WriteSettings(const Game& g, const fs::path& file) { return WriteFileAtomically(file, SettingsText(g)); }

SettingsResult ReadSettings(Game& g, const fs::path& file) {
  bool missing = false;
  const std::string text = ReadWholeFile(file, missing);
  if (!missing) {
    SettingsRecord r = RecordOf(g);
    FieldReader reader{text};
    try {
      std::string header;
      reader.Field(header);
      if (header == SettingsHeader) {
        reader = FieldReader{text};
        VisitFields(r, reader);
        ApplyRecord(g, r);
        return {SettingsSource::File, {}};
      }
    } catch (const ShortFile&) {
    }
  }
  // Missing, short or of another version: the defaults, written at once.
  ApplyRecord(g, Defaults());
  return {SettingsSource::Defaults, WriteSettings(g, file)};
}

void SettleStoredModes(Options& options) {
  if (options.DepthLimit == 0) options.DepthLimit = 2;
  if (options.PlayMode == 2) options.PlayMode = 0;
}

}  // namespace qv

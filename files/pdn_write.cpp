#include "files/pdn_write.h"

#include <ctime>
#include <fstream>
#include <iterator>
#include <memory>
#include <system_error>

#include "core/newgame.h"
#include "core/text.h"
#include "files/pdn_gametype.h"
#include "files/pdn_rulestag.h"

namespace qv {

namespace {

constexpr std::size_t LineLimit = 70;

std::string TagLine(const char* name, const std::string& value) {
  return std::string("[") + name + " \"" + value + "\"]\r\n";
}

// Squares are written as numbers on a board of 32 squares unless the player
// asked for algebraic PDN; a board of 64 squares has only algebraic names.
bool WritesAlgebraic(const Game& g) { return g.Settings.PdnAlgebraic == 1 || g.RuleSet.PiecesOnBlack == 2; }

std::string SquareText(int cell, bool algebraic) {
  return algebraic ? ToLower(SquareNotation(cell, 1, 0)) : SquareNotation(cell, 1, 1);
}

std::string MoveText(const MoveRecord& m, bool algebraic) {
  if (m.FromSquare == DropSource) return SquareText(m.ToSquare, algebraic);
  return SquareText(m.FromSquare, algebraic) + (m.IsCapture() ? "x" : "-") + SquareText(m.ToSquare, algebraic);
}

// The start position as a FEN: side to move, then White's and Black's pieces.
std::string FenText(const Game& g, bool algebraic) {
  std::string white, black;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.StartBoard[cell];
    if (v == 0 || v == OffBoard) continue;
    std::string& list = v > 0 ? white : black;
    if (!list.empty()) list += ',';
    if (v == WhiteKing || v == BlackKing) list += 'K';
    list += SquareText(cell, algebraic);
  }
  return std::string(g.RuleSet.BlackStarts == 1 ? "B" : "W") + ":W" + white + ":B" + black;
}

// True when the game began from its variant's own start position and side.
bool StartsAsTheVariant(const Game& g) {
  auto standard = std::make_unique<Game>();
  standard->DataFolder = g.DataFolder;
  standard->Settings = g.Settings;
  try {
    StartVariant(*standard, g.VariantName);
  } catch (...) {
    return false;
  }
  return standard->StartBoard == g.StartBoard && standard->RuleSet.BlackStarts == g.RuleSet.BlackStarts;
}

// A "}" would end the comment early for every reader.
std::string CommentText(std::string comment) {
  for (char& c : comment)
    if (c == '}') c = ')';
  return comment;
}

std::string TagSection(Game& g, bool algebraic, const std::string& today) {
  PdnTags& t = g.Tags;
  std::string text;
  if (!t.Event.empty()) text += TagLine("Event", t.Event);
  if (t.Date.empty()) t.Date = today;
  text += TagLine("Date", t.Date);
  if (!t.Black.empty()) text += TagLine("Black", t.Black);
  if (!t.White.empty()) text += TagLine("White", t.White);
  if (!t.Site.empty()) text += TagLine("Site", t.Site);
  if (g.GameResult.empty()) g.GameResult = "*";
  text += TagLine("Result", g.GameResult);
  if (!RulesAreStandardAmerican(g)) {
    text += TagLine("QVersion", PdnRulesVersion);
    text += TagLine("Quorvanis", RulesTagText(g));
  }
  // For other programs: the variant's number and notation, and a set-up.
  if (const std::string gameType = GameTypeLongForm(g, algebraic); !gameType.empty())
    text += TagLine("GameType", gameType);
  if (!StartsAsTheVariant(g)) {
    text += TagLine("SetUp", "1");
    text += TagLine("FEN", FenText(g, algebraic));
  }
  return text + "\r\n";
}

std::string Movetext(Game& g, bool algebraic) {
  std::string text, line;
  auto add = [&](const std::string& piece) {
    line += piece;
    if (line.size() > LineLimit) {
      text += line + "\r\n";
      line.clear();
    }
  };
  for (int i = 0; i <= g.GameLength && i < RecordSize - 1; ++i) {
    if (i % 2 == 0 && i < g.GameLength) add(std::to_string(i / 2 + 1) + ". ");
    std::string& comment = g.Record.CommentTable[i];
    for (std::size_t at; (at = comment.find("\r\n")) != std::string::npos;) comment.replace(at, 2, "  ");
    if (!comment.empty()) add("{" + CommentText(comment) + "} ");
    if (i < g.GameLength) add(MoveText(g.Record.GameMoves[i + 1], algebraic) + " ");
  }
  line += g.GameResult;
  text += line + "\r\n\r\n";
  return text;
}

}  // namespace

std::string TodayText() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[16];
  std::strftime(text, sizeof text, "%m/%d/%Y", &local);
  return text;
}

std::string PdnGameText(Game& g, const std::string& today) {
  const bool algebraic = WritesAlgebraic(g);
  std::string text = TagSection(g, algebraic, today);
  return text + Movetext(g, algebraic);
}

bool AppendPdnGame(const std::filesystem::path& file, Game& g, std::string& error) {
  std::string content;
  std::error_code code;
  if (std::filesystem::exists(file, code)) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
      error = file.filename().string() + " cannot be read";
      return false;
    }
    content.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  content += PdnGameText(g, TodayText());
  // Written beside the file and renamed over it: the old file stays whole
  // until the new one is.
  std::filesystem::path temp = file;
  temp += ".tmp";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out) {
      std::filesystem::remove(temp, code);
      error = file.filename().string() + " cannot be written";
      return false;
    }
  }
  std::filesystem::rename(temp, file, code);
  if (code) {
    std::filesystem::remove(temp, code);
    error = file.filename().string() + " cannot be written";
    return false;
  }
  return true;
}

}  // namespace qv

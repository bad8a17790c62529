#include "files/gamefile.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <system_error>
#include <vector>

#include "core/fatal.h"
#include "core/movegen.h"
#include "core/newgame.h"
#include "core/replay.h"
#include "core/text.h"
#include "files/variantfile.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

// The rule keys of lines 11 to 48, in the order they are written.
constexpr std::string_view MiddleRuleKeys[] = {
    "PiecesOnBlack", "AntiMode",   "WinAtPromo",   "MaxCapMoveKings", "ManCapKing",    "KingCapMove",
    "ManContJump",   "LongKings",  "RemovePieces", "KingFirst",       "ManCapMoveKing", "KingWin",
    "MaxCapMoveK",   "CapRequired", "NoLegalDraw", "RemoveMen",       "NumberMen",     "DoMoves",
    "NumberMoves",   "LastCap",    "ManKing",      "KingMan",         "ChangeSide",    "ThreeKings",
    "NumberKings",   "CapReverse", "RndColor",     "JumpFriend",      "NumberFriends", "TwoKings",
    "NumberKings2",  "NumberPieces", "canContract", "ContractNumber", "ContractW1",    "ContractW2",
    "ContractB1",    "ContractB2"};

int RuleValue(const RuleRecord& rules, std::string_view name) { return rules.*FindRuleField(name)->member; }

// A game file's promotion line: the used entries in the notation in force,
// two characters each, in capitals.
std::string PromoLine(const PromoTable& promo, int side, int notation) {
  std::string text;
  for (int cell : promo[side])
    if (cell != -1) text += ToUpper(SquareNotation(cell, 0, notation));
  return text;
}

void ReadPromoLine(Game& g, std::string_view text, int side) {
  for (int i = 0; i < PromoSlots; ++i) {
    const std::size_t at = static_cast<std::size_t>(2 * i);
    const std::string_view pair = at < text.size() ? text.substr(at, 2) : std::string_view{};
    const int cell = SquareNumber(pair, g.Settings.NotationKind, g.RuleSet.PiecesOnBlack);
    g.RuleSet.PromoSquares[side][i] = cell == 0 ? -1 : cell;
  }
}

// A failure the format has no words for: the load ends where it stands.
struct SilentEnd {};

int KeyNumber(std::string_view value) {
  try {
    return ValInt(value);
  } catch (const FatalError&) {
    throw SilentEnd{};
  }
}

// Book= is converted strictly: a value that is not a number is a failure.
int StrictNumber(std::string_view value) {
  const std::string text = Trim(value);
  char* end = nullptr;
  const double number = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0') throw SilentEnd{};
  return KeyNumber(std::to_string(number));
}

// A text field of the four movement lines: leading blanks dropped, ended by
// a comma or the line's end.
std::string TextField(const std::string& line) {
  const std::size_t start = line.find_first_not_of(" \t");
  if (start == std::string::npos) return {};
  const std::size_t comma = line.find(',', start);
  return line.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
}

// The lines of the file, without their line ends.
std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

// Each CR LF of a comment as two bytes of value 255, and back.
const std::string CommentBreak = "\xFF\xFF";
void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

// The position of the file's Setup= line made the start position: board,
// men, material and the side that begins.
void ApplyKeptSetup(Game& g, const std::string& setup, int source) {
  if (source != LoadAutosave) g.CustomPosition = 1;
  ReadSetupText(g, setup);
  g.TotalMaterialStart = g.StartMaterial * 100;
  g.ActivityByPly[0] = g.TotalMaterialStart;
  g.Record.ActivitySaved[0] = g.TotalMaterialStart;
  g.RuleSet.BlackStarts = 1;
  if (g.SideToMove != -1) {
    g.MaterialByPly[0] = -g.MaterialByPly[0];
    g.Record.MaterialSaved[0] = -g.Record.MaterialSaved[0];
    g.RuleSet.BlackStarts = 0;
  }
}

// One header line; returns false for "START". `next` walks the lines, for
// the four movement lines after Offset=.
bool ReadHeaderLine(Game& g, const std::vector<std::string>& lines, std::size_t& next, std::string& setup,
                    int source) {
  const std::string& line = lines[next++];
  if (line == "START") return false;
  auto starts = [&line](std::string_view key) { return line.compare(0, key.size(), key) == 0; };
  auto value = [&line](std::string_view key) { return std::string_view(line).substr(key.size()); };

  if (starts("Setup=")) {
    setup = value("Setup=");
  } else if (starts("Book=")) {
    StrictNumber(value("Book="));
  } else if (starts("Variant=")) {
    const std::string_view v = value("Variant=");
    if (!v.empty() && v.front() == '*') {
      g.VariantName = std::string(v.substr(1, v.size() >= 2 ? v.size() - 2 : 0));
    } else {
      // Old files give the number of a classic variant.
      const int n = KeyNumber(v);
      if (n < 1 || n >= static_cast<int>(VariantNumberTable().size())) throw SilentEnd{};
      g.VariantName = std::string(VariantNumberTable()[n]);
    }
  } else if (starts("Notation=")) {
    g.Settings.NotationKind = KeyNumber(value("Notation="));
  } else if (starts("BlackStarts=")) {
    g.RuleSet.BlackStarts = KeyNumber(value("BlackStarts="));
    g.SideToMove = -1;
    if (g.RuleSet.BlackStarts == 0) {
      g.SideToMove = 1;
      g.MaterialByPly[0] = -g.MaterialByPly[0];
      g.Record.MaterialSaved[0] = -g.Record.MaterialSaved[0];
    }
  } else if (starts("PiecesOnBlack=")) {
    g.RuleSet.PiecesOnBlack = KeyNumber(value("PiecesOnBlack="));
    g.VariantDefinition.PiecesOnBlack = g.RuleSet.PiecesOnBlack;
  } else if (starts("UseClassic=")) {
    g.Settings.UseClassic = KeyNumber(value("UseClassic="));
    ReadVariantFile(g);
    ApplyKeptSetup(g, setup, source);
  } else if (starts("PlayerName=")) {
    g.Settings.PlayerName = std::string(value("PlayerName="));
  } else if (starts("PromoW=")) {
    ReadPromoLine(g, value("PromoW="), 0);
  } else if (starts("PromoB=")) {
    ReadPromoLine(g, value("PromoB="), 1);
  } else if (starts("Offset=")) {
    for (int kind = 0; kind < 4; ++kind) {
      if (next >= lines.size()) throw SilentEnd{};
      g.RuleSet.DirText[kind] = TextField(lines[next++]);
      ParseDirections(g.RuleSet.DirText[kind], kind, g.DirTable);
    }
  } else if (starts("NumberFriends=")) {
    // Never applied: the key was always compared on too few characters to match.
  } else {
    for (const RuleField& field : RuleFields()) {
      const std::string key = std::string(field.name) + "=";
      if (starts(key)) {
        g.RuleSet.*field.member = KeyNumber(value(key));
        break;
      }
    }
  }
  return true;
}

// The rules of the header in force: board colour, flags and tables, the
// legal moves of the start position.
void SetUpRules(Game& g) {
  if (g.RuleSet.PiecesOnBlack < 2) AlignBoardColour(g.Board, g.RuleSet.PiecesOnBlack);
  g.ContractLeftWhite = g.RuleSet.ContractNumber;
  g.ContractLeftBlack = g.RuleSet.ContractNumber;
  ScanDirections(g);
  ScanDirectionKinds(g);
  DeriveRuleTables(g);
  g.Ply = 0;
  g.PlyBase[0] = 0;
  GenerateLegalMoves(g);
}

// The names at the board after a load: the side to move plays against the
// computer, or both sides are the player in Player-Player play.
void RestorePlayerNames(Game& g) {
  const std::string& player = g.Settings.PlayerName;
  const int startingSide = g.RuleSet.BlackStarts == 1 ? -1 : 1;
  if (g.Settings.PlayMode == 1) {
    g.FirstPlayerName = player;
    g.SecondPlayerName = player;
  } else if (g.SideToMove == startingSide) {
    g.FirstPlayerName = player;
    g.SecondPlayerName = "Computer";
  } else {
    g.FirstPlayerName = "Computer";
    g.SecondPlayerName = player;
  }
}

// The move lines after "START": comments and moves until an empty line or
// the end of the file.
LoadResult Replay(Game& g, const std::vector<std::string>& lines, std::size_t next, int source, const fs::path& file,
                  LoadResult result) {
  for (; next < lines.size(); ++next) {
    const std::string& line = lines[next];
    if (line.empty()) break;
    if (line.front() == '{') {
      std::string comment = line.substr(1);
      if (!comment.empty() && comment.back() == '}') comment.pop_back();
      ReplaceAll(comment, CommentBreak, "\r\n");
      g.Record.CommentTable[g.HalfMoveCount] = comment;
      continue;
    }
    const ReplayStatus status = PlayRecordedMove(g, line, MoverCodeLoaded);
    // The record holds 500 full moves; the rest of a longer file is left unread.
    if (status == ReplayStatus::RecordFull) break;
    if (status == ReplayStatus::Refused) {
      result.message = ToUpper(line) + ": Illegal move!";
      result.caption = "Error";
      if (source == LoadChosenFile) {
        g.RuleSet.BlackStarts = 1;
        g.CustomPosition = 0;
      }
      NewGame(g);
      return result;
    }
  }
  if (source == LoadDoMoves) {
    std::error_code ec;
    fs::remove(file, ec);
  }
  RestorePlayerNames(g);
  g.CustomPosition = 0;
  g.Ply = 0;
  GenerateLegalMoves(g);
  result.loaded = true;
  return result;
}

}  // namespace

bool IsPdnFile(const fs::path& file) {
  const std::string name = file.filename().string();
  return name.size() >= 3 && ToUpper(name.substr(name.size() - 3)) == "PDN";
}

LoadResult LoadGame(Game& g, const fs::path& file, int source) {
  if (IsPdnFile(file)) return LoadPdnGame(g, file, source);
  return LoadNativeGame(g, file, source);
}

FileWriteResult SaveGame(Game& g, const fs::path& file) {
  if (IsPdnFile(file)) return SavePdnGame(g, file);
  return SaveNativeGame(g, file);
}

std::string NativeGameHeader(const Game& g) {
  const RuleRecord& r = g.RuleSet;
  const int notation = g.Settings.NotationKind;
  std::string text;
  auto line = [&text](const std::string& s) { text += s + "\r\n"; };
  auto number = [&line](std::string_view key, int v) { line(std::string(key) + "=" + std::to_string(v)); };
  line(std::string(GameFileMagic) + GameFileVersion);
  line("Variant=*" + g.VariantName + "*");
  line("Setup=" + BoardSetupText(g.StartBoard));
  number("Book", 1);
  number("Notation", notation);
  number("MulJumps", r.MulJumps);
  number("MaxCapMove", r.MaxCapMove);
  number("BlackStarts", r.BlackStarts);
  line("PromoW=" + PromoLine(r.PromoSquares, 0, notation));
  line("PromoB=" + PromoLine(r.PromoSquares, 1, notation));
  for (std::string_view key : MiddleRuleKeys) number(key, RuleValue(r, key));
  number("UseClassic", g.Settings.UseClassic);
  line("Offset=");
  for (const std::string& dir : r.DirText) line(dir);
  number("ManContJumpCrowned", r.ManContJumpCrowned);
  line("PlayerName=" + g.Settings.PlayerName);
  line("START");
  return text;
}

std::string SavedMoveText(const std::string& recordText) {
  if (recordText.size() >= 3 && recordText[2] != ' ') return recordText.substr(0, 4);
  return recordText.substr(0, 2);
}

std::string NativeGameText(Game& g) {
  std::string text = NativeGameHeader(g);
  for (int k = 0; k < RecordSize; ++k) {
    std::string& comment = g.Record.CommentTable[k];
    if (!comment.empty()) {
      ReplaceAll(comment, "\r\n", CommentBreak);
      text += "{" + comment + "}\r\n";
    }
    const int h = k + 1;
    if (h > g.GameLength || (h + 1) / 2 >= MoveTextRows) break;
    const std::string& move = g.MoveTextTable[(h + 1) / 2][(h + 1) % 2];
    if (move.empty()) break;
    text += SavedMoveText(move) + "\r\n";
  }
  return text;
}

FileWriteResult SaveNativeGame(Game& g, const fs::path& file) { return WriteFileAtomically(file, NativeGameText(g)); }

LoadResult LoadNativeGame(Game& g, const fs::path& file, int source) {
  LoadResult result;
  result.fileName = file.filename().string();
  std::error_code ec;
  if (!fs::is_regular_file(file, ec)) {
    if (source == LoadChosenFile) result.message = result.fileName + " does not exist";
    return result;
  }
  std::string text;
  {
    std::ifstream in(file, std::ios::binary);
    if (!in) return result;
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  const std::string magic = GameFileMagic;
  if (text.compare(0, magic.size(), magic) != 0) {
    result.message = result.fileName + " is not an Quorvanis file";
    return result;
  }
  const std::vector<std::string> lines = SplitLines(text);
  const float version = static_cast<float>(Val(std::string_view(lines[0]).substr(magic.size())));
  if (version != 0.89f) {
    result.message = std::string("Incorrect game file!\r\nNeed version ") + GameFileVersion;
    result.caption = "Error";
    return result;
  }
  // From here on the game is replaced. A file that breaks off before its
  // moves gives the game back as it was.
  const auto before = std::make_unique<Game>(g);
  NewGame(g);
  try {
    std::size_t next = 1;
    std::string setup;
    while (true) {
      if (next >= lines.size()) throw SilentEnd{};
      if (!ReadHeaderLine(g, lines, next, setup, source)) break;
    }
    if (g.RuleSet.PiecesOnBlack == 2) g.Settings.NotationKind = 0;
    MarkModified(g);
    SetUpRules(g);
    result = Replay(g, lines, next, source, file, result);
  } catch (const SilentEnd&) {
    g = *before;
  }
  return result;
}

}  // namespace qv

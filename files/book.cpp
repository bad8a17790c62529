#include "files/book.h"

#include <fstream>

#include "core/fatal.h"
#include "core/text.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view StandardStart = "1010101001010101101010100000000000000000020202022020202002020202";
constexpr int MoveGroupWidth = 5;  // four characters of move, one mark

bool StartsWith(std::string_view line, std::string_view key) { return line.substr(0, key.size()) == key; }

// One line of the book, without the carriage return of a file written on Windows.
bool ReadLine(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) {
    if (in.bad()) throw FatalError(BookFileError);
    return false;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

struct MovementKey {
  std::string_view key;
  int kind;
};
constexpr MovementKey MovementKeys[] = {{"WhiteManMovement=", KindWhiteMan},
                                        {"BlackManMovement=", KindBlackMan},
                                        {"WhiteKingMovement=", KindWhiteKing},
                                        {"BlackKingMovement=", KindBlackKing}};

// Reads the rule lines of the sections until one matches the game at its
// "start" line. False at the end of the file.
bool FindSection(std::istream& in, const Game& g) {
  const RuleRecord& rules = g.RuleSet;
  const std::string start = BoardSetupText(g.StartBoard);
  const bool american = g.Settings.AmericanBookForOthers == 1;
  DirectionTable directions = DefaultDirTable();
  std::string keptVariant;
  bool match = false;
  std::string line;
  while (ReadLine(in, line)) {
    if (StartsWith(line, "Variant=")) {
      keptVariant = line;
      match = line.substr(8) == g.LoadedVariantName;
      continue;
    }
    if (StartsWith(line, "Setup=")) {
      if (line.substr(6) != start) match = false;
      continue;
    }
    if (StartsWith(line, "PromoW=") || StartsWith(line, "PromoB=")) {
      const int side = line[5] == 'W' ? 0 : 1;
      PromoTable promo = rules.PromoSquares;
      ReadPromoSquaresText(ToUpper(line.substr(7)), promo, side, rules.PiecesOnBlack);
      if (!(promo[side] == rules.PromoSquares[side])) match = false;
      continue;
    }
    bool movement = false;
    for (const MovementKey& m : MovementKeys)
      if (StartsWith(line, m.key)) {
        ParseDirections(std::string_view(line).substr(m.key.size()), m.kind, directions);
        movement = true;
      }
    if (movement) continue;
    if (const std::size_t equals = line.find('='); equals != std::string::npos) {
      if (const RuleField* field = FindRuleField(std::string_view(line).substr(0, equals)))
        if (ValInt(std::string_view(line).substr(equals + 1)) != rules.*field->member) match = false;
      continue;
    }
    if (line != "start") continue;
    if (!(directions == g.DirTable)) match = false;
    if (american)
      match = keptVariant == "Variant=American Checkers" && start == StandardStart && rules.AntiMode == 0 &&
              rules.PiecesOnBlack == 1;
    if (match) return true;
  }
  return false;
}

std::string TwoDigits(int n) { return n < 10 ? "0" + std::to_string(n) : std::to_string(n); }

std::string BookSquare(int cell, int piecesOnBlack) {
  if (cell == DropSource) return "00";
  if (piecesOnBlack >= 2) return SquareNotation(cell, 1, 0);
  return TwoDigits(ValInt(SquareNotation(cell, 1, 1)));
}

int CellOfBookSquare(std::string_view text, int piecesOnBlack) {
  if (piecesOnBlack >= 2) return SquareNumber(ToUpper(text), 0, piecesOnBlack);
  return SquareNumber(std::to_string(ValInt(text)), 1, piecesOnBlack);
}

// The game as the book writes it: its moves in book form joined by blanks;
// a game played from the other side of the American book is turned round.
std::string OpeningKey(const Game& g, int halfMoves, bool mirrored) {
  std::string key;
  const int pob = g.RuleSet.PiecesOnBlack;
  for (int n = 1; n <= halfMoves && n < RecordSize; ++n) {
    const MoveRecord& move = g.Record.GameMoves[n];
    int from = move.FromSquare, to = move.ToSquare;
    if (mirrored) {
      if (from != DropSource) from = MirrorSquare(from);
      to = MirrorSquare(to);
    }
    if (!key.empty()) key += ' ';
    key += BookSquare(from, pob) + BookSquare(to, pob);
  }
  return key;
}

// The full line of a prefix-compressed one: the blanks in front stand for
// that many characters of the line before.
std::string ExpandLine(const std::string& kept, const std::string& raw) {
  const std::size_t first = raw.find_first_not_of(' ');
  if (first == std::string::npos) return kept;
  std::string full = kept;
  if (full.size() < first) full.resize(first, ' ');
  return full.substr(0, first) + raw.substr(first);
}

// Every move of the key stands in the line at its place.
bool LineContains(const std::string& full, const std::string& key) {
  for (std::size_t i = 0; i < key.size(); i += MoveGroupWidth)
    if (full.size() < i + 4 || full.compare(i, 4, key, i, 4) != 0) return false;
  return true;
}

void SwapSideMarks(std::string& line) {
  for (char& c : line) c = c == 'b' ? 'w' : (c == 'w' ? 'b' : c);
}

void AddCandidate(BookAnswer& answer, std::string move) {
  if (static_cast<int>(answer.BookCandidates.size()) >= BookCandidateSlots) throw FatalError(BookFileError);
  answer.BookCandidates.push_back(std::move(move));
}

std::string MirroredMove(const std::string& move, int piecesOnBlack) {
  const int from = CellOfBookSquare(move.substr(0, 2), piecesOnBlack);
  const int to = CellOfBookSquare(move.substr(2, 2), piecesOnBlack);
  return BookSquare(MirrorSquare(from), piecesOnBlack) + BookSquare(MirrorSquare(to), piecesOnBlack);
}

// A name line: the moves, then the name between single quotes.
// The last line whose moves begin the key gives the name.
void ReadNames(std::istream& in, const std::string& key, BookAnswer& answer) {
  std::string line;
  while (ReadLine(in, line) && line != "end") {
    const std::size_t quote = line.find('\'');
    if (quote == std::string::npos || line.size() < quote + 2) throw FatalError(BookFileError);
    if (key.compare(0, quote, line, 0, quote) == 0)
      answer.OpeningName = line.substr(quote + 1, line.size() - quote - 2);
  }
}

}  // namespace

int MirrorSquare(int cell) { return (11 - cell / 10) * 10 + (9 - cell % 10); }

fs::path BookPath(const Game& g) {
  const std::string name = g.Settings.AmericanBookForOthers == 1 ? "American Checkers" : g.VariantName;
  return g.DataFolder / "books" / (name + ".bok");
}

std::string BookMoveText(int fromCell, int toCell, int piecesOnBlack) {
  return BookSquare(fromCell, piecesOnBlack) + BookSquare(toCell, piecesOnBlack);
}

BookAnswer BookLookup(const Game& g, int mode, RandomSource& random) {
  return BookLookup(g, mode, random, g.HalfMoveCount);
}

BookAnswer BookLookup(const Game& g, int mode, RandomSource& random, int halfMoves) {
  BookAnswer answer;
  if (g.DataFolder.empty()) return answer;
  std::ifstream in(BookPath(g), std::ios::binary);
  if (!in) return answer;  // no book: nothing to say

  std::string line;
  if (!ReadLine(in, line) || !StartsWith(line, BookHeader)) {
    answer.MessageCaption = "Quorvanis";
    answer.MessageText = g.VariantName + ".BOK" + " is not an Quorvanis Book file";
    return answer;
  }
  if (static_cast<float>(Val(std::string_view(line).substr(std::string_view(BookHeader).size()))) != 0.89f) {
    answer.MessageCaption = "Error";
    answer.MessageText = "Incorrect version of " + g.VariantName + ".BOK" + "\r\n" + "Need version " + BookVersion;
    return answer;
  }
  if (!FindSection(in, g)) return answer;

  const int pob = g.RuleSet.PiecesOnBlack;
  const bool mirrored = g.RuleSet.BlackStarts == 0 && g.Settings.AmericanBookForOthers == 1;
  std::string key = OpeningKey(g, halfMoves, mirrored);
  const char side = g.SideToMove == 1 ? 'w' : 'b';

  std::string kept;
  bool names = false;
  while (ReadLine(in, line)) {
    if (line == "names") {
      names = true;
      break;
    }
    if (line == "end") break;
    if (mirrored) SwapSideMarks(line);
    // The move a line proposes at the key's end: on a line that only
    // inherits that group from the line before, the raw text is blank there.
    std::size_t at = 0;
    if (!key.empty()) {
      kept = ExpandLine(kept, line);
      if (!LineContains(kept, key)) continue;
      answer.InBook = 1;
      at = key.size() + 1;
    }
    if (line.size() >= at + MoveGroupWidth && line[at + 4] == side)
      AddCandidate(answer, mirrored ? MirroredMove(line.substr(at, 4), pob) : line.substr(at, 4));
  }

  // Candidates are kept as the game plays them; the key stays in the book's form.
  if (!answer.BookCandidates.empty() && mode == 1) {
    const auto count = static_cast<double>(answer.BookCandidates.size());
    const std::string chosen = answer.BookCandidates[static_cast<std::size_t>(Int(random.Rnd() * count))];
    key += (key.empty() ? "" : " ") + (mirrored ? MirroredMove(chosen, pob) : chosen);
    answer.BookMoveFrom = CellOfBookSquare(chosen.substr(0, 2), pob);
    answer.BookMoveTo = CellOfBookSquare(chosen.substr(2, 2), pob);
  }
  if (names) ReadNames(in, key, answer);
  return answer;
}

}  // namespace qv

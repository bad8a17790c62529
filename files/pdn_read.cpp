#include "files/pdn_read.h"

#include <cctype>

#include "core/fatal.h"
#include "core/makemove.h"
#include "core/newgame.h"
#include "core/text.h"
#include "files/pdn_gametype.h"
#include "files/pdn_movetext.h"
#include "files/pdn_replay.h"
#include "files/pdn_rulestag.h"

namespace qv {

namespace {

constexpr const char* IllegalSetupText = "Illegal Setup!";
constexpr const char* LoadErrorText = "Error in loading PDN file!";
constexpr std::string_view StandardSetup = "1010101001010101101010100000000000000000020202022020202002020202";

bool IsLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

// The American rules of a game that names none.
void UseAmericanRules(Game& g) {
  g.VariantName = "American Checkers";
  g.RuleSet = RuleRecord{};
  BuildDirTable(g);
  g.CustomPosition = 0;
  NewGame(g);
}

// A new game of the rules in force, as after a refused load.
void ResetAfterFailure(Game& g, int source) {
  if (source == 0) g.RuleSet.BlackStarts = 1;
  g.CustomPosition = 0;
  NewGame(g);
  g.SideToMove = g.RuleSet.BlackStarts == 1 ? -1 : 1;
}

// The cell a square text names: algebraic when it begins with a letter, else
// a number of the 32 squares.
int CellOfSquare(const Game& g, const std::string& square) {
  if (square.empty()) return 0;
  if (IsLetter(square[0])) return SquareNumber(ToUpper(square), 0, g.RuleSet.PiecesOnBlack);
  for (char c : square)
    if (!std::isdigit(static_cast<unsigned char>(c))) return 0;
  return SquareNumber(square, 1, g.RuleSet.PiecesOnBlack);
}

std::string PaddedSquare(int cell, int notationKind) {
  std::string text = ToUpper(SquareNotation(cell, 1, notationKind));
  if (text.size() == 1) text = " " + text;
  return text;
}

// The MoveText of a move as the file wrote it, in the notation in force, so
// that numeric movetext plays in an algebraic game and the reverse. Empty
// when a square is no square.
std::string MoveTextOfToken(const Game& g, const std::string& token) {
  const PdnMoveSquares squares = NormalMoveSquares(token);
  const int from = CellOfSquare(g, squares.From);
  if (from == 0) return {};
  const int kind = g.Settings.NotationKind;
  if (squares.To.empty()) return PaddedSquare(from, kind);
  const int to = CellOfSquare(g, squares.To);
  if (to == 0) return {};
  return PaddedSquare(from, kind) + PaddedSquare(to, kind);
}

// Places one colour's list of a FEN; false for a square that is none.
bool PlaceFenList(Game& g, std::string_view list, int side) {
  while (!list.empty()) {
    const std::size_t comma = list.find(',');
    std::string token = Trim(list.substr(0, comma));
    list = comma == std::string_view::npos ? std::string_view{} : list.substr(comma + 1);
    if (token.empty()) continue;
    int worth = 1;
    if (token[0] == 'K' || token[0] == 'k') {
      worth = 2;
      token.erase(0, 1);
    }
    int first = 0, last = 0;
    if (!token.empty() && IsLetter(token[0])) {
      first = last = SquareNumber(ToUpper(token.substr(0, 2)), 0, g.RuleSet.PiecesOnBlack);
      if (first == 0) return false;
      g.Board[first] = worth * side;
      continue;
    }
    // A number, or a range of numbers such as "1-12".
    const std::size_t dash = token.find('-');
    first = ValInt(token.substr(0, dash));
    last = dash == std::string::npos ? first : ValInt(token.substr(dash + 1));
    if (first < 1 || last > 32 || first > 32 || last < first) return false;
    for (int n = first; n <= last; ++n) {
      const int cell = SquareNumber(std::to_string(n), 1, g.RuleSet.PiecesOnBlack);
      if (cell == 0) return false;
      g.Board[cell] = worth * side;
    }
  }
  return true;
}

// The movetext of the game: comments stored, moves played. Returns the
// refusal's message, empty when every move was accepted.
std::string ReplayMovetext(Game& g, const PdnMovetext& movetext, bool variantChosen, PdnLoadResult& result) {
  bool first = true;
  for (const PdnMovetextItem& item : movetext.Items) {
    if (!item.Comment.empty()) {
      StoreLoadedComment(g, item.Comment);
      result.HadComments = true;
      continue;
    }
    if (first && variantChosen && g.RuleSet.PiecesOnBlack != 2)
      g.Settings.NotationKind = IsLetter(item.Move[0]) ? 0 : 1;
    first = false;
    const std::string moveText = MoveTextOfToken(g, item.Move);
    std::vector<int> path;
    for (const std::string& square : NormalMoveSquares(item.Move).Path) path.push_back(CellOfSquare(g, square));
    if (moveText.empty() || !ReplayLoadedCapture(g, moveText, path)) return ToUpper(item.Move) + ": Illegal move!";
    ++result.Moves;
  }
  return {};
}

}  // namespace

bool OpeningsApply(const Game& g) {
  return BoardSetupText(g.StartBoard) == StandardSetup && g.RuleSet.AntiMode == 0 && g.RuleSet.PiecesOnBlack == 1 &&
         g.RuleSet.BlackStarts == 1;
}

bool ApplyPdnFen(Game& g, std::string_view fen) {
  const std::string upper = ToUpper(Trim(fen));
  if (upper == "W::.") return false;
  int side = 0;
  if (upper.starts_with("W:")) side = 1;
  else if (upper.starts_with("B:")) side = -1;
  else return false;
  for (int cell = 0; cell < 120; ++cell)
    if (!IsFrameCell(cell)) g.Board[cell] = 0;
  std::string_view rest = std::string_view(fen).substr(fen.find(':') + 1);
  while (!rest.empty()) {
    const int colour = (rest[0] == 'W' || rest[0] == 'w') ? 1 : -1;
    rest.remove_prefix(1);
    std::size_t end = rest.find(':');
    std::string_view list = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    // A "." ends the whole text.
    if (const std::size_t dot = list.find('.'); dot != std::string_view::npos) {
      list = list.substr(0, dot);
      rest = {};
    }
    if (!PlaceFenList(g, list, colour)) return false;
  }
  g.SideToMove = side;
  AdoptBoardPosition(g);
  return true;
}

PdnLoadResult ReadPdnGame(Game& g, const PdnCollection& collection, int gameNumber, const PdnLoadChoice& choice) {
  PdnLoadResult result;
  if (gameNumber < 1 || gameNumber > static_cast<int>(collection.Games.size())) {
    result.Message = LoadErrorText;
    return result;
  }
  const PdnGameEntry& entry = collection.Games[static_cast<std::size_t>(gameNumber - 1)];
  const PdnTags& tags = entry.Tags;
  try {
    if (collection.TagsAfterLast.RulesTag.empty() && !choice.OpenAs.empty() && choice.OpenAs != "DEFAULT") {
      StartVariant(g, choice.OpenAs);
      result.VariantChosen = true;
    }
    if (!tags.RulesTag.empty()) {
      ApplyRulesTag(g, tags.RulesTag, Val(collection.QVersionValue));
    } else if (!tags.GameType.empty()) {
      const std::string named = GameTypeVariant(ParseGameType(tags.GameType).Type);
      StartVariant(g, named.empty() ? g.VariantName : named);
      result.VariantChosen = true;
    } else if (choice.Source == 0 && !result.VariantChosen) {
      UseAmericanRules(g);
    } else if (!result.VariantChosen) {
      g.CustomPosition = 0;
      NewGame(g);
    }
    g.ContractLeftWhite = g.RuleSet.ContractNumber;
    g.ContractLeftBlack = g.RuleSet.ContractNumber;

    if (tags.SetUp == "1" || !tags.Fen.empty()) {
      if (!ApplyPdnFen(g, tags.Fen)) {
        ResetAfterFailure(g, choice.Source);
        result.Status = PdnLoadStatus::IllegalSetup;
        result.Message = IllegalSetupText;
        return result;
      }
    }

    const PdnMovetext movetext = ParsePdnMovetext(entry.Movetext);
    const std::string refusal = ReplayMovetext(g, movetext, result.VariantChosen, result);
    if (!refusal.empty()) {
      ResetAfterFailure(g, choice.Source);
      result.Status = PdnLoadStatus::IllegalMove;
      result.Message = refusal;
      return result;
    }
  } catch (const FatalError&) {
    // A variant the tags name but this program does not have.
    ResetAfterFailure(g, choice.Source);
    result.Status = PdnLoadStatus::Failed;
    result.Message = LoadErrorText;
    return result;
  }
  g.Tags = tags;
  g.GameResult = tags.Result == "*" ? std::string() : tags.Result;
  g.CustomPosition = 0;
  result.StatusText = tags.ResultShown + (result.HadComments ? "" : ";  no comments");
  result.Status = PdnLoadStatus::Loaded;
  return result;
}

}  // namespace qv

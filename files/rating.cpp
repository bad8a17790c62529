#include "files/rating.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "core/text.h"
#include "files/write_replacing.h"

namespace qv {

namespace {

constexpr int LowestComputerRating = 700;  // the computer's rating at level 0
constexpr int RatingPerLevel = 100;
// A computer move valued this much or more: it stood two men ahead.
constexpr int ClearAdvantage = 200;

// The code of the first row whose mover code in `column` is not "loaded".
// Rows past the game are empty, so a game of loaded moves only gives "".
std::string FirstPlayingMover(const Game& g, int column) {
  for (int pair = 1; pair < MoveTextRows; ++pair) {
    const std::string& code = g.MoveTextTable[pair][column];
    if (code != "3") return code;
  }
  return {};
}

int SixteenBits(int value) { return std::clamp(value, -32768, 32767); }

}  // namespace

std::optional<std::string> ScrambleRating(std::string_view digits) {
  std::string out;
  for (char c : digits) {
    if (c < '0' || c > '9') return std::nullopt;
    out += RatingKey[static_cast<std::size_t>(c - '0')];
  }
  return out;
}

std::string UnscrambleRating(std::string_view text) {
  std::string out;
  for (char c : text) {
    const std::size_t p = RatingKey.find(c);
    out += p == std::string_view::npos ? '/' : static_cast<char>('0' + p);
  }
  return out;
}

int ReadRating(const std::filesystem::path& file) {
  std::ifstream in(file);
  std::string line;
  if (!in || !std::getline(in, line)) return FirstRating;
  // One field: up to a comma, without the blanks around it.
  const std::string field = Trim(line.substr(0, line.find(',')));
  const std::string digits = UnscrambleRating(field);
  if (digits.empty() || digits[0] < '0' || digits[0] > '9') return FirstRating;
  return ValInt(digits);
}

bool WriteRating(const std::filesystem::path& file, int rating) {
  const std::optional<std::string> line = ScrambleRating(Trim(Str(rating)));
  if (!line) return false;
  return WriteReplacing(file, *line + "\r\n");
}

int RatingFactor(int playerRating) {
  if (playerRating < 2000) return 30;
  if (playerRating <= 2400) return ToInt32(130 - playerRating / 20.0);
  return 10;
}

double ExpectedScore(int playerRating, int computerRating) {
  return 1 / (1 + std::pow(10.0, -(playerRating - computerRating) / 400.0));
}

void UpdateRating(Game& g, double score) {
  RatingState& r = g.Rating;
  r.RatingMessage.clear();
  if (g.Settings.UseRating == 0) return;
  r.RatingValid = 1;
  const std::string first = FirstPlayingMover(g, FirstMoverCode);
  const std::string second = FirstPlayingMover(g, SecondMoverCode);
  if (first != "1" && second != "1") r.RatingValid = 0;
  // The computer playing itself is no game of the player's either.
  if (first == "1" && second == "1") r.RatingValid = 0;

  // Every move must have been made by the same mover throughout (loaded moves
  // aside); the computer's levels are averaged.
  double levelSum = 0;
  int levelCount = 0;
  for (int k = 1; k <= g.HalfMoveCount && r.RatingValid == 1; ++k) {
    const auto& row = g.MoveTextTable[(k + 1) / 2];
    const bool firstMover = k % 2 == 1;
    const std::string& code = row[firstMover ? FirstMoverCode : SecondMoverCode];
    const std::string& expected = firstMover ? first : second;
    if (code != "3" && code != expected) {
      if (!code.empty()) r.RatingValid = 0;
      break;
    }
    // The second mover's turn tests the first mover's column here: kept so.
    const std::string& summingCode = firstMover ? code : row[FirstMoverCode];
    if (summingCode != "3" && expected == "1") {
      levelSum += Val(row[MoveLevel]);
      ++levelCount;
    }
  }
  if (r.RatingValid == 0) return;

  if (score == 1.0) r.RatingMessage = GameComment(g);
  const double average = levelCount > 0 ? levelSum / levelCount : 1;
  r.ComputerRating = Int(average * RatingPerLevel) + LowestComputerRating;
  const int old = r.PlayerRating;
  const double expected = ExpectedScore(old, r.ComputerRating);
  r.PlayerRating = SixteenBits(ToInt32(RatingFactor(old) * (score - expected) + old));
  r.RatingMessage += "\r\n\r\nYour previous rating was" + Str(old) + "\r\nThe computers' rating in this game was" +
                     Str(r.ComputerRating) + "\r\n\r\nYour new rating is" + Str(r.PlayerRating);
}

std::string GameComment(const Game& g) {
  const int n = g.HalfMoveCount;
  for (int k = n % 2 == 0 ? 1 : 2; k <= n && k < RecordSize; k += 2)
    if (g.Record.LegalCountHistory[k] > 1 && g.ScoreHistory[k] >= ClearAdvantage) return "  Good game";
  return "  Great game";
}

std::string RatingBoxText(int playerRating) { return "Your currrent rating is" + Str(playerRating); }

}  // namespace qv

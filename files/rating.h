#pragma once
// The player's rating: kept across runs in quorvanis.rtg, one line of digits
// scrambled by a key so that it isn't edited casually, and moved after each
// game against the computer by the result, the strength the computer played
// at and a K factor.
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/game.h"

namespace qv {

inline constexpr const char* RatingFileName = "quorvanis.rtg";
// Position k (from 1) of the key stands for the digit k - 1.
inline constexpr std::string_view RatingKey = "QZ4N8WTRLM";

// Each digit replaced by its key character. A character that is no digit
// (a minus sign) cannot be encoded: no result.
std::optional<std::string> ScrambleRating(std::string_view digits);
// Each key character back to its digit; any other character becomes "/",
// where reading the number stops.
std::string UnscrambleRating(std::string_view text);

// The rating in `file`; FirstRating when it is missing or holds no number.
int ReadRating(const std::filesystem::path& file);
// Writes the rating as one scrambled line. False when it cannot be encoded
// (a negative rating) or written; the old file then stays as it was.
bool WriteRating(const std::filesystem::path& file, int rating);

// The K factor: 30 below 2000, falling from 30 to 10 up to 2400, then 10.
int RatingFactor(int playerRating);
// The player's expected score against the computer's rating.
double ExpectedScore(int playerRating, int computerRating);

// At the end of a game: score 1 the player won, 0.5 a draw, 0 a loss. Moves
// PlayerRating when one person played the computer throughout, and writes
// RatingMessage (empty when nothing moved).
void UpdateRating(Game& g, double score);

// The words for a won game: "  Good game" when the computer once stood well
// with a choice of moves, else "  Great game".
std::string GameComment(const Game& g);

// The box of the rating command.
std::string RatingBoxText(int playerRating);

}  // namespace qv

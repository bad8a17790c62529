#pragma once
// The player's Elo-style rating and what the last rated game said about it.
#include <string>

namespace qv {

inline constexpr int FirstRating = 1200;  // a first run, or a rating file that cannot be read

struct RatingState {
  int PlayerRating = FirstRating;
  int ComputerRating = 0;  // the computer's strength in the last rated game
  int RatingValid = 1;     // 0: the last game was not one person against the computer
  std::string RatingMessage;  // CR LF separated, shown after the words of a game's end
};

}  // namespace qv

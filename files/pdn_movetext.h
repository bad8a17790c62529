#pragma once
// The movetext of a PDN game: moves, move numbers, comments and the result.
#include <string>
#include <vector>

namespace qv {

// One step of a movetext: a comment to store at the current half-move, or a move.
struct PdnMovetextItem {
  std::string Comment;  // several comments in a row are joined by CR LF
  std::string Move;     // the move as the file wrote it, such as "11-15" or "c3xe5"
};

struct PdnMovetext {
  bool SecondMoverFirst = false;  // the text began "1. ..."
  std::vector<PdnMovetextItem> Items;
};

// Reads the lines of a movetext: "{...}" comments (also over several lines),
// move numbers ("12.", "12...", or glued to the move as "12.32-28"), "1. ..."
// starts, results ("1-0", "0-1", "1/2-1/2", "2-0", "0-2", "1-1", "*") which end
// the game, and moves. Variations in parentheses, ";" comments to the end of
// a line and "$" annotations are passed over.
PdnMovetext ParsePdnMovetext(const std::vector<std::string>& lines);

// The first and last square of a move, intermediate squares dropped:
// "11x18x25" gives "11" and "25", "c3:e5" gives "c3" and "e5". Marks such as
// "!", "?" or "*" behind the move are dropped. A drop names one square: To
// stays empty. Both empty when the text is no move.
struct PdnMoveSquares {
  std::string From;
  std::string To;
  std::vector<std::string> Path;  // every square written, from first to last
};
PdnMoveSquares NormalMoveSquares(const std::string& move);

}  // namespace qv

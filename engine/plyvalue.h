#pragma once
// The ply value table: each legal move, the position after it searched at
// rising depths, the change of value between depths; large changes and lines
// full of captures mark combinations, so the table doubles as a finder of
// problems.
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/game.h"

namespace qv {

// The sorts of the table, by their index in the window's sort box.
inline constexpr std::array<const char*, 5> PlyValueSortNames = {"Best difference", "Both difference", "Best value",
                                                                  "Most time", "Combinations/Problems"};
enum PlyValueSort { SortBestDifference, SortBothDifference, SortBestValue, SortMostTime, SortCombinations };

inline constexpr int PlyValueDepthLowest = 1, PlyValueDepthHighest = 20;

// One row: a move of the position and what the passes found after it. The
// values are from the view of the side that replies to the move.
struct PlyValueRow {
  std::string move;         // TableMove: the move as listed
  std::vector<int> values;  // PlyValues: the best score of pass 1, 2, ...
  int diff = 0;             // TableDiff: the last pass's value minus pass 2's
  int seconds = 0;          // TableTime
  std::string line;         // TableLine: the best reply and the line after it
  int problem = 0;          // ProblemFlag: 1 marks a combination
};

struct PlyValueTable {
  int depth = 0;                 // PlyValueDepth
  std::vector<PlyValueRow> rows;  // the rows done, in the order they were searched
  int moveCount = 0;             // the legal moves of the position
  bool cancelled = false;
};

// What the window follows while the table is searched: the row about to be
// searched (for the progress bar) and the label of each new best line.
struct PlyValueWatch {
  std::function<void(int row, int count)> rowStarted;
  std::function<void(const std::string& label)> newBest;
};

// Searches the table for g's position to `depth` passes (clamped to 1..20).
// g is the caller's own copy and is left as it was found. Cancel: set
// g.StopRequest to 1; the row under way is left out.
PlyValueTable SearchPlyValueTable(Game& g, int depth, const PlyValueWatch& watch = {});

// The rows in the order of a sort, starting from the search's order each time
// (an exchange over all pairs, highest first); "Combinations/Problems" keeps
// only the rows marked.
std::vector<PlyValueRow> SortPlyValueRows(const std::vector<PlyValueRow>& rows, int sort);

// The table as the window shows it, in a fixed-pitch font: header, the rule,
// one line a row, CR LF at each end of line.
std::string PlyValueText(const PlyValueTable& table, int sort);

// The sort of a name ("best-difference", "Best difference", "4"...), -1 if none.
int PlyValueSortFromName(const std::string& name);

}  // namespace qv

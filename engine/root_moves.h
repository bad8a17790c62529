#pragma once
// The steps every root loop shares, the computer's turn, the analysis, the
// hint and the ply value table alike: the root moves kept apart from the
// stack the search overwrites, a root move made and taken back, the draw
// tests of the line so far, the order of the root moves, and a guard that
// gives the caller back its game as it handed it over.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "core/game.h"

namespace qv {

// A root move's entry before the search has reached it.
inline constexpr int NotScored = -32767;

struct RootScore {
  int From = NotScored;
  int To = NotScored;
  int Score = NotScored;
};

// The legal moves of the position after CommitRootPly, mode 0 and then mode 1
// when none came, copied off the stack.
std::vector<MoveRecord> GenerateRootMoves(Game& g);

// Plays root move i, copied back onto the stack first, and notes in
// LineDrawn whether the line so far repeats a position of the game or runs
// out the move limit (searchRootCount is HalfMoveCount at the root). The mark
// lasts through every search of the move and ends when it is taken back.
void MakeRootMove(Game& g, const std::vector<MoveRecord>& roots, int i, int searchRootCount);
void UndoRootMove(Game& g);

// The score of the made root move: a line that repeats or runs out the move
// limit scores as a draw.
inline int DrawnOr(const Game& g, int score) { return g.LineDrawn >= 1 ? 0 : score; }

// A new best goes to the front, the moves before it shift down by one.
template <class T>
void MoveToFront(std::vector<T>& rows, int i);

// RootInfo's rows from the root moves, every score not yet computed.
std::vector<RootScore> FreshRootInfo(const std::vector<MoveRecord>& roots);

// Highest score first, by exchanges over all pairs: equal scores keep no
// particular order.
void SortRootScores(std::vector<RootScore>& rows);

// Narrows the root moves to the book's move (BookMoveFrom, BookMoveTo) when it
// is among them: one root move, searched to depth 1. A book move that is not
// legal is forgotten (BookMoveFrom 0). True when the book move stands.
bool NarrowToBookMove(Game& g, std::vector<MoveRecord>& roots, int& depthLimit);

// The main line of the last root decision (row 0 of PVTable) as move texts.
std::string MainLineText(const Game& g);

// Keeps what a search over the game changes (the position, the move stack,
// the per-ply tables, the record and its texts, the counters the draw tests
// use) and puts it back when it goes out of scope. StopRequest is left alone:
// a Cancel that arrives meanwhile is not lost.
class GameKeeper {
 public:
  explicit GameKeeper(Game& g);
  ~GameKeeper();
  GameKeeper(const GameKeeper&) = delete;
  GameKeeper& operator=(const GameKeeper&) = delete;

 private:
  Game& g_;
  struct Saved;
  std::unique_ptr<Saved> saved_;
};

template <class T>
void MoveToFront(std::vector<T>& rows, int i) {
  if (i > 0) std::rotate(rows.begin(), rows.begin() + i, rows.begin() + i + 1);
}

}  // namespace qv

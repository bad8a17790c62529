#pragma once
// Opening books: one text file per variant, "books/<variant>.bok" in the data
// folder. A book holds sections, each for one exact rule set and start
// position; a section is a tree of move lines written with prefix
// compression, then the names of the openings. The file is read from the
// start at every lookup; nothing is cached.
#include <filesystem>
#include <string>
#include <vector>

#include "core/game.h"
#include "core/random.h"

namespace qv {

inline constexpr const char* BookHeader = "QUORVANIS Version=";
inline constexpr const char* BookVersion = "0.89";
// The most moves one node of a book may propose; one more is a fatal error.
inline constexpr int BookCandidateSlots = 11;
inline constexpr const char* BookFileError = "Error found! Quorvanis will exit";

// What one lookup found.
struct BookAnswer {
  int BookMoveFrom = 0;  // cells of the chosen move (mode 1), 0 for none
  int BookMoveTo = 0;
  int InBook = 0;        // the moves so far are a line of the book
  std::string OpeningName;
  // The moves proposed to the side to move, in book form and as the game
  // plays them (turned round when the American book serves a game that
  // White begins).
  std::vector<std::string> BookCandidates;
  // A refusal to show the user (a file that is no book, or of another
  // version): caption and text; both empty when there is none.
  std::string MessageCaption;
  std::string MessageText;
};

// A half turn of the board: the square seen from the other side.
int MirrorSquare(int cell);

// The book a game reads: its variant's, or the American one for every
// variant when AmericanBookForOthers is on.
std::filesystem::path BookPath(const Game& g);

// Looks the game's first `halfMoves` moves up in its book. Mode 1 also
// chooses one of the proposed moves at random (all equally likely) and gives
// its cells; mode 0 only answers whether the game is in the book, what is
// proposed and the opening's name. No book file: an empty answer. A broken
// book throws FatalError(BookFileError).
BookAnswer BookLookup(const Game& g, int mode, RandomSource& random, int halfMoves);
// The same for the whole game so far.
BookAnswer BookLookup(const Game& g, int mode, RandomSource& random);

// A move in book form: the two squares as numbers, each two digits wide
// ("0914"), or in algebraic form ("a3b4") on boards that use all 64 squares.
std::string BookMoveText(int fromCell, int toCell, int piecesOnBlack);

}  // namespace qv

#pragma once
// Applying moves: the one make and unmake operation of game and search, the
// door through which a move given as text reaches the board, and the small
// bookkeeping that follows a move.
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"

namespace qv {

// Plays MoveStack[index] on Board with every rule it carries and keeps the
// per-ply material, activity and capture tables.
void MakeSearchMove(Game& g, int index);
// Takes MoveStack[index] back; must follow the MakeSearchMove of the same move.
void UndoSearchMove(Game& g, int index);

// Finds the legal move of a MoveText (two characters of source, two of target,
// upper case; the target may be left out) and plays it: -1 accepted, 0 not.
int FindMove(Game& g, std::string_view moveText);

// Turns a typed or listed move into a MoveText: "C3XD4" -> "C3D4",
// "9-14" -> "9 14". The caller upper-cases first.
std::string ParseMoveText(std::string_view text, std::string_view captureChar);

// Ply 1 becomes ply 0.
void CommitRootPly(Game& g);
void UpdateManThresholds(Game& g);

// The position as a text of three digits a piece (cell, then 1 white man,
// 2 white king, 3 black man, 4 black king); the side to move is not in it.
std::string PositionKey(const Game& g);
void CountRepetitions(Game& g, int upto);
void CheckMoveLimit(Game& g, int upto);
// The half-moves the move limit allows, by FiftyMoveKind.
int MoveLimit(int fiftyMoveKind);

void SwapPlayerNames(Game& g);

// "c3-d4", "c3xe5", "c3-d4K", "d4" for a drop, in the notation in use.
std::string MoveLabel(const Game& g, const MoveRecord& move);
// The cells of the captured pieces in the order of the jumps.
std::vector<int> CapturedCells(const MoveRecord& move);

}  // namespace qv

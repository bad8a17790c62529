#pragma once
// The end of a game: draw reasons, whether the game is over, and the result.
#include <string>

#include "core/game.h"

namespace qv {

class DriverUi;

// After every move that enters the game: the repetition, move-limit and
// king-count draw reasons.
void UpdateDrawReason(Game& g);

// Declares the end of the game when the rules say so; silent only fills GameNote.
void CheckGameEnd(Game& g, DriverUi& ui, int silent);

// GameResult: "1-0" the side that began wins, "0-1" the other, "1/2-1/2".
void ResultText(Game& g, int kind);
void ReportDraw(Game& g, DriverUi& ui, int silent);
// The words of a draw by DrawReason.
std::string DrawText(int drawReason);

// 1 when the player plays the side named "white" or "black".
int PlayerIsSide(const Game& g, const std::string& colourWord);

// Enters MoveStack[index], just made, into the game record and MoveTextTable.
void EnterMoveInRecord(Game& g, int index, int legalCount);

}  // namespace qv

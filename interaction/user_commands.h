#pragma once
// The commands and hooks around the user's own files: the rating (its box,
// and its update at the end of a game), the game log, and the diagram.
#include <string>

#include "interaction/session.h"

namespace qv {

// The rating item of the menu: a box with the rating.
void RatingCommand(Session& s);

// "Create Diagram...": writes diagram.html beside the other files the
// program writes, with the pictures it needs, and says so.
void CreateDiagramCommand(Session& s);

// The end of a game: the rating moves (score 1 the player won, 0.5 a draw,
// 0 a loss) and the words for the end-of-game box come back, empty when the
// game was not rated.
std::string RateGameEnd(Session& s, double score);

// The game log, when the session has one.
void LogLine(Session& s, const std::string& text);
void LogGameHeader(Session& s);

}  // namespace qv

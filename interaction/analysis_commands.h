#pragma once
// Analyze and Hint, and the analysis list List3 beside the board.
#include "interaction/session.h"

namespace qv {

// The computer's thinking on the position, shown in List3 and the
// calculation, without a move. Runs off the window thread; Cancel ends it
// with the best move so far.
void AnalyzeCommand(Session& s);

// "Try ..." in a box titled "Hint": the reply the computer's last line
// expected, or the best move of a short search.
void HintCommand(Session& s);

// List3 from RootInfo: "c3d4 12", " n/a" for a move not searched.
void FillAnalysisList(Session& s);

// A click on List3: the last move is taken back and the row's move played in
// its place, without the computer's reply.
void ClickAnalysisList(Session& s, int row);

}  // namespace qv

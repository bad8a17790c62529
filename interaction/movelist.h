#pragma once
// The lists beside the board: the game (List1), the legal moves (List2), and
// a move typed into Text2; how a move's texts are built and how a text
// becomes a move.
#include <string>
#include <string_view>

#include "interaction/session.h"

namespace qv {

// MoveText of a move between two cells: each square's text, upper case, a
// one-character square name followed by a blank.
std::string MoveTextOf(int fromCell, int toCell, int notationKind);

// The display text of the move FindMove has just played: source, CaptureChar
// or "-", target, in lower case, "K" when it crowned. A two-character text
// (a drop) is shown as it is.
std::string DisplayText(const Game& g, std::string_view moveText);

// The List1 row of half move n.
std::string GameListRow(int n, const std::string& display);

// Writes half move HalfMoveCount into MoveTextTable and List1 (the game
// log's header first, at the first half move) and gives the row written.
std::string WriteMoveToList(Session& s, std::string_view moveText, const std::string& display, int moverCode);

// Refills List2 with the legal moves of the position.
void RefreshMoveChoices(Session& s);

// Enter in Text2 or the "Move" button.
void EnterTypedMove(Session& s);
// A click on row `row` of List2, of List1.
void ClickLegalMove(Session& s, int row);
void ClickGameList(Session& s, int row);

// Rewrites List1 and MoveTextTable from the notation oldKind into the one in
// force. NotationKind must already hold the new kind.
void RewriteMoveList(Session& s, int oldKind);

}  // namespace qv

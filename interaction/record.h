#pragma once
// The common tail of a move entered by the human.
#include <string_view>

#include "interaction/session.h"

namespace qv {

// The four ways a human move comes in; they differ in small ways at the end.
enum class EntryPath { Mouse, Text2, List2, List3 };

// Stores the move FindMove has just played, cuts the stored tail, writes the
// lists, checks the end of the game and hands over to the computer or to the
// other player.
void RecordHumanMove(Session& s, std::string_view moveText, EntryPath path);

// The end of a human move once the computer's reply (if any) is done.
void FinishHumanMove(Session& s);

}  // namespace qv

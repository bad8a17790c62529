#pragma once
// Applying moves: make and undo on Board, a move typed as text, the root ply.
#include <string>
#include <string_view>

#include "core/game.h"

namespace qv {

void MakeSearchMove(Game& g, int index);
void UndoSearchMove(Game& g, int index);
// -1 when the text names a legal move, which is then played; 0 otherwise.
int FindMove(Game& g, std::string_view moveText);
void CommitRootPly(Game& g);
std::string MoveLabel(const Game& g, const MoveRecord& move);

}  // namespace qv

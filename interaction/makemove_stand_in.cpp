// Stand-in for the make/undo code until the move generator branch is merged.
#include "core/makemove.h"

namespace qv {
void MakeSearchMove(Game&, int) {}
void UndoSearchMove(Game&, int) {}
int FindMove(Game&, std::string_view) { return 0; }
void CommitRootPly(Game&) {}
std::string MoveLabel(const Game&, const MoveRecord&) { return {}; }
}  // namespace qv

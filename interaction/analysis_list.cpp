#include "interaction/analysis_list.h"

#include <string>

#include "core/board.h"

namespace qv {

void FillAnalysisList(Session& s, const std::vector<RootScore>& scores) {
  if (scores.empty() || scores[0].From == NotScored || scores[0].From == 0) return;
  const int notation = s.game.Settings.NotationKind;
  std::vector<std::string>& rows = s.screen.List3;
  rows.clear();
  for (const RootScore& root : scores) {
    std::string row = SquareNotation(root.From, 1, notation) + SquareNotation(root.To, 1, notation) + ' ';
    row += root.Score == NotScored ? " n/a" : std::to_string(root.Score);
    rows.push_back(row);
  }
  s.window.Changed(Part::Lists);
}

}  // namespace qv

#include <ostream>

#include "cli/cli.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "engine/analysis.h"

namespace qv::cli {

namespace {

// The label of the legal move from one cell to another, as the move list shows it.
std::string LabelOf(Game& g, const RootScore& row) {
  GenerateLegalMoves(g);
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i)
    if (g.MoveStack[i].FromSquare == row.From && g.MoveStack[i].ToSquare == row.To) return MoveLabel(g, g.MoveStack[i]);
  return SquareNotation(row.From, 1, g.Settings.NotationKind) + SquareNotation(row.To, 1, g.Settings.NotationKind);
}

std::string ScoreText(int score) { return score == -32767 ? "n/a" : std::to_string(score); }

}  // namespace

int RunAnalyze(CliContext& context) {
  Game& g = context.game;
  const CliOptions& o = context.options;
  if (o.depth && o.time) throw UsageError{"give --depth or --time, not both"};
  if (o.time && *o.time > 3600) throw UsageError{"bad value for --time: at most 3600 seconds"};
  g.Settings.DepthMode = o.time ? 0 : 1;
  g.Settings.DepthLimit = std::min(o.depth.value_or(6), 20);
  if (o.time) g.Settings.TimeLimit = std::max(1, static_cast<int>(*o.time + 0.5));
  g.Settings.StrengthHandicap = o.handicap.value_or(0);
  g.Settings.OpeningBook = 0;
  DriverUi silent;
  const AnalysisResult r = Analysis(g, silent);
  std::ostream& out = context.out;
  const std::string side = g.SideToMove == 1 ? "white" : "black";
  if (o.json) {
    out << "{\"side\":\"" << side << "\",\"depth\":" << r.depth << ",\"best\":\"" << r.bestMove
        << "\",\"score\":" << r.bestScore << ",\"moves\":[";
    for (std::size_t i = 0; i < r.rootScores.size(); ++i) {
      const RootScore& row = r.rootScores[i];
      out << (i ? "," : "") << "{\"move\":\"" << LabelOf(g, row) << "\",\"score\":";
      if (row.Score == -32767) out << "null";
      else out << row.Score;
      out << '}';
    }
    out << "],\"mainLine\":\"" << r.mainLine << "\",\"status\":\"" << r.status << "\",\"gameOver\":"
        << (r.ending.over ? "true" : "false") << "}\n";
    return 0;
  }
  out << "Analysis for " << side << " to move, depth " << r.depth << '\n';
  for (const RootScore& row : r.rootScores) {
    const std::string label = LabelOf(g, row);
    out << "  " << label << std::string(label.size() < 8 ? 8 - label.size() : 1, ' ') << ScoreText(row.Score) << '\n';
  }
  if (r.searched) {
    out << "Best: " << r.bestMove << "  score " << r.bestScore << '\n';
    out << "Main line: " << r.mainLine << '\n';
  }
  if (!r.status.empty()) out << r.status << '\n';
  if (!r.boxText.empty() && r.boxText != r.status) out << r.boxText << '\n';
  return 0;
}

}  // namespace qv::cli

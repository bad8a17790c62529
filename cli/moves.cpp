#include <ostream>

#include "cli/cli.h"
#include "core/makemove.h"
#include "core/movegen.h"

namespace qv::cli {

namespace {

std::string CellName(const Game& g, int cell) { return SquareNotation(cell, 1, g.Settings.NotationKind); }

void PrintPlain(const Game& g, const MoveRecord& m, std::ostream& out) {
  out << MoveLabel(g, m);
  const std::vector<int> captured = CapturedCells(m);
  if (!captured.empty()) {
    out << " [";
    for (std::size_t i = 0; i < captured.size(); ++i) out << (i ? " " : "") << CellName(g, captured[i]);
    out << ']';
  }
  out << '\n';
}

void PrintJson(const Game& g, const MoveRecord& m, std::ostream& out) {
  out << "{\"from\":\"" << CellName(g, m.FromSquare) << "\",\"to\":\"" << CellName(g, m.ToSquare)
      << "\",\"captures\":[";
  const std::vector<int> captured = CapturedCells(m);
  for (std::size_t i = 0; i < captured.size(); ++i) out << (i ? "," : "") << '"' << CellName(g, captured[i]) << '"';
  out << "],\"crowns\":" << (m.PromoteFlag != 0 ? "true" : "false") << '}';
}

}  // namespace

int RunMoves(CliContext& context) {
  Game& g = context.game;
  GenerateLegalMoves(g);
  const int first = g.PlyBase[g.Ply], last = g.PlyBase[g.Ply + 1];
  if (context.options.json) {
    context.out << '[';
    for (int i = first; i < last; ++i) {
      if (i > first) context.out << ',';
      PrintJson(g, g.MoveStack[i], context.out);
    }
    context.out << "]\n";
  } else {
    for (int i = first; i < last; ++i) PrintPlain(g, g.MoveStack[i], context.out);
  }
  return 0;
}

}  // namespace qv::cli

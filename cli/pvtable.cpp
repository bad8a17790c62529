#include <ostream>

#include "cli/cli.h"
#include "engine/plyvalue.h"

namespace qv::cli {

namespace {

// The window's CR LF ends of line as the terminal's.
std::string UnixLines(const std::string& text) {
  std::string out;
  for (char c : text)
    if (c != '\r') out += c;
  return out;
}

std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out;
}

void PrintJson(const PlyValueTable& table, int sort, std::ostream& out) {
  out << "{\"depth\":" << table.depth << ",\"sort\":\"" << PlyValueSortNames[static_cast<std::size_t>(sort)]
      << "\",\"cancelled\":" << (table.cancelled ? "true" : "false") << ",\"rows\":[";
  const std::vector<PlyValueRow> rows = SortPlyValueRows(table.rows, sort);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const PlyValueRow& r = rows[i];
    out << (i ? "," : "") << "{\"move\":\"" << r.move << "\",\"values\":[";
    for (std::size_t p = 0; p < r.values.size(); ++p) out << (p ? "," : "") << r.values[p];
    out << "],\"diff\":" << r.diff << ",\"seconds\":" << r.seconds << ",\"line\":\"" << Escaped(r.line)
        << "\",\"combination\":" << (r.problem == 1 ? "true" : "false") << '}';
  }
  out << "]}\n";
}

}  // namespace

int RunPvTable(CliContext& context) {
  Game& g = context.game;
  const CliOptions& o = context.options;
  if (o.time) throw UsageError{"pvtable searches by depth: give --depth, not --time"};
  const int depth = o.depth.value_or(g.Settings.PlyValueDepth);
  if (depth > PlyValueDepthHighest) throw UsageError{"bad value for --depth: the table goes at most 20 plies deep"};
  int sort = SortBestDifference;
  if (o.sort) {
    sort = PlyValueSortFromName(*o.sort);
    if (sort < 0) throw UsageError{"unknown sort '" + *o.sort + "': use best-difference, both-difference, best-value, most-time or combinations"};
  }
  g.Settings.StrengthHandicap = o.handicap.value_or(0);
  const PlyValueTable table = SearchPlyValueTable(g, depth);
  if (o.json) {
    PrintJson(table, sort, context.out);
    return 0;
  }
  context.out << UnixLines(PlyValueText(table, sort));
  std::string marked;
  for (const PlyValueRow& row : table.rows)
    if (row.problem == 1) marked += " " + row.move;
  context.out << "Combinations/Problems:" << (marked.empty() ? " none" : marked) << '\n';
  return 0;
}

}  // namespace qv::cli

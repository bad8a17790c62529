#include "engine/plyvalue.h"

#include <algorithm>
#include <cmath>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/text.h"
#include "engine/deepening.h"
#include "engine/quick_root.h"
#include "engine/root_moves.h"

namespace qv {

namespace {

inline constexpr int RuleWidth = 120;
// A score beyond this marks a decided game found by the row.
inline constexpr int DecidedScore = 31000;
// A change of value between pass 2 and the last pass larger than this, in a
// line with a capture, marks a combination.
inline constexpr int CombinationSwing = 100;
// Main line entries from this one on are walked but not written.
inline constexpr int LineEntriesShown = 20;

// The line after the best root move, as the calculation display writes it:
// each move followed by a blank.
std::string LineAfterRoot(const Game& g) {
  std::string line;
  const int notation = g.Settings.NotationKind;
  for (int i = 1; i < PlyRows && g.PVTable[0][i].From != 0; ++i) {
    if (i >= LineEntriesShown) continue;
    const PVEntry& e = g.PVTable[0][i];
    line += SquareNotation(e.From, 1, notation);
    if (e.Kind % 10 == 1) line += g.CaptureChar;
    else if (e.From != 999) line += "-";
    line += SquareNotation(e.To, 1, notation);
    if (e.Kind > 1) line += "K";
    line += " ";
  }
  return line;
}

int CaptureSigns(const std::string& text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) { return c == 'x' || c == 'X'; }));
}

bool HasCaptureSign(const std::string& text) { return text.find('x') != std::string::npos; }

// The passes for one row, on the position after its move. False when Cancel
// ended them.
bool SearchRow(Game& g, int n, int depth, PlyValueRow& row, const PlyValueWatch& watch) {
  const double start = SearchClock();
  const int searchRootCount = g.HalfMoveCount;
  std::vector<MoveRecord> roots = GenerateRootMoves(g);
  row.values.assign(static_cast<std::size_t>(depth), 0);
  std::string working;  // the last best line, kept when it holds a capture
  for (auto& r : g.PVTable) r.Fill(PVEntry{});
  QuickPass pass;
  pass.searchRootCount = searchRootCount;
  pass.stopOnCancel = true;
  int lastPass = 0;
  for (int p = 1; p <= depth; ++p) {
    if (roots.empty()) {
      // The side to reply has no move: it has lost, whatever the depth.
      row.values[static_cast<std::size_t>(p - 1)] = -32000;
      lastPass = p;
      continue;
    }
    if (p == 1) {
      pass.alpha = -32000;
      pass.beta = 32000;
    } else {
      pass.beta = pass.alpha + 100;
      pass.alpha -= 100;
    }
    g.HorizonLimit = g.Settings.Plys + p;
    pass.quickDepth = p - 1;
    const bool done = RunQuickPass(g, roots, pass, [&](int score) {
      if (watch.newBest)
        watch.newBest("Score:" + Str(score) + "   iniScore:" + Str(n) + "   Depth:" + Str(depth));
      const std::string line = LineAfterRoot(g);
      row.line = MoveLabel(g, roots[0]) + " " + line;
      working = "Score:" + Str(score) + "   Depth:" + Str(depth) + "   " + MoveLabel(g, roots[0]) + " " + line;
      if (!HasCaptureSign(working)) working.clear();
    });
    if (!done || g.SearchCancelled == 1) return false;
    row.values[static_cast<std::size_t>(p - 1)] = pass.alpha;
    lastPass = p;
  }
  const int second = depth >= 2 ? row.values[1] : 0;
  row.diff = row.values[static_cast<std::size_t>(lastPass - 1)] - second;
  row.seconds = static_cast<int>(std::lround(SearchClock() - start));
  const int last = row.values[static_cast<std::size_t>(lastPass - 1)];
  row.problem = (std::abs(row.diff) > CombinationSwing && HasCaptureSign(working)) ||
                        CaptureSigns(row.line) % 2 == 1 || std::abs(last) > DecidedScore
                    ? 1
                    : 0;
  return true;
}

template <class Key>
void ExchangeSort(std::vector<PlyValueRow>& rows, Key key) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (std::size_t j = i + 1; j < rows.size(); ++j)
      if (key(rows[j]) > key(rows[i])) std::swap(rows[i], rows[j]);
}

std::string PaddedTo(std::string text, std::size_t column) {
  if (text.size() < column) text.resize(column, ' ');
  else text += ' ';
  return text;
}

}  // namespace

PlyValueTable SearchPlyValueTable(Game& g, int depth, const PlyValueWatch& watch) {
  PlyValueTable table;
  table.depth = std::clamp(depth, PlyValueDepthLowest, PlyValueDepthHighest);
  GameKeeper keepAll(g);
  g.SearchCancelled = 0;
  g.QuickSearchCancels = 1;
  std::vector<MoveRecord> legal;
  {
    GameKeeper keep(g);
    legal = GenerateRootMoves(g);
  }
  std::vector<std::string> labels;
  for (const MoveRecord& m : legal) labels.push_back(MoveLabel(g, m));
  table.moveCount = static_cast<int>(legal.size());
  for (int n = 0; n < table.moveCount; ++n) {
    if (g.SearchCancelled == 1 || g.StopRequest == 1) {
      table.cancelled = true;
      break;
    }
    if (watch.rowStarted) watch.rowStarted(n, table.moveCount);
    // Each move is entered as a played move and taken back when its row is done.
    GameKeeper keep(g);
    const std::string& label = labels[static_cast<std::size_t>(n)];
    if (FindMove(g, ParseMoveText(ToUpper(label), g.CaptureChar)) != -1) continue;
    EnterMoveInRecord(g, g.LastMoveIndex, table.moveCount);
    PlyValueRow row;
    row.move = label;
    std::replace(row.move.begin(), row.move.end(), 'X', 'x');
    if (!SearchRow(g, n, table.depth, row, watch)) {
      table.cancelled = true;
      break;
    }
    table.rows.push_back(std::move(row));
  }
  if (g.StopRequest == 1) table.cancelled = true;
  g.StopRequest = 0;
  g.QuickSearchCancels = 0;
  return table;
}

std::vector<PlyValueRow> SortPlyValueRows(const std::vector<PlyValueRow>& rows, int sort) {
  std::vector<PlyValueRow> sorted = rows;
  switch (sort) {
    case SortBothDifference: ExchangeSort(sorted, [](const PlyValueRow& r) { return std::abs(r.diff); }); break;
    case SortBestValue: ExchangeSort(sorted, [](const PlyValueRow& r) { return r.values.back(); }); break;
    case SortMostTime: ExchangeSort(sorted, [](const PlyValueRow& r) { return r.seconds; }); break;
    case SortCombinations:
      ExchangeSort(sorted, [](const PlyValueRow& r) { return std::abs(r.diff); });
      std::erase_if(sorted, [](const PlyValueRow& r) { return r.problem != 1; });
      break;
    default: ExchangeSort(sorted, [](const PlyValueRow& r) { return r.diff; }); break;
  }
  return sorted;
}

std::string PlyValueText(const PlyValueTable& table, int sort) {
  // The header names the columns; each value of a row starts under its name.
  std::string header = "  No      MOVE   ";
  std::vector<std::size_t> columns;
  for (int p = 1; p <= table.depth; ++p) {
    columns.push_back(header.size());
    header += "PLY" + std::to_string(p) + "    ";
  }
  const std::size_t diffColumn = header.size() + 1;
  header += " Diff     ";
  const std::size_t timeColumn = header.size();
  header += "Time   ";
  const std::size_t lineColumn = header.size();
  std::string text = header + "\r\n" + std::string(RuleWidth, '-') + "\r\n";
  int number = 0;
  for (const PlyValueRow& row : SortPlyValueRows(table.rows, sort)) {
    std::string n = std::to_string(++number);
    std::string line = std::string(n.size() < 4 ? 4 - n.size() : 0, ' ') + n + ".    " + row.move + "    ";
    for (std::size_t p = 0; p < row.values.size(); ++p)
      line = PaddedTo(line, columns[p]) + Trim(Str(row.values[p]));
    line = PaddedTo(line, diffColumn) + Trim(Str(row.diff));
    line = PaddedTo(line, timeColumn) + Trim(Str(row.seconds));
    line = PaddedTo(line, lineColumn) + row.line;
    text += line + "\r\n";
  }
  return text;
}

int PlyValueSortFromName(const std::string& name) {
  for (std::size_t i = 0; i < PlyValueSortNames.size(); ++i) {
    std::string dashed = ToLower(PlyValueSortNames[i]);
    std::replace(dashed.begin(), dashed.end(), ' ', '-');
    if (name == PlyValueSortNames[i] || ToLower(name) == dashed || name == std::to_string(i)) return static_cast<int>(i);
  }
  if (name == "combinations" || name == "problems") return SortCombinations;
  return -1;
}

}  // namespace qv

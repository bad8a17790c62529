#include "core/makemove.h"

#include <cstdlib>

#include "core/movegen.h"
#include "core/text.h"

namespace qv {

namespace {

int GroupCount(const MoveRecord& m) {
  int n = 0;
  while (1 + 3 * n + 2 < CaptureTextSize && m.CaptureText.Cells[1 + 3 * n] != '\0') ++n;
  return n;
}
int GroupWorth(const MoveRecord& m, int group) { return m.CaptureText.Cells[1 + 3 * group] - '0'; }
int GroupCell(const MoveRecord& m, int group) {
  return (m.CaptureText.Cells[2 + 3 * group] - '0') * 10 + (m.CaptureText.Cells[3 + 3 * group] - '0');
}

// The square of the only piece of `side` when that piece is a single man.
int LoneMan(const Game& g, int side) {
  int worth = 0, cell = 0;
  for (int c = 21; c <= 98; ++c) {
    const int v = g.Board[c];
    if (v == OffBoard || v == 0 || v * side < 0) continue;
    worth += std::abs(v);
    cell = c;
    if (worth > 1) return 0;
  }
  return worth == 1 ? cell : 0;
}

// An index into the tables of one size, checked once for all of them.
int CheckedIndex(int index, int size) {
  if (static_cast<unsigned>(index) >= static_cast<unsigned>(size)) RaiseRangeError(index, size);
  return index;
}

// A quiet step of a piece from one square to another, the most common move:
// nothing is captured, dropped or crowned.
bool IsPlainStep(const MoveRecord& m) {
  return !m.IsCapture() && m.PromoteFlag == 0 && m.FromSquare != m.ToSquare &&
         static_cast<unsigned>(m.FromSquare) < static_cast<unsigned>(BoardCells::size()) &&
         static_cast<unsigned>(m.ToSquare) < static_cast<unsigned>(BoardCells::size());
}

// What a move does beyond a plain step: the captured pieces leave the board,
// a king that captured may turn back into a man, a piece may be dropped in,
// and a man may be crowned. h is the move's record index, p its ply.
void ApplyCapturesAndCrowning(Game& g, const MoveRecord& m, int h, int p) {
  const int from = m.FromSquare, to = m.ToSquare;
  bool moved = false;
  if (m.IsCapture()) {
    g.CaptureFlagByPly[p] = 1;
    int sum = 0;
    const int groups = GroupCount(m);
    for (int i = 0; i < groups; ++i) {
      sum += GroupWorth(m, i);
      g.Board[GroupCell(m, i)] = 0;
    }
    g.MaterialByPly[p] -= 100 * sum;
    g.ActivityByPly[p] -= 100 * sum;
    // A king that captured and ends elsewhere is a man again.
    if (g.RuleSet.KingMan == 1 && from != to && from != DropSource && std::abs(g.Board[from]) == 2) {
      g.Record.KingManMark[h] = 1;
      g.MaterialByPly[p] -= 100;
      g.ActivityByPly[p] -= 100;
      g.Board[to] = g.Board[from] / 2;
      g.Board[from] = 0;
      moved = true;
    }
  }
  if (from != to && !moved) {
    if (from == DropSource) {
      g.Board[to] = g.SideToMove;
      if (g.SideToMove == 1) --g.ContractLeftWhite;
      else --g.ContractLeftBlack;
    } else {
      g.Board[to] = g.Board[from];
      g.Board[from] = 0;
    }
  }
  if (m.PromoteFlag != 0) {
    g.CaptureFlagByPly[p] = 1;
    g.Board[to] = m.PromoteFlag * g.SideToMove;
    g.MaterialByPly[p] -= 100;
    g.ActivityByPly[p] += 100;
    if (g.RuleSet.ChangeSide == 1) {
      g.Board[to] = -g.Board[to];
      g.MaterialByPly[p] += 200;
    }
  }
}

}  // namespace

void MakeSearchMove(Game& g, int index) {
  const MoveRecord& m = g.MoveStack[index];
  const int from = m.FromSquare, to = m.ToSquare;
  ++g.HalfMoveCount;
  // h indexes the record tables, p and p - 1 the per-ply tables: each is
  // checked once here.
  const int h = CheckedIndex(g.HalfMoveCount, RecordSize);
  g.Record.LastToByMove.Cells[h] = to;
  ++g.Ply;
  const int p = CheckedIndex(g.Ply, PlyRows);
  CheckedIndex(p - 1, PlyRows);
  g.PrevToSquare.Cells[p] = to;
  g.CaptureFlagByPly.Cells[p] = 0;
  g.Record.KingManMark.Cells[h] = 0;
  g.Record.ManKingCell.Cells[h] = 0;
  g.MaterialByPly.Cells[p] = -g.MaterialByPly.Cells[p - 1];
  g.ActivityByPly.Cells[p] = g.ActivityByPly.Cells[p - 1];

  if (IsPlainStep(m)) {
    g.Board.Cells[to] = g.Board.Cells[from];
    g.Board.Cells[from] = 0;
  } else {
    ApplyCapturesAndCrowning(g, m, h, p);
  }
  g.SideToMove = -g.SideToMove;
  if (g.RuleSet.ManKing == 1) {
    const int cell = LoneMan(g, g.SideToMove);
    if (cell != 0) {
      g.Record.ManKingCell[h] = cell;
      g.Board[cell] = 2 * g.SideToMove;
      g.MaterialByPly[p] += 100;
      g.ActivityByPly[p] += 100;
    }
  }
}

void UndoSearchMove(Game& g, int index) {
  const MoveRecord& m = g.MoveStack[index];
  const int from = m.FromSquare, to = m.ToSquare;
  const int h = g.HalfMoveCount;
  g.SideToMove = -g.SideToMove;
  --g.Ply;
  // The plain step back.
  if (m.CaptureText.Cells[1] == '\0' && m.PromoteFlag == 0 && g.RuleSet.ManKing == 0 && g.RuleSet.KingMan == 0 &&
      static_cast<unsigned>(from) < static_cast<unsigned>(BoardCells::size()) &&
      static_cast<unsigned>(to) < static_cast<unsigned>(BoardCells::size()) && from != to) {
    g.Board.Cells[from] = g.Board.Cells[to];
    g.Board.Cells[to] = 0;
    g.HalfMoveCount = h - 1;
    return;
  }
  if (g.RuleSet.ManKing == 1) {
    // With nothing noted this writes to cell 0, which nothing reads.
    g.Board[g.Record.ManKingCell[h]] = -g.SideToMove;
  }
  if (from == DropSource) {
    g.Board[to] = 0;
    if (g.SideToMove == 1) ++g.ContractLeftWhite;
    else ++g.ContractLeftBlack;
  } else if (from != to) {
    g.Board[from] = g.Board[to];
    g.Board[to] = 0;
  }
  const int groups = GroupCount(m);
  for (int i = 0; i < groups; ++i) g.Board[GroupCell(m, i)] = GroupWorth(m, i) * -g.SideToMove;
  if (m.PromoteFlag != 0 && from != DropSource) g.Board[from] = g.SideToMove;
  if (g.RuleSet.KingMan == 1 && g.Record.KingManMark[h] == 1) g.Board[from] *= 2;
  g.HalfMoveCount = h - 1;
}

std::string ParseMoveText(std::string_view input, std::string_view captureChar) {
  std::string text(input);
  const std::string capture = ToUpper(captureChar);
  while (true) {
    const std::string upper = ToUpper(text);
    const std::size_t c = capture.empty() ? std::string::npos : upper.find(capture);
    if (c != std::string::npos) {
      text.erase(c, 1);
      continue;
    }
    const std::size_t dash = text.find('-');
    if (dash == std::string::npos) return text;
    std::string before = text.substr(0, dash), after = text.substr(dash + 1);
    if (before.size() == 1) before += ' ';
    if (after.size() == 1) after += ' ';
    text = before + after;
  }
}

int FindMove(Game& g, std::string_view moveText) {
  g.LastWasCapture = 0;
  g.LastWasCrowning = 0;
  const int notation = g.Settings.NotationKind, pob = g.RuleSet.PiecesOnBlack;
  const int from = SquareNumber(moveText.substr(0, 2), notation, pob);
  if (g.TouchedCell >= 1 && from != g.TouchedCell && g.Settings.TouchMove == 1) return 0;
  const int to = moveText.size() > 2 ? SquareNumber(moveText.substr(2, 2), notation, pob) : from;
  GenerateLegalMoves(g);
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) {
    const MoveRecord& m = g.MoveStack[i];
    if ((m.FromSquare == from && m.ToSquare == to) || (m.FromSquare == DropSource && m.ToSquare == to)) {
      g.LastWasCapture = m.IsCapture() ? 1 : 0;
      g.LastWasCrowning = m.PromoteFlag == 2 ? 1 : 0;
      CommitRootPly(g);
      MakeSearchMove(g, i);
      g.LastMoveIndex = i;
      g.TouchedCell = 0;
      return -1;
    }
  }
  return 0;
}

void CommitRootPly(Game& g) {
  if (g.Ply == 0) return;
  g.MaterialByPly[0] = g.MaterialByPly[1];
  g.ActivityByPly[0] = g.ActivityByPly[1];
  g.Ply = 0;
}

void UpdateManThresholds(Game& g) {
  auto threshold = [](int men) { return std::max(men > 5 ? men - 6 : 0, 6); };
  g.ManThresholdWhite = threshold(g.WhiteMen);
  g.ManThresholdBlack = threshold(g.BlackMen);
}

std::string PositionKey(const Game& g) { return PositionKeyOf(g.Board).Text(); }

void CountRepetitions(Game& g, int upto) {
  const PositionKeyWords key = PositionKeyOf(g.Board);
  g.LineDrawn = 0;
  for (int i = 0; i <= upto; ++i)
    if (g.Record.PositionHistory[i] == key) ++g.LineDrawn;
  int white = 0, black = 0;
  bool man = false;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.Board[cell];
    if (v == OffBoard) continue;
    if (v > 0) white += v;
    if (v < 0 && v >= MarkedBelow) black -= v;
    if (v == WhiteMan || v == BlackMan) man = true;
  }
  if (white == 2 && black == 2 && !man) g.BareKings = 1;
}

int MoveLimit(int fiftyMoveKind) {
  switch (fiftyMoveKind) {
    case 0: return 64;
    case 2: return 32;
    case 3: return 40;
    case 4: return 80;
    default: return 100;
  }
}

void CheckMoveLimit(Game& g, int upto) {
  g.LimitReached = 0;
  const int halfMoves = upto + 1;
  int lastChange = -1;
  for (int i = 0; i < halfMoves; ++i) {
    const std::string& text = g.MoveTextTable[i / 2 + 1][i % 2];
    if (text.find(g.CaptureChar) != std::string::npos || text.find('K') != std::string::npos) lastChange = i;
  }
  if (halfMoves - lastChange > MoveLimit(g.Settings.FiftyMoveKind)) g.LimitReached = 1;
}

void SwapPlayerNames(Game& g) { std::swap(g.FirstPlayerName, g.SecondPlayerName); }

std::string MoveLabel(const Game& g, const MoveRecord& move) {
  const int notation = g.Settings.NotationKind;
  std::string label;
  if (move.FromSquare != DropSource) {
    label = SquareNotation(move.FromSquare, 1, notation);
    label += move.IsCapture() ? g.CaptureChar : "-";
  }
  label += SquareNotation(move.ToSquare, 1, notation);
  if (move.PromoteFlag != 0) label += 'K';
  return label;
}

std::vector<int> CapturedCells(const MoveRecord& move) {
  std::vector<int> cells;
  for (int i = 0, n = GroupCount(move); i < n; ++i) cells.push_back(GroupCell(move, i));
  return cells;
}

}  // namespace qv

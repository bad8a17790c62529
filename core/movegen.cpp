#include "core/movegen.h"

#include <cstdio>

namespace qv {

// Stand-in until the general generator lands: the moves of American
// checkers (men forward, kings both ways, captures compulsory, a crowning
// ends the move).
namespace {

void Push(Game& g, int from, int to, const std::string& captured, int promote) {
  MoveRecord& m = g.MoveStack[g.MoveTop++];
  m = MoveRecord{};
  if (!captured.empty()) {
    m.CaptureText[0] = '0';
    for (std::size_t i = 0; i < captured.size() && i + 1 < CaptureTextSize; ++i) m.CaptureText[i + 1] = captured[i];
  }
  m.FromSquare = from;
  m.ToSquare = to;
  m.PromoteFlag = promote;
}

bool Crowns(const Game& g, int side, int cell) { return IsPromoSquare(g.RuleSet.PromoSquares, side == 1 ? 0 : 1, cell); }

void Jumps(Game& g, int from, int at, int piece, std::string& captured, bool& any) {
  const int side = piece > 0 ? 1 : -1;
  const bool king = piece == 2 || piece == -2;
  bool extended = false;
  for (int step : {9, 11, -9, -11}) {
    if (!king && step * side < 0) continue;
    const int over = at + step, to = at + 2 * step;
    if (to < 0 || to >= 120) continue;
    const int victim = g.Board[over];
    if (victim == OffBoard || victim == 0 || SideOf(victim) != -side || g.Board[to] != 0) continue;
    char group[16];
    std::snprintf(group, sizeof group, "%d%02d", victim < 0 ? -victim : victim, over);
    const int saved = g.Board[over];
    g.Board[over] = OffBoard;  // jumped once only
    captured += group;
    extended = true;
    if (!king && Crowns(g, side, to)) Push(g, from, to, captured, 2);
    else Jumps(g, from, to, piece, captured, any);
    captured.resize(captured.size() - 3);
    g.Board[over] = saved;
  }
  if (!extended && !captured.empty()) Push(g, from, at, captured, 0);
  any = any || extended;
}

}  // namespace

void GenerateMoves(Game& g, int includeQuiet) {
  g.MoveTop = g.PlyBase[g.Ply];
  const int side = g.SideToMove;
  for (int cell = 21; cell <= 98; ++cell) {
    const int piece = g.Board[cell];
    if (SideOf(piece) != side) continue;
    g.Board[cell] = 0;
    std::string captured;
    bool any = false;
    Jumps(g, cell, cell, piece, captured, any);
    g.Board[cell] = piece;
  }
  if (g.MoveTop == g.PlyBase[g.Ply] && includeQuiet == 1) {
    for (int cell = 21; cell <= 98; ++cell) {
      const int piece = g.Board[cell];
      if (SideOf(piece) != side) continue;
      const bool king = piece == 2 || piece == -2;
      for (int step : {9, 11, -9, -11}) {
        if (!king && step * side < 0) continue;
        if (g.Board[cell + step] != 0) continue;
        Push(g, cell, cell + step, {}, !king && Crowns(g, side, cell + step) ? 2 : 0);
      }
    }
  }
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

}  // namespace qv

#pragma once
// Writing a move onto MoveStack with its ordering score.
#include <cstdlib>
#include <cstring>

#include "core/game.h"

namespace qv {

// The moves the search tries first at the current ply: the last main line
// (row 0 of PVTable, column Ply), then the two killers, and captures landing
// where the mover's own previous move landed (PrevToSquare one ply up, which
// is two half-moves back, not the opponent's last landing).
struct OrderKeys {
  MoveKey MainLine, Killer1, Killer2;
  int RecaptureSquare = -1;

  explicit OrderKeys(const Game& g)
      : MainLine{g.PVTable[0][g.Ply].From, g.PVTable[0][g.Ply].To}, Killer1(g.KillerTable[g.Ply][0]), Killer2(g.KillerTable[g.Ply][1]),
        RecaptureSquare(g.Ply > 0 ? g.PrevToSquare[g.Ply - 1] : -1) {}

  int Bonus(int from, int to) const {
    const MoveKey key{from, to};
    if (MainLine == key) return 500;
    if (Killer1 == key) return 250;
    if (Killer2 == key) return 150;
    return 0;
  }
};

// Moves MoveTop on; a full stack stops the search instead, and the next push
// overwrites the last entry.
inline void AdvanceMoveTop(Game& g) {
  if (g.MoveTop < MoveStackSize - 1) ++g.MoveTop;
  else g.StopRequest = 1;
}

inline void PushQuiet(Game& g, const OrderKeys& order, int from, int to) {
  MoveRecord& m = g.MoveStack[g.MoveTop];
  m.FromSquare = from;
  m.ToSquare = to;
  m.PromoteFlag = 0;
  std::memset(m.CaptureText.Cells, 0, CaptureTextSize);
  m.OrderScore = order.Bonus(from, to);
  AdvanceMoveTop(g);
}

inline void PushQuiet(Game& g, int from, int to) { PushQuiet(g, OrderKeys(g), from, to); }

// key: the captured pieces, three characters each. moverValue is the value of
// the moving piece (what stands on `from` once the trace is undone).
inline void PushCapture(Game& g, const OrderKeys& order, int from, int to, const PathText& key, int moverValue) {
  MoveRecord& m = g.MoveStack[g.MoveTop];
  m.FromSquare = from;
  m.ToSquare = to;
  m.PromoteFlag = 0;
  char* text = m.CaptureText.Cells;
  if (key.Length + 1 > CaptureTextSize) RaiseRangeError(key.Length + 1, CaptureTextSize);
  text[0] = static_cast<char>('0' + g.Settings.NotationKind);
  std::memcpy(text + 1, key.Text, static_cast<std::size_t>(key.Length));
  std::memset(text + 1 + key.Length, 0, static_cast<std::size_t>(CaptureTextSize - 1 - key.Length));
  int worth = 0;
  for (int i = 0; i < key.Length; i += 3) worth += key.Text[i] - '0';
  int score = worth * 100 - std::abs(moverValue) * 100 / 2;
  if (to == order.RecaptureSquare) score += 300;
  m.OrderScore = score + order.Bonus(from, to);
  AdvanceMoveTop(g);
}

// A crowning move: quiet when the key is empty, else a capture.
inline void PushCrowning(Game& g, const OrderKeys& order, int from, int to, const PathText& key, int moverValue) {
  if (key.Length == 0) PushQuiet(g, order, from, to);
  else PushCapture(g, order, from, to, key, moverValue);
  g.MoveStack[g.MoveTop - 1].PromoteFlag = 2;
}

}  // namespace qv

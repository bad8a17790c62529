#pragma once
// The capture lines of a fast rule set traced depth first on the masks of the
// position: men and short kings jump one square, flying kings over the first
// piece along a diagonal onto any empty square behind it. Jumped pieces stay
// in the way until the move is made. The lines come out as the walk records
// them: where no jump goes on, or where a man stops crowned; the board is
// only read.
#include <algorithm>
#include <cstdlib>

#include "core/board_masks.h"
#include "core/fastgen_quiet.h"

namespace qv {

// The longest line a MoveRecord holds: longer ones are left to the walk,
// which ends in its fatal error as it always has.
constexpr int MaxCaptureGroups = (CaptureTextSize - 1) / 3;

// What the rule set of a fast flavour makes of the lines.
enum class LineChoice {
  PushAtOnce,    // every line is a move, pushed as it is found
  MostCaptured,  // the longest lines, of those the ones taking most kings, of those the strongest mover's
  Longest,       // the longest lines
  All,           // every line, after the trace
};

template <int Flavour>
class MaskCaptures {
 public:
  static constexpr bool MenTakeKings = Flavour != 2;
  static constexpr bool MenCaptureBackwards = Flavour >= 3;
  // A man that reaches a crowning square stops there; otherwise it jumps on,
  // and is crowned when its line ends there.
  static constexpr bool MenStopCrowned = Flavour <= 2;
  // A man crowned in passing jumps on as a flying king: such a line is left to the walk.
  static constexpr bool CrownedManFlies = Flavour == 4;
  static constexpr bool KingsFly = Flavour >= 3;
  static constexpr LineChoice Choice = Flavour == 1   ? LineChoice::PushAtOnce
                                       : Flavour == 2 ? LineChoice::MostCaptured
                                       : Flavour == 3 ? LineChoice::Longest
                                                      : LineChoice::All;
  static constexpr bool PushAtOnce = Choice == LineChoice::PushAtOnce;

  MaskCaptures(Game& game, const OrderKeys& keys, const SideMasks& masks, int sideToMove, Mask promoSquares)
      : g(game), order(keys), m(masks), side(sideToMove), promo(promoSquares) {}

  // The pieces that have a first jump; with flying kings all the kings when
  // any of them has one.
  static Mask Jumpers(const SideMasks& m, int side) {
    const Mask menTargets = MenTakeKings ? m.Opp() : m.oppMen;
    Mask men = 0, kings = 0;
    for (int d = 0; d < 4; ++d) {
      const int s = DiagonalBitStep[d];
      const Mask landing = TwoStepsFrom[d] & ShiftBy(m.empty, -2 * s);
      if (!KingsFly) kings |= landing & ShiftBy(m.Opp(), -s);
      if (MenCaptureBackwards || d / 2 * 2 == ForwardPair(side)) men |= landing & ShiftBy(menTargets, -s);
    }
    if (KingsFly) kings = FlyingKingsCanJump(m) ? ~Mask{0} : 0;
    return (m.ownMen & men) | (m.ownKings & kings);
  }

  // Whether a flying king has a first jump: over the first piece along a
  // diagonal when that is an opponent with an empty square behind it.
  static bool FlyingKingsCanJump(const SideMasks& m) {
    if (m.ownKings == 0) return false;
    Mask jumps = 0;
    for (int d = 0; d < 4; ++d) {
      const int s = DiagonalBitStep[d];
      const Mask sideways = OneStepFrom[d];
      Mask reach = m.ownKings;
      for (int k = 0; k < 6; ++k) reach |= ShiftBy(reach & sideways, s) & m.empty;
      const Mask hit = ShiftBy(reach & sideways, s) & m.Opp();
      jumps |= ShiftBy(hit & sideways, s) & m.empty;
    }
    return jumps != 0;
  }

  // Traces every line of every jumper; false when a line grew beyond what the
  // tables hold.
  bool Trace(Mask jumpers) {
    if constexpr (!PushAtOnce) StartTable();
    for (; jumpers != 0; jumpers &= jumpers - 1) {
      const int bit = std::countr_zero(jumpers);
      from = CellOfBit(bit);
      king = ((m.ownKings >> bit) & 1) != 0;
      value = king ? 2 * side : side;
      targets = king || MenTakeKings ? m.Opp() : m.oppMen;
      landable = m.empty | BitOf(bit);  // the mover leaves its square
      path.Clear();
      peak = 0;
      if (!Node(bit)) return false;
    }
    if constexpr (!PushAtOnce) Filter();
    return true;
  }

 private:
  Game& g;
  const OrderKeys& order;
  const SideMasks& m;
  const int side;
  const Mask promo;
  // The piece being traced.
  int from = 0, value = 0;
  bool king = false;
  Mask targets = 0;   // the pieces it may still jump: jumped ones stay on the board but are taken out here
  Mask landable = 0;  // empty squares, its own start square among them
  PathText path;
  int peak = 0;       // longest path this piece reached

  // The piece stands on `bit` after the jumps of `path`. A line is recorded
  // where no jump goes on, or where a man stops crowned.
  bool Node(int bit) {
    if (KingsFly && king) return FlyingKingNode(bit);
    bool jumped = false;
    const int forward = ForwardPair(side), backward = 2 - forward;
    const int directions[4] = {forward, forward + 1, backward, backward + 1};
    const int count = king || MenCaptureBackwards ? 4 : 2;
    for (int i = 0; i < count; ++i) {
      const int d = directions[i];
      const int s = DiagonalBitStep[d];
      const int over = bit + s, land = over + s;
      if (static_cast<unsigned>(land) >= 64 || ((TwoStepsFrom[d] >> bit) & 1) == 0) continue;
      if (((targets >> over) & 1) == 0 || ((landable >> land) & 1) == 0) continue;
      jumped = true;
      if (path.Groups() == MaxCaptureGroups) return false;
      path.Append(((m.oppKings >> over) & 1) ? 2 : 1, CellOfBit(over));
      peak = std::max(peak, path.Length);
      targets &= ~BitOf(over);
      bool fits = true;
      const bool crowning = !king && ((promo >> land) & 1);
      if (CrownedManFlies && crowning) fits = false;
      else if (MenStopCrowned && crowning) fits = Record(CellOfBit(land), 1);  // the man stops, crowned
      else fits = Node(land);
      targets |= BitOf(over);
      path.DropLast();
      if (!fits) return false;
    }
    if (!jumped && path.Length > 0) {
      // A man that jumps on through the crowning row is crowned where its line ends there.
      const int crown = !MenStopCrowned && !king && ((promo >> bit) & 1) ? 1 : 0;
      return Record(CellOfBit(bit), crown);
    }
    return true;
  }

  // A flying king: along each diagonal in turn, past the empty squares to the
  // first piece; when that is an opponent not yet jumped, every empty square
  // behind it up to the next obstacle is a landing, nearest first.
  bool FlyingKingNode(int bit) {
    bool jumped = false;
    const int forward = ForwardPair(side), backward = 2 - forward;
    const int directions[4] = {forward, forward + 1, backward, backward + 1};
    for (int d : directions) {
      const int s = DiagonalBitStep[d];
      const Mask sideways = OneStepFrom[d];
      int over = bit;
      do {
        if (((sideways >> over) & 1) == 0) over = -1;
        else over += s;
      } while (static_cast<unsigned>(over) < 64 && ((landable >> over) & 1));
      if (static_cast<unsigned>(over) >= 64 || ((targets >> over) & 1) == 0) continue;
      for (int land = over; ((sideways >> land) & 1) != 0;) {
        land += s;
        if (static_cast<unsigned>(land) >= 64 || ((landable >> land) & 1) == 0) break;
        jumped = true;
        if (path.Groups() == MaxCaptureGroups) return false;
        path.Append(((m.oppKings >> over) & 1) ? 2 : 1, CellOfBit(over));
        peak = std::max(peak, path.Length);
        targets &= ~BitOf(over);
        const bool fits = FlyingKingNode(land);
        targets |= BitOf(over);
        path.DropLast();
        if (!fits) return false;
      }
    }
    if (!jumped && path.Length > 0) return Record(CellOfBit(bit), 0);
    return true;
  }

  bool Record(int to, int crown) {
    if constexpr (PushAtOnce) {
      if (crown) PushCrowning(g, order, from, to, path, value);
      else PushCapture(g, order, from, to, path, value);
      return true;
    } else {
      GeneratorWork& w = g.Gen;
      if (w.CandCount >= CandidateRows) return false;
      const int length = path.Length;
      int kings = 0;
      for (int i = 0; i < length; i += 3) kings += path.Text[i] == '2';
      w.MostKings.Cells[length] = std::max(w.MostKings.Cells[length], kings);
      w.LongestKeyUsed = std::max(w.LongestKeyUsed, length);
      CaptureCandidate& row = w.Candidates.Cells[w.CandCount];
      row.From = from;
      row.To = to;
      row.Crown = crown;
      row.KingsTaken = kings;
      row.Piece = value;
      row.Peak = peak;
      w.CandidateKeys.Cells[w.CandCount] = path;
      w.BestMover = side == 1 ? std::max(w.BestMover, value) : std::min(w.BestMover, value);
      ++w.CandCount;
      w.LongestLen = std::max(w.LongestLen, length);
      w.LongestOf.Cells[std::abs(value)] = std::max(w.LongestOf.Cells[std::abs(value)], length);
      w.LastPath = path;
      return true;
    }
  }

  void StartTable() {
    GeneratorWork& w = g.Gen;
    w.CandCount = 0;
    w.LongestLen = 0;
    w.BestMover = 0;
    w.RecaptureCount = 0;
    w.LongestOf.Fill(0);
    for (int i = 0; i <= w.LongestKeyUsed; ++i) w.MostKings[i] = 0;
    w.LongestKeyUsed = 0;
  }

  // The rule set's choice among the lines, pushed in the order they were found.
  void Filter() {
    GeneratorWork& w = g.Gen;
    if (Choice == LineChoice::MostCaptured && std::abs(w.BestMover) == 2) w.LongestLen = w.LongestOf[2];
    for (int i = 0; i < w.CandCount; ++i) {
      const CaptureCandidate& row = w.Candidates.Cells[i];
      const PathText& key = w.CandidateKeys.Cells[i];
      if (Choice == LineChoice::MostCaptured &&
          (key.Length != w.LongestLen || row.KingsTaken != w.MostKings[w.LongestLen] || row.Piece != w.BestMover))
        continue;
      // A flying king's line counts only where it is the longest this king had reached when it was found.
      if (KingsFly && std::abs(row.Piece) == 2 && key.Length != row.Peak) continue;
      if (Choice == LineChoice::Longest && key.Length != w.LongestLen) continue;
      if (row.Crown != 0) PushCrowning(g, order, row.From, row.To, key, row.Piece);
      else PushCapture(g, order, row.From, row.To, key, row.Piece);
    }
  }
};

}  // namespace qv

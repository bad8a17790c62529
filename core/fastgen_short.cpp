// The fast generators of the two rule sets whose kings step one square:
// American (flavour 1: every line pushed as it is found) and Italian (flavour
// 2: men take only men, the longest lines, then those that take most kings,
// then the king's lines). The capture lines are traced depth first on masks;
// the board is only read.
#include <algorithm>
#include <cstdlib>

#include "core/board_masks.h"
#include "core/fastgen.h"
#include "core/fastgen_quiet.h"
#include "core/movegen_walk.h"

namespace qv {

namespace {

// The longest line a MoveRecord holds: longer ones are left to the walk,
// which ends in its fatal error as it always has.
constexpr int MaxGroups = (CaptureTextSize - 1) / 3;

template <int Flavour>
class ShortCaptures {
 public:
  static constexpr bool MenTakeKings = Flavour != 2;
  static constexpr bool PushAtOnce = Flavour == 1;

  ShortCaptures(Game& game, const OrderKeys& keys, const SideMasks& masks, int sideToMove, Mask promoSquares)
      : g(game), order(keys), m(masks), side(sideToMove), promo(promoSquares) {}

  // The pieces that have a first jump.
  static Mask Jumpers(const SideMasks& m, int side) {
    const Mask menTargets = MenTakeKings ? m.Opp() : m.oppMen;
    Mask men = 0, kings = 0;
    for (int d = 0; d < 4; ++d) {
      const int s = DiagonalBitStep[d];
      const Mask landing = TwoStepsFrom[d] & ShiftBy(m.empty, -2 * s);
      kings |= landing & ShiftBy(m.Opp(), -s);
      if (d / 2 * 2 == ForwardPair(side)) men |= landing & ShiftBy(menTargets, -s);
    }
    return (m.ownMen & men) | (m.ownKings & kings);
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
    bool jumped = false;
    const int forward = ForwardPair(side), backward = 2 - forward;
    const int directions[4] = {forward, forward + 1, backward, backward + 1};
    const int count = king ? 4 : 2;
    for (int i = 0; i < count; ++i) {
      const int d = directions[i];
      const int s = DiagonalBitStep[d];
      const int over = bit + s, land = over + s;
      if (static_cast<unsigned>(land) >= 64 || ((TwoStepsFrom[d] >> bit) & 1) == 0) continue;
      if (((targets >> over) & 1) == 0 || ((landable >> land) & 1) == 0) continue;
      jumped = true;
      if (path.Groups() == MaxGroups) return false;
      path.Append(((m.oppKings >> over) & 1) ? 2 : 1, CellOfBit(over));
      peak = std::max(peak, path.Length);
      targets &= ~BitOf(over);
      bool fits = true;
      if (!king && ((promo >> land) & 1)) fits = Record(CellOfBit(land), 1);  // the man stops, crowned
      else fits = Node(land);
      targets |= BitOf(over);
      path.DropLast();
      if (!fits) return false;
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

  // The longest lines, of those the ones that take most kings, of those the
  // ones of the strongest mover; a king's lines measured among themselves.
  void Filter() {
    GeneratorWork& w = g.Gen;
    if (std::abs(w.BestMover) == 2) w.LongestLen = w.LongestOf[2];
    for (int i = 0; i < w.CandCount; ++i) {
      const CaptureCandidate& row = w.Candidates.Cells[i];
      const PathText& key = w.CandidateKeys.Cells[i];
      if (key.Length != w.LongestLen || row.KingsTaken != w.MostKings[w.LongestLen] || row.Piece != w.BestMover) continue;
      if (row.Crown != 0) PushCrowning(g, order, row.From, row.To, key, row.Piece);
      else PushCapture(g, order, row.From, row.To, key, row.Piece);
    }
  }
};

}  // namespace

template <int Flavour>
void FastGenerate(Game& g, int includeQuiet, bool quietWhenNoCapture) {
  static constexpr Mask PromoWhite = MaskOfCells(FastPromoSquares(Flavour)[0]);
  static constexpr Mask PromoBlack = MaskOfCells(FastPromoSquares(Flavour)[1]);
  const int side = g.SideToMove;
  const SideMasks masks = BuildSideMasks(g.Board, side);
  const Mask promo = side == 1 ? PromoWhite : PromoBlack;
  const Mask jumpers = ShortCaptures<Flavour>::Jumpers(masks, side);
  // With a capture at hand and the quiet moves asked for as well, the walk
  // gives them mixed piece by piece: a case the search never asks for.
  if (jumpers != 0 && includeQuiet > 0) {
    MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  const int startTop = g.PlyBase[g.Ply];
  g.MoveTop = startTop;
  const OrderKeys order(g);
  if (jumpers != 0 && !ShortCaptures<Flavour>(g, order, masks, side, promo).Trace(jumpers)) {
    if (quietWhenNoCapture) MoveWalk<FastRules<Flavour>>(g).RunCapturesThenQuiet();
    else MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  if (g.MoveTop == startTop && (includeQuiet > 0 || quietWhenNoCapture))
    PushQuietMoves<false>(g, order, masks, side, promo);
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

template void FastGenerate<1>(Game&, int, bool);
template void FastGenerate<2>(Game&, int, bool);

}  // namespace qv

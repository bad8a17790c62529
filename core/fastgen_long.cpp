// The fast generators of the two rule sets with flying kings (flavour 3: the
// most pieces; flavour 4: a man crowned in passing jumps on as a king). Most
// positions have no capture: the masks tell that at once, and the quiet moves
// come from them. A position with a capture goes to the walk with these rules
// fixed, whose trace of long jumps is the rule.
#include "core/board_masks.h"
#include "core/fastgen.h"
#include "core/fastgen_quiet.h"
#include "core/movegen_walk.h"

namespace qv {

namespace {

// Whether any own piece has a first jump: a man over an adjacent opponent in
// any direction, a king over the first piece along a diagonal when that is an
// opponent with an empty square behind it.
bool HasCapture(const SideMasks& m) {
  const Mask opp = m.Opp();
  Mask jumps = 0;
  for (int d = 0; d < 4; ++d) {
    const int s = DiagonalBitStep[d];
    const Mask one = OneStepFrom[d];
    jumps |= m.ownMen & TwoStepsFrom[d] & ShiftBy(opp, -s) & ShiftBy(m.empty, -2 * s);
    Mask reach = m.ownKings;
    for (int k = 0; k < 6; ++k) reach |= ShiftBy(reach & one, s) & m.empty;
    const Mask hit = ShiftBy(reach & one, s) & opp;
    jumps |= ShiftBy(hit & one, s) & m.empty;
  }
  return jumps != 0;
}

}  // namespace

template <int Flavour>
void FastGenerate(Game& g, int includeQuiet, bool quietWhenNoCapture) {
  const int side = g.SideToMove;
  const SideMasks masks = BuildSideMasks(g.Board, side);
  if (HasCapture(masks)) {
    if (quietWhenNoCapture) MoveWalk<FastRules<Flavour>>(g).RunCapturesThenQuiet();
    else MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  g.MoveTop = g.PlyBase[g.Ply];
  if (includeQuiet > 0 || quietWhenNoCapture) {
    static constexpr Mask PromoWhite = MaskOfCells(FastPromoSquares(Flavour)[0]);
    static constexpr Mask PromoBlack = MaskOfCells(FastPromoSquares(Flavour)[1]);
    PushQuietMoves<true>(g, OrderKeys(g), masks, side, side == 1 ? PromoWhite : PromoBlack);
  }
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

template void FastGenerate<3>(Game&, int, bool);
template void FastGenerate<4>(Game&, int, bool);

}  // namespace qv

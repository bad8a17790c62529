// The fast generators of the two rule sets with flying kings (flavour 3: the
// most pieces; flavour 4: a man crowned in passing jumps on as a king). A man
// crowned in passing goes to the walk with these rules fixed.
#include "core/board_masks.h"
#include "core/fastgen.h"
#include "core/fastgen_captures.h"
#include "core/movegen_walk.h"

namespace qv {

namespace {

// The kings that may have a first jump: all of them when any has, over the
// first piece along a diagonal when that is an opponent with an empty square
// behind it.
Mask KingJumpers(const SideMasks& m) {
  if (m.ownKings == 0) return 0;
  const Mask opp = m.Opp();
  Mask jumps = 0;
  for (int d = 0; d < 4; ++d) {
    const int s = DiagonalBitStep[d];
    const Mask one = OneStepFrom[d];
    Mask reach = m.ownKings;
    for (int k = 0; k < 6; ++k) reach |= ShiftBy(reach & one, s) & m.empty;
    const Mask hit = ShiftBy(reach & one, s) & opp;
    jumps |= ShiftBy(hit & one, s) & m.empty;
  }
  return jumps != 0 ? m.ownKings : 0;
}

}  // namespace

template <int Flavour>
void FastGenerate(Game& g, int includeQuiet, bool quietWhenNoCapture) {
  static constexpr Mask PromoWhite = MaskOfCells(FastPromoSquares(Flavour)[0]);
  static constexpr Mask PromoBlack = MaskOfCells(FastPromoSquares(Flavour)[1]);
  const int side = g.SideToMove;
  const SideMasks masks = BuildSideMasks(g.Board, side);
  const Mask promo = side == 1 ? PromoWhite : PromoBlack;
  const Mask jumpers = (MaskCaptures<Flavour>::Jumpers(masks, side) & masks.ownMen) | KingJumpers(masks);
  // With a capture at hand and the quiet moves asked for as well, the walk
  // gives them mixed piece by piece: a case the search never asks for.
  if (jumpers != 0 && includeQuiet > 0) {
    MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  const int startTop = g.PlyBase[g.Ply];
  g.MoveTop = startTop;
  const OrderKeys order(g);
  if (jumpers != 0 && !MaskCaptures<Flavour>(g, order, masks, side, promo).Trace(jumpers)) {
    if (quietWhenNoCapture) MoveWalk<FastRules<Flavour>>(g).RunCapturesThenQuiet();
    else MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  if (g.MoveTop == startTop && (includeQuiet > 0 || quietWhenNoCapture))
    PushQuietMoves<true>(g, order, masks, side, promo);
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

template void FastGenerate<3>(Game&, int, bool);
template void FastGenerate<4>(Game&, int, bool);

}  // namespace qv

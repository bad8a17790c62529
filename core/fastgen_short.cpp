// The fast generators of the two rule sets whose kings step one square:
// American (flavour 1: every line pushed as it is found) and Italian (flavour
// 2: men take only men, the longest lines, then those that take most kings,
// then the king's lines).
#include "core/fastgen.h"
#include "core/fastgen_captures.h"
#include "core/movegen_walk.h"

namespace qv {

template <int Flavour>
void FastGenerate(Game& g, int includeQuiet, bool quietWhenNoCapture) {
  static constexpr Mask PromoWhite = MaskOfCells(FastPromoSquares(Flavour)[0]);
  static constexpr Mask PromoBlack = MaskOfCells(FastPromoSquares(Flavour)[1]);
  const int side = g.SideToMove;
  const SideMasks masks = BuildSideMasks(g.Board, side);
  const Mask promo = side == 1 ? PromoWhite : PromoBlack;
  const Mask jumpers = MaskCaptures<Flavour>::Jumpers(masks, side);
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
    PushQuietMoves<false>(g, order, masks, side, promo);
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

template void FastGenerate<1>(Game&, int, bool);
template void FastGenerate<2>(Game&, int, bool);

}  // namespace qv

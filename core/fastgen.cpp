// The fast generators of the four rule sets: American (flavour 1), Italian
// (2), flying kings with the most pieces (3) and flying kings where a man
// crowned in passing jumps on as a king (4). The position is read into masks
// once a call; the capture lines are traced on them, the quiet moves come
// from them. What the masks do not follow goes to the walk with the same
// rules fixed: a man crowned in passing, a line longer than a move holds,
// and quiet moves asked for beside a capture.
#include "core/fastgen.h"

#include "core/board_masks.h"
#include "core/fastgen_captures.h"
#include "core/movegen_walk.h"

namespace qv {

template <int Flavour>
void FastGenerate(Game& g, int includeQuiet, bool quietWhenNoCapture) {
  using Captures = MaskCaptures<Flavour>;
  static constexpr Mask PromoWhite = MaskOfCells(FastPromoSquares(Flavour)[0]);
  static constexpr Mask PromoBlack = MaskOfCells(FastPromoSquares(Flavour)[1]);
  const int side = g.SideToMove;
  const SideMasks masks = BuildSideMasks(g.Board, side);
  const Mask promo = side == 1 ? PromoWhite : PromoBlack;
  const Mask jumpers = Captures::Jumpers(masks, side);
  // With a capture at hand and the quiet moves asked for as well, the walk
  // gives them mixed piece by piece: a case the search never asks for.
  if (jumpers != 0 && includeQuiet > 0) {
    MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  const int startTop = g.PlyBase[g.Ply];
  g.MoveTop = startTop;
  const OrderKeys order(g);
  if (jumpers != 0 && !Captures(g, order, masks, side, promo).Trace(jumpers)) {
    if (quietWhenNoCapture) MoveWalk<FastRules<Flavour>>(g).RunCapturesThenQuiet();
    else MoveWalk<FastRules<Flavour>>(g).Run(includeQuiet);
    return;
  }
  if (g.MoveTop == startTop && (includeQuiet > 0 || quietWhenNoCapture))
    PushQuietMoves<Captures::KingsFly>(g, order, masks, side, promo);
  g.PlyBase[g.Ply + 1] = g.MoveTop;
}

template void FastGenerate<1>(Game&, int, bool);
template void FastGenerate<2>(Game&, int, bool);
template void FastGenerate<3>(Game&, int, bool);
template void FastGenerate<4>(Game&, int, bool);

}  // namespace qv

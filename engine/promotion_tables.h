#pragma once
// Tables the evaluation derives from the promotion squares at each new game.
#include "core/game.h"

namespace qv {

void ScanPromoCones(Game& g);
void BuildPromoTable(Game& g);
void BuildPromoDistance(Game& g);

}  // namespace qv

#include "engine/promotion_tables.h"

namespace qv {

// Filled in with the evaluation.
void ScanPromoCones(Game&) {}
void BuildPromoTable(Game&) {}
void BuildPromoDistance(Game&) {}

}  // namespace qv

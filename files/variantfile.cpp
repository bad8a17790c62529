#include "files/variantfile.h"

namespace qv {

// Placeholder until the reader lands: the built-in American rules stand.
void ReadVariantFile(Game&) {}

}  // namespace qv

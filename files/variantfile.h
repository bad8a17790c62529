#pragma once
// Variant files: one small text file of rule keys per variant.
#include "core/game.h"

namespace qv {

// Reads the file of g.VariantName into VariantDefinition (and a setup into
// Board and StartBoard). Does nothing when no data folder is set.
void ReadVariantFile(Game& g);

}  // namespace qv

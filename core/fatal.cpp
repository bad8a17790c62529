#include "core/fatal.h"

#include <limits>

namespace qv {

void RaiseRangeError(long index, long size) {
  throw RangeError("Subscript out of range: " + std::to_string(index) + " not in 0.." + std::to_string(size - 1));
}

int CheckedAdd(int a, int b) {
  int result;
  if (__builtin_add_overflow(a, b, &result)) throw FatalError("Overflow");
  return result;
}

}  // namespace qv

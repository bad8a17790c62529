#include "core/fatal.h"

#include <limits>

namespace qv {

void RaiseRangeError(long index, long size) {
  throw RangeError("Subscript out of range: " + std::to_string(index) + " not in 0.." + std::to_string(size - 1));
}

namespace {
[[noreturn]] void RaiseOverflow() { throw RangeError("Overflow"); }
}  // namespace

int CheckedAdd(int a, int b) {
  int result;
  if (__builtin_add_overflow(a, b, &result)) RaiseOverflow();
  return result;
}

int CheckedSub(int a, int b) {
  int result;
  if (__builtin_sub_overflow(a, b, &result)) RaiseOverflow();
  return result;
}

int CheckedMul(int a, int b) {
  int result;
  if (__builtin_mul_overflow(a, b, &result)) RaiseOverflow();
  return result;
}

int CheckedAbs(int a) { return a < 0 ? CheckedSub(0, a) : a; }

}  // namespace qv

#pragma once
// The program's one fatal error. Anything that the original design treats as
// "cannot go on" (a table overflow in the generators, a variant file without
// END, an arithmetic overflow in scores) is thrown as a FatalError carrying the
// exact text the user is shown. The caller at the top (window or CLI) reports
// it and ends the program in an orderly way; nothing below catches it except to
// replace a RangeError's text with its own message.
#include <stdexcept>
#include <string>

namespace qv {

struct FatalError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A table index or value outside its range. Routines that own a fatal message
// of their own (the move generators) catch this and throw their FatalError.
struct RangeError : FatalError {
  using FatalError::FatalError;
};

[[noreturn]] void RaiseRangeError(long index, long size);

// Adds two scores; a result outside 32 bits is the fatal overflow path.
int CheckedAdd(int a, int b);

}  // namespace qv

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

// The words of a fatal error: in the game core, and in starting a game with
// rules it cannot apply.
inline constexpr const char* FatalErrorText = "Fatal Error! Quorvanis will exit.";
inline constexpr const char* StartUpErrorText = "Error found! Quorvanis will exit";

struct FatalError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A table index or value outside its range. Routines that own a fatal message
// of their own (the move generators) catch this and throw their FatalError.
struct RangeError : FatalError {
  using FatalError::FatalError;
};

[[noreturn]] void RaiseRangeError(long index, long size);

// Arithmetic on scores and on numbers that come from files or the user: a
// result outside 32 bits is the fatal overflow path. It is raised as a
// RangeError, so that a routine with a fatal message of its own shows that.
int CheckedAdd(int a, int b);
int CheckedSub(int a, int b);
int CheckedMul(int a, int b);
int CheckedAbs(int a);

}  // namespace qv

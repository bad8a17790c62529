#pragma once
// Text and number helpers with one fixed meaning everywhere in the program.
#include <string>
#include <string_view>

namespace qv {

// The longest decimal number at the start of text, after leading blanks
// (an optional sign, digits, an optional fraction, an optional exponent);
// 0 when there is none. "12abc" gives 12, "abc" gives 0.
double Val(std::string_view text);

// Conversion of a number to a 32-bit integer: halves round to the even
// neighbour (2.5 gives 2, 3.5 gives 4). A value outside 32 bits is the fatal
// overflow path.
int ToInt32(double value);

// Val followed by ToInt32: how every number in every file is read.
int ValInt(std::string_view text);

// A number as text with a leading blank when it is not negative: " 5", "-5".
std::string Str(long value);

// The whole part, rounding down: Int(2.7) = 2, Int(-2.5) = -3.
int Int(double value);

std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);
std::string Trim(std::string_view text);

}  // namespace qv

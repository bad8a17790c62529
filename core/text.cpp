#include "core/text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "core/fatal.h"

namespace qv {

double Val(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  std::string number;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) number += text[i++];
  bool digits = false;
  while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) {
    number += text[i++];
    digits = true;
  }
  if (i < text.size() && text[i] == '.') {
    std::string fraction = ".";
    std::size_t j = i + 1;
    while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) fraction += text[j++];
    if (fraction.size() > 1 || digits) {
      number += fraction;
      digits = digits || fraction.size() > 1;
      i = j;
    }
  }
  if (!digits) return 0.0;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    std::string exponent = "e";
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) exponent += text[j++];
    bool expDigits = false;
    while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) {
      exponent += text[j++];
      expDigits = true;
    }
    if (expDigits) number += exponent;
  }
  return std::strtod(number.c_str(), nullptr);
}

int ToInt32(double value) {
  double rounded = std::nearbyint(value);  // the default mode rounds halves to even
  if (!(rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max()))
    throw FatalError("Overflow");
  return static_cast<int>(rounded);
}

int ValInt(std::string_view text) { return ToInt32(Val(text)); }

std::string Str(long value) {
  char buffer[24];
  std::snprintf(buffer, sizeof buffer, value < 0 ? "%ld" : " %ld", value);
  return buffer;
}

int Int(double value) { return ToInt32(std::floor(value)); }

std::string ToUpper(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

std::string ToLower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

std::string Trim(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && std::isspace(static_cast<unsigned char>(text[b]))) ++b;
  while (e > b && std::isspace(static_cast<unsigned char>(text[e - 1]))) --e;
  return std::string(text.substr(b, e - b));
}

}  // namespace qv

#include "engine/timetext.h"

#include <cstdio>

namespace qv {

namespace {

std::string TwoDigits(long value) {
  char text[24];
  std::snprintf(text, sizeof text, "%02ld", value);
  return text;
}

std::string Plural(long value, const char* unit) { return std::to_string(value) + unit + (value == 1 ? "" : "s"); }

}  // namespace

std::string TimeString(long seconds, bool inWords) {
  if (seconds < 0) seconds = 0;
  long hours = seconds / 3600;
  const long rest = seconds % 3600;
  long minutes = (rest + 30) / 60;  // rest / 60 rounded, halves up
  if (minutes == 60) {
    minutes = 0;
    ++hours;
  }
  const std::string text = TwoDigits(hours) + ":" + TwoDigits(minutes) + "." + TwoDigits(seconds % 60);
  return inWords ? TimeWords(text) : text;
}

std::string TimeWords(const std::string& timeText) {
  const auto colon = timeText.find(':');
  const auto dot = timeText.find('.', colon == std::string::npos ? 0 : colon);
  if (colon == std::string::npos || dot == std::string::npos) return timeText;
  const long hours = std::stol(timeText.substr(0, colon));
  const long minutes = std::stol(timeText.substr(colon + 1, dot - colon - 1));
  const long seconds = std::stol(timeText.substr(dot + 1));
  std::string words;
  if (hours > 0) words = Plural(hours, " hour") + ", ";
  if (minutes > 0) words += Plural(minutes, " minute") + (hours > 0 ? ", and " : " and ");
  else if (hours > 0) words += "0 minutes, and ";
  return words + Plural(seconds, " second");
}

}  // namespace qv

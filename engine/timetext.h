#pragma once
// How long the computer thought, as the calculation line and the game log
// show it: "00:01.05", or in words "1 minute and 5 seconds".
#include <string>

namespace qv {

// Hours (at least two digits), ":", minutes, ".", seconds. The minutes are
// the remaining seconds divided by 60 and rounded, as the program has always
// shown them; minutes that round to 60 become 0 and add an hour.
std::string TimeString(long seconds, bool inWords = false);

// "HH:MM.SS" in words: "2 hours, 0 minutes, and 7 seconds",
// "3 minutes and 1 second", "12 seconds".
std::string TimeWords(const std::string& timeText);

}  // namespace qv

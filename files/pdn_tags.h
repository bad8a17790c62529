#pragma once
// The tag lines of a PDN file: which tags the reader takes, and the test that
// a file is PDN at all.
#include <string>
#include <string_view>

#include "core/pdntags.h"

namespace qv {

// Empties every tag; the result and its display copy become "*".
void ResetPdnTags(PdnTags& tags);

// Stores the value of one tag line such as [Event "Open 2024"]. The value is
// the line less the tag name, its blank and opening quote in front and the
// last two characters. A "[QVersion " line goes to *qversion when given.
// Lines of other tags are ignored.
void ParseTagLine(std::string_view line, PdnTags& tags, std::string* qversion = nullptr);

// True when the text (the start of a file) begins, after any CR LF pairs, with
// one of the tags a PDN file may open with.
bool BeginsWithPdnTag(std::string_view text);

}  // namespace qv

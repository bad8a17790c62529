#include "files/pdn_tags.h"

#include <array>

namespace qv {

namespace {

// The tags a file may begin with.
constexpr std::array<std::string_view, 21> OpeningTags = {
    "[Quorvanis \"", "[QVersion \"", "[Event \"", "[Date \"",  "[Site \"",     "[Round \"",    "[Year \"",
    "[Black \"",     "[BlackElo \"", "[White \"", "[WhiteElo \"", "[Result \"", "[SetUp \"",    "[Setup \"",
    "[FEN \"",       "[fen \"",      "[Comment \"", "[ECO \"",  "[eco \"",     "[Rem \"",      "[Ram \""};

struct TagField {
  std::string_view start;
  std::string PdnTags::*field;
};

constexpr std::array<TagField, 19> TagFields = {{
    {"[Event \"", &PdnTags::Event},       {"[Date \"", &PdnTags::Date},         {"[Year \"", &PdnTags::Date},
    {"[Site \"", &PdnTags::Site},         {"[Round \"", &PdnTags::Round},       {"[Black \"", &PdnTags::Black},
    {"[White \"", &PdnTags::White},       {"[BlackElo \"", &PdnTags::BlackElo}, {"[WhiteElo \"", &PdnTags::WhiteElo},
    {"[Result \"", &PdnTags::Result},     {"[SetUp \"", &PdnTags::SetUp},       {"[Setup \"", &PdnTags::SetUp},
    {"[FEN \"", &PdnTags::Fen},           {"[fen \"", &PdnTags::Fen},           {"[ECO \"", &PdnTags::Eco},
    {"[eco \"", &PdnTags::Eco},           {"[Quorvanis \"", &PdnTags::RulesTag}, {"[GameType \"", &PdnTags::GameType},
    {"[Comment \"", nullptr},
}};

std::string ValueOf(std::string_view line, std::string_view start) {
  if (line.size() < start.size() + 2) return {};
  return std::string(line.substr(start.size(), line.size() - start.size() - 2));
}

}  // namespace

void ResetPdnTags(PdnTags& tags) { tags = PdnTags{}; }

void ParseTagLine(std::string_view line, PdnTags& tags, std::string* qversion) {
  for (const TagField& tag : TagFields) {
    if (!line.starts_with(tag.start)) continue;
    if (tag.field == nullptr) return;
    tags.*tag.field = ValueOf(line, tag.start);
    if (tag.field == &PdnTags::Result) tags.ResultShown = tags.Result;
    return;
  }
  constexpr std::string_view version = "[QVersion \"";
  if (qversion != nullptr && line.starts_with(version)) *qversion = ValueOf(line, version);
}

bool BeginsWithPdnTag(std::string_view text) {
  // A byte order mark of UTF-8 is not part of the text.
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  while (text.starts_with("\r\n")) text.remove_prefix(2);
  for (std::string_view tag : OpeningTags)
    if (text.starts_with(tag)) return true;
  return false;
}

}  // namespace qv

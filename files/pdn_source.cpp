#include "files/pdn_source.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "core/text.h"
#include "files/pdn_tags.h"

namespace qv {

namespace {

constexpr std::size_t BlockSize = 1000;

bool ReadWholeFile(const std::filesystem::path& file, std::string& text) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return !in.bad();
}

// An LF-only file: block by block, each block cut at its first NUL, lines
// split at LF and written with CR LF. Text after the last LF is kept as a
// line of its own.
std::string CopyWithCrLf(const std::string& original) {
  std::string joined;
  for (std::size_t start = 0; start < original.size(); start += BlockSize) {
    std::string block = original.substr(start, BlockSize);
    if (const std::size_t nul = block.find('\0'); nul != std::string::npos) block.resize(nul);
    joined += block;
  }
  std::string copy;
  std::size_t from = 0;
  while (from < joined.size()) {
    std::size_t lf = joined.find('\n', from);
    if (lf == std::string::npos) lf = joined.size();
    copy.append(joined, from, lf - from);
    copy += "\r\n";
    from = lf + 1;
  }
  return copy;
}

std::string InsertMissingCr(const std::string& original) {
  std::string copy;
  copy.reserve(original.size() + original.size() / 20);
  for (std::size_t i = 0; i < original.size(); ++i) {
    if (original[i] == '\n' && (i == 0 || original[i - 1] != '\r')) copy += '\r';
    copy += original[i];
  }
  return copy;
}

// The temporary copy is written, read back and deleted, as the file the
// reader works from.
bool ThroughTemporary(const std::string& copy, const std::filesystem::path& tempFolder, std::string& text) {
  const std::filesystem::path temp = tempFolder / PdnTempName;
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(copy.data(), static_cast<std::streamsize>(copy.size()));
    if (!out) return false;
  }
  const bool ok = ReadWholeFile(temp, text);
  std::error_code ignored;
  std::filesystem::remove(temp, ignored);
  return ok;
}

std::string BareName(const std::filesystem::path& file) { return file.filename().string(); }

}  // namespace

RepairedText ReadWithRepairedLineEnds(const std::filesystem::path& file, const std::filesystem::path& tempFolder) {
  RepairedText result;
  std::string original;
  if (!ReadWholeFile(file, original)) {
    result.Failed = true;
    return result;
  }
  const std::string head = original.substr(0, BlockSize);
  if (head.find('\r') == std::string::npos) {
    result.UsedTemporary = true;
    result.Failed = !ThroughTemporary(CopyWithCrLf(original), tempFolder, result.Text);
    return result;
  }
  const std::size_t firstLf = original.find('\n');
  if (firstLf != std::string::npos && (firstLf == 0 || original[firstLf - 1] != '\r')) {
    // The look-back before the first LF has nothing to look at.
    if (firstLf == 0) {
      result.Failed = true;
      return result;
    }
    result.UsedTemporary = true;
    result.Failed = !ThroughTemporary(InsertMissingCr(original), tempFolder, result.Text);
    return result;
  }
  result.Text = std::move(original);
  return result;
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' || c == '\n') {
      lines.push_back(line);
      line.clear();
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      line += c;
    }
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

PdnCollection ScanPdnLines(const std::vector<std::string>& lines) {
  PdnCollection collection;
  PdnTags tags;
  ResetPdnTags(tags);
  bool inMovetext = true;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string line = Trim(lines[i]);
    if (i == 0 && line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
    if (line.starts_with("[")) inMovetext = false;
    if (line.empty() || inMovetext) continue;
    if (line.starts_with("[")) {
      ParseTagLine(line, tags, &collection.QVersionValue);
      continue;
    }
    // The first movetext line of a game; the movetext runs to an empty line,
    // a tag line or the end of the file.
    inMovetext = true;
    PdnGameEntry game;
    game.Tags = tags;
    game.Movetext.push_back(line);
    for (std::size_t j = i + 1; j < lines.size(); ++j) {
      const std::string next = Trim(lines[j]);
      if (next.empty() || next.starts_with("[")) break;
      game.Movetext.push_back(next);
    }
    collection.Games.push_back(std::move(game));
    ResetPdnTags(tags);
  }
  collection.TagsAfterLast = tags;
  return collection;
}

PdnOpenResult OpenPdnFile(const std::filesystem::path& file, const std::filesystem::path& tempFolder) {
  PdnOpenResult result;
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) {
    result.Status = PdnOpenStatus::Missing;
    result.Message = BareName(file) + " does not exist";
    return result;
  }
  const RepairedText repaired = ReadWithRepairedLineEnds(file, tempFolder);
  if (repaired.Failed) {
    result.Status = PdnOpenStatus::Failed;
    result.Message = "Error in loading PDN file!";
    return result;
  }
  if (!BeginsWithPdnTag(std::string_view(repaired.Text).substr(0, 80))) {
    // The user's file is left as it is, whatever it holds.
    result.Status = PdnOpenStatus::NotPdn;
    result.Message = BareName(file) + " is not a PDN file";
    return result;
  }
  result.Collection = ScanPdnLines(SplitLines(repaired.Text));
  if (result.Collection.Games.empty()) {
    result.Status = PdnOpenStatus::NoGames;
    result.Message = "No games found!";
    return result;
  }
  result.Status = PdnOpenStatus::Read;
  return result;
}

std::array<std::string, 10> PdnChooserRow(const PdnTags& t) {
  const std::string event = t.Round.empty() ? t.Event : t.Event + " " + t.Round;
  return {event, t.Date, t.Black, t.White, t.ResultShown, t.Site, t.SetUp, t.Eco, t.BlackElo, t.WhiteElo};
}

}  // namespace qv

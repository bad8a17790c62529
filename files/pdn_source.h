#pragma once
// Reading a PDN file into its games: the repair of line ends through the
// temporary copy "quorvanis.tmp", the test that the file is PDN, and the scan
// that finds each game's tags and movetext.
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "core/pdntags.h"

namespace qv {

inline constexpr const char* PdnTempName = "quorvanis.tmp";

// One game of a file: its tags and the lines of its movetext, from the first
// line that is no tag up to an empty line, a tag line or the end of the file.
struct PdnGameEntry {
  PdnTags Tags;
  std::vector<std::string> Movetext;
};

struct PdnCollection {
  std::vector<PdnGameEntry> Games;
  std::string QVersionValue;  // the last "[QVersion " of the file
  PdnTags TagsAfterLast;      // tags standing after the last game's first movetext line
};

enum class PdnOpenStatus { Read, Missing, NotPdn, NoGames, Failed };

struct PdnOpenResult {
  PdnOpenStatus Status = PdnOpenStatus::Failed;
  std::string Message;  // the words of the box for NotPdn, NoGames and Failed
  PdnCollection Collection;
};

// The text of a file with every line ended by CR LF. A file whose first
// 1,000 bytes hold no CR is copied line by line (a block cut at its first NUL)
// into tempFolder/quorvanis.tmp; one whose first LF stands alone although it
// holds CRs gets a CR before each lone LF, also through that copy; any other
// file is read as it is. The temporary copy is deleted after reading; the
// user's file is never changed. failed is set when the file cannot be read or
// begins with a lone LF while holding CRs.
struct RepairedText {
  std::string Text;
  bool UsedTemporary = false;
  bool Failed = false;
};
RepairedText ReadWithRepairedLineEnds(const std::filesystem::path& file, const std::filesystem::path& tempFolder);

// The lines of a text, split at CR LF, LF or a lone CR.
std::vector<std::string> SplitLines(const std::string& text);

// The scan pass: games, their tags and movetext lines.
PdnCollection ScanPdnLines(const std::vector<std::string>& lines);

// Repair, type check and scan of a file. Only the program's own temporary
// copy is ever deleted: a file that is not PDN stays as it was.
PdnOpenResult OpenPdnFile(const std::filesystem::path& file, const std::filesystem::path& tempFolder);

// The ten columns of the chooser: Event (with the round behind it), Date,
// Black, White, Result, Site, Setup, Eco, BlackElo, WhiteElo.
inline constexpr std::array<const char*, 10> PdnChooserColumns = {"Event", "Date",  "Black", "White",    "Result",
                                                                   "Site",  "Setup", "Eco",   "BlackElo", "WhiteElo"};
std::array<std::string, 10> PdnChooserRow(const PdnTags& tags);

}  // namespace qv

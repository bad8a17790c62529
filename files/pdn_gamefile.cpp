// The PDN branch of LoadGame and SaveGame: one game of a collection read
// without asking (the first, the one asked for, or an opening at random),
// and a game appended to a PDN file.
#include <fstream>
#include <iterator>
#include <system_error>

#include "core/text.h"
#include "files/gamefile.h"
#include "files/pdn_read.h"
#include "files/pdn_write.h"

namespace qv {

namespace {

std::filesystem::path TemporaryFolder() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  return error ? std::filesystem::current_path(error) : folder;
}

}  // namespace

LoadResult LoadPdnGameNumber(Game& g, const std::filesystem::path& file, int source, int number) {
  LoadResult result;
  result.fileName = file.filename().string();
  // The openings are offered only where they can be played.
  if (source == LoadOpeningFile && !OpeningsApply(g)) return result;
  const PdnOpenResult open = OpenPdnFile(file, TemporaryFolder());
  if (open.Status == PdnOpenStatus::Missing && source != LoadChosenFile) return result;
  if (open.Status != PdnOpenStatus::Read) {
    result.message = open.Message;
    result.caption = open.Status == PdnOpenStatus::NoGames ? "Quorvanis" : "Error";
    return result;
  }
  const int count = static_cast<int>(open.Collection.Games.size());
  if (number == 0) number = source != LoadChosenFile && g.Settings.BookRandom == 1 ? Int(g.Rnd() * count) + 1 : 1;
  if (number < 1 || number > count) {
    result.message = result.fileName + " holds " + std::to_string(count) + (count == 1 ? " game" : " games");
    result.caption = "Error";
    return result;
  }
  PdnLoadChoice choice;
  choice.Source = source == LoadOpeningFile ? 1 : 0;
  const PdnLoadResult read = ReadPdnGame(g, open.Collection, number, choice);
  if (read.Status != PdnLoadStatus::Loaded) {
    result.message = read.Message;
    result.caption = "Error";
    return result;
  }
  result.loaded = true;
  return result;
}

LoadResult LoadPdnGame(Game& g, const std::filesystem::path& file, int source) {
  return LoadPdnGameNumber(g, file, source, 0);
}

FileWriteResult SavePdnGame(Game& g, const std::filesystem::path& file) {
  std::string content;
  std::error_code error;
  if (std::filesystem::exists(file, error)) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return {false, file.filename().string() + " cannot be read"};
    content.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  // A PDN file gathers games: this one goes after those already there.
  content += PdnGameText(g, TodayText());
  return WriteFileAtomically(file, content);
}

}  // namespace qv

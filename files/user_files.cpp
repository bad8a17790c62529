#include "files/user_files.h"

#include <ctime>

#include "files/rating.h"

namespace qv {

void OpenUserFiles(UserFiles& files, Game& g) {
  if (files.Folder.empty()) return;
  g.Rating.PlayerRating = ReadRating(files.Folder / RatingFileName);
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  OpenGameLog(files.Log, files.Folder / GameLogFileName, local);
}

void CloseUserFiles(UserFiles& files, const Game& g) {
  if (files.Folder.empty()) return;
  WriteRating(files.Folder / RatingFileName, g.Rating.PlayerRating);
  CloseGameLog(files.Log);
}

}  // namespace qv

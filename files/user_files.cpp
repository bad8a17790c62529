#include "files/user_files.h"

#include <ctime>

#include "files/rating.h"

namespace qv {

void OpenUserFiles(UserFiles& files, Game& g) {
  if (g.WritableFolder.empty()) return;
  g.Rating.PlayerRating = ReadRating(g.WritableFolder / RatingFileName);
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  OpenGameLog(files.Log, g.WritableFolder / GameLogFileName, local);
}

void CloseUserFiles(UserFiles& files, const Game& g) {
  if (g.WritableFolder.empty()) return;
  WriteRating(g.WritableFolder / RatingFileName, g.Rating.PlayerRating);
  CloseGameLog(files.Log);
}

}  // namespace qv

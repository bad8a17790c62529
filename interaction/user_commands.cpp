#include "interaction/user_commands.h"

#include "files/diagram.h"
#include "files/rating.h"

namespace qv {

void RatingCommand(Session& s) {
  s.window.ShowMessage(RatingBoxText(s.game.Rating.PlayerRating), "Rating", BoxIcon::Warning);
}

void CreateDiagramCommand(Session& s) {
  const std::filesystem::path folder = s.game.WritableFolder;
  if (folder.empty()) return;
  if (!WriteDiagram(s.game, s.screen.Text1, folder, s.game.DataFolder)) {
    s.window.ShowMessage("Could not write " + (folder / DiagramFileName).string(), "Error", BoxIcon::Warning);
    return;
  }
  s.window.ShowMessage("DIAGRAM.HTML created", "Diagram", BoxIcon::Warning);
}

std::string RateGameEnd(Session& s, double score) {
  UpdateRating(s.game, score);
  return s.game.Rating.RatingMessage;
}

void LogLine(Session& s, const std::string& text) {
  if (s.files) WriteLogLine(s.files->Log, text);
}

void LogGameHeader(Session& s) {
  if (s.files) LogHeader(s.files->Log, s.game);
}

}  // namespace qv

#include "interaction/pdn_commands.h"

#include <system_error>

#include "core/makemove.h"
#include "core/text.h"
#include "files/pdn_read.h"
#include "files/pdn_write.h"
#include "files/variantfile.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/filecommands.h"
#include "interaction/movelist.h"
#include "interaction/pdn_forms.h"

namespace qv {

namespace {

void ShowOpenFailure(Session& s, const PdnOpenResult& open) {
  switch (open.Status) {
    case PdnOpenStatus::NotPdn: s.window.ShowMessage(open.Message, "Error", BoxIcon::Warning); break;
    case PdnOpenStatus::NoGames: s.window.ShowMessage(open.Message, "Quorvanis", BoxIcon::None); break;
    case PdnOpenStatus::Missing: s.window.ShowMessage(open.Message, "Error", BoxIcon::Warning); break;
    default: s.window.ShowMessage(open.Message, "Error", BoxIcon::Warning); break;
  }
}

// The game number the user or chance chooses; 0 when the chooser was cancelled.
int ChooseGame(Session& s, const PdnCollection& collection, int source, std::string& openAs) {
  Game& g = s.game;
  const int count = static_cast<int>(collection.Games.size());
  if (source != 0 && g.Settings.BookRandom == 1) return Int(g.Rnd() * count) + 1;
  PdnChooserForm form = MakePdnChooser(collection, VariantFolder(g.DataFolder, g.Settings.UseClassic), source);
  if (!s.window.ShowPdnChooser(form)) return 0;
  openAs = OpenAsVariantOf(form);
  return ChosenGameOf(form);
}

// The screen of a loaded game: board, move list, players, result.
void ShowLoadedGame(Session& s, const PdnLoadResult& result, const std::filesystem::path& file, int source) {
  Game& g = s.game;
  Screen& sc = s.screen;
  ShowNewGame(s);
  RewriteMoveList(s, g.Settings.NotationKind);
  if (source == 0) {
    const std::string& first = g.RuleSet.BlackStarts == 1 ? g.Tags.Black : g.Tags.White;
    const std::string& second = g.RuleSet.BlackStarts == 1 ? g.Tags.White : g.Tags.Black;
    g.FirstPlayerName = first.empty() ? "Player" : first;
    g.SecondPlayerName = second.empty() ? "Player" : second;
    sc.Title = "Quorvanis 1.58 - " + file.filename().string();
  }
  RefreshPlayers(s);
  RefreshBoard(s, 0);
  RefreshMoveChoices(s);
  const int moved = g.HalfMoveCount > 0 ? 1 : 0;
  EnableCommand(s, Command::First, moved);
  EnableCommand(s, Command::Back, moved);
  EnableCommand(s, Command::Forward, 0);
  EnableCommand(s, Command::Last, 0);
  sc.List1Selected = g.HalfMoveCount - 1;
  sc.Text1 = g.Record.CommentTable[g.HalfMoveCount];
  sc.StatusText = source == 0 ? result.StatusText : (g.SideToMove == 1 ? "White moves" : "Black moves");
  sc.ProgressValue = 0;
  s.window.Changed(Part::All);
}

}  // namespace

std::filesystem::path PdnTempFolder() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  return error ? std::filesystem::current_path(error) : folder;
}

void LoadPdnCommand(Session& s, const std::filesystem::path& chosen, int source) {
  Game& g = s.game;
  std::filesystem::path file = chosen;
  if (source == 1) {
    if (!OpeningsApply(g)) return;
    file = g.DataFolder / "opening.pdn";
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return;
  }
  ClearGameScreen(s);
  const PdnOpenResult open = OpenPdnFile(file, PdnTempFolder());
  if (open.Status != PdnOpenStatus::Read) {
    ShowOpenFailure(s, open);
    return;
  }
  PdnLoadChoice choice;
  choice.Source = source;
  const int number = ChooseGame(s, open.Collection, source, choice.OpenAs);
  if (number == 0) {
    RefreshBoard(s, 0);
    s.window.Changed(Part::All);
    return;
  }
  if (source == 0) {
    s.screen.StatusText = "Loading and analyzing...";
    s.window.Changed(Part::Status);
  }
  s.screen.Busy = 1;
  const PdnLoadResult result = ReadPdnGame(g, open.Collection, number, choice);
  s.screen.Busy = 0;
  if (result.Status != PdnLoadStatus::Loaded) {
    ShowNewGame(s);
    RefreshPlayers(s);
    RefreshBoard(s, 0);
    RefreshMoveChoices(s);
    s.window.Changed(Part::All);
    s.window.ShowMessage(result.Message, "Error", BoxIcon::Warning);
    return;
  }
  CheckCommand(s, Command::NotationAlgebraic, g.Settings.NotationKind == 0 ? 1 : 0);
  CheckCommand(s, Command::NotationNumeric, g.Settings.NotationKind == 1 ? 1 : 0);
  CheckCommand(s, Command::NotationNone, g.Settings.NotationKind == 2 ? 1 : 0);
  ShowLoadedGame(s, result, file, source);
}

void ChooseOpeningIfAsked(Session& s) {
  if (s.game.Settings.ChooseOpening == 1) LoadPdnCommand(s, {}, 1);
}

bool SavePdnCommand(Session& s, const std::filesystem::path& file) {
  std::string error;
  if (!AppendPdnGame(file, s.game, error)) {
    s.window.ShowMessage(error, "Error", BoxIcon::Warning);
    return false;
  }
  s.screen.Title = "Quorvanis 1.58 - " + file.filename().string();
  s.window.Changed(Part::All);
  return true;
}

void DetailsCommand(Session& s) { s.window.ShowDetailsDialog(s.game.Tags); }

}  // namespace qv

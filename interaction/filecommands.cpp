#include "interaction/filecommands.h"

#include <system_error>

#include "files/domoves.h"
#include "files/gamefile.h"
#include "files/paths.h"
#include "files/settings.h"
#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/movelist.h"
#include "interaction/pdn_commands.h"

namespace qv {

namespace fs = std::filesystem;

void ClearGameScreen(Session& s) {
  Screen& sc = s.screen;
  sc.StatusText.clear();
  sc.List3.clear();
  sc.Label9 = "no calculation";
  sc.Text1.clear();
  sc.Text2.clear();
  sc.ProgressValue = 0;
  s.window.Changed(Part::All);
}

namespace {

void ReportWriteFailure(Session& s, const FileWriteResult& result) {
  if (!result.ok) s.window.ShowMessage(result.error, "Error", BoxIcon::Exclamation);
}

// The game as it stands after a load: the lists, the commands, the board.
void ShowLoadedGame(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  ShowNewGame(s);
  RewriteMoveList(s, g.Settings.NotationKind);
  CheckNotation(s);
  const int moves = g.HalfMoveCount > 0 ? 1 : 0;
  EnableCommand(s, Command::First, moves);
  EnableCommand(s, Command::Back, moves);
  sc.StatusText.clear();
  sc.Text1 = g.Record.CommentTable[g.HalfMoveCount];
  RefreshBoard(s, 0);
  RefreshMoveChoices(s);
  s.window.Changed(Part::All);
}

fs::path WritableFile(const Game& g, const char* name) { return g.WritableFolder / name; }

}  // namespace

const std::vector<std::string>& GameFileFilters() {
  static const std::vector<std::string> filters = {"Quorvanis File (*.qvn)", "Portable Draughts Notation File (*.pdn)"};
  return filters;
}

std::string FileCaption(const std::string& bareName) { return " Quorvanis 1.58 Beta - " + bareName; }

bool LoadIntoWindow(Session& s, const fs::path& file, int source) {
  ClearGameScreen(s);
  const LoadResult result = LoadGame(s.game, file, source);
  if (!result.message.empty())
    s.window.ShowMessage(result.message, result.caption.empty() ? "Quorvanis" : result.caption, BoxIcon::Exclamation);
  ShowLoadedGame(s);
  if (result.loaded && source == LoadChosenFile) s.screen.Title = FileCaption(result.fileName);
  s.window.Changed(Part::All);
  return result.loaded;
}

void OpenCommand(Session& s) {
  if (s.screen.Busy == 1) return;
  if (s.game.GameInProgress != 0 && !s.window.AskYesNo("Quit current game?", "Confirmation")) return;
  const fs::path file = s.window.ChooseGameFile("Load Game", GameFileFilters(), false);
  if (!file.empty()) OpenGameFile(s, file);
}

void OpenGameFile(Session& s, const fs::path& file) {
  std::error_code ec;
  if (!fs::exists(file, ec)) {
    s.window.ShowMessage(file.filename().string() + " does not exist", "Quorvanis", BoxIcon::Exclamation);
    return;
  }
  // A collection offers its games in the chooser first.
  if (IsPdnFile(file)) {
    LoadPdnCommand(s, file, LoadChosenFile);
    return;
  }
  LoadIntoWindow(s, file, LoadChosenFile);
}

void SaveCommand(Session& s) {
  if (s.screen.Busy == 1) return;
  const fs::path file = s.window.ChooseGameFile("Save Game", GameFileFilters(), true);
  if (file.empty()) return;
  const std::string bareName = file.filename().string();
  s.screen.Title = FileCaption(bareName);
  s.window.Changed(Part::Status);
  // A PDN game is added to its file, so only the program's own files are asked about.
  std::error_code ec;
  if (!IsPdnFile(file) && fs::exists(file, ec) &&
      !s.window.AskYesNo(bareName + " already exists, overwrite?", "Confirmation"))
    return;
  ReportWriteFailure(s, SaveGame(s.game, file));
}

void ReadStartSettings(Session& s) {
  Game& g = s.game;
  if (g.WritableFolder.empty()) return;
  ReadSettings(g, WritableFile(g, SettingsFileName));
}

void DoMovesIfAsked(Session& s) {
  Game& g = s.game;
  if (g.RuleSet.DoMoves != 1) return;
  const fs::path folder = g.WritableFolder.empty() ? TemporaryFilePath().parent_path() : g.WritableFolder;
  const LoadResult result = DoOpeningMoves(g, folder);
  if (!result.message.empty())
    s.window.ShowMessage(result.message, result.caption.empty() ? "Quorvanis" : result.caption, BoxIcon::Exclamation);
  ShowLoadedGame(s);
}

void OpenStartGame(Session& s) {
  Game& g = s.game;
  DoMovesIfAsked(s);
  if (g.Settings.AutoSave != 1 || g.WritableFolder.empty()) return;
  const fs::path autosave = WritableFile(g, AutosaveFileName);
  std::error_code ec;
  if (fs::exists(autosave, ec)) LoadIntoWindow(s, autosave, LoadAutosave);
}

bool ExitCommand(Session& s) {
  if (s.game.Settings.ConfirmExit != 1) return true;
  return s.window.AskYesNo("Are you sure you want to exit?", "Confirmation");
}

void SaveOnExit(Session& s) {
  Game& g = s.game;
  if (g.WritableFolder.empty()) return;
  ReportWriteFailure(s, SaveGame(g, WritableFile(g, AutosaveFileName)));
  ReportWriteFailure(s, WriteSettings(g, WritableFile(g, SettingsFileName)));
}

}  // namespace qv

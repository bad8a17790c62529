#pragma once
// What the interaction code needs from whatever draws the window: modal boxes,
// sounds, the pointer, the set-up popup, a note that some part of the screen
// changed, and a worker that runs engine jobs (the computer's turn) on a copy
// of the game. The Qt main window
// implements it; the tests implement it with a recorder.
#include <filesystem>
#include <string>
#include <vector>

#include "interaction/engine_worker.h"
#include "interaction/screen.h"

namespace qv {

struct PdnChooserForm;
struct PdnTags;

enum class BoxIcon { None, Exclamation, Question, Warning, Information };

// The set-up popup's items, in the order they are shown.
enum class PopupItem { None, ClearBoard, Empty, BlackChecker, BlackKing, WhiteChecker, WhiteKing, BlackMoves, WhiteMoves, Priority };

// The check marks the popup opens with.
struct PopupChecks {
  PopupItem piece = PopupItem::Empty;  // what stands on the cell
  int blackMoves = 0;
  int whiteMoves = 0;
  int priority = 0;
};

// Why the computer is asked to move; decides what happens when it is done.
enum class TurnReason { Reply, ReplyDirect, Compute, ComputerComputer };

class WindowLayer {
 public:
  virtual ~WindowLayer() = default;

  virtual void ShowMessage(const std::string& text, const std::string& caption, BoxIcon icon) = 0;
  // A Yes/No question; true for Yes.
  virtual bool AskYesNo(const std::string& text, const std::string& caption) = 0;
  virtual void PlaySound(const std::filesystem::path& file) = 0;
  // The carrying pointer: the icon role of the piece, or ImageRole::None for the normal one.
  virtual void SetPointer(ImageRole icon) = 0;
  // Shows the popup at the pointer and returns the item chosen, None when dismissed.
  virtual PopupItem RunSetupPopup(const PopupChecks& checks) = 0;
  // Some of the screen's state changed: the window redraws what the parts name.
  virtual void Changed(unsigned parts) = 0;
  // Runs `job` on the worker over a copy of g. When it is over the window
  // runs the step the job handed back on its own thread (a fatal error of the
  // job ends the program instead). One job at a time.
  virtual void StartEngineJob(const Game& g, EngineJob job) = 0;
  // Cancel: the running job's search moves at once.
  virtual void StopEngineJob() = 0;
  // The rules dialog of "New Variant..."; it may change RuleSet. Windows
  // without it leave the rules as they are.
  virtual bool ShowVariantsDialog() { return false; }
  // The Load Game and Save Game dialogs: the title, the file kinds in the
  // order shown, the folder to start in. An empty path when cancelled.
  virtual std::filesystem::path ChooseGameFile(const std::string& /*title*/, const std::vector<std::string>& /*filters*/,
                                               bool /*save*/) {
    return {};
  }
  // Hands a link or address to the system's browser or mail program. A link
  // that cannot be opened is not reported.
  virtual void OpenLink(const std::string& /*link*/) {}
  // The modal windows of the Help menu.
  virtual void ShowRulesWindow() {}
  virtual void ShowAboutWindow() {}
  // dlgPDN, modal: true for OK, with the chosen row and "Open as:" in the form.
  virtual bool ShowPdnChooser(PdnChooserForm& /*form*/) { return false; }
  // dlgDetails, modal, on the tags of the game.
  virtual void ShowDetailsDialog(PdnTags& /*tags*/) {}
  // Loads a skin's picture into the role's slot of the skin's picture set;
  // false when the file is missing or is not a picture.
  virtual bool LoadSkinPicture(ImageRole /*role*/, const std::filesystem::path& /*file*/) { return false; }
  // The Options dialog, modal, on the settings of the game: OK and Apply store
  // its controls into them.
  virtual void ShowOptionsDialog() {}
};

}  // namespace qv

#pragma once
// What the computer's turn and the end-of-game rules tell the user, and the
// one question they ask. The desktop window and the command-line tool each
// implement it; every member has a silent default.
#include <string>
#include <vector>

namespace qv {

struct RootScore;

class DriverUi {
 public:
  virtual ~DriverUi() = default;
  // The first panel of the status bar: "Thinking...", "White wins!", ...
  virtual void SetStatus(const std::string& /*text*/) {}
  // The running calculation under the board.
  virtual void SetCalculation(const std::string& /*text*/) {}
  // "Strength: 9   Time: 2 sec".
  virtual void SetStrengthLabel(const std::string& /*text*/) {}
  virtual void SetProgress(int /*value*/, int /*maximum*/) {}
  // A modal box: caption "Congratulations", "Error", ...
  virtual void ShowMessage(const std::string& /*caption*/, const std::string& /*text*/) {}
  // A Yes/No box; true for Yes.
  virtual bool AskYesNo(const std::string& /*caption*/, const std::string& /*text*/) { return false; }
  // A pause the program makes before showing a result; may be skipped.
  virtual void Pause(double /*seconds*/) {}
  // The computer is about to think (true) or has finished (false): the window
  // disables or enables its commands.
  virtual void SetThinking(bool /*thinking*/) {}
  // The game ended; score is the player's (1 win, 0.5 draw, 0 loss).
  virtual void GameEnded(double /*playerScore*/) {}
  // The root moves of the turn with their scores, highest first, before the
  // move is played.
  virtual void ShowRootScores(const std::vector<RootScore>& /*scores*/) {}
  // A move entered the record (its MoveTextTable text is written).
  virtual void MoveRecorded(int /*halfMove*/) {}
};

}  // namespace qv

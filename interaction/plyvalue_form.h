#pragma once
// The logic of the ply value table's window frmPV: the command that searches
// the table off the window thread, the sort box, Cancel, and the texts the
// window shows.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/plyvalue.h"
#include "interaction/session.h"

namespace qv {

class ThinkingReport;

struct PlyValueForm {
  std::vector<std::string> sortNames;  // Combo1, in its order
  int sortIndex = 0;
  std::string status;     // "Searching..." or "Done!"
  std::string label;      // the running best line
  std::string text;       // Text1: the table
  int progress = 0, progressMax = 1;
  bool searching = false;  // Cancel (Command2) is live
  PlyValueTable table;     // the rows in the order the search filled them
  std::shared_ptr<ThinkingReport> live;  // what the search under way says
};

// "Show Ply Value Table": shows the form and searches the table of the
// position to PlyValueDepth, every command locked; `changed` runs on the
// window thread whenever the form's texts change.
void PlyValueTableCommand(Session& s, PlyValueForm& form, std::function<void()> changed);

// Combo1: the table sorted again, without searching again.
void ChangePlyValueSort(PlyValueForm& form, int index);

// Command2 ("Cancel"): the table ends with the rows done.
void CancelPlyValueTable(Session& s);

// What the running search has said since the last call; false when nothing.
bool FollowPlyValueSearch(PlyValueForm& form);

}  // namespace qv

#include "interaction/plyvalue_form.h"

#include <algorithm>

#include "interaction/boardview.h"
#include "interaction/commands.h"
#include "interaction/engine_worker.h"
#include "interaction/mouse_entry.h"

namespace qv {

namespace {

void ShowTable(PlyValueForm& form) { form.text = PlyValueText(form.table, form.sortIndex); }

void PlyValueTableFinished(Session& s, PlyValueForm& form, PlyValueTable table) {
  FollowPlyValueSearch(form);
  form.live.reset();
  form.table = std::move(table);
  form.searching = false;
  form.status = "Done!";
  form.progress = form.progressMax;
  form.sortIndex = SortBestDifference;
  ShowTable(form);
  s.screen.Busy = 0;
  UnlockAfterSearch(s);
  RefreshBoard(s, 0);
  if (s.game.GameOver == 0 && s.game.Settings.ShowAvailableMoves == 1) MarkMovablePieces(s);
  s.window.Changed(Part::All);
}

}  // namespace

void PlyValueTableCommand(Session& s, PlyValueForm& form, std::function<void()> changed) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (sc.Busy == 1) return;
  g.StopRequest = 0;
  g.SearchCancelled = 0;
  form.sortNames.assign(PlyValueSortNames.begin(), PlyValueSortNames.end());
  form.sortIndex = SortBestDifference;
  form.status = "Searching...";
  form.label.clear();
  form.text.clear();
  form.table = PlyValueTable{};
  form.progress = 0;
  form.progressMax = std::max(1, static_cast<int>(sc.List2.size()));
  form.searching = true;
  // The commands are locked as for the computer's turn, the markers taken
  // off the board; the lists beside the board stay as they are.
  const std::vector<std::string> list2 = sc.List2, list3 = sc.List3;
  LockForSearch(s);
  sc.List2 = list2;
  sc.List3 = list3;
  sc.StatusText.clear();
  RefreshBoard(s, 0);
  sc.Busy = 1;
  s.window.Changed(Part::All);
  if (changed) changed();

  const int depth = std::clamp(g.Settings.PlyValueDepth, PlyValueDepthLowest, PlyValueDepthHighest);
  auto live = std::make_shared<ThinkingReport>();
  form.live = live;
  s.window.StartEngineJob(g, [live, depth, &form, changed](Game& work, ThinkingReport&) -> ApplyOnWindow {
    PlyValueWatch watch;
    watch.rowStarted = [&live](int row, int count) { live->SetProgress(row, count); };
    watch.newBest = [&live](const std::string& label) { live->SetCalculation(label); };
    PlyValueTable table = SearchPlyValueTable(work, depth, watch);
    return [table = std::move(table), &form, changed](Session& s) mutable {
      PlyValueTableFinished(s, form, std::move(table));
      if (changed) changed();
    };
  });
}

void ChangePlyValueSort(PlyValueForm& form, int index) {
  if (index < 0 || index >= static_cast<int>(PlyValueSortNames.size())) return;
  form.sortIndex = index;
  if (!form.searching) ShowTable(form);
}

void CancelPlyValueTable(Session& s) { CancelCommand(s); }

bool FollowPlyValueSearch(PlyValueForm& form) {
  if (!form.live) return false;
  ThinkingReport::Snapshot now;
  if (!form.live->Take(now)) return false;
  if (!now.calculation.empty()) form.label = now.calculation;
  if (now.maximum > 0) {
    form.progress = now.progress;
    form.progressMax = now.maximum;
  }
  return true;
}

}  // namespace qv

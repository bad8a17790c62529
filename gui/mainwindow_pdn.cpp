// The main window's PDN dialogs: the chooser of a collection's games and the game's details.
#include <QMenu>

#include "gui/detailsdialog.h"
#include "gui/mainwindow.h"
#include "gui/pdndialog.h"
#include "interaction/pdn_commands.h"

namespace qv::gui {

void MainWindow::AddDetailsCommand(QMenu* gameMenu) {
  QAction* details = gameMenu->addAction("Details...");
  connect(details, &QAction::triggered, this, [this] {
    if (screen_.Busy == 1) return;
    DetailsCommand(session_);
  });
}

bool MainWindow::ShowPdnChooser(PdnChooserForm& form) { return ShowPdnDialog(this, form); }

void MainWindow::ShowDetailsDialog(PdnTags& tags) { gui::ShowDetailsDialog(this, tags); }

}  // namespace qv::gui

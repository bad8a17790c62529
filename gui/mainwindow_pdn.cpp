// The main window's PDN commands: open a collection, save a game, details.
#include <QFileDialog>
#include <QMenu>

#include "gui/detailsdialog.h"
#include "gui/mainwindow.h"
#include "gui/pdndialog.h"
#include "interaction/pdn_commands.h"

namespace qv::gui {

namespace {
const char* PdnFilter = "Portable Draughts Notation File (*.pdn)";
}

void MainWindow::AddPdnCommands(QMenu* gameMenu) {
  QAction* open = gameMenu->addAction("Open PDN...");
  connect(open, &QAction::triggered, this, [this] {
    if (screen_.Busy == 1) return;
    if (game_->GameInProgress != 0 && !AskYesNo("Quit current game?", "Confirmation")) return;
    const QString path = QFileDialog::getOpenFileName(this, "Load Game", QString(), PdnFilter);
    if (path.isEmpty()) return;
    LoadPdnCommand(session_, path.toStdString(), 0);
    Sync();
  });
  QAction* save = gameMenu->addAction("Save PDN...");
  connect(save, &QAction::triggered, this, [this] {
    if (screen_.Busy == 1) return;
    QString path = QFileDialog::getSaveFileName(this, "Save Game", QString(), PdnFilter, nullptr,
                                                QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty()) return;
    // A PDN file gathers games: the game is appended, never asked about.
    if (!path.endsWith(".pdn", Qt::CaseInsensitive)) path += ".pdn";
    SavePdnCommand(session_, path.toStdString());
    Sync();
  });
  QAction* details = gameMenu->addAction("Details...");
  connect(details, &QAction::triggered, this, [this] {
    if (screen_.Busy == 1) return;
    DetailsCommand(session_);
  });
}

bool MainWindow::ShowPdnChooser(PdnChooserForm& form) { return ShowPdnDialog(this, form); }

void MainWindow::ShowDetailsDialog(PdnTags& tags) { gui::ShowDetailsDialog(this, tags); }

}  // namespace qv::gui

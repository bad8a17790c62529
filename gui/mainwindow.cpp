#include "gui/mainwindow.h"

#include <QStatusBar>

#include "gui/boardwidget.h"

namespace qv::gui {

MainWindow::MainWindow(std::unique_ptr<Game> game, QWidget* parent) : QMainWindow(parent), game_(std::move(game)) {
  setWindowTitle("Quorvanis 1.58");
  board_ = new BoardWidget(*game_, this);
  setCentralWidget(board_);
  statusBar()->showMessage(game_->SideToMove == 1 ? "White moves" : "Black moves");
}

MainWindow::~MainWindow() = default;

}  // namespace qv::gui

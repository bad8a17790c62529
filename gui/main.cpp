// quorvanis: the desktop program.
#include <QApplication>
#include <QMessageBox>
#include <memory>

#include "core/fatal.h"
#include "files/paths.h"
#include "gui/mainwindow.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  auto game = std::make_unique<qv::Game>();
  game->DataFolder = qv::FindDataFolder(qv::ExecutableFolder(argv[0]));
  try {
    qv::gui::MainWindow window(std::move(game));
    window.show();
    return app.exec();
  } catch (const qv::FatalError& e) {
    QMessageBox::warning(nullptr, "Error", QString::fromStdString(e.what()));
    return 1;
  }
}

// quorvanis: the desktop program.
#include <memory>

#include "core/fatal.h"
#include "files/paths.h"
#include "gui/application.h"
#include "gui/mainwindow.h"

int main(int argc, char** argv) {
  qv::gui::Application app(argc, argv);
  auto game = std::make_unique<qv::Game>();
  game->DataFolder = qv::FindDataFolder(qv::ExecutableFolder(argv[0]));
  try {
    qv::gui::MainWindow window(std::move(game));
    window.show();
    return app.exec();
  } catch (const qv::FatalError& e) {
    qv::gui::ReportFatal(e.what());
    return 1;
  }
}

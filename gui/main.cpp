// quorvanis: the desktop program.
#include <cstdio>
#include <memory>

#include "core/fatal.h"
#include "core/newgame.h"
#include "files/paths.h"
#include "gui/application.h"
#include "gui/mainwindow.h"
#include "gui/variantsdialog.h"
#include "interaction/filecommands.h"

int main(int argc, char** argv) {
  qv::gui::Application app(argc, argv);
  auto game = std::make_unique<qv::Game>();
  const auto programFolder = qv::ExecutableFolder(argv[0]);
  game->DataFolder = qv::FindDataFolder(programFolder);
  game->WritableFolder = qv::FindWritableFolder(programFolder);
  try {
    // --variants-dialog: the Variants dialog alone, as "New Variant..." opens
    // it; prints the variant label and the number of legal moves of the new game.
    if (app.arguments().contains("--variants-dialog")) {
      qv::NewGame(*game);
      const bool accepted = qv::gui::RunVariantsDialog(nullptr, *game);
      std::printf("%s: %d legal moves\n", game->VariantLabel.c_str(), game->PlyBase[1] - game->PlyBase[0]);
      return accepted ? 0 : 2;
    }
    qv::gui::MainWindow window(std::move(game));
    window.show();
    // quorvanis FILE: a saved game or a PDN collection opened at start, as the
    // desktop does on a double-click.
    for (const QString& argument : app.arguments().mid(1))
      if (!argument.startsWith("--")) {
        qv::OpenGameFile(window.session(), std::filesystem::path(argument.toStdString()));
        window.Changed(qv::Part::All);
        break;
      }
    return app.exec();
  } catch (const qv::FatalError& e) {
    qv::gui::ReportFatal(e.what());
    return 1;
  }
}

#include "gui/application.h"

#include <QMessageBox>

#include "core/fatal.h"
#include "gui/mainwindow.h"

namespace qv::gui {

void ReportFatal(const char* text) {
  // With the main window open, its own way out: the worker stops first and
  // the window closes as at Exit.
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* window = qobject_cast<MainWindow*>(widget)) {
      window->EndAfterFatal(text);
      return;
    }
  }
  QMessageBox::warning(nullptr, "Error", QString::fromUtf8(text));
  QCoreApplication::exit(1);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const FatalError& e) {
    ReportFatal(e.what());
    return true;
  }
}

}  // namespace qv::gui

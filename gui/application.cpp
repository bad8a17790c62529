#include "gui/application.h"

#include <QMessageBox>

#include "core/fatal.h"

namespace qv::gui {

void ReportFatal(const char* text) {
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

#pragma once
// The application object: a fatal error raised inside any event handler is
// shown in its box and ends the program in order.
#include <QApplication>

namespace qv::gui {

class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

// Shows the fatal message and ends the event loop.
void ReportFatal(const char* text);

}  // namespace qv::gui

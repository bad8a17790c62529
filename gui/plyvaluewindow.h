#pragma once
// frmPV: the ply value table's window, with its sort box, the fixed-pitch
// table, the running best line, "Searching..." and "Done!", the progress bar,
// Cancel and Close.
#include <QDialog>

#include "interaction/plyvalue_form.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTimer;

namespace qv::gui {

class ProblemWindow;

class PlyValueWindow : public QDialog {
  Q_OBJECT
 public:
  PlyValueWindow(Session& session, QWidget* parent);
  // Shows the window and searches the table of the position.
  void Start();
  const PlyValueForm& form() const { return form_; }
  bool Searching() const { return form_.searching; }
  QComboBox* sortBox() { return combo1_; }
  QPushButton* cancelButton() { return command2_; }
  QPlainTextEdit* table() { return text1_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Sync();

  Session& session_;
  PlyValueForm form_;
  QLabel* label_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QPlainTextEdit* text1_ = nullptr;
  QLabel* status_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QPushButton* command1_ = nullptr;  // Close
  QPushButton* command2_ = nullptr;  // Cancel
  QPushButton* problems_ = nullptr;
  QTimer* follow_ = nullptr;
  ProblemWindow* problem_ = nullptr;
  bool syncing_ = false;
};

}  // namespace qv::gui

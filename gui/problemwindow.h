#pragma once
// frmProblem: a text window with a close button; it shows the rows of the
// ply value table that are marked as combinations.
#include <QDialog>

class QPlainTextEdit;

namespace qv::gui {

class ProblemWindow : public QDialog {
  Q_OBJECT
 public:
  explicit ProblemWindow(QWidget* parent);
  void SetText(const QString& text);

 private:
  QPlainTextEdit* text_ = nullptr;
};

}  // namespace qv::gui

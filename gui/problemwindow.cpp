#include "gui/problemwindow.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv::gui {

ProblemWindow::ProblemWindow(QWidget* parent) : QDialog(parent) {
  setWindowTitle("Problems");
  auto* layout = new QVBoxLayout(this);
  text_ = new QPlainTextEdit;
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  layout->addWidget(text_, 1);
  auto* close = new QPushButton("Close");
  connect(close, &QPushButton::clicked, this, &QDialog::hide);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(close);
  layout->addLayout(row);
  resize(820, 360);
}

void ProblemWindow::SetText(const QString& text) { text_->setPlainText(text); }

}  // namespace qv::gui

#include "gui/plyvaluewindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "gui/problemwindow.h"

namespace qv::gui {

namespace {
QString Q(const std::string& text) { return QString::fromStdString(text); }
}  // namespace

PlyValueWindow::PlyValueWindow(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setWindowTitle("Ply Value Table");
  auto* layout = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  label_ = new QLabel;
  label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  top->addWidget(label_, 1);
  top->addWidget(new QLabel("Sort:"));
  combo1_ = new QComboBox;
  top->addWidget(combo1_);
  layout->addLayout(top);

  text1_ = new QPlainTextEdit;
  text1_->setReadOnly(true);
  text1_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  layout->addWidget(text1_, 1);

  auto* bottom = new QHBoxLayout;
  status_ = new QLabel;
  status_->setMinimumWidth(110);
  progress_ = new QProgressBar;
  progress_->setTextVisible(false);
  command2_ = new QPushButton("Cancel");
  problems_ = new QPushButton("Problems...");
  command1_ = new QPushButton("Close");
  bottom->addWidget(status_);
  bottom->addWidget(progress_, 1);
  bottom->addWidget(command2_);
  bottom->addWidget(problems_);
  bottom->addWidget(command1_);
  layout->addLayout(bottom);
  resize(960, 420);

  follow_ = new QTimer(this);
  follow_->setInterval(100);
  connect(follow_, &QTimer::timeout, this, [this] {
    if (FollowPlyValueSearch(form_)) Sync();
  });
  connect(combo1_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (syncing_) return;
    ChangePlyValueSort(form_, index);
    Sync();
  });
  connect(command2_, &QPushButton::clicked, this, [this] {
    CancelPlyValueTable(session_);
    command2_->setEnabled(false);
  });
  connect(command1_, &QPushButton::clicked, this, &QWidget::close);
  connect(problems_, &QPushButton::clicked, this, [this] {
    if (!problem_) problem_ = new ProblemWindow(this);
    problem_->SetText(Q(PlyValueText(form_.table, SortCombinations)));
    problem_->show();
    problem_->raise();
  });
}

void PlyValueWindow::Start() {
  show();
  raise();
  PlyValueTableCommand(session_, form_, [this] { Sync(); });
  if (form_.searching) follow_->start();
}

void PlyValueWindow::Sync() {
  syncing_ = true;
  if (combo1_->count() != static_cast<int>(form_.sortNames.size())) {
    combo1_->clear();
    for (const std::string& name : form_.sortNames) combo1_->addItem(Q(name));
  }
  combo1_->setCurrentIndex(form_.sortIndex);
  combo1_->setEnabled(!form_.searching);
  label_->setText(Q(form_.label));
  status_->setText(Q(form_.status));
  progress_->setMaximum(std::max(1, form_.progressMax));
  progress_->setValue(std::min(form_.progress, form_.progressMax));
  std::string shown;
  for (char c : form_.text)
    if (c != '\r') shown += c;
  if (text1_->toPlainText() != Q(shown)) text1_->setPlainText(Q(shown));
  command2_->setEnabled(form_.searching);
  problems_->setEnabled(!form_.searching && !form_.table.rows.empty());
  if (!form_.searching) follow_->stop();
  syncing_ = false;
}

void PlyValueWindow::closeEvent(QCloseEvent* event) {
  // A search under way is cancelled first; the rows done stay in the form.
  if (form_.searching) CancelPlyValueTable(session_);
  event->accept();
}

}  // namespace qv::gui

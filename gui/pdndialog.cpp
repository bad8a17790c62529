#include "gui/pdndialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace qv::gui {

bool ShowPdnDialog(QWidget* parent, PdnChooserForm& form) {
  PdnDialog dialog(form, parent);
  return dialog.exec() == QDialog::Accepted;
}

PdnDialog::PdnDialog(PdnChooserForm& form, QWidget* parent) : QDialog(parent), form_(form) {
  setObjectName("dlgPDN");
  setWindowTitle(QString::fromStdString(form.Title));
  auto* layout = new QVBoxLayout(this);

  listView1_ = new QTreeWidget(this);
  listView1_->setObjectName("ListView1");
  listView1_->setRootIsDecorated(false);
  listView1_->setUniformRowHeights(true);
  listView1_->setAlternatingRowColors(true);
  listView1_->setSelectionMode(QAbstractItemView::SingleSelection);
  QStringList headers;
  for (const char* column : PdnChooserColumns) headers << column;
  listView1_->setHeaderLabels(headers);
  for (const auto& row : form.Rows) {
    QStringList cells;
    for (const std::string& cell : row) cells << QString::fromStdString(cell);
    listView1_->addTopLevelItem(new QTreeWidgetItem(cells));
  }
  listView1_->header()->setSectionResizeMode(QHeaderView::Interactive);
  for (int c = 0; c < listView1_->columnCount(); ++c) {
    listView1_->resizeColumnToContents(c);
    listView1_->setColumnWidth(c, std::max(listView1_->columnWidth(c), c == 0 ? 180 : 64));
  }
  if (listView1_->topLevelItemCount() > 0) listView1_->setCurrentItem(listView1_->topLevelItem(form.SelectedRow));
  connect(listView1_, &QTreeWidget::itemDoubleClicked, this, [this] { OkClicked(); });
  layout->addWidget(listView1_, 1);

  auto* bottom = new QHBoxLayout;
  auto* openAs = new QLabel("Open as:", this);
  combo1_ = new QComboBox(this);
  combo1_->setObjectName("Combo1");
  for (const std::string& name : form.OpenAsList) combo1_->addItem(QString::fromStdString(name));
  combo1_->setCurrentIndex(form.OpenAsIndex);
  openAs->setBuddy(combo1_);
  bottom->addWidget(openAs);
  bottom->addWidget(combo1_, 1);
  bottom->addSpacing(24);
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  ok->setDefault(true);
  auto* cancel = new QPushButton("Cancel", this);
  cancel->setObjectName("CancelButton");
  connect(ok, &QPushButton::clicked, this, [this] { OkClicked(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  bottom->addWidget(ok);
  bottom->addWidget(cancel);
  layout->addLayout(bottom);
  resize(820, 420);
}

void PdnDialog::OkClicked() {
  const int row = listView1_->indexOfTopLevelItem(listView1_->currentItem());
  if (row < 0) return;
  form_.SelectedRow = row;
  form_.OpenAsIndex = combo1_->currentIndex();
  accept();
}

}  // namespace qv::gui

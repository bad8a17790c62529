#include "gui/detailsdialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv::gui {

void ShowDetailsDialog(QWidget* parent, PdnTags& tags) {
  DetailsDialog dialog(tags, parent);
  dialog.exec();
}

namespace {

QLineEdit* AddBox(QFormLayout* form, const char* label, const char* name, const std::string& text, QWidget* parent) {
  auto* box = new QLineEdit(QString::fromStdString(text), parent);
  box->setObjectName(name);
  box->setMinimumWidth(260);
  form->addRow(label, box);
  return box;
}

}  // namespace

DetailsDialog::DetailsDialog(PdnTags& tags, QWidget* parent) : QDialog(parent), tags_(tags) {
  setObjectName("dlgDetails");
  setWindowTitle("Details");
  const DetailsForm form = FillDetailsForm(tags);
  auto* layout = new QVBoxLayout(this);

  auto* game = new QGroupBox(" Game ", this);
  auto* gameForm = new QFormLayout(game);
  text1_ = AddBox(gameForm, "Event:", "Text1", form.Text1, game);
  text2_ = AddBox(gameForm, "Site:", "Text2", form.Text2, game);
  text3_ = AddBox(gameForm, "Date:", "Text3", form.Text3, game);
  layout->addWidget(game);

  auto* players = new QGroupBox(" Players ", this);
  auto* playersForm = new QFormLayout(players);
  text4_ = AddBox(playersForm, "Black:", "Text4", form.Text4, players);
  text5_ = AddBox(playersForm, "White:", "Text5", form.Text5, players);
  layout->addWidget(players);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* apply = new QPushButton("Apply", this);
  apply->setObjectName("Command1");
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  ok->setDefault(true);
  auto* cancel = new QPushButton("Cancel", this);
  cancel->setObjectName("CancelButton");
  connect(apply, &QPushButton::clicked, this, [this] { Apply(); });
  connect(ok, &QPushButton::clicked, this, [this] {
    Apply();
    accept();
  });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  buttons->addWidget(apply);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
}

DetailsForm DetailsDialog::ReadBoxes() const {
  return {text1_->text().toStdString(), text2_->text().toStdString(), text3_->text().toStdString(),
          text4_->text().toStdString(), text5_->text().toStdString()};
}

void DetailsDialog::Apply() { ApplyDetailsForm(ReadBoxes(), tags_); }

}  // namespace qv::gui

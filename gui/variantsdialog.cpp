#include "gui/variantsdialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QUrl>
#include <QVBoxLayout>

#include "core/fatal.h"
#include "interaction/newvariant.h"

namespace qv::gui {

namespace {

using F = VariantsForm;

// Boxes that depend on the one above them stand a little to the right.
constexpr int DependentIndent = 22;

QLabel* Caption(const char* text) { return new QLabel(QString::fromUtf8(text)); }

void ShowMarked(QLineEdit* edit, bool marked) {
  edit->setStyleSheet(marked ? "QLineEdit { color: white; background: black; }" : QString());
}

}  // namespace

VariantsDialog::VariantsDialog(Game& g, QWidget* parent) : QDialog(parent), g_(g) {
  setWindowTitle("Variants");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(BuildTopRow());

  // Three columns of frames, built in the order the Tab key visits them.
  auto* frames = new QHBoxLayout;
  auto* column1 = new QVBoxLayout;
  auto* column2 = new QVBoxLayout;
  auto* column3 = new QVBoxLayout;
  frames->addLayout(column1);
  frames->addLayout(column2);
  frames->addLayout(column3);
  layout->addLayout(frames);
  column1->addWidget(BuildCapturesFrame());
  column2->addWidget(BuildFlyingKingsFrame());
  column2->addWidget(BuildMiscFrame());
  column2->addWidget(BuildOpeningFrame());
  column2->addStretch();
  column3->addWidget(BuildWinDrawFrame());
  column3->addWidget(BuildOffBoardFrame());
  column3->addStretch();

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(BuildPromotionFrame());
  bottom->addWidget(BuildDirectionFrame(), 1);
  layout->addLayout(bottom);
  layout->addLayout(BuildButtonRow());

  for (std::size_t i = 1; i < tabOrder_.size(); ++i) setTabOrder(tabOrder_[i - 1], tabOrder_[i]);

  if (Guarded([this] { OpenVariantsForm(form_, g_); })) ShowForm();
}

QWidget* VariantsDialog::BuildCapturesFrame() {
  QWidget* captures = nullptr;
  auto* capturesLayout = static_cast<QVBoxLayout*>(BuildCheckFrame(
      "Captures",
      {{&F::Check1, "Move with most captures mandatory"},
       {&F::Check7, "If even capture most Kings"},
       {&F::Check2, "Multiple captures in one move mandatory"},
       {&F::Check18, "Captures mandatory"},
       {&F::Check8, "Man can capture King"},
       {&F::Check9, "Capture with King mandatory"},
       {&F::Check10, "Man must continue jumping at last rank"},
       {&F::Check12, "if yes promote to King"},
       {&F::Check13, "Remove captured pieces after move"},
       {&F::Check22, "Capture last moved piece mandatory"},
       {&F::Check24, "King becomes Man after capturing"},
       {&F::Check29, "Men can jump own pieces"}},
      &captures)->layout());
  {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(DependentIndent, 0, 0, 0);
    row->addWidget(AddCheck(&F::Check30, "unlimited"));
    label18_ = Caption("# pieces:");
    text6_ = NewSmallBox(3);
    row->addSpacing(12);
    row->addWidget(label18_);
    row->addWidget(text6_);
    row->addStretch();
    capturesLayout->addLayout(row);
    connect(text6_, &QLineEdit::textEdited, this, &VariantsDialog::ControlChanged);
  }
  capturesLayout->addStretch();
  return captures;
}

QWidget* VariantsDialog::BuildFlyingKingsFrame() {
  QWidget* frame = nullptr;
  BuildCheckFrame("Flying Kings",
                  {{&F::Check11, "Kings can move multiple squares"},
                   {&F::Check14, "Land on 1st square after last jumped piece"},
                   {&F::Check17, "Finish a started capture move"},
                   {&F::Check15, "Man move like a flying King when jumping"},
                   {&F::Check27, "Kings can reverse direction in capture"}},
                  &frame);
  return frame;
}

QWidget* VariantsDialog::BuildMiscFrame() {
  QWidget* frame = nullptr;
  BuildCheckFrame("Misc",
                  {{&F::Check3, "Bottom left square is black"},
                   {&F::Check4, "Black begins"},
                   {&F::Check28, "Random"},
                   {&F::Check5, "Anti Mode"},
                   {&F::Check23, "Last Man becomes King"},
                   {&F::Check25, "Promoted Men change color"}},
                  &frame);
  return frame;
}

QWidget* VariantsDialog::BuildOpeningFrame() {
  auto* box = new QGroupBox("Opening");
  auto* grid = new QGridLayout(box);
  grid->addWidget(AddCheck(&F::Check20, "Remove Men"), 0, 0);
  auto* label11 = Caption("# men:");
  grid->addWidget(label11, 0, 1);
  grid->addWidget(AddNumber(&F::Text3, label11), 0, 2);
  grid->addWidget(AddCheck(&F::Check21, "Automatic Moves"), 1, 0);
  auto* label12 = Caption("# moves:");
  grid->addWidget(label12, 1, 1);
  grid->addWidget(AddNumber(&F::Text4, label12), 1, 2);
  grid->setColumnStretch(3, 1);
  return box;
}

QWidget* VariantsDialog::BuildWinDrawFrame() {
  QWidget* winDraw = nullptr;
  auto* v = static_cast<QVBoxLayout*>(BuildCheckFrame("Win/Draw",
                                                      {{&F::Check6, "Win when King returns"},
                                                       {&F::Check16, "Win when player gets first King"},
                                                       {&F::Check19, "Draw when no moves but pieces"}},
                                                      &winDraw)
                                          ->layout());
  auto addCountRow = [&](CheckBox F::*check, const char* caption, TextBox F::*text) {
    v->addWidget(AddCheck(check, caption));
    auto* row = new QHBoxLayout;
    row->setContentsMargins(DependentIndent, 0, 0, 0);
    auto* label = Caption("After # moves:");
    row->addWidget(label);
    row->addWidget(AddNumber(text, label));
    row->addStretch();
    v->addLayout(row);
  };
  addCountRow(&F::Check26, "Draw with 3 Kings versus 1 King ", &F::Text5);
  addCountRow(&F::Check31, "Draw with 2 Kings versus 1 King ", &F::Text7);
  auto* row = new QHBoxLayout;
  auto* label20 = Caption("Loose when less than # pieces:");
  row->addWidget(label20);
  row->addWidget(AddNumber(&F::Text8, label20));
  row->addStretch();
  v->addLayout(row);
  return winDraw;
}

QWidget* VariantsDialog::BuildOffBoardFrame() {
  auto* box = new QGroupBox("Off the Board");
  auto* grid = new QGridLayout(box);
  grid->addWidget(AddCheck(&F::Check33, "Start with pieces off the board"), 0, 0, 1, 4);
  auto addRow = [&](int row, int column, const char* caption, TextBox F::*text) {
    auto* label = Caption(caption);
    grid->addWidget(label, row, column);
    grid->addWidget(AddNumber(text, label), row, column + 1);
  };
  addRow(1, 0, "# pieces:", &F::Text10);
  addRow(2, 0, "White First Row:", &F::Text9);
  addRow(2, 2, "White Last Row:", &F::Text11);
  addRow(3, 0, "Black First Row:", &F::Text12);
  addRow(3, 2, "Black Last Row:", &F::Text13);
  grid->setColumnStretch(4, 1);
  return box;
}

QLayout* VariantsDialog::BuildButtonRow() {
  auto* buttons = new QHBoxLayout;
  auto* random = new QPushButton("Random");
  auto* ok = new QPushButton("OK");
  auto* apply = new QPushButton("Apply");
  auto* cancel = new QPushButton("Cancel");
  ok->setDefault(true);
  buttons->addWidget(random);
  buttons->addStretch();
  for (QPushButton* b : {ok, apply, cancel}) buttons->addWidget(b);
  for (QPushButton* b : {ok, apply, cancel, random}) tabOrder_.push_back(b);
  connect(random, &QPushButton::clicked, this, &VariantsDialog::RandomClicked);
  connect(ok, &QPushButton::clicked, this, [this] {
    if (StoreClicked(true)) accept();
  });
  connect(apply, &QPushButton::clicked, this, [this] { StoreClicked(false); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  return buttons;
}

QWidget* VariantsDialog::BuildTopRow() {
  auto* row = new QWidget;
  auto* h = new QHBoxLayout(row);
  h->setContentsMargins(0, 0, 0, 0);
  option1_ = new QRadioButton("Classic");
  option2_ = new QRadioButton("User");
  auto* group = new QButtonGroup(row);
  group->addButton(option1_);
  group->addButton(option2_);
  combo1_ = new QComboBox;
  combo1_->setMinimumContentsLength(24);
  combo1_->setMaxVisibleItems(16);
  combo1_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  label10_ = new QLabel;
  label10_->setTextFormat(Qt::RichText);
  label10_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  h->addWidget(option1_);
  h->addWidget(option2_);
  h->addSpacing(16);
  h->addWidget(Caption("Choose variant:"));
  h->addWidget(combo1_);
  h->addSpacing(16);
  h->addWidget(label10_, 1);
  for (QWidget* w : {static_cast<QWidget*>(option1_), static_cast<QWidget*>(option2_),
                     static_cast<QWidget*>(combo1_), static_cast<QWidget*>(label10_)})
    tabOrder_.push_back(w);
  connect(option1_, &QRadioButton::clicked, this, [this] { FolderChosen(1); });
  connect(option2_, &QRadioButton::clicked, this, [this] { FolderChosen(0); });
  connect(combo1_, &QComboBox::textActivated, this, &VariantsDialog::VariantChosen);
  connect(label10_, &QLabel::linkActivated, this, &VariantsDialog::LinkClicked);
  return row;
}

QWidget* VariantsDialog::BuildCheckFrame(const char* title,
                                         std::initializer_list<std::pair<CheckBox VariantsForm::*, const char*>> boxes,
                                         QWidget** frame) {
  auto* box = new QGroupBox(title);
  auto* v = new QVBoxLayout(box);
  v->setSpacing(2);
  for (const auto& [member, caption] : boxes) {
    QCheckBox* check = AddCheck(member, caption);
    const bool dependent = member == &F::Check7 || member == &F::Check12 || member == &F::Check14 ||
                           member == &F::Check17 || member == &F::Check28;
    if (dependent) {
      auto* row = new QHBoxLayout;
      row->setContentsMargins(DependentIndent, 0, 0, 0);
      row->addWidget(check);
      v->addLayout(row);
    } else {
      v->addWidget(check);
    }
  }
  *frame = box;
  return box;
}

QCheckBox* VariantsDialog::AddCheck(CheckBox VariantsForm::*box, const char* caption) {
  auto* check = new QCheckBox(QString::fromUtf8(caption));
  checks_.push_back({box, check});
  tabOrder_.push_back(check);
  if (box == &F::Check3) connect(check, &QCheckBox::clicked, this, &VariantsDialog::Check3Clicked);
  else connect(check, &QCheckBox::clicked, this, &VariantsDialog::ControlChanged);
  return check;
}

QLineEdit* VariantsDialog::AddNumber(TextBox VariantsForm::*box, QLabel* label) {
  QLineEdit* edit = NewSmallBox(3);
  label->setBuddy(edit);
  numbers_.push_back({box, label, edit});
  return edit;
}

QLineEdit* VariantsDialog::NewSmallBox(int characters) {
  auto* edit = new QLineEdit;
  const int width = edit->fontMetrics().horizontalAdvance(QString(characters, QChar('W'))) + 14;
  edit->setFixedWidth(width);
  tabOrder_.push_back(edit);
  return edit;
}

QWidget* VariantsDialog::BuildPromotionFrame() {
  auto* box = new QGroupBox("Promotion Squares");
  auto* grid = new QGridLayout(box);
  grid->setHorizontalSpacing(3);
  for (int side = 0; side < 2; ++side) {
    grid->addWidget(Caption(side == 0 ? "White:" : "Black:"), side, 0);
    for (int i = 0; i < PromoSlots; ++i) {
      const int index = side * PromoSlots + i;
      QLineEdit* edit = NewSmallBox(2);
      text1_[index] = edit;
      grid->addWidget(edit, side, i + 1);
      connect(edit, &QLineEdit::textEdited, this, [this, index](const QString& text) {
        EditPromoBox(form_, index, text.toStdString());
        ShowMarked(text1_[index], false);
      });
    }
  }
  grid->setRowStretch(2, 1);
  return box;
}

QWidget* VariantsDialog::BuildDirectionFrame() {
  auto* box = new QGroupBox("Movement Directions");
  auto* grid = new QGridLayout(box);
  grid->setVerticalSpacing(3);
  grid->addWidget(Caption("Normal Moves"), 0, 1);
  grid->addWidget(Caption("Capture Moves"), 0, 2);
  const char* pieces[4] = {"White Man:", "Black Man:", "White King:", "Black King:"};
  for (int k = 0; k < 4; ++k) grid->addWidget(Caption(pieces[k]), k + 1, 0);
  // Down the normal moves, then down the captures.
  for (int index = 0; index < 8; ++index) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("NW;NE;SE;SW;NN") + 14);
    text2_[index] = edit;
    tabOrder_.push_back(edit);
    grid->addWidget(edit, index % 4 + 1, index / 4 + 1);
    connect(edit, &QLineEdit::textEdited, this, [this, index](const QString& text) {
      EditDirectionBox(form_, index, text.toStdString());
      ShowMarked(text2_[index], false);
    });
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
  return box;
}

void VariantsDialog::ShowForm() {
  showing_ = true;
  for (const CheckControl& c : checks_) {
    const CheckBox& value = form_.*c.box;
    QSignalBlocker block(c.widget);
    c.widget->setTristate(value.Value == 2);
    c.widget->setCheckState(value.Value == 1 ? Qt::Checked : value.Value == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
    c.widget->setEnabled(value.Enabled);
  }
  for (const NumberControl& n : numbers_) {
    const TextBox& value = form_.*n.box;
    n.widget->setText(QString::fromStdString(value.Text));
    n.widget->setEnabled(value.Enabled);
    n.label->setEnabled(value.Enabled);
  }
  text6_->setText(QString::fromStdString(form_.Text6.Text));
  text6_->setEnabled(form_.Text6.Enabled);
  label18_->setEnabled(form_.Text6.Enabled);
  for (int i = 0; i < 24; ++i) {
    text1_[i]->setText(QString::fromStdString(form_.Text1[static_cast<std::size_t>(i)].Text));
    ShowMarked(text1_[i], form_.Text1[static_cast<std::size_t>(i)].Marked);
  }
  for (int i = 0; i < 8; ++i) {
    text2_[i]->setText(QString::fromStdString(form_.Text2[static_cast<std::size_t>(i)].Text));
    ShowMarked(text2_[i], form_.Text2[static_cast<std::size_t>(i)].Marked);
  }
  {
    QSignalBlocker b1(option1_), b2(option2_), b3(combo1_);
    option1_->setChecked(form_.UseClassic == 1);
    option2_->setChecked(form_.UseClassic != 1);
    combo1_->clear();
    for (const std::string& name : form_.Combo1List) combo1_->addItem(QString::fromStdString(name));
    const QString current = QString::fromStdString(form_.Combo1);
    if (combo1_->findText(current) < 0) combo1_->addItem(current);
    combo1_->setCurrentText(current);
  }
  if (form_.Label10.empty()) {
    label10_->clear();
  } else {
    const QString link = QString::fromStdString(form_.Label10);
    const QString shown = label10_->fontMetrics().elidedText(link, Qt::ElideMiddle, 340);
    label10_->setText(QString("<a href=\"%1\">%2</a>").arg(link.toHtmlEscaped(), shown.toHtmlEscaped()));
    label10_->setToolTip(link);
  }
  showing_ = false;
}

void VariantsDialog::ReadWidgets() {
  for (const CheckControl& c : checks_) {
    const Qt::CheckState state = c.widget->checkState();
    (form_.*c.box).Value = state == Qt::Checked ? 1 : state == Qt::PartiallyChecked ? 2 : 0;
  }
  for (const NumberControl& n : numbers_) (form_.*n.box).Text = n.widget->text().toStdString();
  form_.Text6.Text = text6_->text().toStdString();
  for (int i = 0; i < 24; ++i) form_.Text1[static_cast<std::size_t>(i)].Text = text1_[i]->text().toStdString();
  for (int i = 0; i < 8; ++i) form_.Text2[static_cast<std::size_t>(i)].Text = text2_[i]->text().toStdString();
  form_.Combo1 = combo1_->currentText().toStdString();
}

void VariantsDialog::ControlChanged() {
  if (showing_) return;
  ReadWidgets();
  ApplyEnablingRules(form_);
  ShowForm();
}

void VariantsDialog::Check3Clicked(bool on) {
  ReadWidgets();
  ClickCheck3(form_, g_, on ? 1 : 0);
  ShowForm();
}

void VariantsDialog::VariantChosen(const QString& name) {
  if (showing_) return;
  ReadWidgets();
  if (Guarded([&] { SelectVariant(form_, g_, name.toStdString()); })) ShowForm();
}

void VariantsDialog::FolderChosen(int useClassic) {
  ReadWidgets();
  const bool read = Guarded([&] {
    ChooseVariantFolder(form_, g_, useClassic);
    if (!form_.Combo1.empty()) SelectVariant(form_, g_, form_.Combo1);
  });
  if (read) ShowForm();
}

void VariantsDialog::RandomClicked() {
  ReadWidgets();
  DrawRandomRules(form_, g_);
  ShowForm();
}

bool VariantsDialog::StoreClicked(bool isOK) {
  ReadWidgets();
  const bool good = StoreFormRules(form_, g_, isOK);
  ShowForm();
  if (!good) {
    QMessageBox::warning(this, "Error", QString::fromStdString(form_.Message));
    form_.Message.clear();
  }
  return good;
}

void VariantsDialog::LinkClicked() { QDesktopServices::openUrl(QUrl(QString::fromStdString(g_.HelpLink))); }

template <class Action>
bool VariantsDialog::Guarded(Action action) {
  try {
    action();
    return true;
  } catch (const FatalError& e) {
    // Nothing goes on in the dialog: it closes and the error goes on to the
    // caller, which ends the program in order.
    fatal_ = e.what();
    reject();
    return false;
  }
}

bool ShowVariantsDialog(QWidget* parent, Game& g) {
  VariantsDialog dialog(g, parent);
  const bool accepted = dialog.FatalText().empty() && dialog.exec() == QDialog::Accepted;
  if (!dialog.FatalText().empty()) throw FatalError(dialog.FatalText());
  return accepted;
}

bool RunVariantsDialog(QWidget* parent, Game& g) {
  return NewVariantCommand(g, [parent](Game& game) { return ShowVariantsDialog(parent, game); });
}

}  // namespace qv::gui

#include "gui/optionsdialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv::gui {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

QSlider* NewSlider(int low, int high, int pageStep, int tickInterval) {
  auto* slider = new QSlider(Qt::Horizontal);
  slider->setRange(low, high);
  slider->setPageStep(pageStep);
  slider->setTickPosition(QSlider::TicksBelow);
  slider->setTickInterval(tickInterval);
  slider->setMinimumWidth(240);
  return slider;
}

QLineEdit* NumberBox() {
  auto* box = new QLineEdit;
  box->setMaximumWidth(70);
  return box;
}

// A row of a caption, a slider between its end labels, and its value.
QWidget* SliderRow(const char* caption, QSlider* slider, const char* low, const char* high, QLabel* value) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(22, 0, 0, 0);
  auto* label = new QLabel(caption);
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance("Depth:  "));
  label->setBuddy(slider);
  layout->addWidget(label);
  layout->addWidget(new QLabel(low));
  layout->addWidget(slider, 1);
  layout->addWidget(new QLabel(high));
  layout->addSpacing(12);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance("180 sec"));
  layout->addWidget(value);
  return row;
}

}  // namespace

OptionsDialog::OptionsDialog(Game& g, int& playerRating, QWidget* parent)
    : QDialog(parent), g_(g), playerRating_(playerRating) {
  setWindowTitle("Options");
  auto* layout = new QVBoxLayout(this);
  pages_ = new QTabWidget;
  pages_->addTab(BuildLevelPage(), "&Level");
  pages_->addTab(BuildSearchPage(), "&Search");
  pages_->addTab(BuildBookPage(), "&Book");
  pages_->addTab(BuildSkinPage(), "S&kin");
  layout->addWidget(pages_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    ApplyClicked();
    accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &OptionsDialog::ApplyClicked);

  FillOptionsForm(form_, g_, playerRating_);
  ShowForm();
}

QCheckBox* OptionsDialog::Box(const char* caption, int OptionsForm::*field) {
  auto* box = new QCheckBox(caption);
  boxes_.emplace_back(box, field);
  connect(box, &QCheckBox::toggled, this, [this] {
    if (showing_) return;
    ReadWidgets();
    ShowEnabling();
  });
  return box;
}

QWidget* OptionsDialog::BuildLevelPage() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);

  auto* strength = new QGroupBox(" Strength ");
  auto* strengthLayout = new QVBoxLayout(strength);
  slider2_ = NewSlider(1, 10, 1, 1);
  slider2_->setAccessibleName("Strength");
  strengthLayout->addWidget(slider2_);
  auto* marks = new QHBoxLayout;
  marks->addWidget(new QLabel("Easy"));
  marks->addStretch();
  marks->addWidget(new QLabel("Medium"));
  marks->addStretch();
  marks->addWidget(new QLabel("Hard"));
  strengthLayout->addLayout(marks);
  layout->addWidget(strength);

  auto* level = new QGroupBox("Level");
  auto* grid = new QGridLayout(level);
  check1_ = new QCheckBox("Search to a fixed depth");
  check2_ = new QCheckBox("Think for a fixed time");
  slider4_ = NewSlider(1, 20, 1, 1);
  slider4_->setAccessibleName("Depth");
  slider1_ = NewSlider(1, 180, 5, 10);
  slider1_->setAccessibleName("Time");
  depthValue_ = new QLabel;
  timeValue_ = new QLabel;
  depthRow_ = SliderRow("Depth:", slider4_, "1", "20", depthValue_);
  timeRow_ = SliderRow("Time:", slider1_, "1", "180", timeValue_);
  grid->addWidget(check1_, 0, 0);
  grid->addWidget(depthRow_, 1, 0);
  grid->addWidget(check2_, 2, 0);
  grid->addWidget(timeRow_, 3, 0);
  layout->addWidget(level);
  layout->addStretch();

  connect(check1_, &QCheckBox::clicked, this, [this] { LevelClicked(1); });
  connect(check2_, &QCheckBox::clicked, this, [this] { LevelClicked(2); });
  for (QSlider* slider : {slider1_, slider2_, slider4_})
    connect(slider, &QSlider::valueChanged, this, [this] {
      if (showing_) return;
      ReadWidgets();
      ShowForm();
    });
  return page;
}

QWidget* OptionsDialog::BuildSearchPage() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);

  auto* search = new QGroupBox("Search");
  auto* searchLayout = new QVBoxLayout(search);
  searchLayout->addWidget(Box("Extended search", &OptionsForm::Check7));
  extendedBoxes_ = new QWidget;
  auto* extended = new QFormLayout(extendedBoxes_);
  extended->setContentsMargins(22, 0, 0, 0);
  text2_ = NumberBox();
  text3_ = NumberBox();
  extended->addRow("Plys (default=3) :", text2_);
  extended->addRow("Balance (default=150) :", text3_);
  searchLayout->addWidget(extendedBoxes_);
  searchLayout->addWidget(Box("Brute force", &OptionsForm::Check13));
  auto* table = new QFormLayout;
  text4_ = NumberBox();
  table->addRow("Ply Value Table Search :", text4_);
  searchLayout->addLayout(table);
  layout->addWidget(search);

  auto* draw = new QGroupBox("Draw");
  auto* drawLayout = new QVBoxLayout(draw);
  drawLayout->addWidget(Box("Use Chess drawing rules (position repetition and 50 moves rule)", &OptionsForm::Check4));
  fiftyMoveBox_ = new QWidget;
  auto* fifty = new QHBoxLayout(fiftyMoveBox_);
  fifty->setContentsMargins(22, 0, 0, 0);
  fifty->addWidget(new QLabel("Number of moves in 50 move rule:"));
  fiftyMove_ = new QButtonGroup(this);
  for (int i = 0; i < 5; ++i) {
    auto* button = new QRadioButton(QString::number(FiftyMoveCounts[i]));
    fiftyMove_->addButton(button, FiftyMoveChoices[i]);
    fifty->addWidget(button);
  }
  fifty->addStretch();
  drawLayout->addWidget(fiftyMoveBox_);
  drawLayout->addWidget(Box("King versus King", &OptionsForm::Check10));
  drawLayout->addWidget(Box("Ask for draw if computer thinks it's a draw", &OptionsForm::Check8));
  layout->addWidget(draw);
  layout->addStretch();
  return page;
}

QWidget* OptionsDialog::BuildBookPage() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);

  auto* book = new QGroupBox("Book");
  auto* bookLayout = new QVBoxLayout(book);
  bookLayout->addWidget(Box("Opening book", &OptionsForm::Check9));
  check12_ = Box("American Checkers book for other variants", &OptionsForm::Check12);
  check14_ = Box("Choose opening", &OptionsForm::Check14);
  check15_ = Box("Random", &OptionsForm::Check15);
  auto* dependent = new QVBoxLayout;
  dependent->setContentsMargins(22, 0, 0, 0);
  for (QCheckBox* box : {check12_, check14_, check15_}) dependent->addWidget(box);
  bookLayout->addLayout(dependent);
  layout->addWidget(book);

  auto* misc = new QGroupBox("Misc");
  auto* miscLayout = new QVBoxLayout(misc);
  miscLayout->addWidget(Box("Use Touch-Move rule", &OptionsForm::Check19));
  miscLayout->addWidget(Box("Save PDN games in algebraic notation", &OptionsForm::Check11));
  miscLayout->addWidget(Box("Use Sound", &OptionsForm::Check18));
  miscLayout->addWidget(Box("Auto Save", &OptionsForm::Check17));
  auto* ratingRow = new QHBoxLayout;
  check16_ = Box("Use Rating (1200)", &OptionsForm::Check16);
  ratingRow->addWidget(check16_);
  auto* reset = new QPushButton("Reset");
  ratingRow->addWidget(reset);
  ratingRow->addStretch();
  miscLayout->addLayout(ratingRow);
  miscLayout->addWidget(Box("Ask confirmation on exit", &OptionsForm::Check6));
  auto* name = new QFormLayout;
  text1_ = new QLineEdit;
  name->addRow("Your Name:", text1_);
  miscLayout->addLayout(name);
  layout->addWidget(misc);
  layout->addStretch();
  connect(reset, &QPushButton::clicked, this, &OptionsDialog::ResetClicked);
  return page;
}

QWidget* OptionsDialog::BuildSkinPage() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);

  auto* skin = new QGroupBox("Skin");
  auto* skinLayout = new QFormLayout(skin);
  combo1_ = new QComboBox;
  combo1_->setMinimumWidth(200);
  skinLayout->addRow("Choose a skin:", combo1_);
  layout->addWidget(skin);
  connect(combo1_, &QComboBox::textActivated, this, &OptionsDialog::SkinChosen);

  auto* misc = new QGroupBox("Misc");
  auto* miscLayout = new QVBoxLayout(misc);
  miscLayout->addWidget(Box("Show available moves", &OptionsForm::Check3));
  miscLayout->addWidget(Box("Notation in capital letters", &OptionsForm::Check5));
  auto* capture = new QHBoxLayout;
  capture->addWidget(new QLabel("Capture character:"));
  captureChar_ = new QButtonGroup(this);
  auto* cross = new QRadioButton("x");
  auto* colon = new QRadioButton(":");
  captureChar_->addButton(cross, 0);
  captureChar_->addButton(colon, 1);
  capture->addWidget(cross);
  capture->addWidget(colon);
  capture->addStretch();
  miscLayout->addLayout(capture);
  layout->addWidget(misc);
  layout->addStretch();
  return page;
}

void OptionsDialog::ShowForm() {
  showing_ = true;
  slider2_->setValue(form_.Slider2);
  slider4_->setValue(form_.Slider4);
  slider1_->setValue(form_.Slider1);
  depthValue_->setText(QString::number(form_.Slider4) + " ply");
  timeValue_->setText(QString::number(form_.Slider1) + " sec");
  check1_->setChecked(form_.Check1 == 1);
  check2_->setChecked(form_.Check2 == 1);
  for (auto& [box, field] : boxes_) box->setChecked(form_.*field == 1);
  text1_->setText(Q(form_.Text1));
  text2_->setText(Q(form_.Text2));
  text3_->setText(Q(form_.Text3));
  text4_->setText(Q(form_.Text4));
  if (QAbstractButton* button = fiftyMove_->button(form_.FiftyMoveKind)) button->setChecked(true);
  captureChar_->button(form_.CaptureCharColon == 1 ? 1 : 0)->setChecked(true);
  check16_->setText(Q(RatingCaption(form_.PlayerRating)));
  combo1_->clear();
  for (const std::string& name : form_.Combo1List) combo1_->addItem(Q(name));
  combo1_->setCurrentText(Q(form_.Combo1));
  ShowEnabling();
  showing_ = false;
}

void OptionsDialog::ShowEnabling() {
  depthRow_->setEnabled(DepthSliderEnabled(form_));
  timeRow_->setEnabled(TimeSliderEnabled(form_));
  extendedBoxes_->setEnabled(ExtendedBoxesEnabled(form_));
  fiftyMoveBox_->setEnabled(FiftyMoveEnabled(form_));
  check12_->setEnabled(BookBoxesEnabled(form_));
  check14_->setEnabled(BookBoxesEnabled(form_));
  check15_->setEnabled(RandomBookEnabled(form_));
}

void OptionsDialog::ReadWidgets() {
  form_.Slider2 = slider2_->value();
  form_.Slider4 = slider4_->value();
  form_.Slider1 = slider1_->value();
  for (auto& [box, field] : boxes_) form_.*field = box->isChecked() ? 1 : 0;
  form_.Text1 = text1_->text().toStdString();
  form_.Text2 = text2_->text().toStdString();
  form_.Text3 = text3_->text().toStdString();
  form_.Text4 = text4_->text().toStdString();
  form_.FiftyMoveKind = fiftyMove_->checkedId();
  form_.CaptureCharColon = captureChar_->checkedId() == 1 ? 1 : 0;
}

void OptionsDialog::LevelClicked(int which) {
  ReadWidgets();
  ClickLevelChoice(form_, which);
  ShowForm();
}

void OptionsDialog::ResetClicked() {
  ReadWidgets();
  ResetRating(form_, playerRating_);
  ShowForm();
}

void OptionsDialog::SkinChosen(const QString& name) {
  // The skin's name is stored at once, even if the dialog is cancelled.
  form_.Combo1 = name.toStdString();
  g_.Settings.SkinName = form_.Combo1;
}

void OptionsDialog::ApplyClicked() {
  ReadWidgets();
  StoreOptionsForm(form_, g_.Settings);
  FillOptionsForm(form_, g_, playerRating_);
  ShowForm();
  emit Stored();
}

}  // namespace qv::gui

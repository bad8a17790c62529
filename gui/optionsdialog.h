#pragma once
// frmOptions: the player's settings on four pages (level, search and draw
// rules, book and miscellany, skin), edited and stored by OK or Apply.
#include <QDialog>

#include "core/game.h"
#include "interaction/optionsform.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSlider;
class QTabWidget;

namespace qv::gui {

class OptionsDialog : public QDialog {
  Q_OBJECT
 public:
  // `playerRating` is the rating that Reset sets back at once.
  OptionsDialog(Game& g, int& playerRating, QWidget* parent = nullptr);

  QTabWidget* Pages() { return pages_; }
  // Apply: the controls into the settings, the dialog stays open.
  void ApplyClicked();

 signals:
  // The settings were stored (Apply, or OK before it closes).
  void Stored();

 private:
  QWidget* BuildLevelPage();
  QWidget* BuildSearchPage();
  QWidget* BuildBookPage();
  QWidget* BuildSkinPage();
  QCheckBox* Box(const char* caption, int OptionsForm::*field);

  void ShowForm();     // widgets from form_
  void ReadWidgets();  // form_ from widgets
  void ShowEnabling();
  void LevelClicked(int which);
  void ResetClicked();
  void SkinChosen(const QString& name);

  Game& g_;
  int& playerRating_;
  OptionsForm form_;
  QTabWidget* pages_ = nullptr;
  std::vector<std::pair<QCheckBox*, int OptionsForm::*>> boxes_;
  QSlider* slider1_ = nullptr;
  QSlider* slider2_ = nullptr;
  QSlider* slider4_ = nullptr;
  QLabel* depthValue_ = nullptr;
  QLabel* timeValue_ = nullptr;
  QCheckBox* check1_ = nullptr;
  QCheckBox* check2_ = nullptr;
  QWidget* depthRow_ = nullptr;
  QWidget* timeRow_ = nullptr;
  QLineEdit* text1_ = nullptr;
  QLineEdit* text2_ = nullptr;
  QLineEdit* text3_ = nullptr;
  QLineEdit* text4_ = nullptr;
  QWidget* extendedBoxes_ = nullptr;
  QWidget* fiftyMoveBox_ = nullptr;
  QButtonGroup* fiftyMove_ = nullptr;
  QCheckBox* check12_ = nullptr;
  QCheckBox* check14_ = nullptr;
  QCheckBox* check15_ = nullptr;
  QCheckBox* check16_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QButtonGroup* captureChar_ = nullptr;
  bool showing_ = false;
};

}  // namespace qv::gui

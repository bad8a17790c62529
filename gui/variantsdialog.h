#pragma once
// dlgVariants: the rules of the game, every key of the rule set, chosen from a
// classic or user variant, edited by hand or drawn at random.
#include <QDialog>
#include <string>
#include <vector>

#include "core/game.h"
#include "interaction/variantsform.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace qv::gui {

// Shows the dialog modally on the rules in force of g; true when it was
// closed by OK (the rules shown are then in force).
bool ShowVariantsDialog(QWidget* parent, Game& g);

// "New Variant..." after the question "Quit current game?": a new game whose
// rules the dialog chooses, ready to play. True when closed by OK.
bool RunVariantsDialog(QWidget* parent, Game& g);

class VariantsDialog : public QDialog {
  Q_OBJECT
 public:
  VariantsDialog(Game& g, QWidget* parent = nullptr);
  // The fatal error that closed the dialog, empty when none did.
  const std::string& FatalText() const { return fatal_; }

 private:
  struct CheckControl {
    CheckBox VariantsForm::*box;
    QCheckBox* widget;
  };
  struct NumberControl {
    TextBox VariantsForm::*box;
    QLabel* label;
    QLineEdit* widget;
  };

  QWidget* BuildTopRow();
  QWidget* BuildCapturesFrame();
  QWidget* BuildFlyingKingsFrame();
  QWidget* BuildMiscFrame();
  QWidget* BuildOpeningFrame();
  QWidget* BuildWinDrawFrame();
  QWidget* BuildOffBoardFrame();
  QLayout* BuildButtonRow();
  QWidget* BuildCheckFrame(const char* title, std::initializer_list<std::pair<CheckBox VariantsForm::*, const char*>> boxes,
                           QWidget** frame);
  QCheckBox* AddCheck(CheckBox VariantsForm::*box, const char* caption);
  QLineEdit* AddNumber(TextBox VariantsForm::*box, QLabel* label);
  QWidget* BuildPromotionFrame();
  QWidget* BuildDirectionFrame();
  QLineEdit* NewSmallBox(int characters);

  void ShowForm();     // widgets from form_
  void ReadWidgets();  // form_ from widgets
  void ControlChanged();
  void Check3Clicked(bool on);
  void VariantChosen(const QString& name);
  void FolderChosen(int useClassic);
  void RandomClicked();
  bool StoreClicked(bool isOK);
  void LinkClicked();
  // Runs an action that may read a variant file. A file that cannot be read
  // closes the dialog with its fatal error, and false is returned: the
  // caller does nothing more.
  template <class Action>
  bool Guarded(Action action);

  Game& g_;
  VariantsForm form_;
  bool showing_ = false;
  std::string fatal_;
  std::vector<CheckControl> checks_;
  std::vector<NumberControl> numbers_;
  std::vector<QWidget*> tabOrder_;
  QLineEdit* text6_ = nullptr;
  QLabel* label18_ = nullptr;
  QLineEdit* text1_[24] = {};
  QLineEdit* text2_[8] = {};
  QRadioButton* option1_ = nullptr;
  QRadioButton* option2_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QLabel* label10_ = nullptr;
};

}  // namespace qv::gui

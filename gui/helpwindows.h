#pragma once
// frmRules, the rules of the variant in play, and frmAbout, the program's
// name, version and contacts. Both are modal over the main window.
#include <QDialog>

#include "core/game.h"

class QLabel;
class QPushButton;

namespace qv::gui {

class LinkLabel;

class RulesWindow : public QDialog {
  Q_OBJECT
 public:
  RulesWindow(const Game& g, QWidget* parent = nullptr);
  QLabel* Text() const { return label2_; }
  LinkLabel* Link() const { return label1_; }

 private:
  QLabel* label2_ = nullptr;
  LinkLabel* label1_ = nullptr;
};

class AboutWindow : public QDialog {
  Q_OBJECT
 public:
  explicit AboutWindow(QWidget* parent = nullptr);
  QLabel* VersionLabel() const { return label3_; }

 private:
  QLabel* label3_ = nullptr;
};

}  // namespace qv::gui

#pragma once
// dlgDetails: the Event, Site and Date of the game and its two players, as
// the PDN writer writes them.
#include <QDialog>

#include "core/pdntags.h"
#include "interaction/pdn_forms.h"

class QLineEdit;

namespace qv::gui {

void ShowDetailsDialog(QWidget* parent, PdnTags& tags);

class DetailsDialog : public QDialog {
  Q_OBJECT
 public:
  DetailsDialog(PdnTags& tags, QWidget* parent = nullptr);

 private:
  DetailsForm ReadBoxes() const;
  void Apply();

  PdnTags& tags_;
  QLineEdit* text1_ = nullptr;
  QLineEdit* text2_ = nullptr;
  QLineEdit* text3_ = nullptr;
  QLineEdit* text4_ = nullptr;
  QLineEdit* text5_ = nullptr;
};

}  // namespace qv::gui

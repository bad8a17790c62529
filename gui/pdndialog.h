#pragma once
// dlgPDN: the games of a PDN collection in ten columns, the variant to open
// the chosen game with ("Open as:"), OK and Cancel.
#include <QDialog>

#include "interaction/pdn_forms.h"

class QComboBox;
class QTreeWidget;

namespace qv::gui {

// Shows the chooser modally; true for OK, the choice stored in the form.
bool ShowPdnDialog(QWidget* parent, PdnChooserForm& form);

class PdnDialog : public QDialog {
  Q_OBJECT
 public:
  PdnDialog(PdnChooserForm& form, QWidget* parent = nullptr);

 private:
  void OkClicked();

  PdnChooserForm& form_;
  QTreeWidget* listView1_ = nullptr;
  QComboBox* combo1_ = nullptr;
};

}  // namespace qv::gui

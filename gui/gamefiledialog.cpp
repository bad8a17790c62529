#include "gui/gamefiledialog.h"

#include <QDir>
#include <QFileDialog>
#include <QRegularExpression>

namespace qv::gui {

namespace {

// "Quorvanis File (*.qvn)" -> "qvn".
QString SuffixOf(const QString& filter) {
  const QRegularExpressionMatch m = QRegularExpression(R"(\*\.(\w+))").match(filter);
  return m.hasMatch() ? m.captured(1) : QString();
}

}  // namespace

std::filesystem::path RunGameFileDialog(QWidget* parent, const std::string& title,
                                        const std::vector<std::string>& filters, bool save) {
  QFileDialog dialog(parent, QString::fromStdString(title), QDir::currentPath());
  QStringList names;
  for (const std::string& filter : filters) names << QString::fromStdString(filter);
  dialog.setNameFilters(names);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, true);
  if (!names.isEmpty()) dialog.setDefaultSuffix(SuffixOf(names.front()));
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog](const QString& filter) { dialog.setDefaultSuffix(SuffixOf(filter)); });
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().front().toStdString();
}

}  // namespace qv::gui

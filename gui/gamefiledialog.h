#pragma once
// The Load Game and Save Game dialogs.
#include <filesystem>
#include <string>
#include <vector>

class QWidget;

namespace qv::gui {

// Opens in the current folder with an empty name; the file kinds are offered
// in the order given, and a name typed without extension takes the kind
// chosen. The Save dialog does not ask about replacing a file: the caller
// does. An empty path when cancelled.
std::filesystem::path RunGameFileDialog(QWidget* parent, const std::string& title,
                                        const std::vector<std::string>& filters, bool save);

}  // namespace qv::gui

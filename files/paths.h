#pragma once
// Where the program's files are: the read-only data it ships, and the folder
// it writes its own files to.
#include <filesystem>

namespace qv {

// The folder holding variants/, books/, skins/ and sounds/: the installed
// share/quorvanis beside the executable's bin/, a data/ folder beside the
// executable, or the source tree's data/ for a build that was not installed.
std::filesystem::path FindDataFolder(const std::filesystem::path& executableFolder);

// The folder for settings, autosave, rating, log and diagram: the program's
// own folder when it is writable, else a per-user folder
// ($XDG_DATA_HOME/quorvanis or ~/.local/share/quorvanis), created on demand.
std::filesystem::path FindWritableFolder(const std::filesystem::path& executableFolder);

// The files the program writes into that folder.
inline constexpr const char* SettingsFileName = "quorvanis.ini";
inline constexpr const char* AutosaveFileName = "quorvanis.sav";
inline constexpr const char* DoMovesFileName = "domoves.qvn";

// The scratch file of the PDN reader and writer, in the system's temporary folder.
std::filesystem::path TemporaryFilePath();

// The folder of the running executable, from /proc/self/exe or argv[0].
std::filesystem::path ExecutableFolder(const char* argv0);

}  // namespace qv

#pragma once
// The settings file quorvanis.ini: everything the program remembers between
// runs besides the rating and the autosaved game. It is positional text, one
// field a line in a fixed order with no keys: the player's options, the
// variant name and the whole rule set of the last game.
#include <filesystem>

#include "core/game.h"
#include "files/safe_write.h"

namespace qv {

// The first field of the file; a file with another one is from another version.
inline constexpr const char* SettingsHeader = "QUORVANIS0.89";
// What ends the program when the file cannot be read for another reason than
// being missing or short.
inline constexpr const char* SettingsReadError = "Error found! Quorvanis will exit";

enum class SettingsSource { File, Defaults };

struct SettingsResult {
  SettingsSource source = SettingsSource::File;
  FileWriteResult written;  // the rewrite of the defaults, when there was one
};

// Reads the file into g.Settings, g.VariantName and the rule fields of
// g.RuleSet (promotion squares, movement texts and DirTable included). A
// missing file, a short one or one of another version is replaced, without a
// word, by a new file holding the first-start defaults, which are then in
// force. Any other failure throws FatalError(SettingsReadError).
SettingsResult ReadSettings(Game& g, const std::filesystem::path& file);

// Writes the file from g in the same order; notation-dependent fields are
// always written in algebraic form.
FileWriteResult WriteSettings(const Game& g, const std::filesystem::path& file);

// The text WriteSettings writes.
std::string SettingsText(const Game& g);

// What start-up makes of two stored values: a depth limit of 0 becomes 2, and
// the program never starts in Computer-Computer play.
void SettleStoredModes(Options& options);

}  // namespace qv

#pragma once
// Game files. The program's own format (".qvn") holds the whole rule set,
// the start position, the movement texts, the player's name and the moves
// with their comments; it also serves for the autosave quorvanis.sav and the
// generated domoves.qvn. LoadGame and SaveGame choose the format by the
// file's extension: ".pdn" is Portable Draughts Notation, anything else is
// the program's own.
#include <filesystem>
#include <string>

#include "core/game.h"
#include "files/safe_write.h"

namespace qv {

// Where the game LoadGame reads comes from. The source decides what a failure
// says and whether the file stays.
inline constexpr int LoadChosenFile = 0;  // the user chose it (Load dialog, --load)
inline constexpr int LoadOpeningFile = 1; // opening.pdn of the data folder
inline constexpr int LoadDoMoves = 2;     // domoves.qvn, deleted after the load
inline constexpr int LoadAutosave = 3;    // quorvanis.sav at start-up

inline constexpr const char* GameFileMagic = "QUORVANIS Version=";
inline constexpr const char* GameFileVersion = "0.89";

struct LoadResult {
  bool loaded = false;   // the game of the file stands, all its moves played
  std::string message;   // a box to show; empty when there is nothing to say
  std::string caption;   // its caption; empty for the program's own name
  std::string fileName;  // the bare file name
};

// Reads a game file of either format into g. A file that is not a game file
// of this program or of another version changes nothing and says so; one
// that breaks off in its header or holds a value that cannot be read changes
// nothing either, without a word; a move that is not legal ends the load
// with "<MOVE>: Illegal move!" and a new game of the file's rules.
LoadResult LoadGame(Game& g, const std::filesystem::path& file, int source);

// Writes g's game to the file in the format its extension names.
FileWriteResult SaveGame(Game& g, const std::filesystem::path& file);

bool IsPdnFile(const std::filesystem::path& file);

// The program's own format alone.
LoadResult LoadNativeGame(Game& g, const std::filesystem::path& file, int source);
FileWriteResult SaveNativeGame(Game& g, const std::filesystem::path& file);
// The 57 lines before the moves, ending with "START", each ended by CR LF.
std::string NativeGameHeader(const Game& g);
// The whole file. A comment's line breaks are written as two bytes of value
// 255, a change that stays in the stored comment until the next load.
std::string NativeGameText(Game& g);
// How a half-move of the record is written: the square pair of its text, or
// the first square alone when the text's third character is a blank.
std::string SavedMoveText(const std::string& recordText);

// The PDN branch of LoadGame and SaveGame, in the PDN reader and writer.
LoadResult LoadPdnGame(Game& g, const std::filesystem::path& file, int source);
// Game `number` (1 for the first) of a PDN file; 0 lets the source choose:
// the first, or one at random for the openings under BookRandom.
LoadResult LoadPdnGameNumber(Game& g, const std::filesystem::path& file, int source, int number);
FileWriteResult SavePdnGame(Game& g, const std::filesystem::path& file);

}  // namespace qv

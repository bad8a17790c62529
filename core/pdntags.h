#pragma once
// The tag values of a game in Portable Draughts Notation: what the PDN reader
// found, what the Details dialog edits and what the PDN writer writes.
#include <string>

namespace qv {

struct PdnTags {
  std::string Event;
  std::string Date;  // "[Date " and "[Year " both feed it
  std::string Site;
  std::string Round;
  std::string Black;
  std::string White;
  std::string BlackElo;
  std::string WhiteElo;
  std::string Result = "*";       // the game's result as the file gave it
  std::string ResultShown = "*";  // the copy the status panel shows
  std::string SetUp;
  std::string Fen;
  std::string Eco;
  std::string RulesTag;  // "[Quorvanis ": this program's own rule record
  std::string GameType;
};

}  // namespace qv

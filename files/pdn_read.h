#pragma once
// Loading one game of a PDN file: its rules (the "[Quorvanis " tag, the
// "[GameType " tag, a variant the user chose, or the American rules), its
// set-up, and its moves, each through the move entry.
#include <string>
#include <string_view>

#include "core/game.h"
#include "files/pdn_source.h"

namespace qv {

struct PdnLoadChoice {
  int Source = 0;      // 0 a file the user chose, 1 the openings file
  std::string OpenAs;  // a variant name from "Open as:", empty or "DEFAULT" for the file's own
};

enum class PdnLoadStatus { Loaded, IllegalSetup, IllegalMove, Failed };

struct PdnLoadResult {
  PdnLoadStatus Status = PdnLoadStatus::Failed;
  std::string Message;  // "Illegal Setup!", "11-16: Illegal move!", "Error in loading PDN file!"
  bool VariantChosen = false;
  bool HadComments = false;
  int Moves = 0;
  // The status panel after the load: the result, ";  no comments" when the game had none.
  std::string StatusText;
};

// Sets up the game of number gameNumber (1-based) and replays its moves. A
// refused move or set-up resets the game (a new game of the rules in force).
PdnLoadResult ReadPdnGame(Game& g, const PdnCollection& collection, int gameNumber, const PdnLoadChoice& choice);

// Places the pieces of a FEN such as "B:W18,24,K10:B12,16,K22" (numeric, or
// algebraic squares like "Kc3", ranges like "1-12") and makes the position the
// start of the game. False for a FEN the program cannot set up.
bool ApplyPdnFen(Game& g, std::string_view fen);

// The opening choice is offered only for the standard position with Black to
// begin on the usual colour and no giveaway rules.
bool OpeningsApply(const Game& g);

}  // namespace qv

#pragma once
// Opening a PDN collection, choosing one of its games, saving a game as PDN,
// the Details dialog, and the opening chosen at a new game.
#include <filesystem>

#include "interaction/session.h"

namespace qv {

// Where the reader keeps its temporary copy "quorvanis.tmp".
std::filesystem::path PdnTempFolder();

// Source 0: a file the user chose, the chooser shown. Source 1: the openings
// file of the data folder, offered only for the standard position and rules
// that start from it, and chosen at random when BookRandom is on.
void LoadPdnCommand(Session& s, const std::filesystem::path& file, int source);

// "Choose opening" at a new game, when ChooseOpening is on.
void ChooseOpeningIfAsked(Session& s);

// Appends the game to a PDN file; true when written.
bool SavePdnCommand(Session& s, const std::filesystem::path& file);

// "Details...": the Event, Site, Date and players of the game.
void DetailsCommand(Session& s);

}  // namespace qv

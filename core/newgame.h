#pragma once
// Setting up a game: the standard position and rules, the variant file, the
// flags derived from the rules, and adopting a position built by hand.
#include <string>
#include <string_view>

#include "core/game.h"

namespace qv {

// Resets the game and builds the position (unless CustomPosition is 1), reads
// the variant file of VariantName into VariantDefinition, derives the flags and
// generates the legal moves of the side to move.
void NewGame(Game& g);

// Makes what stands on Board the start position of a new game.
void AdoptBoardPosition(Game& g);

// After the rules in force changed (the variants dialog, a variant chosen on
// the command line): direction tables, board colour, side to begin and the
// derived flags and tables, then the start of play: the label, the side to
// move, the material and the legal moves.
void ApplyRulesToNewGame(Game& g);

// A new game of the named variant with the rules of its file in force: what
// choosing a variant and pressing OK in the variants dialog does.
void StartVariant(Game& g, const std::string& variantName);

// VariantDefinition into RuleSet, with the side to move, promotion squares and
// direction tables.
void CopyDefinitionToRules(Game& g);

// DirTable from the four movement texts of RuleSet.
void BuildDirTable(Game& g);

void ScanDirections(Game& g);
void ScanDirectionKinds(Game& g);
void ScanPromoCounts(Game& g);
// ScanPromoCones, BuildPromoTable, ScanPromoCounts, ClassifyVariant and, for
// the fast rule sets, BuildPromoDistance: the step all new-game paths share.
void DeriveRuleTables(Game& g);

// Reads a 64-character setup into Board and StartBoard and recounts the men,
// the material and the balance of ply 0 (seen from Black).
void ReadSetupText(Game& g, std::string_view text);

// Recomputes SearchFlavour; -1 when the rules are American Checkers, else 0.
int ClassifyVariant(Game& g);

// Sets VariantLabel: the variant's name, with " (M)" when the rules in force
// differ from the file's.
void MarkModified(Game& g);

void RemoveMenAtRandom(Game& g);

}  // namespace qv

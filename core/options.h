#pragma once
// The player's options: everything the settings file remembers besides the
// rules and the variant name. Defaults are those of a first start.
#include <string>

namespace qv {

struct Options {
  int PlayMode = 0;  // 0 Player-Computer, 1 Player-Player, 2 Computer-Computer
  int StrengthHandicap = 1;
  int DepthLimit = 2;
  int NotationKind = 0;  // 0 algebraic, 1 numeric, 2 none
  int BoardTurned = 1;
  int ShowAvailableMoves = 1;
  int TimeLimit = 2;
  int DepthMode = 0;
  int ChessDrawRules = 1;
  std::string PlayerName = "Player";
  int CapitalNotation = 0;
  int ConfirmExit = 1;
  int AskDrawIfComputerDraws = 0;
  int ExtendedSearch = 1;
  int OpeningBook = 1;
  int FiftyMoveKind = 1;
  int ShowCalculation = 1;
  int AmericanBookForOthers = 0;
  int BruteForce = 0;
  int CaptureCharColon = 0;
  int Plys = 3;
  int Balance = 150;
  int ChooseOpening = 0;
  int BookRandom = 0;
  int UseRating = 1;
  int SkinKind = 2;
  int AutoSave = 0;
  int UseSound = 0;
  std::string SkinName = "Classic Medium";
  int KingVersusKing = 1;
  int PdnAlgebraic = 0;
  int PlyValueDepth = 5;
  int UseClassic = 1;
  int TouchMove = 0;
};

}  // namespace qv

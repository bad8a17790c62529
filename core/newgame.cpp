#include "core/newgame.h"

#include <cstdlib>

#include "core/fatal.h"
#include "core/movegen.h"
#include "engine/promotion_tables.h"
#include "files/variantfile.h"

namespace qv {

namespace {

// The American rules and standard position that every new game starts from
// before the variant file is read.
void SetStandardVariant(Game& g) {
  FillFrame(g.BoardTemplate);
  BuildStandardPosition(g.BoardTemplate);
  RuleRecord& def = g.VariantDefinition;
  def.MaxCapMove = 0;
  def.MaxCapMoveK = 1;
  def.MaxCapMoveKings = 0;
  def.ManCapKing = 1;
  def.CapRequired = 1;
  def.KingCapMove = 0;
  def.MulJumps = 1;
  def.BlackStarts = 1;
  def.WinAtPromo = 0;
  def.KingWin = 0;
  def.PromoSquares = RuleRecord::StandardPromoSquares();
  g.LoadedVariantName = "American Checkers";
  g.StartMaterial = 24;
  g.WhiteMen = 12;
  g.BlackMen = 12;
  g.MaterialByPly[0] = 0;
  g.Record.MaterialSaved[0] = 0;
  g.Board = g.BoardTemplate;
  g.StartBoard = g.BoardTemplate;
  g.PreviewPending = 1;
}

void ResetGameState(Game& g) {
  g.Ply = 0;
  g.HalfMoveCount = 0;
  g.GameLength = 0;
  g.GameOver = 0;
  g.GameInProgress = 0;
  g.ContractLeftWhite = g.RuleSet.ContractNumber;
  g.ContractLeftBlack = g.RuleSet.ContractNumber;
  g.TotalMaterialStart = g.StartMaterial * 100;
  g.ActivityByPly[0] = g.TotalMaterialStart;
  g.StopRequest = 0;
  g.PlyBase[0] = 0;
  g.MoveTop = 0;
  g.GameResult.clear();
  g.LazyMargin = 150;
  g.GameNote.clear();
  g.StableCount = 0;
  g.LastDrawOffer = 0;
  g.WinAnnounced = 0;
  g.LastSearchScore = 0;
  g.Record = GameRecordArrays{};
  g.Record.ActivitySaved[0] = g.TotalMaterialStart;
  for (auto& row : g.MoveTextTable) row = {};
}

int SizeOf(int step) { return std::abs(step); }

// The sample cell of an empty board lies before the first cell: a set-up
// without a single piece cannot start.
void AlignPiecesWithRules(Game& g) {
  try {
    AlignBoardColour(g.Board, g.RuleSet.PiecesOnBlack);
  } catch (const RangeError&) {
    throw FatalError(StartUpErrorText);
  }
}

}  // namespace

void BuildDirTable(Game& g) {
  // A list of nine directions leaves no room for the end mark.
  try {
    for (int kind = 0; kind < 4; ++kind) ParseDirections(g.RuleSet.DirText[kind], kind, g.DirTable);
  } catch (const RangeError&) {
    throw FatalError(StartUpErrorText);
  }
}

void ScanDirections(Game& g) {
  g.Flags.CompareCaptureSets = 0;
  g.Flags.AllOrthogonal = 1;
  bool orthogonalStep = false;
  for (const DirectionRow& row : g.DirTable)
    for (int step : row) {
      if (SizeOf(step) == 1 || SizeOf(step) == 10) orthogonalStep = true;
      else if (step != EndOfList) g.Flags.AllOrthogonal = 0;
    }
  if (orthogonalStep) g.RuleSet.PiecesOnBlack = 2;
  if (g.RuleSet.PiecesOnBlack == 2 && g.RuleSet.LongKings == 1) g.Flags.CompareCaptureSets = 1;
}

void ScanDirectionKinds(Game& g) {
  g.Flags.NoDiagonalMoves = 1;
  bool orthogonalStep = false;
  for (const DirectionRow& row : g.DirTable)
    for (int step : row) {
      const int size = SizeOf(step);
      if (size != 1 && size != 10 && size != 99) g.Flags.NoDiagonalMoves = 0;
      if (size == 1 || size == 10) orthogonalStep = true;
    }
  // With an orthogonal step but a thin army the flag keeps its old value.
  if (orthogonalStep && g.WhiteMen >= 13 && g.BlackMen >= 13) g.Flags.CrowdedOrthogonal = 1;
  if (!orthogonalStep) g.Flags.CrowdedOrthogonal = 0;
}

void ScanPromoCounts(Game& g) {
  const PromoTable& promo = g.RuleSet.PromoSquares;
  int counts[2] = {0, 0};
  bool allEqual = true;
  for (int i = 0; i < PromoSlots; ++i) {
    for (int side = 0; side < 2; ++side)
      if (promo[side][i] != -1) ++counts[side];
    if (promo[0][i] != promo[1][i]) allEqual = false;
  }
  if (allEqual) g.Flags.HasUnreachableSquares = 0;
  g.Flags.PromoListsEqual = 1;
  if (counts[0] != counts[1]) {
    g.Flags.PromoListsEqual = 0;
    g.Flags.HasUnreachableSquares = 0;
  }
  g.Flags.PromoListLast = std::max(counts[0], counts[1]) - 1;
}

void DeriveRuleTables(Game& g) {
  g.Flags.TropismActive = (g.RuleSet.KingWin == 0 && g.RuleSet.WinAtPromo == 0) ? 1 : 0;
  ScanPromoCones(g);
  BuildPromoTable(g);
  ScanPromoCounts(g);
  ClassifyVariant(g);
  if (g.Flags.SearchFlavour > 0) BuildPromoDistance(g);
}

void ReadSetupText(Game& g, std::string_view text) {
  int whiteWorth = 0, blackWorth = 0, total = 0;
  g.WhiteMen = 0;
  g.BlackMen = 0;
  std::size_t next = 0;
  for (int cell = 0; cell < 120; ++cell) {
    if (IsFrameCell(cell)) continue;
    int code = 0;
    if (next < text.size() && text[next] >= '0' && text[next] <= '9') code = text[next] - '0';
    ++next;
    int value = code;  // a digit outside 1..4 stays as that number, as it always has
    switch (code) {
      case 1: value = WhiteMan; break;
      case 2: value = BlackMan; break;
      case 3: value = WhiteKing; break;
      case 4: value = BlackKing; break;
      default: break;
    }
    g.Board[cell] = value;
    g.StartBoard[cell] = value;
    if (value == WhiteMan) ++g.WhiteMen;
    if (value == BlackMan) ++g.BlackMen;
    if (value > 0) whiteWorth += value;
    if (value < 0) blackWorth -= value;
    if (value != 0) total += std::abs(value);
  }
  g.StartMaterial = total;
  g.MaterialByPly[0] = (blackWorth - whiteWorth) * 100;
  g.Record.MaterialSaved[0] = g.MaterialByPly[0];
}

void NewGame(Game& g) {
  g.Random.Randomize();
  if (g.CustomPosition == 0) {
    SetStandardVariant(g);
    ReadVariantFile(g);
    ScanDirections(g);
    ScanDirectionKinds(g);
    if (g.RuleSet.PiecesOnBlack == 0) ShiftBoardColour(g.Board, 0);
    if (g.RuleSet.RndColor == 1) {
      const int bit = static_cast<int>(g.Rnd() * 2);
      g.RuleSet.BlackStarts = bit;
      g.VariantDefinition.BlackStarts = bit;
    }
    g.SideToMove = g.RuleSet.BlackStarts == 1 ? -1 : 1;
  }
  MarkModified(g);
  DeriveRuleTables(g);
  ResetGameState(g);
  g.CaptureChar.assign(1, g.Settings.CaptureCharColon == 1 ? ':' : 'x');
  GenerateLegalMoves(g);
  g.FirstPlayerName = g.Settings.PlayerName;
  g.SecondPlayerName = "Computer";
  if (g.Settings.PlayMode == 1) g.SecondPlayerName = g.Settings.PlayerName;
  if (g.Settings.PlayMode == 2) g.FirstPlayerName = "Computer";
  if (g.RuleSet.PiecesOnBlack == 2) g.Settings.NotationKind = 0;
}

void AdoptBoardPosition(Game& g) {
  g.StartBoard = g.Board;
  int whiteWorth = 0, blackWorth = 0;
  g.StartMaterial = 0;
  g.WhiteMen = 0;
  g.BlackMen = 0;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.Board[cell];
    if (v == OffBoard || v == 0) continue;
    g.StartMaterial += std::abs(v);
    if (v == WhiteMan) ++g.WhiteMen;
    if (v == BlackMan) ++g.BlackMen;
    if (v > 0) whiteWorth += v;
    else blackWorth -= v;
  }
  g.MaterialByPly[0] = (blackWorth - whiteWorth) * 100;
  g.Record.MaterialSaved[0] = g.MaterialByPly[0];
  g.RuleSet.BlackStarts = 1;
  if (g.SideToMove == 1) {
    g.MaterialByPly[0] = -g.MaterialByPly[0];
    g.Record.MaterialSaved[0] = -g.Record.MaterialSaved[0];
    g.RuleSet.BlackStarts = 0;
  }
  g.CustomPosition = 1;
  NewGame(g);
  g.PreviewPending = 0;
}

void CopyDefinitionToRules(Game& g) {
  CopyRuleFields(g.VariantDefinition, g.RuleSet);
  g.SideToMove = -1;
  g.RuleSet.BlackStarts = 1;
  if (g.VariantDefinition.BlackStarts == 0) {
    g.SideToMove = 1;
    g.RuleSet.BlackStarts = 0;
  }
  g.RuleSet.PromoSquares = g.VariantDefinition.PromoSquares;
  g.RuleSet.DirText = g.VariantDefinition.DirText;
  BuildDirTable(g);
}

void ApplyRulesToNewGame(Game& g) {
  g.ContractLeftWhite = g.RuleSet.ContractNumber;
  g.ContractLeftBlack = g.RuleSet.ContractNumber;
  ScanDirections(g);
  ScanDirectionKinds(g);
  if (g.RuleSet.PiecesOnBlack == 2) g.Settings.NotationKind = 0;
  else AlignPiecesWithRules(g);
  if (g.RuleSet.RndColor == 1) {
    const int bit = static_cast<int>(g.Rnd() * 2);
    g.RuleSet.BlackStarts = bit;
    g.VariantDefinition.BlackStarts = bit;
  }
  if (g.RuleSet.BlackStarts == 0) {
    g.MaterialByPly[0] = -g.MaterialByPly[0];
    g.Record.MaterialSaved[0] = -g.Record.MaterialSaved[0];
  }
  DeriveRuleTables(g);
  MarkModified(g);
  g.SideToMove = g.RuleSet.BlackStarts == 1 ? -1 : 1;
  g.TotalMaterialStart = g.StartMaterial * 100;
  g.ActivityByPly[0] = g.TotalMaterialStart;
  g.Record.ActivitySaved[0] = g.TotalMaterialStart;
  g.PlyBase[0] = 0;
  GenerateLegalMoves(g);
}

void StartVariant(Game& g, const std::string& variantName) {
  g.VariantName = variantName;
  g.CustomPosition = 0;
  NewGame(g);
  CopyDefinitionToRules(g);
  // The file reader left the balance of ply 0 seen from the side that begins;
  // ApplyRulesToNewGame expects it seen from Black, as the dialog leaves it.
  if (g.VariantDefinition.BlackStarts == 0) {
    g.MaterialByPly[0] = -g.MaterialByPly[0];
    g.Record.MaterialSaved[0] = -g.Record.MaterialSaved[0];
  }
  ApplyRulesToNewGame(g);
}

}  // namespace qv

#pragma once
// The whole state of one game: position, rules, move stack, per-ply tables and
// the game record. Every routine of the program works on a Game passed by
// reference; a process may hold as many games as it likes.
#include <array>
#include <atomic>
#include <filesystem>
#include <string>

#include "core/board.h"
#include "core/fast_eval_tables.h"
#include "core/general_eval_tables.h"
#include "core/generator_work.h"
#include "core/options.h"
#include "core/pdntags.h"
#include "core/position_key.h"
#include "core/random.h"
#include "core/rating_state.h"
#include "core/rules.h"
#include "core/table.h"

namespace qv {

inline constexpr int MoveStackSize = 1001;
inline constexpr int PlyRows = 41;
inline constexpr int RecordSize = 1001;
inline constexpr int MoveTextRows = 501;
inline constexpr int CaptureTextSize = 50;

// Columns of a MoveTextTable row: the two half moves' texts, who made each,
// and the strength the computer played its move of the row at.
inline constexpr int FirstHalfText = 0, SecondHalfText = 1, FirstMoverCode = 2, SecondMoverCode = 3, MoveLevel = 4;
// Who made a move, as MoveTextTable remembers it.
inline constexpr int MoverComputer = 1, MoverHuman = 2, MoverLoaded = 3;

// One move. CaptureText is all NUL for a quiet move; otherwise one digit (the
// notation in force when it was pushed) and then a group of three characters
// per captured piece: its worth "1" or "2" and its cell in two digits.
struct MoveRecord {
  Table<char, CaptureTextSize> CaptureText{};
  int FromSquare = 0;
  int PromoteFlag = 0;  // 2 when the moving man is crowned by this move
  int ToSquare = 0;
  int OrderScore = 0;

  bool IsCapture() const { return CaptureText.Cells[0] != '\0'; }
};

// A move as the search remembers it in its main line and killer tables.
struct MoveKey {
  int From = 0;
  int To = 0;
  friend bool operator==(const MoveKey&, const MoveKey&) = default;
};

// One entry of a stored main line: Kind 0 plain move, 1 capture, plus 10 when
// the move crowns; From 0 ends the line.
struct PVEntry {
  int Kind = 0;
  int From = 0;
  int To = 0;
};

// A flag one thread sets and another reads: Cancel (1) and the clock (2) set
// it while the search runs. Copying a Game copies its value.
struct StopFlag {
  std::atomic<int> value{0};
  StopFlag() = default;
  StopFlag(const StopFlag& other) : value(other.value.load()) {}
  StopFlag& operator=(const StopFlag& other) {
    value.store(other.value.load());
    return *this;
  }
  StopFlag& operator=(int v) {
    value.store(v, std::memory_order_relaxed);
    return *this;
  }
  operator int() const { return value.load(std::memory_order_relaxed); }
};

// The arrays of a played game, by half-move (entry 0 is the start).
struct GameRecordArrays {
  Table<MoveRecord, RecordSize> GameMoves;
  Table<int, RecordSize> LastToByMove;
  Table<int, RecordSize> KingManMark;
  Table<int, RecordSize> ManKingCell;
  Table<int, RecordSize> MaterialSaved;
  Table<int, RecordSize> ActivitySaved;
  Table<int, RecordSize> LegalCountHistory;
  Table<int, RecordSize> EvalHistory;
  Table<PositionKeyWords, RecordSize> PositionHistory;
  Table<std::string, RecordSize> CommentTable;
};

// Flags and tables derived from the rules at each new game.
struct VariantFlags {
  int AllOrthogonal = 0;
  int CompareCaptureSets = 0;
  int NoDiagonalMoves = 1;
  int CrowdedOrthogonal = 0;
  int TropismActive = 1;
  int HasUnreachableSquares = 0;
  int PromoListsEqual = 0;
  int PromoListLast = 0;
  int SearchFlavour = 1;
};

// The direction table of the default movement texts.
inline DirectionTable DefaultDirTable() {
  DirectionTable table;
  for (int kind = 0; kind < 4; ++kind) ParseDirections(DefaultDirText[kind], kind, table);
  return table;
}

struct Game {
  // Where the read-only data (variants, books, skins, sounds) is found. Empty:
  // no variant file is read and the built-in American rules stand.
  std::filesystem::path DataFolder;
  // Where the program writes its own files (settings, autosave, ...). Empty:
  // nothing is read from or written to it, as in tests.
  std::filesystem::path WritableFolder;

  // The position.
  BoardCells Board;
  BoardCells StartBoard;
  BoardCells BoardTemplate;
  int WhiteMen = 12;
  int BlackMen = 12;
  int StartMaterial = 24;

  // The rules: in force, and as the variant file states them.
  RuleRecord RuleSet;
  RuleRecord VariantDefinition;
  std::string VariantName = "American Checkers";
  std::string LoadedVariantName = "American Checkers";
  std::string HelpText;
  std::string HelpLink;
  std::string QuickHelpLink;
  std::string VariantLabel = "American Checkers";  // LoadedVariantName, " (M)" when modified
  DirectionTable DirTable = DefaultDirTable();
  DirectionTable DirTableBook = DefaultDirTable();
  VariantFlags Flags;

  // Game state.
  int SideToMove = -1;
  int Ply = 0;
  int HalfMoveCount = 0;
  int GameLength = 0;
  int GameOver = 0;
  int GameInProgress = 0;
  int CustomPosition = 0;
  int DrawReason = 0;
  int NoMoveDraw = 0;
  int ContractLeftWhite = 0;
  int ContractLeftBlack = 0;
  int TotalMaterialStart = 2400;
  int LazyMargin = 150;
  StopFlag StopRequest;
  std::string CaptureChar = "x";
  std::string GameResult;
  std::string GameNote;
  int PreviewPending = 0;
  int TouchedCell = 0;
  // The square and piece the player marked with "Priority"; the evaluation favours it.
  int FocusSquare = 0;
  int FocusPiece = 0;
  std::string FirstPlayerName = "Player";
  std::string SecondPlayerName = "Computer";

  // Moves: the legal moves of ply p lie at PlyBase[p] .. PlyBase[p + 1] - 1.
  Table<MoveRecord, MoveStackSize> MoveStack;
  int MoveTop = 0;
  Table<int, PlyRows> PlyBase;
  GeneratorWork Gen;
  // What FindMove found, and the pending square of a touch-move rule.
  int LastWasCapture = 0;
  int LastWasCrowning = 0;
  int LastMoveIndex = 0;
  // 1 while the driver wants LastCap applied below the root as well.
  int LastCapAnyPly = 0;
  // Repetition and move-limit state for the search (CountRepetitions, CheckMoveLimit).
  int LineDrawn = 0;
  int BareKings = 0;
  int LimitReached = 0;
  int ManThresholdWhite = 6;
  int ManThresholdBlack = 6;

  // Per-ply tables kept by the make operation and read by the engine.
  Table<int, PlyRows> MaterialByPly;
  Table<int, PlyRows> ActivityByPly;
  Table<int, PlyRows> CaptureFlagByPly;
  Table<int, PlyRows> PrevToSquare;
  Table<Table<PVEntry, PlyRows>, PlyRows> PVTable;
  Table<Table<MoveKey, 2>, PlyRows> KillerTable;

  // The record of the game.
  GameRecordArrays Record;
  Table<std::array<std::string, 5>, MoveTextRows> MoveTextTable;

  // What the evaluation and the search keep between nodes and turns.
  Table<Table<int, 2>, 120> PromoApproach;
  Table<Table<int, 2>, 120> PromoReach;
  FastEvalTables FastEval;
  GeneralEvalTables GeneralEval;
  int RuleLossPending = 0;
  int NoiseRange = 0;
  int BackRankActive = 1;
  int HorizonLimit = 0;
  int SearchCancelled = 0;
  // 1 while the ply value table runs: a Cancel ends the quick search at once
  // instead of at the end of the root move.
  int QuickSearchCancels = 0;
  long long NodeCount = 0;  // search nodes visited, for the benchmarks
  int ThreeKingsSince = 0;
  int TwoKingsSince = 0;
  std::string ResultNote;
  int LastSearchScore = 0;  // BestScore of the computer's last turn, from its side
  int StableCount = 0;
  int LastDrawOffer = 0;
  int WinAnnounced = 0;
  int BookMoveFrom = 0;
  int BookMoveTo = 0;
  // The reply the computer's last main line expects of the player, for the
  // hint; 0 when none.
  int StoredReplyFrom = 0;
  int StoredReplyTo = 0;
  Table<int, RecordSize> ScoreHistory;

  Options Settings;
  RatingState Rating;
  RandomSource Random;
  // Event, site, date, players and result of the game as PDN names them.
  PdnTags Tags;

  double Rnd() { return Random.Rnd(); }
  int NotationKind() const { return Settings.NotationKind; }
};

// The piece at a cell seen as a side: 1 White, -1 Black, 0 none.
constexpr int SideOf(int value) { return value > 0 && value < OffBoard ? 1 : (value < 0 && value > -3 ? -1 : 0); }

}  // namespace qv

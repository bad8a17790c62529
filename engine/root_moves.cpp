#include "engine/root_moves.h"

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"

namespace qv {

std::vector<MoveRecord> GenerateRootMoves(Game& g) {
  CommitRootPly(g);
  GenerateLegalMoves(g);
  return std::vector<MoveRecord>(g.MoveStack.begin() + g.PlyBase[0], g.MoveStack.begin() + g.PlyBase[1]);
}

void MakeRootMove(Game& g, const std::vector<MoveRecord>& roots, int i, int searchRootCount) {
  g.MoveStack[0] = roots[static_cast<std::size_t>(i)];
  g.PlyBase[1] = 1;
  MakeSearchMove(g, 0);
  const int upto = searchRootCount - 1;
  CountRepetitions(g, upto);
  if (g.LineDrawn == 0) {
    CheckMoveLimit(g, upto);
    g.LineDrawn = g.LimitReached;
  }
}

void UndoRootMove(Game& g) {
  UndoSearchMove(g, 0);
  g.LineDrawn = 0;
}

std::vector<RootScore> FreshRootInfo(const std::vector<MoveRecord>& roots) {
  std::vector<RootScore> rows;
  rows.reserve(roots.size());
  for (const MoveRecord& m : roots) rows.push_back(RootScore{m.FromSquare, m.ToSquare, NotScored});
  return rows;
}

void SortRootScores(std::vector<RootScore>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (std::size_t j = i + 1; j < rows.size(); ++j)
      if (rows[j].Score > rows[i].Score) std::swap(rows[i], rows[j]);
}

bool NarrowToBookMove(Game& g, std::vector<MoveRecord>& roots, int& depthLimit) {
  if (g.BookMoveFrom == 0) return false;
  for (const MoveRecord& m : roots) {
    if (m.FromSquare == g.BookMoveFrom && m.ToSquare == g.BookMoveTo) {
      roots = {m};
      depthLimit = 1;
      return true;
    }
  }
  g.BookMoveFrom = 0;
  return false;
}

std::string MainLineText(const Game& g) {
  std::string line;
  for (int k = 0; k < PlyRows && g.PVTable[0][k].From != 0; ++k) {
    const PVEntry& e = g.PVTable[0][k];
    if (!line.empty()) line += ' ';
    line += SquareNotation(e.From, 1, g.Settings.NotationKind) + (e.Kind % 10 == 1 ? g.CaptureChar : "-") +
            SquareNotation(e.To, 1, g.Settings.NotationKind);
    if (e.Kind >= 10) line += 'K';
  }
  return line;
}

struct GameKeeper::Saved {
  BoardCells Board;
  int SideToMove, Ply, HalfMoveCount, GameLength, GameInProgress, GameOver, DrawReason, NoMoveDraw;
  int WhiteMen, BlackMen, ContractLeftWhite, ContractLeftBlack;
  int LastWasCapture, LastWasCrowning, LastMoveIndex, TouchedCell;
  int LineDrawn, BareKings, LimitReached, HorizonLimit, NoiseRange, RuleLossPending, SearchCancelled;
  int ManThresholdWhite, ManThresholdBlack, BookMoveFrom, BookMoveTo, StoredReplyFrom, StoredReplyTo;
  RandomSource Random;
  std::string GameResult, GameNote, ResultNote;
  Table<MoveRecord, MoveStackSize> MoveStack;
  int MoveTop;
  Table<int, PlyRows> PlyBase, MaterialByPly, ActivityByPly, CaptureFlagByPly, PrevToSquare;
  Table<Table<PVEntry, PlyRows>, PlyRows> PVTable;
  Table<Table<MoveKey, 2>, PlyRows> KillerTable;
  GameRecordArrays Record;
  Table<std::array<std::string, 5>, MoveTextRows> MoveTextTable;
};

// Both directions name the same fields once.
template <class From, class To>
static void CopyKept(From& a, To& b) {
  b.Board = a.Board;
  b.SideToMove = a.SideToMove;
  b.Ply = a.Ply;
  b.HalfMoveCount = a.HalfMoveCount;
  b.GameLength = a.GameLength;
  b.GameInProgress = a.GameInProgress;
  b.GameOver = a.GameOver;
  b.DrawReason = a.DrawReason;
  b.NoMoveDraw = a.NoMoveDraw;
  b.WhiteMen = a.WhiteMen;
  b.BlackMen = a.BlackMen;
  b.ContractLeftWhite = a.ContractLeftWhite;
  b.ContractLeftBlack = a.ContractLeftBlack;
  b.LastWasCapture = a.LastWasCapture;
  b.LastWasCrowning = a.LastWasCrowning;
  b.LastMoveIndex = a.LastMoveIndex;
  b.TouchedCell = a.TouchedCell;
  b.LineDrawn = a.LineDrawn;
  b.BareKings = a.BareKings;
  b.LimitReached = a.LimitReached;
  b.HorizonLimit = a.HorizonLimit;
  b.NoiseRange = a.NoiseRange;
  b.RuleLossPending = a.RuleLossPending;
  b.SearchCancelled = a.SearchCancelled;
  b.ManThresholdWhite = a.ManThresholdWhite;
  b.ManThresholdBlack = a.ManThresholdBlack;
  b.BookMoveFrom = a.BookMoveFrom;
  b.BookMoveTo = a.BookMoveTo;
  b.StoredReplyFrom = a.StoredReplyFrom;
  b.StoredReplyTo = a.StoredReplyTo;
  b.Random = a.Random;
  b.GameResult = a.GameResult;
  b.GameNote = a.GameNote;
  b.ResultNote = a.ResultNote;
  b.MoveStack = a.MoveStack;
  b.MoveTop = a.MoveTop;
  b.PlyBase = a.PlyBase;
  b.MaterialByPly = a.MaterialByPly;
  b.ActivityByPly = a.ActivityByPly;
  b.CaptureFlagByPly = a.CaptureFlagByPly;
  b.PrevToSquare = a.PrevToSquare;
  b.PVTable = a.PVTable;
  b.KillerTable = a.KillerTable;
  b.Record = a.Record;
  b.MoveTextTable = a.MoveTextTable;
}

GameKeeper::GameKeeper(Game& g) : g_(g), saved_(std::make_unique<Saved>()) { CopyKept(g_, *saved_); }
GameKeeper::~GameKeeper() { CopyKept(*saved_, g_); }

}  // namespace qv

#pragma once
// The move generator: one walk over the board for every rule set. Quiet moves
// are pushed as they are found; capture lines are traced depth first with an
// explicit stack on the real Board (the moving piece travels, jumped pieces are
// marked by their value minus 10) and kept as candidates, which the capture
// filters then push. Instantiated with the rules read at run time, and with
// the rules of each fast rule set fixed at compile time.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <string>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "core/fatal.h"
#include "core/jump_screen.h"
#include "core/movepush.h"
#include "core/rule_policies.h"

namespace qv {

template <class R>
class MoveWalk {
 public:
  explicit MoveWalk(Game& game) : g(game), w(game.Gen), side(game.SideToMove), order(game) {}

  // Fills MoveStack; for the probe returns true as soon as a move exists.
  bool Run(int includeQuiet) {
    try {
      return Walk(includeQuiet, false);
    } catch (const RangeError&) {
      throw FatalError(FatalText());
    }
  }

  // The search's two-step call in one walk, for rule sets where captures are
  // compulsory and nothing is dropped: the captures, and only when there are
  // none the quiet moves. The moves come out as the two calls give them.
  void RunCapturesThenQuiet() {
    try {
      Walk(0, true);
    } catch (const RangeError&) {
      throw FatalError(FatalText());
    }
  }

  // The first step of the two-step call for any rule set, taking in the quiet
  // moves of the second step where the rules make them a plain list of each
  // piece's steps (captures compulsory, nothing dropped). The caller still
  // makes the second step when this leaves the ply empty.
  void RunCapturesFirst() {
    try {
      Walk(0, R::CapRequired(g) == 1 && R::canContract(g) == 0);
    } catch (const RangeError&) {
      throw FatalError(FatalText());
    }
  }

 private:
  Game& g;
  GeneratorWork& w;
  const int side;
  const OrderKeys order;
  // The promotion squares of the side to move as bits by cell: fixed for a
  // fast rule set, else built once a call. Only its own men are ever tested.
  std::uint64_t promoBits[2] = {};
  std::uint64_t ownBits = 0;  // the side's pieces when the walk began (OwnPieces)
  // The squares whose piece may have a first jump (PiecesThatMayJump); every
  // square where the rules do not screen.
  std::uint64_t mayJumpBits = ~std::uint64_t{0};
  int cell = 0;      // the square of the piece being traced
  int v = 0;         // its value at the start
  int piece = 0;     // its value now (a man crowned in the line becomes a king)
  int kind = 0;
  int slide = 0;      // 1 while the piece moves and jumps as a long king; read through Slide()
  int slideBeforeCrown = 0;  // what slide was before the man was crowned in the line
  bool found = false;  // probe: a move exists (never set otherwise)

  // Always 0 where the rules never let a piece slide, so that the compiler
  // drops the long-king paths.
  int Slide() const {
    if constexpr (R::MaySlide) return slide;
    else return 0;
  }

  std::string FatalText() const {
    std::string text = "X=" + std::to_string(w.Depth) + "   K=" + std::to_string(w.CandCount) + "\n\n" +
                       FatalErrorText + "\n";
    if (R::RemovePieces(g) == 0)
      text += "\nTry to check 'Remove captured pieces after move'\nin the Variants dialog box.\n";
    return text;
  }

  bool IsPromo(int target) const {
    if constexpr (R::FixedBoardRules) return (R::PromoBits[side == 1 ? 0 : 1][target >> 6] >> (target & 63)) & 1;
    else return (promoBits[target >> 6] >> (target & 63)) & 1;
  }
  void BuildPromoBits() {
    if constexpr (!R::FixedBoardRules) {
      const auto& list = g.RuleSet.PromoSquares[side == 1 ? 0 : 1];
      for (int i = 0; i < R::PromoEntries; ++i) {
        const int target = list.Cells[i];
        if (target >= 0 && target < 128) promoBits[target >> 6] |= std::uint64_t{1} << (target & 63);
      }
    }
  }

  // Calls step(steps) with direction row `row` (see DirTable): the compile-time
  // list of a fast rule set, so that each row's loop is unrolled, or the row
  // of the rules in force.
  template <class F>
  bool OnRow(int row, F&& step) {
    if constexpr (R::FixedBoardRules) {
      switch (row) {
        case 0: return step(R::template Steps<0>());
        case 1: return step(R::template Steps<1>());
        case 2: return step(R::template Steps<2>());
        case 3: return step(R::template Steps<3>());
        case 4: return step(R::template Steps<4>());
        case 5: return step(R::template Steps<5>());
        case 6: return step(R::template Steps<6>());
        case 7: return step(R::template Steps<7>());
        default: RaiseRangeError(row, DirectionTable::size());
      }
    } else {
      return step(RowSteps{g.DirTable[row].Cells});
    }
  }

  bool Walk(int includeQuiet, bool quietWhenNoCapture) {
    int quiet = includeQuiet;
    if (R::CapRequired(g) == 0 && quiet == 0) quiet = 1;
    w.CandCount = 0;
    w.LongestLen = 0;
    w.BestMover = 0;
    w.RecaptureCount = 0;
    w.LongestOf.Fill(0);
    for (int i = 0; i <= w.LongestKeyUsed; ++i) w.MostKings[i] = 0;
    w.LongestKeyUsed = 0;
    w.Crowned = 0;
    w.Arrived = 0;
    w.SharedCounter = 0;
    const int startTop = g.PlyBase[g.Ply];
    if (!R::Probe) g.MoveTop = startTop;
    BuildPromoBits();

    ownBits = OwnPieces();
    if constexpr (R::ScreensJumps)
      mayJumpBits = PiecesThatMayJump(g.Board, g.DirTable, side, R::ManCapMoveKing(g) == 1, R::LongKings(g) == 1);
    if (quiet > 0 && R::canContract(g) == 1) {
      // Drops are tested on every cell, occupied or not.
      for (int square = 21; square <= 98; ++square) {
        const int value = g.Board[square];
        if (value != 0 && value != OffBoard && value * side > 0 && VisitPiece(square, value, quiet, true)) return true;
        cell = square;
        DropStep();
        if (R::Probe && found) return true;
      }
    } else if (quiet == 0 && (ownBits & mayJumpBits) == 0) {
      // Captures only and no piece that may jump: visiting the pieces would
      // find nothing and leave only the trace's counter as it sets it.
      if (ownBits != 0) w.SharedCounter = TraceDepths;
    } else {
      for (std::uint64_t own = ownBits; own != 0; own &= own - 1) {
        const int bit = std::countr_zero(own);
        const int square = SquareOfBit(bit);
        if (VisitPiece(square, g.Board.Cells[square], quiet, (mayJumpBits >> bit) & 1)) return true;
      }
    }
    if (w.CandCount > 0 && FilterCandidates(includeQuiet, startTop)) return true;
    // Without a single jump the second step would give exactly the quiet moves
    // of each piece in turn. The general filters may drop every line found;
    // the second step then lists the captures again, so it is left to it.
    if (quietWhenNoCapture && g.MoveTop == startTop && !(R::Filter == CaptureFilter::General && w.CandCount > 0))
      PushAllQuietMoves();
    if (!R::Probe) g.PlyBase[g.Ply + 1] = g.MoveTop;
    return false;
  }

  // The quiet moves and the capture trace of one own piece; true when the
  // probe found a move. mayJump false: the piece certainly has no first jump.
  bool VisitPiece(int square, int value, int quiet, bool mayJump) {
    cell = square;
    v = value;
    kind = PieceKind(v);
    piece = v;
    slide = (R::LongKings(g) == 1 && kind >= KindWhiteKing) ? 1 : 0;
    if (quiet > 0 && QuietMoves()) return true;
    w.SharedCounter = TraceDepths;
    if (R::ManCapMoveKing(g) == 1 && kind < KindWhiteKing) slide = 1;
    // Without a first jump the trace would find nothing and leave nothing
    // behind, so it is not started.
    if (mayJump && OnRow(kind + 4, [this](auto steps) { return HasFirstJump(steps); })) TracePiece();
    return false;
  }

  // The capture trace of the piece on `cell`, apart from the piece loop:
  // most pieces have no jump.
  void TracePiece() {
    for (int i = 0; i <= w.DeepestLevel; ++i) {
      w.DirIndex[i] = -1;
      w.LandStep[i] = 0;
      w.JumpDist[i] = 0;
    }
    w.DeepestLevel = 0;
    w.Depth = -1;
    w.Here = cell;
    w.Path.Clear();
    w.LastPath.Clear();
    w.Returned = 0;
    w.TracePeak = 0;
    Trace();
  }

  // The squares of the side's pieces as bits, in rising cell order: one pass
  // without branches instead of a branch on every cell.
  std::uint64_t OwnPieces() const {
    const int* board = g.Board.Cells;
    std::uint64_t own = 0;
#ifdef __SSE2__
    // Two rows at a time: their sixteen cells narrowed to bytes with the sign
    // kept (saturation leaves 0, OffBoard and every sign as they are), then
    // one mask. White's pieces are 1..99, Black's below 0.
    for (int row = 0; row < 8; row += 2) {
      __m128i bytes = TwoRowsAsBytes(board, row);
      if (side > 0) {
        const __m128i zero = _mm_setzero_si128(), frame = _mm_set1_epi8(static_cast<char>(OffBoard));
        bytes = _mm_and_si128(_mm_cmpgt_epi8(bytes, zero), _mm_cmplt_epi8(bytes, frame));
      }
      own |= RowBits(bytes, row);
    }
#else
    for (int row = 0; row < 8; ++row) {
      const int* cells = board + (row + 2) * 10 + 1;
      for (int column = 0; column < 8; ++column) {
        const int x = cells[column];
        own |= static_cast<std::uint64_t>(side > 0 ? (x > 0 && x < OffBoard) : (x < 0)) << (row * 8 + column);
      }
    }
#endif
    return own;
  }
  // Bit row * 8 + column is cell (row + 2) * 10 + column + 1.
  static int SquareOfBit(int bit) { return bit + (bit >> 3) * 2 + 21; }

  // After the capture pass: the trace leaves the board as it found it.
  void PushAllQuietMoves() {
    for (std::uint64_t own = ownBits; own != 0; own &= own - 1) {
      cell = SquareOfBit(std::countr_zero(own));
      v = g.Board.Cells[cell];
      kind = PieceKind(v);
      piece = v;
      slide = (R::LongKings(g) == 1 && kind >= KindWhiteKing) ? 1 : 0;
      QuietMoves();
    }
  }

  // Whether the piece has a first jump at all. When it has none the trace
  // would find nothing and change nothing that outlives the piece, so it is
  // skipped.
  template <class Steps>
  bool HasFirstJump(Steps steps) const {
    for (int i = 0; steps.More(i); ++i) {
      const int d = steps[i];
      // A square plus one or two steps of at most 20 cells stays inside the
      // frame, so these reads need no range check.
      const int* board = g.Board.Cells;
      int t = cell + d;
      if (Slide() == 1)
        while (board[t] == 0) t += d;
      const int target = board[t];
      if (target == 0 || target == OffBoard) continue;
      if (Capturable(t + d, target)) return true;
    }
    return false;
  }

  void EmitQuiet(int to) {
    if (R::Probe) found = true;
    else PushQuiet(g, order, cell, to);
  }
  void EmitCrowningStep(int to) {
    if (R::Probe) found = true;
    else PushCrowning(g, order, cell, to, PathText{}, v);
  }

  // True when the probe found a move.
  bool QuietMoves() {
    return OnRow(kind, [this](auto steps) { return QuietMovesAlong(steps); });
  }
  template <class Steps>
  bool QuietMovesAlong(Steps steps) {
    const int from = cell;
    const int* board = g.Board.Cells;
    for (int i = 0; steps.More(i); ++i) {
      const int d = steps[i];
      // One step of at most 20 cells from a square, or a slide that ends at
      // the frame, stays inside the board array.
      if (Slide() == 1) {
        for (int t = from + d; board[t] == 0; t += d) EmitQuiet(t);
      } else {
        const int t = from + d;
        if (board[t] == 0) {
          if (kind < KindWhiteKing && IsPromo(t)) EmitCrowningStep(t);
          else EmitQuiet(t);
        } else if (R::JumpFriend(g) == 1 && g.Board[t] == v) {
          HopOverFriends(d, t);
        }
      }
      if (R::Probe && found) return true;
    }
    return false;
  }

  // A hop over a row of own pieces of the same kind, as a quiet move.
  void HopOverFriends(int d, int t) {
    int n = 0, u = t;
    while (g.Board[u] == v) {
      ++n;
      u += d;
    }
    if (g.Board[u] != 0) return;
    if (n != R::NumberFriends(g) && R::NumberFriends(g) != -1) return;
    // The promotion test goes by the piece value, so a black king (kind 3)
    // reaches a promotion table that does not exist: the fatal error it has
    // always been.
    if (v < 2 && IsPromoOfKind(u)) EmitCrowningStep(u);
    else EmitQuiet(u);
  }
  bool IsPromoOfKind(int u) const {
    const auto& list = g.RuleSet.PromoSquares[kind];
    for (int i = 0; i < R::PromoEntries; ++i)
      if (list[i] == u) return true;
    return false;
  }

  void DropStep() {
    const int pob = R::PiecesOnBlack(g);
    const bool dark = SquareIsDark(cell, pob);
    if (pob < 2 && !dark) return;
    if (pob == 2 && !dark && g.Flags.AllOrthogonal == 0 && g.Board[w.SharedCounter] == 0) return;
    if (g.Board[cell] != 0) return;
    // The rows come from the variant file as they stand: arithmetic that
    // overflows, or a cell off the board, is the generator's fatal error.
    if (side == 1) {
      const int row = R::ContractW1(g);
      if (g.ContractLeftWhite >= 1 && InDropRow(row) &&
          g.Board[CheckedAdd(cell, RowsApart(row, R::ContractW2(g)))] == 0) {
        PushQuiet(g, order, DropSource, cell);
        found = R::Probe;
      }
    } else {
      const int row = R::ContractB1(g);
      if (g.ContractLeftBlack >= 1 && InDropRow(row) &&
          g.Board[CheckedSub(cell, RowsApart(row, R::ContractB2(g)))] == 0) {
        PushQuiet(g, order, DropSource, cell);
        found = R::Probe;
      }
    }
  }
  bool InDropRow(int row) const {
    const int first = CheckedMul(row, 10);
    return cell > first && cell < CheckedAdd(first, 9);
  }
  static int RowsApart(int a, int b) { return CheckedMul(CheckedAbs(CheckedSub(a, b)), 10); }

  // landing is a cell with a piece on it plus at most 20 cells, inside the frame.
  bool Capturable(int landing, int target) const {
    // Only a piece of the other side can be taken: a quick first test.
    if (target * piece >= 0) return false;
    if (g.Board.Cells[landing] != 0 || landing < 21) return false;
    switch (piece) {
      case WhiteMan: return target == BlackMan || (target == BlackKing && R::ManCapKing(g) == 1);
      case WhiteKing: return target == BlackMan || target == BlackKing;
      case BlackMan: return target == WhiteMan || (target == WhiteKing && R::ManCapKing(g) == 1);
      case BlackKing: return target == WhiteMan || target == WhiteKing;
      default: return false;
    }
  }

  int ManKindOfSide() const { return side == 1 ? KindWhiteMan : KindBlackMan; }

  // The man crowned in passing by the jump being taken back is a man again,
  // moving as it did before.
  void UncrownMan() {
    w.Crowned = 0;
    piece = side;
    kind = ManKindOfSide();
    slide = slideBeforeCrown;
  }

  // Takes back the jump made at the current depth (the piece stands on Here):
  // the piece leaves its landing, the jumped piece is unmarked, and Here goes
  // back to where the jump started. The cells come from the jump itself, not
  // from the distances the piece moves by now: a man crowned in passing jumped
  // as a man, and a landing counted from a LandStep left over by another line
  // lies elsewhere than the piece's own steps say.
  void TakeBackJump(bool withCrownTests) {
    w.Path.DropLast();
    g.Board.Cells[w.Here] = 0;
    if (withCrownTests && w.Crowned == 1) {
      w.Arrived = 0;
      if (w.Here == w.CrownCell && w.Depth == w.CrownDepth && piece == 2 * side) w.Arrived = side;
      if (w.Arrived != 0) UncrownMan();
    }
    g.Board.Cells[w.JumpOver.Cells[w.Depth]] += 10;
    w.Returned = 1;
    w.Here = w.JumpFrom.Cells[w.Depth];
  }

  // The tables by depth are read unchecked: Depth is checked when a level is
  // entered and only goes back down from there. Here, origin and landing are
  // squares or a cell one step past a square, inside the frame; a direction
  // row is read up to its end mark.
  void Trace() {
    int d = 0, origin = 0, landing = 0;
  EnterLevel:
    ++w.Depth;
    if (static_cast<unsigned>(w.Depth) >= static_cast<unsigned>(TraceDepths)) RaiseRangeError(w.Depth, TraceDepths);
    w.DeepestLevel = std::max(w.DeepestLevel, std::min(w.Depth, TraceDepths - 1));
  NextDirection:
    ++w.DirIndex.Cells[w.Depth];
    d = g.DirTable[kind + 4].Cells[w.DirIndex.Cells[w.Depth]];
    if (d != EndOfList) goto TryDirection;
    // The directions of this level are exhausted.
    w.DirIndex.Cells[w.Depth] = -1;
    --w.Depth;
    if (w.Depth < 0) return;
    if (w.Path.Length == 0) {
      w.Here = cell;
    } else {
      if (!w.LastPath.StartsWith(w.Path) || R::MulJumps(g) == 0 || (R::LongKings(g) == 1 && w.Returned == 0))
        RecordLine(false);
      TakeBackJump(true);
    }
    g.Board.Cells[w.Here] = piece;
    if (Slide() == 0 || R::KingFirst(g) == 1) goto NextDirection;
    d = g.DirTable[kind + 4].Cells[w.DirIndex.Cells[w.Depth]];  // same direction, next landing

  TryDirection:
    ++w.LandStep.Cells[w.Depth];
    origin = w.Here;
    if (Slide() == 1) {
      for (int k = 1;; ++k) {
        w.Here += d;
        const int c = g.Board.Cells[w.Here];
        if (c == OffBoard || (R::RemovePieces(g) == 1 && c < MarkedRemovedBelow)) {
          w.Here = origin;
          w.LandStep.Cells[w.Depth] = 0;
          goto NextDirection;
        }
        if (c != 0 && c >= MarkedBelow &&
            (w.Depth == 0 || d != -w.StepOffset.Cells[w.Depth - 1] || R::CapReverse(g) == 1)) {
          w.JumpDist.Cells[w.Depth] = k;
          break;
        }
      }
    } else {
      w.Here += d;
      const int c = g.Board.Cells[w.Here];
      if (c == 0 || c == OffBoard || (R::RemovePieces(g) == 1 && c < MarkedRemovedBelow)) {
        w.Here = origin;  // LandStep stays as it is
        goto NextDirection;
      }
    }
    if (Slide() == 0 || R::KingFirst(g) == 1) {
      landing = w.Here + d;
    } else {
      landing = w.Here + w.LandStep.Cells[w.Depth] * d;
      // A LandStep left over from a man's line can reach past the frame: the
      // frame ends the direction there as it does everywhere else.
      if (static_cast<unsigned>(landing) >= static_cast<unsigned>(BoardCells::size())) {
        w.LandStep.Cells[w.Depth] = 0;
        w.Here = origin;
        goto NextDirection;
      }
    }
    if (!Capturable(landing, g.Board.Cells[w.Here])) {
      if (Slide() == 0 || R::KingFirst(g) == 1) {
        w.Here = origin;
        goto NextDirection;
      }
      const int c = g.Board.Cells[landing];
      if ((c == 0 || c < MarkedBelow) && !(R::RemovePieces(g) == 1 && c < MarkedRemovedBelow)) {
        w.Here = origin;  // a long jumper looks further along the line
        goto TryDirection;
      }
      w.LandStep.Cells[w.Depth] = 0;
      w.Here = origin;
      goto NextDirection;
    }

    // Make the jump.
    if (R::LastCap(g) == 1 && w.Depth == 0 && (g.Ply == 0 || g.LastCapAnyPly == 1) &&
        w.Here == g.Record.LastToByMove[g.HalfMoveCount]) {
      ++w.RecaptureCount;
      w.RecaptureList[w.RecaptureCount] = w.CandCount;
    }
    w.Returned = 0;
    w.StepOffset.Cells[w.Depth] = d;
    w.JumpFrom.Cells[w.Depth] = origin;
    w.JumpOver.Cells[w.Depth] = w.Here;
    w.Path.Append(std::abs(g.Board.Cells[w.Here]), w.Here);
    w.TracePeak = std::max(w.TracePeak, w.Path.Length);
    g.Board.Cells[w.Here] -= 10;
    g.Board.Cells[origin] = 0;
    g.Board.Cells[landing] = piece;
    w.Here = landing;
    w.Arrived = 0;
    if (kind < KindWhiteKing && IsPromo(w.Here)) w.Arrived = 1;
    if (R::ManContJumpCrowned(g) == 1 && w.Arrived == 1 && w.Crowned == 0) {
      w.Crowned = 1;
      w.CrownCell = w.Here;
      w.CrownDepth = w.Depth;
      slideBeforeCrown = slide;
      piece = 2 * side;
      g.Board.Cells[w.Here] = piece;
      kind = side == 1 ? KindWhiteKing : KindBlackKing;
      slide = 1;  // from here on it jumps as a long king
    }
    if (R::ManContJump(g) != 0 || w.Arrived != 1) goto EnterLevel;

    // The man stops on the promotion square and is crowned. Taking the jump
    // back also takes back a crowning it made, and a jumper tries its next
    // landing only where the landing moves on with LandStep: otherwise it
    // would find the same jump again and again.
    RecordLine(true);
    w.LastPath = w.Path;
    TakeBackJump(false);
    if (w.Crowned == 1 && w.CrownDepth == w.Depth) UncrownMan();
    g.Board.Cells[w.Here] = piece;
    if (Slide() == 1 && R::KingFirst(g) == 0) goto TryDirection;
    goto NextDirection;
  }

  // The comparison of capture sets: a line that takes the same pieces from
  // the same start to the same end as one already kept is the same move.
  bool DuplicateCaptureSet(PathText& sorted) {
    if (R::MaxCapMove(g) == 1 && w.Path.Length < w.LongestLen) return true;
    sorted = w.Path;
    const int groups = sorted.Groups();
    for (int i = 0; i < groups; ++i)
      for (int j = i + 1; j < groups; ++j)
        if (sorted.CellAt(i) > sorted.CellAt(j))
          for (int k = 0; k < 3; ++k) std::swap(sorted.Text[3 * i + k], sorted.Text[3 * j + k]);
    for (w.SharedCounter = 0; w.SharedCounter < w.CandCount; ++w.SharedCounter) {
      const int r = w.SharedCounter;
      if (w.CandidateKeys[r] == sorted && w.Candidates[r].From == cell && w.Candidates[r].To == w.Here) return true;
    }
    return false;
  }

  void RecordLine(bool crownStop) {
    PathText sorted;
    bool useSorted = false;
    if (!crownStop && R::CompareCaptureSets(g) == 1) {
      if (DuplicateCaptureSet(sorted)) return;
      useSorted = true;
    }
    const int crown = crownStop ? 1 : (R::ManContJump(g) == 1 && (w.Arrived == 1 || w.Crowned == 1)) ? 1 : 0;
    const int length = w.Path.Length;
    int kings = 0;
    for (int i = 0; i < length; i += 3)
      if (w.Path.Text[i] == '2') ++kings;
    w.MostKings[length] = std::max(w.MostKings[length], kings);
    w.LongestKeyUsed = std::max(w.LongestKeyUsed, length);
    if (R::Filter == CaptureFilter::PushAtOnce) {
      if (crown) PushCrowning(g, order, cell, w.Here, w.Path, v);
      else PushCapture(g, order, cell, w.Here, w.Path, v);
    } else {
      CaptureCandidate& row = w.Candidates[w.CandCount];
      row.From = cell;
      row.To = w.Here;
      row.Crown = crown;
      row.KingsTaken = kings;
      row.Piece = v;
      row.Peak = w.TracePeak;
      w.CandidateKeys[w.CandCount] = useSorted ? sorted : w.Path;
    }
    w.BestMover = side == 1 ? std::max(w.BestMover, v) : std::min(w.BestMover, v);
    ++w.CandCount;
    w.LongestLen = std::max(w.LongestLen, length);
    w.LongestOf[std::abs(v)] = std::max(w.LongestOf[std::abs(v)], length);
    w.LastPath = w.Path;
  }

  void PushCandidate(int i) {
    const CaptureCandidate& row = w.Candidates[i];
    if (row.Crown != 0) PushCrowning(g, order, row.From, row.To, w.CandidateKeys[i], row.Piece);
    else PushCapture(g, order, row.From, row.To, w.CandidateKeys[i], row.Piece);
  }

  // Returns true for the probe when a candidate survives.
  bool FilterCandidates(int includeQuiet, int startTop) {
    if constexpr (R::Filter == CaptureFilter::PushAtOnce) {
      return false;
    } else if constexpr (R::Filter == CaptureFilter::ShortMaxCap) {
      if (std::abs(w.BestMover) == 2) w.LongestLen = w.LongestOf[2];
      for (int i = 0; i < w.CandCount; ++i) {
        const CaptureCandidate& row = w.Candidates[i];
        if (w.CandidateKeys[i].Length == w.LongestLen && row.KingsTaken == w.MostKings[w.LongestLen] &&
            row.Piece == w.BestMover)
          PushCandidate(i);
      }
      return false;
    } else if constexpr (R::Filter == CaptureFilter::LongKingPeak || R::Filter == CaptureFilter::KingPeakOnly) {
      for (int i = 0; i < w.CandCount; ++i) {
        const CaptureCandidate& row = w.Candidates[i];
        const int length = w.CandidateKeys[i].Length;
        if (std::abs(row.Piece) == 2 && length != row.Peak) continue;
        if (R::Filter == CaptureFilter::LongKingPeak && length != w.LongestLen) continue;
        PushCandidate(i);
      }
      return false;
    } else {
      return GeneralFilter(includeQuiet, startTop);
    }
  }

  bool GeneralFilter(int includeQuiet, int startTop) {
    const int maxCap = R::MaxCapMove(g), maxKings = R::MaxCapMoveKings(g), kingCap = R::KingCapMove(g);
    if (!R::Probe && R::LastCap(g) == 1 && includeQuiet == 0 && w.RecaptureCount >= 1 && R::CapRequired(g) == 0)
      g.MoveTop = startTop;  // taking the piece that just moved is compulsory even where captures are not
    int bestMover = w.BestMover;
    if (std::abs(bestMover) == 2) {
      if (w.LongestOf[1] == w.LongestOf[2] && kingCap == 1) {
        w.LongestLen = w.LongestOf[2];
      } else if (w.LongestOf[1] > w.LongestOf[2] && maxCap == 1 && !R::Probe) {
        bestMover = 1;  // plus one for either colour, as it always was
      }
      // The probe keeps the king as the best mover and measures by its lines.
      if (R::Probe && kingCap == 1) w.LongestLen = w.LongestOf[2];
    }
    w.BestMover = bestMover;
    const bool dropShortKingLines = R::LongKings(g) == 1 && R::MaxCapMoveK(g) == 1 && R::MulJumps(g) == 1;
    for (int i = 0; i < w.CandCount; ++i) {
      PathText& key = w.CandidateKeys[i];
      const CaptureCandidate& row = w.Candidates[i];
      if (R::MulJumps(g) == 0)
        for (int j = i + 1; j < w.CandCount; ++j) {
          const CaptureCandidate& other = w.Candidates[j];
          if (w.CandidateKeys[j] == key && other.From == row.From && other.To == row.To &&
              other.Crown == row.Crown && other.KingsTaken == row.KingsTaken && other.Piece == row.Piece)
            w.CandidateKeys[j].Clear();
        }
      if (dropShortKingLines && std::abs(row.Piece) == 2 && key.Length != row.Peak) key.Clear();
      if (R::LastCap(g) == 1 && w.RecaptureCount >= 1) {
        bool listed = false;
        for (int k = 1; k <= w.RecaptureCount; ++k)
          if (w.RecaptureList[k] == i) listed = true;
        if (!listed) key.Clear();
      }
      if (key.Length == 0) continue;
      if (key.Length != w.LongestLen && maxCap != 0) continue;
      if (!(maxCap == 1 && w.MostKings[w.LongestLen] == row.KingsTaken) && maxCap != 0 && maxKings != 0) continue;
      if (!(bestMover == row.Piece || kingCap == 0 || (kingCap == 1 && maxKings == 1))) continue;
      if (R::Probe) return true;
      PushCandidate(i);
    }
    return false;
  }
};

}  // namespace qv

#pragma once
// What the general evaluation derives from the rules, the direction table and
// the promotion tables, so that a call walks only the occupied squares. The
// tables keep a copy of everything they were built from and are built again
// whenever any of it differs (see engine/evaluate_tables.cpp).
#include <cstdint>

#include "core/board.h"
#include "core/rules.h"

namespace qv {

// The cells of the board's rows 2 to 9, frame columns included: the cells
// whose promotion-table entries the evaluation reads.
inline constexpr int FirstSquareCell = 21, SquareCellSpan = 78;

struct GeneralEvalKey {
  int PiecesOnBlack = 0, LongKings = 0, ManCapKing = 0, WinAtPromo = 0, HasUnreachableSquares = 0;
  int Promo[2][PromoSlots]{};
  int Steps[4][9]{};  // DirTable rows 0..3, the quiet steps of the four piece kinds
  int Approach[SquareCellSpan][2]{};
  int Reach[SquareCellSpan][2]{};
};

struct GeneralEvalTables {
  int Built = 0;
  GeneralEvalKey From;
  // 0 when the direction table has a step list the tables cannot hold; the
  // evaluation then reads every square as before.
  int Usable = 0;
  // By [ww - 1][wb - 1] (the weights of the crowning-approach terms): the
  // empty-square terms of the whole board, and by piece kind and square bit
  // a piece's own terms less the empty-square term its square no longer has.
  int EmptyTotal[2][2]{};
  int PieceSquare[2][2][4][64]{};
  // The quiet steps by which SupportCount looks behind a piece of side
  // [0] White, [1] Black, first the men's and then the kings', as moves of
  // the square masks: a step's own pieces From, moved by Shift bits, land on
  // the squares they stand behind.
  struct SupportStep {
    int Shift;
    std::uint64_t From;
  };
  SupportStep Support[2][16]{};
  int ManStepCount[2]{}, StepCount[2]{};
  // The lines behind each list's crowning squares that the back-rank term
  // reads: from crowning square S one step to M and one more to T. Every
  // line counts while S is empty, the straight ones while S holds a man.
  // Each crowning square's lines end with an entry whose M is 0 (a frame
  // cell no line passes). LinesUsable 0 when they do not fit, and the term
  // walks the lists.
  struct Line {
    int m, t;
  };
  struct Crown {
    int s, lines, straight;  // where its lines and its straight lines begin
  };
  static constexpr int MaxLines = 128;
  int LinesUsable = 0;
  int CrownCount[2]{};
  Crown Crowns[2][PromoSlots]{};
  Line Lines[2][MaxLines]{};
  Line Straight[2][MaxLines]{};
  // The squares the lines of each list pass, frame cells left out: their
  // contents alone decide the list's back-rank term.
  std::uint64_t Zone[2]{};
  // Back-rank terms already counted, by the empty squares, White's men and
  // Black's men of the zone, one slot per hash of the three.
  struct Counted {
    std::uint64_t empty, white, black;
    int value, used;
  };
  static constexpr int CountedSlots = 256;
  Counted BackRankCounted[2][CountedSlots]{};
  // The terms of one side's pieces already counted, by its men and kings,
  // the strongest enemy piece's cell and the weights in force (Weights:
  // (ww - 1) * 4 + (wb - 1) * 2 + tropism), one slot per hash of them.
  struct SideCounted {
    std::uint64_t men, kings;
    int strong, weights, value, used;
  };
  static constexpr int SideSlots = 512;
  SideCounted SideTermsCounted[2][SideSlots]{};
};

}  // namespace qv

#pragma once
// The working data of one call of a move generator: the capture lines found so
// far and the explicit stack of the depth-first capture trace. Fixed sizes, so
// that a generator allocates nothing.
#include <cstring>

#include "core/table.h"

namespace qv {

inline constexpr int TraceDepths = 21;       // jumps in one capture line
inline constexpr int CandidateRows = 2001;   // capture lines of one position
inline constexpr int PathCapacity = 3 * TraceDepths + 3;

// The captured pieces of a line: three characters a piece, its worth "1" or
// "2" and its cell in two digits, in the order of the jumps.
struct PathText {
  char Text[PathCapacity] = {};
  int Length = 0;

  void Clear() { Length = 0; }
  void Append(int worth, int cell) {
    if (Length + 3 > PathCapacity) RaiseRangeError(Length + 3, PathCapacity);
    Text[Length] = static_cast<char>('0' + worth);
    Text[Length + 1] = static_cast<char>('0' + cell / 10);
    Text[Length + 2] = static_cast<char>('0' + cell % 10);
    Length += 3;
  }
  void DropLast() { Length -= 3; }
  int Groups() const { return Length / 3; }
  int CellAt(int group) const { return (Text[3 * group + 1] - '0') * 10 + (Text[3 * group + 2] - '0'); }
  bool StartsWith(const PathText& prefix) const {
    return prefix.Length <= Length && std::memcmp(Text, prefix.Text, static_cast<std::size_t>(prefix.Length)) == 0;
  }
  friend bool operator==(const PathText& a, const PathText& b) {
    return a.Length == b.Length && std::memcmp(a.Text, b.Text, static_cast<std::size_t>(a.Length)) == 0;
  }
};

// One capture line kept as a candidate move.
struct CaptureCandidate {
  int From = 0;
  int To = 0;
  int Crown = 0;       // 1 when the moving man is crowned by the line
  int KingsTaken = 0;
  int Piece = 0;       // the moving piece's value at the start of the line
  int Peak = 0;        // TracePeak when the line was recorded
};

struct GeneratorWork {
  // The lines found in one call.
  Table<CaptureCandidate, CandidateRows> Candidates;
  Table<PathText, CandidateRows> CandidateKeys;
  int CandCount = 0;
  int LongestLen = 0;
  Table<int, 3> LongestOf;   // by worth of the moving piece: 1 men, 2 kings
  Table<int, 51> MostKings;  // by key length
  int BestMover = 0;
  int RecaptureCount = 0;
  Table<int, 101> RecaptureList;

  // The trace of one piece.
  int Depth = -1;
  Table<int, TraceDepths> DirIndex;
  Table<int, TraceDepths> LandStep;
  Table<int, TraceDepths> JumpDist;
  Table<int, TraceDepths> StepOffset;
  // Where the jump made at each depth started and which cell it jumped: the
  // take-back puts the piece and the jumped piece back from these, so that
  // the board comes out as it went in whatever the piece did on the way
  // (crowned in passing, stopped on the crowning row, jumped from afar).
  Table<int, TraceDepths> JumpFrom;
  Table<int, TraceDepths> JumpOver;
  int Here = 0;
  PathText Path;
  PathText LastPath;
  int Returned = 0;
  int TracePeak = 0;
  int Crowned = 0;
  int CrownCell = 0;
  int CrownDepth = 0;
  int Arrived = 0;  // carried over from piece to piece within a call
  // A loop counter shared by the walk and the comparison of capture sets; the
  // drop step reads the cell it points at (0 before the first own piece, 21
  // after). Kept because the drop rule on light squares depends on it.
  int SharedCounter = 0;

  // How far the last trace and the last call wrote into the tables, so that
  // clearing them touches only what was used.
  int DeepestLevel = TraceDepths - 1;
  int LongestKeyUsed = 50;
};

}  // namespace qv

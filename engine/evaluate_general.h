#pragma once
// The parts of the general evaluation (evaluate.cpp). Two ways lead to the
// same score: reading every square (any board, any rules), and walking only
// the pieces with the tables built from the rules (a board of plain men and
// kings, rules without the KingWin pursuit term, whose running rounding ties
// its value to the order of the squares).
#include "core/game.h"
#include "core/board_pieces.h"

namespace qv::general {

// Pieces counted rows 2 to 9 and in a row columns 8 down to 1, each side's
// strongest piece (White's first of the highest value, Black's last of the
// lowest), and whether a king stands on its goal.
struct Census {
  int whiteCount = 0, blackCount = 0, whiteMen = 0, blackMen = 0;
  int whiteStrong = 0, blackStrong = 0;
  bool whiteGoal = false, blackGoal = false;
};

// The census square by square; any value on a square counts by its sign.
Census TakeCensus(const Game& g);
// The census from the piece masks of a board that holds only men and kings.
Census CensusOfPieces(const Game& g, const BoardPieces& pieces);

// The rule terms of one square, shared by both ways.
int Row(int s);
int Column(int s);
int Distance(int a, int b);
bool InCentre(int s, int piecesOnBlack);
double KingTerms(const RuleRecord& r, int s, int sg);
double GuardTerms(const RuleRecord& r, int s, int v);
// The pull of the crowning squares under WinAtPromo: 0 under other rules.
int WinAtPromoTerm(const RuleRecord& r, int s, int v);
// The terms of a piece of value v on s that its square alone decides, without
// the crowning-approach term and the goal pull of KingWin.
int SquareTerms(const Game& g, int s, int v);

// The sum of the terms of every square with the running rounding of KingWin,
// read square by square.
double ScanTerms(const Game& g, const Census& n, int ww, int wb);
// The same sum from the tables, for the boards and rules the tables serve.
// Each side's part is remembered in the tables by what it reads.
int PieceTerms(const Game& g, GeneralEvalTables& t, const Census& n, const BoardPieces& pieces, int ww, int wb);

// The back-rank term of list c: square by square, and from the tables' lines.
int BackRank(const Game& g, int c);
int BackRankFromLines(const BoardCells& board, const GeneralEvalTables& t, int c);
// The back-rank term from the lines, remembered by the contents of the zone.
int CountedBackRank(const BoardCells& board, GeneralEvalTables& t, const BoardPieces& pieces, int c);

// The tables for the rules in force, built again when anything they were built
// from has changed.
GeneralEvalTables& TablesFor(Game& g);

}  // namespace qv::general

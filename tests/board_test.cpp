#include <gtest/gtest.h>

#include "core/board.h"

namespace qv {

TEST(SquareNotation, NamesCellsInBothNotations) {
  EXPECT_EQ(SquareNotation(999, 0, 0), "");
  EXPECT_EQ(SquareNotation(20, 1, 0), "--");
  EXPECT_EQ(SquareNotation(99, 1, 0), "--");
  EXPECT_EQ(SquareNotation(30, 1, 1), "--");
  EXPECT_EQ(SquareNotation(21, 1, 0), "a1");
  EXPECT_EQ(SquareNotation(98, 1, 0), "h8");
  EXPECT_EQ(SquareNotation(21, 1, 1), "29");
  EXPECT_EQ(SquareNotation(92, 1, 1), "1");
  EXPECT_EQ(SquareNotation(27, 1, 1), "32");
}

TEST(SquareNotation, PadsSmallNumbers) {
  // Cell 81 (a7) is square 5.
  EXPECT_EQ(SquareNotation(81, 0, 1), " 5");
  EXPECT_EQ(SquareNotation(81, 2, 1), "05");
  EXPECT_EQ(SquareNotation(81, 1, 1), "5");
  EXPECT_EQ(SquareNotation(21, 0, 1), "29");
}

TEST(SquareNumber, ReadsNumbersForBothBoardColours) {
  EXPECT_EQ(SquareNumber("1", 1, 1), 92);
  EXPECT_EQ(SquareNumber("1", 1, 0), 91);
  EXPECT_EQ(SquareNumber("32", 1, 1), 27);
  EXPECT_EQ(SquareNumber("32", 1, 0), 28);
  EXPECT_EQ(SquareNumber("33", 1, 1), 0);
  EXPECT_EQ(SquareNumber("0", 1, 1), 0);
  EXPECT_EQ(SquareNumber("x", 1, 1), 0);
}

TEST(SquareNumber, ReadsUpperCaseAlgebraicOnly) {
  EXPECT_EQ(SquareNumber("a1", 0, 1), 0);
  EXPECT_EQ(SquareNumber("A1", 0, 1), 21);
  EXPECT_EQ(SquareNumber("H8", 0, 1), 98);
  EXPECT_EQ(SquareNumber("C3D4", 0, 1), 43);
  EXPECT_EQ(SquareNumber("I1", 0, 1), 0);
  EXPECT_EQ(SquareNumber("A9", 0, 1), 0);
  EXPECT_EQ(SquareNumber("A", 0, 1), 0);
}

TEST(SquareNotation, RoundTripsEveryPlayingSquare) {
  for (int notation = 0; notation <= 1; ++notation)
    for (int cell = 21; cell <= 98; ++cell) {
      if (IsFrameCell(cell) || !SquareIsDark(cell, 1)) continue;
      std::string text = SquareNotation(cell, 1, notation);
      for (char& c : text) c = static_cast<char>(std::toupper(c));
      EXPECT_EQ(SquareNumber(text, notation, 1), cell) << text;
    }
}

TEST(ParseDirections, BuildsTheDefaultTables) {
  DirectionTable table;
  ParseDirections("NW;NE NW;NE", KindWhiteMan, table);
  ParseDirections("NW;NE NW;NE", KindBlackMan, table);
  ParseDirections("NW;NE;SE;SW NW;NE;SE;SW", KindWhiteKing, table);
  ParseDirections("NW;NE;SE;SW NW;NE;SE;SW", KindBlackKing, table);
  const int whiteMan[] = {9, 11, EndOfList};
  const int blackMan[] = {-9, -11, EndOfList};
  const int whiteKing[] = {9, 11, -9, -11, EndOfList};
  const int blackKing[] = {-9, -11, 9, 11, EndOfList};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(table[0][i], whiteMan[i]);
    EXPECT_EQ(table[4][i], whiteMan[i]);
    EXPECT_EQ(table[1][i], blackMan[i]);
    EXPECT_EQ(table[5][i], blackMan[i]);
  }
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(table[2][i], whiteKing[i]);
    EXPECT_EQ(table[6][i], whiteKing[i]);
    EXPECT_EQ(table[3][i], blackKing[i]);
    EXPECT_EQ(table[7][i], blackKing[i]);
  }
  EXPECT_EQ(table[7][8], EndOfList);
}

TEST(ParseDirections, WithoutABlankThePieceNeverCaptures) {
  DirectionTable table;
  EXPECT_EQ(ParseDirections("N;E;S;W", KindWhiteMan, table), 0);
  EXPECT_EQ(table[0][0], 10);
  EXPECT_EQ(table[0][3], -1);
  EXPECT_EQ(table[0][4], EndOfList);
  EXPECT_EQ(table[4][0], EndOfList);
}

TEST(ParseDirections, StopsAtTheFirstUnknownWord) {
  DirectionTable table;
  EXPECT_EQ(ParseDirections("NW;XX;NE NN;;SS", KindWhiteMan, table), 2);
  EXPECT_EQ(table[0][0], 9);
  EXPECT_EQ(table[0][1], EndOfList);
  EXPECT_EQ(table[4][0], 20);
  EXPECT_EQ(table[4][1], EndOfList);
}

TEST(ParseDirections, ANinthStepIsAnError) {
  DirectionTable table;
  EXPECT_NO_THROW(ParseDirections("N;N;N;N;N;N;N;N", KindWhiteMan, table));
  EXPECT_THROW(ParseDirections("N;N;N;N;N;N;N;N;N", KindWhiteMan, table), RangeError);
}

TEST(BoardSetupText, DescribesTheStandardPosition) {
  BoardCells board;
  BuildStandardPosition(board);
  EXPECT_EQ(BoardSetupText(board), "1010101001010101101010100000000000000000020202022020202002020202");
  board[21] = WhiteKing;
  board[98] = BlackKing;
  board[43] = -9;  // a mark left in a position is not written
  const std::string text = BoardSetupText(board);
  EXPECT_EQ(text.size(), 63u);
  EXPECT_EQ(text[0], '3');
  EXPECT_EQ(text.back(), '4');
}

TEST(ShiftBoardColour, MovesPiecesToTheOtherColourAndBack) {
  BoardCells board;
  BuildStandardPosition(board);
  const BoardCells original = board;
  ShiftBoardColour(board, 0);
  for (int cell = 21; cell <= 98; ++cell)
    if (board[cell] != 0 && board[cell] != OffBoard) {
      EXPECT_TRUE(SquareIsDark(cell, 0)) << cell;
    }
  EXPECT_EQ(board[22], WhiteMan);
  EXPECT_EQ(board[21], 0);
  ShiftBoardColour(board, 1);
  EXPECT_EQ(board, original);
}

TEST(AlignBoardColour, ShiftsOnlyAPositionOnTheWrongColour) {
  BoardCells board;
  BuildStandardPosition(board);
  const BoardCells original = board;
  AlignBoardColour(board, 1);
  EXPECT_EQ(board, original);
  AlignBoardColour(board, 0);
  EXPECT_EQ(board[22], WhiteMan);
  EXPECT_EQ(board[21], 0);
  const BoardCells shifted = board;
  AlignBoardColour(board, 0);
  EXPECT_EQ(board, shifted);
  AlignBoardColour(board, 1);
  EXPECT_EQ(board, original);
}

TEST(SquareIsDark, GivesTheStepToTheDarkNeighbour) {
  int step = 5;
  EXPECT_TRUE(SquareIsDark(21, 1, &step));
  EXPECT_EQ(step, 0);
  EXPECT_FALSE(SquareIsDark(22, 1, &step));
  EXPECT_EQ(step, -1);
  EXPECT_FALSE(SquareIsDark(31, 1, &step));
  EXPECT_EQ(step, 1);
  EXPECT_FALSE(SquareIsDark(21, 0, &step));
  EXPECT_EQ(step, 1);
  EXPECT_TRUE(SquareIsDark(21, 2));
}

}  // namespace qv

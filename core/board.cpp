#include "core/board.h"

#include <cmath>
#include <cstdio>

#include "core/text.h"

namespace qv {

void FillFrame(BoardCells& board) {
  board.Fill(OffBoard);
  for (int row = 2; row <= 9; ++row)
    for (int column = 1; column <= 8; ++column) board[row * 10 + column] = 0;
}

void BuildStandardPosition(BoardCells& board) {
  FillFrame(board);
  for (int r = 0; r <= 2; ++r)
    for (int c = 0; c <= 3; ++c) {
      board[21 + 10 * r + 2 * c + (r == 1 ? 1 : 0)] = WhiteMan;
      board[72 + 10 * r + 2 * c - (r == 1 ? 1 : 0)] = BlackMan;
    }
}

std::string SquareNotation(long cell, int padding, int notationKind) {
  if (cell == DropSource) return "";
  if (cell < 21 || cell > 98 || IsFrameCell(cell)) return "--";
  const int row = static_cast<int>(cell / 10), column = static_cast<int>(cell % 10);
  std::string text;
  if (notationKind != 0) {
    const int n = (9 - row) * 4 + (column + 1) / 2;
    char buffer[8];
    if (padding != 1 && n < 10) std::snprintf(buffer, sizeof buffer, "%c%d", padding == 0 ? ' ' : '0', n);
    else std::snprintf(buffer, sizeof buffer, "%d", n);
    text = buffer;
  } else {
    text += static_cast<char>('A' - 1 + column);
    text += static_cast<char>('1' - 2 + row);
  }
  return ToLower(text);
}

int SquareNumber(std::string_view text, int notationKind, int piecesOnBlack) {
  if (notationKind != 0) {
    const double value = Val(text);
    if (!(value >= 0.5 && value <= 32.5)) return 0;
    const int n = ToInt32(value);
    if (n < 1 || n > 32) return 0;
    const int r = (n - 1) / 4;
    const int base = 90 - r * 10;
    int c = n % 4;
    if (c == 0) c = 4;
    int cell = (r % 2 == 0) ? base + 2 * c : base + 2 * c - 1;
    if (piecesOnBlack != 0) return cell;
    const int row = cell / 10;
    return row % 2 == 0 ? cell + 1 : cell - 1;
  }
  if (text.size() < 2) return 0;
  const char file = text[0], rank = text[1];
  if (file < 'A' || file > 'H' || rank < '1' || rank > '8') return 0;
  return (rank - '1' + 2) * 10 + file - 'A' + 1;
}

int DirectionOffset(std::string_view token) {
  struct Word {
    std::string_view name;
    int offset;
  };
  static constexpr Word words[] = {{"NW", 9},  {"NE", 11}, {"SE", -9}, {"SW", -11}, {"W", -1},   {"N", 10},
                                   {"E", 1},   {"S", -10}, {"WW", -2}, {"NN", 20},  {"EE", 2},   {"SS", -20}};
  for (const Word& w : words)
    if (w.name == token) return w.offset;
  return 0;
}

int ParseDirections(std::string_view text, int kind, DirectionTable& table) {
  DirectionRow& quiet = table[kind];
  DirectionRow& capture = table[kind + 4];
  quiet.Fill(EndOfList);
  capture.Fill(EndOfList);

  const std::size_t blank = text.find(' ');
  const std::string_view parts[2] = {text.substr(0, blank),
                                     blank == std::string_view::npos ? std::string_view{} : text.substr(blank + 1)};
  const bool hasCaptureList = blank != std::string_view::npos;
  const int sign = (kind == KindBlackMan || kind == KindBlackKing) ? -1 : 1;
  int firstUnknown = 0, wordNumber = 0;

  for (int p = 0; p < (hasCaptureList ? 2 : 1); ++p) {
    DirectionRow& list = p == 0 ? quiet : capture;
    std::string_view rest = parts[p];
    int position = 0;
    while (true) {
      const std::size_t semicolon = rest.find(';');
      const std::string_view token = rest.substr(0, semicolon);
      ++wordNumber;
      const int offset = DirectionOffset(token);
      if (offset == 0) {
        if (firstUnknown == 0) firstUnknown = wordNumber;
        break;
      }
      list[position++] = sign * offset;  // a ninth entry has no room for the end mark: range error
      if (semicolon == std::string_view::npos) break;
      rest = rest.substr(semicolon + 1);
    }
    list[position] = EndOfList;
  }
  return firstUnknown;
}

std::string BoardSetupText(const BoardCells& board) {
  std::string text;
  for (long i = 0; i < 120; ++i) {
    switch (board[i]) {
      case 0: text += '0'; break;
      case WhiteMan: text += '1'; break;
      case BlackMan: text += '2'; break;
      case WhiteKing: text += '3'; break;
      case BlackKing: text += '4'; break;
      default: break;  // frame and anything else add nothing
    }
  }
  return text;
}

void ShiftBoardColour(BoardCells& board, int toDarkLayout) {
  for (int row = 2; row <= 9; ++row) {
    const bool oddRow = row % 2 == 1;
    for (int left = 1; left <= 7; left += 2) {
      const int l = row * 10 + left, r = l + 1;
      const bool leftToRight = toDarkLayout != 0 ? oddRow : !oddRow;
      if (leftToRight) {
        board[r] = board[l];
        board[l] = 0;
      } else {
        board[l] = board[r];
        board[r] = 0;
      }
    }
  }
}

void AlignBoardColour(BoardCells& board, int piecesOnBlack) {
  int c = 0;
  for (int i = 21; i <= 119; ++i)
    if (board[i] != 0 && board[i] != OffBoard) {
      c = i;
      break;
    }
  const int row = ToInt32(c / 10.0);
  const int column = c % 10;
  // One sample piece decides. The cell tested is the one of its column pair
  // that belongs to the dark layout (row and column of opposite parity). The
  // row is the rounded quotient, not the truncated one, as it always was.
  int tested = c;
  if (row % 2 == 1 && column % 2 == 1) tested = c + 1;
  if (row % 2 == 0 && column % 2 == 0) tested = c - 1;
  if (piecesOnBlack == 0) {
    if (board[tested] != 0) ShiftBoardColour(board, 0);
  } else {
    if (board[tested] == 0) ShiftBoardColour(board, 1);
  }
}

bool SquareIsDark(long cell, int piecesOnBlack, int* darkStep) {
  const int row = static_cast<int>(cell / 10), column = static_cast<int>(cell % 10);
  const bool sameParity = (row % 2) == (column % 2);
  const bool dark = piecesOnBlack == 0 ? sameParity : !sameParity;
  if (darkStep) {
    if (dark) *darkStep = 0;
    else {
      const bool evenRow = row % 2 == 0;
      *darkStep = ((evenRow && piecesOnBlack == 0) || (!evenRow && piecesOnBlack != 0)) ? 1 : -1;
    }
  }
  return dark;
}

}  // namespace qv

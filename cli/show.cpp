#include <ostream>

#include "cli/cli.h"

namespace qv::cli {

namespace {
char PieceLetter(int value) {
  switch (value) {
    case WhiteMan: return 'w';
    case WhiteKing: return 'W';
    case BlackMan: return 'b';
    case BlackKing: return 'B';
    default: return '.';
  }
}
}  // namespace

int RunShow(CliContext& context) {
  const Game& g = context.game;
  std::ostream& out = context.out;
  for (int row = 9; row >= 2; --row) {
    out << (row - 1) << ' ';
    for (int column = 1; column <= 8; ++column) out << ' ' << PieceLetter(g.Board[row * 10 + column]);
    out << '\n';
  }
  out << "   a b c d e f g h\n";
  out << "Setup: " << BoardSetupText(g.Board) << '\n';
  out << "Side to move: " << (g.SideToMove == 1 ? "White" : "Black") << '\n';
  out << "Variant: " << g.VariantLabel << '\n';
  out << "SearchFlavour: " << g.Flags.SearchFlavour << '\n';
  return 0;
}

}  // namespace qv::cli

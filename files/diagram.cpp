#include "files/diagram.h"

#include <system_error>

#include "core/board.h"
#include "files/write_replacing.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

constexpr char Quote = '"';

std::string PieceWord(int content) {
  switch (content) {
    case BlackMan: return "black_man";
    case WhiteMan: return "white_man";
    case BlackKing: return "black_king";
    case WhiteKing: return "white_king";
    default: return "square";
  }
}

// The cell shown at (row, column) of the screen; row 9 is the top.
int CellShownAt(int row, int column, int boardTurned) {
  return boardTurned == 1 ? (11 - row) * 10 + (9 - column) : row * 10 + column;
}

void CopyMissingPictures(const fs::path& folder, const fs::path& dataFolder) {
  if (dataFolder.empty()) return;
  std::error_code ec;
  const fs::path source = dataFolder / PiecesFolderName;
  const fs::path target = folder / PiecesFolderName;
  if (fs::equivalent(source, target, ec)) return;
  fs::create_directories(target, ec);
  for (const std::string& name : DiagramPictureNames()) {
    const fs::path to = target / (name + ".bmp");
    if (!fs::exists(to, ec)) fs::copy_file(source / (name + ".bmp"), to, ec);
  }
}

}  // namespace

std::string DiagramPicture(int content, bool darkSquare, int piecesOnBlack) {
  const bool piece = content != 0;
  const bool dark = piece && piecesOnBlack < 2 ? true : darkSquare;
  return (dark ? "d" : "l") + PieceWord(content);
}

const std::vector<std::string>& DiagramPictureNames() {
  static const std::vector<std::string> names = {
      "dblack_man", "dwhite_man", "dblack_king", "dwhite_king", "dsquare",
      "lblack_man", "lwhite_man", "lblack_king", "lwhite_king", "lsquare"};
  return names;
}

std::string DiagramText(const Game& g, std::string_view comment) {
  std::string html;
  const auto line = [&html](std::string_view text) {
    html += text;
    html += '\n';
  };
  line("<HTML>");
  line("<HEAD>");
  line("<TITLE>" + g.LoadedVariantName + "</TITLE>");
  line("</HEAD>");
  line("");
  line("<BODY>");
  line(std::string("<TABLE BORDER=") + Quote + "1" + Quote + " BORDERCOLOR=" + Quote + "#000000" + Quote + ">");
  line("<TR>");
  line("<TD>");
  const int pob = g.RuleSet.PiecesOnBlack;
  for (int row = 9; row >= 2; --row) {
    std::string pictures;
    for (int column = 1; column <= 8; ++column) {
      const int cell = CellShownAt(row, column, g.Settings.BoardTurned);
      pictures += std::string("<IMG SRC=") + Quote + PiecesFolderName + "/" +
                  DiagramPicture(g.Board[cell], SquareIsDark(cell, pob), pob) + ".bmp" + Quote + ">";
    }
    line(pictures + "<BR>");
  }
  line("</TD>");
  line("</TR>");
  line("</TABLE>");
  if (!comment.empty()) {
    line("<BR>");
    std::size_t start = 0;
    while (true) {
      const std::size_t end = comment.find('\n', start);
      std::string_view text = comment.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
      if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
      line(text);
      if (end == std::string_view::npos) break;
      line("<BR>");
      start = end + 1;
    }
  }
  line("</BODY>");
  line("");
  line("</HTML>");
  return html;
}

bool WriteDiagram(const Game& g, std::string_view comment, const fs::path& folder, const fs::path& dataFolder) {
  if (!WriteReplacing(folder / DiagramFileName, DiagramText(g, comment))) return false;
  CopyMissingPictures(folder, dataFolder);
  return true;
}

}  // namespace qv

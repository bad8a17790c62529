#include "interaction/movelist.h"

#include <algorithm>
#include <cstdio>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "files/book.h"
#include "interaction/boardview.h"
#include "interaction/navigation.h"
#include "interaction/record.h"

namespace qv {

namespace {

std::string PaddedSquare(int cell, int notationKind) {
  std::string text = ToUpper(SquareNotation(cell, 1, notationKind));
  if (text.size() == 1) text += ' ';
  return text;
}

void RefuseMove(Session& s) {
  RefreshBoard(s, 0);
  s.screen[Command::Text2].Enabled = 0;
  s.window.Changed(Part::Texts);
  s.window.ShowMessage("Illegal move", "Error", BoxIcon::Exclamation);
  s.screen[Command::Text2].Enabled = 1;
  s.window.Changed(Part::Texts);
}

}  // namespace

std::string MoveTextOf(int fromCell, int toCell, int notationKind) {
  return PaddedSquare(fromCell, notationKind) + PaddedSquare(toCell, notationKind);
}

std::string DisplayText(const Game& g, std::string_view moveText) {
  if (moveText.size() <= 2) return ToLower(moveText);
  // A one-character square name fills its two places with a blank.
  std::string text = Trim(moveText.substr(0, 2));
  text += g.LastWasCapture == 1 ? g.CaptureChar : "-";
  text += Trim(moveText.substr(moveText.size() >= 4 ? 2 : moveText.size() - 2, 2));
  text = ToLower(text);
  if (g.LastWasCrowning == 1) text += 'K';
  return text;
}

std::string GameListRow(int n, const std::string& display) {
  if (n % 2 == 0) return "      " + display;
  char number[16];
  std::snprintf(number, sizeof number, "%3d", (n + 1) / 2);
  return std::string(number) + ". " + display;
}

void WriteMoveToList(Session& s, std::string_view moveText, const std::string& display, int moverCode) {
  Game& g = s.game;
  const int n = g.HalfMoveCount;
  const int pair = (n + 1) / 2;
  auto& row = g.MoveTextTable[pair];
  const bool first = n % 2 == 1;
  row[first ? FirstHalfText : SecondHalfText] = ToLower(moveText) + " " + display;
  row[first ? FirstMoverCode : SecondMoverCode] = std::to_string(moverCode);
  // A move that keeps the game in the book is marked, and the opening named.
  const BookAnswer book = BookLookup(g, 0, g.Random);
  s.screen.List1.push_back(GameListRow(n, display) + (book.InBook == 1 ? "b" : ""));
  s.screen.OpeningNameShown = book.OpeningName;
  s.screen.Text1.clear();
  s.window.Changed(Part::Lists | Part::Texts | Part::Status);
}

void RefreshMoveChoices(Session& s) {
  Game& g = s.game;
  const BookAnswer book = BookLookup(g, 0, g.Random);
  s.screen.OpeningNameShown = book.OpeningName;
  GenerateLegalMoves(g);
  s.screen.List2.clear();
  for (int i = g.PlyBase[g.Ply]; i < g.PlyBase[g.Ply + 1]; ++i) {
    const MoveRecord& move = g.MoveStack[i];
    const std::string bookForm = BookMoveText(move.FromSquare, move.ToSquare, g.RuleSet.PiecesOnBlack);
    const bool proposed =
        std::find(book.BookCandidates.begin(), book.BookCandidates.end(), bookForm) != book.BookCandidates.end();
    s.screen.List2.push_back(MoveLabel(g, move) + (proposed ? "b" : ""));
  }
  s.window.Changed(Part::Lists | Part::Status);
}

namespace {

// The common part of a typed or listed move: find it, refuse it or record it.
void PlayTextMove(Session& s, std::string text, EntryPath path) {
  Game& g = s.game;
  s.screen.Text2.clear();
  s.window.Changed(Part::Texts);
  const std::string moveText = ParseMoveText(text, g.CaptureChar);
  if (FindMove(g, moveText) == 0) {
    RefuseMove(s);
    return;
  }
  if (path == EntryPath::List2) {
    s.screen.List2.clear();
    s.window.Changed(Part::Lists);
  }
  RecordHumanMove(s, moveText, path);
}

}  // namespace

void EnterTypedMove(Session& s) {
  if (s.screen.Busy == 1) return;
  PlayTextMove(s, ToUpper(s.screen.Text2), EntryPath::Text2);
}

void ClickLegalMove(Session& s, int row) {
  if (s.screen.Busy == 1 || s.screen[Command::List2].Enabled == 0) return;
  if (row < 0 || row >= static_cast<int>(s.screen.List2.size())) return;
  std::string text = s.screen.List2[row];
  // A crowning "K" or book "b" is cut by length alone.
  if (text.size() == 6) text.pop_back();
  text = ToUpper(text);
  if (const std::size_t x = text.find('X'); x != std::string::npos) text[x] = 'x';
  PlayTextMove(s, text, EntryPath::List2);
}

void ClickGameList(Session& s, int row) {
  Game& g = s.game;
  if (s.screen.Busy == 1 || s.screen[Command::List1].Enabled == 0) return;
  const int delta = g.HalfMoveCount - row - 1;
  s.screen.List3.clear();
  s.window.Changed(Part::Lists);
  if (delta != 0) MoveNavigator(s, delta, 0, 0);
}

void RewriteMoveList(Session& s, int oldKind) {
  Game& g = s.game;
  const int newKind = g.Settings.NotationKind;
  s.screen.List1.clear();
  s.screen.List2.clear();
  s.screen.List3.clear();
  for (int n = 1; n <= g.GameLength && n <= 1000; ++n) {
    auto& row = g.MoveTextTable[(n + 1) / 2];
    std::string& entry = row[n % 2 == 1 ? FirstHalfText : SecondHalfText];
    if (entry.empty()) break;
    const bool drop = entry.size() < 3 || entry[2] == ' ';
    const std::string key = ToUpper(entry.substr(0, drop ? 2 : 4));
    const int to = SquareNumber(drop ? key.substr(0, 2) : key.substr(2, 2), oldKind, g.RuleSet.PiecesOnBlack);
    const MoveRecord& move = g.Record.GameMoves[n];
    std::string moveText, display;
    if (drop) {
      moveText = PaddedSquare(to, newKind).substr(0, 2);
      display = ToLower(Trim(moveText));
    } else {
      const int from = SquareNumber(key.substr(0, 2), oldKind, g.RuleSet.PiecesOnBlack);
      moveText = MoveTextOf(from, to, newKind);
      display = ToLower(Trim(moveText.substr(0, 2)) + (move.IsCapture() ? g.CaptureChar : "-") +
                        Trim(moveText.substr(2, 2)));
      if (move.PromoteFlag != 0) display += 'K';
    }
    entry = ToLower(moveText) + " " + display;
    s.screen.List1.push_back(GameListRow(n, display) + (BookLookup(g, 0, g.Random, n).InBook == 1 ? "b" : ""));
  }
  s.screen.List1Selected = g.HalfMoveCount - 1;
  s.window.Changed(Part::Lists);
}

}  // namespace qv

#include "files/pdn_movetext.h"

#include <array>
#include <cctype>
#include <string_view>

#include "core/text.h"

namespace qv {

namespace {

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

bool IsResult(std::string_view token) {
  constexpr std::array<std::string_view, 12> results = {"1-0", "0-1", "1/2-1/2", "2-0", "0-2", "1-1",
                                                        "0-0", "*",   "1/2",     "0",   "1",   "2"};
  for (std::string_view r : results)
    if (token == r) return true;
  return false;
}

bool IsSeparator(char c) { return c == '-' || c == 'x' || c == 'X' || c == ':'; }

// Splits the joined text into words, comments and variations.
class MovetextScanner {
 public:
  explicit MovetextScanner(std::string text) : text_(std::move(text)) {}

  PdnMovetext Run() {
    PdnMovetext result;
    std::string pendingComment;
    bool anyMove = false;
    while (true) {
      SkipBlanks();
      if (at_ >= text_.size()) break;
      const char c = text_[at_];
      if (c == '{') {
        const std::string comment = ReadUntil('}');
        pendingComment += (pendingComment.empty() ? "" : "\r\n") + comment;
        continue;
      }
      if (c == ';') {
        ReadUntil('\n');
        continue;
      }
      if (c == '(') {
        SkipVariation();
        continue;
      }
      if (!pendingComment.empty()) {
        result.Items.push_back({pendingComment, {}});
        pendingComment.clear();
      }
      std::string word = ReadWord();
      // A move number, possibly with the move glued to it: "12.", "12...", "12.32-28".
      std::size_t digits = 0;
      while (digits < word.size() && IsDigit(word[digits])) ++digits;
      if (digits > 0 && digits < word.size() && word[digits] == '.') {
        std::size_t dots = digits;
        while (dots < word.size() && word[dots] == '.') ++dots;
        if (dots - digits >= 3 && !anyMove) result.SecondMoverFirst = true;
        word.erase(0, dots);
        if (word.empty()) continue;
      }
      // "1. ... 9-14": the first move written is the second mover's.
      if (word.find_first_not_of('.') == std::string::npos) {
        if (!anyMove) result.SecondMoverFirst = true;
        continue;
      }
      if (word[0] == '$') continue;
      if (IsResult(word)) break;
      anyMove = true;
      result.Items.push_back({{}, word});
    }
    if (!pendingComment.empty()) result.Items.push_back({pendingComment, {}});
    return result;
  }

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_]))) ++at_;
  }
  // The text after the opening character up to the closing one, which is passed.
  std::string ReadUntil(char close) {
    const std::size_t end = text_.find(close, at_ + 1);
    std::string inner = text_.substr(at_ + 1, end == std::string::npos ? std::string::npos : end - at_ - 1);
    at_ = end == std::string::npos ? text_.size() : end + 1;
    for (char& ch : inner)
      if (ch == '\n') ch = ' ';
    return Trim(inner);
  }
  void SkipVariation() {
    int depth = 0;
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == '{') {
        ReadUntil('}');
        continue;
      }
      ++at_;
      if (c == '(') ++depth;
      if (c == ')' && --depth == 0) return;
    }
  }
  std::string ReadWord() {
    const std::size_t start = at_;
    while (at_ < text_.size() && !std::isspace(static_cast<unsigned char>(text_[at_])) && text_[at_] != '{' &&
           text_[at_] != '(')
      ++at_;
    return text_.substr(start, at_ - start);
  }
  std::string text_;
  std::size_t at_ = 0;
};

}  // namespace

PdnMovetext ParsePdnMovetext(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line;
    text += '\n';
  }
  // "11- 15" and "22x 15" are one move.
  std::string joined;
  for (std::size_t i = 0; i < text.size(); ++i) {
    joined += text[i];
    if ((text[i] == '-' || text[i] == 'x') && i + 1 < text.size() && text[i + 1] == ' ' && i > 0 &&
        std::isalnum(static_cast<unsigned char>(text[i - 1])))
      ++i;
  }
  return MovetextScanner(std::move(joined)).Run();
}

PdnMoveSquares NormalMoveSquares(const std::string& move) {
  std::string text = move;
  while (!text.empty() && !std::isalnum(static_cast<unsigned char>(text.back()))) text.pop_back();
  std::vector<std::string> squares;
  std::string square;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    // An "x" between two squares separates them; in "c3xe5" it follows a digit.
    const bool separator = IsSeparator(c) && (c == '-' || c == ':' || (i > 0 && IsDigit(text[i - 1])));
    if (separator) {
      squares.push_back(square);
      square.clear();
    } else {
      square += c;
    }
  }
  squares.push_back(square);
  // A piece dropped onto the board names one square.
  if (squares.size() == 1 && !square.empty()) return {square, {}, squares};
  for (const std::string& s : squares)
    if (s.empty()) return {};
  return {squares.front(), squares.back(), squares};
}

}  // namespace qv

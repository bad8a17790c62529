#pragma once
// Random rule sets as a user makes them: the Variants dialog's Random button,
// then direction lists and promotion squares typed at random, confirmed with
// OK; and a short game the computer plays against itself under those rules.
#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "core/fatal.h"
#include "core/text.h"
#include "engine/driver.h"
#include "interaction/newvariant.h"
#include "interaction/variantsform.h"

namespace qv::testing {

// A list of 1 to 4 direction words (now and then up to 8), or for a capture
// box now and then none: a piece that never captures.
inline std::string RandomDirectionList(std::mt19937& rng, bool mayBeEmpty) {
  static constexpr std::array<const char*, 12> words = {"NW", "NE", "SE", "SW", "N", "E",
                                                        "S",  "W",  "NN", "EE", "SS", "WW"};
  if (mayBeEmpty && rng() % 8 == 0) return {};
  const int count = rng() % 8 == 0 ? 1 + static_cast<int>(rng() % 8) : 1 + static_cast<int>(rng() % 4);
  std::string text;
  for (int i = 0; i < count; ++i) text += (i ? ";" : "") + std::string(words[rng() % words.size()]);
  return text;
}

// 1 to 12 squares of the playing colour for each side, mostly on the far row.
inline void RandomPromoBoxes(VariantsForm& form, std::mt19937& rng, int piecesOnBlack) {
  for (int side = 0; side < 2; ++side) {
    std::vector<int> squares;
    const bool farRow = rng() % 2 == 0;
    for (int cell = 21; cell <= 98; ++cell) {
      if (IsFrameCell(cell) || (piecesOnBlack < 2 && !SquareIsDark(cell, piecesOnBlack))) continue;
      if (farRow && cell / 10 != (side == 0 ? 9 : 2)) continue;
      squares.push_back(cell);
    }
    std::shuffle(squares.begin(), squares.end(), rng);
    squares.resize(std::min<std::size_t>(squares.size(), 1 + rng() % PromoSlots));
    for (int i = 0; i < PromoSlots; ++i)
      form.Text1[static_cast<std::size_t>(side * PromoSlots + i)].Text =
          i < static_cast<int>(squares.size()) ? ToUpper(SquareNotation(squares[static_cast<std::size_t>(i)], 1, 0))
                                               : std::string();
  }
}

// A new game whose rules the Variants dialog drew at random, with random
// movement and promotion boxes; the same seed gives the same rules.
inline void StartRandomRules(Game& g, std::uint64_t seed) {
  g.Random.SetFixedSeed(seed);
  std::mt19937 rng(static_cast<std::mt19937::result_type>(seed));
  NewVariantCommand(g, [&](Game& game) {
    VariantsForm form;
    OpenVariantsForm(form, game);
    DrawRandomRules(form, game);
    for (std::size_t box = 0; box < 8; ++box) form.Text2[box].Text = RandomDirectionList(rng, box >= 4);
    RandomPromoBoxes(form, rng, game.RuleSet.PiecesOnBlack);
    return StoreFormRules(form, game, true);
  });
}

// What ended a short self-play game.
struct SelfPlayEnd {
  int halfMoves = 0;
  bool fatal = false;
  bool tableLimit = false;  // the fatal end is a real limit of the generator's tables
  bool boardIntact = true;  // every cell held a piece value or the frame after every turn
  std::string text;
};

// The one fatal end the rules keep that is not a table limit: a black king
// hopping over its own king (JumpFriend) looks up a promotion table that
// does not exist.
inline bool BlackKingCanHop(const Game& g) {
  if (g.RuleSet.JumpFriend != 1 || g.SideToMove != -1) return false;
  for (int cell = 21; cell <= 98; ++cell) {
    if (g.Board[cell] != BlackKing) continue;
    for (int i = 0; g.DirTable[KindBlackKing][i] != EndOfList; ++i) {
      const int d = g.DirTable[KindBlackKing][i];
      int u = cell + d, n = 0;
      while (u >= 0 && u < 120 && g.Board[u] == BlackKing) {
        u += d;
        ++n;
      }
      if (n > 0 && u >= 0 && u < 120 && g.Board[u] == 0 &&
          (n == g.RuleSet.NumberFriends || g.RuleSet.NumberFriends == -1))
        return true;
    }
  }
  return false;
}

// Where the generator ran out of room: 21 jumps in a line, 2001 lines, or a
// line of 17 pieces.
inline bool GeneratorTableFull(const Game& g) {
  return g.Gen.Depth >= TraceDepths || g.Gen.CandCount >= CandidateRows || g.Gen.Path.Length > 50;
}

// Every square holds nothing or a piece and every frame cell the frame;
// except cell 0, where taking back a move under "Last Man becomes King"
// writes a man when no man was crowned.
inline bool BoardHoldsPieces(const Game& g) {
  for (int cell = 1; cell < 120; ++cell) {
    const int v = g.Board[cell];
    if (IsFrameCell(cell) ? v != OffBoard : (v < -2 || v > 2)) return false;
  }
  return true;
}

// A new game of random rules (see StartRandomRules), then the computer plays
// both sides at depth 2 for up to maxHalfMoves.
inline SelfPlayEnd PlayRandomRules(Game& g, std::uint64_t seed, int maxHalfMoves) {
  g.Settings.DepthMode = 1;
  g.Settings.DepthLimit = 2;
  g.Settings.StrengthHandicap = 0;
  g.Settings.OpeningBook = 0;
  g.Settings.PlayMode = 2;
  DriverUi ui;
  SelfPlayEnd end;
  try {
    StartRandomRules(g, seed);
    while (g.GameOver == 0 && end.halfMoves < maxHalfMoves) {
      if (!ComputerMove(g, ui).moved) break;
      ++end.halfMoves;
      if (!BoardHoldsPieces(g)) {
        end.boardIntact = false;
        break;
      }
    }
  } catch (const FatalError& e) {
    end.fatal = true;
    end.text = e.what();
    end.tableLimit = GeneratorTableFull(g) || BlackKingCanHop(g);
  }
  return end;
}

}  // namespace qv::testing

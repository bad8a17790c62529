#pragma once
// Scores, from the view of the side to move: a man is worth 100, a king 200,
// a draw 0. Wins and losses sit far above any material count.
namespace qv {

// A won position. No score lies outside (-WinScore, WinScore), the search's
// widest window.
inline constexpr int WinScore = 32000;
// A win by a goal rule found at ply p scores GoalWinScore - p, so that the
// nearer win is the better one.
inline constexpr int GoalWinScore = WinScore;
// A side that cannot move.
inline constexpr int NoMoveScore = -WinScore;
// Below every score: no root move has finished yet.
inline constexpr int NoScoreYet = -WinScore - 1;
// A win the search found at ply p, one below the win itself.
constexpr int WinFoundAt(int ply) { return WinScore - 1 - ply; }
// Wins within twenty plies, which the computer announces.
inline constexpr int NearWinScore = WinScore - 20;
// Scores of this size or more (either sign) are decided games.
inline constexpr int DecidedScore = 30001;
// From this score on the computer counts itself winning and offers no draw.
inline constexpr int WinningScore = 30000;

}  // namespace qv

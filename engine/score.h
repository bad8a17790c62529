#pragma once
// Scores, from the view of the side to move: a man is worth 100, a king 200,
// a draw 0. Wins and losses sit far above any material count.
namespace qv {

// A win by a goal rule found at ply p scores GoalWinScore - p, so that the
// nearer win is the better one.
inline constexpr int GoalWinScore = 32000;
// A side that cannot move.
inline constexpr int NoMoveScore = -32000;
// Scores of this size or more (either sign) are decided games.
inline constexpr int DecidedScore = 30001;

}  // namespace qv

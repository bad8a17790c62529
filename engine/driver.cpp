#include "engine/driver.h"

#include <algorithm>
#include <cmath>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "engine/deepening.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "engine/timetext.h"
#include "files/book.h"
#include "engine/score.h"

namespace qv {

namespace {

long WholeSeconds() { return static_cast<long>(std::floor(SearchClock())); }

// No man on the board and both sides' pieces worth the same.
bool KingsOnlyLevel(const Game& g) {
  int white = 0, black = 0;
  for (int cell = 21; cell <= 98; ++cell) {
    const int v = g.Board[cell];
    if (v == OffBoard || v == 0) continue;
    if (v == WhiteMan || v == BlackMan) return false;
    if (v > 0) white += v;
    else black -= v;
  }
  return white == black;
}

// The computer offers a draw when the game has long stood still, or only
// kings of equal worth are left, and material is level.
bool WantsDraw(Game& g, int bestScore) {
  const int h = g.HalfMoveCount;
  if (h > 78 && g.ScoreHistory[h - 78] != 0) {
    if (std::abs(g.ScoreHistory[h - 78] - g.ScoreHistory[h]) < 100) ++g.StableCount;
    else g.StableCount = 0;
  }
  if (g.Settings.AskDrawIfComputerDraws != 1 || h - g.LastDrawOffer < 41) return false;
  if (!KingsOnlyLevel(g) && g.StableCount < 2) return false;
  if (g.Settings.PlayMode == 2) return false;
  if (!(g.Rnd() < 0.1 || g.StableCount > 1)) return false;
  return g.WinAnnounced == 0 && bestScore < WinningScore && g.MaterialByPly[g.Ply] == 0;
}

// "Computer is winning in 3 moves! ".
std::string CountdownText(const std::string& head, int moves) {
  return head + Str(moves) + " move" + (moves > 1 ? "s" : "") + "! ";
}

// One computer turn, step by step, in two halves: the thinking (the checks
// before thinking, the iterations over the root moves), which may run on a
// copy of the game, and the playing (the move played and the rules after
// it), on the game itself.
class Turn {
 public:
  Turn(Game& g, DriverUi& ui) : g_(g), ui_(ui), o_(g.Settings) {}

  TurnDecision Think() {
    decision_.ending = Begin();
    if (decision_.ending == TurnDecision::Ending::None && !FindRootMoves())
      decision_.ending = TurnDecision::Ending::NoMoves;
    if (decision_.ending == TurnDecision::Ending::None) {
      PrepareSearch();
      Deepen();
      EndThinking();
      decision_.move = roots_[0];
      decision_.rootCount = rootCount_;
      decision_.bestScore = bestScore_;
      decision_.mainLine = bestLine_;
      decision_.rootScores = rootInfo_;
      decision_.fromBook = fromBook_;
    }
    decision_.strengthLabel = strength_;
    decision_.engine = CarriedEngineState::From(g_);
    return decision_;
  }

  TurnReport Play(const TurnDecision& decision) {
    decision.engine.GiveTo(g_);
    CommitRootPly(g_);
    if (TellEarlyEnd(decision)) return Finish();
    TakeDecision(decision);
    ShowEndOfThinking();
    PlayBestMove();
    OfferDraw();
    ApplyDrawRules();
    EndIfOpponentBlocked();
    return Finish();
  }

 private:
  TurnReport Finish() {
    ui_.SetThinking(false);
    g_.FocusSquare = 0;
    g_.BookMoveFrom = 0;
    return report_;
  }

  // Start steps 1 to 8: the screen, and a game that ended before this turn.
  TurnDecision::Ending Begin() {
    turnStart_ = WholeSeconds();
    g_.BackRankActive = 1;
    UpdateManThresholds(g_);
    g_.NoiseRange = NoiseRangeFor(o_.StrengthHandicap);
    g_.SearchCancelled = 0;
    depthMode_ = o_.DepthMode;
    strength_ = "Strength:" + Str(10 - o_.StrengthHandicap) +
                (depthMode_ == 1 ? "   Depth:" + Str(o_.DepthLimit) + " ply" : "   Time:" + Str(o_.TimeLimit) + " sec");
    ui_.SetStrengthLabel(strength_);
    ui_.SetStatus("Thinking...");
    ui_.SetThinking(true);

    CommitRootPly(g_);
    const int score = Evaluate(g_, -WinScore, WinScore, g_.SideToMove);
    const bool ownLoss = g_.RuleLossPending == 1 || score == WinScore;
    if (g_.NoMoveDraw == 1) return TurnDecision::Ending::NoMoveDraw;
    if (ownLoss) return TurnDecision::Ending::OwnLoss;
    return TurnDecision::Ending::None;
  }

  // Start step 9: the root moves; without any the game is over.
  bool FindRootMoves() {
    GenerateLegalMoves(g_);
    rootCount_ = g_.PlyBase[1] - g_.PlyBase[0];
    return rootCount_ > 0;
  }

  // The ends a turn finds before it searches, told on the game itself. True
  // when the game ended so.
  bool TellEarlyEnd(const TurnDecision& decision) {
    switch (decision.ending) {
      case TurnDecision::Ending::None: return false;
      case TurnDecision::Ending::NoMoveDraw:
        g_.NoMoveDraw = 0;
        DeclareDraw(g_, ui_);
        return true;
      case TurnDecision::Ending::OwnLoss:
        ResultText(g_, 0);
        ui_.SetStatus(o_.PlayerName + " wins!");
        g_.GameOver = 1;
        ui_.GameEnded(1.0);
        ui_.Pause(0.5);
        ui_.ShowMessage("Congratulations", o_.PlayerName + " wins!");
        return true;
      case TurnDecision::Ending::NoMoves: {
        ResultText(g_, 0);
        g_.GameOver = 1;
        ui_.Pause(0.5);
        const std::string text = g_.RuleSet.AntiMode == 1 ? "Computer wins!" : o_.PlayerName + " wins!";
        if (g_.RuleSet.AntiMode != 1) ui_.GameEnded(1.0);
        ui_.SetStatus(text);
        ui_.ShowMessage("Congratulations", text);
        return true;
      }
    }
    return false;
  }

  // What the thinking half found, for the playing half.
  void TakeDecision(const TurnDecision& decision) {
    roots_.assign(1, decision.move);
    rootCount_ = decision.rootCount;
    bestScore_ = decision.bestScore;
    bestLine_ = decision.mainLine;
    rootInfo_ = decision.rootScores;
    strength_ = decision.strengthLabel;
    calculation_ = decision.calculation;
    fromBook_ = decision.fromBook;
    report_.depth = decision.depth;
    report_.iterationLog = decision.iterationLog;
  }

  // Start steps 10 and 12: the depth, the pause, then the clock.
  void PrepareSearch() {
    depthLimit_ = depthMode_ == 1 ? std::max(1, o_.DepthLimit) : 20;
    if (rootCount_ == 1) depthLimit_ = 1;
    ui_.SetProgress(0, depthMode_ == 1 ? rootCount_ * depthLimit_ : o_.TimeLimit);
    ui_.Pause(0.5);
    clockStart_ = SearchClock();
    // Step 11, the book: a known opening move is played after one iteration.
    fromBook_ = PlayBookMove();
    if (fromBook_) depthLimit_ = 1;
  }

  // Asks the book for a move when the player wants the book used. A proposed
  // move that is among the root moves becomes the only one; anything else
  // is dropped and the search decides.
  bool PlayBookMove() {
    g_.BookMoveFrom = 0;
    g_.BookMoveTo = 0;
    if (o_.OpeningBook != 1) return false;
    const BookAnswer book = BookLookup(g_, 1, g_.Random);
    if (!book.MessageText.empty()) ui_.ShowMessage(book.MessageCaption, book.MessageText);
    for (int i = 0; i < rootCount_ && book.BookMoveFrom != 0; ++i) {
      if (g_.MoveStack[i].FromSquare != book.BookMoveFrom || g_.MoveStack[i].ToSquare != book.BookMoveTo) continue;
      g_.MoveStack[0] = g_.MoveStack[i];
      rootCount_ = 1;
      g_.BookMoveFrom = book.BookMoveFrom;
      g_.BookMoveTo = book.BookMoveTo;
      return true;
    }
    return false;
  }

  // The iterations, d from 1 to the depth limit, each over all root moves;
  // the root moves are kept apart from the stack the search overwrites.
  void Deepen() {
    DeepeningSetup setup;
    setup.depthLimit = depthLimit_;
    setup.depthMode = depthMode_;
    setup.timeLimit = o_.TimeLimit;
    setup.clockStart = clockStart_;
    setup.bookMove = fromBook_;
    DeepeningResult thought =
        DeepenRootMoves(g_, ui_, setup, std::vector<MoveRecord>(g_.MoveStack.begin(), g_.MoveStack.begin() + rootCount_));
    roots_ = std::move(thought.roots);
    rootInfo_ = std::move(thought.rootInfo);
    bestScore_ = thought.bestScore;
    bestLine_ = std::move(thought.bestLine);
    head_ = std::move(thought.head);
    decision_.depth = thought.depth;
    decision_.iterationLog = std::move(thought.iterationLog);
  }

  // End steps 1 to 3: the texts, the stop flags, the root scores sorted.
  void EndThinking() {
    if (o_.ShowCalculation == 1)
      decision_.calculation = head_ + "   Time: " + TimeString(WholeSeconds() - turnStart_) + "\r\nMain: " + bestLine_;
    if (g_.StopRequest == 2) {
      g_.StopRequest = 0;
      g_.SearchCancelled = 0;
    }
    if (g_.StopRequest == 1) {
      // A Cancel that came after the last node: it still ends the thinking.
      g_.StopRequest = 0;
      g_.SearchCancelled = 1;
    }
    SortRootScores(rootInfo_);
  }

  // The texts of the end of thinking, shown by the game that plays the move,
  // and the sorted root moves unless the computer plays itself.
  void ShowEndOfThinking() {
    ui_.SetStrengthLabel(strength_);
    if (!calculation_.empty()) ui_.SetCalculation(calculation_);
    if (o_.PlayMode != 2) ui_.ShowRootScores(rootInfo_);
    ui_.SetStatus("");
  }

  // End steps 4 to 8: the move at the front of the root order is played and
  // entered; what its score announces, and a game it won or drew.
  void PlayBestMove() {
    g_.MoveStack[0] = roots_[0];
    g_.LastWasCapture = roots_[0].IsCapture() ? 1 : 0;
    g_.LastWasCrowning = roots_[0].PromoteFlag == 2 ? 1 : 0;
    g_.PlyBase[0] = 0;
    g_.PlyBase[1] = 1;
    MakeSearchMove(g_, 0);
    g_.LastMoveIndex = 0;
    const int score = Evaluate(g_, -WinScore, WinScore, -g_.SideToMove);
    bool computerWins = false, blockedDraw = false;
    if (g_.NoMoveDraw == 1) {
      g_.NoMoveDraw = 0;
      blockedDraw = true;
    } else if (bestScore_ <= -NearWinScore) {
      const int n = (bestScore_ + WinScore + (g_.RuleSet.AntiMode == 1 ? 1 : 0)) / 2;
      ui_.SetStatus(CountdownText("Computer is losing in", n));
      g_.WinAnnounced = 1;
    } else if (bestScore_ >= NearWinScore && score <= NearWinScore) {
      const int n = (WinScore - bestScore_ + 1) / 2;
      ui_.SetStatus(CountdownText("Computer is winning in", n));
      g_.WinAnnounced = 1;
    } else if (bestScore_ >= NearWinScore) {
      computerWins = true;
    }
    g_.ScoreHistory[g_.HalfMoveCount] = bestScore_;
    g_.LastSearchScore = bestScore_;
    CommitRootPly(g_);
    EnterMoveInRecord(g_, 0, rootCount_);
    UpdateDrawReason(g_);
    ui_.MoveRecorded(g_.HalfMoveCount);

    report_.moved = true;
    report_.move = MoveLabel(g_, roots_[0]);
    report_.score = bestScore_;
    report_.mainLine = bestLine_;
    report_.fromBook = fromBook_;
    report_.rootScores = rootInfo_;

    // The ends are told once the move stands.
    if (blockedDraw) DeclareDraw(g_, ui_);
    if (computerWins) ComputerWins();
  }

  void ComputerWins() {
    ResultText(g_, 0);
    g_.GameOver = 1;
    ui_.GameEnded(0.0);
    ui_.SetStatus("Computer wins!");
    ui_.Pause(0.5);
    ui_.ShowMessage("Congratulations", "Computer wins!");
  }

  // End step 9: the computer may offer a draw.
  void OfferDraw() {
    if (g_.GameOver != 0 || !WantsDraw(g_, bestScore_)) return;
    g_.LastDrawOffer = g_.HalfMoveCount;
    ui_.Pause(0.5);
    report_.drawOffered = true;
    if (ui_.AskYesNo("Question", "How about a draw?")) DeclareDraw(g_, ui_);
  }

  // End step 10: the counted draw rules in force, for the opponent to move.
  // The repetition and the move limit end the game only under the chess rules.
  void ApplyDrawRules() {
    if (g_.GameOver != 0) return;
    GenerateMoves(g_, 0);
    const bool captureAtHand = g_.PlyBase[1] > g_.PlyBase[0];
    const int reason = g_.DrawReason;
    const bool drawn = (o_.KingVersusKing == 1 && reason == 3 && !captureAtHand) ||
                       (o_.ChessDrawRules == 1 && (reason == 1 || reason == 2)) ||
                       (g_.RuleSet.ThreeKings == 1 && reason == 4) || (g_.RuleSet.TwoKings == 1 && reason == 5);
    if (!drawn) return;
    ResultText(g_, 2);
    ui_.Pause(0.5);
    g_.GameOver = 1;
    ui_.GameEnded(0.5);
    ReportDraw(g_, ui_, 0);
  }

  // End step 11: an opponent left without a move has lost, or under
  // giveaway rules has won.
  void EndIfOpponentBlocked() {
    GenerateLegalMoves(g_);
    if (g_.GameOver != 0 || g_.PlyBase[1] > g_.PlyBase[0]) return;
    ResultText(g_, 0);
    g_.GameOver = 1;
    ui_.Pause(0.5);
    const bool opponentWins = g_.RuleSet.AntiMode == 1 && o_.PlayMode != 2;
    const std::string text = opponentWins ? o_.PlayerName + " wins!" : "Computer wins!";
    ui_.GameEnded(opponentWins ? 1.0 : 0.0);
    ui_.SetStatus(text);
    ui_.ShowMessage("Congratulations", text);
  }

  Game& g_;
  DriverUi& ui_;
  const Options& o_;
  TurnReport report_;
  TurnDecision decision_;

  long turnStart_ = 0;
  int depthMode_ = 0;
  std::string strength_, calculation_;

  int rootCount_ = 0;
  int depthLimit_ = 1;
  bool fromBook_ = false;
  double clockStart_ = 0;
  std::vector<RootScore> rootInfo_;
  std::vector<MoveRecord> roots_;  // best first once the thinking is over
  int bestScore_ = NoScoreYet;
  std::string bestLine_, head_;
};

}  // namespace

void DeclareDraw(Game& g, DriverUi& ui) {
  ResultText(g, 2);
  g.GameOver = 1;
  ui.SetStatus("It's a draw!");
  ui.GameEnded(0.5);
  ui.ShowMessage("Congratulations", g.Settings.PlayerName + "It's a draw!");
}

int NoiseRangeFor(int strengthHandicap) {
  int range = 70 * strengthHandicap - 70;
  if (range == 0) range = 5;
  if (range < 0) range = 0;
  return range;
}

CarriedEngineState CarriedEngineState::From(const Game& g) {
  CarriedEngineState c;
  c.LazyMargin = g.LazyMargin;
  c.NoiseRange = g.NoiseRange;
  c.BackRankActive = g.BackRankActive;
  c.ManThresholdWhite = g.ManThresholdWhite;
  c.ManThresholdBlack = g.ManThresholdBlack;
  c.HorizonLimit = g.HorizonLimit;
  c.SearchCancelled = g.SearchCancelled;
  c.RuleLossPending = g.RuleLossPending;
  c.NodeCount = g.NodeCount;
  c.Random = g.Random;
  c.PVTable = g.PVTable;
  c.StoredReplyFrom = g.StoredReplyFrom;
  c.StoredReplyTo = g.StoredReplyTo;
  return c;
}

void CarriedEngineState::GiveTo(Game& g) const {
  g.LazyMargin = LazyMargin;
  g.NoiseRange = NoiseRange;
  g.BackRankActive = BackRankActive;
  g.ManThresholdWhite = ManThresholdWhite;
  g.ManThresholdBlack = ManThresholdBlack;
  g.HorizonLimit = HorizonLimit;
  g.SearchCancelled = SearchCancelled;
  g.RuleLossPending = RuleLossPending;
  g.NodeCount = NodeCount;
  g.Random = Random;
  g.PVTable = PVTable;
  g.StoredReplyFrom = StoredReplyFrom;
  g.StoredReplyTo = StoredReplyTo;
}

TurnDecision ThinkComputerMove(Game& g, DriverUi& ui) { return Turn(g, ui).Think(); }

TurnReport PlayComputerMove(Game& g, const TurnDecision& decision, DriverUi& ui) {
  return Turn(g, ui).Play(decision);
}

TurnReport ComputerMove(Game& g, DriverUi& ui) { return PlayComputerMove(g, ThinkComputerMove(g, ui), ui); }

}  // namespace qv

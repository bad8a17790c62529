#include "engine/driver.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/gameend.h"
#include "core/makemove.h"
#include "core/movegen.h"
#include "core/text.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "engine/timetext.h"
#include "files/book.h"

namespace qv {

namespace {

double Clock() {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

long WholeSeconds() { return static_cast<long>(std::floor(Clock())); }

int PVLength(const Game& g) {
  int k = 1;
  while (k < PlyRows && g.PVTable[1][k].From != 0) ++k;
  return k;
}

std::string SquareText(const Game& g, int cell) { return SquareNotation(cell, 1, g.Settings.NotationKind); }

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
  return g.WinAnnounced == 0 && bestScore < 30000 && g.MaterialByPly[g.Ply] == 0;
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
    const int score = Evaluate(g_, -32000, 32000, g_.SideToMove);
    const bool ownLoss = g_.RuleLossPending == 1 || score == 32000;
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

  // Start steps 10 and 12: the depth, the pause, then the clock; the root
  // moves kept apart from the stack the search overwrites.
  void PrepareSearch() {
    depthLimit_ = depthMode_ == 1 ? std::max(1, o_.DepthLimit) : 20;
    if (rootCount_ == 1) depthLimit_ = 1;
    ui_.SetProgress(0, ProgressMaximum());
    ui_.Pause(0.5);
    clockStart_ = Clock();
    // Step 11, the book: a known opening move is played after one iteration.
    fromBook_ = PlayBookMove();
    if (fromBook_) depthLimit_ = 1;

    rootInfo_.resize(static_cast<std::size_t>(rootCount_));
    for (int i = 0; i < rootCount_; ++i)
      rootInfo_[i] = RootScore{g_.MoveStack[i].FromSquare, g_.MoveStack[i].ToSquare, -32767};
    roots_.assign(g_.MoveStack.begin(), g_.MoveStack.begin() + rootCount_);
    member_ = SearchMemberFor(g_);
    searchRootCount_ = g_.HalfMoveCount;
    for (auto& row : g_.PVTable) row.Fill(PVEntry{});
    for (auto& row : g_.KillerTable) row.Fill(MoveKey{});
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

  int ProgressMaximum() const { return depthMode_ == 1 ? rootCount_ * depthLimit_ : o_.TimeLimit; }

  // The iterations, d from 1 to the depth limit, each over all root moves.
  void Deepen() {
    int d = 1;
    for (; d <= depthLimit_; ++d) {
      const long iterationStart = WholeSeconds();
      if (depthMode_ == 1) lazyRaiseArmed_ = lazyRaiseArmed_ || d == 1;
      else lazyRaiseArmed_ = d > 2;
      if (d == 1) {
        alpha_ = -32000;
        beta_ = 32000;
      } else {
        beta_ = alpha_ + 100;
        alpha_ = alpha_ - 100;
      }
      g_.HorizonLimit = d + std::clamp(o_.Plys, 1, 6);
      for (int i = 0; i < rootCount_; ++i)
        if (!SearchRootMove(i, d)) break;
      if (depthMode_ == 0 && elapsed_ >= o_.TimeLimit) StopUnlessScoreFell();
      if (g_.SearchCancelled == 1) break;
      prevIterationBest_ = bestScore_;
      decision_.iterationLog += std::string(15, ' ') + shortLine_ + "   M: " + bestLine_ +
                                "  T: " + TimeString(WholeSeconds() - iterationStart) + "\r\n";
    }
    decision_.depth = std::min(d, depthLimit_);
  }

  // Root move i at iteration d: the first against the aspiration window,
  // the others first with a null window. False when the iteration stops.
  bool SearchRootMove(int i, int d) {
    researched_ = false;
    g_.PVTable[0][0].From = 0;
    const std::string move = MoveLabel(g_, roots_[static_cast<std::size_t>(i)]);
    if (o_.ShowCalculation == 1) ui_.SetStatus("Thinking... (" + std::to_string(d) + ")  " + move);
    MakeRoot(i);
    int score = Dispatch(alpha_, beta_, d);
    if (i == 0) score = ShortLineResearch(score, alpha_, beta_, d, move);
    UndoRoot();
    if (Cancelled()) return false;
    bool newBest = false;
    if (i > 0) {
      if (score > alpha_) {
        const int old = alpha_;
        alpha_ = score;
        beta_ = 32000;
        MakeRoot(i);
        score = Dispatch(alpha_, beta_, d);
        if (score > old) score = ShortLineResearch(score, alpha_, beta_, d, move);
        UndoRoot();
        if (Cancelled()) return false;
        if (score > old) {
          alpha_ = score;
          beta_ = score + 1;
          newBest = true;
        } else {
          alpha_ = old;
        }
      }
    } else {
      if (score < alpha_ || score >= beta_) {
        if (score < alpha_) {
          alpha_ = -32000;
          beta_ = score;
        } else {
          alpha_ = score;
          beta_ = 32000;
        }
        MakeRoot(0);
        score = Dispatch(alpha_, beta_, d);
        score = ShortLineResearch(score, alpha_, beta_, d, move);
        UndoRoot();
        if (Cancelled()) return false;
      }
      alpha_ = score;
      beta_ = score + 1;
      newBest = true;
    }
    if (newBest) TakeNewBest(i, d, score, move);
    ClockStep();
    int stored = newBest ? alpha_ : score;
    if (researched_) stored = keptScore_;
    rootInfo_[newBest ? 0 : static_cast<std::size_t>(i)].Score = stored;
    return g_.SearchCancelled != 1;
  }

  // A Cancel by the player drops the move being searched, unless the game is decided.
  bool Cancelled() const { return g_.SearchCancelled == 1 && std::abs(alpha_) < 30001; }

  // Makes root move i, copied back onto the stack first, and notes whether
  // it repeats a position of the game or runs out the move limit.
  void MakeRoot(int i) {
    g_.MoveStack[0] = roots_[static_cast<std::size_t>(i)];
    g_.PlyBase[1] = 1;
    MakeSearchMove(g_, 0);
    const int upto = searchRootCount_ - 1;
    CountRepetitions(g_, upto);
    if (g_.LineDrawn == 0) {
      CheckMoveLimit(g_, upto);
      g_.LineDrawn = g_.LimitReached;
    }
  }

  // The root move's draw mark lasts through all its searches, the short-line
  // re-search included, and ends with it.
  void UndoRoot() {
    UndoSearchMove(g_, 0);
    g_.LineDrawn = 0;
  }

  // The made root move searched at iteration depth d; a move that repeats a
  // position or runs out the move limit scores as a draw.
  int Dispatch(int alpha, int beta, int d) {
    const int score = -SearchNode(g_, member_, -beta, -alpha, d - 1);
    return g_.LineDrawn >= 1 ? 0 : score;
  }

  // When the main line ended too soon, the first root move is searched one ply deeper.
  int ShortLineResearch(int score, int alpha, int beta, int d, const std::string& move) {
    if (PVLength(g_) >= 3 || d < 3) return score;
    ui_.SetStatus("Thinking... (" + std::to_string(d) + "/" + std::to_string(d + 1) + ")  " + move);
    const bool fullWindow = member_ == SearchMember::Fast1 || member_ == SearchMember::Anti;
    const int a = fullWindow ? -32000 : alpha, b = fullWindow ? 32000 : beta;
    keptScore_ = score;
    score = -SearchNode(g_, member_, -b, -a, d);
    researched_ = true;
    if (g_.MaterialByPly[g_.Ply] != 0 && lazyRaiseArmed_) g_.LazyMargin += 10;
    return score;
  }

  // Root move i is the new best: its line and texts; it goes to the front.
  void TakeNewBest(int i, int d, int score, const std::string& move) {
    bestScore_ = score;
    // The main line: this root move, then what the search found below it.
    g_.MoveStack[0] = roots_[static_cast<std::size_t>(i)];
    UpdatePV(g_, 0);
    bestLine_ = fromBook_ ? "Book" : MainLineText(g_);
    if (o_.ShowCalculation == 1) {
      head_ = "Depth:" + Str(d) + "   Best: " + move + "   Score:" + Str(score);
      shortLine_ = "D:" + Str(d) + "   B: " + move + "   S:" + Str(score);
      ui_.SetCalculation(fromBook_ ? head_ + "\r\nBook" : head_);
    }
    if (i > 0) {
      std::rotate(roots_.begin(), roots_.begin() + i, roots_.begin() + i + 1);
      std::rotate(rootInfo_.begin(), rootInfo_.begin() + i, rootInfo_.begin() + i + 1);
    }
  }

  // After each root move: the progress, and in time mode the time limit.
  void ClockStep() {
    if (depthMode_ == 1) {
      ui_.SetProgress(++progress_, ProgressMaximum());
      return;
    }
    elapsed_ = std::min<double>(std::floor(Clock() - clockStart_), o_.TimeLimit);
    ui_.SetProgress(static_cast<int>(elapsed_), o_.TimeLimit);
    if (elapsed_ >= o_.TimeLimit) StopUnlessScoreFell();
  }

  // Time is up, but a score that fell since the last iteration gets more.
  void StopUnlessScoreFell() {
    if (bestScore_ < prevIterationBest_ - 50) return;
    g_.StopRequest = 2;
    g_.SearchCancelled = 1;
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
    // Highest score first, by exchanges over all pairs: equal scores keep no
    // particular order.
    for (std::size_t i = 0; i < rootInfo_.size(); ++i)
      for (std::size_t j = i + 1; j < rootInfo_.size(); ++j)
        if (rootInfo_[j].Score > rootInfo_[i].Score) std::swap(rootInfo_[i], rootInfo_[j]);
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
    const int score = Evaluate(g_, -32000, 32000, -g_.SideToMove);
    bool computerWins = false, blockedDraw = false;
    if (g_.NoMoveDraw == 1) {
      g_.NoMoveDraw = 0;
      blockedDraw = true;
    } else if (bestScore_ < -31979) {
      const int n = (bestScore_ + 32000 + (g_.RuleSet.AntiMode == 1 ? 1 : 0)) / 2;
      ui_.SetStatus(CountdownText("Computer is losing in", n));
      g_.WinAnnounced = 1;
    } else if (bestScore_ >= 31980 && score < 31981) {
      const int n = (32000 - bestScore_ + 1) / 2;
      ui_.SetStatus(CountdownText("Computer is winning in", n));
      g_.WinAnnounced = 1;
    } else if (bestScore_ >= 31980) {
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
  std::vector<MoveRecord> roots_;
  SearchMember member_ = SearchMember::General;
  int searchRootCount_ = 0;

  int alpha_ = -32000, beta_ = 32000;
  int bestScore_ = -32001, prevIterationBest_ = -32001;
  int progress_ = 0;
  double elapsed_ = 0;
  bool lazyRaiseArmed_ = false;
  bool researched_ = false;
  int keptScore_ = 0;  // the score before the last short-line re-search
  std::string bestLine_, head_, shortLine_;
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

std::string MainLineText(const Game& g) {
  std::string line;
  for (int k = 0; k < PlyRows && g.PVTable[0][k].From != 0; ++k) {
    const PVEntry& e = g.PVTable[0][k];
    if (!line.empty()) line += ' ';
    line += SquareText(g, e.From) + (e.Kind % 10 == 1 ? g.CaptureChar : "-") + SquareText(g, e.To);
    if (e.Kind >= 10) line += 'K';
  }
  return line;
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
}

TurnDecision ThinkComputerMove(Game& g, DriverUi& ui) { return Turn(g, ui).Think(); }

TurnReport PlayComputerMove(Game& g, const TurnDecision& decision, DriverUi& ui) {
  return Turn(g, ui).Play(decision);
}

TurnReport ComputerMove(Game& g, DriverUi& ui) { return PlayComputerMove(g, ThinkComputerMove(g, ui), ui); }

}  // namespace qv

#include "interaction/commands.h"

#include <utility>

#include "core/makemove.h"
#include "core/movegen.h"
#include "core/newgame.h"
#include "core/text.h"
#include "interaction/analysis_commands.h"
#include "files/settings.h"
#include "interaction/boardview.h"
#include "interaction/engine_calls.h"
#include "interaction/filecommands.h"
#include "interaction/help_windows.h"
#include "interaction/mouse_entry.h"
#include "interaction/movelist.h"
#include "interaction/pdn_commands.h"
#include "interaction/optionsform.h"
#include "interaction/skins.h"
#include "interaction/navigation.h"
#include "interaction/newvariant.h"
#include "interaction/record.h"
#include "interaction/user_commands.h"

namespace qv {

void EnableCommand(Session& s, Command c, int enabled) { s.screen[c].Enabled = enabled; }

void CheckCommand(Session& s, Command c, int checked) { s.screen[c].Checked = checked; }

void CheckNotation(Session& s) {
  const int kind = s.game.Settings.NotationKind;
  CheckCommand(s, Command::NotationAlgebraic, kind == 0);
  CheckCommand(s, Command::NotationNumeric, kind == 1);
  CheckCommand(s, Command::NotationNone, kind == 2);
}

bool CommandAvailable(const Screen& sc, Command c) {
  if (sc[c].Enabled == 0) return false;
  return sc.Busy == 0 || c == Command::Cancel || c == Command::Exit;
}

void RunCommand(Session& s, Command c) {
  if (!CommandAvailable(s.screen, c)) return;
  switch (c) {
    case Command::NewGame: return NewGameCommand(s, 0);
    case Command::NewVariant: return NewGameCommand(s, 1);
    case Command::Open: return OpenCommand(s);
    case Command::Save: return SaveCommand(s);
    case Command::Compute: return StartComputerMove(s);
    case Command::Cancel: return CancelCommand(s);
    case Command::First: return FirstCommand(s);
    case Command::Back: return BackCommand(s);
    case Command::Forward: return ForwardCommand(s);
    case Command::Last: return LastCommand(s);
    case Command::OfferDraw: return DrawOffer(s);
    case Command::Resign: return ResignGame(s);
    case Command::PlayerComputer: return SetPlayerComputer(s);
    case Command::PlayerPlayer: return SetPlayerPlayer(s);
    case Command::ComputerComputer: return RunComputerComputer(s);
    case Command::TurnBoard: return TurnBoardCommand(s);
    case Command::NotationNone: return SetNotation(s, 2);
    case Command::NotationAlgebraic: return SetNotation(s, 0);
    case Command::NotationNumeric: return SetNotation(s, 1);
    case Command::Calculation: return ToggleCalculation(s);
    case Command::UseSound: return ToggleUseSound(s);
    case Command::Analyze: return AnalyzeCommand(s);
    case Command::Hint: return HintCommand(s);
    case Command::CreateDiagram: return CreateDiagramCommand(s);
    case Command::Rating: return RatingCommand(s);
    case Command::QuickRules: return ShowRules(s, s.game.QuickHelpLink);
    case Command::Rules: return ShowRules(s, s.game.HelpLink);
    case Command::About: return ShowAbout(s);
    case Command::Options: return OpenOptions(s);
    default: return;  // not a menu command, or not built yet
  }
}

void DisableAfterGameEnd(Session& s) {
  for (Command c : {Command::Compute, Command::ComputerComputer, Command::Analyze, Command::List2,
                    Command::OfferDraw, Command::Hint, Command::Resign})
    EnableCommand(s, c, 0);
  s.window.Changed(Part::Commands);
}

namespace {

void CheckPlayMode(Session& s) {
  const int mode = s.game.Settings.PlayMode;
  CheckCommand(s, Command::PlayerComputer, mode == 0);
  CheckCommand(s, Command::PlayerPlayer, mode == 1);
  CheckCommand(s, Command::ComputerComputer, mode == 2);
}

}  // namespace

std::string StrengthCaption(const Options& o) {
  std::string text = "Strength:" + Str(10 - o.StrengthHandicap);
  if (o.DepthMode == 1) return text + "   Depth:" + Str(o.DepthLimit) + " ply";
  return text + "   Time:" + Str(o.TimeLimit) + " sec";
}

namespace {

// The human takes the side to move, the computer the other.
void NamePlayersForPlayerComputer(Game& g) {
  const bool firstToMove = (g.RuleSet.BlackStarts == 1) == (g.SideToMove == -1);
  g.FirstPlayerName = firstToMove ? g.Settings.PlayerName : "Computer";
  g.SecondPlayerName = firstToMove ? "Computer" : g.Settings.PlayerName;
}

// While the computer thinks only Cancel answers.
constexpr Command ThinkingDisables[] = {
    Command::PlayerPlayer, Command::PlayerComputer, Command::ComputerComputer, Command::Back,    Command::First,
    Command::Compute,      Command::Analyze,        Command::NewGame,          Command::Open,    Command::Save,
    Command::NewVariant,   Command::Options,        Command::OfferDraw,        Command::Hint,    Command::Resign,
    Command::Forward,      Command::Last,           Command::Text2,            Command::PlyValueTable};

void BeginThinking(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (g.Settings.PlayMode != 2) {
    sc.List2.clear();
    sc.List3.clear();
    for (Command c : {Command::List1, Command::List2, Command::List3}) EnableCommand(s, c, 0);
  }
  // The movable-piece boxes come off the board while the computer thinks.
  if (g.Settings.ShowAvailableMoves == 1) {
    RefreshBoard(s, 0);
    sc.Carry.HighlightDrawn = 0;
  }
  sc.StatusText = "Thinking...";
  if (g.Settings.ShowCalculation == 1) sc.Label9.clear();
  for (Command c : ThinkingDisables) EnableCommand(s, c, 0);
  EnableCommand(s, Command::Cancel, 1);
  sc.ProgressValue = 0;
  s.window.Changed(Part::All);
}

void EndThinking(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  for (Command c : ThinkingDisables) EnableCommand(s, c, 1);
  EnableCommand(s, Command::Cancel, 0);
  EnableCommand(s, Command::List1, 1);
  EnableCommand(s, Command::BoardMenu, 1);
  const bool over = g.GameOver == 1;
  for (Command c : {Command::Compute, Command::ComputerComputer, Command::Analyze}) EnableCommand(s, c, !over);
  EnableCommand(s, Command::Hint, g.Settings.PlayMode != 2);
  EnableCommand(s, Command::List2, g.Settings.PlayMode != 2 && !over);
  EnableCommand(s, Command::OfferDraw, g.Settings.PlayMode == 0 && !over);
  EnableCommand(s, Command::Resign, g.Settings.PlayMode == 0 && !over);
  if (g.HalfMoveCount == 0) {
    EnableCommand(s, Command::Back, 0);
    EnableCommand(s, Command::First, 0);
  }
  if (g.Record.GameMoves[g.HalfMoveCount + 1].FromSquare == 0) {
    EnableCommand(s, Command::Forward, 0);
    EnableCommand(s, Command::Last, 0);
  }
  if (sc.StatusText == "Thinking...") sc.StatusText.clear();
  g.FocusSquare = 0;
}

void RemoveMenIfAsked(Session& s) {
  Game& g = s.game;
  if (g.RuleSet.RemoveMen == 1) RemoveMenAtRandom(g);
  if (g.RuleSet.RemoveMen == 1) {
    AdoptBoardPosition(g);
    ShowNewGame(s);
    RefreshBoard(s, 0);
  }
}

// The computer's turn on the worker; Computer-Computer play starts the next
// one from the step that played the last, until the game ends or Cancel is
// pressed.
void StartTurnJob(Session& s, TurnReason reason, double wait) {
  s.window.StartEngineJob(s.game, ComputerTurnJob(wait, s.screen.ComputerPause > 0, [reason](Session& s, bool moved) {
                            const bool goOn = reason == TurnReason::ComputerComputer && moved &&
                                              s.game.GameOver == 0 && s.screen[Command::Cancel].Enabled == 1 &&
                                              s.game.HalfMoveCount < RecordSize - 2;
                            if (goOn) StartTurnJob(s, reason, s.screen.ComputerPause);
                            else ComputerTurnFinished(s, reason);
                          }));
}

}  // namespace

void LockForSearch(Session& s) { BeginThinking(s); }
void UnlockAfterSearch(Session& s) { EndThinking(s); }

void BeginComputerTurn(Session& s, TurnReason reason) {
  BeginThinking(s);
  StartTurnJob(s, reason, 0.0);
}

void ShowNewGame(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  sc.StatusText = g.SideToMove == 1 ? "White moves" : "Black moves";
  sc.Label9 = "no calculation";
  sc.Text1.clear();
  sc.Title = "Quorvanis 1.58";
  for (Command c : {Command::Analyze, Command::Compute, Command::ComputerComputer, Command::List2})
    EnableCommand(s, c, 1);
  for (Command c : {Command::Back, Command::First, Command::Forward, Command::Last}) EnableCommand(s, c, 0);
  sc.List1.clear();
  sc.List1Selected = -1;
  if (g.Settings.PlayMode == 0) {
    EnableCommand(s, Command::OfferDraw, 1);
    EnableCommand(s, Command::Resign, 1);
  }
  if (g.Settings.PlayMode != 2) EnableCommand(s, Command::Hint, 1);
  RefreshMoveChoices(s);
  s.window.Changed(Part::All);
}

void StartUp(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (s.files) OpenUserFiles(*s.files, g);
  g.CustomPosition = 0;
  g.TouchedCell = 0;
  g.LazyMargin = 150;
  BuildDirTable(g);
  ReadStartSettings(s);
  SettleStoredModes(g.Settings);
  CheckPlayMode(s);
  CheckNotation(s);
  CheckCommand(s, Command::Calculation, g.Settings.ShowCalculation);
  CheckCommand(s, Command::UseSound, g.Settings.UseSound);
  SelectSkin(s, g.Settings.SkinName);
  NewGame(g);
  ShowNewGame(s);
  EnableCommand(s, Command::Cancel, 0);
  EnableCommand(s, Command::List3, 0);
  sc.ProductText = "Quorvanis 1.58";
  sc.StatusText = g.SideToMove == 1 ? "White moves" : "Black moves";
  RefreshBoard(s, 0);
  ChooseOpeningIfAsked(s);
  sc.StrengthText = StrengthCaption(g.Settings);
  RemoveMenIfAsked(s);
  OpenStartGame(s);
  s.window.Changed(Part::All);
}

void NewGameCommand(Session& s, int askRules) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (g.GameInProgress != 0 && !s.window.AskYesNo("Quit current game?", "Confirmation")) return;
  ResetCarry(s);
  if (askRules == 1) {
    // The dialog chooses the rules; the men it asks to remove are gone already.
    NewVariantCommand(g, [&s](Game&) { return s.window.ShowVariantsDialog(); });
    ShowNewGame(s);
    CheckNotation(s);
  } else {
    g.CustomPosition = 0;
    g.TouchedCell = 0;
    NewGame(g);
    ShowNewGame(s);
  }
  MarkModified(g);
  g.SideToMove = g.RuleSet.BlackStarts == 1 ? -1 : 1;
  sc.StatusText = g.SideToMove == 1 ? "White moves" : "Black moves";
  g.TotalMaterialStart = g.StartMaterial * 100;
  g.ActivityByPly[0] = g.TotalMaterialStart;
  g.Record.ActivitySaved[0] = g.TotalMaterialStart;
  RefreshMoveChoices(s);
  sc.List3.clear();
  ChooseOpeningIfAsked(s);
  RefreshBoard(s, 0);
  if (askRules == 0) RemoveMenIfAsked(s);
  DoMovesIfAsked(s);
  if (g.Settings.UseSound == 1) s.window.PlaySound(g.DataFolder / "sounds" / "roll.wav");
  s.window.Changed(Part::All);
}

void StartComputerMove(Session& s) {
  Game& g = s.game;
  if (g.GameOver == 1 || s.screen.Busy == 1) return;
  s.screen.StatusText.clear();
  s.screen.Busy = 1;
  EnableCommand(s, Command::BoardMenu, 0);
  SwapPlayerNames(g);
  RefreshPlayers(s);
  BeginComputerTurn(s, TurnReason::Compute);
}

void ComputerTurnFinished(Session& s, TurnReason reason) {
  Game& g = s.game;
  Screen& sc = s.screen;
  EndThinking(s);
  if (reason == TurnReason::ComputerComputer) {
    EnableCommand(s, Command::List2, g.GameOver == 0);
    EnableCommand(s, Command::List3, 1);
    g.Settings.PlayMode = 0;
    CheckPlayMode(s);
    NamePlayersForPlayerComputer(g);
    EnableCommand(s, Command::OfferDraw, g.GameOver == 0);
    EnableCommand(s, Command::Resign, g.GameOver == 0);
    EnableCommand(s, Command::Hint, 1);
  }
  sc.Busy = 0;
  RefreshBoard(s, 0);
  if (reason == TurnReason::Reply || reason == TurnReason::ReplyDirect) FinishHumanMove(s);
  else RefreshMoveChoices(s);
  if (g.GameOver == 0 && g.Settings.ShowAvailableMoves == 1) MarkMovablePieces(s);
  if (g.GameOver == 1) DisableAfterGameEnd(s);
  s.window.Changed(Part::All);
}

void CancelCommand(Session& s) {
  s.window.StopEngineJob();
  EnableCommand(s, Command::Cancel, 0);
  s.window.Changed(Part::Commands);
}

void FirstCommand(Session& s) {
  if (s.screen.Busy == 1 || s.game.HalfMoveCount == 0) return;
  MoveNavigator(s, s.game.HalfMoveCount, 0, 0);
}

void BackCommand(Session& s) {
  if (s.screen.Busy == 1 || s.game.HalfMoveCount == 0) return;
  MoveNavigator(s, 1, 0, 0);
}

void ForwardCommand(Session& s) {
  const Game& g = s.game;
  if (s.screen.Busy == 1 || g.Record.GameMoves[g.HalfMoveCount + 1].FromSquare == 0) return;
  StepForward(s);
}

void LastCommand(Session& s) {
  if (s.screen.Busy == 1) return;
  const int count = static_cast<int>(s.screen.List1.size()) - s.game.HalfMoveCount;
  if (count <= 0) return;
  MoveNavigator(s, -count, 0, 0);
}

void DrawOffer(Session& s) {
  Game& g = s.game;
  if (g.GameInProgress != 1 || LastSearchValue(g) >= 1) {
    s.window.ShowMessage("Offer rejected... Play on!", "Draw Offer", BoxIcon::Exclamation);
    return;
  }
  const std::string rating = RateGameEnd(s, 0.5);
  s.window.ShowMessage("OK... It's a draw!" + rating, "Congratulations", BoxIcon::None);
  EndGameByAgreement(s);
  g.GameOver = 1;
  s.screen.StatusText = "It's a draw!";
  DisableAfterGameEnd(s);
  s.window.Changed(Part::All);
}

void ResignGame(Session& s) {
  Game& g = s.game;
  const std::string rating = RateGameEnd(s, 0.0);
  s.window.ShowMessage("OK... Computer wins!" + rating, "Congratulations", BoxIcon::None);
  g.GameOver = 1;
  EndGameByResignation(s);
  s.screen.StatusText = "Computer wins!";
  DisableAfterGameEnd(s);
  s.window.Changed(Part::All);
}

void SetPlayerComputer(Session& s) {
  Game& g = s.game;
  g.Settings.PlayMode = 0;
  for (Command c : {Command::OfferDraw, Command::Hint, Command::Resign}) EnableCommand(s, c, 1);
  CheckPlayMode(s);
  NamePlayersForPlayerComputer(g);
  RefreshPlayers(s);
  s.screen.StatusText.clear();
  s.window.Changed(Part::All);
}

void SetPlayerPlayer(Session& s) {
  Game& g = s.game;
  g.Settings.PlayMode = 1;
  EnableCommand(s, Command::OfferDraw, 0);
  EnableCommand(s, Command::Resign, 0);
  CheckPlayMode(s);
  s.screen.StatusText = "Player-Player mode";
  g.FirstPlayerName = g.Settings.PlayerName;
  g.SecondPlayerName = g.Settings.PlayerName;
  RefreshPlayers(s);
  s.window.Changed(Part::All);
}

void RunComputerComputer(Session& s) {
  Game& g = s.game;
  Screen& sc = s.screen;
  if (sc.Busy == 1) return;
  ClearHintState(s);
  g.Settings.PlayMode = 2;
  for (Command c : {Command::OfferDraw, Command::Hint, Command::Resign}) EnableCommand(s, c, 0);
  CheckPlayMode(s);
  sc.StatusText.clear();
  g.FirstPlayerName = "Computer";
  g.SecondPlayerName = "Computer";
  RefreshPlayers(s);
  sc.List2.clear();
  sc.List3.clear();
  EnableCommand(s, Command::List2, 0);
  EnableCommand(s, Command::List3, 0);
  sc.Busy = 1;
  BeginComputerTurn(s, TurnReason::ComputerComputer);
}

void TurnBoardCommand(Session& s) {
  if (s.screen.Busy == 1) return;
  ResetCarry(s);
  s.game.Settings.BoardTurned ^= 1;
  RefreshBoard(s, 0);
}

void SetNotation(Session& s, int kind) {
  Game& g = s.game;
  if (kind == 1 && g.RuleSet.PiecesOnBlack == 2) return;
  const int old = g.Settings.NotationKind;
  g.Settings.NotationKind = kind;
  if (old != kind && old < 2 && kind < 2) RewriteMoveList(s, old);
  RefreshMoveChoices(s);
  CheckNotation(s);
  RefreshBoard(s, 0);
  s.window.Changed(Part::All);
}

void ToggleCalculation(Session& s) {
  Options& o = s.game.Settings;
  o.ShowCalculation = o.ShowCalculation == 1 ? 0 : 1;
  CheckCommand(s, Command::Calculation, o.ShowCalculation);
  if (o.ShowCalculation == 0) s.screen.Label9 = "no calculation";
  s.window.Changed(Part::Commands | Part::Texts);
}

void ToggleUseSound(Session& s) {
  Options& o = s.game.Settings;
  o.UseSound = o.UseSound == 1 ? 0 : 1;
  CheckCommand(s, Command::UseSound, o.UseSound);
  s.window.Changed(Part::Commands);
}

void PictureSetCommand(Session& s, const std::string& name) {
  if (CommandAvailable(s.screen, Command::BoardMenu)) SelectSkin(s, name);
}

// The way out: the autosave and the settings, then the rating and the log.
void UnloadMainWindow(Session& s) {
  SaveOnExit(s);
  if (s.files) CloseUserFiles(*s.files, s.game);
}

}  // namespace qv

#pragma once
// The main window: menu bar, toolbar, the board, the lists and texts beside
// it, the status bar and progress bar. It is the window layer of the
// interaction code and runs the computer's turns on a worker thread.
#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>

#include "interaction/engine_calls.h"
#include "interaction/session.h"

class QAction;
class QKeySequence;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTimer;
class QWidget;

namespace qv::gui {

class BoardWidget;
class PlyValueWindow;
class SoundPlayer;

class MainWindow : public QMainWindow, public WindowLayer {
  Q_OBJECT
 public:
  explicit MainWindow(std::unique_ptr<Game> game, QWidget* parent = nullptr);
  ~MainWindow() override;

  Game& game() { return *game_; }
  Screen& screen() { return screen_; }
  Session& session() { return session_; }
  BoardWidget* board() { return board_; }
  QAction* action(Command c) { return actions_.count(c) ? actions_[c] : nullptr; }
  bool ComputerThinking() const { return worker_.Busy(); }

  // Boxes and questions go to `hook` instead of modal dialogs (questions are
  // answered Yes): for tests that drive the window.
  void DivertMessages(std::function<void(const std::string& text, const std::string& caption)> hook) {
    messageHook_ = std::move(hook);
  }

  // WindowLayer
  void ShowMessage(const std::string& text, const std::string& caption, BoxIcon icon) override;
  bool AskYesNo(const std::string& text, const std::string& caption) override;
  void PlaySound(const std::filesystem::path& file) override;
  void SetPointer(ImageRole icon) override;
  PopupItem RunSetupPopup(const PopupChecks& checks) override;
  void Changed(unsigned parts) override;
  void StartEngineJob(const Game& g, EngineJob job) override;
  void StopEngineJob() override;
  bool ShowVariantsDialog() override;
  bool ShowPdnChooser(PdnChooserForm& form) override;
  void ShowDetailsDialog(PdnTags& tags) override;
  // "Show Ply Value Table": frmPV, searching the table of the position.
  void ShowPlyValueTable();
  PlyValueWindow* plyValueWindow() { return plyValue_; }
  std::filesystem::path ChooseGameFile(const std::string& title, const std::vector<std::string>& filters,
                                       bool save) override;
  void OpenLink(const std::string& link) override;
  void ShowRulesWindow() override;
  void ShowAboutWindow() override;
  bool LoadSkinPicture(ImageRole role, const std::filesystem::path& file) override;
  void ShowOptionsDialog() override;

  // A fatal error: stops the worker, shows the program's words in the box,
  // then closes the window by the normal way out and ends the program.
  void EndAfterFatal(const std::string& text);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  void BuildHelpMenu();
  void AddDetailsCommand(QMenu* gameMenu);  // Details...: the game's PDN tags
  void BuildPanels();  // mainwindow_panels.cpp
  QWidget* BuildPlayersBox();
  QWidget* BuildExtraPieces();
  QWidget* BuildVariantCaption();
  QLayout* BuildLists();
  QLayout* BuildMoveEntry();
  QWidget* BuildCalculationBox();
  void BuildStatusBar();
  void ConnectPanels();
  QAction* AddCommand(QMenu* menu, Command c, const QString& text, const QKeySequence& keys, bool checkable = false);
  void Sync();
  void SyncList(QListWidget* list, const std::vector<std::string>& rows, int enabled);
  void JobFinished();
  void ShowThinking();

  std::unique_ptr<Game> game_;
  Screen screen_;
  UserFiles files_;
  Session session_;
  SoundPlayer* sound_ = nullptr;
  std::map<Command, QAction*> actions_;
  QMenu* boardMenu_ = nullptr;
  std::function<void(const std::string&, const std::string&)> messageHook_;

  BoardWidget* board_ = nullptr;
  QLabel* label_[15] = {};  // Label1 .. Label14 as the board view names them (Label7 is a status panel)
  QWidget* extraPieces_ = nullptr;
  QListWidget* list1_ = nullptr;
  QListWidget* list2_ = nullptr;
  QListWidget* list3_ = nullptr;
  QPlainTextEdit* text1_ = nullptr;
  QLineEdit* text2_ = nullptr;
  QPushButton* moveButton_ = nullptr;
  QLabel* statusPanel_ = nullptr;
  QLabel* strengthPanel_ = nullptr;
  QLabel* openingPanel_ = nullptr;  // the opening the game is in
  QLabel* productPanel_ = nullptr;
  QProgressBar* progress_ = nullptr;

  EngineWorker worker_;
  QTimer* progressTimer_ = nullptr;
  PlyValueWindow* plyValue_ = nullptr;
  bool closePending_ = false;
  bool ending_ = false;  // a fatal error is closing the window
  bool syncing_ = false;
};

}  // namespace qv::gui

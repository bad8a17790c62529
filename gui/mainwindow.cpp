#include "gui/mainwindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/fatal.h"
#include "gui/application.h"
#include "gui/boardwidget.h"
#include "gui/gamefiledialog.h"
#include "gui/helpwindows.h"
#include "gui/linklabel.h"
#include "gui/optionsdialog.h"
#include "gui/pictureset.h"
#include "gui/plyvaluewindow.h"
#include "gui/sound.h"
#include "gui/toolicons.h"
#include "gui/variantsdialog.h"
#include "interaction/analysis_commands.h"
#include "interaction/commands.h"
#include "interaction/filecommands.h"
#include "interaction/engine_calls.h"
#include "interaction/movelist.h"
#include "interaction/optionsform.h"
#include "interaction/skins.h"

namespace qv::gui {

namespace {
QString Q(const std::string& text) { return QString::fromStdString(text); }

// A calculation text that wraps only between moves: a word joiner on either
// side of the dash of "c5-d4" keeps the move on one line.
QString CalculationText(const std::string& text) {
  QString shown = Q(text);
  shown.remove(QChar('\r'));
  shown.replace(QChar('-'), QString(QChar(0x2060)) + QChar('-') + QChar(0x2060));
  return shown;
}

}  // namespace

MainWindow::MainWindow(std::unique_ptr<Game> game, QWidget* parent)
    : QMainWindow(parent), game_(std::move(game)), session_{*game_, screen_, *this, &files_} {
  sound_ = new SoundPlayer(this);
  screen_.TwipsPerPixel = logicalDpiX() >= 120 ? 12 : 15;
  progressTimer_ = new QTimer(this);
  progressTimer_->setInterval(100);
  connect(progressTimer_, &QTimer::timeout, this, &MainWindow::ShowThinking);
  BuildPanels();
  BuildMenus();
  BuildHelpMenu();
  StartUp(session_);
  Sync();
}

MainWindow::~MainWindow() = default;  // the worker stops its job and waits for it

QAction* MainWindow::AddCommand(QMenu* menu, Command c, const QString& text, const QKeySequence& keys,
                                bool checkable) {
  auto* action = new QAction(text, this);
  action->setCheckable(checkable);
  // The keys work wherever the focus is in the window, the text boxes too
  // (none of them edits text), and the tool tip names them.
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WindowShortcut);
  action->setToolTip(text + " (" + keys.toString(QKeySequence::NativeText) + ")");
  addAction(action);
  connect(action, &QAction::triggered, this, [this, c] {
    if (c == Command::Exit) {
      if (ExitCommand(session_)) close();
    } else if (c == Command::PlyValueTable) {
      ShowPlyValueTable();
    } else {
      RunCommand(session_, c);
    }
    Sync();
  });
  menu->addAction(action);
  actions_[c] = action;
  return action;
}

void MainWindow::BuildMenus() {
  QMenu* gameMenu = menuBar()->addMenu("&Game");
  AddCommand(gameMenu, Command::NewGame, "New Game", QKeySequence(Qt::CTRL | Qt::Key_N));
  AddCommand(gameMenu, Command::NewVariant, "New Variant...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N));
  gameMenu->addSeparator();
  AddCommand(gameMenu, Command::Open, "Open...", QKeySequence(QKeySequence::Open));
  AddCommand(gameMenu, Command::Save, "Save...", QKeySequence(QKeySequence::Save));
  AddDetailsCommand(gameMenu);
  gameMenu->addSeparator();
  AddCommand(gameMenu, Command::CreateDiagram, "Create Diagram...", QKeySequence(Qt::CTRL | Qt::Key_E));
  AddCommand(gameMenu, Command::Rating, "Rating", QKeySequence(Qt::CTRL | Qt::Key_R));
  AddCommand(gameMenu, Command::Options, "Options...", QKeySequence(Qt::CTRL | Qt::Key_Comma));
  gameMenu->addSeparator();
  AddCommand(gameMenu, Command::Exit, "Exit", QKeySequence(Qt::CTRL | Qt::Key_Q));

  QMenu* playMenu = menuBar()->addMenu("&Play");
  AddCommand(playMenu, Command::Compute, "Compute", QKeySequence(Qt::Key_F5));
  AddCommand(playMenu, Command::Cancel, "Cancel", QKeySequence(Qt::Key_Escape));
  playMenu->addSeparator();
  AddCommand(playMenu, Command::OfferDraw, "Offer draw", QKeySequence(Qt::CTRL | Qt::Key_D));
  AddCommand(playMenu, Command::Resign, "Resign", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
  AddCommand(playMenu, Command::Hint, "Hint", QKeySequence(Qt::Key_F2));
  AddCommand(playMenu, Command::Analyze, "Analyze", QKeySequence(Qt::Key_F3));
  playMenu->addSeparator();
  AddCommand(playMenu, Command::PlayerComputer, "Player-Computer", QKeySequence(Qt::CTRL | Qt::Key_1), true);
  AddCommand(playMenu, Command::PlayerPlayer, "Player-Player", QKeySequence(Qt::CTRL | Qt::Key_2), true);
  AddCommand(playMenu, Command::ComputerComputer, "Computer-Computer", QKeySequence(Qt::CTRL | Qt::Key_3), true);

  QMenu* moveMenu = menuBar()->addMenu("&Move");
  AddCommand(moveMenu, Command::First, "First", QKeySequence(Qt::ALT | Qt::Key_Home));
  AddCommand(moveMenu, Command::Back, "Back", QKeySequence(Qt::ALT | Qt::Key_Left));
  AddCommand(moveMenu, Command::Forward, "Forward", QKeySequence(Qt::ALT | Qt::Key_Right));
  AddCommand(moveMenu, Command::Last, "Last", QKeySequence(Qt::ALT | Qt::Key_End));

  boardMenu_ = menuBar()->addMenu("&Board");
  AddCommand(boardMenu_, Command::TurnBoard, "Turn Board", QKeySequence(Qt::CTRL | Qt::Key_T));
  QMenu* notation = boardMenu_->addMenu("Notation");
  AddCommand(notation, Command::NotationNone, "None", QKeySequence(Qt::Key_F6), true);
  AddCommand(notation, Command::NotationAlgebraic, "Algebraic", QKeySequence(Qt::Key_F7), true);
  AddCommand(notation, Command::NotationNumeric, "Numeric", QKeySequence(Qt::Key_F8), true);
  QMenu* pictures = boardMenu_->addMenu("Picture Set");
  auto* pictureGroup = new QActionGroup(this);
  int key = Qt::Key_1;
  for (const char* name : {"Classic Small", "Classic Medium", "Classic Big"}) {
    QAction* a = pictures->addAction(name);
    a->setShortcut(QKeySequence(Qt::ALT | key++));
    a->setCheckable(true);
    a->setChecked(game_->Settings.SkinName == name);
    pictureGroup->addAction(a);
    connect(a, &QAction::triggered, this, [this, name] {
      PictureSetCommand(session_, name);
      Sync();
    });
  }

  QMenu* viewMenu = menuBar()->addMenu("&View");
  AddCommand(viewMenu, Command::Calculation, "Calculation", QKeySequence(Qt::Key_F9), true);
  AddCommand(viewMenu, Command::UseSound, "Use Sound", QKeySequence(Qt::CTRL | Qt::Key_M), true);
  viewMenu->addSeparator();
  AddCommand(viewMenu, Command::PlyValueTable, "Show Ply Value Table", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T));

  QToolBar* bar = addToolBar("Toolbar1");
  bar->setObjectName("Toolbar1");
  bar->setIconSize(QSize(24, 24));
  bar->setMovable(false);
  auto button = [&](Command c) {
    QAction* a = actions_[c];
    a->setIcon(CommandIcon(c));
    bar->addAction(a);
  };
  button(Command::NewGame);
  button(Command::Open);
  button(Command::Save);
  bar->addSeparator();
  button(Command::Compute);
  button(Command::Cancel);
  bar->addSeparator();
  button(Command::First);
  button(Command::Back);
  button(Command::Forward);
  button(Command::Last);
  bar->addSeparator();
  button(Command::OfferDraw);
  button(Command::Resign);
  button(Command::Hint);
  bar->addSeparator();
  button(Command::PlayerComputer);
  button(Command::PlayerPlayer);
  button(Command::ComputerComputer);
  bar->addSeparator();
  button(Command::TurnBoard);
  button(Command::Analyze);
  button(Command::Options);
}

void MainWindow::SyncList(QListWidget* list, const std::vector<std::string>& rows, int enabled) {
  bool same = list->count() == static_cast<int>(rows.size());
  for (int i = 0; same && i < list->count(); ++i) same = list->item(i)->text() == Q(rows[i]);
  if (!same) {
    list->clear();
    for (const std::string& row : rows) list->addItem(Q(row));
  }
  list->setEnabled(enabled != 0);
}

void MainWindow::Sync() {
  syncing_ = true;
  const Screen& sc = screen_;
  const BoardView& v = sc.View;
  setWindowTitle(Q(sc.Title));
  // A new picture set or skin may bring a board of another size.
  if (board_->size() != board_->sizeHint()) {
    board_->updateGeometry();
    board_->setFixedSize(board_->sizeHint());
    // The window takes the size of the new board once the layout has settled.
    // A smaller set shrinks it too: the layouts are settled first, so that
    // the old board's size no longer counts.
    QTimer::singleShot(0, this, [this] {
      centralWidget()->layout()->activate();
      layout()->activate();
      resize(minimumSizeHint());
    });
  }
  board_->update();

  label_[1]->setText(Q(v.Label1));
  label_[2]->setText(Q(v.Label2));
  label_[3]->setText(Q(v.Label3));
  label_[4]->setText(Q(v.Label4));
  label_[5]->setText(Q(v.Label5));
  label_[6]->setText(Q(v.Label6));
  label_[12]->setText(Q(v.Label12));
  label_[14]->setText(Q(v.Label14));
  extraPieces_->setVisible(v.ExtraPiecesShown != 0);
  label_[8]->setText(Q(game_->VariantLabel));
  // The side to move is written white on red, the other red on white.
  for (int i : {1, 2}) {
    const bool toMove = (i == 1) == (v.Label1ToMove == 1);
    QPalette pal = label_[i]->palette();
    pal.setColor(QPalette::Window, toMove ? QColor(200, 30, 30) : Qt::white);
    pal.setColor(QPalette::WindowText, toMove ? Qt::white : QColor(200, 30, 30));
    label_[i]->setPalette(pal);
  }
  label_[9]->setText(CalculationText(sc.Label9));

  SyncList(list1_, sc.List1, CommandAvailable(sc, Command::List1));
  if (sc.List1Selected >= 0 && sc.List1Selected < list1_->count()) {
    list1_->setCurrentRow(sc.List1Selected);
    list1_->scrollToItem(list1_->item(sc.List1Selected));
  } else {
    list1_->clearSelection();
    list1_->setCurrentRow(-1);
  }
  SyncList(list2_, sc.List2, CommandAvailable(sc, Command::List2));
  SyncList(list3_, sc.List3, CommandAvailable(sc, Command::List3));
  if (text1_->toPlainText() != Q(sc.Text1)) text1_->setPlainText(Q(sc.Text1));
  if (text2_->text() != Q(sc.Text2)) text2_->setText(Q(sc.Text2));
  text2_->setEnabled(CommandAvailable(sc, Command::Text2));
  moveButton_->setEnabled(CommandAvailable(sc, Command::Text2));

  statusPanel_->setText(Q(sc.StatusText));
  strengthPanel_->setText(Q(sc.StrengthText));
  openingPanel_->setText(Q(sc.OpeningNameShown));
  productPanel_->setText(Q(sc.ProductText));
  if (!progressTimer_->isActive()) {
    progress_->setMaximum(std::max(1, sc.ProgressMax));
    progress_->setValue(std::min(sc.ProgressValue, sc.ProgressMax));
  }

  for (auto& [command, action] : actions_) {
    action->setEnabled(CommandAvailable(sc, command));
    if (action->isCheckable()) action->setChecked(sc[command].Checked != 0);
  }
  boardMenu_->setEnabled(CommandAvailable(sc, Command::BoardMenu));
  syncing_ = false;
}

void MainWindow::ShowMessage(const std::string& text, const std::string& caption, BoxIcon icon) {
  if (messageHook_) {
    messageHook_(text, caption);
    return;
  }
  Sync();
  QMessageBox::Icon qicon = QMessageBox::NoIcon;
  switch (icon) {
    case BoxIcon::Exclamation:
    case BoxIcon::Warning: qicon = QMessageBox::Warning; break;
    case BoxIcon::Question: qicon = QMessageBox::Question; break;
    case BoxIcon::Information: qicon = QMessageBox::Information; break;
    case BoxIcon::None: break;
  }
  QMessageBox box(qicon, Q(caption), Q(text), QMessageBox::Ok, this);
  box.exec();
}

bool MainWindow::AskYesNo(const std::string& text, const std::string& caption) {
  if (messageHook_) {
    messageHook_(text, caption);
    return true;
  }
  Sync();
  return QMessageBox::question(this, Q(caption), Q(text), QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void MainWindow::PlaySound(const std::filesystem::path& file) { sound_->Play(QString::fromStdString(file.string())); }

void MainWindow::SetPointer(ImageRole icon) {
  if (icon == ImageRole::None) {
    board_->unsetCursor();
    return;
  }
  const QPixmap pixmap =
      game_->Settings.SkinKind == 4 ? board_->Skin().Icon(icon, devicePixelRatioF()) : CarryPixmap(icon, devicePixelRatioF());
  board_->setCursor(QCursor(pixmap, 19, 19));
}

PopupItem MainWindow::RunSetupPopup(const PopupChecks& checks) {
  QMenu menu(this);
  std::map<QAction*, PopupItem> items;
  auto add = [&](const char* text, PopupItem item, bool checked) {
    QAction* a = menu.addAction(text);
    a->setCheckable(item != PopupItem::ClearBoard);
    a->setChecked(checked);
    items[a] = item;
  };
  add("Clear Board", PopupItem::ClearBoard, false);
  menu.addSeparator();
  for (auto [text, item] : {std::pair{"Empty", PopupItem::Empty}, {"Black Checker", PopupItem::BlackChecker},
                            {"Black King", PopupItem::BlackKing}, {"White Checker", PopupItem::WhiteChecker},
                            {"White King", PopupItem::WhiteKing}})
    add(text, item, checks.piece == item);
  menu.addSeparator();
  add("Black moves", PopupItem::BlackMoves, checks.blackMoves != 0);
  add("White moves", PopupItem::WhiteMoves, checks.whiteMoves != 0);
  menu.addSeparator();
  add("Priority", PopupItem::Priority, checks.priority != 0);
  QAction* chosen = menu.exec(QCursor::pos());
  return chosen ? items[chosen] : PopupItem::None;
}

void MainWindow::Changed(unsigned) {
  if (!syncing_) Sync();
}

void MainWindow::StartEngineJob(const Game& g, EngineJob job) {
  progress_->setMaximum(100);
  progress_->setValue(0);
  progressTimer_->start();
  Sync();
  // The worker thinks on its own copy; the step it hands back is applied here,
  // on the window thread, once the job is over.
  worker_.Start(g, std::move(job),
                [this] { QMetaObject::invokeMethod(this, &MainWindow::JobFinished, Qt::QueuedConnection); });
}

void MainWindow::StopEngineJob() { worker_.Cancel(); }

void MainWindow::ShowPlyValueTable() {
  if (!CommandAvailable(screen_, Command::PlyValueTable)) return;
  if (!plyValue_) plyValue_ = new PlyValueWindow(session_, this);
  plyValue_->Start();
}

// The worker's status, calculation and progress, as far as they have come.
void MainWindow::ShowThinking() {
  ThinkingReport::Snapshot now;
  if (!worker_.live.Take(now)) return;
  if (!now.status.empty()) statusPanel_->setText(Q(now.status));
  if (!now.calculation.empty()) label_[9]->setText(CalculationText(now.calculation));
  if (now.maximum > 0) {
    progress_->setMaximum(now.maximum);
    progress_->setValue(std::min(now.progress, now.maximum));
  }
}

void MainWindow::JobFinished() {
  if (!worker_.Busy() || ending_) return;
  progressTimer_->stop();
  std::string fatal;
  const ApplyOnWindow step = worker_.Collect(fatal);
  if (!fatal.empty()) {
    EndAfterFatal(fatal);
    return;
  }
  if (step) step(session_);
  Sync();
  if (closePending_ && !worker_.Busy()) close();
}

void MainWindow::EndAfterFatal(const std::string& text) {
  if (ending_) return;
  ending_ = true;
  progressTimer_->stop();
  if (worker_.Busy()) {
    worker_.Cancel();
    std::string ignored;
    worker_.Collect(ignored);
  }
  if (messageHook_) messageHook_(text, "Error");
  else QMessageBox::warning(this, "Error", Q(text));
  game_->Settings.ConfirmExit = 0;
  close();
  QCoreApplication::exit(1);
}

bool MainWindow::ShowVariantsDialog() { return gui::ShowVariantsDialog(this, *game_); }

std::filesystem::path MainWindow::ChooseGameFile(const std::string& title, const std::vector<std::string>& filters,
                                                 bool save) {
  return RunGameFileDialog(this, title, filters, save);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (worker_.Busy() && !ending_) {
    // Stop the search first; the window closes when its move has been applied.
    closePending_ = true;
    CancelCommand(session_);
    event->ignore();
    return;
  }
  // The close box does not ask; Game > Exit asked before it closed the window.
  UnloadMainWindow(session_);
  event->accept();
}

void MainWindow::BuildHelpMenu() {
  QMenu* helpMenu = menuBar()->addMenu("&Help");
  AddCommand(helpMenu, Command::QuickRules, "Quick Rules", QKeySequence(Qt::SHIFT | Qt::Key_F1));
  AddCommand(helpMenu, Command::Rules, "Rules", QKeySequence(Qt::Key_F1));
  helpMenu->addSeparator();
  AddCommand(helpMenu, Command::About, "About", QKeySequence(Qt::CTRL | Qt::Key_F1));
}

void MainWindow::OpenLink(const std::string& link) { OpenAddress(link); }

void MainWindow::ShowRulesWindow() {
  RulesWindow frmRules(*game_, this);
  frmRules.exec();
}

void MainWindow::ShowAboutWindow() {
  AboutWindow frmAbout(this);
  frmAbout.exec();
}

}  // namespace qv::gui

namespace qv::gui {

bool MainWindow::LoadSkinPicture(ImageRole role, const std::filesystem::path& file) {
  return board_->Skin().Load(role, file);
}

void MainWindow::ShowOptionsDialog() {
  OptionsDialog dialog(*game_, game_->Rating.PlayerRating, this);
  // Apply shows its effect at once, as OK does when the dialog has closed.
  std::string shownSkin = game_->Settings.SkinName;
  connect(&dialog, &OptionsDialog::Stored, this, [this, &shownSkin] {
    ApplyOptions(session_, shownSkin);
    shownSkin = game_->Settings.SkinName;
    Sync();
  });
  dialog.exec();
}

}  // namespace qv::gui

// The main window's panels: the board, the players, the three lists, the
// comment and move boxes, the calculation and the status bar.
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "gui/boardwidget.h"
#include "gui/mainwindow.h"
#include "interaction/analysis_commands.h"
#include "interaction/movelist.h"

namespace qv::gui {

namespace {

QListWidget* MakeList(int width) {
  auto* list = new QListWidget;
  list->setMinimumWidth(width);
  list->setMinimumHeight(150);
  list->setFont(QFont("monospace"));
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  return list;
}

}  // namespace

void MainWindow::BuildPanels() {
  auto* central = new QWidget;
  auto* outer = new QHBoxLayout(central);
  board_ = new BoardWidget(session_);
  auto* boardColumn = new QVBoxLayout;
  boardColumn->addWidget(board_);
  boardColumn->addStretch();
  outer->addLayout(boardColumn);

  auto* side = new QVBoxLayout;
  outer->addLayout(side, 1);
  for (int i : {1, 2, 3, 4, 5, 6, 8, 9, 12, 14}) label_[i] = new QLabel;
  side->addWidget(BuildPlayersBox());
  side->addWidget(BuildExtraPieces());
  side->addWidget(BuildVariantCaption());
  side->addLayout(BuildLists(), 1);
  text1_ = new QPlainTextEdit;
  text1_->setPlaceholderText("Comment");
  text1_->setFixedHeight(48);
  side->addWidget(text1_);
  side->addLayout(BuildMoveEntry());
  side->addWidget(BuildCalculationBox());
  setCentralWidget(central);
  BuildStatusBar();
  ConnectPanels();
}

// The two sides: colour, player's name and pieces on the board.
QWidget* MainWindow::BuildPlayersBox() {
  auto* players = new QGroupBox;
  auto* grid = new QGridLayout(players);
  grid->addWidget(label_[3], 0, 0);
  grid->addWidget(label_[1], 0, 1);
  grid->addWidget(label_[5], 0, 2);
  grid->addWidget(label_[4], 1, 0);
  grid->addWidget(label_[2], 1, 1);
  grid->addWidget(label_[6], 1, 2);
  grid->setColumnStretch(1, 1);
  for (int i : {1, 2}) {
    label_[i]->setAutoFillBackground(true);
    label_[i]->setMargin(3);
    QFont f = label_[i]->font();
    f.setBold(true);
    label_[i]->setFont(f);
  }
  for (int i : {5, 6}) label_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return players;
}

QWidget* MainWindow::BuildExtraPieces() {
  extraPieces_ = new QWidget;
  auto* extra = new QHBoxLayout(extraPieces_);
  extra->setContentsMargins(0, 0, 0, 0);
  label_[11] = new QLabel("Extra Pieces:");
  label_[13] = new QLabel("Black");
  auto* whiteCaption = new QLabel("White");
  extra->addWidget(label_[11]);
  extra->addWidget(label_[13]);
  extra->addWidget(label_[12]);
  extra->addWidget(whiteCaption);
  extra->addWidget(label_[14]);
  extra->addStretch();
  return extraPieces_;
}

QWidget* MainWindow::BuildVariantCaption() {
  label_[8]->setAlignment(Qt::AlignCenter);
  QFont variantFont = label_[8]->font();
  variantFont.setBold(true);
  label_[8]->setFont(variantFont);
  return label_[8];
}

QLayout* MainWindow::BuildLists() {
  auto* lists = new QHBoxLayout;
  auto column = [&](const QString& caption, QListWidget* list) {
    auto* box = new QVBoxLayout;
    box->addWidget(new QLabel(caption));
    box->addWidget(list);
    lists->addLayout(box);
  };
  list1_ = MakeList(150);
  list2_ = MakeList(80);
  list3_ = MakeList(90);
  column("Game", list1_);
  column("Moves", list2_);
  column("Analysis", list3_);
  return lists;
}

QLayout* MainWindow::BuildMoveEntry() {
  auto* entry = new QHBoxLayout;
  text2_ = new QLineEdit;
  text2_->setPlaceholderText("Type a move, such as c3-d4");
  moveButton_ = new QPushButton("Move");
  entry->addWidget(text2_, 1);
  entry->addWidget(moveButton_);
  return entry;
}

// The calculation: four lines whatever it says, so that a long main line
// neither pushes the boxes above it nor widens the window.
QWidget* MainWindow::BuildCalculationBox() {
  label_[9]->setWordWrap(true);
  label_[9]->setFrameShape(QFrame::StyledPanel);
  label_[9]->setFixedHeight(4 * label_[9]->fontMetrics().lineSpacing() + 2 * label_[9]->frameWidth() + 4);
  label_[9]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  label_[9]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label_[9]->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label_[9];
}

void MainWindow::BuildStatusBar() {
  statusPanel_ = new QLabel;
  strengthPanel_ = new QLabel;
  openingPanel_ = new QLabel;
  openingPanel_->setContentsMargins(12, 0, 12, 0);
  productPanel_ = new QLabel;
  progress_ = new QProgressBar;
  progress_->setMaximumWidth(160);
  progress_->setTextVisible(false);
  statusBar()->addWidget(statusPanel_, 1);
  statusBar()->addPermanentWidget(strengthPanel_);
  statusBar()->addPermanentWidget(openingPanel_);
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(productPanel_);
}

void MainWindow::ConnectPanels() {
  connect(list1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    ClickGameList(session_, list1_->row(item));
    Sync();
  });
  connect(list1_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    ClickGameList(session_, list1_->row(item));
    Sync();
  });
  connect(list2_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    ClickLegalMove(session_, list2_->row(item));
    Sync();
  });
  connect(list3_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    ClickAnalysisList(session_, list3_->row(item));
    Sync();
  });
  auto typed = [this] {
    screen_.Text2 = text2_->text().toStdString();
    EnterTypedMove(session_);
    Sync();
    // Back to the move box, also after a refused move, for the next try.
    if (text2_->isEnabled()) {
      text2_->setFocus();
      text2_->selectAll();
    }
  };
  connect(text2_, &QLineEdit::returnPressed, this, typed);
  connect(moveButton_, &QPushButton::clicked, this, typed);
  connect(text1_, &QPlainTextEdit::textChanged, this, [this] {
    if (syncing_ || screen_.Busy == 1) return;
    screen_.Text1 = text1_->toPlainText().toStdString();
    game_->Record.CommentTable[game_->HalfMoveCount] = screen_.Text1;
  });
}

}  // namespace qv::gui

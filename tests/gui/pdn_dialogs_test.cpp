// dlgPDN and dlgDetails on the offscreen platform: the chooser's columns,
// "Open as:" and OK; the details' Apply, OK and Cancel. With QUORVANIS_SHOTS
// set to a folder, each dialog is also saved there as a picture.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "gui/detailsdialog.h"
#include "gui/pdndialog.h"

namespace qv::gui {

namespace {

void Shoot(QWidget& widget, const char* name) {
  const QByteArray folder = qgetenv("QUORVANIS_SHOTS");
  if (folder.isEmpty()) return;
  widget.show();
  widget.grab().save(QString::fromUtf8(folder) + "/" + name + ".png");
}

PdnChooserForm SampleChooser() {
  PdnChooserForm form;
  form.Title = " Choose Game";
  form.Rows.push_back({"Open 3", "1998.05.02", "Brown", "Weiss", "1-0", "Glasgow", "", "K12", "2100", "2050"});
  form.Rows.push_back({"Club night", "05/06/2024", "Ann", "Bob", "*", "", "1", "", "", ""});
  form.OpenAsList = {"DEFAULT", "American Checkers", "Italian Checkers", "Russian Checkers"};
  return form;
}

}  // namespace

TEST(PdnDialog, ShowsTenColumnsAndHandsBackTheChoice) {
  PdnChooserForm form = SampleChooser();
  PdnDialog dialog(form);
  EXPECT_EQ(dialog.windowTitle(), " Choose Game");
  auto* list = dialog.findChild<QTreeWidget*>("ListView1");
  ASSERT_NE(list, nullptr);
  ASSERT_EQ(list->columnCount(), 10);
  EXPECT_EQ(list->headerItem()->text(0), "Event");
  EXPECT_EQ(list->headerItem()->text(9), "WhiteElo");
  EXPECT_EQ(list->topLevelItemCount(), 2);
  auto* combo = dialog.findChild<QComboBox*>("Combo1");
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(combo->currentText(), "DEFAULT");
  Shoot(dialog, "dlgPDN");

  list->setCurrentItem(list->topLevelItem(1));
  combo->setCurrentIndex(3);
  dialog.findChild<QPushButton*>("OKButton")->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(ChosenGameOf(form), 2);
  EXPECT_EQ(OpenAsVariantOf(form), "Russian Checkers");
}

TEST(PdnDialog, CancelLeavesTheFormAlone) {
  PdnChooserForm form = SampleChooser();
  PdnDialog dialog(form);
  dialog.findChild<QComboBox*>("Combo1")->setCurrentIndex(2);
  dialog.findChild<QPushButton*>("CancelButton")->click();
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
  EXPECT_EQ(form.OpenAsIndex, 0);
}

TEST(DetailsDialog, ApplyOkAndCancel) {
  PdnTags tags;
  tags.Event = "Club";
  tags.Date = "05/06/2024";
  DetailsDialog dialog(tags);
  const auto frames = dialog.findChildren<QGroupBox*>();
  ASSERT_EQ(frames.size(), 2);
  EXPECT_EQ(frames[0]->title(), " Game ");
  EXPECT_EQ(frames[1]->title(), " Players ");
  auto* event = dialog.findChild<QLineEdit*>("Text1");
  auto* black = dialog.findChild<QLineEdit*>("Text4");
  ASSERT_NE(event, nullptr);
  EXPECT_EQ(event->text(), "Club");
  EXPECT_EQ(dialog.findChild<QLineEdit*>("Text3")->text(), "05/06/2024");
  black->setText("Ann");
  Shoot(dialog, "dlgDetails");
  dialog.findChild<QPushButton*>("Command1")->click();  // Apply: copied, still open
  EXPECT_EQ(tags.Black, "Ann");
  EXPECT_NE(dialog.result(), QDialog::Accepted);
  event->setText("Ignored");
  dialog.findChild<QPushButton*>("CancelButton")->click();
  EXPECT_EQ(tags.Event, "Club");

  DetailsDialog second(tags);
  second.findChild<QLineEdit*>("Text5")->setText("Bob");
  second.findChild<QPushButton*>("OKButton")->click();
  EXPECT_EQ(tags.White, "Bob");
  EXPECT_EQ(second.result(), QDialog::Accepted);
}

}  // namespace qv::gui

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <QTimer>
#include <fstream>

#include "gui/mainwindow.h"
#include "interaction/pdn_commands.h"

namespace qv::gui {

// A collection opened in the window: the chosen game stands in the move
// list, the players at the board and the result in the status panel.
TEST(PdnWindow, OpenedGameIsShown) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "quorvanis-pdn-window.pdn";
  std::ofstream(file, std::ios::binary) << "[Event \"Club\"]\r\n[Black \"Ann\"]\r\n[White \"Bob\"]\r\n"
                                           "[Result \"1-0\"]\r\n\r\n1. 11-15 23-19 2. 8-11 22-17 3. 4-8 1-0\r\n";
  auto game = std::make_unique<Game>();
  game->Random.SetFixedSeed(3);
  game->Settings.ConfirmExit = 0;
  MainWindow window(std::move(game));
  std::vector<std::string> messages;
  window.DivertMessages([&messages](const std::string& text, const std::string& caption) {
    messages.push_back(caption + ": " + text);
  });
  window.show();
  // The chooser's first row is taken: a window layer that answers the chooser
  // at once stands in for the modal dialog (which the test above presses)
  // and hands everything else to the window.
  struct Accepting : WindowLayer {
    WindowLayer& inner;
    explicit Accepting(WindowLayer& w) : inner(w) {}
    void ShowMessage(const std::string& t, const std::string& c, BoxIcon i) override { inner.ShowMessage(t, c, i); }
    bool AskYesNo(const std::string& t, const std::string& c) override { return inner.AskYesNo(t, c); }
    void PlaySound(const std::filesystem::path& f) override { inner.PlaySound(f); }
    void SetPointer(ImageRole icon) override { inner.SetPointer(icon); }
    PopupItem RunSetupPopup(const PopupChecks& checks) override { return inner.RunSetupPopup(checks); }
    void Changed(unsigned parts) override { inner.Changed(parts); }
    void StartEngineJob(const Game& g, EngineJob job) override { inner.StartEngineJob(g, std::move(job)); }
    void StopEngineJob() override { inner.StopEngineJob(); }
    bool ShowPdnChooser(PdnChooserForm&) override { return true; }
  } accepting(window);
  Session session{window.game(), window.screen(), accepting};
  LoadPdnCommand(session, file, 0);
  QApplication::processEvents();
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(window.screen().StatusText, "1-0;  no comments");
  EXPECT_EQ(window.screen().View.Label1, "Ann");
  EXPECT_EQ(window.screen().List1.size(), 5u);
  Shoot(window, "mainwindow-pdn");
  std::filesystem::remove(file);
}

}  // namespace qv::gui

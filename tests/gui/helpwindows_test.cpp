// The rules window and the About box on the offscreen platform: their texts,
// the link that underlines under the pointer, and that they fit a small screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEnterEvent>
#include <QLabel>

#include "core/newgame.h"
#include "files/paths.h"
#include "gui/helpwindows.h"
#include "gui/linklabel.h"

namespace qv::gui {

TEST(RulesWindow, ShowsTheRulesAndALinkThatUnderlinesUnderThePointer) {
  Game g;
  g.DataFolder = FindDataFolder(ExecutableFolder(nullptr));
  g.VariantName = "Russian Checkers";
  NewGame(g);
  RulesWindow frmRules(g);
  EXPECT_EQ(frmRules.windowTitle(), " Rules for Russian Checkers");
  EXPECT_TRUE(frmRules.Text()->text().startsWith("Rules for Russian Checkers\n\n"));
  EXPECT_EQ(frmRules.Link()->text().toStdString(), g.HelpLink);
  frmRules.show();
  EXPECT_LE(frmRules.width(), 1366);
  EXPECT_LE(frmRules.height(), 700);

  QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
  QApplication::sendEvent(frmRules.Link(), &enter);
  EXPECT_TRUE(frmRules.Link()->Underlined());
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(frmRules.Link(), &leave);
  EXPECT_FALSE(frmRules.Link()->Underlined());

  g.HelpText.clear();
  g.HelpLink.clear();
  RulesWindow none(g);
  EXPECT_EQ(none.Text()->text(), "No help available");
  EXPECT_TRUE(none.Link()->isHidden());
}

TEST(AboutWindow, ShowsTheVersionAndFitsASmallScreen) {
  AboutWindow frmAbout;
  frmAbout.show();
  EXPECT_EQ(frmAbout.VersionLabel()->text(), "Version 1.58");
  EXPECT_LE(frmAbout.width(), 1366);
  EXPECT_LE(frmAbout.height(), 768);
}

}  // namespace qv::gui

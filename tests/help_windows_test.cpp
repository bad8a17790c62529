// The Help menu: the rules of a variant in the browser or in the rules
// window, with its text, link and caption, and the About box.
#include <gtest/gtest.h>

#include "interaction/help_windows.h"
#include "interaction_fixture.h"

namespace qv {

TEST(RulesWindow, ShowsTheVariantsHelpOrSaysThereIsNone) {
  Game g;
  g.DataFolder = QUORVANIS_TEST_DATA;
  g.VariantName = "Italian Checkers";
  NewGame(g);
  EXPECT_EQ(RulesCaption(g), " Rules for Italian Checkers");
  const std::string text = RulesText(g);
  EXPECT_EQ(text.rfind("Rules for Italian Checkers\r\n\r\n", 0), 0u);
  EXPECT_EQ(text.substr(30), g.HelpText);
  EXPECT_EQ(RulesLink(g), "https://en.wikipedia.org/wiki/Italian_draughts");

  g.HelpText.clear();
  g.HelpLink.clear();
  EXPECT_EQ(RulesText(g), "No help available");
  EXPECT_EQ(RulesLink(g), "");
  // A link to the program's own site is not shown, whatever its capitals.
  g.HelpLink = "https://www.QuorVanis.example.org/rules";
  EXPECT_EQ(RulesLink(g), "");
}

TEST_F(InteractionTest, RulesGoToTheBrowserOnlyWithALinkAndEveryHelpWindowRedrawsTheHighlights) {
  game->HelpLink = "https://en.wikipedia.org/wiki/English_draughts";
  game->QuickHelpLink.clear();
  screen.Carry.HighlightDrawn = 1;
  RunCommand(session, Command::Rules);
  EXPECT_EQ(window.links, std::vector<std::string>{"https://en.wikipedia.org/wiki/English_draughts"});
  EXPECT_EQ(screen.Carry.HighlightDrawn, 0);
  // Quick Rules looks at its own link only.
  RunCommand(session, Command::QuickRules);
  RunCommand(session, Command::About);
  EXPECT_EQ(window.windows, (std::vector<std::string>{"Rules", "About"}));
  EXPECT_EQ(window.links.size(), 1u);
  EXPECT_EQ(About().version, "Version 1.58");
}

}  // namespace qv

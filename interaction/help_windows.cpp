#include "interaction/help_windows.h"

#include "core/text.h"
#include "core/version.h"

namespace qv {

void ShowRules(Session& s, const std::string& link) {
  if (!link.empty()) s.window.OpenLink(link);
  else s.window.ShowRulesWindow();
  // The highlights are drawn anew once the window has gone.
  s.screen.Carry.HighlightDrawn = 0;
}

void ShowAbout(Session& s) {
  s.window.ShowAboutWindow();
  s.screen.Carry.HighlightDrawn = 0;
}

std::string RulesCaption(const Game& g) { return " Rules for " + g.LoadedVariantName; }

std::string RulesText(const Game& g) {
  if (g.HelpText.empty()) return "No help available";
  return "Rules for " + g.LoadedVariantName + "\r\n\r\n" + g.HelpText;
}

std::string RulesLink(const Game& g) {
  if (g.HelpLink.empty() || ToLower(g.HelpLink).find(OwnSiteWord) != std::string::npos) return {};
  return g.HelpLink;
}

AboutContent About() {
  return {ProductName,
          "Checkers in dozens of rule variants: against the computer, a friend, or watching the computer play itself.",
          std::string("Version ") + ProgramVersion,
          {{"Home page: https://www.quorvanis.example.org", "https://www.quorvanis.example.org"},
           {"Questions and bug reports: support@quorvanis.example.org", "mailto:support@quorvanis.example.org"}}};
}

}  // namespace qv

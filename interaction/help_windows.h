#pragma once
// The Help menu: the rules of the variant in play, from its web page or in
// the rules window, and the About box.
#include <string>
#include <vector>

#include "interaction/session.h"

namespace qv {

// The word of the program's own home page: a rules link holding it is not shown.
inline constexpr const char* OwnSiteWord = "quorvanis";

// "Rules" with HelpLink, "Quick Rules" with QuickHelpLink: an empty link
// opens the rules window, any other goes to the browser.
void ShowRules(Session& s, const std::string& link);
void ShowAbout(Session& s);

// What the rules window shows: its caption, the text (or "No help
// available"), and the link under it (empty when there is none to show).
std::string RulesCaption(const Game& g);
std::string RulesText(const Game& g);
std::string RulesLink(const Game& g);

// One contact line of the About box and the address a click opens.
struct ContactLine {
  std::string text;
  std::string address;
};

// What the About box shows.
struct AboutContent {
  std::string product;
  std::string description;
  std::string version;  // "Version 1.58"
  std::vector<ContactLine> contacts;
};
AboutContent About();

}  // namespace qv

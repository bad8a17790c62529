#include "files/variantfile.h"

#include <fstream>
#include <system_error>

#include "core/fatal.h"
#include "core/newgame.h"
#include "core/text.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

enum class KeyKind { Setup, Number, PromoWhite, PromoBlack, Movement, Help, HelpLink, QuickHelpLink };

struct VariantKey {
  std::string_view key;  // with its "="
  KeyKind kind;
  int RuleRecord::*field = nullptr;
  int movement = 0;  // DirText index of a movement key
};

// The keys in the order every line is tested against them. The order matters:
// a key whose value replaces the working line can hand that value on to the
// keys tested after it.
const std::vector<VariantKey>& VariantKeys() {
  static const std::vector<VariantKey> keys = [] {
    std::vector<VariantKey> k;
    auto number = [&k](std::string_view key) {
      const RuleField* field = FindRuleField(key.substr(0, key.size() - 1));
      k.push_back({key, KeyKind::Number, field->member});
    };
    k.push_back({"Setup=", KeyKind::Setup});
    number("MulJumps=");
    number("MaxCapMove=");
    number("BlackStarts=");
    k.push_back({"PromoW=", KeyKind::PromoWhite});
    k.push_back({"PromoB=", KeyKind::PromoBlack});
    for (std::string_view key :
         {"PiecesOnBlack=", "AntiMode=", "WinAtPromo=", "MaxCapMoveKings=", "ManCapKing=", "KingCapMove=",
          "ManContJump=", "LongKings=", "ManContJumpCrowned=", "RemovePieces=", "NoLegalDraw=", "RemoveMen=",
          "NumberMen=", "DoMoves=", "NumberMoves=", "LastCap=", "ManKing=", "KingMan=", "ChangeSide=",
          "ThreeKings=", "NumberKings=", "NumberKings2=", "NumberPieces=", "canContract=", "ContractNumber=",
          "ContractW1=", "ContractW2=", "ContractB1=", "ContractB2=", "TwoKings=", "KingFirst=",
          "ManCapMoveKing=", "KingWin=", "JumpFriend=", "NumberFriends=", "MaxCapMoveK=", "CapRequired=",
          "CapReverse=", "RndColor="})
      number(key);
    k.push_back({"WhiteManMovement=", KeyKind::Movement, nullptr, KindWhiteMan});
    k.push_back({"WhiteKingMovement=", KeyKind::Movement, nullptr, KindWhiteKing});
    k.push_back({"BlackManMovement=", KeyKind::Movement, nullptr, KindBlackMan});
    k.push_back({"BlackKingMovement=", KeyKind::Movement, nullptr, KindBlackKing});
    k.push_back({"Help=", KeyKind::Help});
    k.push_back({"HelpLink=", KeyKind::HelpLink});
    k.push_back({"QuickHelpLink=", KeyKind::QuickHelpLink});
    return k;
  }();
  return keys;
}

// One line of the file; reading past the end is a failure.
std::string NextLine(std::istream& in) {
  std::string line;
  if (!std::getline(in, line)) throw FatalError("read past end of file");
  if (!line.empty() && line.back() == '\r') line.pop_back();  // a file written on Windows
  return line;
}

void ReadMovement(Game& g, int index, const std::string& value, DialogRuleTables* dialog) {
  g.VariantDefinition.DirText[index] = value;
  if (!dialog) return;
  const std::size_t blank = value.find(' ');
  dialog->StepText[index] = value.substr(0, blank);
  dialog->CaptureText[index] = blank == std::string::npos ? std::string() : value.substr(blank + 1);
  const int unknown = ParseDirections(value, index, dialog->DirTableFile);
  if (unknown != 0 && dialog->DirectionErrorRow == -1) {
    dialog->DirectionErrorRow = index;
    dialog->DirectionErrorWord = unknown;
  }
}

// Tests one line against every key in order; returns true at the end line.
bool ReadLine(Game& g, std::string line, DialogRuleTables* dialog) {
  for (const VariantKey& key : VariantKeys()) {
    if (line.compare(0, key.key.size(), key.key) != 0) continue;
    const std::string value = line.substr(key.key.size());
    switch (key.kind) {
      case KeyKind::Setup:
        if (value != "normal") ReadSetupText(g, value);
        line = value;
        break;
      case KeyKind::Number: {
        const int number = ValInt(value);
        g.VariantDefinition.*key.field = number;
        if (dialog) {
          g.RuleSet.*key.field = number;
          if (key.field == &RuleRecord::PiecesOnBlack && number == 2) g.Settings.NotationKind = 0;
        }
        break;
      }
      case KeyKind::PromoWhite:
      case KeyKind::PromoBlack: {
        // Always algebraic pairs, whatever notation the player uses.
        const int side = key.kind == KeyKind::PromoWhite ? 0 : 1;
        ReadPromoSquaresText(value, g.VariantDefinition.PromoSquares, side, g.RuleSet.PiecesOnBlack);
        if (dialog) dialog->PromoSquares[side] = g.VariantDefinition.PromoSquares[side];
        line = value;
        break;
      }
      case KeyKind::Movement:
        ReadMovement(g, key.movement, value, dialog);
        line = value;
        break;
      case KeyKind::Help:
        if (line == "Help=<br>") g.HelpText += "\r\n";
        else g.HelpText += value;
        break;
      case KeyKind::HelpLink: g.HelpLink = value; break;
      case KeyKind::QuickHelpLink: g.QuickHelpLink = value; break;
    }
  }
  return line == "END";
}

std::ifstream OpenVariant(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw FatalError("file not found");
  return in;
}

}  // namespace

fs::path VariantFolder(const fs::path& dataFolder, int useClassic) {
  return useClassic == 1 ? dataFolder / "variants" : dataFolder / "variants" / "uservariants";
}

fs::path VariantFilePath(const Game& g, const std::string& variantName) {
  return VariantFolder(g.DataFolder, g.Settings.UseClassic) / (variantName + ".ini");
}

void ReadVariantFile(Game& g) {
  if (g.DataFolder.empty()) return;
  try {
    std::ifstream in = OpenVariant(VariantFilePath(g, g.VariantName));
    NextLine(in);  // the title: never interpreted
    g.LoadedVariantName = g.VariantName;
    g.HelpText.clear();
    while (!ReadLine(g, NextLine(in), nullptr)) {
    }
    // The balance of ply 0 is kept as the side that begins sees it.
    if (g.VariantDefinition.BlackStarts == 0) {
      g.MaterialByPly[0] = -g.MaterialByPly[0];
      g.Record.MaterialSaved[0] = -g.Record.MaterialSaved[0];
    }
  } catch (const std::exception&) {
    throw FatalError(VariantFileError);
  }
}

void ReadVariantIntoDialog(Game& g, const std::string& name, DialogRuleTables& out) {
  g.VariantName = name;
  try {
    std::ifstream in = OpenVariant(VariantFilePath(g, g.VariantName));
    g.LoadedVariantName = g.VariantName;
    g.HelpText.clear();
    g.HelpLink.clear();
    g.QuickHelpLink.clear();
    out.DirectionErrorRow = -1;
    out.DirectionErrorWord = 0;
    while (!ReadLine(g, NextLine(in), &out)) {
    }
  } catch (const std::exception&) {
    throw FatalError(VariantDialogError);
  }
}

std::vector<std::string> FillVariantList(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string file = it->path().filename().string();
    if (file.size() > 4 && file.compare(file.size() - 4, 4, ".ini") == 0 && it->is_regular_file(ec))
      names.push_back(file.substr(0, file.size() - 4));
  }
  return names;
}

std::vector<std::string> FillOpenAsList(const fs::path& folder) {
  std::vector<std::string> names = FillVariantList(folder);
  names.insert(names.begin(), "DEFAULT");
  return names;
}

}  // namespace qv

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "src/dialog/support/Accelerator.h"

using panelix::acceleratorOf;
using panelix::parseKeyCombination;
using panelix::parseMenuTitle;

namespace {

struct Spelling {
  const char* name;
  int weight;
};

constexpr Spelling kSpellings[] = {
    {"Ctrl", 1},  {"CTRL", 1}, {"ctrl", 1}, {"Ctl", 1}, {"Shift", 2}, {"SHIFT", 2},
    {"shift", 2}, {"Meta", 4}, {"META", 4}, {"Alt", 8}, {"ALT", 8},   {"alt", 8},
};
constexpr unsigned kAllSpellings = 1U << std::size(kSpellings);

constexpr WORD kCommand = 77;

/// Flags of the record of a text; 0 without a record.
int flagsOf(const NbString& text) {
  const auto record = parseKeyCombination(text, kCommand);
  return record ? record->fVirt : 0;
}

/// Key of the record of a text; -1 without a record.
int keyOf(const NbString& text) {
  const auto record = parseKeyCombination(text, kCommand);
  return record ? record->key : -1;
}

/// The modifiers by bits: what is left of a weight once Alt, Meta and Shift have been taken from it once each.
int expectedFlags(int weight) {
  constexpr int kEachOnce = 16;
  if (weight >= kEachOnce) return FVIRTKEY | FALT | FSHIFT;
  if (weight % 2 == 0) return 0;
  return FVIRTKEY | FCONTROL | (weight & 2 ? FSHIFT : 0) | (weight & 12 ? FALT : 0);
}

template <class Use>
void forEachText(const std::string& alphabet, int maxLength, Use&& use) {
  std::vector<std::string> texts{""};
  for (int length = 0; length <= maxLength; ++length) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      use(text);
      for (const char next : alphabet) longer.push_back(text + next);
    }
    texts = std::move(longer);
  }
}

} // namespace

// Key combinations

TEST(KeyCombination, EverySetOfSpellingsWeighsItsSum) {
  for (unsigned set = 0; set < kAllSpellings; ++set) {
    std::string text;
    int weight = 0;
    for (std::size_t i = 0; i < std::size(kSpellings); ++i) {
      if (!(set & (1U << i))) continue;
      text += kSpellings[i].name + std::string("+");
      weight += kSpellings[i].weight;
    }
    ASSERT_EQ(flagsOf(text + "x"), expectedFlags(weight)) << text;
  }
}

TEST(KeyCombination, OneModifierAloneIsControlOrNothing) {
  EXPECT_EQ(flagsOf("Ctrl+o"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("CTRL+o"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("ctrl+o"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("Ctl+o"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("Shift+F1"), 0);
  EXPECT_EQ(flagsOf("Alt+X"), 0);
  EXPECT_EQ(flagsOf("Meta+X"), 0);
  EXPECT_EQ(flagsOf("X"), 0);
}

TEST(KeyCombination, ControlAddsToTheOthers) {
  EXPECT_EQ(flagsOf("Ctrl+Shift+S"), FVIRTKEY | FSHIFT | FCONTROL);
  EXPECT_EQ(flagsOf("Meta+Ctrl+q"), FVIRTKEY | FALT | FCONTROL);
  EXPECT_EQ(flagsOf("Ctrl+Alt+Shift+S"), FVIRTKEY | FALT | FSHIFT | FCONTROL);
  EXPECT_EQ(flagsOf("Ctrl+Alt+Meta+Shift+S"), FVIRTKEY | FALT | FSHIFT | FCONTROL);
}

TEST(KeyCombination, TwoSpellingsOfControlWeighAsShift) {
  EXPECT_EQ(flagsOf("ctrl+Ctrl+A"), 0);
  EXPECT_EQ(flagsOf("ctrl+Ctrl+CTRL+A"), FVIRTKEY | FSHIFT | FCONTROL);
}

TEST(KeyCombination, OneSpellingCountsOnce) { EXPECT_EQ(flagsOf("Ctrl+Ctrl+A"), FVIRTKEY | FCONTROL); }

TEST(KeyCombination, OtherCasesAreNoModifiers) {
  for (const char* text : {"cTRL+A", "CtrL+A", "ctl+A", "CTL+A", "Control+A", "C+A", "^A"}) EXPECT_EQ(flagsOf(text), 0);
  EXPECT_EQ(flagsOf("Ctrl+sHIFT+A"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("Ctrl+meta+A"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("Ctrl+aLT+A"), FVIRTKEY | FCONTROL);
}

TEST(KeyCombination, ModifiersCountWhereverTheyStand) {
  EXPECT_EQ(flagsOf("A+Ctrl"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("(Ctrl A)"), FVIRTKEY | FCONTROL);
  EXPECT_EQ(flagsOf("Ctrl+salt"), FVIRTKEY | FALT | FCONTROL);
}

TEST(KeyCombination, KeyIsTheFirstCharacterBehindTheLastPlus) {
  EXPECT_EQ(keyOf("Ctrl+Shift+S"), 'S');
  EXPECT_EQ(keyOf("Meta+Ctrl+q"), 'q');
  EXPECT_EQ(keyOf("Ctrl+F1"), 'F');
  EXPECT_EQ(keyOf("Ctrl+ A"), ' ');
}

TEST(KeyCombination, KeyIsTheFirstCharacterWithoutAPlus) {
  EXPECT_EQ(keyOf("Ctrl"), 'C');
  EXPECT_EQ(keyOf("xCtrl"), 'x');
}

TEST(KeyCombination, ThereIsNoKeyBehindAPlusAtTheEnd) {
  EXPECT_EQ(keyOf("Ctrl+"), 0);
  EXPECT_EQ(keyOf("Ctrl++"), 0);
}

TEST(KeyCombination, KeyIsAnyByte) {
  for (int byte = 1; byte < 256; ++byte) {
    if (byte == '+') continue;
    ASSERT_EQ(keyOf("Ctrl+" + std::string(1, static_cast<char>(byte))), byte);
  }
}

TEST(KeyCombination, WideTextCountsByItsLatin1Characters) {
  EXPECT_EQ(keyOf(NbString(L"Ctrl+\u00e9")), 0xe9);
  EXPECT_EQ(keyOf(NbString(L"Ctrl+\u03a9")), '?');
  EXPECT_EQ(flagsOf(NbString(L"Shift+Ctrl+\u03a9")), FVIRTKEY | FSHIFT | FCONTROL);
}

TEST(KeyCombination, EmptyTextIsNone) { EXPECT_FALSE(parseKeyCombination("", kCommand)); }

TEST(KeyCombination, RecordCarriesTheCommand) { EXPECT_EQ(parseKeyCombination("Ctrl+A", kCommand)->cmd, kCommand); }

TEST(KeyCombination, NoTextIsTooOdd) {
  const std::string bytes("+\0Ctl\t\xff", 7);
  forEachText(bytes, 6, [](const std::string& text) {
    const bool hasControl = text.find("Ctl") != text.npos;
    ASSERT_EQ(flagsOf(text), hasControl ? FVIRTKEY | FCONTROL : 0);
    if (!hasControl) return;
    const std::string key = text.substr(text.rfind('+') + 1);
    ASSERT_EQ(keyOf(text), key.empty() ? 0 : static_cast<unsigned char>(key[0]));
  });
}

// Titles

TEST(MenuTitle, LosesMarksAndWhatFollowsATab) {
  const auto title = parseMenuTitle("&Open\tCtrl+O");
  EXPECT_EQ(title.text, "Open");
  EXPECT_EQ(title.mnemonic, 'O');
  EXPECT_EQ(acceleratorOf("&Open\tCtrl+O"), "Ctrl+O");
}

TEST(MenuTitle, LastMnemonicCounts) {
  EXPECT_EQ(parseMenuTitle("&Save &as").mnemonic, 'a');
  EXPECT_EQ(parseMenuTitle("Save as").mnemonic, 0);
  EXPECT_EQ(parseMenuTitle("Save\t&as").mnemonic, 0);
}

TEST(MenuTitle, DoubledMarkIsACharacter) {
  const auto title = parseMenuTitle("Save && quit");
  EXPECT_EQ(title.text, "Save & quit");
  EXPECT_EQ(title.mnemonic, '&');
}

TEST(MenuTitle, MarkAtTheEndMarksNothing) {
  for (const char* text : {"Save&", "Save&\tas"}) {
    EXPECT_EQ(parseMenuTitle(text).text, "Save");
    EXPECT_EQ(parseMenuTitle(text).mnemonic, 0);
  }
}

TEST(MenuTitle, IsLatin1) {
  EXPECT_EQ(parseMenuTitle(NbString(L"\u00dcb&er \u03a9\t\u00e9")).text, "\xdc"
                                                                         "ber ?");
  EXPECT_EQ(parseMenuTitle(NbString(L"&\u00dcber")).mnemonic, '\xdc');
}

TEST(MenuTitle, EveryShortTextFollowsTheRules) {
  const std::regex mark("&(.|$)");
  forEachText("a&b\t", 6, [&](const std::string& text) {
    const std::string shown = text.substr(0, text.find('\t'));
    std::string marked;
    for (std::sregex_iterator it(shown.begin(), shown.end(), mark), end; it != end; ++it) {
      if ((*it)[1].length() > 0) marked = (*it)[1].str();
    }
    const auto title = parseMenuTitle(text);
    ASSERT_EQ(title.text, std::regex_replace(shown, mark, "$1")) << text;
    ASSERT_EQ(title.mnemonic, marked.empty() ? 0 : marked[0]) << text;
  });
}

TEST(AcceleratorText, IsWhatStandsBehindTheFirstTab) {
  EXPECT_EQ(acceleratorOf("Open"), "");
  EXPECT_EQ(acceleratorOf(""), "");
  EXPECT_EQ(acceleratorOf("Open\t"), "");
  EXPECT_EQ(acceleratorOf("\tCtrl+O"), "Ctrl+O");
  EXPECT_EQ(acceleratorOf("Open\tCtrl+O\tx"), "Ctrl+O\tx");
  EXPECT_EQ(acceleratorOf(NbString(L"\u03a9\tCtrl+\u03a9")), NbString(L"Ctrl+\u03a9"));
}

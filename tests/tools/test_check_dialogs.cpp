#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/TestSupport.h"
#include "tests/tools/Program.h"

namespace {

/// What `check` warns of in a scene text: each warning on a line, without the name of the file.
std::string warnings(const std::string& text) {
  const std::string path = writeScene("check-dialogs.arb", text);
  const Result result = runPanelix({"check", path});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  const std::string head = path + ": warning: ";
  std::string found = result.err;
  for (std::size_t at = found.find(head); at != found.npos; at = found.find(head, at)) found.erase(at, head.size());
  const auto count = std::count(found.begin(), found.end(), '\n') - 1;
  const std::string summary =
      "1 file: 0 errors, " + std::to_string(count) + (count == 1 ? " warning\n" : " warnings\n");
  EXPECT_TRUE(found.ends_with(summary)) << result.err;
  return found.substr(0, found.size() - std::min(found.size(), summary.size()));
}

/// The same for one component, without its name.
std::string warningsOf(const std::string& type, const std::string& fields) {
  std::string found = warnings(type + " { " + fields + " }");
  const std::string head = type + ": ";
  for (std::size_t at = 0; at < found.size(); at = found.find('\n', at) + 1) {
    EXPECT_EQ(found.compare(at, head.size(), head), 0) << found;
    found.erase(at, head.size());
  }
  return found;
}

} // namespace

TEST(CheckDialogs, GoodDialogsPass) {
  EXPECT_EQ(warnings("TopLevelDialog { auditorID \"a\" width 300 minWidth 200 maxWidth 400"
                     "  MenuBar { MenuPopup { MenuPushButton { label \"&Open\\tCtrl+O\" auditorID \"b\" } } }"
                     "  TabDialog { selectedPage 1 RowDialog { } RowDialog { } } }"
                     "TopLevelDialog { MenuBar { } }"),
            "");
}

TEST(CheckDialogs, SelectionsStandWithinTheirEntries) {
  for (const std::string type : {"DialogComboBox", "DialogRadioButtons", "DialogChoice", "MenuRadioButtons"}) {
    EXPECT_EQ(warningsOf(type, "items [ \"a\", \"b\" ] selectedItem 1"), "") << type;
    EXPECT_EQ(warningsOf(type, "items [ \"a\", \"b\" ] selectedItem 2"), "selectedItem 2 is outside 0 to 1\n") << type;
    EXPECT_EQ(warningsOf(type, "items [ \"a\", \"b\" ] selectedItem -1"), "selectedItem -1 is outside 0 to 1\n")
        << type;
    // One empty string is an empty list.
    EXPECT_EQ(warningsOf(type, ""), "") << type;
    EXPECT_EQ(warningsOf(type, "items [ ]"), "") << type;
    EXPECT_EQ(warningsOf(type, "selectedItem 1"), "selectedItem 1 stands where there are no entries\n") << type;
  }
  EXPECT_EQ(warningsOf("TabDialog", "selectedPage 2 DialogLabel { } DialogLabel { }"),
            "selectedPage 2 is outside 0 to 1\n");
  EXPECT_EQ(warningsOf("TabDialog", "selectedPage -1"), "selectedPage -1 stands where there are no pages\n");
  EXPECT_EQ(warningsOf("MenuFileSelection", "defaultFilter 1"), "defaultFilter 1 is outside 0 to 0\n");
  EXPECT_EQ(warningsOf("MenuFileSelection", "filter [ \"*.a\", \"A\", \"*.b\", \"B\" ] defaultFilter 1"), "");
}

TEST(CheckDialogs, SizesArePositiveAndWithinTheirLimits) {
  for (const std::string type : {"DialogLabel", "RowDialog", "TopLevelDialog"}) {
    EXPECT_EQ(warningsOf(type, "width 20 minWidth 10 maxWidth 30 height 10 minHeight 10 maxHeight 10"), "") << type;
    EXPECT_EQ(warningsOf(type, "width 20 height 30 minWidth 20 maxHeight 30"), "") << type;
    EXPECT_EQ(warningsOf(type, "minWidth 30 maxWidth 10 width 20"), "minWidth 30 is above maxWidth 10\n") << type;
    EXPECT_EQ(warningsOf(type, "minHeight 30 maxHeight 10"), "minHeight 30 is above maxHeight 10\n") << type;
    EXPECT_EQ(warningsOf(type, "minWidth 30 width 20"), "minWidth 30 is above width 20\n") << type;
    EXPECT_EQ(warningsOf(type, "maxHeight 30 height 31"), "height 31 is above maxHeight 30\n") << type;
    for (const std::string field : {"width", "height", "minWidth", "minHeight", "maxWidth", "maxHeight"}) {
      EXPECT_EQ(warningsOf(type, field + " -1"), field + " -1 is negative\n") << type;
    }
  }
  EXPECT_EQ(warningsOf("DialogLabel", "fixedWidth TRUE minWidth 30 maxWidth 10 width 20"), "");
  EXPECT_EQ(warningsOf("RowDialog", "margin -2 rowSpacing -3"), "margin -2 is negative\nrowSpacing -3 is negative\n");
  EXPECT_EQ(warningsOf("ColumnDialog", "columnSpacing -3"), "columnSpacing -3 is negative\n");
  EXPECT_EQ(warningsOf("TopLevelDialog", "margin -2 rowSpacing -3"),
            "margin -2 is negative\nrowSpacing -3 is negative\n");
}

TEST(CheckDialogs, NumbersOfSlidersStandWithinTheirLimits) {
  for (const std::string type : {"DialogIntegerSlider", "DialogRealSlider"}) {
    EXPECT_EQ(warningsOf(type, "min -5 max 5 value -5"), "") << type;
    EXPECT_EQ(warningsOf(type, "min -5 max 5 value 6"), "value 6 is outside -5 to 5\n") << type;
    EXPECT_EQ(warningsOf(type, "min -5 max 5 value -6"), "value -6 is outside -5 to 5\n") << type;
    EXPECT_EQ(warningsOf(type, "min 5 max -5"), "min 5 is above max -5\n") << type;
    EXPECT_EQ(warningsOf(type, "min 1"), "min and max are both 1; the thumb can't move\n") << type;
  }
  EXPECT_EQ(warningsOf("DialogRealSlider", "min 0.25 max 0.5 value 0.75"), "value 0.75 is outside 0.25 to 0.5\n");
}

TEST(CheckDialogs, FormatsHaveOneConversionOfTheirKind) {
  const auto isTaken = [](const std::string& type, const std::string& format) {
    return warningsOf(type, "format \"" + format + "\"").empty();
  };
  for (const char* format : {"%f", "%.3f", "%-8.2e mm", "%G%%", "at %+5.1lf"}) {
    EXPECT_TRUE(isTaken("DialogRealSlider", format)) << format;
    EXPECT_FALSE(isTaken("DialogIntegerSlider", format)) << format;
  }
  for (const char* format : {"%d", "%05i", "%x", "no. %d"}) {
    EXPECT_TRUE(isTaken("DialogIntegerSlider", format)) << format;
    EXPECT_FALSE(isTaken("DialogRealSlider", format)) << format;
  }
  for (const char* format : {"", "3", "%", "%s", "%n", "%*d", "%d%d", "%f%f", "%ld", "%Lf"}) {
    EXPECT_FALSE(isTaken("DialogRealSlider", format)) << format;
    EXPECT_FALSE(isTaken("DialogIntegerSlider", format)) << format;
  }
  EXPECT_EQ(warningsOf("DialogRealSlider", "format \"%s\""),
            "format \"%s\" isn't one conversion of a real number, such as \"%.3f\"\n");
  EXPECT_EQ(warningsOf("DialogIntegerSlider", "format \"%s\""),
            "format \"%s\" isn't one conversion of an integer, such as \"%d\"\n");
}

TEST(CheckDialogs, NumericTextsAreNumbers) {
  EXPECT_EQ(warningsOf("DialogEditText", "editText \"abc\""), "");
  EXPECT_EQ(warningsOf("DialogEditText", "isNumeric TRUE"), "");
  EXPECT_EQ(warningsOf("DialogEditText", "isNumeric TRUE editText \"-1.5e3\""), "");
  EXPECT_EQ(warningsOf("DialogEditText", "isNumeric TRUE editText \"abc\""),
            "editText \"abc\" is no number, as isNumeric wants it\n");
}

TEST(CheckDialogs, KeyCombinationsWork) {
  const std::string tail = " has no effect; it takes Ctrl and a key, such as \"Ctrl+O\"\n";
  for (const std::string type : {"MenuPushButton", "MenuCheckBox", "MenuFileSelection"}) {
    EXPECT_EQ(warningsOf(type, "accelerator \"Ctrl+O\""), "") << type;
    EXPECT_EQ(warningsOf(type, "accelerator \"Ctrl+Shift+O\" label \"Open\\tAlt+O\""), "") << type;
    EXPECT_EQ(warningsOf(type, "label \"Open\\tCtrl+O\""), "") << type;
    EXPECT_EQ(warningsOf(type, "accelerator \"Shift+F1\""), "accelerator \"Shift+F1\"" + tail) << type;
    EXPECT_EQ(warningsOf(type, "accelerator \"Ctrl+\""), "accelerator \"Ctrl+\"" + tail) << type;
    EXPECT_EQ(warningsOf(type, "label \"Open\\tAlt+O\""), "the title's \"Alt+O\"" + tail) << type;
    EXPECT_EQ(warningsOf(type, "accelerator \"O\" label \"Open\\tP\""),
              "accelerator \"O\"" + tail + "the title's \"P\"" + tail)
        << type;
  }
  const std::string items = "items [ \"a\", \"b\\tAlt+B\" ] ";
  EXPECT_EQ(warningsOf("MenuRadioButtons", items + "accelerators [ \"Ctrl+A\", \"Ctrl+B\" ]"), "");
  EXPECT_EQ(warningsOf("MenuRadioButtons", items), "the title's \"Alt+B\"" + tail);
  EXPECT_EQ(warningsOf("MenuRadioButtons", items + "accelerators [ \"A\", \"Ctrl+B\" ]"), "accelerators \"A\"" + tail);
  EXPECT_EQ(warningsOf("MenuRadioButtons", "items [ \"a\", \"b\" ] accelerators \"Ctrl+A\""),
            "accelerators doesn't have one value for each of the 2 entries\n");
}

TEST(CheckDialogs, FiltersArePairs) {
  EXPECT_EQ(warningsOf("MenuFileSelection", "filter [ ]"), "");
  EXPECT_EQ(warningsOf("MenuFileSelection", "filter [ \"*.a\", \"A\", \"*.b\" ]"),
            "filter has an odd number of values; they are pairs\n");
}

TEST(CheckDialogs, AnAuditorIDStandsOnceInAFile) {
  EXPECT_EQ(
      warnings("TopLevelDialog { auditorID \"a\" DialogLabel { auditorID \"b\" } RowDialog { DialogEditText { "
               "auditorID \"b\" } } } MessageDialog { auditorID \"a\" }"),
      "DialogEditText \"b\": has the auditorID of a DialogLabel ahead of it; a search finds only one of them\n"
      "MessageDialog \"a\": has the auditorID of a TopLevelDialog ahead of it; a search finds only one of them\n");
  // In two files, the same means nothing.
  const std::string one = writeScene("check-id-1.arb", "TopLevelDialog { auditorID \"a\" }");
  const std::string two = writeScene("check-id-2.arb", "TopLevelDialog { auditorID \"a\" }");
  EXPECT_EQ(runPanelix({"check", one, two}).err, "2 files: 0 errors, 0 warnings\n");
}

TEST(CheckDialogs, ADialogHasOneMenuBarOfItsOwn) {
  EXPECT_EQ(warnings("TopLevelDialog { MenuBar { } DialogLabel { } MenuBar { } }"),
            "TopLevelDialog / MenuBar 2: is behind another MenuBar; a dialog has one\n");
  EXPECT_EQ(warnings("Separator { MenuBar { } }"),
            "MenuBar: stands outside of a TopLevelDialog; the 2D form has no place for it\n");
}

TEST(CheckDialogs, AComponentHasOnePlace) {
  EXPECT_EQ(warnings("TopLevelDialog { DEF A DialogLabel { auditorID \"a\" } RowDialog { USE A } }"),
            "DialogLabel \"a\": has another place as well; a component has one\n");
  // A whole dialog may stand in the scene more than once.
  EXPECT_EQ(warnings("DEF D TopLevelDialog { auditorID \"d\" } Translation { } USE D"), "");
}

TEST(CheckDialogs, AMessageNamesTheComponentByItsWay) {
  const std::string bad = " width -1 ";
  const std::string tail = ": width -1 is negative\n";
  EXPECT_EQ(warnings("Separator { TopLevelDialog { auditorID \"settings\" RowDialog { DialogLabel { } } RowDialog { "
                     "DialogLabel { } DialogEditText {" +
                     bad + "} DialogLabel {" + bad + "} DialogLabel { auditorID \"x\"" + bad + "} } } }"),
            "TopLevelDialog \"settings\" / RowDialog 2 / DialogEditText" + tail +
                "TopLevelDialog \"settings\" / RowDialog 2 / DialogLabel 2" + tail + "DialogLabel \"x\"" + tail);
  // Also inside of menus and of the dialogs of launchers.
  EXPECT_EQ(warnings("TopLevelDialog { MenuBar { MenuPopup { MenuCheckBoxLauncher { TopLevelDialog {" + bad +
                     "} } } } DialogPushButtonLauncher { TopLevelDialog { } TopLevelDialog {" + bad + "} } }"),
            "TopLevelDialog / MenuBar / MenuPopup / MenuCheckBoxLauncher / TopLevelDialog" + tail +
                "TopLevelDialog / DialogPushButtonLauncher / TopLevelDialog 2" + tail);
  // A name stays on its line.
  EXPECT_EQ(warnings("DialogLabel { auditorID \"a\nb\"" + bad + "}"), "DialogLabel \"a\\u000ab\"" + tail);
}

TEST(CheckDialogs, AStrictCheckFails) {
  const std::string path = writeScene("check-strict.arb", "DialogLabel { width -1 }");
  EXPECT_EQ(runPanelix({"check", "--strict", path}).exitCode, 1);
  const Result json = runPanelix({"check", "--format=json", path});
  EXPECT_EQ(json.exitCode, 0);
  EXPECT_NE(json.out.find(R"("line": null, "column": null, "severity": "warning", )"
                          R"("message": "DialogLabel: width -1 is negative")"),
            json.out.npos)
      << json.out;
}

TEST(CheckDialogs, DeepAndWideFilesAreNoTrouble) {
  std::string deep = "TopLevelDialog { ";
  for (int i = 0; i < 1900; ++i) deep += "RowDialog { ";
  deep += "DialogLabel { auditorID \"a\" width -1 }";
  for (int i = 0; i < 1900; ++i) deep += " }";
  EXPECT_EQ(warnings(deep + " }"), "DialogLabel \"a\": width -1 is negative\n");
  // Each level doubles the ways to what is below.
  std::string shared = "DEF S0 Group { DialogLabel { auditorID \"a\" width -1 } } ";
  for (int i = 1; i < 40; ++i) {
    const std::string below = "USE S" + std::to_string(i - 1);
    shared += "DEF S" + std::to_string(i) + " Group { " + below + " " + below + " } ";
  }
  EXPECT_EQ(warnings(shared), "DialogLabel \"a\": width -1 is negative\n");
}

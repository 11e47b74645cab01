#include "tests/tools/Inspect.h"

#include <filesystem>

#include "tests/support/TestSupport.h"

namespace {

const std::string kPump =
    "TopLevelDialog { label \"Pump\" auditorID \"pump\" width 300 height 200 margin 5 rowSpacing 3"
    "  DialogLabel { label \"Running\" auditorID \"state\" fixedHeight TRUE height 30 }"
    "  RowDialog { auditorID \"row\" edgeStyle SHADOW_IN"
    "    DialogComponent { label \"turns\" } DialogSeparator { } } }";

} // namespace

TEST_F(Inspect, EachNodeTellsWhatItIsAndWhatTheLayoutGaveIt) {
  const Json pump = inspect(kPump);
  const std::vector<std::string> names{"type",      "auditorID",     "label",         "width",
                                       "height",    "minWidth",      "minHeight",     "maxWidth",
                                       "maxHeight", "position",      "labelInitSize", "componentInitSize",
                                       "labelSize", "componentSize", "box",           "children"};
  const Json& label = childOf(pump, 0);
  const Json& row = childOf(pump, 1);
  for (const Json* node : {&pump, &label, &row, &childOf(row, 0), &childOf(row, 1)}) EXPECT_EQ(node->names, names);
  EXPECT_EQ(count(pump), 5);
  EXPECT_EQ(pump["type"].string, "TopLevelDialog");
  EXPECT_EQ(pump["auditorID"].string, "pump");
  EXPECT_EQ(pump["label"].string, "Pump");
  EXPECT_EQ(sizeOf(pump), "300 200");
  EXPECT_EQ(numbers(pump["position"]), "0 0 0");
  EXPECT_EQ(pump["labelSize"].kind, Json::NONE);

  EXPECT_EQ(label["type"].string, "DialogLabel");
  EXPECT_EQ(sizeOf(label), "282 30");
  EXPECT_EQ(numbers(label["position"]), "5 5");
  EXPECT_EQ(label["minHeight"].number, 30);
  EXPECT_EQ(label["maxHeight"].number, 30);
  EXPECT_EQ(numbers(label["labelInitSize"]), "0 0");
  EXPECT_GT(label["componentInitSize"].items.at(0).number, 20);
  EXPECT_EQ(label["componentInitSize"].items.at(1).number, 16);

  EXPECT_EQ(row["auditorID"].string, "row");
  EXPECT_EQ(numbers(row["position"]), "5 38");
  const Json& turns = childOf(row, 0);
  EXPECT_EQ(turns["label"].string, "turns");
  EXPECT_EQ(numbers(turns["labelSize"]), numbers(turns["labelInitSize"]));
  EXPECT_GT(turns["labelSize"].items.at(0).number, 10);
  EXPECT_EQ(childOf(row, 1)["type"].string, "DialogSeparator");
}

TEST_F(Inspect, BoxesAreThoseOfTheScene) {
  const Json pump = inspect(kPump);
  EXPECT_EQ(numbers(pump["box"]), "(0 -200 0) (300 0 4)");
  // Behind the frame, the caption and the margin.
  EXPECT_EQ(numbers(childOf(pump, 0)["box"]), "(9 -58 1) (291 -28 2)");
  EXPECT_EQ(childOf(childOf(pump, 1), 0)["box"].items.at(0).items.at(2).number, 2);
  // The default is the 3D form.
  EXPECT_EQ(numbers(inspect(kPump, {"--form", "3d"})["box"]), numbers(pump["box"]));
}

TEST_F(Inspect, ADialogIsNamedByItsAuditorID) {
  const std::string text = kPump +
                           "Separator { TopLevelDialog { auditorID \"valve\" } }"
                           "TopLevelDialog { DialogPushButtonLauncher { TopLevelDialog { auditorID \"more\" } } }"
                           "RowDialog { auditorID \"lone\" DialogLabel { } }";
  EXPECT_EQ(inspect(text)["auditorID"].string, "pump");
  for (const std::string id : {"pump", "valve", "more", "lone"}) {
    EXPECT_EQ(inspect(text, {"--id", id})["auditorID"].string, id);
  }
  // A component inside of a dialog has no form of its own.
  const std::string path = writeScene("inspect.arb", text);
  const Result inner = runPanelix({"inspect", path, "--id", "row"});
  EXPECT_EQ(inner.exitCode, 2);
  EXPECT_EQ(inner.out, "");
  EXPECT_EQ(inner.err, path + ": error: there is no dialog with the auditorID 'row'\n");
  EXPECT_EQ(runPanelix({"inspect", path, "--id", "pumb"}).err,
            path + ": error: there is no dialog with the auditorID 'pumb'; did you mean 'pump'?\n");
}

TEST_F(Inspect, AComponentOutsideOfADialogIsBuiltAsInOne) {
  const std::string text = "RowDialog { auditorID \"lone\" DialogComponent { } }";
  for (const std::string form : {"2d", "3d"}) {
    const Json row = inspect(text, {"--form", form});
    EXPECT_EQ(row["type"].string, "RowDialog");
    EXPECT_EQ(numbers(row["position"]), "0 0");
    EXPECT_EQ(sizeOf(row), "206 34");
    EXPECT_EQ(sizeOf(childOf(row, 0)), "206 34");
  }
}

TEST_F(Inspect, ASizeTakesThePlaceOfTheFields) {
  for (const std::string form : {"2d", "3d"}) {
    const Json pump = inspect(kPump, {"--size", "500x400", "--form", form});
    EXPECT_EQ(sizeOf(pump), "500 400");
    EXPECT_EQ(childOf(pump, 0)["width"].number, 482);
    const std::string row = "RowDialog { DialogLabel { } }";
    EXPECT_EQ(sizeOf(inspect(row, {"--size", "350x60", "--form", form})), "350 60");
    const std::string bounded = "TopLevelDialog { minWidth 250 maxHeight 120 DialogLabel { } }";
    EXPECT_EQ(sizeOf(inspect(bounded, {"--size", "100x400", "--form", form})), "250 120");
  }
  const std::string bar = writeScene("bar.arb", "MenuBar { }");
  const Result result = runPanelix({"inspect", bar, "--size", "10x10"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.err, bar + ": error: a MenuBar has no size to set\n");
}

TEST_F(Inspect, TextsKeepTheirLetters) {
  const Json label = inspect("DialogLabel { label \"Gr\xC3\xBC\xC3\x9F \\\"quoted\\\"\" }");
  EXPECT_EQ(label["label"].string, "Gr\xC3\xBC\xC3\x9F \"quoted\"");
}

TEST_F(Inspect, WhatCanNotBeBuiltIsTold) {
  const Result missing = runPanelix({"inspect", "no-such-file.arb"});
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err.substr(0, 24), "no-such-file.arb: error:");
  const std::string broken = writeScene("inspect-broken.arb", "RowDialog { wdith 3 }");
  const Result result = runPanelix({"inspect", broken});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.rfind(broken + ":2:13: error: ", 0), 0u) << result.err;
  for (const std::string text : {"Cube { }", "MessageDialog { }", "MenuItem { }"}) {
    const std::string path = writeScene("inspect-none.arb", text);
    const Result none = runPanelix({"inspect", path});
    EXPECT_EQ(none.exitCode, 2) << text;
    EXPECT_EQ(none.out, "") << text;
    EXPECT_EQ(none.err, path + ": error: there is no dialog in the file\n") << text;
  }
}

TEST_F(Inspect, AllExamplesCanBeBuiltInBothForms) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(sourceDir() + "/examples/dialogs")) {
    const std::string path = entry.path().generic_string();
    const Json in2D = inspectFile(path, {"--form", "2d"});
    const Json in3D = inspectFile(path, {"--form", "3d"});
    EXPECT_GT(count(in3D), 10) << path;
    EXPECT_EQ(count(in2D), count(in3D)) << path;
    ++files;
  }
  EXPECT_GT(files, 2);
}

TEST_F(Inspect, ADeepDialogIsNoTrouble) {
  constexpr int kDepth = 200;
  std::string text = "TopLevelDialog { ";
  for (int i = 0; i < kDepth; ++i) text += "RowDialog { ";
  text += "DialogLabel { label \"deep\" }";
  for (int i = 0; i <= kDepth; ++i) text += " }";
  for (const std::string form : {"2d", "3d"}) EXPECT_EQ(count(inspect(text, {"--form", form})), kDepth + 2);
}

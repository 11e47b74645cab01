#include "FormsTest.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "Panelix/NkRowDialog.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkCube.h"

// Copies of components with a form in the scene: they are as the component was ahead of its build.

using arbora::Ref;

namespace {

/// A part that an application may put into a component of some class.
struct Case {
  const char* text;
  const char* part;
};

void PrintTo(const Case& param, std::ostream* out) { *out << param.text; }

class CopiesOfForms : public FormsTest, protected SceneUser, public ::testing::WithParamInterface<Case> {
protected:
  static Ref<NkPanelix> make(const std::string& text = GetParam().text) { return readOne<NkPanelix>(text); }
  static Ref<NkPanelix> copyOf(NkPanelix* node) { return Ref<NkPanelix>(static_cast<NkPanelix*>(node->copy())); }
  /// Builds the form as a scene does that is measured.
  static void build(NkPanelix* node) {
    boxOf(node);
    ASSERT_TRUE(node->isBuilt3D());
  }
  static int countNodes(NkNode* node) {
    int count = 1;
    const NkChildList* children = node->getChildren();
    for (int i = 0; children && i < children->getLength(); ++i) count += countNodes((*children)[i]);
    return count;
  }
  static void expectSameForm(NkPanelix* node, NkPanelix* expected) {
    EXPECT_EQ(boxOf(node), boxOf(expected));
    EXPECT_EQ(countNodes(node), countNodes(expected));
    EXPECT_EQ(difference(node, expected), "");
  }
  static std::string inDialog(std::string text) {
    if (text.starts_with("TopLevelDialog")) text = "DialogPushButtonLauncher { " + text + " }";
    return "TopLevelDialog { RowDialog { margin 5 DialogLabel { label \"Beside it\" } " + text + " } }";
  }
};

} // namespace

TEST_P(CopiesOfForms, AreAsTheyWereAheadOfTheBuild) {
  const Ref<NkPanelix> node = make();
  build(node.get());
  const Ref<NkPanelix> copy = copyOf(node.get());
  EXPECT_FALSE(copy->isBuilt3D());
  EXPECT_EQ(difference(copy.get(), make().get()), "");
  EXPECT_EQ(writeText(copy.get()), writeText(node.get()));
  EXPECT_EQ(writeBinary(copy.get()), writeBinary(node.get()));
}

TEST_P(CopiesOfForms, AreBuiltAsAFreshOneIs) {
  const Ref<NkPanelix> node = make();
  build(node.get());
  const Ref<NkPanelix> copy = copyOf(node.get());
  build(copy.get());
  const Ref<NkPanelix> fresh = make();
  build(fresh.get());
  expectSameForm(copy.get(), fresh.get());
  expectSameForm(node.get(), fresh.get());
}

TEST_P(CopiesOfForms, OfOnesWithoutAFormAreBuiltTheSame) {
  const Ref<NkPanelix> node = make();
  const Ref<NkPanelix> copy = copyOf(node.get());
  EXPECT_EQ(difference(copy.get(), node.get()), "");
  build(copy.get());
  EXPECT_FALSE(node->isBuilt3D());
  build(node.get());
  expectSameForm(copy.get(), node.get());
}

TEST_P(CopiesOfForms, StandInDialogs) {
  const std::string text = inDialog(GetParam().text);
  const Ref<NkPanelix> dialog = make(text);
  build(dialog.get());
  const std::string written = writeText(dialog.get());
  const Ref<NkPanelix> copy = copyOf(dialog.get());
  EXPECT_EQ(writeText(copy.get()), written);
  build(copy.get());
  // A size that was given is held within its limits for good, in files as in copies.
  const Ref<NkPanelix> again = make(written);
  build(again.get());
  expectSameForm(copy.get(), again.get());
  const Ref<NkPanelix> fresh = make(text);
  build(fresh.get());
  expectSameForm(dialog.get(), fresh.get());
}

TEST_P(CopiesOfForms, KnowNothingOfTheOriginal) {
  Ref<NkPanelix> node = make();
  build(node.get());
  const Ref<NkPanelix> copy = copyOf(node.get());
  node->label = "Another text";
  build(copy.get());
  node->enable = false;
  node = {};
  const Ref<NkPanelix> fresh = make();
  build(fresh.get());
  expectSameForm(copy.get(), fresh.get());
}

// Sizes that a layout has found out are found out anew.
TEST_P(CopiesOfForms, HaveSizesOfTheirOwn) {
  const Ref<NkPanelix> node = make();
  build(node.get());
  const Ref<NkPanelix> copy = copyOf(node.get());
  const Ref<NkPanelix> fresh = make();
  for (NkPanelix* each : {copy.get(), fresh.get()}) {
    each->label = "A text that is much longer than the one it was built with";
    build(each);
  }
  expectSameForm(copy.get(), fresh.get());
}

TEST_P(CopiesOfForms, HaveCopiesOfThePartsThatAnApplicationPut) {
  for (const bool isBuiltFirst : {false, true}) {
    const Ref<NkPanelix> node = make();
    if (isBuiltFirst) build(node.get());
    auto* part = new NkGroup;
    auto* cube = new NkCube;
    cube->depth = 50;
    part->addChild(cube);
    ASSERT_TRUE(node->setPart(GetParam().part, part));
    if (!isBuiltFirst) build(node.get());
    const Ref<NkPanelix> copy = copyOf(node.get());
    const Ref<NkPanelix> again = make(writeText(node.get()));
    EXPECT_EQ(difference(copy.get(), again.get()), "");
    build(copy.get());
    build(again.get());
    expectSameForm(copy.get(), again.get());
    NkNode* own = copy->getPart(GetParam().part, false);
    EXPECT_NE(own, part);
    EXPECT_EQ(difference(own, part), "");
  }
}

TEST_P(CopiesOfForms, HaveWhatAnApplicationChangedInAPart) {
  const Ref<NkPanelix> node = make();
  auto* part = static_cast<NkGroup*>(node->getPart(GetParam().part, true));
  part->addChild(new NkCube);
  build(node.get());
  const Ref<NkPanelix> copy = copyOf(node.get());
  build(copy.get());
  expectSameForm(copy.get(), node.get());
  NkNode* own = copy->getPart(GetParam().part, false);
  EXPECT_NE(own, part);
  EXPECT_EQ(difference(own, part), "");
  EXPECT_EQ(writeText(copy.get()), writeText(node.get()));
}

INSTANTIATE_TEST_SUITE_P(
    Classes, CopiesOfForms,
    ::testing::Values(
        Case{"DialogComponent { label \"Name\" width 80 maxHeight 40 edgeStyle SHADOW_IN }", "edgeStyleNone"},
        Case{"DialogLabel { label \"Two\\nlines\" }", "labelProp"}, Case{"DialogSeparator { enable FALSE }", "vFrame"},
        Case{"DialogGroup { DialogLabel { label \"a\" } DialogLabel { label \"b\" } }", "edgeStyleNone"},
        Case{"RowDialog { rowSpacing 4 DialogLabel { label \"a\" } DialogSeparator { } DialogLabel { label \"b\" } }",
             "edgeStyleNone"},
        Case{"ColumnDialog { margin 3 DialogLabel { label \"a\" } RowDialog { DialogCheckBox { onString \"b\" } } }",
             "edgeStyleShadowOut"},
        Case{"DialogPushButton { label \"Name\" buttonLabel \"Press\" fixedWidth TRUE }", "released"},
        Case{"DialogCheckBox { label \"Name\" onString \"yes\" offString \"no\" state TRUE labelVisibility FALSE }",
             "frame"},
        Case{"DialogPushButtonLauncher { buttonLabel \"Open\" TopLevelDialog { label \"a\" DialogLabel { } } }",
             "pressed"},
        Case{"DialogCheckBoxLauncher { onString \"Open\" TopLevelDialog { label \"a\" DialogLabel { } } }", "stateOn"},
        Case{"TopLevelDialog { label \"Title\" width 300 position3D 1 2 3 DialogCheckBox { onString \"on\" } }",
             "frame"}),
    [](const auto& test) {
      const std::string text = test.param.text;
      return text.substr(0, text.find(' '));
    });

#pragma once

#include <string>

#include "Panelix/NkPanelix.h"
#include "tests/scene/SceneTest.h"
#include "tests/scene/Trees.h"

/// Fixture with the toolkit in use. Tests start from the text of a dialog:
///
///     TEST_F(DialogTest, KeepsItsLabel) {
///       const auto box = readOne<NkDialogCheckBox>("DialogCheckBox { label \"on\" }");
///       ASSERT_TRUE(box);
///       EXPECT_EQ(difference(box.get(), readOne<NkDialogCheckBox>(writeText(box.get())).get()), "");
///     }
///
/// Nodes, sensors, windows and drawing objects that outlive their test fail it, so does a message that the test didn't
/// announce.
class DialogTest : public SceneTest {
protected:
  DialogTest() { NkPanelix::init(); }
  ~DialogTest() override { NkPanelix::finish(); }

  /// The first node of a text, which is asked to be of that class; NULL if the text can't be read.
  template <class Node>
  static arbora::Ref<Node> readOne(const std::string& text) {
    const arbora::Ref<NkSeparator> root = read(text);
    if (!root || root->getNumChildren() == 0) return {};
    NkNode* node = root->getChild(0);
    EXPECT_TRUE(node->isOfType(Node::getClassTypeId())) << node->getTypeId().getName().getString();
    return arbora::Ref<Node>(node->isOfType(Node::getClassTypeId()) ? static_cast<Node*>(node) : nullptr);
  }

  static std::string writeText(NkNode* node) { return writeTree(node, false); }
  static std::string writeBinary(NkNode* node) { return writeTree(node, true); }

  /// Empty if the trees are equal, else what differs first.
  static std::string difference(NkNode* a, NkNode* b) { return treeDifference(a, b); }
};

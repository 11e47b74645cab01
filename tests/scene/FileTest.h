#pragma once

#include <string>

#include "EveryField.h"
#include "SceneTest.h"

/// Fixture for files: the scene library with a node type that has a field of every kind.
class FileTest : public SceneTest {
protected:
  FileTest() { NkEveryField::initClass(); }
  ~FileTest() override { NkEveryField::exitClass(); }

  static std::string writeText(NkNode* node);
  static std::string writeBinary(NkNode* node);

  /// The first node of a text, which is asked to be of that class; NULL if the text can't be read.
  template <class Node>
  arbora::Ref<Node> readOne(const std::string& text) {
    const arbora::Ref<NkSeparator> root = read(text);
    if (!root || root->getNumChildren() == 0) return {};
    NkNode* node = root->getChild(0);
    EXPECT_TRUE(node->isOfType(Node::getClassTypeId()));
    return arbora::Ref<Node>(node->isOfType(Node::getClassTypeId()) ? static_cast<Node*>(node) : nullptr);
  }

  /// Empty if the trees are equal, else what differs first.
  static std::string difference(NkNode* a, NkNode* b);
};

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "DialogTest.h"
#include "arbora/base/NbRotation.h"
#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"

// What the root class does for all 3D forms.

using arbora::Ref;

namespace {

struct Root : NkPanelix {
  void set3DInactive() override {
    ++numInactive;
    NkPanelix::set3DInactive();
  }
  NkGroup* part(const char* name) { return static_cast<NkGroup*>(getAnyPart(name, true)); }

  int numInactive = 0;

  using NkPanelix::apply3DTranslation;
  using NkPanelix::compute3DDepth;
  using NkPanelix::getLabelCachedBBox;
  using NkPanelix::isLabelCachedBBox;
  using NkPanelix::m_disableMaterial;
  using NkPanelix::m_lastActive;
  using NkPanelix::m_pickStyle;
  using NkPanelix::m_visible3D;
  using NkPanelix::set3DCurrentActive;
  using NkPanelix::setLabelCacheBBox;
  using NkPanelix::undoTransformMatrix;
  using NkPanelix::writeNode;
};

class Form3D : public DialogTest {
protected:
  void build() {
    NbVec2i32 none(0, 0);
    node->buildWidget(nullptr, none, none, 0);
  }
  int pickStyle() const { return node->m_pickStyle->style.getValue(); }
  NbColor emissive() const { return node->m_disableMaterial->emissiveColor[0]; }

  const Ref<Root> node{new Root};
};

const NbColor kBlack(0, 0, 0);
const NbColor kGrey(0.5F, 0.5F, 0.5F);

} // namespace

TEST_F(Form3D, IsMadeWithTheFirstBuild) {
  EXPECT_FALSE(node->m_pickStyle);
  EXPECT_FALSE(node->m_disableMaterial);
  build();
  ASSERT_TRUE(node->m_pickStyle);
  ASSERT_TRUE(node->m_disableMaterial);
  node->setBuilt3D(1);
  const NkPickStyle* const made = node->m_pickStyle.get();
  build();
  EXPECT_EQ(node->m_pickStyle.get(), made);
}

// Enabling

TEST_F(Form3D, IsPickedByItsBoxIfEnabledByItself) {
  build();
  node->change3DEnable();
  EXPECT_EQ(pickStyle(), NkPickStyle::BOUNDING_BOX);
  EXPECT_EQ(pickStyle(), 1);
  EXPECT_EQ(emissive(), kBlack);
  node->enable = false;
  node->change3DEnable();
  EXPECT_EQ(pickStyle(), NkPickStyle::UNPICKABLE);
  EXPECT_EQ(pickStyle(), 2);
  EXPECT_EQ(emissive(), kGrey);
}

TEST_F(Form3D, IsPickedByItsShapesIfEnabledByItsParent) {
  build();
  node->change3DWidgetEnable(1);
  EXPECT_EQ(pickStyle(), NkPickStyle::SHAPE);
  EXPECT_EQ(pickStyle(), 0);
  EXPECT_EQ(emissive(), kBlack);
  node->change3DWidgetEnable(0);
  EXPECT_EQ(pickStyle(), 2);
  EXPECT_EQ(emissive(), kGrey);
  node->change3DWidgetEnable(2);
  EXPECT_EQ(pickStyle(), 0);
  node->enable = false;
  node->change3DWidgetEnable(1);
  EXPECT_EQ(pickStyle(), 2);
  EXPECT_EQ(emissive(), kGrey);
}

TEST_F(Form3D, FollowsEnableOnceItStands) {
  node->enable = false;
  build();
  EXPECT_EQ(emissive(), kBlack);
  node->setBuilt3D(1);
  node->enable = false;
  EXPECT_EQ(pickStyle(), 2);
  node->enable = true;
  EXPECT_EQ(pickStyle(), 1);
}

// Showing

TEST_F(Form3D, IsShownAndHiddenByTheSwitch) {
  EXPECT_EQ(node->m_visible3D, 1);
  // There is no switch yet.
  node->show3D(0);
  EXPECT_EQ(node->m_visible3D, 0);
  auto* geometry = static_cast<NkSwitch*>(static_cast<NkNode*>(node->part("geomSwitch")));
  node->show3D(1);
  EXPECT_EQ(geometry->whichChild.getValue(), -3);
  EXPECT_EQ(node->m_visible3D, 1);
  node->show3D(0);
  EXPECT_EQ(geometry->whichChild.getValue(), -1);
  node->show3D(5);
  EXPECT_EQ(geometry->whichChild.getValue(), -3);
  EXPECT_EQ(node->m_visible3D, 5);
}

// Parent's translation

TEST_F(Form3D, MovesWithItsParent) {
  EXPECT_EQ(node->get3DParentTranslation(), NbVec3f(0, 0, 0));
  NbVec3f offset(1, 2, 3);
  node->set3DParentTranslation(offset);
  EXPECT_EQ(node->get3DParentTranslation(), offset);
  node->part("geomSwitch");
  NkGroup* geometry = node->part("geomSeparator");
  const int before = geometry->getNumChildren();
  node->apply3DParentTranslation();
  ASSERT_EQ(geometry->getNumChildren(), before + 1);
  ASSERT_TRUE(geometry->getChild(0)->isOfType(NkTranslation::getClassTypeId()));
  const Ref<NkTranslation> first(static_cast<NkTranslation*>(geometry->getChild(0)));
  EXPECT_EQ(first->translation.getValue(), offset);
  offset = NbVec3f(-4, 0, 7);
  node->set3DParentTranslation(offset);
  EXPECT_EQ(first->translation.getValue(), offset);
  // Another one stands ahead of the first, which stays as it was from then on.
  node->apply3DParentTranslation();
  ASSERT_EQ(geometry->getNumChildren(), before + 2);
  EXPECT_EQ(geometry->getChild(1), first.get());
  NbVec3f last(9, 9, 9);
  node->set3DParentTranslation(last);
  EXPECT_EQ(first->translation.getValue(), offset);
  EXPECT_EQ(static_cast<NkTranslation*>(geometry->getChild(0))->translation.getValue(), last);
}

// The end of a subgraph

namespace {

class EndOfSubgraph : public Form3D {
protected:
  /// The translation at the end of the node of that text.
  Ref<NkTransform> endOf(const std::string& text) {
    const auto subgraph = readOne<NkNode>(text);
    const Ref<NkTransform> end(new NkTransform);
    if (subgraph) node->undoTransformMatrix(subgraph.get(), end.get());
    EXPECT_TRUE(subgraph);
    return end;
  }
  static void expectNear(const NbVec3f& a, const NbVec3f& b) {
    for (int axis = 0; axis < 3; ++axis) EXPECT_NEAR(a[axis], b[axis], 1e-4F) << "axis " << axis;
  }
  void expectTranslation(const std::string& text, float x, float y, float z) {
    SCOPED_TRACE(text);
    const Ref<NkTransform> end = endOf(text);
    expectNear(end->translation.getValue(), NbVec3f(x, y, z));
    expectNear(end->scaleFactor.getValue(), NbVec3f(1, 1, 1));
  }
};

} // namespace

TEST_F(EndOfSubgraph, IsTheStartOfAnEmptyOne) {
  expectTranslation("Group { }", 0, 0, 0);
  expectTranslation("Separator { }", 0, 0, 0);
  expectTranslation("Cube { }", 0, 0, 0);
}

TEST_F(EndOfSubgraph, SumsUpTranslationsTheLastIncluded) {
  expectTranslation("Translation { translation 1 2 3 }", 1, 2, 3);
  expectTranslation("Group { Translation { translation 1 2 3 } Cube { } Translation { translation 0 0 0.5 } }", 1, 2,
                    3.5F);
  expectTranslation("Separator { Translation { translation 1 2 3 } Cube { } }", 1, 2, 3);
}

TEST_F(EndOfSubgraph, KeepsAScaledTranslationWithoutTheScale) {
  expectTranslation("Separator { NkScale { scaleFactor 200 28 1 } Group { Translation { translation 0 0 0.5 } Cube { }"
                    "  Translation { translation 0.5 -0.5 0.5 } } }",
                    100, -14, 1);
  expectTranslation("Group { Translation { translation 1 1 1 } NkScale { scaleFactor 2 3 4 } }", 1, 1, 1);
}

TEST_F(EndOfSubgraph, LiesInTheInnermostSeparator) {
  expectTranslation("Separator { Translation { translation 1 0 0 } Separator { Translation { translation 0 1 0 }"
                    "  Separator { NkScale { scaleFactor 2 2 2 } Translation { translation 0 0 1 } } } }",
                    1, 1, 2);
  expectTranslation("Separator { Separator { Translation { translation 5 5 5 } } Translation { translation 1 0 0 } }",
                    1, 0, 0);
}

TEST_F(EndOfSubgraph, LiesInTheChosenChildOfASwitch) {
  const std::string children = " Translation { translation 1 0 0 } Translation { translation 0 2 0 } }";
  expectTranslation("Switch { whichChild 0" + children, 1, 0, 0);
  expectTranslation("Switch { whichChild 1" + children, 0, 2, 0);
  expectTranslation("Switch { whichChild -3" + children, 1, 2, 0);
  expectTranslation("Switch { whichChild -1" + children, 0, 0, 0);
}

TEST_F(EndOfSubgraph, KeepsTheRotation) {
  const Ref<NkTransform> end = endOf("Separator { Rotation { rotation 0 0 1 1.5707964 } NkScale { scaleFactor 3 5 7 }"
                                     "  Translation { translation 1 0 0 } }");
  expectNear(end->translation.getValue(), NbVec3f(0, 3, 0));
  expectNear(end->scaleFactor.getValue(), NbVec3f(1, 1, 1));
  NbVec3f turned;
  end->rotation.getValue().multVec(NbVec3f(1, 0, 0), turned);
  expectNear(turned, NbVec3f(0, 1, 0));
}

TEST_F(EndOfSubgraph, OverwritesWhatTheResultHeld) {
  const auto subgraph = readOne<NkNode>("Translation { translation 1 2 3 }");
  const auto result = readOne<NkTransform>("Transform { translation 7 7 7 scaleFactor 2 2 2 }");
  node->undoTransformMatrix(subgraph.get(), result.get());
  EXPECT_EQ(result->translation.getValue(), NbVec3f(1, 2, 3));
  EXPECT_EQ(result->scaleFactor.getValue(), NbVec3f(1, 1, 1));
}

TEST_F(EndOfSubgraph, GivesTheDepth) {
  const auto subgraph = readOne<NkNode>("Group { NkScale { scaleFactor 1 1 2 } Translation { translation 1 2 3 } }");
  EXPECT_FLOAT_EQ(node->compute3DDepth(subgraph.get()), 6);
}

TEST_F(EndOfSubgraph, IsMeasuredOnce) {
  const auto subgraph = readOne<NkTranslation>("Translation { translation 1 2 3 }");
  NbVec3f parents(10, 20, 30);
  node->set3DParentTranslation(parents);
  float depth = -1.0F;
  NbVec3f place(1, 1, 1);
  node->apply3DTranslation(subgraph.get(), depth, place);
  EXPECT_EQ(depth, 3);
  EXPECT_EQ(place, NbVec3f(11, 21, 34));
  subgraph->translation.setValue(0, 0, 100);
  place = NbVec3f(0, 0, 0);
  node->apply3DTranslation(subgraph.get(), depth, place);
  EXPECT_EQ(depth, 3);
  EXPECT_EQ(place, NbVec3f(10, 20, 33));
  depth = 0;
  node->apply3DTranslation(subgraph.get(), depth, place);
  EXPECT_EQ(depth, 0);
  EXPECT_EQ(place, NbVec3f(20, 40, 63));
}

// The cached box of the label

TEST_F(Form3D, KeepsTheBoxOfItsLabelUntilTheLabelChanges) {
  EXPECT_FALSE(node->isLabelCachedBBox());
  build();
  EXPECT_FALSE(node->isLabelCachedBBox());
  const NbBox3f box(0, -2, 0, 30, 9, 0);
  node->setLabelCacheBBox(box);
  EXPECT_TRUE(node->isLabelCachedBBox());
  EXPECT_FALSE(node->getLabelCachedBBox() != box);
  node->change3DLabel();
  EXPECT_FALSE(node->isLabelCachedBBox());
  EXPECT_FALSE(node->getLabelCachedBBox() != NbBox3f(-1, -1, -1, -1, -1, -1));
  node->setLabelCacheBBox(NbBox3f(-1, -1, -1, -1, -1, 0));
  EXPECT_TRUE(node->isLabelCachedBBox());
}

// The 3D input

TEST_F(Form3D, TellsThePreviousHolderOfTheInput) {
  const Ref<Root> other(new Root);
  Root::set3DCurrentActive(node.get());
  EXPECT_EQ(Root::m_lastActive, node.get());
  Root::set3DCurrentActive(node.get());
  EXPECT_EQ(node->numInactive, 0);
  Root::set3DCurrentActive(other.get());
  EXPECT_EQ(node->numInactive, 1);
  EXPECT_EQ(Root::m_lastActive, other.get());
  Root::set3DCurrentActive(nullptr);
  EXPECT_EQ(other->numInactive, 1);
  EXPECT_EQ(Root::m_lastActive, nullptr);
  Root::set3DCurrentActive(nullptr);
  EXPECT_EQ(node->numInactive, 1);
}

TEST_F(Form3D, GivesUpTheInput) {
  const Ref<Root> other(new Root);
  Root::set3DCurrentActive(node.get());
  other->set3DInactive();
  EXPECT_EQ(Root::m_lastActive, node.get());
  node->set3DInactive();
  EXPECT_EQ(Root::m_lastActive, nullptr);
}

TEST_F(Form3D, GivesUpTheInputAtItsEnd) {
  Ref<Root> other(new Root);
  Root::set3DCurrentActive(other.get());
  other = nullptr;
  EXPECT_EQ(Root::m_lastActive, nullptr);
  Root::set3DCurrentActive(node.get());
  other = Ref<Root>(new Root);
  other = nullptr;
  EXPECT_EQ(Root::m_lastActive, node.get());
  Root::set3DCurrentActive(nullptr);
}

// Writing

TEST_F(Form3D, IsWrittenAsAScene) {
  NkGroup* geometry = node->part("geomSwitch");
  const auto cube = readOne<NkNode>("Cube { width 7 }");
  geometry->addChild(cube.get());
  const std::string file = outputDir() + "/panelix-form.arb";
  node->writeNode(file.c_str());
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  const auto scene = readOne<NkGroup>(text.str());
  ASSERT_TRUE(scene);
  EXPECT_EQ(difference(node->part("topSeparator"), scene.get()), "");
  EXPECT_NE(text.str().find("Cube"), std::string::npos);
  EXPECT_EQ(text.str().rfind("#Arbora V2.1 ascii", 0), 0U);
  std::filesystem::remove(file);
}

TEST_F(Form3D, IsNotWrittenWhereNothingCanBe) {
  const std::string file = outputDir() + "/missing/form.arb";
  expectMessage(file);
  node->writeNode(file.c_str());
}

#include <memory>
#include <string>

#include "SceneTest.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkNodeKitListPart.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/NkWriteAction.h"
#include "tests/scene/Trees.h"

using arbora::Ref;

namespace {

/// What kits of all sorts consist of: intermediate and leaf parts, public and private ones, a kit, a list.
class SampleKit : public NkInteractionKit {
  NK_KIT_HEADER(SampleKit);

public:
  NkSFInt32 number;
  NkSFNode choice;     // private switch under geomSeparator
  NkSFNode frameGroup; // public group in it
  NkSFNode frame;      // public group in that
  NkSFNode label;      // public, ahead of choice
  NkSFNode shape;      // public, any node, a cube by default
  NkSFNode inner;      // public kit
  NkSFNode entries;    // public list of transforms

  SampleKit() {
    NK_KIT_CONSTRUCTOR(SampleKit);
    NK_NODE_ADD_FIELD(number, (7));
    NK_KIT_ADD_CATALOG_ENTRY(choice, NkSwitch, true, "geomSeparator", "", false);
    NK_KIT_ADD_CATALOG_ENTRY(frameGroup, NkGroup, true, "choice", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameGroup", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(label, NkGroup, true, "geomSeparator", "choice", true);
    NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(shape, NkNode, NkCube, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(inner, NkPlaneDragger, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_LIST_ENTRY(entries, NkSeparator, true, "geomSeparator", "", NkShape, true);
    NK_KIT_INIT_INSTANCE();
  }

  using NkInteractionKit::getAnyPart;
  using NkInteractionKit::setAnyPart;

  NkSeparator* geometry() { return static_cast<NkSeparator*>(getAnyPart("geomSeparator", false)); }

protected:
  ~SampleKit() override = default;
};
NK_KIT_SOURCE(SampleKit, NkInteractionKit, "SampleKit");

/// A kit whose copies are what a file would hold.
struct WrittenKit : SampleKit {
  bool isCopied(const NkField& field) const override { return isWritten(field); }
};

/// A kit with a part that is there from the start and a child that belongs to nobody's catalog.
class ContainerKit : public NkBaseKit {
  NK_KIT_HEADER(ContainerKit);

public:
  NkSFNode first;
  NkSFNode last;

  ContainerKit() {
    NK_KIT_CONSTRUCTOR(ContainerKit);
    NK_KIT_ADD_CATALOG_ENTRY(last, NkGroup, false, "this", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(first, NkGroup, true, "this", "last", true);
    NK_KIT_INIT_INSTANCE();
  }
  using NkBaseKit::addChild;
  using NkBaseKit::getChild;
  using NkBaseKit::getNumChildren;
  using NkBaseKit::insertChild;
  using NkBaseKit::removeAllChildren;
  using NkBaseKit::removeChild;
  using NkBaseKit::replaceChild;

protected:
  ~ContainerKit() override = default;
};
NK_KIT_SOURCE(ContainerKit, NkBaseKit, "ContainerKit");

class Kits : public SceneTest {
protected:
  Kits() {
    SampleKit::initClass();
    ContainerKit::initClass();
  }
  ~Kits() override {
    ContainerKit::exitClass();
    SampleKit::exitClass();
  }

  static std::string written(NkNode* node, bool binary = false) {
    NkOutput out;
    out.setBinary(binary);
    NkWriteAction action(&out);
    action.apply(node);
    return out.getString();
  }
  static bool contains(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }
};

/// A catalog as a class would fill it.
class Catalog : public Kits {
protected:
  Catalog() {
    EXPECT_TRUE(add("top", NkSeparator::getClassTypeId(), "this"));
    EXPECT_TRUE(add("leaf", NkCube::getClassTypeId(), "top"));
  }
  bool add(const char* name, NkType type, const char* parent, const char* right = "") {
    return catalog.addEntry(name, type, type, true, parent, right, false, NkType(), NkType(), true);
  }
  NkNodekitCatalog catalog;
};

} // namespace

// The catalog

TEST_F(Catalog, TellsWhatWasAdded) {
  ASSERT_TRUE(catalog.addEntry("any", NkNode::getClassTypeId(), NkGroup::getClassTypeId(), false, "top", "leaf", false,
                               NkType(), NkType(), false));
  EXPECT_EQ(catalog.getNumEntries(), 3);
  EXPECT_EQ(catalog.getPartNumber("any"), 2);
  EXPECT_EQ(catalog.getPartNumber("none"), -1);
  EXPECT_EQ(catalog.getName(2), "any");
  EXPECT_EQ(catalog.getType("any"), NkNode::getClassTypeId());
  EXPECT_EQ(catalog.getDefaultType("any"), NkGroup::getClassTypeId());
  EXPECT_FALSE(catalog.isNullByDefault("any"));
  EXPECT_TRUE(catalog.isNullByDefault("leaf"));
  EXPECT_EQ(catalog.getParentName("any"), "top");
  EXPECT_EQ(catalog.getParentName("top"), "this");
  EXPECT_EQ(catalog.getRightSiblingName("any"), "leaf");
  EXPECT_EQ(catalog.getRightSiblingName("leaf"), "");
  EXPECT_FALSE(catalog.isLeaf("top"));
  EXPECT_TRUE(catalog.isLeaf("leaf"));
  EXPECT_FALSE(catalog.isPublic("any"));
  EXPECT_TRUE(catalog.isPublic("leaf"));
  EXPECT_FALSE(catalog.isList("leaf"));
  EXPECT_FALSE(catalog.isPublic("none"));
  EXPECT_EQ(catalog.getName(-1), "");
  EXPECT_TRUE(catalog.getType(99).isBad());
}

TEST_F(Catalog, WithoutARightSiblingPartsStandInTheOrderOfRegistration) {
  add("second", NkCube::getClassTypeId(), "top");
  add("third", NkCube::getClassTypeId(), "top");
  add("between", NkCube::getClassTypeId(), "top", "second");
  EXPECT_EQ(catalog.getRightSiblingName("leaf"), "between");
  EXPECT_EQ(catalog.getRightSiblingName("between"), "second");
  EXPECT_EQ(catalog.getRightSiblingName("second"), "third");
}

TEST_F(Catalog, ACloneIsATableOfItsOwn) {
  const std::unique_ptr<NkNodekitCatalog> clone(catalog.clone(NkGroup::getClassTypeId()));
  EXPECT_TRUE(clone->addEntry("more", NkGroup::getClassTypeId(), NkGroup::getClassTypeId(), true, "top", "", false,
                              NkType(), NkType(), true));
  EXPECT_EQ(clone->getNumEntries(), 3);
  EXPECT_EQ(catalog.getNumEntries(), 2);
}

TEST_F(Catalog, RefusesANameThatIsTaken) {
  expectMessage("the name is taken");
  EXPECT_FALSE(add("leaf", NkCube::getClassTypeId(), "top"));
}

TEST_F(Catalog, RefusesAnEmptyNameAndTheKitsOwn) {
  expectMessage("can't be a name");
  EXPECT_FALSE(add("", NkCube::getClassTypeId(), "top"));
  expectMessage("can't be a name");
  EXPECT_FALSE(add("this", NkCube::getClassTypeId(), "top"));
}

TEST_F(Catalog, RefusesAnUnknownParent) {
  expectMessage("there is no such parent (nowhere)");
  EXPECT_FALSE(add("part", NkCube::getClassTypeId(), "nowhere"));
}

TEST_F(Catalog, RefusesAParentThatCantHaveChildren) {
  expectMessage("its parent can't have children (leaf)");
  EXPECT_FALSE(add("part", NkCube::getClassTypeId(), "leaf"));
  EXPECT_TRUE(catalog.isLeaf("leaf"));
}

TEST_F(Catalog, RefusesARightSiblingThatIsUnknownOrElsewhere) {
  expectMessage("there is no such right sibling (nobody)");
  EXPECT_FALSE(add("part", NkCube::getClassTypeId(), "top", "nobody"));
  expectMessage("its right sibling has another parent (leaf)");
  EXPECT_FALSE(add("part", NkCube::getClassTypeId(), "this", "leaf"));
}

TEST_F(Catalog, RefusesADefaultTypeThatDoesntFit) {
  const auto addTyped = [&](NkType type, NkType defaultType) {
    return catalog.addEntry("part", type, defaultType, true, "top", "", false, NkType(), NkType(), true);
  };
  expectMessage("its default type is abstract (Node)");
  EXPECT_FALSE(addTyped(NkNode::getClassTypeId(), NkNode::getClassTypeId()));
  expectMessage("its default type doesn't derive from its type (Group)");
  EXPECT_FALSE(addTyped(NkGroup::getClassTypeId(), NkCube::getClassTypeId()));
  expectMessage("its type is no node class");
  EXPECT_FALSE(addTyped(NkType(), NkType()));
  EXPECT_EQ(catalog.getNumEntries(), 2);
}

TEST_F(Catalog, RefusesListsThatCantWork) {
  const NkType list = NkNodeKitListPart::getClassTypeId();
  const auto addList = [&](NkType type, NkType container, NkType item) {
    return catalog.addEntry("list", type, type, true, "top", "", true, container, item, true);
  };
  expectMessage("a list has to be a NkNodeKitListPart");
  EXPECT_FALSE(addList(NkGroup::getClassTypeId(), NkGroup::getClassTypeId(), NkCube::getClassTypeId()));
  expectMessage("its container type can't hold children (Cube)");
  EXPECT_FALSE(addList(list, NkCube::getClassTypeId(), NkCube::getClassTypeId()));
  expectMessage("its item type is no node class");
  EXPECT_FALSE(addList(list, NkGroup::getClassTypeId(), NkType()));
  EXPECT_TRUE(addList(list, NkGroup::getClassTypeId(), NkCube::getClassTypeId()));
  EXPECT_EQ(catalog.getListItemType("list"), NkCube::getClassTypeId());
  expectMessage("its parent is a list (list)");
  EXPECT_FALSE(add("part", NkCube::getClassTypeId(), "list"));
}

TEST_F(Catalog, AClassHasItsParentsPartsAheadOfItsOwn) {
  const Ref<SampleKit> kit(new SampleKit);
  const NkNodekitCatalog* own = SampleKit::getClassNodekitCatalog();
  EXPECT_EQ(kit->getNodekitCatalog(), own);
  EXPECT_EQ(own->getName(0), "topSeparator");
  EXPECT_EQ(own->getName(1), "geomSeparator");
  EXPECT_EQ(own->getName(2), "choice");
  EXPECT_EQ(NkInteractionKit::getClassNodekitCatalog()->getNumEntries(), 2);
  EXPECT_EQ(kit->getIsBuiltIn(), 1);
}

// Making parts

TEST_F(Kits, ANewKitHasNoParts) {
  const Ref<SampleKit> kit(new SampleKit);
  EXPECT_EQ(kit->getChildren()->getLength(), 0);
  EXPECT_EQ(kit->frame.getValue(), nullptr);
  EXPECT_EQ(kit->getPart("frame", false), nullptr);
  EXPECT_EQ(kit->getChildren()->getLength(), 0);
}

TEST_F(Kits, APartComesWithItsParents) {
  const Ref<SampleKit> kit(new SampleKit);
  NkNode* frame = kit->getPart("frame", true);
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(kit->frame.getValue(), frame);
  EXPECT_TRUE(frame->isOfType(NkGroup::getClassTypeId()));
  ASSERT_EQ(kit->getChildren()->getLength(), 1);
  auto* top = static_cast<NkGroup*>((*kit->getChildren())[0]);
  EXPECT_EQ(top, kit->getAnyPart("topSeparator", false));
  ASSERT_EQ(top->getNumChildren(), 1);
  EXPECT_EQ(top->getChild(0), kit->geometry());
  EXPECT_EQ(static_cast<NkGroup*>(kit->frameGroup.getValue())->findChild(frame), 0);
  EXPECT_EQ(kit->getPart("frame", true), frame);
}

TEST_F(Kits, PartsStandInTheirOrderWhateverWasMadeFirst) {
  const Ref<SampleKit> kit(new SampleKit);
  kit->getPart("inner", true);
  kit->getPart("frame", true);
  kit->getPart("shape", true);
  kit->getPart("label", true);
  NkSeparator* geometry = kit->geometry();
  ASSERT_EQ(geometry->getNumChildren(), 4);
  EXPECT_EQ(geometry->getChild(0), kit->label.getValue());
  EXPECT_EQ(geometry->getChild(1), kit->choice.getValue());
  EXPECT_EQ(geometry->getChild(2), kit->shape.getValue());
  EXPECT_EQ(geometry->getChild(3), kit->inner.getValue());
}

TEST_F(Kits, ForeignChildrenStayWhereTheyAre) {
  const Ref<SampleKit> kit(new SampleKit);
  NkNode* choice = kit->getAnyPart("choice", true);
  NkSeparator* geometry = kit->geometry();
  auto* ahead = new NkTranslation;
  auto* behind = new NkMaterial;
  geometry->insertChild(ahead, 0);
  geometry->addChild(behind);
  NkNode* label = kit->getPart("label", true);
  NkNode* shape = kit->getPart("shape", true);
  ASSERT_EQ(geometry->getNumChildren(), 5);
  EXPECT_EQ(geometry->getChild(0), ahead);
  EXPECT_EQ(geometry->getChild(1), label);
  EXPECT_EQ(geometry->getChild(2), choice);
  EXPECT_EQ(geometry->getChild(3), behind);
  EXPECT_EQ(geometry->getChild(4), shape);
}

TEST_F(Kits, PartsThatArentNullByDefaultAreThereFromTheStart) {
  const Ref<ContainerKit> kit(new ContainerKit);
  ASSERT_NE(kit->last.getValue(), nullptr);
  EXPECT_TRUE(kit->last.isDefault());
  EXPECT_EQ(kit->getNumChildren(), 1);
}

// Getting and setting parts

TEST_F(Kits, PrivatePartsAreNotForEveryone) {
  const Ref<SampleKit> kit(new SampleKit);
  expectMessage("NkBaseKit::getPart(): Part \"choice\" of SampleKit isn't public");
  EXPECT_EQ(kit->getPart("choice", true), nullptr);
  expectMessage("NkBaseKit::setPart(): Part \"choice\" of SampleKit isn't public");
  EXPECT_FALSE(kit->setPart("choice", Ref<NkNode>(new NkSwitch).get()));
  EXPECT_NE(kit->getAnyPart("choice", true), nullptr);
}

TEST_F(Kits, NamesOfNoPartArePosted) {
  const Ref<SampleKit> kit(new SampleKit);
  for (const char* name :
       {"nothing", "", "label[0]", "entries[", "entries[x]", "entries[-1]", "label.", "entries[0]x"}) {
    expectMessage(std::string("\"") + name + "\" is no part of a SampleKit");
    EXPECT_EQ(kit->getPart(name, false), nullptr) << name;
  }
}

TEST_F(Kits, LeafCheckRefusesAParent) {
  const Ref<SampleKit> kit(new SampleKit);
  expectMessage("isn't a leaf");
  EXPECT_EQ(kit->getAnyPart("frameGroup", true, true), nullptr);
  EXPECT_NE(kit->getAnyPart("frame", true, true), nullptr);
}

TEST_F(Kits, SettingAPartReplacesItInItsPlace) {
  const Ref<SampleKit> kit(new SampleKit);
  kit->getPart("shape", true);
  kit->getPart("inner", true);
  auto* sphere = new NkSphere;
  EXPECT_TRUE(kit->setPart("shape", sphere));
  EXPECT_EQ(kit->shape.getValue(), sphere);
  EXPECT_EQ(kit->geometry()->getChild(0), sphere);
  EXPECT_EQ(kit->geometry()->getNumChildren(), 2);
  EXPECT_FALSE(kit->shape.isDefault());
}

TEST_F(Kits, SettingNullTakesThePartAndWhatIsBelowOut) {
  const Ref<SampleKit> kit(new SampleKit);
  kit->getPart("frame", true);
  EXPECT_TRUE(kit->setPart("frameGroup", nullptr));
  EXPECT_EQ(kit->frameGroup.getValue(), nullptr);
  EXPECT_EQ(kit->frame.getValue(), nullptr);
  EXPECT_EQ(static_cast<NkGroup*>(kit->choice.getValue())->getNumChildren(), 0);
  EXPECT_TRUE(kit->setPart("frameGroup", nullptr));
}

TEST_F(Kits, PartsMoveToTheNewParent) {
  const Ref<SampleKit> kit(new SampleKit);
  NkNode* frame = kit->getPart("frame", true);
  const Ref<NkGroup> before(static_cast<NkGroup*>(kit->frameGroup.getValue()));
  auto* after = new NkGroup;
  EXPECT_TRUE(kit->setPart("frameGroup", after));
  EXPECT_EQ(kit->frame.getValue(), frame);
  EXPECT_EQ(after->findChild(frame), 0);
  EXPECT_EQ(before->findChild(frame), -1);
}

TEST_F(Kits, ANodeOfAnotherTypeIsRefused) {
  const Ref<SampleKit> kit(new SampleKit);
  NkNode* label = kit->getPart("label", true);
  const Ref<NkNode> cube(new NkCube);
  expectMessage("A Cube can't be part \"label\" of SampleKit, which takes a Group");
  EXPECT_FALSE(kit->setPart("label", cube.get()));
  EXPECT_EQ(kit->label.getValue(), label);
  expectMessage("A Cube can't be part \"label\" of SampleKit, which takes a Group");
  kit->label = cube.get();
  EXPECT_EQ(kit->label.getValue(), label);
  EXPECT_EQ(kit->geometry()->findChild(cube.get()), -1);
}

TEST_F(Kits, AHolderThatIsWrittenMovesTheTree) {
  const Ref<SampleKit> kit(new SampleKit);
  auto* sphere = new NkSphere;
  kit->shape = sphere;
  EXPECT_EQ(kit->geometry()->findChild(sphere), 0);
  auto* cube = new NkCube;
  kit->shape = cube;
  EXPECT_EQ(kit->geometry()->getNumChildren(), 1);
  EXPECT_EQ(kit->geometry()->getChild(0), cube);
  kit->shape = nullptr;
  EXPECT_EQ(kit->geometry()->getNumChildren(), 0);
}

TEST_F(Kits, ASensorOnAHolderMayChangeTheKit) {
  const Ref<SampleKit> kit(new SampleKit);
  NkFieldSensor sensor(
      [](void* data, NkSensor*) {
        auto* changed = static_cast<SampleKit*>(data);
        if (!changed->label.getValue()) changed->getPart("label", true);
      },
      kit.get());
  sensor.setPriority(0);
  sensor.attach(&kit->shape);
  kit->setPart("shape", new NkSphere);
  EXPECT_EQ(kit->geometry()->getNumChildren(), 2);
  EXPECT_EQ(kit->geometry()->getChild(0), kit->label.getValue());
}

TEST_F(Kits, PartNamesOfNodes) {
  const Ref<SampleKit> kit(new SampleKit);
  NkNode* shape = kit->getPart("shape", true);
  EXPECT_EQ(kit->getPartString(shape), "shape");
  EXPECT_EQ(kit->getPartString(kit->geometry()), "geomSeparator");
  EXPECT_EQ(kit->getPartString(nullptr), "");
  EXPECT_EQ(kit->getPartString(kit.get()), "");
  kit->setPart("entries[0]", new NkCube);
  auto* sphere = new NkSphere;
  kit->setPart("entries[1]", sphere);
  EXPECT_EQ(kit->getPartString(sphere), "entries[1]");
}

TEST_F(Kits, PartsOfKitsInside) {
  const Ref<SampleKit> kit(new SampleKit);
  EXPECT_EQ(kit->getPart("inner.geometry", false), nullptr);
  EXPECT_EQ(kit->inner.getValue(), nullptr);
  NkNode* geometry = kit->getPart("inner.geometry", true);
  ASSERT_NE(geometry, nullptr);
  auto* dragger = static_cast<NkPlaneDragger*>(kit->inner.getValue());
  EXPECT_EQ(dragger->getPartString(geometry), "geometry");
  EXPECT_TRUE(kit->setPart("inner.geometry", new NkCube));
  EXPECT_TRUE(dragger->getPart("geometry", false)->isOfType(NkCube::getClassTypeId()));
  expectMessage("isn't public");
  EXPECT_EQ(kit->getPart("inner.topSeparator", true), nullptr);
  expectMessage("has no parts");
  EXPECT_EQ(kit->getPart("shape.geometry", true), nullptr);
}

TEST_F(Kits, Lists) {
  const Ref<SampleKit> kit(new SampleKit);
  EXPECT_TRUE(kit->setPart("entries[0]", new NkCube));
  auto* list = static_cast<NkNodeKitListPart*>(kit->entries.getValue());
  EXPECT_EQ(list->getContainerType(), NkSeparator::getClassTypeId());
  EXPECT_EQ(list->getNumItems(), 1);
  EXPECT_TRUE(list->addItem(new NkSphere));
  EXPECT_EQ(kit->getPart("entries[1]", false), list->getItem(1));
  EXPECT_TRUE(kit->setPart("entries[0]", nullptr));
  EXPECT_EQ(list->getNumItems(), 1);
  EXPECT_TRUE(list->getItem(0)->isOfType(NkSphere::getClassTypeId()));
  EXPECT_EQ(kit->getPart("entries[5]", false), nullptr);

  const Ref<NkNode> group(new NkGroup);
  expectMessage("Group can't be an item of this list");
  EXPECT_FALSE(kit->setPart("entries[1]", group.get()));
  expectMessage("Index 5 is out of range 0 - 0");
  EXPECT_FALSE(list->setItem(5, Ref<NkNode>(new NkCube).get()));
  expectMessage("in a container of another type");
  EXPECT_FALSE(list->setContainerType(NkGroup::getClassTypeId()));
}

TEST_F(Kits, AListMakesItemsOfTheFirstTypeThatCanBeMade) {
  const Ref<NkNodeKitListPart> list(new NkNodeKitListPart);
  list->addItemType(NkShape::getClassTypeId());
  EXPECT_EQ(list->getItem(0, true), nullptr);
  list->addItemType(NkCube::getClassTypeId());
  NkNode* item = list->getItem(0, true);
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(item->isOfType(NkCube::getClassTypeId()));
  EXPECT_EQ(list->getNumItems(), 1);
}

TEST_F(Kits, AListOfAnotherKindIsRefused) {
  const Ref<SampleKit> kit(new SampleKit);
  const Ref<NkNodeKitListPart> list(new NkNodeKitListPart);
  list->setContainerType(NkSeparator::getClassTypeId());
  expectMessage("which takes a NodeKitListPart of items of type Shape");
  EXPECT_FALSE(kit->setPart("entries", list.get()));
  list->addItemType(NkCube::getClassTypeId());
  EXPECT_TRUE(kit->setPart("entries", list.get()));
}

// Children

TEST_F(Kits, ChildrenOfAContainer) {
  const Ref<ContainerKit> kit(new ContainerKit);
  auto* cube = new NkCube;
  kit->insertChild(cube, 0);
  NkNode* first = kit->getPart("first", true);
  EXPECT_EQ(kit->getChild(0), cube);
  EXPECT_EQ(kit->getChild(1), first);
  EXPECT_EQ(kit->getChild(2), kit->last.getValue());
  kit->removeChild(first);
  EXPECT_EQ(kit->first.getValue(), nullptr);
  auto* sphere = new NkSphere;
  kit->replaceChild(cube, sphere);
  EXPECT_EQ(kit->getChild(0), sphere);
  auto* group = new NkGroup;
  kit->replaceChild(1, group);
  EXPECT_EQ(kit->last.getValue(), group);
  kit->removeAllChildren();
  EXPECT_EQ(kit->getNumChildren(), 0);
  EXPECT_EQ(kit->last.getValue(), nullptr);
}

TEST_F(Kits, ChildrenThatArentThereArePosted) {
  const Ref<ContainerKit> kit(new ContainerKit);
  expectMessage("NkBaseKit::addChild(): NULL child node");
  kit->addChild(nullptr);
  expectMessage("NkBaseKit::getChild(): Index 4 is out of range 0 - 0");
  EXPECT_EQ(kit->getChild(4), nullptr);
  expectMessage("NkBaseKit::removeChild(): Index -1 is out of range 0 - 0");
  kit->removeChild(-1);
  expectMessage("NkBaseKit::insertChild(): Index 3 is out of range 0 - 1");
  kit->insertChild(Ref<NkNode>(new NkCube).get(), 3);
}

// Default parts

TEST_F(Kits, SwitchValuesTolerateWhatIsNoSwitch) {
  NkInteractionKit::setSwitchValue(nullptr, 0);
  const Ref<NkGroup> group(new NkGroup);
  NkInteractionKit::setSwitchValue(group.get(), 0);
  const Ref<NkSwitch> choice(new NkSwitch);
  int writes = 0;
  NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &writes);
  sensor.setPriority(0);
  sensor.attach(&choice->whichChild);
  NkInteractionKit::setSwitchValue(choice.get(), -3);
  NkInteractionKit::setSwitchValue(choice.get(), -3);
  EXPECT_EQ(choice->whichChild.getValue(), -3);
  EXPECT_EQ(writes, 1);
}

TEST_F(Kits, ADefaultPartIsTheNodeOfThatName) {
  const Ref<SampleKit> kit(new SampleKit);
  const Ref<NkGroup> older(new NkGroup);
  const Ref<NkGroup> skin(new NkGroup);
  older->setName("Skin");
  skin->setName("Skin");
  EXPECT_TRUE(kit->setPartAsDefault("frame", "Skin"));
  EXPECT_EQ(kit->frame.getValue(), skin.get());
  EXPECT_TRUE(kit->frame.isDefault());
  EXPECT_EQ(static_cast<NkGroup*>(kit->frameGroup.getValue())->findChild(skin.get()), 0);
}

TEST_F(Kits, OfSeveralNodesOfThatNameTheDefaultPartIsTheFirstThatALookUpGives) {
  // Who exchanges the content of named nodes while kits use them has to meet the one in use.
  const auto older = read("DEF Look Group { Cube { } }");
  const auto newer = read("DEF Look Group { Sphere { } }");
  const Ref<SampleKit> kit(new SampleKit);
  EXPECT_TRUE(kit->setPartAsDefault("frame", "Look"));
  NkNodeList nodes;
  ASSERT_EQ(NkNode::getByName("Look", nodes), 2);
  EXPECT_EQ(kit->frame.getValue(), nodes[0]);
  // A name that is given back counts as given last.
  nodes[0]->setName("Spare");
  nodes[0]->setName("Look");
  nodes.truncate(0);
  NkNode::getByName("Look", nodes);
  EXPECT_EQ(kit->frame.getValue(), nodes[0]);
}

TEST_F(Kits, NoSuchDefaultPartIsNoError) {
  const Ref<SampleKit> kit(new SampleKit);
  const Ref<NkGroup> skin(new NkGroup);
  EXPECT_FALSE(kit->setPartAsDefault("caret", skin.get()));
  EXPECT_FALSE(kit->setPartAsDefault("frame", "NobodyHasThisName"));
  EXPECT_FALSE(kit->setPartAsDefault("frame", static_cast<NkNode*>(nullptr)));
  EXPECT_EQ(kit->frame.getValue(), nullptr);
}

TEST_F(Kits, APartThatWasChangedIsNotReplacedByADefault) {
  const Ref<SampleKit> kit(new SampleKit);
  const Ref<NkGroup> skin(new NkGroup);
  auto* own = new NkGroup;
  kit->setPart("frame", own);
  EXPECT_FALSE(kit->setPartAsDefault("frame", skin.get()));
  EXPECT_EQ(kit->frame.getValue(), own);
  EXPECT_TRUE(kit->setPartAsDefault("frame", skin.get(), false));
  EXPECT_EQ(kit->frame.getValue(), skin.get());
  EXPECT_TRUE(kit->frame.isDefault());

  NkNode* label = kit->getPart("label", true);
  EXPECT_FALSE(kit->setPartAsDefault("label", skin.get())) << "an application has it";
  EXPECT_EQ(kit->label.getValue(), label);
}

// Writing and reading

TEST_F(Kits, DefaultPartsArentWritten) {
  const Ref<SampleKit> kit(new SampleKit);
  const Ref<NkGroup> skin(new NkGroup);
  kit->setPartAsDefault("frame", skin.get());
  NkInteractionKit::setSwitchValue(kit->choice.getValue(), -3);
  static_cast<NkGroup*>(kit->choice.getValue())->insertChild(new NkTranslation, 0);
  const std::string text = written(kit.get());
  EXPECT_TRUE(contains(text, "SampleKit"));
  EXPECT_FALSE(contains(text, "frame"));
  EXPECT_FALSE(contains(text, "choice"));
  EXPECT_FALSE(contains(text, "Separator"));
}

TEST_F(Kits, APartThatWasAskedForIsWrittenOnceItDiffers) {
  const Ref<SampleKit> kit(new SampleKit);
  auto* shape = static_cast<NkCube*>(kit->getPart("shape", true));
  EXPECT_FALSE(contains(written(kit.get()), "shape"));
  shape->width = 5;
  EXPECT_TRUE(contains(written(kit.get()), "shape"));
  auto* group = static_cast<NkGroup*>(kit->getPart("frameGroup", true));
  EXPECT_FALSE(contains(written(kit.get()), "frameGroup"));
  group->addChild(new NkCube);
  EXPECT_TRUE(contains(written(kit.get()), "frameGroup"));
}

TEST_F(Kits, ReadsItsPartsAndWritesThemBack) {
  const char* const text = "SampleKit { number 3 label Group { Cube { width 4 } } shape Sphere { radius 2 }"
                           " inner PlaneDragger { translation 1 2 3 geometry Cube { } } }";
  for (const bool binary : {false, true}) {
    const Ref<NkSeparator> first = read(text);
    ASSERT_TRUE(first);
    const std::string file = written(first->getChild(0), binary);
    const Ref<NkSeparator> root = read(file);
    ASSERT_TRUE(root) << file;
    auto* kit = static_cast<SampleKit*>(root->getChild(0));
    EXPECT_EQ(kit->number.getValue(), 3);
    ASSERT_EQ(kit->geometry()->getNumChildren(), 3);
    EXPECT_EQ(kit->geometry()->getChild(0), kit->label.getValue());
    EXPECT_EQ(static_cast<NkSphere*>(kit->shape.getValue())->radius.getValue(), 2);
    auto* dragger = static_cast<NkPlaneDragger*>(kit->inner.getValue());
    EXPECT_EQ(dragger->translation.getValue(), NbVec3f(1, 2, 3));
    EXPECT_TRUE(dragger->getPart("geometry", false)->isOfType(NkCube::getClassTypeId()));
  }
}

TEST_F(Kits, ANodeOfAnotherTypeInAFileIsAnErrorInTheFile) {
  expectMessage("<buffer>:2:8: error: a node of type Cube can't be the value of the field 'label'");
  EXPECT_FALSE(read("SampleKit {\n label Cube { } number 3 }"));
}

TEST_F(Kits, APartThatStandsInItsParentsTextIsRecognised) {
  const Ref<SampleKit> kit(new SampleKit);
  auto* group = new NkGroup;
  kit->setPart("frameGroup", group);
  auto* frame = new NkGroup;
  kit->setPart("frame", frame);
  group->addChild(new NkCube);
  const Ref<NkSeparator> root = read(written(kit.get()));
  ASSERT_TRUE(root);
  auto* again = static_cast<SampleKit*>(root->getChild(0));
  auto* groupAgain = static_cast<NkGroup*>(again->frameGroup.getValue());
  ASSERT_NE(groupAgain, nullptr);
  EXPECT_EQ(groupAgain->getNumChildren(), 2);
  EXPECT_EQ(groupAgain->getChild(0), again->frame.getValue());
}

TEST_F(Kits, ListsAreWrittenAndRead) {
  const Ref<SampleKit> kit(new SampleKit);
  kit->setPart("entries[0]", new NkCube);
  kit->setPart("entries[1]", new NkSphere);
  const Ref<NkSeparator> root = read(written(kit.get()));
  ASSERT_TRUE(root);
  auto* list = static_cast<NkNodeKitListPart*>(static_cast<SampleKit*>(root->getChild(0))->entries.getValue());
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->getNumItems(), 2);
  EXPECT_TRUE(list->getItem(1)->isOfType(NkSphere::getClassTypeId()));
}

TEST_F(Kits, ACopyHasCopiesOfTheParts) {
  const Ref<SampleKit> kit(new SampleKit);
  static_cast<NkCube*>(kit->getPart("shape", true))->width = 9;
  kit->getPart("frame", true);
  kit->geometry()->insertChild(new NkTranslation, 0);
  const Ref<NkNode> made(kit->copy());
  auto* copy = static_cast<SampleKit*>(made.get());
  ASSERT_NE(copy->shape.getValue(), nullptr);
  EXPECT_NE(copy->shape.getValue(), kit->shape.getValue());
  EXPECT_EQ(static_cast<NkCube*>(copy->shape.getValue())->width.getValue(), 9);
  ASSERT_NE(copy->geometry(), nullptr);
  EXPECT_EQ(copy->geometry()->getNumChildren(), 3);
  EXPECT_EQ(copy->geometry()->getChild(2), copy->shape.getValue());
  EXPECT_EQ((*copy->getChildren())[0], copy->getAnyPart("topSeparator", false));
  EXPECT_EQ(copy->getChildren()->getLength(), 1);
  EXPECT_EQ(kit->geometry()->getNumChildren(), 3) << "the original is as it was";
  copy->setPart("shape", nullptr);
  EXPECT_NE(kit->shape.getValue(), nullptr);
}

TEST_F(Kits, ACopyOfWhatIsWrittenHasPlacesForTheParts) {
  const Ref<SampleKit> kit(new WrittenKit);
  auto* frame = new NkGroup;
  frame->addChild(new NkCube);
  kit->setPart("frame", frame);
  kit->setPart("label", new NkGroup);
  kit->geometry()->insertChild(new NkTranslation, 0);
  const Ref<NkNode> made(kit->copy());
  auto* copy = static_cast<SampleKit*>(made.get());
  ASSERT_NE(copy->frame.getValue(), nullptr);
  EXPECT_NE(copy->frame.getValue(), frame);
  EXPECT_EQ(treeDifference(copy->frame.getValue(), frame), "");
  // As in a kit that was told of the parts: each stands in its place, and nothing else does.
  ASSERT_NE(copy->geometry(), nullptr);
  ASSERT_EQ(copy->geometry()->getNumChildren(), 2);
  EXPECT_EQ(copy->geometry()->getChild(0), copy->label.getValue());
  EXPECT_EQ(copy->geometry()->getChild(1), copy->choice.getValue());
  EXPECT_EQ((*copy->choice.getValue()->getChildren())[0], copy->frameGroup.getValue());
  EXPECT_EQ((*copy->frameGroup.getValue()->getChildren())[0], copy->frame.getValue());
  EXPECT_EQ(written(copy), written(kit.get()));
}

TEST_F(Kits, ACopyOfWhatIsWrittenHasTheWholeOfAPartThatIs) {
  const Ref<SampleKit> kit(new WrittenKit);
  kit->setPart("frameGroup", new NkGroup);
  kit->getAnyPart("frame", true);
  const Ref<NkNode> made(kit->copy());
  auto* copy = static_cast<SampleKit*>(made.get());
  auto* group = static_cast<NkGroup*>(copy->frameGroup.getValue());
  ASSERT_NE(group, nullptr);
  ASSERT_EQ(group->getNumChildren(), 1);
  EXPECT_EQ(group->getChild(0), copy->frame.getValue());
}

TEST_F(Kits, ACopiedDraggerFollowsItsOwnTranslation) {
  const Ref<NkPlaneDragger> dragger(new NkPlaneDragger);
  const Ref<NkNode> made(dragger->copy());
  auto* copy = static_cast<NkPlaneDragger*>(made.get());
  copy->translation.setValue(1, 2, 3);
  NkSearchAction search;
  search.setType(NkTranslation::getClassTypeId());
  search.apply(copy);
  ASSERT_NE(search.getPath(), nullptr);
  auto* moved = static_cast<NkTranslation*>(search.getPath()->full()->getTail());
  EXPECT_EQ(moved->translation.getValue(), NbVec3f(1, 2, 3));
}

// Notification

TEST_F(Kits, AChangeInAPartReachesWhatHoldsTheKit) {
  const Ref<NkSeparator> root(new NkSeparator);
  const Ref<SampleKit> kit(new SampleKit);
  root->addChild(kit.get());
  auto* shape = static_cast<NkCube*>(kit->getPart("shape", true));
  int changes = 0;
  NkNodeSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &changes);
  sensor.setPriority(0);
  sensor.attach(root.get());
  shape->width = 3;
  EXPECT_EQ(changes, 1);
  kit->getPart("label", true);
  EXPECT_GT(changes, 1);
}

// Searching and picking

TEST_F(Kits, ASearchEndsAtTheOutermostKitForThePublic) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* kit = new SampleKit;
  root->addChild(kit);
  NkNode* cube = nullptr;
  kit->setPart("inner.geometry", cube = new NkCube);
  for (const int interest : {NkSearchAction::FIRST, NkSearchAction::LAST}) {
    NkSearchAction search;
    search.setNode(cube);
    search.setInterest(interest);
    search.apply(root.get());
    ASSERT_NE(search.getPath(), nullptr);
    EXPECT_EQ(search.getPath()->getTail(), kit);
    EXPECT_EQ(search.getPath()->full()->getTail(), cube);
  }
  NkSearchAction all;
  all.setType(NkCube::getClassTypeId());
  all.setInterest(NkSearchAction::ALL);
  all.apply(root.get());
  ASSERT_EQ(all.getPaths().getLength(), 1);
  EXPECT_EQ(all.getPaths()[0]->getTail(), kit);
}

TEST_F(Kits, SearchesCanPassKitsBy) {
  const Ref<SampleKit> kit(new SampleKit);
  kit->getPart("shape", true);
  NkSearchAction search;
  search.setType(NkCube::getClassTypeId());
  NkBaseKit::setSearchingChildren(false);
  search.apply(kit.get());
  NkBaseKit::setSearchingChildren(true);
  EXPECT_EQ(search.getPath(), nullptr);
  search.apply(kit.get());
  EXPECT_NE(search.getPath(), nullptr);
}

TEST_F(Kits, APickTellsThePublicPart) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* kit = new SampleKit;
  root->addChild(kit);
  NkInteractionKit::setSwitchValue(kit->getAnyPart("choice", true), -3);
  auto* cube = new NkCube;
  static_cast<NkGroup*>(kit->getPart("frame", true))->addChild(cube);
  NkRayPickAction pick(NbViewportRegion(100, 100));
  pick.setRay(NbVec3f(0, 0, 10), NbVec3f(0, 0, -1));
  pick.apply(root.get());
  NkPickedPoint* point = pick.getPickedPoint();
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->getPath()->getTail(), kit);
  EXPECT_TRUE(point->getPath()->containsNode(cube));
  NkDetail* detail = point->getDetail(kit);
  ASSERT_NE(detail, nullptr);
  ASSERT_TRUE(detail->isOfType(NkNodeKitDetail::getClassTypeId()));
  auto* told = static_cast<NkNodeKitDetail*>(detail);
  EXPECT_EQ(told->getNodeKit(), kit);
  EXPECT_EQ(told->getPart(), kit->frame.getValue());
  EXPECT_EQ(told->getPartName(), "frame");
  const std::unique_ptr<NkNodeKitDetail> copy(told->copy());
  EXPECT_EQ(copy->getPartName(), "frame");
}

TEST_F(Kits, EachKitOnThePickPathHasADetail) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* kit = new SampleKit;
  root->addChild(kit);
  auto* cube = new NkCube;
  kit->setPart("inner.geometry", cube);
  NkRayPickAction pick(NbViewportRegion(100, 100));
  pick.setRay(NbVec3f(0, 0, 10), NbVec3f(0, 0, -1));
  pick.setPickAll(true);
  pick.apply(root.get());
  NkPickedPoint* point = pick.getPickedPoint();
  ASSERT_NE(point, nullptr);
  auto* outer = static_cast<NkNodeKitDetail*>(point->getDetail(kit));
  auto* inner = static_cast<NkNodeKitDetail*>(point->getDetail(kit->inner.getValue()));
  ASSERT_NE(outer, nullptr);
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(outer->getPartName(), "inner");
  EXPECT_EQ(inner->getPartName(), "geometry");
  EXPECT_EQ(inner->getPart(), cube);
  EXPECT_EQ(point->getPath()->getTail(), kit);
}

TEST_F(Kits, APickBesideTheKitHasNoDetail) {
  const Ref<NkSeparator> root(new NkSeparator);
  root->addChild(new NkCube);
  auto* kit = new SampleKit;
  root->addChild(kit);
  static_cast<NkCube*>(kit->getPart("shape", true))->width = 0.1f;
  NkRayPickAction pick(NbViewportRegion(100, 100));
  pick.setRay(NbVec3f(0.5f, 0.5f, 10), NbVec3f(0, 0, -1));
  pick.apply(root.get());
  ASSERT_NE(pick.getPickedPoint(), nullptr);
  EXPECT_EQ(pick.getPickedPoint()->getDetail(kit), nullptr);
}

// The modules

TEST_F(Kits, ModulesCountTheirInits) {
  NkInteraction::init();
  NkInteraction::finish();
  EXPECT_TRUE(NkInteraction::isInitialized());
  EXPECT_FALSE(NkPlaneDragger::getClassTypeId().isBad());
  EXPECT_TRUE(NkNodeKit::isInitialized());
}

#include "SceneTest.h"
#include "arbora/scene/NkCone.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/NkWriteAction.h"

using arbora::Ref;

using ObjectModel = SceneTest;

TEST_F(ObjectModel, TypesAreFoundByNameWithAndWithoutPrefix) {
  EXPECT_EQ(NkType::fromName("Cube"), NkCube::getClassTypeId());
  EXPECT_EQ(NkType::fromName("NkCube"), NkCube::getClassTypeId());
  EXPECT_TRUE(NkType::fromName("Cubes").isBad());
  EXPECT_EQ(NkCube::getClassTypeId().getName(), "Cube");
}

TEST_F(ObjectModel, TypeRegisteredWithPrefixIsFoundWithoutIt) {
  const NkType type = NkType::createType(NkType::badType(), "NkPrefixed");
  EXPECT_EQ(NkType::fromName("Prefixed"), type);
  EXPECT_TRUE(NkType::removeType("NkPrefixed"));
  EXPECT_TRUE(NkType::fromName("Prefixed").isBad());
}

TEST_F(ObjectModel, RemovingAnUnknownTypeIsRefused) {
  EXPECT_FALSE(NkType::removeType("NoSuchType"));
  NkType::createType(NkType::badType(), "ShortLived");
  EXPECT_TRUE(NkType::removeType("ShortLived"));
  EXPECT_FALSE(NkType::removeType("ShortLived"));
}

TEST_F(ObjectModel, ATypeRegisteredTwiceIsPosted) {
  const NkType type = NkType::createType(NkType::badType(), "Twice");
  expectMessage("The type \"Twice\" is registered already");
  EXPECT_EQ(NkType::createType(NkType::badType(), "Twice"), type);
  NkType::removeType("Twice");
}

TEST_F(ObjectModel, DerivationGoesUpTheWholeChain) {
  EXPECT_TRUE(NkSeparator::getClassTypeId().isDerivedFrom(NkGroup::getClassTypeId()));
  EXPECT_TRUE(NkSeparator::getClassTypeId().isDerivedFrom(NkBase::getClassTypeId()));
  EXPECT_FALSE(NkGroup::getClassTypeId().isDerivedFrom(NkSeparator::getClassTypeId()));
  EXPECT_FALSE(NkType::badType().isDerivedFrom(NkType::badType()));
}

TEST_F(ObjectModel, InstancesAreMadeByType) {
  const Ref<NkBase> cube(NkCube::getClassTypeId().createInstance());
  ASSERT_TRUE(cube);
  EXPECT_TRUE(cube->isOfType(NkCube::getClassTypeId()));
  EXPECT_EQ(NkNode::getClassTypeId().createInstance(), nullptr);
}

TEST_F(ObjectModel, TheLastReferenceDeletes) {
  const int before = NkBase::getLiveCount();
  auto* cube = new NkCube;
  EXPECT_EQ(cube->getRefCount(), 0);
  cube->ref();
  cube->ref();
  cube->unref();
  EXPECT_EQ(NkBase::getLiveCount(), before + 1);
  cube->unrefNoDelete();
  EXPECT_EQ(NkBase::getLiveCount(), before + 1);
  cube->ref();
  cube->unref();
  EXPECT_EQ(NkBase::getLiveCount(), before);
}

TEST_F(ObjectModel, AVeryLongChainIsReleasedWithoutDeepRecursion) {
  Ref<NkGroup> head(new NkGroup);
  NkGroup* tail = head.get();
  for (int i = 0; i < 200000; ++i) {
    auto* next = new NkGroup;
    tail->addChild(next);
    tail = next;
  }
  head = Ref<NkGroup>();
}

TEST_F(ObjectModel, NamesFindNodesTheLastNamedAhead) {
  const Ref<NkGroup> first(new NkGroup);
  const Ref<NkCube> second(new NkCube);
  first->setName("part");
  second->setName("part");
  NkNodeList nodes;
  EXPECT_EQ(NkNode::getByName("part", nodes), 2);
  EXPECT_EQ(nodes[0], second.get());
  EXPECT_EQ(nodes[1], first.get());
  EXPECT_EQ(NkNode::getByName("part"), second.get());
  second->setName("");
  NkNodeList rest;
  EXPECT_EQ(NkNode::getByName("part", rest), 1);
  EXPECT_EQ(NkNode::getByName("nobody"), nullptr);
}

TEST_F(ObjectModel, ADeadNodeLosesItsName) {
  Ref<NkGroup> group(new NkGroup);
  group->setName("gone");
  group = Ref<NkGroup>();
  EXPECT_EQ(NkNode::getByName("gone"), nullptr);
}

TEST_F(ObjectModel, ManyNodesOfOneNameGoInAnyOrder) {
  const Ref<NkGroup> all(new NkGroup);
  for (int i = 0; i < 20000; ++i) {
    auto* group = new NkGroup;
    group->setName("crowd");
    all->addChild(group);
  }
  all->removeAllChildren();
  EXPECT_EQ(NkNode::getByName("crowd"), nullptr);
}

TEST_F(ObjectModel, FieldsAreFoundByNameAndByEventName) {
  const Ref<NkCube> cube(new NkCube);
  EXPECT_EQ(cube->getField("width"), &cube->width);
  EXPECT_EQ(cube->getField("girth"), nullptr);
  EXPECT_EQ(cube->getEventIn("set_width"), &cube->width);
  EXPECT_EQ(cube->getEventIn("width"), &cube->width);
  EXPECT_EQ(cube->getEventOut("width_changed"), &cube->width);
  EXPECT_EQ(cube->getEventOut("set_width"), nullptr);
  NbName name;
  EXPECT_TRUE(cube->getFieldName(&cube->height, name));
  EXPECT_EQ(name, "height");
}

TEST_F(ObjectModel, EqualFieldsAreEqualAndCopied) {
  const Ref<NkCube> a(new NkCube);
  const Ref<NkCube> b(new NkCube);
  const Ref<NkGroup> other(new NkGroup);
  a->width = 7;
  EXPECT_FALSE(a->fieldsAreEqual(b.get()));
  EXPECT_FALSE(a->fieldsAreEqual(other.get()));
  b->copyFieldValues(a.get());
  EXPECT_TRUE(a->fieldsAreEqual(b.get()));
  EXPECT_FALSE(b->width.isDefault());
  EXPECT_TRUE(b->height.isDefault());
}

TEST_F(ObjectModel, UserDataIsKept) {
  const Ref<NkCube> cube(new NkCube);
  int data = 0;
  EXPECT_EQ(cube->getUserData(), nullptr);
  cube->setUserData(&data);
  EXPECT_EQ(cube->getUserData(), &data);
}

TEST_F(ObjectModel, ACopySharesNothingAndKeepsSharing) {
  const Ref<NkGroup> original(new NkGroup);
  auto* cube = new NkCube;
  cube->width = 3;
  original->addChild(cube);
  original->addChild(cube);
  auto* inner = new NkSwitch;
  inner->whichChild = 0;
  inner->addChild(cube);
  original->addChild(inner);
  const Ref<NkNode> copy(original->copy());
  auto* group = static_cast<NkGroup*>(copy.get());
  ASSERT_EQ(group->getNumChildren(), 3);
  EXPECT_NE(group->getChild(0), cube);
  EXPECT_EQ(group->getChild(0), group->getChild(1));
  EXPECT_EQ(static_cast<NkSwitch*>(group->getChild(2))->getChild(0), group->getChild(0));
  EXPECT_EQ(static_cast<NkCube*>(group->getChild(0))->width.getValue(), 3.0f);
}

TEST_F(ObjectModel, InitAndFinishAreCounted) {
  NkDB::init();
  NkDB::finish();
  EXPECT_FALSE(NkCube::getClassTypeId().isBad());
}

TEST(ObjectModelLifecycle, ClassesComeAndGoManyTimes) {
  for (int i = 0; i < 100; ++i) {
    NkDB::init();
    Ref<NkCube> cube(new NkCube);
    EXPECT_EQ(NkType::fromName("Cube"), NkCube::getClassTypeId());
    EXPECT_EQ(cube->getField("width"), &cube->width);
    cube = Ref<NkCube>();
    NkDB::finish();
    EXPECT_TRUE(NkType::fromName("Cube").isBad());
  }
}

TEST(ObjectModelLifecycle, FinishAheadOfInitDoesNothing) {
  NkDB::finish();
  NkDB::init();
  EXPECT_FALSE(NkCube::getClassTypeId().isBad());
  NkDB::finish();
}

TEST(ObjectModelLifecycle, ConstructionAheadOfInitClassIsPostedAndGoesOn) {
  NkDB::init();
  NkCube::exitClass();
  expectMessage("Can't construct a node of type NkCube until initClass() has been called");
  {
    const Ref<NkCube> cube(new NkCube);
    EXPECT_TRUE(cube->isOfType(NkCube::getClassTypeId()));
  }
  NkDB::finish();
}

TEST(ObjectModelLifecycle, AClassAheadOfItsParentIsPostedAndRegistersIt) {
  NkDB::init();
  NkSwitch::exitClass();
  NkSeparator::exitClass();
  NkGroup::exitClass();
  expectMessage("NkSwitch initialized before parent class NkGroup");
  NkSwitch::initClass();
  EXPECT_TRUE(NkSwitch::getClassTypeId().isDerivedFrom(NkGroup::getClassTypeId()));
  NkSeparator::initClass();
  NkDB::finish();
}

TEST(ObjectModelLifecycle, ExitClassTwiceIsPosted) {
  NkDB::init();
  NkCube::exitClass();
  expectMessage("Unable to remove type (Cube) for this class. Check exitClass() method is implemented");
  NkCube::exitClass();
  NkCube::initClass();
  NkDB::finish();
}

TEST_F(ObjectModel, ANodeThatOutlivesTheLibraryCanBeWrittenWhenItIsBack) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(new NkCube);
  NkInteraction::finish();
  NkNodeKit::finish();
  NkDB::finish();
  NkDB::init();
  NkNodeKit::init();
  NkInteraction::init();
  NkWriteAction action;
  action.apply(group.get());
  const Ref<NkSeparator> again = read(action.getOutput()->getString());
  ASSERT_TRUE(again);
  ASSERT_EQ(again->getNumChildren(), 1);
  EXPECT_TRUE(again->getChild(0)->isOfType(NkGroup::getClassTypeId()));
}

TEST(ObjectModelLifecycle, ANodeThatOutlivesTheLibraryHasNoFieldsToShow) {
  NkDB::init();
  const Ref<NkCone> survivor(new NkCone);
  NkDB::finish();
  expectMessage("NkCone(): Instance not properly constructed.\nDid you forget to put NK_NODE_CONSTRUCTOR() in the "
                "constructor?");
  EXPECT_EQ(survivor->getField("parts"), nullptr);
  NkDB::init();
  EXPECT_EQ(survivor->getField("parts"), nullptr);
  {
    const Ref<NkCone> other(new NkCone);
    EXPECT_EQ(other->getField("parts"), &other->parts);
    EXPECT_EQ(survivor->getField("parts"), &survivor->parts);
  }
  NkDB::finish();
}

TEST(ObjectModelLifecycle, AnEnumFieldKnowsItsNamesWhenItsNodeOutlivesTheLibrary) {
  NkDB::init();
  const Ref<NkCone> survivor(new NkCone);
  survivor->parts = NkCone::BOTTOM;
  NkDB::finish();
  EXPECT_EQ(survivor->parts.get(), NbString("BOTTOM"));
  NkDB::init();
  {
    const Ref<NkCone> other(new NkCone);
    other->parts = NkCone::BOTTOM;
    EXPECT_EQ(other->parts.get(), NbString("BOTTOM"));
    EXPECT_EQ(other->parts.getEnums(), survivor->parts.getEnums());
    EXPECT_EQ(other->parts.getEnums()->names.size(), 3U);
  }
  NkDB::finish();
}

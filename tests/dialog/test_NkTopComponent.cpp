#include "Panelix/NkTopComponent.h"

#include "DialogTest.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"

namespace {

using arbora::Ref;

struct Component : NkTopComponent {
  using NkTopComponent::getAnyPart;
};

class TopComponent : public DialogTest {
protected:
  static Ref<NkTranslation> makeTranslation(float x, const char* name = "") {
    Ref<NkTranslation> translation(new NkTranslation);
    translation->translation.setValue(x, 0, 0);
    translation->setName(name);
    return translation;
  }
  NkGroup* geometry() const { return static_cast<NkGroup*>(component->getAnyPart("geomSwitch", true)); }
  float xOf(int child) const {
    return static_cast<NkTranslation*>(geometry()->getChild(child))->translation.getValue()[0];
  }

  const Ref<Component> component{new Component};
};

TEST_F(TopComponent, IsMadeByItsName) {
  const NkType type = NkType::fromName("TopComponent");
  EXPECT_EQ(type, NkTopComponent::getClassTypeId());
  const Ref<NkBase> made(static_cast<NkBase*>(type.createInstance()));
  ASSERT_TRUE(made);
  EXPECT_EQ(made->getTypeId(), type);
  EXPECT_TRUE(type.isDerivedFrom(NkPanelix::getClassTypeId()));
}

TEST_F(TopComponent, SizesStayAsTheCallerSetThem) {
  NbVec2i32 size(1, 2);
  NbVec2i32 min(3, 4);
  NbVec2i32 max(5, 6);
  component->getSize(size, min, max);
  EXPECT_EQ(size, NbVec2i32(1, 2));
  EXPECT_EQ(min, NbVec2i32(3, 4));
  EXPECT_EQ(max, NbVec2i32(5, 6));
}

TEST_F(TopComponent, EachTranslationComesFirst) {
  const int before = geometry()->getNumChildren();
  const Ref<NkTranslation> first = makeTranslation(1);
  const Ref<NkTranslation> second = makeTranslation(2);
  component->addTranslation(first.get());
  component->addTranslation(second.get());
  EXPECT_EQ(geometry()->getNumChildren(), before + 2);
  EXPECT_EQ(geometry()->getChild(0), second.get());
  EXPECT_EQ(geometry()->getChild(1), first.get());
}

TEST_F(TopComponent, NamedTranslationTakesTheValueOver) {
  const Ref<NkTranslation> kept = makeTranslation(1, "parentPositionTranslation");
  component->addTranslation(kept.get());
  const int before = geometry()->getNumChildren();
  component->addTranslation(makeTranslation(2, "parentPositionTranslation").get());
  EXPECT_EQ(xOf(0), 2);
  // Only the name of the one that stands there counts.
  component->addTranslation(makeTranslation(3).get());
  EXPECT_EQ(xOf(0), 3);
  EXPECT_EQ(geometry()->getNumChildren(), before);
  EXPECT_EQ(geometry()->getChild(0), kept.get());
}

TEST_F(TopComponent, NamedTranslationComesAheadOfAnother) {
  component->addTranslation(makeTranslation(1).get());
  component->addTranslation(makeTranslation(2, "parentPositionTranslation").get());
  EXPECT_EQ(xOf(0), 2);
  EXPECT_EQ(xOf(1), 1);
}

} // namespace

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Panelix/NkPanelix.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"

/// Opens the parts of a component to the tests.
template <class Component>
class Opened : public Component {
public:
  using Component::Component;
  NkNode* part(const char* name) { return this->getAnyPart(name, false); }
  NkGroup* group(const char* name) { return static_cast<NkGroup*>(part(name)); }
  NkSwitch* choice(const char* name) { return static_cast<NkSwitch*>(part(name)); }
  int chosen(const char* name) { return choice(name)->whichChild.getValue(); }
  bool isShown() { return chosen("geomSwitch") == NK_SWITCH_ALL; }
  int pickStyle() { return this->m_pickStyle->style.getValue(); }
  NbColor glow() { return this->m_disableMaterial->emissiveColor[0]; }
  /// The component that holds the 3D input.
  static NkPanelix* holderOf3D() { return NkPanelix::m_lastActive; }
};

inline NbVec3f translationOf(NkNode* node) { return static_cast<NkTranslation*>(node)->translation.getValue(); }

inline std::string typesOf(NkGroup* group) {
  std::string text;
  for (int i = 0; i < group->getNumChildren(); ++i)
    text += std::string(group->getChild(i)->getTypeId().getName().getString()) + " ";
  return text;
}

/// The lines of a text node, joined by "|".
inline std::string linesOf(NkNode* node) {
  const auto* text = static_cast<NkText3*>(node);
  std::string lines;
  for (int i = 0; i < text->string.getNum(); ++i) lines += (i ? "|" : "") + text->string[i].toLatin1();
  return lines;
}

/// The box of a text under its properties, in its own space.
inline NbBox3f boxOfText(NkNode* properties, NkNode* text) {
  const arbora::Ref<NkSeparator> scene(new NkSeparator);
  scene->addChild(properties);
  scene->addChild(text);
  NkGetBoundingBoxAction measure;
  measure.apply(scene.get());
  return measure.getBoundingBox();
}

/// The user of a scene of 800 by 600 pixels, each as large as a unit, with the origin in the upper left corner, as the
/// fields of a panel count.
class SceneUser {
public:
  SceneUser() : root(new NkSeparator), place(new NkTransform) {
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(400, -300, 500);
    camera->height = 600;
    camera->farDistance = 1000;
    root->addChild(camera);
    root->addChild(place);
  }

  void button(NkButtonEvent::State state, int x, int y) {
    NkMouseButtonEvent event;
    event.setButton(NkMouseButtonEvent::BUTTON1);
    event.setState(state);
    send(event, x, y);
  }
  void press(int x, int y) { button(NkButtonEvent::DOWN, x, y); }
  void release(int x, int y) { button(NkButtonEvent::UP, x, y); }
  void move(int x, int y) {
    NkLocation2Event event;
    send(event, x, y);
  }
  void click(int x, int y) {
    press(x, y);
    release(x, y);
  }
  void drag(int fromX, int fromY, int toX, int toY) {
    press(fromX, fromY);
    move((fromX + toX) / 2, (fromY + toY) / 2);
    move(toX, toY);
    release(toX, toY);
  }
  void press(NkNode* node) {
    const NbVec2i32 at = pixelOf(node);
    press(at[0], at[1]);
  }
  void release() { release(kNowhere, kNowhere); }
  /// With the pointer away from everything at the release.
  void click(NkNode* node) {
    press(node);
    release();
  }

  // What is seen

  static NbBox3f boxOf(NkNode* node) {
    NkGetBoundingBoxAction measure;
    measure.apply(node);
    return measure.getBoundingBox();
  }
  /// The box of a node of the scene, in the space of the scene.
  NbBox3f worldBoxOf(NkNode* node) {
    NkSearchAction search;
    search.setNode(node);
    search.apply(root.get());
    NkGetBoundingBoxAction measure;
    EXPECT_TRUE(search.getPath());
    if (search.getPath()) measure.apply(search.getPath());
    return measure.getBoundingBox();
  }
  /// x, y, width and height of a box, y downwards.
  static std::vector<float> inPixels(const NbBox3f& box) {
    const NbVec3f size = box.getSize();
    return {box.getMin()[0], -box.getMax()[1], size[0], size[1]};
  }
  /// A place at which the pointer hits a node, or what is in it. Parts of a skin stand in many components: it has to be
  /// a node of one component.
  NbVec2i32 pixelOf(NkNode* node) {
    const NbBox3f box = worldBoxOf(node);
    NkRayPickAction pick(NbViewportRegion(kWidth, kHeight));
    for (int y = static_cast<int>(-box.getMax()[1]) + 1; y < static_cast<int>(-box.getMin()[1]); ++y) {
      for (int x = static_cast<int>(box.getMin()[0]) + 1; x < static_cast<int>(box.getMax()[0]); ++x) {
        pick.setPoint(NbVec2i32(x, kHeight - y));
        pick.apply(root.get());
        const NkPickedPoint* point = pick.getPickedPoint();
        if (point && point->getPath()->full()->containsNode(node)) return NbVec2i32(x, y);
      }
    }
    ADD_FAILURE() << "out of the pointer's reach: " << node->getTypeId().getName().getString();
    return NbVec2i32(kNowhere, kNowhere);
  }

  /// Expects what the pointer hits at a place to be in that part of a component.
  void expectPick(const NbVec2i32& at, NkPanelix* component, const char* part) {
    SCOPED_TRACE(::testing::Message() << at[0] << ", " << at[1]);
    NkRayPickAction pick(NbViewportRegion(kWidth, kHeight));
    pick.setPoint(NbVec2i32(at[0], kHeight - at[1]));
    pick.apply(root.get());
    const NkPickedPoint* point = pick.getPickedPoint();
    ASSERT_NE(point, nullptr);
    EXPECT_EQ(point->getPath()->getTail(), component);
    const auto* detail = static_cast<const NkNodeKitDetail*>(point->getDetail(component));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->getNodeKit(), component);
    EXPECT_EQ(detail->getPartName(), part);
  }

  arbora::Ref<NkSeparator> root;
  NkTransform* place; ///< Ahead of all that is added to the scene.

private:
  static constexpr int kWidth = 800;
  static constexpr int kHeight = 600;
  static constexpr int kNowhere = 590;

  void send(NkEvent& event, int x, int y) {
    event.setPosition(NbVec2i32(x, kHeight - y));
    m_action.setEvent(&event);
    m_action.apply(root.get());
    m_action.setEvent(nullptr);
  }

  NkHandleEventAction m_action{NbViewportRegion(kWidth, kHeight)};
};

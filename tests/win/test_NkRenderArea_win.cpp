#include <memory>

#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"
#include "tests/scene/SceneTest.h"
#include "tests/win/Desktop.h"

using arbora::Ref;

namespace {

/// An area in the application's main window.
class ChildAreaTest : public SceneTest {
protected:
  ChildAreaTest() : parent(NkWin::init("parent")), scene(new NkSeparator), dragger(new NkPlaneDragger) {
    dragger->setPart("geometry", new NkCube);
    scene->addChild(dragger);
    SetWindowPos(parent, nullptr, 40, 40, 500, 400, SWP_NOZORDER);
    NkWin::show(parent);
    area = std::make_unique<NkRenderArea>(parent);
    area->setSceneGraph(scene.get());
    area->setCloseCallback([](void* data, NkRenderArea*) { ++*static_cast<int*>(data); }, &closings);
    area->show();
    desktop::serveAWhile();
  }
  ~ChildAreaTest() override {
    area.reset();
    NkWin::processPendingMessages();
    NkWin::finish();
  }

  HWND parent;
  Ref<NkSeparator> scene;
  NkPlaneDragger* dragger;
  std::unique_ptr<NkRenderArea> area;
  int closings = 0;
};

TEST_F(ChildAreaTest, FillsItsParent) {
  RECT client{};
  GetClientRect(parent, &client);
  EXPECT_EQ(area->getSize(), NbVec2i32(client.right, client.bottom));
  EXPECT_EQ(GetParent(area->getWindow()), parent);
  EXPECT_TRUE(area->isVisible());
}

TEST_F(ChildAreaTest, GoesWithItsParent) {
  const HWND window = area->getWindow();
  DestroyWindow(parent);
  EXPECT_FALSE(IsWindow(window));
  EXPECT_FALSE(area->isOpen());
  EXPECT_EQ(closings, 1);
  area->show();
  area->redraw();
  EXPECT_EQ(area->getSize(), NbVec2i32(0, 0));
}

TEST_F(ChildAreaTest, DeletedAreaIsNotCalledBack) {
  const HWND window = area->getWindow();
  area.reset();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(closings, 0);
}

TEST_F(ChildAreaTest, LostMouseEndsTheDrag) {
  int finishes = 0;
  dragger->addFinishCallback([](void* data, NkDragger*) { ++*static_cast<int*>(data); }, &finishes);
  const NbVec2i32 middle(area->getSize()[0] / 2, area->getSize()[1] / 2);
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, middle[0], middle[1]) + "mousedown 1"));
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, middle[0] + 20, middle[1])));
  const NbVec3f dragged = dragger->translation.getValue();
  EXPECT_GT(dragged[0], 0);
  ReleaseCapture();
  EXPECT_EQ(finishes, 1);
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, middle[0] + 60, middle[1])));
  EXPECT_EQ(dragger->translation.getValue(), dragged);
  ASSERT_TRUE(desktop::act("mouseup 1"));
  EXPECT_EQ(finishes, 1);
}

} // namespace

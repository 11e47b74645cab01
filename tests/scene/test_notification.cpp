#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkNodeSensor.h"
#include "tests/scene/SceneTest.h"

using arbora::Ref;

namespace {

void count(void* data, NkSensor*) { ++*static_cast<int*>(data); }

} // namespace

using Notification = SceneTest;

TEST_F(Notification, AChangeThatComesByTwoWaysIsToldOnce) {
  const Ref<NkGroup> root(new NkGroup);
  auto* cube = new NkCube;
  for (int i = 0; i < 3; ++i) {
    root->addChild(new NkGroup);
    static_cast<NkGroup*>(root->getChild(i))->addChild(cube);
  }
  int told = 0;
  NkNodeSensor sensor(count, &told);
  sensor.setPriority(0);
  sensor.attach(root.get());
  cube->width = 3;
  EXPECT_EQ(told, 1);
}

TEST_F(Notification, ASilentWayDoesNotHideAnother) {
  const Ref<NkGroup> root(new NkGroup);
  auto* cube = new NkCube;
  NkGroup* groups[2];
  for (NkGroup*& group : groups) {
    group = new NkGroup;
    group->addChild(cube);
    root->addChild(group);
  }
  int told = 0;
  NkNodeSensor sensor(count, &told);
  sensor.setPriority(0);
  sensor.attach(root.get());
  int expected = 0;
  for (NkGroup* silent : groups) {
    silent->enableNotify(false);
    cube->width = 3;
    EXPECT_EQ(told, ++expected);
    silent->enableNotify(true);
  }
  for (NkGroup* group : groups) group->enableNotify(false);
  cube->width = 4;
  EXPECT_EQ(told, expected);
}

#include "SceneTest.h"

#include <functional>
#include <string>

#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkSField.h"
#include "arbora/scene/NkSensorManager.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

using Fields = SceneTest;

namespace {

// Counts how often a sensor fires.
void count(void* data, NkSensor*) { ++*static_cast<int*>(data); }

template <class Sensor>
struct Counter {
  int calls = 0;
  Sensor sensor{&count, &calls};
  explicit Counter(unsigned priority = 0) { sensor.setPriority(priority); }
};

} // namespace

TEST_F(Fields, EveryWriteClearsTheDefaultFlag) {
  const Ref<NkCube> cube(new NkCube);
  EXPECT_TRUE(cube->width.isDefault());
  EXPECT_EQ(cube->width.getFieldType(), 5);
  cube->width = 2.0f;
  EXPECT_FALSE(cube->width.isDefault());
  cube->width.setDefault(true);
  EXPECT_TRUE(cube->width.isDefault());
}

TEST_F(Fields, EveryWriteNotifiesAlsoOfAnEqualValue) {
  const Ref<NkCube> cube(new NkCube);
  Counter<NkFieldSensor> counter;
  counter.sensor.attach(&cube->width);
  cube->width = 5;
  cube->width = 5;
  EXPECT_EQ(counter.calls, 2);
  cube->height = 5;
  EXPECT_EQ(counter.calls, 2);
}

TEST_F(Fields, TouchNotifiesAndLeavesTheDefaultFlag) {
  const Ref<NkCube> cube(new NkCube);
  Counter<NkFieldSensor> counter;
  counter.sensor.attach(&cube->width);
  cube->width.touch();
  EXPECT_EQ(counter.calls, 1);
  EXPECT_TRUE(cube->width.isDefault());
}

TEST_F(Fields, AFieldOfNobodyCanBeWritten) {
  NkSFInt32 field;
  Counter<NkFieldSensor> counter;
  field = 3;
  counter.sensor.attach(&field);
  field = 4;
  EXPECT_EQ(field.getValue(), 4);
  EXPECT_EQ(counter.calls, 1);
}

TEST_F(Fields, MultipleValuesGrowAndShrink) {
  NkMFString field;
  field.set1Value(2, "c");
  ASSERT_EQ(field.getNum(), 3);
  EXPECT_TRUE(field[0] == NbString(""));
  EXPECT_TRUE(field[2] == NbString("c"));
  field.set1Value(0, "a");
  field.insertSpace(1, 2);
  ASSERT_EQ(field.getNum(), 5);
  EXPECT_TRUE(field[4] == NbString("c"));
  field.deleteValues(1, 3);
  ASSERT_EQ(field.getNum(), 2);
  EXPECT_TRUE(field[1] == NbString("c"));
  field.deleteValues(1);
  EXPECT_EQ(field.getNum(), 1);
  field = "only";
  EXPECT_EQ(field.getNum(), 1);
  EXPECT_EQ(field.find("only"), 0);
  EXPECT_EQ(field.find("other"), -1);
}

TEST_F(Fields, RangesOutsideTheValuesAreHeldWithin) {
  NkMFInt32 field;
  field.set1Value(1, 7);
  field.deleteValues(5, 2);
  field.deleteValues(-3, 1);
  EXPECT_EQ(field.getNum(), 1);
  field.insertSpace(9, 1);
  field.insertSpace(-1, 1);
  EXPECT_EQ(field.getNum(), 1);
  field.setNum(-4);
  EXPECT_EQ(field.getNum(), 0);
}

TEST_F(Fields, AnIndexThatNoListCanHaveIsPosted) {
  NkMFInt32 field;
  expectMessage("NkMField::set1Value");
  field.set1Value(-1, 7);
  expectMessage("Index 2000000000 is out of range");
  field.set1Value(2000000000, 7);
  EXPECT_EQ(field.getNum(), 0);
}

TEST_F(Fields, AValueOfTheFieldItselfCanBeWritten) {
  NkMFString field;
  field.set1Value(0, "a rather long text that doesn't fit in place");
  field.set1Value(1000, field[0]);
  EXPECT_TRUE(field[1000] == field[0]);
  field.setValue(field[1000]);
  EXPECT_TRUE(field[0] == NbString("a rather long text that doesn't fit in place"));
}

TEST_F(Fields, AConnectedFieldFollowsItsSource) {
  const Ref<NkTranslation> a(new NkTranslation);
  const Ref<NkTranslation> b(new NkTranslation);
  a->translation.setValue(1, 2, 3);
  Counter<NkFieldSensor> counter;
  counter.sensor.attach(&b->translation);
  EXPECT_TRUE(b->translation.connectFrom(&a->translation));
  EXPECT_TRUE(b->translation.isConnected());
  EXPECT_EQ(b->translation.getConnectedField(), &a->translation);
  EXPECT_EQ(b->translation.getValue(), NbVec3f(1, 2, 3));
  a->translation.setValue(4, 5, 6);
  EXPECT_EQ(b->translation.getValue(), NbVec3f(4, 5, 6));
  EXPECT_EQ(counter.calls, 2);
  b->translation.disconnect(&b->translation);
  EXPECT_TRUE(b->translation.isConnected());
  b->translation.disconnect(&a->translation);
  a->translation.setValue(7, 8, 9);
  EXPECT_EQ(b->translation.getValue(), NbVec3f(4, 5, 6));
}

TEST_F(Fields, ARingOfConnectionsStopsAfterOneRound) {
  const Ref<NkCube> cube(new NkCube);
  cube->width.connectFrom(&cube->height);
  cube->height.connectFrom(&cube->depth);
  cube->depth.connectFrom(&cube->width);
  cube->height = 9;
  EXPECT_EQ(cube->width.getValue(), 9.0f);
  EXPECT_EQ(cube->depth.getValue(), 9.0f);
}

TEST_F(Fields, FieldsOfDifferentTypesCantBeConnected) {
  NkSFInt32 number;
  NkSFString text;
  expectMessage("A field of type SFInt32 can't follow one of type SFString");
  EXPECT_FALSE(number.connectFrom(&text));
  EXPECT_FALSE(number.isConnected());
  EXPECT_FALSE(number.connectFrom(&number));
}

TEST_F(Fields, ADeadSourceLeavesTheValue) {
  const Ref<NkCube> follower(new NkCube);
  {
    const Ref<NkCube> source(new NkCube);
    source->width = 11;
    follower->width.connectFrom(&source->width);
  }
  EXPECT_FALSE(follower->width.isConnected());
  EXPECT_EQ(follower->width.getValue(), 11.0f);
}

TEST_F(Fields, ADeadFollowerIsForgotten) {
  const Ref<NkCube> source(new NkCube);
  {
    const Ref<NkCube> follower(new NkCube);
    follower->width.connectFrom(&source->width);
  }
  source->width = 4;
  EXPECT_EQ(source->width.getValue(), 4.0f);
}

TEST_F(Fields, ANodeFieldHoldsAReference) {
  const Ref<NkCube> cube(new NkCube);
  {
    NkSFNode field;
    EXPECT_EQ(field.getValue(), nullptr);
    field = cube.get();
    EXPECT_EQ(cube->getRefCount(), 2);
    field = nullptr;
    EXPECT_EQ(cube->getRefCount(), 1);
    NkMFNode fields;
    fields.set1Value(1, cube.get());
    EXPECT_EQ(fields[0], nullptr);
    EXPECT_EQ(cube->getRefCount(), 2);
    fields.deleteValues(0);
    EXPECT_EQ(cube->getRefCount(), 1);
    fields.setValue(cube.get());
  }
  EXPECT_EQ(cube->getRefCount(), 1);
}

using Sensors = SceneTest;

TEST_F(Sensors, PriorityZeroRunsInsideTheWrite) {
  const Ref<NkCube> cube(new NkCube);
  struct Seen {
    NkCube* cube;
    float width = 0;
    NkField* field = nullptr;
    NkNode* node = nullptr;
  } seen{cube.get()};
  NkFieldSensor sensor(
      [](void* data, NkSensor* self) {
        auto* s = static_cast<Seen*>(data);
        s->width = s->cube->width.getValue();
        s->field = static_cast<NkFieldSensor*>(self)->getTriggerField();
        s->node = static_cast<NkFieldSensor*>(self)->getTriggerNode();
      },
      &seen);
  sensor.setPriority(0);
  sensor.attach(&cube->width);
  cube->width = 6;
  EXPECT_EQ(seen.width, 6.0f);
  EXPECT_EQ(seen.field, &cube->width);
  EXPECT_EQ(seen.node, cube.get());
  EXPECT_EQ(sensor.getTriggerField(), nullptr);
  EXPECT_FALSE(sensor.isScheduled());
}

TEST_F(Sensors, ADetachedSensorMissesWrites) {
  const Ref<NkCube> cube(new NkCube);
  Counter<NkFieldSensor> counter;
  counter.sensor.attach(&cube->width);
  counter.sensor.detach();
  cube->width = 1;
  EXPECT_EQ(counter.sensor.getAttachedField(), nullptr);
  counter.sensor.attach(&cube->width);
  EXPECT_EQ(counter.calls, 0);
  cube->width = 2;
  EXPECT_EQ(counter.calls, 1);
}

TEST_F(Sensors, ADelayedSensorRunsOnceFromTheQueue) {
  const Ref<NkCube> cube(new NkCube);
  Counter<NkFieldSensor> counter(NkDelayQueueSensor::kDefaultPriority);
  counter.sensor.attach(&cube->width);
  cube->width = 1;
  cube->width = 2;
  EXPECT_TRUE(counter.sensor.isScheduled());
  EXPECT_EQ(counter.calls, 0);
  NkSensorManager::getInstance().processDelayQueue();
  EXPECT_EQ(counter.calls, 1);
  EXPECT_FALSE(counter.sensor.isScheduled());
  NkSensorManager::getInstance().processDelayQueue();
  EXPECT_EQ(counter.calls, 1);
}

TEST_F(Sensors, TheQueueRunsByPriorityThenByAge) {
  std::string order;
  struct Entry {
    std::string* order;
    char letter;
  };
  const auto append = [](void* data, NkSensor*) {
    const auto* entry = static_cast<Entry*>(data);
    *entry->order += entry->letter;
  };
  Entry entries[] = {{&order, 'a'}, {&order, 'b'}, {&order, 'c'}};
  NkFieldSensor a(append, &entries[0]);
  NkFieldSensor b(append, &entries[1]);
  NkFieldSensor c(append, &entries[2]);
  b.setPriority(50);
  a.schedule();
  b.schedule();
  c.schedule();
  NkSensorManager::getInstance().processDelayQueue();
  EXPECT_EQ(order, "bac");
  order.clear();
  a.schedule();
  b.schedule();
  a.setPriority(10);
  NkSensorManager::getInstance().processDelayQueue();
  EXPECT_EQ(order, "ab");
}

TEST_F(Sensors, WhatTheQueueSchedulesWaitsForTheNextRound) {
  struct Data {
    int calls = 0;
  } data;
  NkFieldSensor sensor(
      [](void* d, NkSensor* self) {
        ++static_cast<Data*>(d)->calls;
        self->schedule();
      },
      &data);
  sensor.schedule();
  NkSensorManager::getInstance().processDelayQueue();
  EXPECT_EQ(data.calls, 1);
  EXPECT_TRUE(NkSensorManager::getInstance().isDelaySensorPending());
  sensor.unschedule();
  EXPECT_FALSE(NkSensorManager::getInstance().isDelaySensorPending());
}

TEST_F(Sensors, TheLoopIsWokenOnce) {
  int woken = 0;
  NkSensorManager& manager = NkSensorManager::getInstance();
  manager.setChangedCallback([](void* data) { ++*static_cast<int*>(data); }, &woken);
  NkFieldSensor a;
  NkFieldSensor b;
  a.schedule();
  b.schedule();
  EXPECT_EQ(woken, 1);
  manager.processDelayQueue();
  manager.setChangedCallback(nullptr, nullptr);
}

TEST_F(Sensors, ADeadSensorLeavesTheQueue) {
  {
    NkFieldSensor sensor;
    sensor.schedule();
  }
  EXPECT_FALSE(NkSensorManager::getInstance().isDelaySensorPending());
}

TEST_F(Sensors, ASensorMayDeleteItselfAndItsNeighbours) {
  const Ref<NkCube> cube(new NkCube);
  struct Data {
    NkFieldSensor* first;
    NkFieldSensor* second;
    int calls = 0;
  } data{};
  data.first = new NkFieldSensor(
      [](void* d, NkSensor*) {
        auto* s = static_cast<Data*>(d);
        ++s->calls;
        delete s->first;
        delete s->second;
      },
      &data);
  data.second = new NkFieldSensor([](void* d, NkSensor*) { static_cast<Data*>(d)->calls += 100; }, &data);
  data.first->setPriority(0);
  data.second->setPriority(0);
  data.first->attach(&cube->width);
  data.second->attach(&cube->width);
  cube->width = 1;
  EXPECT_EQ(data.calls, 1);
  cube->width = 2;
  EXPECT_EQ(data.calls, 1);
}

TEST_F(Sensors, TheNodeMayLoseItsLastReferenceInTheCallback) {
  Ref<NkCube> cube(new NkCube);
  NkFieldSensor sensor([](void* data, NkSensor*) { *static_cast<Ref<NkCube>*>(data) = Ref<NkCube>(); }, &cube);
  sensor.setPriority(0);
  sensor.attach(&cube->width);
  cube->width = 1;
  EXPECT_FALSE(cube);
  EXPECT_EQ(sensor.getAttachedField(), nullptr);
}

namespace {

/// Two sensors on the width of a cube that note their calls; the first may do something in its own.
struct TwoSensors {
  const Ref<NkCube> cube{new NkCube};
  std::string calls;
  std::function<void()> inFirst = [] {};
  NkFieldSensor first{&firstCalled, this};
  NkFieldSensor second{&secondCalled, this};

  TwoSensors() {
    first.setPriority(0);
    second.setPriority(0);
    first.attach(&cube->width);
  }
  std::string write() {
    calls.clear();
    cube->width = 3;
    return calls;
  }

private:
  static void firstCalled(void* self, NkSensor*) {
    static_cast<TwoSensors*>(self)->calls += "1";
    static_cast<TwoSensors*>(self)->inFirst();
  }
  static void secondCalled(void* self, NkSensor*) { static_cast<TwoSensors*>(self)->calls += "2"; }
};

} // namespace

TEST_F(Sensors, ASensorThatIsAttachedAgainIsCalledLast) {
  TwoSensors sensors;
  sensors.second.attach(&sensors.cube->width);
  EXPECT_EQ(sensors.write(), "12");
  sensors.first.detach();
  EXPECT_EQ(sensors.write(), "2");
  sensors.first.attach(&sensors.cube->width);
  EXPECT_EQ(sensors.write(), "21");
}

TEST_F(Sensors, ASensorThatComesInACallbackWaitsForTheNextWrite) {
  TwoSensors sensors;
  sensors.inFirst = [&] { sensors.second.attach(&sensors.cube->width); };
  EXPECT_EQ(sensors.write(), "1");
  EXPECT_EQ(sensors.write(), "12");
}

TEST_F(Sensors, ASensorMayGoAndComeInItsOwnCallback) {
  TwoSensors sensors;
  sensors.inFirst = [&] {
    sensors.first.detach();
    sensors.second.attach(&sensors.cube->width);
    sensors.first.attach(&sensors.cube->width);
  };
  EXPECT_EQ(sensors.write(), "1");
  sensors.inFirst = [] {};
  EXPECT_EQ(sensors.write(), "21");
}

TEST_F(Sensors, AFieldThatIsFollowedInACallbackIsFollowedAtOnce) {
  TwoSensors sensors;
  const Ref<NkCube> follower(new NkCube);
  Counter<NkFieldSensor> heard;
  heard.sensor.attach(&follower->height);
  sensors.inFirst = [&] { follower->height.connectFrom(&sensors.cube->width); };
  EXPECT_EQ(sensors.write(), "1");
  // Once by the connection, once by the write that goes on.
  EXPECT_EQ(heard.calls, 2);
  EXPECT_EQ(follower->height.getValue(), 3.0f);
}

TEST_F(Sensors, ANestedWriteReachesTheSensorAgain) {
  const Ref<NkCube> cube(new NkCube);
  NkFieldSensor sensor(
      [](void* data, NkSensor*) {
        auto* c = static_cast<NkCube*>(data);
        if (c->width.getValue() < 5) c->width = c->width.getValue() + 1;
      },
      cube.get());
  sensor.setPriority(0);
  sensor.attach(&cube->width);
  cube->width = 1;
  EXPECT_EQ(cube->width.getValue(), 5.0f);
}

TEST_F(Sensors, ADeleteCallbackSeesTheWholeNode) {
  struct Data {
    NkCube* cube;
    float width = 0;
    int calls = 0;
  } data{new NkCube};
  data.cube->ref();
  data.cube->width = 12;
  NkFieldSensor field;
  NkNodeSensor node;
  const auto onDelete = [](void* d, NkSensor*) {
    auto* s = static_cast<Data*>(d);
    s->width = s->cube->width.getValue();
    ++s->calls;
  };
  field.setDeleteCallback(onDelete, &data);
  node.setDeleteCallback(onDelete, &data);
  field.attach(&data.cube->width);
  node.attach(data.cube);
  data.cube->unref();
  EXPECT_EQ(data.calls, 2);
  EXPECT_EQ(data.width, 12.0f);
  EXPECT_EQ(field.getAttachedField(), nullptr);
  EXPECT_EQ(node.getAttachedNode(), nullptr);
}

TEST_F(Sensors, ANodeSensorHearsOfEverythingBelow) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* group = new NkGroup;
  auto* cube = new NkCube;
  root->addChild(group);
  group->addChild(cube);
  Counter<NkNodeSensor> counter;
  counter.sensor.attach(root.get());
  cube->width = 1;
  cube->width = 2;
  EXPECT_EQ(counter.calls, 2);
  group->addChild(new NkCube);
  EXPECT_EQ(counter.calls, 3);
  group->removeChild(1);
  EXPECT_EQ(counter.calls, 4);
  group->removeChild(cube);
  EXPECT_EQ(counter.calls, 5);
}

TEST_F(Sensors, ASubgraphThatJoinsLaterIsHeard) {
  const Ref<NkSeparator> root(new NkSeparator);
  const Ref<NkGroup> group(new NkGroup);
  auto* cube = new NkCube;
  group->addChild(cube);
  cube->width = 1;
  cube->width = 2;
  Counter<NkNodeSensor> counter;
  counter.sensor.attach(root.get());
  root->addChild(group.get());
  EXPECT_EQ(counter.calls, 1);
  cube->width = 3;
  cube->width = 4;
  EXPECT_EQ(counter.calls, 3);
  root->removeChild(group.get());
  cube->width = 5;
  EXPECT_EQ(counter.calls, 4);
}

TEST_F(Sensors, ASharedNodeIsHeardOncePerChange) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* left = new NkGroup;
  auto* right = new NkGroup;
  auto* cube = new NkCube;
  root->addChild(left);
  root->addChild(right);
  left->addChild(cube);
  right->addChild(cube);
  Counter<NkNodeSensor> counter;
  counter.sensor.attach(root.get());
  cube->width = 1;
  EXPECT_EQ(counter.calls, 1);
}

TEST_F(Sensors, NodesInFieldsAreHeard) {
  const Ref<NkCube> owner(new NkCube);
  const Ref<NkCube> held(new NkCube);
  NkSFNode field;
  field.setContainer(owner.get());
  field = held.get();
  Counter<NkNodeSensor> counter;
  counter.sensor.attach(owner.get());
  held->arm();
  held->width = 3;
  EXPECT_EQ(counter.calls, 1);
  field = nullptr;
  field.setContainer(nullptr);
}

TEST_F(Sensors, NotificationThatIsOffStaysBelowTheNode) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* group = new NkGroup;
  auto* cube = new NkCube;
  root->addChild(group);
  group->addChild(cube);
  Counter<NkNodeSensor> above;
  Counter<NkNodeSensor> below;
  Counter<NkFieldSensor> field;
  above.sensor.attach(root.get());
  below.sensor.attach(cube);
  field.sensor.attach(&cube->width);
  EXPECT_TRUE(group->enableNotify(false));
  cube->width = 1;
  EXPECT_EQ(above.calls, 0);
  EXPECT_EQ(below.calls, 1);
  EXPECT_EQ(field.calls, 1);
  EXPECT_FALSE(group->enableNotify(true));
  cube->width = 2;
  EXPECT_EQ(above.calls, 1);
}

TEST_F(Sensors, SensorsUnderManyParentsAndBackAgain) {
  const Ref<NkCube> cube(new NkCube);
  const Ref<NkSeparator> root(new NkSeparator);
  for (int i = 0; i < 5000; ++i) {
    auto* group = new NkGroup;
    group->addChild(cube.get());
    root->addChild(group);
  }
  Counter<NkNodeSensor> counter;
  counter.sensor.attach(root.get());
  cube->width = 1;
  EXPECT_EQ(counter.calls, 1);
  root->removeAllChildren();
  EXPECT_TRUE(cube->getParents().isEmpty());
}

TEST_F(Sensors, AFieldSensorSeesNoStaleBox) {
  // The box above must be dropped before the write's own sensors run.
  const Ref<NkSeparator> root(new NkSeparator);
  auto* cube = new NkCube;
  root->addChild(cube);
  NkGetBoundingBoxAction action;
  action.apply(root.get());
  struct Data {
    NkSeparator* root;
    float width = 0;
  } data{root.get()};
  NkFieldSensor sensor(
      [](void* d, NkSensor*) {
        auto* s = static_cast<Data*>(d);
        NkGetBoundingBoxAction inner;
        inner.apply(s->root);
        s->width = inner.getBoundingBox().getSize()[0];
      },
      &data);
  sensor.setPriority(0);
  sensor.attach(&cube->width);
  cube->width = 42;
  EXPECT_FLOAT_EQ(data.width, 42.0f);
}

// Writes of fields, and the box of a large scene.
#include <benchmark/benchmark.h>

#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

// Shapes in nested separators, ten at each of the levels.
NkNode* makeScene(int levels, int index, std::vector<NkTranslation*>& translations) {
  auto* separator = new NkSeparator;
  auto* translation = new NkTranslation;
  translation->translation.setValue(static_cast<float>(index), static_cast<float>(levels), 0);
  separator->addChild(translation);
  if (levels == 0) {
    separator->addChild(new NkCube);
    translations.push_back(translation);
  } else {
    for (int i = 0; i < 10; ++i) separator->addChild(makeScene(levels - 1, i, translations));
  }
  return separator;
}

void writeWithoutListener(benchmark::State& state) {
  NkDB::init();
  {
    const Ref<NkCube> cube(new NkCube);
    float value = 0;
    for (auto _ : state) cube->width.setValue(value += 1);
  }
  NkDB::finish();
}
BENCHMARK(writeWithoutListener);

void writeWithPriorityZeroSensor(benchmark::State& state) {
  NkDB::init();
  {
    const Ref<NkCube> cube(new NkCube);
    long calls = 0;
    NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<long*>(data); }, &calls);
    sensor.setPriority(0);
    sensor.attach(&cube->width);
    float value = 0;
    for (auto _ : state) cube->width.setValue(value += 1);
    benchmark::DoNotOptimize(calls);
  }
  NkDB::finish();
}
BENCHMARK(writeWithPriorityZeroSensor);

// 10 to the power of the argument shapes.
void boxOfUnchangedScene(benchmark::State& state) {
  NkDB::init();
  {
    std::vector<NkTranslation*> translations;
    const Ref<NkNode> root(makeScene(static_cast<int>(state.range(0)), 0, translations));
    NkGetBoundingBoxAction action;
    action.apply(root.get());
    for (auto _ : state) {
      action.apply(root.get());
      benchmark::DoNotOptimize(action.getBoundingBox());
    }
  }
  NkDB::finish();
}
BENCHMARK(boxOfUnchangedScene)->Arg(3)->Arg(5);

void boxAfterOneChangedTransform(benchmark::State& state) {
  NkDB::init();
  {
    std::vector<NkTranslation*> translations;
    const Ref<NkNode> root(makeScene(static_cast<int>(state.range(0)), 0, translations));
    NkGetBoundingBoxAction action;
    action.apply(root.get());
    std::size_t i = 0;
    for (auto _ : state) {
      i = (i + 7919) % translations.size();
      translations[i]->translation.setValue(static_cast<float>(i % 13), 0, 0);
      action.apply(root.get());
      benchmark::DoNotOptimize(action.getBoundingBox());
    }
  }
  NkDB::finish();
}
BENCHMARK(boxAfterOneChangedTransform)->Arg(3)->Arg(5);

void searchForAll(benchmark::State& state) {
  NkDB::init();
  {
    std::vector<NkTranslation*> translations;
    const Ref<NkNode> root(makeScene(static_cast<int>(state.range(0)), 0, translations));
    NkSearchAction action;
    action.setInterest(NkSearchAction::LAST);
    action.setType(NkNode::getClassTypeId());
    for (auto _ : state) action.apply(root.get());
  }
  NkDB::finish();
}
BENCHMARK(searchForAll)->Arg(3)->Arg(5);

void constructNode(benchmark::State& state) {
  NkDB::init();
  for (auto _ : state) {
    auto* cube = new NkCube;
    cube->ref();
    cube->unref();
  }
  NkDB::finish();
}
BENCHMARK(constructNode);

} // namespace

// Picks into large scenes.
#include <benchmark/benchmark.h>

#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

constexpr int kFan = 10;

/// Shapes on a plane, 3 units apart, in nested separators of ten, in rows and columns by turns: 10 to the power of
/// `levels` shapes.
NkNode* makeScene(int levels, NkNode* shape) {
  if (levels == 0) return shape;
  float pitch = 3;
  for (int i = 3; i <= levels; i += 2) pitch *= kFan;
  auto* separator = new NkSeparator;
  for (int i = 0; i < kFan; ++i) {
    const float offset = pitch * static_cast<float>(i);
    auto* move = new NkTranslation;
    move->translation = levels % 2 != 0 ? NbVec3f(offset, 0, 0) : NbVec3f(0, offset, 0);
    auto* place = new NkSeparator;
    place->addChild(move);
    place->addChild(makeScene(levels - 1, shape));
    separator->addChild(place);
  }
  return separator;
}

void pickNested(benchmark::State& state) {
  NkDB::init();
  {
    const int levels = static_cast<int>(state.range(0));
    const Ref<NkSphere> sphere(new NkSphere);
    const Ref<NkNode> root(makeScene(levels, sphere.get()));
    NkRayPickAction action{NbViewportRegion(100, 100)};
    int column = 0;
    int hits = 0;
    for (auto _ : state) {
      column = (column + 7) % kFan;
      action.setRay(NbVec3f(3.0F * static_cast<float>(column), 6, 50), NbVec3f(0.0001F, 0, -1));
      action.apply(root.get());
      hits += action.getPickedPointsListLength();
    }
    state.counters["hits"] = benchmark::Counter(hits, benchmark::Counter::kAvgIterations);
  }
  NkDB::finish();
}
BENCHMARK(pickNested)->Arg(3)->Arg(5)->Unit(benchmark::kMicrosecond);

/// All shapes under one separator: each box is looked at.
void pickFlat(benchmark::State& state) {
  NkDB::init();
  {
    const Ref<NkSeparator> root(new NkSeparator);
    for (int i = 0; i < static_cast<int>(state.range(0)); ++i) {
      auto* separator = new NkSeparator;
      auto* move = new NkTranslation;
      move->translation.setValue(3.0F * static_cast<float>(i % 316), 3.0F * static_cast<float>(i / 316), 0);
      separator->addChild(move);
      separator->addChild(new NkCube);
      root->addChild(separator);
    }
    NkRayPickAction action{NbViewportRegion(100, 100)};
    action.setRay(NbVec3f(6, 6, 50), NbVec3f(0, 0, -1));
    for (auto _ : state) {
      action.apply(root.get());
      benchmark::DoNotOptimize(action.getPickedPoint());
    }
  }
  NkDB::finish();
}
BENCHMARK(pickFlat)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace

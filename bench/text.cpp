#include <benchmark/benchmark.h>

#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkText3.h"

namespace {

constexpr const char* kTwentyCharacters = "Panel 123 of the lot";

struct Scene {
  Scene() {
    NkDB::init();
    text = new NkText3;
  }
  ~Scene() {
    state.font = {};
    text = nullptr;
    NkDB::finish();
  }
  NkState state;
  arbora::Ref<NkText3> text;
};

void changeAndBuild(benchmark::State& run) {
  Scene scene;
  for (auto _ : run) {
    scene.text->string.setValue(kTwentyCharacters);
    benchmark::DoNotOptimize(scene.text->getMeshes(scene.state).data());
  }
}
BENCHMARK(changeAndBuild);

void changeAndMeasure(benchmark::State& run) {
  Scene scene;
  for (auto _ : run) {
    scene.text->string.setValue(kTwentyCharacters);
    benchmark::DoNotOptimize(scene.text->computeBox(scene.state));
  }
}
BENCHMARK(changeAndMeasure);

void measureLine(benchmark::State& run) {
  const Scene scene;
  const NbString line(kTwentyCharacters);
  for (auto _ : run) benchmark::DoNotOptimize(NkText3::lineWidth(line, scene.state.font));
}
BENCHMARK(measureLine);

} // namespace

// The size of labels that have not been measured before.
#include <benchmark/benchmark.h>

#include <string>

#include "Panelix/NkPanelix.h"

namespace {

void measure(benchmark::State& state, const char* end) {
  NkPanelix::init();
  int number = 0;
  for (auto _ : state) {
    const NbString label("Panel " + std::to_string(number++) + end);
    benchmark::DoNotOptimize(NkPanelix::getLabelPixelSize(label, nullptr));
  }
  NkPanelix::finish();
}

void measureLabel(benchmark::State& state) { measure(state, " of the lot"); }
BENCHMARK(measureLabel);

void measureLabelOfTwoLines(benchmark::State& state) { measure(state, "\\nof the lot"); }
BENCHMARK(measureLabelOfTwoLines);

} // namespace

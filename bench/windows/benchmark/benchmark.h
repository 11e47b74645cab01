#pragma once

// The part of the benchmark library that the programs use which run on Windows, too: the library isn't there for that
// target. Times are those of the clock, since much of a window call is the work of another process.

#include <algorithm>
#include <cstdio>
#include <vector>

#include "src/platform/Win32.h"

namespace benchmark {

inline double clockSeconds() {
  LARGE_INTEGER now;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Runs the loop over it a number of times and holds how long that took, without what stands around the loop and
/// without the pauses.
class State {
public:
  explicit State(long iterations) : m_iterations(iterations) {}

  struct [[maybe_unused]] Turn {};
  struct Iterator {
    State& state;
    long left;
    bool operator!=(const Iterator& end) const {
      if (left == end.left) state.PauseTiming();
      return left != end.left;
    }
    void operator++() { --left; }
    Turn operator*() const { return {}; }
  };
  Iterator begin() {
    ResumeTiming();
    return {*this, m_iterations};
  }
  Iterator end() { return {*this, 0}; }

  void PauseTiming() { m_seconds += clockSeconds() - m_start; }
  void ResumeTiming() { m_start = clockSeconds(); }
  double seconds() const { return m_seconds; }

private:
  long m_iterations;
  double m_start = 0;
  double m_seconds = 0;
};

template <class T>
void DoNotOptimize(const T& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

using Function = void (*)(State&);

struct Benchmark {
  const char* name;
  Function function;
  long iterations = 1;
  std::vector<double> times{};

  double secondsOfRun() const {
    State state(iterations);
    function(state);
    return state.seconds();
  }
};

inline std::vector<Benchmark>& benchmarks() {
  static std::vector<Benchmark> s_benchmarks;
  return s_benchmarks;
}

inline bool add(const char* name, Function function) {
  benchmarks().push_back({name, function});
  return true;
}

/// The benchmarks take turns, so that what slows the machine down for a while slows all of them.
inline void runAll() {
  constexpr double kShortestRun = 0.4; // seconds
  constexpr std::size_t kRuns = 9;
  for (Benchmark& benchmark : benchmarks())
    while (benchmark.secondsOfRun() < kShortestRun) benchmark.iterations *= 2;
  for (std::size_t run = 0; run < kRuns; ++run)
    for (Benchmark& benchmark : benchmarks()) benchmark.times.push_back(benchmark.secondsOfRun());
  std::printf("%-40s %15s %15s of %zu runs\n", "", "least", "median", kRuns);
  for (Benchmark& benchmark : benchmarks()) {
    std::sort(benchmark.times.begin(), benchmark.times.end());
    const double scale = 1e6 / static_cast<double>(benchmark.iterations);
    std::printf("%-40s %12.2f us %12.2f us\n", benchmark.name, benchmark.times.front() * scale,
                benchmark.times[kRuns / 2] * scale);
  }
}

} // namespace benchmark

#define BENCHMARK_JOINED(a, b) a##b
#define BENCHMARK_NAMED(line) BENCHMARK_JOINED(s_added_, line)
#define BENCHMARK(function) static const bool BENCHMARK_NAMED(__LINE__) = benchmark::add(#function, function)

int main() { benchmark::runAll(); }

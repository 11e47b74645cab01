#pragma once

// The part of the benchmark library that the programs use which run on Windows, too: the library isn't there for that
// target. A program prints the median processor time of five runs of each benchmark.

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "src/platform/Win32.h"

namespace benchmark {

class State {
public:
  explicit State(long iterations) : m_iterations(iterations) {}

  struct [[maybe_unused]] Turn {};
  struct Iterator {
    long left;
    bool operator!=(const Iterator& end) const { return left != end.left; }
    void operator++() { --left; }
    Turn operator*() const { return {}; }
  };
  Iterator begin() const { return {m_iterations}; }
  Iterator end() const { return {0}; }

private:
  long m_iterations;
};

template <class T>
void DoNotOptimize(const T& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

using Function = void (*)(State&);

inline double processorSeconds() {
  FILETIME created, exited, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
  const auto toSeconds = [](const FILETIME& time) {
    return 429.4967296 * time.dwHighDateTime + 1e-7 * time.dwLowDateTime;
  };
  return toSeconds(kernel) + toSeconds(user);
}

inline double secondsOf(Function function, long iterations) {
  State state(iterations);
  const double start = processorSeconds();
  function(state);
  return processorSeconds() - start;
}

struct Benchmark {
  const char* name;
  Function function;

  void run() const {
    constexpr double kShortestRun = 0.4; // seconds
    long iterations = 1;
    while (secondsOf(function, iterations) < kShortestRun) iterations *= 2;
    std::array<double, 5> times{};
    for (double& time : times) time = secondsOf(function, iterations);
    std::sort(times.begin(), times.end());
    std::printf("%-48s %12.2f ns\n", name, 1e9 * times[2] / static_cast<double>(iterations));
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

} // namespace benchmark

#define BENCHMARK(function) static const bool s_added_##function = benchmark::add(#function, function)

int main() {
  for (const benchmark::Benchmark& benchmark : benchmark::benchmarks()) benchmark.run();
}

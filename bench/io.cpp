// Reading and writing of scene files. The rates are those that a user waits for: nodes made from a file in memory, and
// bytes of a file made of a scene.
#include <string>

#include <benchmark/benchmark.h>

#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkWriteAction.h"

namespace {

using arbora::Ref;

constexpr int kNodes = 80000;

// About 120 bytes a node, as dialogs and skins have it.
const std::string& plainNodes() {
  static const std::string s_text = [] {
    std::string text = "#Arbora V2.1 ascii\n";
    for (int i = 0; i < kNodes / 4; ++i) {
      const std::string number = std::to_string(i % 1000) + "." + std::to_string(i % 97);
      text += "Separator {\n  Material {\n    diffuseColor 0.75 0.75 0.75\n    emissiveColor [ 0.1 0.2 0.3 ]\n"
              "    transparency 0.125\n  }\n  Transform {\n    translation " +
              number + " 0 0.5\n    scaleFactor 1 2.5 1\n    center 0 0 " + number +
              "\n  }\n  # A box\n  Cube {\n    width " + number + "\n    height 1.5\n    depth 1\n  }\n}\n";
    }
    return text;
  }();
  return s_text;
}

// What a geometry file mostly is: long lists of numbers.
const std::string& numbers() {
  static const std::string s_text = [] {
    std::string text = "Coordinate3 { point [";
    for (int i = 0; i < 200000; ++i)
      text += " " + std::to_string(static_cast<float>(i) * 0.37F) + " -1.25 " + std::to_string(i) + ",";
    return text + "] }";
  }();
  return s_text;
}

Ref<NkSeparator> readText(const std::string& text) {
  NkInput in;
  in.setBuffer(text.data(), text.size());
  return Ref<NkSeparator>(NkDB::readAll(&in));
}

void write(NkOutput& out, NkNode* root, bool binary) {
  out.setBinary(binary);
  NkWriteAction(&out).apply(root);
}

class Library {
public:
  Library() { NkDB::init(); }
  ~Library() { NkDB::finish(); }
};

void readLoop(benchmark::State& state, const std::string& text) {
  for (auto _ : state) {
    Ref<NkSeparator> root = readText(text);
    if (!root) {
      state.SkipWithError("the text can't be read");
      return;
    }
    state.PauseTiming();
    root = nullptr;
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void readNodes(benchmark::State& state) {
  const Library library;
  readLoop(state, plainNodes());
  state.SetItemsProcessed(state.iterations() * kNodes);
}
BENCHMARK(readNodes)->Unit(benchmark::kMillisecond);

void readNodesBinary(benchmark::State& state) {
  const Library library;
  const Ref<NkSeparator> root = readText(plainNodes());
  NkOutput out;
  write(out, root.get(), true);
  readLoop(state, out.getString());
  state.SetItemsProcessed(state.iterations() * kNodes);
}
BENCHMARK(readNodesBinary)->Unit(benchmark::kMillisecond);

void readNumbers(benchmark::State& state) {
  const Library library;
  readLoop(state, numbers());
}
BENCHMARK(readNumbers)->Unit(benchmark::kMillisecond);

void writeLoop(benchmark::State& state, const std::string& text, bool binary) {
  const Library library;
  const Ref<NkSeparator> root = readText(text);
  std::size_t bytes = 0;
  for (auto _ : state) {
    NkOutput out;
    write(out, root.get(), binary);
    bytes += out.getString().size();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void writeNodes(benchmark::State& state) { writeLoop(state, plainNodes(), false); }
BENCHMARK(writeNodes)->Unit(benchmark::kMillisecond);

void writeNodesBinary(benchmark::State& state) { writeLoop(state, plainNodes(), true); }
BENCHMARK(writeNodesBinary)->Unit(benchmark::kMillisecond);

void writeNumbers(benchmark::State& state) { writeLoop(state, numbers(), false); }
BENCHMARK(writeNumbers)->Unit(benchmark::kMillisecond);

} // namespace

#include <benchmark/benchmark.h>

#include <filesystem>

#include "Panelix/NkDialogCheckBox.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkSeparator.h"

namespace {

constexpr const char* kSkins = PANELIX_SOURCE_DIR "/data/Panelix/skins";

/// The library with the default skin, and the other one at hand.
struct Skins {
  Skins() {
    NkPanelix::init();
    NkPanelix::setSkinsDirectories(kSkins);
    NkPanelix::setSkin("default");
    frame = NkNode::getByName("DialogCheckBoxFrame");
  }
  ~Skins() { NkPanelix::finish(); }

  void exchange() {
    NkPanelix::setSkin(isDark ? "default" : "dark");
    isDark = !isDark;
  }

  NkNode* frame;
  bool isDark = false;
};

/// All parts of all classes.
void exchangeAll(benchmark::State& run) {
  Skins skins;
  if (!skins.frame) return run.SkipWithError("no skin");
  for (auto _ : run) skins.exchange();
}
BENCHMARK(exchangeAll)->Unit(benchmark::kMillisecond);

/// The same while a part stands in a thousand places, which are measured each time.
void exchangeAllInUse(benchmark::State& run) {
  Skins skins;
  if (!skins.frame) return run.SkipWithError("no skin");
  const arbora::Ref<NkSeparator> scene(new NkSeparator);
  for (int i = 0; i < 1000; ++i) {
    auto* place = new NkSeparator;
    place->addChild(skins.frame);
    scene->addChild(place);
  }
  NkGetBoundingBoxAction box;
  for (auto _ : run) {
    skins.exchange();
    box.apply(scene.get());
  }
}
BENCHMARK(exchangeAllInUse)->Unit(benchmark::kMillisecond);

/// One class's parts, from its built-in text.
void exchangeBuiltIn(benchmark::State& run) {
  Skins skins;
  NkDebugError::setHandler([](int, const char*, const char*, void*) {}, nullptr);
  NkPanelix::setSkin(std::filesystem::temp_directory_path().string());
  for (auto _ : run) NkDialogCheckBox::change3DSkin();
  NkDebugError::setHandler(nullptr, nullptr);
}
BENCHMARK(exchangeBuiltIn)->Unit(benchmark::kMillisecond);

} // namespace

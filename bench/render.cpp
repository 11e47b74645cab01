// What a frame costs the processor ahead of the graphics driver: scenes of panels, each a box with a line of text,
// drawn into a back end that only counts.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "NullBackend.h"
#include "arbora/scene/NkBaseColor.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTranslation.h"

namespace {

/// Separator { Translation, Separator { Scale, Material, Cube }, Separator { BaseColor, Font, Translation, Text3 } }.
struct Panel {
  NkSeparator* node = new NkSeparator;
  NkTranslation* place = new NkTranslation;
  NkMaterial* material = new NkMaterial;
  NkText3* text = new NkText3;

  explicit Panel(int number) {
    place->translation.setValue(static_cast<float>(number % 100) * 3, static_cast<float>(number / 100), 0);
    auto* face = new NkSeparator;
    auto* size = new NkScale;
    size->scaleFactor.setValue(1.4f, 0.4f, 0.05f);
    face->addChild(size);
    face->addChild(material);
    face->addChild(new NkCube);
    auto* label = new NkSeparator;
    auto* color = new NkBaseColor;
    color->rgb.setValue(NbColor(0, 0, 0));
    auto* font = new NkFont;
    font->size = 0.4f;
    auto* shift = new NkTranslation;
    shift->translation.setValue(-1.2f, -0.2f, 0.1f);
    text->string.setValue(NbString(("Panel " + std::to_string(number)).c_str()));
    label->addChild(color);
    label->addChild(font);
    label->addChild(shift);
    label->addChild(text);
    node->addChild(place);
    node->addChild(face);
    node->addChild(label);
  }
};

struct Scene {
  explicit Scene(int numPanels) {
    NkDB::init();
    root = arbora::Ref<NkSeparator>(new NkSeparator);
    camera = new NkPerspectiveCamera;
    root->addChild(camera);
    for (int i = 0; i < numPanels; ++i) {
      panels.emplace_back(i);
      root->addChild(panels.back().node);
    }
    makeAction();
  }
  ~Scene() {
    action.reset();
    root = arbora::Ref<NkSeparator>();
    NkDB::finish();
  }
  void makeAction() {
    action = std::make_unique<NkGLRenderAction>(NbViewportRegion(800, 600));
    action->setBackend(&backend);
  }
  void draw() { action->apply(root.get()); }

  NullBackend backend;
  std::unique_ptr<NkGLRenderAction> action;
  arbora::Ref<NkSeparator> root;
  NkPerspectiveCamera* camera;
  std::vector<Panel> panels;
};

void report(benchmark::State& state, const Scene& scene) {
  const NkGLRenderAction::Statistics& statistics = scene.action->getStatistics();
  state.counters["draws"] = statistics.drawCalls;
  state.counters["meshes"] = statistics.drawnInstances;
  state.counters["visited"] = statistics.visitedNodes;
}

void unchangedFrame(benchmark::State& state) {
  Scene scene(static_cast<int>(state.range(0)));
  scene.draw();
  for (auto _ : state) scene.draw();
  report(state, scene);
}

void movedPanelPerFrame(benchmark::State& state) {
  Scene scene(static_cast<int>(state.range(0)));
  scene.draw();
  std::size_t next = 0;
  float z = 0;
  for (auto _ : state) {
    scene.panels[next].place->translation.setValue(0, 0, z += 0.125f);
    next = (next + 7919) % scene.panels.size();
    scene.draw();
  }
  report(state, scene);
}

void changedTextPerFrame(benchmark::State& state) {
  Scene scene(static_cast<int>(state.range(0)));
  scene.draw();
  std::size_t next = 0;
  int number = 0;
  for (auto _ : state) {
    scene.panels[next].text->string.setValue(NbString(("Panel " + std::to_string(++number)).c_str()));
    next = (next + 7919) % scene.panels.size();
    scene.draw();
  }
  report(state, scene);
}

void movedCameraPerFrame(benchmark::State& state) {
  Scene scene(static_cast<int>(state.range(0)));
  scene.draw();
  float x = 0;
  for (auto _ : state) {
    scene.camera->position.setValue(x += 0.125f, 0, 10);
    scene.draw();
  }
  report(state, scene);
}

void exchangedPanelPerFrame(benchmark::State& state) {
  Scene scene(static_cast<int>(state.range(0)));
  scene.draw();
  const arbora::Ref<NkSeparator> spare(Panel(0).node);
  const int middle = static_cast<int>(state.range(0)) / 2;
  bool there = false;
  for (auto _ : state) {
    if (there)
      scene.root->removeChild(middle);
    else
      scene.root->insertChild(spare.get(), middle);
    there = !there;
    scene.draw();
  }
  report(state, scene);
}

void firstFrame(benchmark::State& state) {
  Scene scene(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    scene.makeAction();
    scene.draw();
  }
  report(state, scene);
}

BENCHMARK(unchangedFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(movedPanelPerFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(changedTextPerFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(movedCameraPerFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(exchangedPanelPerFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace

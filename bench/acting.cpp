// A panel of a thousand push buttons and check boxes: what the user's clicks and the application's writes cost, and the
// frames after them, ahead of the graphics driver.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "NullBackend.h"
#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogPushButtonAuditor.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkSeparator.h"

using arbora::Ref;

namespace {

constexpr int kRows = 100;
constexpr int kColumns = 10;
constexpr int kSide = 3000; // Of the panel and of the picture, in pixels.

class Counter : public NkDialogPushButtonAuditor {
public:
  void dialogPushButton(NkDialogPushButton*) override { ++calls; }
  long calls = 0;
};

class Scene {
public:
  Scene() {
    NkPanelix::init();
    NkDBImpl::m_isVerra = true;
    const NbViewportRegion viewport(kSide, kSide);
    root = Ref<NkSeparator>(new NkSeparator);
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(kSide / 2.0F, -kSide / 2.0F, 500);
    camera->height = kSide;
    camera->farDistance = 1000;
    root->addChild(camera);
    auto* dialog = new NkTopLevelDialog;
    dialog->width = kSide;
    dialog->height = kSide;
    root->addChild(dialog);
    auto* rows = new NkRowDialog;
    dialog->addChild(rows);
    for (int i = 0; i < kRows; ++i) {
      auto* row = new NkColumnDialog;
      rows->addChild(row);
      for (int j = 0; j < kColumns; ++j) row->addChild(j % 2 ? makeBox() : makeButton());
    }
    dialog->buildDialog(nullptr, 0);
    events = std::make_unique<NkHandleEventAction>(viewport);
    render = std::make_unique<NkGLRenderAction>(viewport);
    render->setBackend(&backend);
    draw();
  }
  ~Scene() {
    events.reset();
    render.reset();
    root = Ref<NkSeparator>();
    NkPanelix::finish();
  }

  void draw() { render->apply(root.get()); }
  void send(NkButtonEvent::State state, const NbVec2i32& place) {
    NkMouseButtonEvent event;
    event.setButton(NkMouseButtonEvent::BUTTON1);
    event.setState(state);
    event.setPosition(place);
    events->setEvent(&event);
    events->apply(root.get());
  }

  NullBackend backend;
  Counter counter;
  Ref<NkSeparator> root;
  std::unique_ptr<NkHandleEventAction> events;
  std::unique_ptr<NkGLRenderAction> render;
  std::vector<NkDialogPushButton*> buttons;
  std::vector<NkDialogCheckBox*> boxes;

private:
  NkDialogComponent* makeButton() {
    auto* button = new NkDialogPushButton;
    button->labelVisibility = false;
    button->buttonLabel = NbString(("Button " + std::to_string(buttons.size())).c_str());
    button->addAuditor(&counter);
    buttons.push_back(button);
    return button;
  }
  NkDialogComponent* makeBox() {
    auto* box = new NkDialogCheckBox;
    box->labelVisibility = false;
    box->onString = "yes";
    box->offString = "no";
    boxes.push_back(box);
    return box;
  }
};

/// A press and a release, each an event into the scene. The pointer wanders over the panel.
void clickToAuditor(benchmark::State& run) {
  Scene scene;
  int y = kSide / 2;
  long clicks = 0;
  for (auto _ : run) {
    y = (y + 977) % (kSide - 200);
    const NbVec2i32 place(kSide / 20, 100 + y);
    scene.send(NkButtonEvent::DOWN, place);
    scene.send(NkButtonEvent::UP, place);
    ++clicks;
  }
  run.counters["heard"] = static_cast<double>(scene.counter.calls) / static_cast<double>(clicks);
}
BENCHMARK(clickToAuditor)->Unit(benchmark::kMicrosecond);

void unchangedFrame(benchmark::State& run) {
  Scene scene;
  for (auto _ : run) scene.draw();
  run.counters["meshes"] = scene.render->getStatistics().drawnInstances;
}
BENCHMARK(unchangedFrame)->Unit(benchmark::kMicrosecond);

void frameAfterChangedCaption(benchmark::State& run) {
  Scene scene;
  std::size_t next = 0;
  int number = 0;
  for (auto _ : run) {
    next = (next + 379) % scene.buttons.size();
    scene.buttons[next]->buttonLabel = NbString(("Button " + std::to_string(++number % 1000)).c_str());
    scene.draw();
  }
}
BENCHMARK(frameAfterChangedCaption)->Unit(benchmark::kMicrosecond);

void frameAfterCheck(benchmark::State& run) {
  Scene scene;
  std::size_t next = 0;
  for (auto _ : run) {
    next = (next + 379) % scene.boxes.size();
    scene.boxes[next]->state = !scene.boxes[next]->state.getValue();
    scene.draw();
  }
}
BENCHMARK(frameAfterCheck)->Unit(benchmark::kMicrosecond);

/// The write alone, in the 3D form.
void check(benchmark::State& run) {
  Scene scene;
  for (auto _ : run) scene.boxes[0]->state = !scene.boxes[0]->state.getValue();
}
BENCHMARK(check)->Unit(benchmark::kMicrosecond);

} // namespace

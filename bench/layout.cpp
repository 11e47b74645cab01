// The layout of large dialogs, and their 3D form.
#include <benchmark/benchmark.h>

#include <utility>

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/scene/NkDBImpl.h"

using arbora::Ref;

// A window system in which every window can be made and costs nothing: what is measured is the layout alone. The
// libraries find these functions ahead of those of the window layer.

BOOL IsWindow(HWND window) { return window != nullptr; }

HWND CreateWindowExA(DWORD, LPCSTR, LPCSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, LPVOID) {
  static char s_window;
  return reinterpret_cast<HWND>(&s_window);
}

ATOM RegisterClassA(const WNDCLASSA*) { return 1; }

BOOL GetClassInfoA(HINSTANCE, LPCSTR, WNDCLASSA*) {
  static bool s_isRegistered = false;
  return std::exchange(s_isRegistered, true);
}

BOOL GetWindowRect(HWND, RECT* rectangle) {
  *rectangle = {0, 0, 1'000'000, 1'000'000};
  return TRUE;
}

namespace {

/// The library in a mode in which a dialog is built in 3D or, otherwise, as windows.
struct Library {
  explicit Library(bool isVerra) {
    NkPanelix::init();
    wasVerra = NkDBImpl::m_isVerra;
    NkDBImpl::m_isVerra = isVerra;
  }
  ~Library() {
    NkDBImpl::m_isVerra = wasVerra;
    NkPanelix::finish();
  }

  bool wasVerra;
};

/// Groups of ten, rows and columns in turn, down to components.
NkDialogComponent* makeTree(int levels) {
  if (levels == 0) return new NkDialogComponent;
  NkDialogGroup* group = levels % 2 ? static_cast<NkDialogGroup*>(new NkColumnDialog) : new NkRowDialog;
  for (int i = 0; i < 10; ++i) group->addChild(makeTree(levels - 1));
  return group;
}

void build(NkDialogComponent& component, int width, int height, int is2D) {
  NbVec2i32 size(width, height);
  NbVec2i32 corner(0, 0);
  component.buildWidget(nullptr, size, corner, is2D);
}

/// The first layout of 10 to the power of the argument components.
void layOut(benchmark::State& run) {
  const Library library(false);
  for (auto _ : run) {
    run.PauseTiming();
    Ref<NkRowDialog> parent(new NkRowDialog);
    NkDialogComponent* root = makeTree(static_cast<int>(run.range(0)));
    parent->addChild(root);
    run.ResumeTiming();
    build(*root, 200'000, 30'000, 1);
    run.PauseTiming();
    parent = {};
    run.ResumeTiming();
  }
}
BENCHMARK(layOut)->Arg(3)->Arg(4)->Arg(5)->Unit(benchmark::kMillisecond);

/// A window of as many components is resized.
void resize(benchmark::State& run) {
  const Library library(false);
  // What stands in a parent doesn't measure itself.
  const Ref<NkRowDialog> parent(new NkRowDialog);
  NkDialogComponent* root = makeTree(static_cast<int>(run.range(0)));
  parent->addChild(root);
  build(*root, 0, 0, 1);
  int more = 0;
  for (auto _ : run) {
    more = 100 - more;
    build(*root, 200'000 + more, 30'000 + more, 1);
  }
}
BENCHMARK(resize)->Arg(3)->Arg(4)->Arg(5)->Unit(benchmark::kMillisecond);

/// A thousand rows of two labels.
Ref<NkTopLevelDialog> makeForm() {
  const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  auto* rows = new NkRowDialog;
  for (int i = 0; i < 1000; ++i) {
    auto* row = new NkColumnDialog;
    for (const char* text : {"A name", "and its value"}) {
      auto* label = new NkDialogLabel;
      label->label = text;
      row->addChild(label);
    }
    rows->addChild(row);
  }
  dialog->addChild(rows);
  return dialog;
}

void build3D(benchmark::State& run) {
  const Library library(true);
  for (auto _ : run) {
    run.PauseTiming();
    Ref<NkTopLevelDialog> dialog = makeForm();
    run.ResumeTiming();
    dialog->buildDialog(nullptr, 0);
    run.PauseTiming();
    dialog = {};
    run.ResumeTiming();
  }
}
BENCHMARK(build3D)->Unit(benchmark::kMillisecond);

/// A layout of ten thousand components that changes nothing.
void layOutAgain3D(benchmark::State& run) {
  const Library library(true);
  const Ref<NkDialogComponent> root(makeTree(4));
  build(*root, 200'000, 30'000, 0);
  for (auto _ : run) build(*root, 200'000, 30'000, 0);
}
BENCHMARK(layOutAgain3D)->Unit(benchmark::kMillisecond);

} // namespace

// A dialog of a thousand labels, each of which is two windows, against the bare calls that make and place such windows.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "BareWindows_win.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkTopLevelDialog.h"

namespace {

void bareRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    const Frame frame;
    for (int i = 0; i < kRows; ++i) {
      const HWND row = makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, frame.inside);
      const HWND text = makeControl(L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, row);
      SetWindowPos(row, nullptr, 0, i * kRowHeight, kRowWidth, kRowHeight, SWP_DEFERERASE);
      SetWindowPos(text, nullptr, 3, 3, kRowWidth - 6, kRowHeight - 6, SWP_DEFERERASE);
    }
  }
  NkPanelix::finish();
}
BENCHMARK(bareRows);

void dialogOfRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    for (int i = 0; i < kRows; ++i) {
      auto* label = new NkDialogLabel;
      label->label = "Panel";
      dialog->addChild(label);
    }
    dialog->buildDialog(nullptr, 0);
    if (!dialog->getWidget()) std::abort();
  }
  NkPanelix::finish();
}
BENCHMARK(dialogOfRows);

} // namespace

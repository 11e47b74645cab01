// A dialog of a thousand labels, each of which is two windows, against the bare calls that make and place such windows.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <vector>

#include "BareWindows_win.h"
#include "Panelix/NkDialogLabel.h"

namespace {

NkDialogLabel* makeLabel() {
  auto* label = new NkDialogLabel;
  label->label = "Panel";
  return label;
}

void bareRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    {
      const Frame frame;
      for (int i = 0; i < kRows; ++i) {
        const HWND row = makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, frame.inside);
        const HWND text = makeControl(L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, row);
        SetWindowPos(row, nullptr, 0, i * kRowHeight, kRowWidth, kRowHeight, SWP_DEFERERASE);
        SetWindowPos(text, nullptr, 3, 3, kRowWidth - 6, kRowHeight - 6, SWP_DEFERERASE);
      }
      state.PauseTiming(); // Their end isn't counted.
    }
    state.ResumeTiming();
  }
  NkPanelix::finish();
}
BENCHMARK(bareRows);

void dialogOfRows(benchmark::State& state) { buildRows(state, makeLabel); }
BENCHMARK(dialogOfRows);

/// The windows of such a dialog, placed anew.
void bareResize(benchmark::State& state) {
  NkPanelix::init();
  {
    const Frame frame;
    std::vector<std::array<HWND, 2>> rows;
    for (int i = 0; i < kRows; ++i) {
      const HWND row = makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, frame.inside);
      rows.push_back({row, makeControl(L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, row)});
    }
    int width = kRowWidth;
    for (auto _ : state) {
      width = 3 * kRowWidth - width;
      SetWindowPos(frame.base, nullptr, 0, 0, width, kRows * kRowHeight, SWP_NOZORDER | SWP_NOMOVE);
      SetWindowPos(frame.inside, nullptr, 0, 0, width, kRows * kRowHeight, SWP_NOMOVE);
      for (int i = 0; i < kRows; ++i) {
        const auto [row, text] = rows[static_cast<std::size_t>(i)];
        SetWindowPos(row, nullptr, 0, i * kRowHeight, width, kRowHeight, SWP_DEFERERASE);
        SetWindowPos(text, nullptr, 3, 3, width - 6, kRowHeight - 6, SWP_DEFERERASE);
      }
    }
  }
  NkPanelix::finish();
}
BENCHMARK(bareResize);

void dialogResize(benchmark::State& state) {
  NkPanelix::init();
  {
    const arbora::Ref<NkTopLevelDialog> dialog = makeRows(makeLabel);
    dialog->buildDialog(nullptr, 0);
    int width = kRowWidth;
    for (auto _ : state) {
      width = 3 * kRowWidth - width;
      SetWindowPos(dialog->getBaseWidget(), nullptr, 0, 0, width, kRows * kRowHeight, SWP_NOZORDER | SWP_NOMOVE);
    }
    if (dialog->width.getValue() != width) std::abort();
  }
  NkPanelix::finish();
}
BENCHMARK(dialogResize);

} // namespace

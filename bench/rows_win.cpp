// Dialogs of a thousand rows, of labels and of buttons with labels, against the bare calls that make and place the same
// two or three windows a row.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <vector>

#include "BareWindows_win.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogPushButton.h"

namespace {

/// A row of windows: its frame, its text and, unless it is a label, its button.
struct LabelRow {
  explicit LabelRow(HWND parent)
      : frame(makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, parent)),
        text(makeControl(L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, frame)) {}
  void place(int y, int width) const {
    SetWindowPos(frame, nullptr, 0, y, width, kRowHeight, SWP_DEFERERASE);
    SetWindowPos(text, nullptr, 3, 3, width - 6, kRowHeight - 6, SWP_DEFERERASE);
  }
  static NkDialogComponent* makeComponent() {
    auto* label = new NkDialogLabel;
    label->label = "Panel";
    return label;
  }

  HWND frame;
  HWND text;
};

struct ButtonRow {
  explicit ButtonRow(HWND parent)
      : frame(makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, parent)),
        text(makeControl(L"STATIC", WS_CHILD | WS_CLIPCHILDREN | SS_RIGHT, frame)) {
    ShowWindow(text, SW_SHOW);
    button = makeButton(BS_PUSHBUTTON, frame);
  }
  void place(int y, int width) const {
    SetWindowPos(frame, nullptr, 0, y, width, kRowHeight, SWP_DEFERERASE);
    SetWindowPos(text, nullptr, 3, 3, kLabelWidth, kRowHeight - 6, SWP_DEFERERASE);
    SetWindowPos(button, nullptr, 3 + kLabelWidth, 3, width - kLabelWidth - 6, kRowHeight - 6, SWP_DEFERERASE);
  }
  static NkDialogComponent* makeComponent() {
    auto* button = new NkDialogPushButton;
    button->label = "Panel";
    button->buttonLabel = "Panel";
    return button;
  }

  HWND frame;
  HWND text;
  HWND button;
};

template <class Row>
void bareRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    {
      const Frame frame;
      for (int i = 0; i < kRows; ++i) Row(frame.inside).place(i * kRowHeight, kRowWidth);
      state.PauseTiming(); // Their end isn't counted.
    }
    state.ResumeTiming();
  }
  NkPanelix::finish();
}

template <class Row>
arbora::Ref<NkTopLevelDialog> makeDialog() {
  arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  for (int i = 0; i < kRows; ++i) dialog->addChild(Row::makeComponent());
  return dialog;
}

template <class Row>
void dialogOfRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    state.PauseTiming();
    {
      const arbora::Ref<NkTopLevelDialog> dialog = makeDialog<Row>();
      state.ResumeTiming();
      dialog->buildDialog(nullptr, 0);
      state.PauseTiming();
      if (!dialog->getWidget()) std::abort();
    }
    state.ResumeTiming();
  }
  NkPanelix::finish();
}

/// The windows are placed anew.
template <class Row>
void bareResize(benchmark::State& state) {
  NkPanelix::init();
  {
    const Frame frame;
    std::vector<Row> rows;
    for (int i = 0; i < kRows; ++i) rows.emplace_back(frame.inside);
    int width = kRowWidth;
    for (auto _ : state) {
      width = 3 * kRowWidth - width;
      SetWindowPos(frame.base, nullptr, 0, 0, width, kRows * kRowHeight, SWP_NOZORDER | SWP_NOMOVE);
      SetWindowPos(frame.inside, nullptr, 0, 0, width, kRows * kRowHeight, SWP_NOMOVE);
      int y = 0;
      for (const Row& row : rows) {
        row.place(y, width);
        y += kRowHeight;
      }
    }
  }
  NkPanelix::finish();
}

template <class Row>
void dialogResize(benchmark::State& state) {
  NkPanelix::init();
  {
    const arbora::Ref<NkTopLevelDialog> dialog = makeDialog<Row>();
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

BENCHMARK(bareRows<LabelRow>);
BENCHMARK(dialogOfRows<LabelRow>);
BENCHMARK(bareResize<LabelRow>);
BENCHMARK(dialogResize<LabelRow>);
BENCHMARK(bareRows<ButtonRow>);
BENCHMARK(dialogOfRows<ButtonRow>);
BENCHMARK(bareResize<ButtonRow>);
BENCHMARK(dialogResize<ButtonRow>);

} // namespace

// The native side of push buttons and check boxes, against the bare calls that do the same.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "BareWindows_win.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogPushButton.h"

namespace {

void bareRows(benchmark::State& state) {
  NkPanelix::init();
  for (auto _ : state) {
    {
      const Frame frame;
      for (int i = 0; i < kRows; ++i) {
        const HWND row = makeWindow(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, frame.inside);
        const HWND label = makeControl(L"STATIC", WS_CHILD | WS_CLIPCHILDREN | SS_RIGHT, row);
        ShowWindow(label, SW_SHOW);
        const HWND button = makeButton(BS_PUSHBUTTON, row);
        SetWindowPos(row, nullptr, 0, i * kRowHeight, kRowWidth, kRowHeight, SWP_DEFERERASE);
        SetWindowPos(label, nullptr, 3, 3, kLabelWidth, kRowHeight - 6, SWP_DEFERERASE);
        SetWindowPos(button, nullptr, 3 + kLabelWidth, 3, kRowWidth - kLabelWidth - 6, kRowHeight - 6, SWP_DEFERERASE);
      }
      state.PauseTiming(); // Their end isn't counted.
    }
    state.ResumeTiming();
  }
  NkPanelix::finish();
}
BENCHMARK(bareRows);

void dialogOfRows(benchmark::State& state) {
  buildRows(state, [] {
    auto* button = new NkDialogPushButton;
    button->label = "Panel";
    button->buttonLabel = "Panel";
    return button;
  });
}
BENCHMARK(dialogOfRows);

/// The calls that show a state: the check and, twice, the caption for it.
void bareCheck(benchmark::State& state) {
  NkPanelix::init();
  {
    const Frame frame;
    const HWND box = makeButton(BS_AUTOCHECKBOX, frame.inside);
    ShowWindow(frame.base, SW_SHOW);
    bool isChecked = false;
    for (auto _ : state) {
      isChecked = !isChecked;
      SendMessageA(box, BM_SETCHECK, isChecked, 0);
      for (int i = 0; i < 2; ++i) SetWindowTextW(box, isChecked ? L"yes" : L"no");
    }
  }
  NkPanelix::finish();
}
BENCHMARK(bareCheck);

/// A write of the field of a check box that stands in both forms.
void checkInBothForms(benchmark::State& state) {
  NkPanelix::init();
  {
    const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    auto* box = new NkDialogCheckBox;
    box->onString = "yes";
    box->offString = "no";
    dialog->addChild(box);
    dialog->buildDialog(nullptr, 0);
    dialog->show();
    dialog->updateDialogBuild(0);
    if (!box->isBuilt3D() || !box->getWidget()) std::abort();
    for (auto _ : state) box->state = !box->state.getValue();
  }
  NkPanelix::finish();
}
BENCHMARK(checkInBothForms);

} // namespace

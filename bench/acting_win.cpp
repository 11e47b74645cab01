// The native side of a check box, against the bare calls that do the same.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "BareWindows_win.h"
#include "Panelix/NkDialogCheckBox.h"

namespace {

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

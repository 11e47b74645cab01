// A user's action on a component eight levels below the dialog that listens.
#include <benchmark/benchmark.h>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTopLevelDialog.h"

using arbora::Ref;

namespace {

class Listener : public NkDialogAuditor {
public:
  void dialogRealSlider(NkDialogRealSlider*) override { ++calls; }
  long calls = 0;
};

void tellEightLevelsUp(benchmark::State& state) {
  NkPanelix::init();
  {
    const Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
    auto* group = new NkRowDialog;
    dialog->addChild(group);
    for (int i = 0; i < 6; ++i) {
      auto* inner = new NkRowDialog;
      group->addChild(inner);
      group = inner;
    }
    auto* slider = new NkDialogRealSlider;
    group->addChild(slider);
    Listener listener;
    dialog->addAuditor(&listener);
    for (auto _ : state) slider->applyDlgCptAuditor();
    benchmark::DoNotOptimize(listener.calls);
  }
  NkPanelix::finish();
}
BENCHMARK(tellEightLevelsUp);

} // namespace

// Reading and writing of dialog files, and what one component costs while it has no form.
#include <string>

#include <benchmark/benchmark.h>

#include "Panelix/NkPanelix.h"
#include "Panelix/Vocabulary.h"
#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkInput.h"
#include "arbora/scene/NkOutput.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkWriteAction.h"

namespace {

using arbora::Ref;

struct Library {
  Library() { NkPanelix::init(); }
  ~Library() { NkPanelix::finish(); }
};

constexpr int kComponentsOfADialog = 38;

/// A component of each class, most of them in one dialog, as applications write them.
std::string dialog(int index) {
  const std::string number = std::to_string(index);
  const std::string id = " auditorID \"a" + number + "\" ";
  return "TopLevelDialog {\n  label \"Dialog " + number + "\"\n  margin 4 rowSpacing 4" + id +
         "\n  MenuBar {\n    MenuPopup {\n      label \"&File\"\n"
         "      MenuFileSelection { label \"&Open...\" accelerator \"Ctrl+O\" title \"Open\" filter [ \"*.arb\", "
         "\"Scenes\" ] }\n"
         "      MenuSeparator { }\n      MenuItem { label \"Recent\" }\n      MenuPushButton { label \"E&xit\"" +
         id +
         "}\n    }\n    MenuPopup {\n      label \"&View\"\n      MenuCheckBox { label \"Show the axes\" onString "
         "\"Hide the axes\"" +
         id +
         "}\n      MenuCheckBoxLauncher { label \"Statistics\" TopLevelDialog { label \"Statistics\" } }\n"
         "      MenuRadioButtons { items [ \"Wireframe\", \"Flat\", \"Smooth\" ] selectedItem 1" +
         id +
         "}\n      MenuPushButtonLauncher { label \"About\" TopLevelDialog { label \"About\" } }\n    }\n  }\n"
         "  TabDialog {\n    RowDialog {\n      label \"Camera\"\n"
         "      DialogRealSlider { label \"Field of view\" min 10 max 120 value 45.5 format \"%.1f\"" +
         id + "}\n      DialogIntegerSlider { label \"Samples\" min 1 max 16 value 4 fixedLimits TRUE" + id +
         "}\n      DialogComboBox { label \"Projection\" items [ \"Perspective\", \"Orthographic\" ]" + id +
         "}\n      DialogCheckBox { label \"Clip\" state TRUE onString \"near and far\" offString \"never\"" + id +
         "}\n      DialogRadioButtons { label \"Kind\" items [ \"Headlight\", \"Sun\", \"Sky\" ] selectedItem 2" + id +
         "}\n    }\n    ColumnDialog {\n      label \"Notes\" columnSpacing 2\n"
         "      DialogEditText { label \"Name\" editText \"bridge " +
         number + "\"" + id +
         "}\n      DialogLabel { label \"Two lines\\nof text\" labelAlignment CENTER }\n      DialogSeparator { }\n"
         "      DialogCustom { minHeight 40 maxHeight 90 edgeStyle SHADOW_IN }\n    }\n  }\n"
         "  DialogGroup { DialogComponent { } DialogSlider { } DialogChoice { } }\n"
         "  DialogCheckBoxLauncher { offString \"Show\" TopLevelDialog { label \"More\" } }\n"
         "  DialogPushButtonLauncher { buttonLabel \"More\" TopLevelDialog { label \"Still more\" } }\n"
         "  DialogPushButton { labelVisibility FALSE buttonLabel \"Apply\"" +
         id +
         "}\n  TopComponent { }\n}\nMessageDialog { title \"Saved\" label \"All is saved.\" type MD_INFORMATION "
         "}\nPanelix { }\n";
}

/// Dialogs up to a size, in MB.
std::string dialogs(std::int64_t megabytes, std::int64_t& components) {
  const auto size = static_cast<std::size_t>(megabytes) << 20;
  std::string text = "#Arbora V2.1 ascii\n";
  text.reserve(size + 4096);
  components = 0;
  for (int i = 0; text.size() < size; ++i) {
    text += dialog(i);
    components += kComponentsOfADialog;
  }
  return text;
}

Ref<NkSeparator> read(const std::string& text) {
  NkInput in;
  in.setBuffer(text.data(), text.size());
  return Ref<NkSeparator>(NkDB::readAll(&in));
}

std::string written(NkNode* root, bool binary) {
  NkOutput out;
  out.setBinary(binary);
  NkWriteAction(&out).apply(root);
  return out.getString();
}

void readFile(benchmark::State& state, bool binary) {
  const Library library;
  std::int64_t components = 0;
  std::string file = dialogs(state.range(0), components);
  {
    const int before = NkBase::getLiveCount();
    const Ref<NkSeparator> root = read(file);
    // The separator is one of them.
    if (!root || NkBase::getLiveCount() - before != components + 1) {
      state.SkipWithError("the text has another number of components");
      return;
    }
    if (binary) file = written(root.get(), true);
  }
  for (auto _ : state) {
    Ref<NkSeparator> root = read(file);
    state.PauseTiming();
    root = nullptr;
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * components);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}

void readDialogs(benchmark::State& state) { readFile(state, false); }
BENCHMARK(readDialogs)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

void readDialogsBinary(benchmark::State& state) { readFile(state, true); }
BENCHMARK(readDialogsBinary)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

void writeDialogs(benchmark::State& state) {
  const Library library;
  std::int64_t components = 0;
  const Ref<NkSeparator> root = read(dialogs(state.range(0), components));
  for (auto _ : state) benchmark::DoNotOptimize(written(root.get(), false));
  state.SetItemsProcessed(state.iterations() * components);
}
BENCHMARK(writeDialogs)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

/// One of each class in turn.
void makeAndDestroy(benchmark::State& state) {
  const Library library;
  const auto rows = panelix::vocabulary();
  for (auto _ : state) {
    for (const panelix::VocabularyRow& row : rows) {
      const Ref<NkBase> node(row.type().createInstance());
      benchmark::DoNotOptimize(node.get());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows.size()));
}
BENCHMARK(makeAndDestroy);

void makeAndDestroyOne(benchmark::State& state, const panelix::VocabularyRow& row) {
  const Library library;
  for (auto _ : state) {
    const Ref<NkBase> node(row.type().createInstance());
    benchmark::DoNotOptimize(node.get());
  }
}

[[maybe_unused]] const bool s_areRegistered = [] {
  for (const panelix::VocabularyRow& row : panelix::vocabulary()) {
    const std::string name = std::string("makeAndDestroyOne/") + row.keyword;
    benchmark::RegisterBenchmark(name.c_str(), [&row](benchmark::State& state) { makeAndDestroyOne(state, row); });
  }
  return true;
}();

} // namespace

// What ten thousand dialogs leave, each in both forms and dropped ahead of the next one, beside what the same number of
// bare windows leaves: Wine itself keeps about a kilobyte of each top-level window. Gives 1 if the dialogs leave more.
#include "src/platform/Win32.h"
// Behind the one above.
#include <psapi.h>

#include <cstdio>
#include <cstdlib>

#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogSeparator.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"

namespace {

constexpr int kRounds = 10000;
constexpr int kWarmUp = 1000; // The system gets its own tables in these.

/// What a dialog's frame costs.
void bareFrame() {
  const HWND window = CreateWindowExA(WS_EX_WINDOWEDGE, "STATIC", "title", WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr,
                                      nullptr, NkWin::getInstance(), nullptr);
  SetWindowPos(window, nullptr, 0, 0, 200, 200, SWP_NOZORDER | SWP_NOMOVE);
  DestroyWindow(window);
}

void dialog() {
  const arbora::Ref<NkTopLevelDialog> dialog(new NkTopLevelDialog);
  dialog->label = "title";
  auto* row = new NkRowDialog;
  auto* label = new NkDialogLabel;
  label->label = "text";
  row->addChild(label);
  row->addChild(new NkDialogSeparator);
  dialog->addChild(row);
  dialog->buildDialog(nullptr, 0);
  NbVec2i32 none(0, 0);
  dialog->buildWidget(nullptr, none, none, 0);
  if (!IsWindow(label->getWidget())) std::abort();
}

struct Counts {
  int nodes = 0;
  int windows = 0;
  int drawingObjects = 0;
  long kilobytes = 0; ///< Of memory that the process has in use.
};

Counts count() {
  Counts counts;
  counts.nodes = NkBase::getLiveCount();
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND, LPARAM windows) {
        ++*reinterpret_cast<int*>(windows);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&counts.windows));
  // The lower half of a handle is its place in the table of drawing objects.
  constexpr UINT_PTR kPlaces = 0x10000;
  for (UINT_PTR place = 1; place < kPlaces; ++place)
    counts.drawingObjects += GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0 ? 1 : 0;
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  counts.kilobytes = static_cast<long>(memory.PagefileUsage / 1024);
  return counts;
}

/// What the rounds left.
Counts growth(const char* name, void (*round)()) {
  for (int i = 0; i < kWarmUp; ++i) round();
  const Counts before = count();
  for (int i = 0; i < kRounds; ++i) round();
  const Counts after = count();
  const Counts left{after.nodes - before.nodes, after.windows - before.windows,
                    after.drawingObjects - before.drawingObjects, after.kilobytes - before.kilobytes};
  std::printf("%d %s: %d nodes, %d windows, %d drawing objects, %ld kB\n", kRounds, name, left.nodes, left.windows,
              left.drawingObjects, left.kilobytes);
  return left;
}

} // namespace

int main() {
  NkPanelix::init();
  const Counts bare = growth("bare frames", bareFrame);
  const Counts dialogs = growth("dialogs", dialog);
  NkPanelix::finish();
  constexpr long kNoise = 200; // In kB.
  const bool isClean = dialogs.nodes == 0 && dialogs.windows == 0 && dialogs.drawingObjects <= bare.drawingObjects &&
                       dialogs.kilobytes <= bare.kilobytes + kNoise;
  std::puts(isClean ? "nothing left" : "LEAK");
  return isClean ? 0 : 1;
}

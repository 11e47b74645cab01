// A dialog of a thousand labels, each of which is two windows, against the bare calls that make and place such windows.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"

namespace {

constexpr int kRows = 1000;
constexpr int kRowHeight = 25;
constexpr int kRowWidth = 100;
constexpr DWORD kFrameStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;

HWND make(DWORD extendedStyle, const char* className, DWORD style, HWND parent) {
  const HWND window = CreateWindowExA(extendedStyle, className, "Panel", style, 0, 0, 0, 0, parent, nullptr,
                                      NkWin::getInstance(), nullptr);
  if (!window) std::abort();
  return window;
}

void bareRows(benchmark::State& state) {
  NkPanelix::init();
  NbString frameClass = "BenchmarkFrame";
  WNDCLASSA record{};
  record.style = CS_PARENTDC | CS_HREDRAW | CS_VREDRAW;
  record.lpfnWndProc = DefWindowProcA;
  record.cbWndExtra = sizeof(void*);
  record.hInstance = NkWin::getInstance();
  record.lpszClassName = "BenchmarkFrame";
  NkWin::registerClass(record, frameClass);
  for (auto _ : state) {
    const HWND base = make(WS_EX_WINDOWEDGE, "BenchmarkFrame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr);
    const HWND inside = make(0, "BenchmarkFrame", kFrameStyle, base);
    const auto font = reinterpret_cast<WPARAM>(NkPanelix::getPanelixFont());
    SetWindowPos(base, nullptr, 0, 0, kRowWidth, kRows * kRowHeight, SWP_NOZORDER | SWP_NOMOVE);
    SetWindowPos(inside, nullptr, 0, 0, kRowWidth, kRows * kRowHeight, SWP_NOMOVE);
    for (int i = 0; i < kRows; ++i) {
      const HWND frame = make(WS_EX_CONTROLPARENT, "BenchmarkFrame", kFrameStyle, inside);
      const HWND text = make(0, "STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, frame);
      SendMessageA(text, WM_SETFONT, font, TRUE);
      SetWindowPos(frame, nullptr, 0, i * kRowHeight, kRowWidth, kRowHeight, SWP_DEFERERASE);
      SetWindowPos(text, nullptr, 3, 3, kRowWidth - 6, kRowHeight - 6, SWP_DEFERERASE);
    }
    DestroyWindow(base);
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
